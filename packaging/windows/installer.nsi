; The installer for Windows, for the user who runs it: no administrator is asked. scripts/installer defines VERSION,
; OUTPUT and LICENSE, and writes LISTS: what each section copies, and what the uninstaller deletes.
;   hdlbuildfile-VERSION-win64.exe [/S] [/PATH] [/D=FOLDER]
; /S asks nothing; /PATH adds the programs to the user's PATH; /D= has to be last and takes no quotes.
Target amd64-unicode
SetCompressor /SOLID lzma
!include "MUI2.nsh"
!include "FileFunc.nsh"
!include "LogicLib.nsh"
!include "Sections.nsh"
!include "path.nsh"

!define KEY "Software\hdlbuildfile"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\hdlbuildfile"

Name "hdlbuildfile ${VERSION}"
OutFile "${OUTPUT}"
RequestExecutionLevel user
InstallDir "$LOCALAPPDATA\Programs\hdlbuildfile"
InstallDirRegKey HKCU "${KEY}" "Folder"
ShowInstDetails nevershow
ShowUninstDetails nevershow

VIProductVersion "${VERSION}.0"
VIFileVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "hdlbuildfile"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "FileDescription" "Installer of hdlbuildfile"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "LegalCopyright" "MIT License"

!insertmacro MUI_PAGE_LICENSE "${LICENSE}"
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

Section "The tool hdlbuild"
    SectionIn RO
    ; What the last version had and this one has not. PATH stays as it is.
    ${If} ${FileExists} "$INSTDIR\uninstall.exe"
        ExecWait '"$INSTDIR\uninstall.exe" /S /UPGRADE _?=$INSTDIR'
    ${EndIf}
    !include "${LISTS}\runtime.nsh"
    !include "${LISTS}\tool.nsh"
    SetOutPath "$INSTDIR"
    WriteUninstaller "$INSTDIR\uninstall.exe"
    WriteRegStr HKCU "${KEY}" "Folder" "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "hdlbuildfile"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "Publisher" "The hdlbuildfile authors"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
SectionEnd

Section "Headers and libraries for programs"
    !include "${LISTS}\development.nsh"
SectionEnd

Section "Documentation and examples"
    !include "${LISTS}\documentation.nsh"
SectionEnd

Section /o "Add hdlbuild to PATH" PathSection
    Push "$INSTDIR\bin"
    Call RemoveFromPath
    Push "$INSTDIR\bin"
    Call AddToPath
SectionEnd

Function .onInit
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} "$0" "/PATH" $1
    ${IfNot} ${Errors}
        !insertmacro SelectSection ${PathSection}
    ${EndIf}
FunctionEnd

Section "Uninstall"
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} "$0" "/UPGRADE" $1
    ${If} ${Errors}
        Push "$INSTDIR\bin"
        Call un.RemoveFromPath
    ${EndIf}
    !include "${LISTS}\remove.nsh"
    Delete "$INSTDIR\uninstall.exe"
    ; Only when it is empty: what others put there stays.
    SetOutPath "$TEMP"
    RMDir "$INSTDIR"
    DeleteRegKey HKCU "${UNINSTALL_KEY}"
    DeleteRegKey HKCU "${KEY}"
SectionEnd

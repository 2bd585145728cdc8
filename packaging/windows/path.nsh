; Adds a folder to the user's PATH and takes it out. A text of NSIS ends after 1024 characters, a PATH may be longer:
; the value is read and changed in memory of Windows' own, and not at all when it cannot be read.

!define PATH_TYPE_EXPANDED 2 ; REG_EXPAND_SZ
!define ERROR_FILE_NOT_FOUND 2
!define KEY_QUERY_AND_SET 3
!define HKCU_HANDLE 0x80000001

; Opens the key in $R1, and reads into $R2 ";" + PATH + ";", with room for $R0 and a ";" more, its type into $R3.
; $R2 is 0 when the value cannot be read.
!macro ReadPath
    StrCpy $R2 0
    StrCpy $R3 ${PATH_TYPE_EXPANDED}
    System::Call 'advapi32::RegCreateKeyExW(p ${HKCU_HANDLE}, w "Environment", i 0, p 0, i 0, i ${KEY_QUERY_AND_SET}, p 0, *p .R1, p 0) i.R4'
    ${If} $R4 = 0
        System::Call 'advapi32::RegQueryValueExW(p R1, w "Path", p 0, *i .R3, p 0, *i .R5) i.R4'
        ${If} $R4 = ${ERROR_FILE_NOT_FOUND}
            StrCpy $R3 ${PATH_TYPE_EXPANDED}
            StrCpy $R5 0
        ${EndIf}
        ${If} $R4 = 0
        ${OrIf} $R4 = ${ERROR_FILE_NOT_FOUND}
            StrLen $R6 $R0
            IntOp $R6 $R6 * 2
            IntOp $R6 $R6 + $R5
            IntOp $R6 $R6 + 16
            System::Call 'kernel32::GlobalAlloc(i 0x40, p R6) p.R2' ; filled with zeros
            System::Call 'kernel32::lstrcpyW(p R2, w ";")'
            ${If} $R5 > 0
                IntPtrOp $R7 $R2 + 2
                System::Call 'advapi32::RegQueryValueExW(p R1, w "Path", p 0, p 0, p R7, *i R5) i.R4'
                ${If} $R4 <> 0
                    System::Call 'kernel32::GlobalFree(p R2)'
                    StrCpy $R2 0
                ${Else}
                    System::Call 'kernel32::lstrcatW(p R2, w ";")'
                ${EndIf}
            ${EndIf}
        ${EndIf}
    ${EndIf}
!macroend

; Writes PATH back from $R2, which has a ";" on both sides, tells running programs, and frees all.
!macro WritePath
    IntPtrOp $R7 $R2 + 2
    System::Call 'kernel32::lstrlenW(p R7) i.R5'
    ${If} $R5 > 0
        IntOp $R5 $R5 - 1
        IntOp $R6 $R5 * 2
        IntPtrOp $R8 $R7 + $R6
        System::Call '*$R8(&i2 0)'
    ${EndIf}
    ${If} $R5 > 0
        IntOp $R6 $R5 * 2
        IntOp $R6 $R6 + 2
        System::Call 'advapi32::RegSetValueExW(p R1, w "Path", i 0, i R3, p R7, i R6)'
    ${Else}
        System::Call 'advapi32::RegDeleteValueW(p R1, w "Path")'
    ${EndIf}
    SendMessage ${HWND_BROADCAST} ${WM_WININICHANGE} 0 "STR:Environment" /TIMEOUT=1000
!macroend

!macro ClosePath
    ${If} $R2 P<> 0
        System::Call 'kernel32::GlobalFree(p R2)'
    ${EndIf}
    System::Call 'advapi32::RegCloseKey(p R1)'
!macroend

; Pops a folder and puts it behind the others.
Function AddToPath
    Pop $R0
    !insertmacro ReadPath
    ${If} $R2 P<> 0
        System::Call 'kernel32::lstrcatW(p R2, w "$R0;")'
        !insertmacro WritePath
    ${EndIf}
    !insertmacro ClosePath
FunctionEnd

; Pops a folder and takes it out wherever it is; a PATH without it stays as it is.
!macro DefineRemoveFromPath prefix
Function ${prefix}RemoveFromPath
    Pop $R0
    !insertmacro ReadPath
    ${If} $R2 P<> 0
        System::Call 'shlwapi::StrStrIW(p R2, w ";$R0;") p.R8'
        ${If} $R8 P<> 0
            ; What follows the entry goes over it, with the zero at the end.
            StrLen $R6 ";$R0"
            IntOp $R6 $R6 * 2
            IntPtrOp $R9 $R8 + $R6
            System::Call 'kernel32::lstrlenW(p R9) i.R5'
            IntOp $R5 $R5 * 2
            IntOp $R5 $R5 + 2
            System::Call 'ntdll::memmove(p R8, p R9, p R5)'
            !insertmacro WritePath
        ${EndIf}
    ${EndIf}
    !insertmacro ClosePath
FunctionEnd
!macroend
!insertmacro DefineRemoveFromPath ""
!insertmacro DefineRemoveFromPath "un."

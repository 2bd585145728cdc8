#include "cli/shell/shellscripts.h"

namespace {

// Each asks "hdlbuild __complete WORD..." with the words up to the cursor, the last of which may be
// empty. It prints a line for each word that may stand there, with its help behind a tabulator, and
// ":" at the end when files may stand there, too.

constexpr const char* kBash =
    R"bash(# Completion of hdlbuild for bash: source <(hdlbuild completion bash)
_hdlbuild() {
    local word=${COMP_WORDS[COMP_CWORD]} line files=
    COMPREPLY=()
    while IFS= read -r line; do
        if [ "$line" = : ]; then
            files=yes
            continue
        fi
        COMPREPLY+=("$(printf '%q' "${line%%$'\t'*}")")
    done < <("${COMP_WORDS[0]}" __complete "${COMP_WORDS[@]:1:COMP_CWORD}" 2>/dev/null)
    if [ -n "$files" ]; then
        compopt -o filenames 2>/dev/null
        while IFS= read -r line; do COMPREPLY+=("$line"); done < <(compgen -f -- "$word")
    fi
}
complete -F _hdlbuild hdlbuild
)bash";

constexpr const char* kZsh = R"zsh(#compdef hdlbuild
# Completion of hdlbuild for zsh: source <(hdlbuild completion zsh), or as _hdlbuild in a folder of $fpath.
_hdlbuild() {
    local line files=
    local -a names texts
    while IFS= read -r line; do
        if [[ $line == : ]]; then
            files=yes
            continue
        fi
        names+=("${line%%$'\t'*}")
        texts+=("${line/$'\t'/  -- }")
    done < <("${words[1]}" __complete "${(@)words[2,CURRENT]}" 2>/dev/null)
    (( ${#names} )) && compadd -l -d texts -a names
    [[ -n $files ]] && _files
    return 0
}
if [[ $funcstack[1] == _hdlbuild ]]; then _hdlbuild "$@"; else compdef _hdlbuild hdlbuild; fi
)zsh";

constexpr const char* kFish =
    R"fish(# Completion of hdlbuild for fish: hdlbuild completion fish | source
function __hdlbuild_complete
    set -l words (commandline -opc)
    set -l word (commandline -ct)
    for line in ($words[1] __complete $words[2..-1] "$word" 2>/dev/null)
        if test "$line" = :
            __fish_complete_path "$word"
        else
            echo $line
        end
    end
end
complete -c hdlbuild -f -a '(__hdlbuild_complete)'
)fish";

constexpr const char* kPowerShell =
    R"pwsh(# Completion of hdlbuild for PowerShell: hdlbuild completion powershell | Out-String | Invoke-Expression
Register-ArgumentCompleter -Native -CommandName hdlbuild, hdlbuild.exe -ScriptBlock {
    param($wordToComplete, $commandAst, $cursorPosition)
    $words = @($commandAst.CommandElements | Where-Object { $_.Extent.StartOffset -lt $cursorPosition } |
        Select-Object -Skip 1 | ForEach-Object { $_.ToString() })
    if ($wordToComplete -eq '') { $words += '""' }
    & $commandAst.CommandElements[0].ToString() __complete @words 2>$null | Where-Object { $_ -ne ':' } |
        ForEach-Object {
            $name, $help = $_ -split "`t", 2
            if (-not $help) { $help = $name }
            $text = if ($name -match '[\s''"`$();]') { "'" + $name.Replace("'", "''") + "'" } else { $name }
            [System.Management.Automation.CompletionResult]::new($text, $name, 'ParameterValue', $help)
        }
}
)pwsh";

struct TShell {
    const char* Name;
    const char* Script;
};

constexpr TShell kShells[] = {
    {"bash", kBash}, {"fish", kFish}, {"powershell", kPowerShell}, {"zsh", kZsh}};

}  // namespace

std::vector<std::string> ShellNames() {
    std::vector<std::string> names;
    for (const TShell& shell : kShells) names.emplace_back(shell.Name);
    return names;
}

std::string CompletionScriptFor(std::string_view shell) {
    for (const TShell& known : kShells)
        if (shell == known.Name) return known.Script;
    return "";
}

// Completion scripts: let a shell ask the tool what a word can become.
// Entry points: runCompletionScript().
// Owns: the scripts.
// Covered by tests/tools/ttconfig/commandline/completion_test.cpp.

#include "ttconfig/commandline/completion.h"
#include "ttconfig/invocation/fault.h"

namespace ttconfig {

namespace {

// bash also splits the line at "=" and ":", and wants only the part of a word after the last of them.
constexpr std::string_view kBash = R"sh(# bash completion of ttconfig; written by: ttconfig completion bash
_ttconfig() {
    local left=${COMP_LINE:0:COMP_POINT} words=() answers=() part blank current front= answer
    for part in "${COMP_WORDS[@]:0:COMP_CWORD+1}"; do
        blank=${left%%[![:blank:]]*}
        left=${left:${#blank}}
        part=${left:0:${#part}}
        if ((${#words[@]} == 0)) || [[ -n $blank ]]; then words+=("$part"); else words[-1]+=$part; fi
        left=${left:${#part}}
    done
    current=${words[-1]}
    if [[ $COMP_WORDBREAKS == *=* && $current == *=* ]]; then front=${current%"${current##*=}"}; fi
    mapfile -t answers < <("${words[0]/#\~/$HOME}" completion words -- "${words[@]:1}" 2>/dev/null)
    COMPREPLY=()
    for answer in "${answers[@]}"; do
        case $answer in
            :files | :directories)
                compopt -o filenames 2>/dev/null
                part=-f
                if [[ $answer == :directories ]]; then part=-d; fi
                mapfile -t -O "${#COMPREPLY[@]}" COMPREPLY < <(compgen "$part" -- "${current##*=}")
                ;;
            *)
                answer=${answer%%$'\t'*}
                COMPREPLY+=("${answer#"$front"}")
                ;;
        esac
    done
    if [[ ${#COMPREPLY[@]} -eq 1 && ${COMPREPLY[0]} == *= ]]; then compopt -o nospace 2>/dev/null; fi
    return 0
}
complete -F _ttconfig ttconfig
)sh";

constexpr std::string_view kZsh = R"sh(#compdef ttconfig
# zsh completion of ttconfig; written by: ttconfig completion zsh
_ttconfig() {
    local -a answers names open
    local answer name
    answers=("${(@f)$("${words[1]/#\~/$HOME}" completion words -- "${(@)words[2,CURRENT-1]}" "$PREFIX" 2>/dev/null)}")
    for answer in "${answers[@]}"; do
        case $answer in
            '') ;;
            :files | :directories)
                [[ $PREFIX == --*=* ]] && compset -P '*='
                if [[ $answer == :directories ]]; then _files -/; else _files; fi
                return
                ;;
            *)
                name=${answer%%$'\t'*}
                name=${name//:/\\:}
                [[ $answer == *$'\t'* ]] && name+=":${answer#*$'\t'}"
                if [[ ${answer%%$'\t'*} == *= ]]; then open+=("$name"); else names+=("$name"); fi
                ;;
        esac
    done
    (($#open)) && _describe 'ttconfig' open -S ''
    (($#names)) && _describe 'ttconfig' names
}
if [[ ${funcstack[1]} == _ttconfig ]]; then
    _ttconfig "$@"
else
    compdef _ttconfig ttconfig
fi
)sh";

constexpr std::string_view kFish = R"sh(# fish completion of ttconfig; written by: ttconfig completion fish
function __ttconfig_complete
    set -l words (commandline -opc)
    set -l current (commandline -ct)
    for answer in ($words[1] completion words -- $words[2..-1] "$current" 2>/dev/null)
        switch $answer
            case ':files'
                __fish_complete_path (string replace -r -- '^--[^=]*=' '' "$current")
            case ':directories'
                __fish_complete_directories (string replace -r -- '^--[^=]*=' '' "$current")
            case '*'
                printf '%s\n' $answer
        end
    end
end
complete -c ttconfig -f -a '(__ttconfig_complete)'
)sh";

}  // namespace

int runCompletionScript(const CommandLine& commandLine, Output& output) {
    static const std::map<std::string_view, std::string_view> kScripts = {
        {"completion bash", kBash}, {"completion zsh", kZsh}, {"completion fish", kFish}};
    output.write(kScripts.at(commandLine.subcommand));
    return kExitDone;
}

}  // namespace ttconfig

# bash completion for haloric

_haloric() {
    local options="--help --version --diagnostics --settings --quit --toggle --print-settings"
    local word=${COMP_WORDS[COMP_CWORD]}
    COMPREPLY=()
    if [ "${COMP_WORDS[COMP_CWORD - 1]}" = --toggle ]; then
        mapfile -t COMPREPLY < <(compgen -W "border glow tint dim pulse" -- "$word")
    elif [ "$COMP_CWORD" -eq 1 ]; then
        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$word")
    fi
}
complete -F _haloric haloric

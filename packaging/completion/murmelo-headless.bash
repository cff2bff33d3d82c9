# SPDX-License-Identifier: MIT
# Completion of murmelo-headless for bash.

_murmelo_headless() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    local options="--home --config --state --clock-start --silent --strip --list --help --version"

    # bash treats the "=" of --home=DIR as a separate word.
    if [[ $current == = ]]; then
        current=
    elif [[ $previous == = ]]; then
        previous=${COMP_WORDS[COMP_CWORD - 2]}
    fi
    case $previous in
        --clock-start) return ;;
        --home | --config | --state)
            compopt -o filenames
            mapfile -t COMPREPLY < <(compgen -d -- "$current")
            return
            ;;
    esac
    if [[ $current == -?* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$current")
        return
    fi
    compopt -o filenames
    mapfile -t COMPREPLY < <(compgen -f -- "$current")
}

complete -F _murmelo_headless murmelo-headless

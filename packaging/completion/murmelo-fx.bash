# SPDX-License-Identifier: MIT
# Completion of murmelo-fx for bash.

_murmelo_fx() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} word index
    local options="--list --measure --clean --no-clean --seed --out-dir --format --long --help --version"

    # bash treats the "=" of --format=KIND as a separate word.
    if [[ $current == = ]]; then
        current=
    elif [[ $previous == = ]]; then
        previous=${COMP_WORDS[COMP_CWORD - 2]}
    fi
    case $previous in
        --seed) return ;;
        --format)
            mapfile -t COMPREPLY < <(compgen -W "wav flac ogg opus mp3" -- "$current")
            return
            ;;
        --out-dir)
            compopt -o filenames
            mapfile -t COMPREPLY < <(compgen -d -- "$current")
            return
            ;;
    esac
    if [[ $current == -?* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$current")
        return
    fi
    # The first word that is neither an option nor an option's value is the effect; files follow.
    for ((index = 1; index < COMP_CWORD; index++)); do
        word=${COMP_WORDS[index]}
        case $word in
            --measure) break ;;
            --seed | --out-dir | --format)
                ((index++))
                if [[ ${COMP_WORDS[index]} == = ]]; then
                    ((index++))
                fi
                ;;
            -?*) ;;
            *) break ;;
        esac
    done
    if ((index >= COMP_CWORD)); then
        mapfile -t COMPREPLY < <(compgen -W "$("${COMP_WORDS[0]}" --list 2>/dev/null | cut -d ' ' -f 1)" -- "$current")
        return
    fi
    compopt -o filenames
    mapfile -t COMPREPLY < <(compgen -f -- "$current")
}

complete -F _murmelo_fx murmelo-fx

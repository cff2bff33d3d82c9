# SPDX-License-Identifier: MIT
# Completion of murmelo for bash.

# The names below one heading in the output of --list-devices.
_murmelo_devices() {
    "${COMP_WORDS[0]}" --list-devices 2>/dev/null | sed -n "/^$1:/,/^[^ ]/ { /^  (none)\$/d; s/^  //p; }"
}

_murmelo() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} heading
    local options="--home --config --microphone --speaker --list-devices --last --silent --fullscreen --speak --from-desktop --help --version"

    # bash treats the "=" of --home=DIR as a separate word.
    if [[ $current == = ]]; then
        current=
    elif [[ $previous == = ]]; then
        previous=${COMP_WORDS[COMP_CWORD - 2]}
    fi
    case $previous in
        --home | --config)
            compopt -o filenames
            mapfile -t COMPREPLY < <(compgen -d -- "$current")
            return
            ;;
        --microphone | --speaker)
            heading=Speakers
            if [[ $previous == --microphone ]]; then
                heading=Microphones
                mapfile -t COMPREPLY < <(compgen -f -X '!*.wav' -- "$current")
                mapfile -t -O ${#COMPREPLY[@]} COMPREPLY < <(compgen -d -- "$current")
            fi
            compopt -o filenames # puts the marks of quotation where a name has spaces
            local IFS=$'\n'
            mapfile -t -O ${#COMPREPLY[@]} COMPREPLY < <(
                _murmelo_devices $heading | while read -r name; do
                    [[ $name == "$current"* ]] && printf '%s\n' "$name"
                done
            )
            return
            ;;
    esac
    if [[ $current == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$current")
        return
    fi
    compopt -o filenames
    mapfile -t COMPREPLY < <(compgen -f -- "$current")
}

complete -F _murmelo murmelo

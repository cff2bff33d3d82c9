# SPDX-License-Identifier: MIT
# Completion of murmelo for fish.

# The names below one heading in the output of --list-devices.
function __murmelo_devices
    set -l heading
    for line in (command murmelo --list-devices 2>/dev/null)
        switch $line
            case '  (none)'
            case '  *'
                test "$heading" = "$argv[1]:"; and string sub -s 3 -- $line
            case '*'
                set heading $line
        end
    end
end

complete -c murmelo -s h -l help -d 'Show a summary and exit'
complete -c murmelo -l version -d 'Show the version and exit'
complete -c murmelo -l list-devices -d 'Print the names of microphones and speakers'
complete -c murmelo -l home -x -a '(__fish_complete_directories)' -d 'Folder of your sounds'
complete -c murmelo -l config -x -a '(__fish_complete_directories)' -d 'Folder of the settings'
complete -c murmelo -l microphone -x -a '(__murmelo_devices Microphones; __fish_complete_suffix .wav)' \
    -d 'A device, or a sound file instead of one'
complete -c murmelo -l speaker -x -a '(__murmelo_devices Speakers)' -d 'A device'
complete -c murmelo -l last -d 'Begin with the take recorded last'
complete -c murmelo -l silent -d 'Ask before anything is played'
complete -c murmelo -l speak -d 'Read aloud what the window shows'
complete -c murmelo -l fullscreen -d 'Fill the screen; F11 leaves it'
complete -c murmelo -l from-desktop -d 'Also show start errors in a dialog box, for starts without a terminal'

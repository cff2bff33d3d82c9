# SPDX-License-Identifier: MIT
# Completion of murmelo-headless for fish.

complete -c murmelo-headless -s h -l help -d 'Show a summary and exit'
complete -c murmelo-headless -l version -d 'Show the version and exit'
complete -c murmelo-headless -l list -d 'Name what a script can hold and exit'
complete -c murmelo-headless -l home -x -a '(__fish_complete_directories)' -d 'Folder of the sounds'
complete -c murmelo-headless -l config -x -a '(__fish_complete_directories)' -d 'Folder of the settings'
complete -c murmelo-headless -l state -x -a '(__fish_complete_directories)' -d 'Folder where the last take is kept'
complete -c murmelo-headless -l clock-start -x -d 'Where the clock begins, in milliseconds'
complete -c murmelo-headless -l silent -d 'The phone is in silent mode'
complete -c murmelo-headless -l strip -d 'Show the row above the picture'

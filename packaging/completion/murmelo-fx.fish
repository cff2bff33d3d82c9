# SPDX-License-Identifier: MIT
# Completion of murmelo-fx for fish.

# The first word that is neither an option nor an option's value is the effect; with --measure there is none.
function __murmelo_fx_wants_effect
    set -l words (commandline -opc)
    set -l skip 1
    for word in $words
        if test $skip = 1
            set skip 0
            continue
        end
        switch $word
            case --measure
                return 1
            case --seed --out-dir --format
                set skip 1
            case '-*'
            case '*'
                return 1
        end
    end
end

complete -c murmelo-fx -n __murmelo_fx_wants_effect -f \
    -a "(command murmelo-fx --list 2>/dev/null | string replace -r ' +' \t)"
complete -c murmelo-fx -n 'not __murmelo_fx_wants_effect' -F
complete -c murmelo-fx -s h -l help -d 'Show a summary and exit'
complete -c murmelo-fx -l version -d 'Show the version and exit'
complete -c murmelo-fx -l list -d 'Name the effects'
complete -c murmelo-fx -l measure -d 'Print length, level and pitch of each input'
complete -c murmelo-fx -l clean -d 'Clean the recording up first (default)'
complete -c murmelo-fx -l no-clean -d 'Do not clean the recording up'
complete -c murmelo-fx -l seed -x -d 'Repeatable noise for robot and flip'
complete -c murmelo-fx -l out-dir -x -a '(__fish_complete_directories)' -d 'Folder for the outputs of several inputs'
complete -c murmelo-fx -l format -x -a 'wav flac ogg opus mp3' -d 'Kind of the output'
complete -c murmelo-fx -l long -d 'Allow sounds longer than 60 s'

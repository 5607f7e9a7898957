# Completion of panorel(1) for fish.

# What each scene has under a key, "id" or "name"; nothing where that would take long.
function __panorel_scenes
    timeout 5 panorel scenes --json 2>/dev/null |
        sed -n -e 's/^ *"'$argv[1]'": "\(.*\)",\{0,1\}$/\1/p' | sed -e 's/\\\\\(["\\\\]\)/\1/g'
end

# Whether the verb is one of these and nothing but options follows it.
function __panorel_wants_argument
    set -l words (string match --invert -- '-*' (commandline -opc))
    test (count $words) -eq 2; and contains -- $words[2] $argv
end

complete -c panorel -f

set -l no_verb 'test (count (string match --invert -- "-*" (commandline -opc))) -lt 2'
complete -c panorel -n $no_verb -s h -l help -d 'print a summary'
complete -c panorel -n $no_verb -s v -l version -d 'print the version'
complete -c panorel -n $no_verb -a restore -d 'put the windows of this desk back'
complete -c panorel -n $no_verb -a undo -d 'undo the last restore; again to redo it'
complete -c panorel -n $no_verb -a save -d 'save where the windows are now'
complete -c panorel -n $no_verb -a stash -d 'hide all windows, or bring them back'
complete -c panorel -n $no_verb -a scenes -d 'list the scenes'
complete -c panorel -n $no_verb -a apply -d 'switch to a scene'
complete -c panorel -n $no_verb -a desks -d 'list the desks that were learned'
complete -c panorel -n $no_verb -a status -d 'say what the running program is doing'
complete -c panorel -n $no_verb -a rules -d 'list the rules for applications'
complete -c panorel -n $no_verb -a triggers -d 'list what applies scenes on its own'
complete -c panorel -n $no_verb -a export -d 'write everything that is kept to a file'
complete -c panorel -n $no_verb -a import \
    -d 'replace everything by such a file, after a backup'
complete -c panorel -n $no_verb -a log -d 'show the log; with --follow also what comes'

set -l verbs restore undo save stash scenes apply desks status rules triggers export import log
complete -c panorel -n "__fish_seen_subcommand_from $verbs" -l json \
    -d 'print the result for programs to read'
complete -c panorel -n '__fish_seen_subcommand_from restore apply import' -l dry-run \
    -d 'say what would be done, and do nothing'
complete -c panorel -n '__fish_seen_subcommand_from log' -l follow -d 'go on until interrupted'
complete -c panorel -n '__panorel_wants_argument apply' -a '(__panorel_scenes name)' -d scene
complete -c panorel -n '__panorel_wants_argument apply' -a '(__panorel_scenes id)' \
    -d 'id of a scene'
complete -c panorel -n '__panorel_wants_argument export import' -F

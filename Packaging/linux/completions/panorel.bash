# Completion of panorel(1) for bash.

# _panorel_scenes KEY: what each scene has under it, "id" or "name", a line each; nothing where
# that would take long.
_panorel_scenes()
{
    timeout 5 panorel scenes --json 2>/dev/null |
        sed -n -e "s/^ *\"$1\": \"\(.*\)\",\{0,1\}\$/\1/p" | sed -e 's/\\\(["\\]\)/\1/g'
}

# The scenes that begin with what was typed, by their ids where none is called so.
_panorel_complete_scene()
{
    local scene word key
    for key in name id; do
        while IFS= read -r scene; do
            case $1 in
            [\"\']*) [[ $scene != "${1:1}"* ]] || COMPREPLY+=("$scene") ;; # bash ends the quotes
            *)
                word=$(printf %q "$scene")
                [[ $word != "$1"* ]] || COMPREPLY+=("$word")
                ;;
            esac
        done < <(_panorel_scenes "$key")
        [[ ${#COMPREPLY[@]} -eq 0 ]] || return
    done
}

_panorel()
{
    local current=${COMP_WORDS[COMP_CWORD]} verb='' before=0 words='' word
    COMPREPLY=()
    for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        [[ $word != -* ]] || continue
        if [[ -n $verb ]]; then before=$((before + 1)); else verb=$word; fi
    done
    case $verb in
    '')
        words='restore undo save stash scenes apply desks status rules triggers export import log'
        [[ $current != -* ]] || words='--help --version -h -v'
        ;;
    restore | apply | import) words='--json --dry-run' ;;
    log) words='--json --follow' ;;
    undo | save | stash | scenes | desks | status | rules | triggers | export) words='--json' ;;
    esac
    if [[ -z $verb || $current == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
    elif [[ $before -eq 0 && $verb == apply ]]; then
        _panorel_complete_scene "$current"
    elif [[ $before -eq 0 && $verb == @(export|import) ]]; then
        mapfile -t COMPREPLY < <(compgen -f -- "$current")
        compopt -o filenames 2>/dev/null
    fi
}

complete -F _panorel panorel

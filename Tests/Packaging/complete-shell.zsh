# In an interactive zsh: Tab prints what would be offered, between \1 and \2, and empties the line.
unsetopt zle_bracketed_paste prompt_cr
PROMPT= RPROMPT=
fpath=($1 $fpath)
autoload -U compinit
compinit -u -D
compadd() {
    local -a offered
    if ! (($@[(I)-[OAD]])); then # or else it only asks what would match
        builtin compadd -A offered "$@"
        (($#offered)) && print -rl -- $offered
    fi
    builtin compadd "$@"
}
say_begin() { print -n $'\1' }
say_end() { print -n $'\2' }
complete_silently() {
    compprefuncs=(say_begin) comppostfuncs=(say_end)
    _main_complete
    compstate[insert]= compstate[list]=
}
offer() {
    zle complete_silently
    BUFFER=
}
zle -C complete_silently complete-word complete_silently
zle -N offer
bindkey '^I' offer

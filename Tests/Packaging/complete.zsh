# complete.zsh FOLDER LINE...: what zsh offers behind each line with the completions of a folder, one
# a line, an empty line behind each answer.
zmodload zsh/zpty
zpty shell zsh -f -i
zpty -w shell "source ${(q)0:A:h}/complete-shell.zsh ${(q)1}"
shift
for line in $@; do
    zpty -w -n shell "$line"$'\t'
    zpty -r shell answer $'*\1*\2' # waits for the answer, between these two
    answer=${${answer##*$'\1'}%$'\2'}
    print -r -- "${answer//$'\r'/}"
done

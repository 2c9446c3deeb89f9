# Prints what zsh completes on each line of the standard input: the words, a line each, and
# a line with a full stop. The arguments are the folder with the completions, and a file to
# keep what is known of all completions, since a shell on a terminal is slow to find it.
fpath=($1 $fpath)
autoload -Uz compinit
compinit -u -d $2
zmodload zsh/zpty
zpty shell zsh -f -i
folders=${(j: :)${(@q)fpath}}
zpty -w shell "fpath=($folders); source ${(q)0:A:h}/zsh_capture.zsh ${(q)2}; print RE''ADY"
local text
zpty -r shell text '*READY*'
while IFS= read -r line; do
  zpty -w -n shell $line$'\t'
  zpty -r shell text $'*\1*\2*'
  text=${${text#*$'\1'}%%$'\2'*}
  print -r -- ${text//$'\r'/}.
done
zpty -d shell

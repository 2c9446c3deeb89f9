# Makes the key of completion print the words, between the characters 1 and 2, and empty
# the line.
autoload -Uz compinit
compinit -C -d $1
compadd() {
  # A call that only fills arrays.
  [[ ${@[1,(i)(-|--)]} == *-(O|A|D)\ * ]] && { builtin compadd "$@"; return }
  local -a hits prefix
  builtin compadd -A hits "$@"
  zparseopts -E p:=prefix
  (( $#hits )) && print -rl -- "${prefix[2]}"${^hits}
  builtin compadd "$@"
}
_capture() {
  print -n '\1'
  _main_complete
  print -n '\2'
  compstate[insert]= compstate[list]=
}
_capture_and_kill() {
  zle _capture
  zle kill-whole-line
}
zle -C _capture complete-word _capture
zle -N _capture_and_kill
bindkey '^I' _capture_and_kill
setopt no_beep
PS1=

# Prints what zsh offers to complete the last word of a line, a match per line, sorted.
# zsh -f offered_by_zsh.zsh FOLDER LINE: the folder contains the completion _quarlin-cli.
#
# Completion needs a terminal, so an interactive zsh runs on one of its own. There `compadd`, which adds every match, also
# prints the matches to a file.
emulate -L zsh
zmodload zsh/zpty
matches=$(mktemp) setup=$(mktemp)
cat >$setup <<SETUP
fpath=(${(q)1} \$fpath)
autoload -Uz compinit
compinit -D -u
compadd() {
    # With these options matches go into an array of the caller instead of being offered.
    if [[ \${@[1,(i)(-|--)]} != *-[OAD](| *) ]]; then
        local -a found
        builtin compadd -O found "\$@"
        print -rl -- \$found >>${(q)matches}
    fi
    builtin compadd "\$@"
}
finish() { exit }
zle -N finish
bindkey '^I' complete-word '^X' finish
setopt no_list_beep
SETUP
zpty shell "TERM=dumb zsh -f -i"
zpty -w shell "source ${(q)setup}"
zpty -w -n shell "$2"$'\t\x18'
while zpty -r shell ignored 2>/dev/null; do :; done
zpty -d shell
sort --unique $matches | sed '/^$/d'
rm -f $matches $setup

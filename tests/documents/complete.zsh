#!/usr/bin/env zsh
# Prints what zsh offers behind a begun command line, one a line: an interactive shell on a pseudo
# terminal completes it, and its compadd tells the matches.
# Usage: complete.zsh FOLDER-OF-_wbimport LINE
zmodload zsh/zpty
export ZDOTDIR=$(mktemp -d)
trap 'rm -rf $ZDOTDIR' EXIT
cat > $ZDOTDIR/.zshrc <<END
PROMPT= LISTMAX=100000 fpath=(${(q)1} \$fpath)
autoload -U compinit; compinit -u -D
bindkey '^I' complete-word
compadd() {
  # A call that only fills arrays (-O, -A, -D) offers nothing.
  if [[ \${@[1,(i)(-|--)]} != *-(O|A|D)\ * ]]; then
    local -a found
    builtin compadd -A found "\$@"
    print -rl -- "<match>"\$^found
  fi
  builtin compadd "\$@"
}
finish() { print '<end>' }
comppostfuncs=(finish)
precmd() { print '<ready>' }
END
zpty shell zsh -i
while zpty -r shell line && [[ $line != *'<ready>'* ]]; do :; done
zpty -w -n shell "$2"$'\t'
while zpty -r shell line && [[ $line != *'<end>'* ]]; do
  [[ $line == *'<match>'* ]] && print -r -- ${${line##*<match>}%%[$'\r\n']*}
done
zpty -d shell

# Prints what bash offers behind a begun command line, one a line.
# Usage: bash complete.bash FILE LINE
source "$1"
compopt() { :; }  # works within a completion only
# Bash parts words at an equals sign, too.
line=${2//=/ = }
read -ra COMP_WORDS <<< "$line"
[[ $line == *' ' ]] && COMP_WORDS+=('')
COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
_wbimport
[ ${#COMPREPLY[@]} = 0 ] || printf '%s\n' "${COMPREPLY[@]}"

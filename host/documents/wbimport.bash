# Completion of wbimport for bash.
_wbimport() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
  # --format=html arrives as three words.
  if [[ $current == = ]]; then
    current=
  elif [[ $previous == = ]]; then
    previous=${COMP_WORDS[COMP_CWORD - 2]}
  fi
  local command=wbimport word offer='' values='' before='' found=()
  for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
    case " @COMMANDS@ " in *" $word "*) command=$word; break ;; esac
  done

  case "$command $previous" in
@BASH_VALUES@
  esac
  if [[ -z $offer && $current == -* ]]; then
    offer=values
    case $command in
@BASH_OPTIONS@
    esac
  elif [[ -z $offer ]]; then
    case $command in
      wbimport) offer=values values='@COMMANDS@' ;;
@BASH_ARGUMENTS@
    esac
  fi

  case $offer in
    values) mapfile -t found < <(compgen -W "$values" -- "$current") ;;
    list)
      [[ $current == *,* ]] && before=${current%,*},
      mapfile -t found < <(compgen -P "$before" -W "$values" -- "${current##*,}")
      compopt -o nospace ;;
    files) mapfile -t found < <(compgen -f -- "$current"); compopt -o filenames ;;
    folders) mapfile -t found < <(compgen -d -- "$current"); compopt -o filenames ;;
    variables) mapfile -t found < <(compgen -v -- "$current") ;;
    data-sources)
      while IFS= read -r word; do
        [[ $word == "$current"* ]] && found+=("$(printf %q "$word")")
      done < <("${COMP_WORDS[0]}" drivers --format json 2> /dev/null |
        sed -n 's/^ *"name": "\(.*\)",*$/\1/p') ;;
  esac
  COMPREPLY=("${found[@]}")
}
complete -F _wbimport wbimport

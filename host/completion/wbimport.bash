# Completion of wbimport for bash. Options are asked of the program itself, so that they stay true.
_wbimport() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
  local commands="import list info drivers render" command="" word
  for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
    case " $commands " in *" $word "*) command=$word; break ;; esac
  done

  case $previous in
    --sample)
      COMPREPLY=($(compgen -W "sqlite informix informix-7 sqlserver sybase oracle oracle-7 db2 redbrick access generic" -- "$current"))
      return ;;
    --format)
      COMPREPLY=($(compgen -W "text json sql dot svg html mermaid markdown" -- "$current"))
      return ;;
    --progress)
      COMPREPLY=($(compgen -W "auto bar plain none" -- "$current"))
      return ;;
    --items)
      local before=${current%"${current##*,}"}
      COMPREPLY=($(compgen -P "$before" -W "tables views synonyms procedures data-types operators boolean-functions functions aggregates owner-names table-names view-names synonym-names column-names" -- "${current##*,}"))
      compopt -o nospace
      return ;;
    --password-env)
      COMPREPLY=($(compgen -v -- "$current"))
      return ;;
    --dsn)
      COMPREPLY=($(compgen -W "$(odbcinst -q -s 2>/dev/null | tr -d '[]')" -- "$current"))
      return ;;
    --sqlite | --request | --output | -o | --log | --errors | --trace | --config)
      COMPREPLY=($(compgen -f -- "$current"))
      compopt -o filenames
      return ;;
  esac

  if [ -z "$command" ]; then
    COMPREPLY=($(compgen -W "$commands --help --version --config" -- "$current"))
  elif [[ $current == -* ]]; then
    COMPREPLY=($(compgen -W "$("${COMP_WORDS[0]}" "$command" --help 2>/dev/null | grep -oE -- '--[a-z][a-z-]*' | sort -u)" -- "$current"))
  elif [ "$command" = list ]; then
    COMPREPLY=($(compgen -W "owners tables views synonyms columns types operators functions aggregates procedures" -- "$current"))
  elif [ "$command" = render ]; then
    COMPREPLY=($(compgen -f -- "$current"))
    compopt -o filenames
  fi
}
complete -F _wbimport wbimport

#compdef wbimport
# Completion of wbimport for zsh.

_wbimport_data_sources() {
  local -a names
  names=(${(f)"$($program drivers --format json 2> /dev/null | sed -n 's/^ *"name": "\(.*\)",*$/\1/p')"})
  compadd "$@" -a names
}

_wbimport() {
  local curcontext=$curcontext state line program=$words[1]
  local -a commands arguments
  typeset -A opt_args
  commands=(
@ZSH_COMMANDS@
  )
  arguments=(
@ZSH_OPTIONS@
  )
  _arguments -C $arguments '1:command:->command' '*::argument:->argument' && return
  case $state in
    command) _describe command commands ;;
    argument)
      case $words[1] in
@ZSH_ARGUMENTS@
        *) return 1 ;;
      esac
      _arguments $arguments ;;
  esac
}

_wbimport "$@"

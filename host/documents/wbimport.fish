# Completion of wbimport for fish.
function __wbimport_data_sources
    set -l words (commandline -opc)
    $words[1] drivers --format json 2>/dev/null | sed -n 's/^ *"name": "\(.*\)",*$/\1/p'
end
complete -c wbimport -f
@FISH_COMPLETIONS@

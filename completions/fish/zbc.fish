# Completion of zbc for fish, made by completions.generate.
function __zbc_files --description 'Folders, and files with these extensions'
    set -l pattern '(?:/|\.(?:'(string join '|' $argv)'))$'
    __fish_complete_path (commandline -ct) | string replace -r '\t.*' '' |
        string match -rei -- $pattern
end
function __zbc_directives
    printf '%s\n' \
        'XMLGEN(WS)' \
        'XMLGEN(FILE)' \
        'RECORD(' \
        'SECTION(' \
        'CONDITIONS(OFF)' \
        'CONDITIONS(ON)' \
        'VALUES(OFF)' \
        'VALUES(ON)' \
        'REDEFINES(' \
        'RENAME-FILLER(ON)' \
        'RENAME-FILLER(OFF)' \
        'LIST(' \
        'DEPFILE(' \
        'DEPTARGET(' \
        'DIALECT(GNUCOBOL)' \
        'DIALECT(IBM)' \
        'SOURCEFORMAT(FIXED)' \
        'SOURCEFORMAT(VARIABLE)' \
        'SOURCEFORMAT(FREE)' \
        'COPYPATH(' \
        'COPYEXT(' \
        'COPYMISSING(WARN)' \
        'COPYMISSING(ERROR)' \
        'TABS(' \
        'DBGI' \
        'NODBGI' \
        'OBJ' \
        'NOOBJ'
end
complete -c zbc -f
complete -c zbc -s C -x -a '(__zbc_directives)' -d 'apply one or more directives'
complete -c zbc -l diagnostics -x -a 'text json' -d 'with json each diagnostic is a JSON object on a line of its own'
complete -c zbc -l help -d 'show a summary of the options'
complete -c zbc -l version -d 'show the version'
# Further words after -C are directives as well, until the source.
complete -c zbc -n 'contains -- -C (commandline -opc)' -a '(__zbc_directives)'
complete -c zbc -n 'string match -q "@*" -- (commandline -ct)' \
    -a '@(__fish_complete_path (string sub -s 2 -- (commandline -ct)))'
complete -c zbc -a '(__zbc_files cpy cbl cob)'

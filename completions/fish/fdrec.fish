# Completion of fdrec for fish, made by completions.generate.
function __fdrec_files --description 'Folders, and files with these extensions'
    set -l pattern '(?:/|\.(?:'(string join '|' $argv)'))$'
    __fish_complete_path (commandline -ct) | string replace -r '\t.*' '' |
        string match -rei -- $pattern
end
# The command and the arguments before the cursor, without options and their values.
function __fdrec_arguments
    set -l words (commandline -opc)
    set -l is_value no
    for word in $words[2..-1]
        if test $is_value = yes
            set is_value no
        else if contains -- $word --record --section --source-format --copy-path --copy-ext --dialect --encoding --namespace -o --output --depfile --schema --copy-name --unbounded --text --repair --import-path --catalog --root --skip --depth --prefix --occurs --picture --target --directives --old --rename --format --length --rdw --header --trailer --block --limit --part --index --threads --binary-size --binary-endian --native-endian --float --sign --national --odo --counter --when --binary-range --trim --controls --blank-numbers --edited --round --unmappable --numbers --max-errors --rejects --residue
            set is_value yes
        else if not string match -q -- '-?*' $word
            echo $word
        end
    end
end
# Whether so many arguments stand after a command; without one, whether there is no command.
function __fdrec_at
    set -l arguments (__fdrec_arguments)
    test (count $arguments) -eq $argv[1]; and test "$arguments[1]" = "$argv[2]"
end
function __fdrec_command
    set -l arguments (__fdrec_arguments)
    contains -- "$arguments[1]" $argv
end

complete -c fdrec -f
complete -c fdrec -n '__fdrec_at 0' -a show -d 'show the items of records with offset, length, picture and XML path'
complete -c fdrec -n '__fdrec_at 0' -a plain -d 'write a copybook that any COBOL compiler accepts'
complete -c fdrec -n '__fdrec_at 0' -a check -d 'check that every valid document of a schema fits a record'
complete -c fdrec -n '__fdrec_at 0' -a copybook -d 'write a record for an element of a schema'
complete -c fdrec -n '__fdrec_at 0' -a deps -d 'write a rule for make with the files that a schema or source consists of'
complete -c fdrec -n '__fdrec_at 0' -a bundle -d 'copy a schema and all files that it reaches into a folder'
complete -c fdrec -n '__fdrec_at 0' -a map-check -d 'check a mapping file of fdmorph against a copybook'
complete -c fdrec -n '__fdrec_at 0' -a map-merge -d 'carry the edits of a mapping file over to a changed copybook'
complete -c fdrec -n '__fdrec_at 0' -a schema -d 'write an XML Schema or JSON Schema of the documents of a record'
complete -c fdrec -n '__fdrec_at 0' -a index -d 'write where records begin in a file, for --part'
complete -c fdrec -n '__fdrec_at 0' -a to-xml -d 'convert records to XML'
complete -c fdrec -n '__fdrec_at 0' -a to-json -d 'convert records to JSON lines'
complete -c fdrec -n '__fdrec_at 0' -a from-xml -d 'convert XML to records'
complete -c fdrec -n '__fdrec_at 0' -a from-json -d 'convert JSON lines to records'
complete -c fdrec -n '__fdrec_at 0' -a verify -d 'check that records as documents keep all bytes'
complete -c fdrec -s h -l help -d 'Print this help message and exit'
complete -c fdrec -l version -d 'Display program version information and exit'
complete -c fdrec -l record -x -d 'use this record of level 01 or 77 (repeatable); default: the first one, or all of its file'
complete -c fdrec -l section -x -a 'auto file linkage local-storage working-storage' -d 'where records are; default: auto, the first of file, working-storage, linkage and local-storage that has a record'
complete -c fdrec -l source-format -x -a 'fixed free variable' -d 'format of the source; default: fixed'
complete -c fdrec -l copy-path -x -a '(__fish_complete_directories (commandline -ct))' -d 'search copy members here as well (repeatable)'
complete -c fdrec -l copy-ext -x -d 'extensions of copy members, as EXT,EXT'
complete -c fdrec -l dialect -x -a 'gnucobol ibm' -d 'sizes and byte orders of this compiler; default: ibm'
complete -c fdrec -l encoding -x -d 'character set of the data; default: cp037 with ibm (cp1047 differs in brackets), utf-8 with gnucobol'
complete -c fdrec -l namespace -x -d 'namespace of a record without XML clauses'
complete -c fdrec -s o -l output -r -F -d 'write to FILE; default: the standard output'
complete -c fdrec -l depfile -r -F -d 'write to FILE a rule for make: the output depends on all files that were read'
complete -c fdrec -l werror -d 'exit with status 1 after warnings as well'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l format -x -a 'bdw fixed gnucobol-variable lines rdw' -d 'how records stand in the file; default: fixed'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l length -x -d 'bytes of a record in a fixed file, if longer'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l rdw -x -a 'exclusive little' -d 'form of descriptors: they do not count themselves, or are little-endian (repeatable)'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l header -x -d 'leave out N bytes at the beginning of the file'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l trailer -x -d 'leave out N bytes at the end of the file'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l block -x -d 'bytes of a block that is written; default: 32760'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l skip -x -d 'leave out the first N records'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l limit -x -d 'read N records at most'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l part -x -d 'read the K-th of N parts of the file'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l index -r -F -d 'the index of the file, for --part; not needed for a fixed file'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l threads -x -d 'convert with N threads; default: 1'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l progress -d 'show how far the run is; default: on a terminal'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l no-progress -d 'do not show it'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l binary-size -x -a 'gnucobol ibm' -d 'sizes of binary items; default: those of the dialect'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l binary-endian -x -a 'big little' -d 'byte order of COMP, COMP-4 and BINARY'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l native-endian -x -a 'big little' -d 'byte order of COMP-5 and count records'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l float -x -a 'ibm ieee-big ieee-little' -d 'form of COMP-1 and COMP-2'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l sign -x -a 'ebcdic gnucobol overpunch' -d 'signs in the digits of zoned numbers'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l national -x -a 'utf-16be utf-16le' -d 'encoding of national items'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l odo -x -a 'max shift' -d 'tables with DEPENDING ON take their largest size, or what their counter says; default: shift with rdw and bdw, else max'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l counter -x -d 'value of a counter that is not in the record (repeatable)'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l when -x -d 'use this redefinition or record if a test holds: \'NAME: ITEM = LITERAL\', \'NAME: CONDITION\', \'NAME:\' (repeatable)'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l strict-zones -d 'check all zones of zoned numbers'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l binary-range -x -a 'full picture' -d 'what COMP holds: the digits of the picture, or all that its bytes do; default: picture'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l pad-short -d 'fill short records with absent items'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l trim -x -a 'both none right' -d 'blanks that texts are without; default: right'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l controls -x -a 'drop refuse replace' -d 'what becomes of characters that XML forbids; default: refuse'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l blank-numbers -x -a 'leading omit refuse zero' -d 'what blanks in numbers are; default: refuse'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l edited -x -a 'number text' -d 'what numeric-edited items are; default: text'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l round -x -a 'half-up truncate' -d 'what becomes of digits that are not stored; default: an error'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l truncate -d 'cut texts that are too long'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l unmappable -x -d 'for characters that are not in the encoding; default: an error'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l counts -d 'records end with their count record'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l omit-empty -d 'leave out parts that are as if absent'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l pretty -d 'XML: indent elements'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l root -x -d 'XML: name of the element around all records; default: records'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l single -d 'XML: exactly one record, which is the document'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l lines -d 'XML: one record a line, nothing around them'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l numbers -x -a 'number string' -d 'JSON: what numbers are; default: number'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l ignore-unknown -d 'pass over elements and attributes without an item'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l any-namespace -d 'match elements by their local names alone'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l schema -x -a '(__fdrec_files xsd)' -d 'XML: validate each record against this XML Schema, and take namespaces and optional parts from it'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l import-path -x -a '(__fish_complete_directories (commandline -ct))' -d 'look for included and imported files of the schema here, too (repeatable)'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l catalog -x -a '(__fdrec_files xml)' -d 'look them up in this OASIS XML catalog (repeatable)'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l max-errors -x -d 'end after N records with errors; 0: never; default: 100'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l rejects -r -F -d 'write records with errors to FILE'
complete -c fdrec -n '__fdrec_command schema index to-xml to-json from-xml from-json verify' -l residue -r -F -d 'bytes of the records that documents do not have'
complete -c fdrec -n '__fdrec_command show' -l json -d 'write JSON'
complete -c fdrec -n '__fdrec_command show' -l html -d 'write a page for a browser'
complete -c fdrec -n '__fdrec_command show' -l schema -x -a '(__fdrec_files xsd)' -d 'show the types of a schema and what does not fit, too'
complete -c fdrec -n '__fdrec_at 1 show' -a '(__fdrec_files cpy cbl cob)'
complete -c fdrec -n '__fdrec_command plain' -l free -d 'write free format'
complete -c fdrec -n '__fdrec_command plain' -l copy-name -x -d 'put the record in a level 01 group NAME'
complete -c fdrec -n '__fdrec_at 1 plain' -a '(__fdrec_files cpy cbl cob)'
complete -c fdrec -n '__fdrec_command check' -l unbounded -x -d 'occurrences that stand for an unbounded number'
complete -c fdrec -n '__fdrec_command check' -l text -x -d 'characters that stand for an unbounded length'
complete -c fdrec -n '__fdrec_command check' -l repair -r -F -d 'write the copybook with what holds all that is bounded'
complete -c fdrec -n '__fdrec_command check' -l json -d 'write JSON'
complete -c fdrec -n '__fdrec_command check' -l import-path -x -a '(__fish_complete_directories (commandline -ct))' -d 'look for included and imported files here, too'
complete -c fdrec -n '__fdrec_command check' -l catalog -x -a '(__fdrec_files xml)' -d 'look them up in this OASIS XML catalog'
complete -c fdrec -n '__fdrec_at 1 check' -a '(__fdrec_files xsd)'
complete -c fdrec -n '__fdrec_at 2 check' -a '(__fdrec_files cpy cbl cob)'
complete -c fdrec -n '__fdrec_command copybook' -l root -x -d 'global element of the record, or {NAMESPACE}NAME'
complete -c fdrec -n '__fdrec_command copybook' -l skip -x -d 'leave these parts out'
complete -c fdrec -n '__fdrec_command copybook' -l depth -x -d 'leave out elements below N levels of elements'
complete -c fdrec -n '__fdrec_command copybook' -l prefix -x -d 'begin data names with P'
complete -c fdrec -n '__fdrec_command copybook' -l unbounded -x -d 'occurrences where the schema sets no bound'
complete -c fdrec -n '__fdrec_command copybook' -l text -x -d 'characters of texts where the schema sets no bound'
complete -c fdrec -n '__fdrec_command copybook' -l occurs -x -d 'occurrences of these parts'
complete -c fdrec -n '__fdrec_command copybook' -l picture -x -d 'picture of these parts'
complete -c fdrec -n '__fdrec_command copybook' -l import-path -x -a '(__fish_complete_directories (commandline -ct))' -d 'look for included and imported files here, too'
complete -c fdrec -n '__fdrec_command copybook' -l catalog -x -a '(__fdrec_files xml)' -d 'look them up in this OASIS XML catalog'
complete -c fdrec -n '__fdrec_command copybook' -l comments -d 'write the documentation of the schema as comments'
complete -c fdrec -n '__fdrec_command copybook' -l plain -d 'write the plain copybook and its counts'
complete -c fdrec -n '__fdrec_at 1 copybook' -a '(__fdrec_files xsd)'
complete -c fdrec -n '__fdrec_command deps' -l target -x -d 'name that depends on the files (repeatable); default: what fdmorph makes of FILE'
complete -c fdrec -n '__fdrec_command deps' -l import-path -x -a '(__fish_complete_directories (commandline -ct))' -d 'look for included and imported files here, too'
complete -c fdrec -n '__fdrec_command deps' -l catalog -x -a '(__fdrec_files xml)' -d 'look them up in this OASIS XML catalog'
complete -c fdrec -n '__fdrec_at 1 deps' -a '(__fdrec_files xsd cpy cbl cob)'
complete -c fdrec -n '__fdrec_command bundle' -l import-path -x -a '(__fish_complete_directories (commandline -ct))' -d 'look for included and imported files here, too'
complete -c fdrec -n '__fdrec_command bundle' -l catalog -x -a '(__fdrec_files xml)' -d 'look them up in this OASIS XML catalog'
complete -c fdrec -n '__fdrec_command bundle' -l allow-missing -d 'make the bundle without files that are not found'
complete -c fdrec -n '__fdrec_at 1 bundle' -a '(__fdrec_files xsd)'
complete -c fdrec -n '__fdrec_command map-check' -l json -d 'write JSON'
complete -c fdrec -n '__fdrec_command map-check' -l directives -r -F -d 'compiler directives, as fdmorph -D FILE has them'
complete -c fdrec -n '__fdrec_at 1 map-check' -a '(__fdrec_files cpy cbl cob)'
complete -c fdrec -n '__fdrec_at 2 map-check' -a '(__fdrec_files xml)'
complete -c fdrec -n '__fdrec_command map-merge' -l old -x -a '(__fdrec_files cpy cbl cob)' -d 'the copybook that MAPPING is for: what it implies is no edit'
complete -c fdrec -n '__fdrec_command map-merge' -l rename -x -d 'the item OLD is called NEW now, both with the names of their groups (repeatable)'
complete -c fdrec -n '__fdrec_command map-merge' -l no-count-in -d 'new entries have no count, as with fdmorph -nocountin'
complete -c fdrec -n '__fdrec_command map-merge' -l directives -r -F -d 'compiler directives, as fdmorph -D FILE has them'
complete -c fdrec -n '__fdrec_at 1 map-merge' -a '(__fdrec_files cpy cbl cob)'
complete -c fdrec -n '__fdrec_at 2 map-merge' -a '(__fdrec_files xml)'
complete -c fdrec -n '__fdrec_command schema' -l json -d 'write JSON Schema of the JSON lines'
complete -c fdrec -n '__fdrec_command schema' -l enumerate -d 'level 88 restricts the values'
complete -c fdrec -n '__fdrec_at 1 schema' -a '(__fdrec_files cpy cbl cob)'
complete -c fdrec -n '__fdrec_at 1 index' -a '(__fdrec_files cpy cbl cob)'
complete -c fdrec -n '__fdrec_at 2 index' -F
complete -c fdrec -n '__fdrec_at 1 to-xml' -a '(__fdrec_files cpy cbl cob)'
complete -c fdrec -n '__fdrec_at 2 to-xml' -F
complete -c fdrec -n '__fdrec_at 1 to-json' -a '(__fdrec_files cpy cbl cob)'
complete -c fdrec -n '__fdrec_at 2 to-json' -F
complete -c fdrec -n '__fdrec_at 1 from-xml' -a '(__fdrec_files cpy cbl cob)'
complete -c fdrec -n '__fdrec_at 2 from-xml' -a '(__fdrec_files xml)'
complete -c fdrec -n '__fdrec_at 1 from-json' -a '(__fdrec_files cpy cbl cob)'
complete -c fdrec -n '__fdrec_at 2 from-json' -F
complete -c fdrec -n '__fdrec_at 1 verify' -a '(__fdrec_files cpy cbl cob)'
complete -c fdrec -n '__fdrec_at 2 verify' -F

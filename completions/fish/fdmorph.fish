# Completion of fdmorph for fish, made by completions.generate.
function __fdmorph_files --description 'Folders, and files with these extensions'
    set -l pattern '(?:/|\.(?:'(string join '|' $argv)'))$'
    __fish_complete_path (commandline -ct) | string replace -r '\t.*' '' |
        string match -rei -- $pattern
end
complete -c fdmorph -f
complete -c fdmorph -s '?' -o help -d 'print a summary of the options, and end'
complete -c fdmorph -s c -x -a '(__fdmorph_files cpy)' -d 'write the COBOL copybook to this file'
complete -c fdmorph -s x -x -a '(__fdmorph_files xsd)' -d 'write the schema to this file'
complete -c fdmorph -s m -x -a '(__fdmorph_files xml)' -d 'use or create this mapping file'
complete -c fdmorph -s p -x -d 'begin data names with this prefix'
complete -c fdmorph -s d -r -F -d 'use the compiler directives in this file, for a run on a COBOL source'
complete -c fdmorph -s v -x -a '(__fdmorph_files xsd xml)' -d 'validate this schema or instance document'
complete -c fdmorph -s q -d 'do not print what goes to the standard output stream: the banner, progress and the errors of the command line'
complete -c fdmorph -o log -d 'write everything to the file fdmorph.log in the current folder, and nothing to the terminal except the first question'
complete -c fdmorph -o noprompt -d 'replace outputs without a question'
complete -c fdmorph -o nocountin -d 'write no count in clauses, whatever the mapping file says'
complete -c fdmorph -o unique -d 'make all data names of a record different, in a run on a schema'
complete -c fdmorph -a '(__fdmorph_files xsd cbl cpy)'

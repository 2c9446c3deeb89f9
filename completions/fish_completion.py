"""Completion for fish."""

from __future__ import annotations

from completions.program_options import Command, Option, Value, data_options

_HEAD = """\
# Completion of {name} for fish, made by completions.generate.
function __{name}_files --description 'Folders, and files with these extensions'
    set -l pattern '(?:/|\\.(?:'(string join '|' $argv)'))$'
    __fish_complete_path (commandline -ct) | string replace -r '\\t.*' '' |
        string match -rei -- $pattern
end
"""

_ARGUMENTS = """\
# The command and the arguments before the cursor, without options and their values.
function __fdrec_arguments
    set -l words (commandline -opc)
    set -l is_value no
    for word in $words[2..-1]
        if test $is_value = yes
            set is_value no
        else if contains -- $word {values}
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
"""


def _quoted(text: str) -> str:
    return "'" + text.replace("\\", "\\\\").replace("'", "\\'") + "'"


def _action(name: str, value: Value) -> str:
    """The flags that complete a value."""
    if value.words:
        return f"-x -a {_quoted(' '.join(value.words))}"
    if value.is_folder:
        return "-x -a '(__fish_complete_directories (commandline -ct))'"
    if value.extensions is None:
        return "-x"
    if not value.extensions:
        return "-r -F"
    return f"-x -a '(__{name}_files {' '.join(value.extensions)})'"


def _name(name: str) -> str:
    if name.startswith("--"):
        return f"-l {name[2:]}"
    return f"-s {name[1:]}" if len(name) == 2 else f"-o {name[1:]}"


def _option(name: str, option: Option, condition: str = "") -> str:
    names = " ".join(_name(each).replace("?", "'?'") for each in option.names)
    value = " " + _action(name, option.value) if option.value else ""
    return f"complete -c {name}{condition} {names}{value} -d {_quoted(option.text)}"


def _argument(name: str, argument: Value, condition: str = "") -> str:
    flags = _action(name, argument).replace("-x ", "").replace("-r ", "")
    return f"complete -c {name}{condition} {flags}"


def fdrec(program: Command, commands: list[Command]) -> str:
    name = "fdrec"
    every = [*program.options, *(each for command in commands for each in command.options)]
    values = " ".join(
        dict.fromkeys(each for option in every if option.value for each in option.names)
    )
    lines = [_HEAD.format(name=name) + _ARGUMENTS.format(values=values)]
    lines.append(f"complete -c {name} -f")
    for each in commands:
        lines.append(
            f"complete -c {name} -n '__fdrec_at 0' -a {each.name} -d {_quoted(each.summary)}"
        )
    lines += [_option(name, option) for option in program.options]
    data = data_options(commands)
    on_data = " ".join(each.name for each in commands if each.data)
    lines += [_option(name, option, f" -n '__fdrec_command {on_data}'") for option in data]
    for each in commands:
        condition = f" -n '__fdrec_command {each.name}'"
        lines += [_option(name, option, condition) for option in each.own]
        for position, argument in enumerate(each.arguments, 1):
            place = f" -n '__fdrec_at {position} {each.name}'"
            lines.append(_argument(name, argument, place))
    return "\n".join(lines) + "\n"


def fdmorph(program: Command) -> str:
    name = program.name
    lines = [_HEAD.format(name=name) + f"complete -c {name} -f"]
    lines += [_option(name, option) for option in program.options]
    lines.append(_argument(name, program.arguments[0]))
    return "\n".join(lines) + "\n"


def zbc(program: Command, directives: list[str]) -> str:
    name = program.name
    lines = [_HEAD.format(name=name) + f"function __{name}_directives"]
    lines += ["    printf '%s\\n' \\"]
    lines += [f"        {_quoted(each)} \\" for each in directives[:-1]]
    lines += [f"        {_quoted(directives[-1])}", "end", f"complete -c {name} -f"]
    for option in program.options:
        if option.names == ("-C",):
            words = f"-x -a '(__{name}_directives)'"
            lines.append(f"complete -c {name} -s C {words} -d {_quoted(option.text)}")
        else:
            lines.append(_option(name, option))
    lines += [
        "# Further words after -C are directives as well, until the source.",
        f"complete -c {name} -n 'contains -- -C (commandline -opc)' -a '(__{name}_directives)'",
        f"complete -c {name} -n 'string match -q \"@*\" -- (commandline -ct)' \\",
        "    -a '@(__fish_complete_path (string sub -s 2 -- (commandline -ct)))'",
        _argument(name, program.arguments[0]),
    ]
    return "\n".join(lines) + "\n"

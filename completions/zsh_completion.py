"""Completion for zsh."""

from __future__ import annotations

from completions.program_options import Command, Option, Value, data_options

_HEAD = """\
#compdef {name}
# Completion of {name} for zsh, made by completions.generate.
"""


def _quoted(text: str) -> str:
    return "'" + text.replace("'", "'\\''") + "'"


def _escaped(text: str, characters: str) -> str:
    for each in "\\" + characters:
        text = text.replace(each, "\\" + each)
    return text


def _action(value: Value) -> str:
    if value.words:
        return f"({' '.join(value.words)})"
    if value.is_folder:
        return "_files -/"
    if value.extensions is None:
        return " "
    if not value.extensions:
        return "_files"
    extensions = "|".join(value.extensions)
    if len(value.extensions) > 1:  # one in parentheses would be a qualifier
        extensions = f"({extensions})"
    return f'_files -g "*.(#i){extensions}"'


def _value(value: Value) -> str:
    return f":{_escaped(value.name, ':')}:{_action(value)}"


def _option(option: Option, joined: str = "=") -> list[str]:
    """The specifications of an option. `joined` is what may stand before the value of a
    name with two hyphens."""
    specs = []
    for name in option.names:
        sign = joined if option.value and name.startswith("--") else ""
        value = _value(option.value) if option.value else ""
        specs.append(_quoted(f"*{name}{sign}[{_escaped(option.text, '[]')}]{value}"))
    return specs


def _argument(position: int, argument: Value) -> str:
    return _quoted(f"{position}{_value(argument)}")


def fdrec(program: Command, commands: list[Command]) -> str:
    lines = [_HEAD.format(name="fdrec") + "_fdrec() {"]
    lines.append("  local curcontext=$curcontext state line ret=1")
    lines.append("  local -a common data commands")
    lines.append("  common=(")
    lines += [f"    {spec}" for option in program.options for spec in _option(option)]
    lines += ["  )", "  data=("]
    lines += [f"    {spec}" for option in data_options(commands) for spec in _option(option)]
    lines += ["  )", "  commands=("]
    lines += [f"    {_quoted(each.name + ':' + each.summary)}" for each in commands]
    lines.append("  )")
    lines.append("  _arguments -C $common '1: :->command' '*:: :->argument' && ret=0")
    lines += ["  case $state in", "    command) _describe command commands && ret=0 ;;"]
    lines += ["    argument)", "      curcontext=${curcontext%:*:*}:fdrec-$line[1]:"]
    lines.append("      case $line[1] in")
    for each in commands:
        lines.append(f"        {each.name})")
        lines.append(f"          _arguments $common {'$data ' if each.data else ''}\\")
        specs = [spec for option in each.own for spec in _option(option)]
        specs += [_argument(i, argument) for i, argument in enumerate(each.arguments, 1)]
        lines += [f"            {spec} \\" for spec in specs]
        lines.append("            && ret=0 ;;")
    lines += ["      esac ;;", "  esac", "  return ret", "}", '_fdrec "$@"']
    return "\n".join(lines) + "\n"


def fdmorph(program: Command) -> str:
    lines = [_HEAD.format(name="fdmorph") + "_arguments \\"]
    lines += [f"  {spec} \\" for option in program.options for spec in _option(option)]
    lines.append(f"  {_argument(1, program.arguments[0])}")
    return "\n".join(lines) + "\n"


def zbc(program: Command, directives: list[str]) -> str:
    lines = [_HEAD.format(name="zbc") + "_zbc_directives() {"]
    full = [each for each in directives if not each.endswith("(")]
    begun = [each for each in directives if each.endswith("(")]
    lines.append(f"  compadd -X directives -- {' '.join(map(_quoted, full))}")
    lines.append(f"  compadd -S '' -- {' '.join(map(_quoted, begun))}")
    lines += ["}", "_zbc_words() {"]
    lines.append("  if compset -P @; then _files; return; fi")
    lines.append("  [[ -n ${(M)words:#-C*} ]] && _zbc_directives")
    lines.append(f"  {_action(program.arguments[0])}")
    lines += ["}", "_arguments \\"]
    for option in program.options:
        if option.names == ("-C",):
            lines.append(f"  {_quoted(f'*-C[{option.text}]:DIRECTIVE:_zbc_directives')} \\")
        else:
            lines += [f"  {spec} \\" for spec in _option(option, "=-")]
    lines.append("  '*:SOURCE:_zbc_words'")
    return "\n".join(lines) + "\n"

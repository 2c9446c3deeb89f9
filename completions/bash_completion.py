"""Completion for bash."""

from __future__ import annotations

from completions.program_options import Command, Option, Value, data_options

_HELPERS = """\
_{name}_words() {{
  local each
  for each in "$@"; do
    [[ $each == "$current"* ]] && COMPREPLY+=("$each")
  done
}}
# Folders, and files that match a pattern.
_{name}_files() {{
  local pattern
  compopt -o filenames 2> /dev/null
  mapfile -t COMPREPLY < <(
    compgen -d -- "$current"
    for pattern in "$@"; do compgen -f -X "!$pattern" -- "$current"; done
  )
}}
"""

_HEAD = """\
# Completion of {name} for bash, made by completions.generate.
"""

# Finds what is completed. "=" and "@" are words of their own for bash.
_SCAN = """\
  local current=${COMP_WORDS[COMP_CWORD]} option=${COMP_WORDS[COMP_CWORD - 1]}
  if [[ $current == '=' ]]; then
    current=
  elif [[ $option == '=' ]]; then
    option=${COMP_WORDS[COMP_CWORD - 2]}
  fi
  current=${current#[\\"\\']}
  COMPREPLY=()
"""

_FDREC_SCAN = """\
  local word command= arguments=0 is_value=
  for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
    if [[ $word == '=' ]]; then
      is_value=yes
    elif [[ $is_value ]]; then
      is_value=
    elif [[ $word == -?* ]]; then
      case $word in
@values@) is_value=yes ;;
      esac
    elif [[ ! $command ]]; then
      command=$word
    else
      ((++arguments))
    fi
  done
"""


def _quoted(words: list[str]) -> str:
    return " ".join(f"'{word}'" for word in words)


def _pattern(extension: str) -> str:
    """In upper and lower case."""
    return "*." + "".join(f"[{c}{c.upper()}]" if c.isalpha() else c for c in extension)


def _action(name: str, value: Value) -> str:
    """What completes a value; nothing if there are no proposals."""
    if value.words:
        return f"_{name}_words {_quoted(list(value.words))}"
    if value.is_folder:
        return f"_{name}_files"
    if value.extensions is None:
        return ":"
    patterns = [_pattern(each) for each in value.extensions] or ["*"]
    return f"_{name}_files {_quoted(patterns)}"


def _value_cases(name: str, options: list[Option]) -> list[str]:
    """Lines of a case that completes the value after an option."""
    by_action: dict[str, list[str]] = {}
    for option in options:
        if option.value is None:
            continue
        action = _action(name, option.value)
        names = by_action.setdefault(action, [])
        names += [each for each in option.names if each not in names]
    return [f"    {' | '.join(names)}) {action}; return ;;" for action, names in by_action.items()]


def _names(options: list[Option]) -> list[str]:
    names: list[str] = []
    for option in options:
        names += [name for name in option.names if name not in names]
    return names


def fdrec(program: Command, commands: list[Command]) -> str:
    name = "fdrec"
    data = data_options(commands)
    every = [*program.options, *data, *(option for each in commands for option in each.own)]
    with_values = _names([option for option in every if option.value])
    values = " | \\\n".join(
        "        " + " | ".join(with_values[i : i + 5]) for i in range(0, len(with_values), 5)
    )
    lines = [_HEAD.format(name=name) + _HELPERS.format(name=name) + f"_{name}() {{"]
    lines.append(_SCAN + _FDREC_SCAN.replace("@values@", values).rstrip())
    lines.append("  case $option in")
    lines += _value_cases(name, every)
    lines.append("  esac")
    lines.append("  if [[ $current == -* ]]; then")
    lines.append(f"    _{name}_words {_quoted(_names(program.options))}")
    lines.append("    case $command in")
    for each in commands:
        if each.own:
            lines.append(f"      {each.name}) _{name}_words {_quoted(_names(each.own))} ;;")
    lines += ["    esac", "    case $command in"]
    on_data = " | ".join(each.name for each in commands if each.data)
    lines.append(f"      {on_data}) _{name}_words {_quoted(_names(data))} ;;")
    lines += ["    esac", "    return", "  fi", '  case "$command $arguments" in']
    lines.append(f"    ' 0') _{name}_words {_quoted([each.name for each in commands])} ;;")
    for each in commands:
        for position, argument in enumerate(each.arguments):
            lines.append(f"    '{each.name} {position}') {_action(name, argument)} ;;")
    lines += ["  esac", "}", f"complete -F _{name} {name}"]
    return "\n".join(lines) + "\n"


def fdmorph(program: Command) -> str:
    name = program.name
    lines = [_HEAD.format(name=name) + _HELPERS.format(name=name) + f"_{name}() {{"]
    lines.append(_SCAN.rstrip())
    lines.append("  case ${option,,} in")
    lines += _value_cases(name, program.options)
    lines.append("  esac")
    lines.append("  if [[ $current == -* ]]; then")
    lines.append(f"    _{name}_words {_quoted(_names(program.options))}")
    lines += ["  else", f"    {_action(name, program.arguments[0])}", "  fi", "}"]
    lines.append(f"complete -F _{name} {name}")
    return "\n".join(lines) + "\n"


def zbc(program: Command, directives: list[str]) -> str:
    name = program.name
    source = _action(name, program.arguments[0])
    lines = [_HEAD.format(name=name) + _HELPERS.format(name=name) + f"_{name}() {{"]
    lines.append(_SCAN.rstrip())
    lines.append("  case $option in")
    for option in program.options:
        if option.names == ("-C",):
            lines.append(f"    -C) current=${{current//\\\\/}}; _{name}_directives; return ;;")
        elif option.value:
            action = _action(name, option.value)
            lines.append(f"    {option.names[0]}) {action}; return ;;")
    lines.append(f"    @) _{name}_directive_files; return ;;")
    lines += ["  esac", "  current=${current//\\\\/}", "  case $current in"]
    names = [
        each + ("=" if option.value and each.startswith("--") else "")
        for option in program.options
        for each in option.names
    ]
    lines.append(
        f"    -*) _{name}_words {_quoted(names)}\n"
        "      [[ ${COMPREPLY[*]} == *= ]] && compopt -o nospace 2> /dev/null ;;"
    )
    lines.append(f"    @) current=; _{name}_directive_files ;;")
    lines += [f"    [A-Z]*) {source}", f"      _{name}_directives ;;", f"    *) {source} ;;"]
    lines += ["  esac", "}"]
    lines.append(f"_{name}_directive_files() {{")
    lines.append(f"  _{name}_files '*'")
    lines.append('  COMPREPLY=("${COMPREPLY[@]/#/@}")  # bash replaces it, too')
    lines += ["}", f"_{name}_directives() {{"]
    lines.append(f"  _{name}_words {_quoted(directives)}")
    lines += [
        "  compopt -o filenames 2> /dev/null  # has parentheses quoted",
        "  [[ ${COMPREPLY[*]} == *'(' ]] && compopt -o nospace 2> /dev/null",
        "}",
        f"complete -F _{name} {name}",
    ]
    return "\n".join(lines) + "\n"

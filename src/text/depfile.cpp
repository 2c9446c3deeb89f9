#include "text/depfile.h"

#include <string_view>

namespace fdmorph {
namespace {

bool canBeWritten(std::string_view name) {
  return name.find('\n') == std::string_view::npos;
}

// A blank, a number sign or a colon takes a backslash, and those right before it are
// doubled, as GCC does it.
std::string escaped(std::string_view name) {
  std::string text;
  std::size_t backslashes = 0;
  for (char c : name) {
    bool const isSpecial = c == ' ' || c == '\t' || c == '#' || c == ':';
    if (isSpecial) text.append(backslashes + 1, '\\');
    if (c == '$') text += '$';
    text += c;
    backslashes = c == '\\' ? backslashes + 1 : 0;
  }
  return text;
}

}  // namespace

std::string writeDepfile(std::span<std::string const> targets, std::span<std::string const> files) {
  std::string rule;
  for (std::string const& each : targets) {
    if (!canBeWritten(each)) continue;
    if (!rule.empty()) rule += ' ';
    rule += escaped(each);
  }
  if (rule.empty()) return {};
  rule += ':';
  std::string phony;
  for (std::string const& each : files) {
    if (!canBeWritten(each)) continue;
    std::string const name = escaped(each);
    rule.append(" \\\n  ").append(name);
    // As a target, a name with a percent sign would be a pattern.
    if (each.find('%') == std::string::npos) phony.append("\n").append(name).append(":\n");
  }
  return rule + "\n" + phony;
}

}  // namespace fdmorph

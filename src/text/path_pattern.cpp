#include "text/path_pattern.h"

#include <cstddef>

namespace fdmorph {
namespace {

constexpr std::string_view kAnyName = "*";
constexpr std::string_view kAnyAttribute = "@*";
constexpr std::string_view kAnyNames = "**";

bool isStepFor(std::string_view step, std::string_view name) {
  bool isAttribute = name.starts_with('@');
  return step == name || step == (isAttribute ? kAnyAttribute : kAnyName);
}

}  // namespace

PathPattern::PathPattern(std::string text) : m_text(std::move(text)) {
  for (std::string_view step : stepsOf(m_text)) m_steps.emplace_back(step);
}

// The common way to match with one kind of repetition: the last "**" takes one
// name more each time that what follows it does not fit.
bool PathPattern::matches(std::string_view path) const {
  std::vector<std::string_view> const names = stepsOf(path);
  constexpr std::size_t kNone = static_cast<std::size_t>(-1);
  std::size_t step = 0;
  std::size_t name = 0;
  std::size_t repeated = kNone;  // the step after the last "**"
  std::size_t taken = 0;         // names before the one that follows it
  while (name < names.size()) {
    if (step < m_steps.size() && m_steps[step] == kAnyNames) {
      repeated = ++step;
      taken = name;
    } else if (step < m_steps.size() && isStepFor(m_steps[step], names[name])) {
      ++step;
      ++name;
    } else if (repeated != kNone) {
      step = repeated;
      name = ++taken;
    } else {
      return false;
    }
  }
  while (step < m_steps.size() && m_steps[step] == kAnyNames) ++step;
  return step == m_steps.size();
}

std::vector<std::string_view> stepsOf(std::string_view path) {
  std::vector<std::string_view> steps;
  while (!path.empty()) {
    std::size_t slash = path.find('/');
    if (slash != 0) steps.push_back(path.substr(0, slash));
    path = slash == path.npos ? std::string_view() : path.substr(slash + 1);
  }
  return steps;
}

}  // namespace fdmorph

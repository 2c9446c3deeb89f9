#include "copybook/name_scope.h"

#include <algorithm>

#include "copybook/reserved_words.h"
#include "text/utf8.h"

namespace fdmorph::copybook {
namespace {

constexpr std::string_view kReservedEnd = "-X";
constexpr std::string_view kBegin = "X-";

bool isMark(char c) {
  return c == '-' || c == '_';
}

bool isNameCharacter(char c) {
  return isLetter(c) || isDigit(c) || isMark(c);
}

void trimEnd(std::string& name) {
  while (!name.empty() && isMark(name.back())) name.pop_back();
}

void cut(std::string& name, std::size_t size) {
  if (name.size() > size) name.resize(size);
  trimEnd(name);
}

}  // namespace

std::string_view faultOfName(std::string_view name) {
  if (!std::ranges::all_of(name, isNameCharacter)) return "has other characters than A to Z";
  if (name.size() > kMaxNameSize) return "is longer than 30 characters";
  if (name.empty() || isMark(name.front()) || isMark(name.back())) {
    return "begins or ends with a hyphen";
  }
  if (std::ranges::none_of(name, isLetter)) return "has no letter";
  if (name.find("--") != std::string_view::npos) return "has two hyphens in a row";
  if (isReservedWord(name)) return "is a reserved word";
  return {};
}

std::string legalName(std::string_view name) {
  std::string legal;
  for (char c : name) {
    if (isUtf8Continuation(c)) continue;
    char kept = isNameCharacter(c) ? c : '-';
    bool isDropped = isMark(kept) && (legal.empty() || (kept == '-' && legal.back() == '-'));
    if (!isDropped) legal += kept;
  }
  trimEnd(legal);
  if (std::ranges::none_of(legal, isLetter)) legal.insert(0, kBegin);
  cut(legal, kMaxNameSize);
  if (isReservedWord(legal)) legal += kReservedEnd;
  return legal;
}

bool NameScope::take(std::string_view name) {
  return faultOfName(name).empty() && m_names.emplace(name).second;
}

std::string NameScope::takeLike(std::string_view name) {
  std::string legal = legalName(name);
  if (m_names.insert(legal).second) return legal;
  for (unsigned& number = m_numbers.try_emplace(legal, 1).first->second;;) {
    std::string end = "-" + std::to_string(++number);
    std::string candidate = legal;
    cut(candidate, kMaxNameSize - end.size());
    candidate += end;
    if (m_names.insert(candidate).second) return candidate;
  }
}

}  // namespace fdmorph::copybook

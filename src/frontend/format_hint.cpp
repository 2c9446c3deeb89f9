#include "frontend/format_hint.h"

#include <algorithm>
#include <array>

#include "text/letter_case.h"

namespace fdmorph::compiler {
namespace {

constexpr std::size_t kSequenceArea = 6;  // columns
constexpr std::size_t kMaxLines = 1000;   // more are not looked at

constexpr std::array<std::string_view, 7> kFirstWords{
    "IDENTIFICATION", "ID", "ENVIRONMENT", "DATA", "WORKING-STORAGE", "LINKAGE", "COPY",
};

// Whether a line begins with a header, a COPY statement, or a level number and a
// name, and goes on past the sequence area.
bool isFreeEntry(std::string_view line) {
  std::size_t begin = line.find_first_not_of(' ');
  if (begin >= kSequenceArea || line.size() <= kSequenceArea + 1) return false;
  std::string_view text = line.substr(begin);
  std::string_view word = text.substr(0, text.find_first_of(" \t."));
  std::string_view rest = text.substr(std::min(word.size(), text.size()));
  bool isLevel = isAllDigits(word) && word.size() <= 2;
  std::size_t name = rest.find_first_not_of(' ');
  if (isLevel) return name != std::string_view::npos && isLetter(rest[name]);
  return std::any_of(kFirstWords.begin(), kFirstWords.end(),
                     [&](std::string_view each) { return equalsIgnoringCase(word, each); });
}

// Whether a line may change the format of those after it.
bool isFormatDirective(std::string_view line) {
  std::string_view text = line.substr(std::min(line.find_first_not_of(' '), line.size()));
  return text.starts_with(">>") || startsWithIgnoringCase(text, "$SET");
}

// Whether a line has a comment sign in column 7 and a sequence area before it.
bool isFixedComment(std::string_view line) {
  if (line.size() <= kSequenceArea || (line[kSequenceArea] != '*' && line[kSequenceArea] != '/')) {
    return false;
  }
  std::string_view area = line.substr(0, kSequenceArea);
  return isAllDigits(area) || area.find_first_not_of(' ') == std::string_view::npos;
}

}  // namespace

std::optional<FormatHint> findFormatHint(std::string_view content, Format format) {
  bool isFree = format == Format::free;
  std::size_t at = 0;
  for (std::size_t i = 0; i < kMaxLines && at < content.size(); ++i) {
    std::size_t end = std::min(content.find('\n', at), content.size());
    std::string_view line = content.substr(at, end - at);
    if (isFormatDirective(line)) return std::nullopt;
    if (isFree && isFixedComment(line)) {
      return FormatHint{at, "the source looks like fixed format; SOURCEFORMAT(FIXED) reads it"};
    }
    if (!isFree && isFreeEntry(line)) {
      return FormatHint{at, "the source looks like free format; SOURCEFORMAT(FREE) reads it"};
    }
    at = end + 1;
  }
  return std::nullopt;
}

}  // namespace fdmorph::compiler

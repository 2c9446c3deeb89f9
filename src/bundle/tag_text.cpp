#include "bundle/tag_text.h"

#include <algorithm>

namespace fdmorph::bundle {
namespace {

bool isQuote(char c) {
  return c == '"' || c == '\'';
}

bool endsName(char c) {
  return isBlank(c) || c == '=' || c == '/' || c == '>' || c == '\0';
}

/// Reads a well-formed tag from left to right.
class TagScanner {
 public:
  TagScanner(TextUnits const& text, std::size_t offset) : m_text(text), m_at(offset) {}

  [[nodiscard]] char current() const { return m_text.at(m_at); }
  [[nodiscard]] std::size_t offset() const { return m_at; }
  void step() { m_at += m_text.size(); }

  std::string name() {
    std::size_t const begin = m_at;
    while (!endsName(current())) step();
    return m_text.ascii({begin, m_at});
  }

  void skipBlanks() {
    while (isBlank(current())) step();
  }

  // Nothing if there is no value in quotes.
  std::optional<ByteRange> value() {
    skipBlanks();
    if (current() != '=') return std::nullopt;
    step();
    skipBlanks();
    char const quote = current();
    if (!isQuote(quote)) return std::nullopt;
    step();
    std::size_t const begin = m_at;
    while (current() != quote && current() != '\0') step();
    ByteRange const range{begin, m_at};
    if (current() == '\0') return std::nullopt;
    step();
    return range;
  }

 private:
  TextUnits const& m_text;
  std::size_t m_at;
};

}  // namespace

std::optional<ByteRange> TagText::valueOf(std::string_view attribute) const {
  auto found = std::ranges::find(attributes, attribute, &AttributeText::name);
  if (found == attributes.end()) return std::nullopt;
  return found->value;
}

std::optional<TagText> readTag(TextUnits const& text, std::size_t offset) {
  TagScanner scanner(text, offset);
  if (scanner.current() != '<') return std::nullopt;
  scanner.step();
  TagText tag;
  tag.name = scanner.name();
  while (true) {
    tag.end = scanner.offset();
    scanner.skipBlanks();
    std::string name = scanner.name();
    if (name.empty()) return tag;
    std::optional<ByteRange> const value = scanner.value();
    if (!value) return std::nullopt;
    tag.attributes.push_back({std::move(name), *value});
  }
}

std::optional<ByteRange> literalBefore(TextUnits const& text, std::size_t offset) {
  std::size_t const unit = text.size();
  while (offset >= unit && isBlank(text.at(offset - unit))) offset -= unit;
  if (offset < unit || !isQuote(text.at(offset - unit))) return std::nullopt;
  std::size_t const end = offset - unit;
  char const quote = text.at(end);
  std::size_t begin = end;
  while (begin >= unit && text.at(begin - unit) != quote) begin -= unit;
  if (begin < unit) return std::nullopt;
  return ByteRange{begin, end};
}

std::vector<ByteRange> wordsOf(TextUnits const& text, ByteRange value) {
  std::vector<ByteRange> words;
  bool isInWord = false;
  for (std::size_t at = value.begin; at < value.end; at += text.size()) {
    bool const isPart = !isBlank(text.at(at));
    if (isPart && !isInWord) words.push_back({at, at});
    if (isPart) words.back().end = at + text.size();
    isInWord = isPart;
  }
  return words;
}

}  // namespace fdmorph::bundle

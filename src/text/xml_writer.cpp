#include "text/xml_writer.h"

#include <algorithm>

#include "text/utf8.h"

namespace fdmorph {
namespace {

struct Escape {
  char character;
  std::string_view minimal;
  std::string_view full;
};

// White space other than a blank would be read as a blank.
constexpr std::array<Escape, 7> kEscapes{{
    {'&', "&amp;", "&amp;"},
    {'<', "&lt;", "&lt;"},
    {'>', ">", "&gt;"},
    {'"', "&quot;", "&quot;"},
    {'\t', "&#x9;", "&#9;"},
    {'\n', "&#xA;", "&#10;"},
    {'\r', "&#xD;", "&#13;"},
}};

constexpr std::size_t kByteValues = 256;

// The row of kEscapes for each byte, or the number of rows.
constexpr auto kRowOf = [] {
  std::array<unsigned char, kByteValues> rows{};
  rows.fill(kEscapes.size());
  for (std::size_t i = 0; i < kEscapes.size(); ++i) {
    rows[static_cast<unsigned char>(kEscapes[i].character)] = static_cast<unsigned char>(i);
  }
  return rows;
}();

constexpr auto kIsPlain = [] {
  std::array<bool, kByteValues> plain{};
  for (std::size_t c = ' '; c <= '~'; ++c) plain[c] = kRowOf[c] == kEscapes.size();
  return plain;
}();

constexpr bool isControl(char c) {
  return static_cast<unsigned char>(c) < ' ';
}

}  // namespace

void appendXmlEscaped(std::string& out, std::string_view value, XmlEscapes escapes) {
  for (char c : value) {
    std::size_t row = kRowOf[static_cast<unsigned char>(c)];
    if (row == kEscapes.size()) {
      out += c;
    } else {
      out += escapes == XmlEscapes::minimal ? kEscapes[row].minimal : kEscapes[row].full;
    }
  }
}

bool isPlainXmlValue(std::string_view value) {
  return std::all_of(value.begin(), value.end(),
                     [](char c) { return kIsPlain[static_cast<unsigned char>(c)]; });
}

bool isXmlText(std::string_view text) {
  return std::none_of(text.begin(), text.end(), isControl);
}

std::string Utf8OrLatin1::toUtf8(std::string_view text) {
  std::string result;
  bool isLatin1 = !isUtf8(text);
  for (char c : text) {
    bool isWhiteSpace = c == '\t' || c == '\n' || c == '\r';
    if (isControl(c) && !isWhiteSpace) {
      result += ' ';
    } else if (isLatin1) {
      appendUtf8(result, static_cast<unsigned char>(c));
    } else {
      result += c;
    }
  }
  return result;
}

}  // namespace fdmorph

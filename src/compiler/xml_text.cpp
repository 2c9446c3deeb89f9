#include "compiler/xml_text.h"

#include <algorithm>

namespace fdmorph::compiler {
namespace {

constexpr unsigned kStep = 3;

// The length of the UTF-8 character that `text` begins with; 0 if there is
// none.
std::size_t utf8Length(std::string_view text) {
  auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  unsigned char first = byte(0);
  std::size_t length = first < 0x80   ? 1
                       : first < 0xC2 ? 0
                       : first < 0xE0 ? 2
                       : first < 0xF0 ? 3
                       : first < 0xF5 ? 4
                                      : 0;
  if (length > text.size()) return 0;
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0U) != 0x80U) return 0;
  }
  if (length < 3) return length;
  bool isOverlong = (first == 0xE0 && byte(1) < 0xA0) || (first == 0xF0 && byte(1) < 0x90);
  bool isBeyond = first == 0xF4 && byte(1) > 0x8F;
  bool isSurrogate = first == 0xED && byte(1) > 0x9F;
  bool isNoCharacter = first == 0xEF && byte(1) == 0xBF && byte(2) > 0xBD;
  return isOverlong || isBeyond || isSurrogate || isNoCharacter ? 0 : length;
}

std::string fromLatin1(std::string_view text) {
  std::string result;
  for (char c : text) {
    auto byte = static_cast<unsigned char>(c);
    if (byte >= 0x80) {
      result += static_cast<char>(0xC0U | (byte >> 6U));
      result += static_cast<char>(0x80U | (byte & 0x3FU));
    } else {
      result += c;
    }
  }
  return result;
}

bool isPlain(char c) {
  return static_cast<unsigned char>(c) >= ' ' && static_cast<unsigned char>(c) < 0x7F && c != '&' &&
         c != '<' && c != '>' && c != '"';
}

}  // namespace

bool isUtf8(std::string_view text) {
  while (!text.empty()) {
    std::size_t length = utf8Length(text);
    if (length == 0) return false;
    text.remove_prefix(length);
  }
  return true;
}

bool isXmlText(std::string_view text) {
  return std::none_of(text.begin(), text.end(),
                      [](char c) { return static_cast<unsigned char>(c) < ' '; });
}

XmlText::XmlText() : m_text("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n") {}

void XmlText::finishTag() {
  if (m_isTagOpen) m_text += ">\n";
  m_isTagOpen = false;
}

void XmlText::begin(std::string_view element) {
  finishTag();
  ((m_text.append(std::size_t{m_depth} * kStep, ' ')) += '<') += element;
  m_isTagOpen = true;
  ++m_depth;
}

void XmlText::attribute(std::string_view name, std::string_view value) {
  ((m_text += ' ') += name) += "=\"";
  if (std::all_of(value.begin(), value.end(), isPlain)) {
    m_text += value;
  } else {
    appendEscaped(isUtf8(value) ? std::string(value) : fromLatin1(value));
  }
  m_text += '"';
}

void XmlText::attribute(std::string_view name, std::uint64_t number) {
  attribute(name, std::to_string(number));
}

void XmlText::appendEscaped(std::string_view value) {
  for (char c : value) {
    switch (c) {
      case '&':
        m_text += "&amp;";
        break;
      case '<':
        m_text += "&lt;";
        break;
      case '>':
        m_text += "&gt;";
        break;
      case '"':
        m_text += "&quot;";
        break;
      case '\t':
      case '\n':
      case '\r':
        // As they are, a reader would turn them into blanks.
        ((m_text += "&#") += std::to_string(static_cast<int>(c))) += ';';
        break;
      default:
        m_text += static_cast<unsigned char>(c) < ' ' ? ' ' : c;
        break;
    }
  }
}

void XmlText::end(std::string_view element) {
  --m_depth;
  if (m_isTagOpen) {
    m_text += "/>\n";
    m_isTagOpen = false;
    return;
  }
  ((m_text.append(std::size_t{m_depth} * kStep, ' ')) += "</") += element;
  m_text += ">\n";
}

}  // namespace fdmorph::compiler

#include "text/xml_text.h"

#include <algorithm>

#include "text/utf8.h"

namespace fdmorph {
namespace {

constexpr unsigned kStep = 3;

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

}  // namespace fdmorph

#include "xml/xml_output.h"

#include <algorithm>
#include <iostream>
#include <xercesc/framework/XMLFormatter.hpp>

#include "text/console.h"
#include "xml/transcoding.h"

namespace fdmorph {
namespace {

using xerces::XMLFormatter;

constexpr std::string_view kXmlVersion = "1.0";
constexpr char kFirstPrintable = ' ';
constexpr char kLastPrintable = '~';

// Printable ASCII is the same in every encoding concerned, and of it only a
// few characters are ever escaped.
bool isPlain(char c, XmlOutput::Escapes escapes) {
  if (c < kFirstPrintable || c > kLastPrintable) {
    return c == '\n' && escapes == XmlOutput::Escapes::none;
  }
  return escapes == XmlOutput::Escapes::none || (c != '&' && c != '<' && c != '>' && c != '"');
}

}  // namespace

XmlOutput::XmlOutput(xerces::XMLFormatter& formatter)
    : m_formatter(formatter), m_isLineByLine(isLineByLine(std::cout.rdbuf())) {}

void XmlOutput::write(std::string_view text, Escapes escapes) {
  bool isAsItStands =
      std::all_of(text.begin(), text.end(), [escapes](char c) { return isPlain(c, escapes); });
  if (isAsItStands) {
    writeMarkup(text);
    return;
  }
  flush();
  m_formatter << (escapes == Escapes::attribute ? XMLFormatter::AttrEscapes
                                                : XMLFormatter::NoEscapes);
  m_formatter << fromMultibyte(std::string(text).c_str()).c_str();
  m_formatter << XMLFormatter::NoEscapes;
}

void XmlOutput::flush() {
  std::cout.write(m_block.data(), static_cast<std::streamsize>(m_block.size()));
  if (m_isLineByLine) std::cout.flush();
  m_block.clear();
}

XmlOutput& writeIndent(XmlOutput& output, unsigned n) {
  output.writeBlanks(n);
  return output;
}

XmlOutput& writeAttr(XmlOutput& output, std::string_view name, std::string_view value) {
  output << " " << name << "=\"";
  output.write(value, XmlOutput::Escapes::attribute);
  return output << "\"";
}

XmlOutput& writeElem(XmlOutput& output, std::string_view name) {
  return output << "<" << name;
}

XmlOutput& operator<<(XmlOutput& output, std::string_view text) {
  output.write(text, XmlOutput::Escapes::none);
  return output;
}

XmlOutput& writeXmlDeclaration(XmlOutput& output) {
  return output << "<?xml version=\"" << kXmlVersion << "\" encoding=\""
                << toMultibyte(output.formatter().getEncodingName()) << "\"?>\n";
}

}  // namespace fdmorph

#include "xml/xml_output.h"

#include <string>
#include <xercesc/dom/DOMNode.hpp>
#include <xercesc/framework/XMLFormatter.hpp>

#include "text/console.h"
#include "text/multibyte.h"
#include "xml/transcoding.h"

namespace fdmorph {

using xerces::XMLFormatter;

XMLFormatter& writeIndent(XMLFormatter& formatter, unsigned n) {
  formatter << XMLFormatter::NoEscapes;
  std::basic_string<XMLCh> const blanks(n, u' ');
  formatter << blanks.c_str();
  return formatter;
}

XMLFormatter& writeAttr(XMLFormatter& formatter, char const* name, char const* value) {
  formatter << XMLFormatter::NoEscapes << " " << name << "=\"" << XMLFormatter::AttrEscapes << value
            << XMLFormatter::NoEscapes << "\"";
  return formatter;
}

XMLFormatter& writeElem(XMLFormatter& formatter, char const* name) {
  return formatter << XMLFormatter::NoEscapes << "<" << name;
}

XMLFormatter& operator<<(XMLFormatter& formatter, char const* text) {
  formatter << fromMultibyte(text).c_str();
  return formatter;
}

XMLFormatter& operator<<(XMLFormatter& formatter, xerces::DOMNode const& node) {
  formatter << node.getNodeName();
  return formatter;
}

XMLFormatter& writeXmlDeclaration(XMLFormatter& formatter) {
  formatter << "<?xml version=\"" << kVersion << "\" encoding=\"";
  formatter << formatter.getEncodingName();
  return formatter << "\""
                   << "?>"
                   << "\n";
}

}  // namespace fdmorph

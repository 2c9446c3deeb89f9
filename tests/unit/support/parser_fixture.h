// A parser with a folder of files for it.
#pragma once

#include <string>
#include <string_view>

#include "support/captured_console.h"
#include "support/temporary_folder.h"
#include "xml/DMDOMParser.h"

namespace fdmorph {

class ParserTest : public ConsoleTest {
 protected:
  using Type = CDMDOMParser::FILE_TYPE;

  bool parseDocument(std::string_view text, bool validate = false) {
    return parser.ParseFile(folder.write("a.xml", text), Type::XML_DOCUMENT, validate);
  }
  bool parseSchema(std::string_view text) {
    return parser.ParseFile(folder.write("a.xsd", text), Type::XML_SCHEMA, true);
  }

  TemporaryFolder folder;
  CDMXMLNodeStore store;
  CDMDOMParser parser{store};
};

inline constexpr std::string_view kGoodSchema =
    R"(<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema">
  <xs:element name="a" type="xs:int"/>
</xs:schema>
)";

inline constexpr std::string_view kBadSchema =
    R"(<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema">
  <xs:element name="a" type="missing"/>
</xs:schema>
)";

/// Well-formed, but not what its document type says.
inline constexpr std::string_view kInvalidDocument = "<!DOCTYPE a [<!ELEMENT a EMPTY>]><a>text</a>";

/// The error is the end tag on line 3.
inline constexpr std::string_view kMalformedDocument = "<a>\n<b/>\n</c>\n";

}  // namespace fdmorph

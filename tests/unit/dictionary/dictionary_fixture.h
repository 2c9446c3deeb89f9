// Dictionaries for tests.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "dictionary/DMXMLGenerator.h"
#include "support/parser_fixture.h"

namespace fdmorph {

/// Parses dictionaries and hands them to a generator.
class DictionaryTest : public ParserTest {
 protected:
  using Type = CDMXMLGenerator::FILE_TYPE;

  CDMXMLElement* dictionary(std::string_view text) {
    EXPECT_TRUE(parseDocument(text)) << captured.err();
    return parser.getXMLDocument();
  }

  /// What GenerateFile puts on the console, as no file has a name.
  std::string generate(Type type, CDMXMLElement* top,
                       CDMXMLCOBOLExternalMapping const* mapping = nullptr) {
    CDMXMLGenerator generator(top, mapping);
    EXPECT_FALSE(generator.GenerateFile("a.xml", "", "", "", type, "", true));
    return captured.out();
  }
};

}  // namespace fdmorph

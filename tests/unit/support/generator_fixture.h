// A generator on a schema from memory.
#pragma once

#include <memory>
#include <string>

#include "cobol/DMCOBOLGenerator.h"
#include "support/captured_console.h"
#include "support/schema_fixture.h"
#include "support/temporary_folder.h"

namespace fdmorph {

class GeneratorTest : public SchemaTest {
 protected:
  void use(Tree const& main) {
    load(main);
    generator = std::make_unique<CDMCOBOLGenerator>(document.get());
  }

  /// The first component or local element of this name in the main document.
  CDMXMLElement* at(std::string_view name) const { return named(document->rootElement, name); }

  /// The records that the schema becomes.
  std::string generate(std::string const& prefix = "", bool countIn = false, bool unique = false) {
    EXPECT_TRUE(generator->GenerateFile(folder.path("a.cpy"), prefix, countIn, unique));
    return folder.read("a.cpy");
  }

  CapturedConsole captured;
  TemporaryFolder folder;
  std::unique_ptr<CDMCOBOLGenerator> generator;
};

/// An element, global or local, with a type or whatever else it needs.
inline Tree element(std::string const& name, Attributes more = {},
                    std::vector<Tree> children = {}) {
  Attributes attributes{{"name", name}};
  attributes.insert(attributes.end(), more.begin(), more.end());
  return {"xs:element", std::move(attributes), std::move(children)};
}

inline Tree reference(std::string const& name) {
  return {"xs:element", {{"ref", name}}};
}

/// A complex type of a sequence; global with a name, inline without.
inline Tree sequenceType(std::vector<Tree> members, std::string const& name = "") {
  Attributes attributes;
  if (!name.empty()) attributes.emplace_back("name", name);
  return {"xs:complexType", std::move(attributes), {{"xs:sequence", {}, std::move(members)}}};
}

}  // namespace fdmorph

// The queries on a schema from memory, and short forms of declarations.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "cobol/component_search.h"
#include "cobol/namespace_lookup.h"
#include "cobol/substitution_groups.h"
#include "support/captured_console.h"
#include "support/schema_fixture.h"

namespace fdmorph {

class QueryTest : public SchemaTest {
 protected:
  void use(Tree const& main) {
    load(main);
    substitutions.reset();
    components.reset();
    namespaces.emplace(document);
    components.emplace(document, *namespaces);
    substitutions.emplace(document, *namespaces);
  }

  /// The first component or local element of this name in the main document.
  CDMXMLElement* at(std::string_view name) const { return named(document->rootElement, name); }

  CapturedConsole captured;
  std::optional<NamespaceLookup> namespaces;
  std::optional<ComponentSearch> components;
  std::optional<SubstitutionGroups> substitutions;
};

/// An element, global or local, with further attributes and children.
inline Tree element(std::string const& name, Attributes more = {},
                    std::vector<Tree> children = {}) {
  Attributes attributes{{"name", name}};
  attributes.insert(attributes.end(), more.begin(), more.end());
  return {"xs:element", std::move(attributes), std::move(children)};
}

inline Tree reference(std::string const& name) {
  return {"xs:element", {{"ref", name}}};
}

/// A complex type with a sequence; global with a name, inline without.
inline Tree sequenceType(std::vector<Tree> members, std::string const& name = "") {
  Attributes attributes;
  if (!name.empty()) attributes.emplace_back("name", name);
  return {"xs:complexType", std::move(attributes), {{"xs:sequence", {}, std::move(members)}}};
}

}  // namespace fdmorph

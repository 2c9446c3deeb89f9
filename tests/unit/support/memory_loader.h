// Schemas from memory, and short forms of their components.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "schema/schema_loader.h"
#include "support/trees.h"

namespace fdmorph {

using Attributes = std::vector<std::pair<std::string, std::string>>;

inline Tree schema(std::vector<Tree> children) {
  return {"xs:schema", {{"xmlns:xs", "http://www.w3.org/2001/XMLSchema"}}, std::move(children)};
}
inline Tree schemaOf(std::string const& uri, std::vector<Tree> children) {
  Tree tree = schema(std::move(children));
  tree.attributes.emplace_back("targetNamespace", uri);
  return tree;
}

/// A global component: component("complexType", "T").
inline Tree component(std::string const& kind, std::string const& name,
                      std::vector<Tree> children = {}) {
  return {"xs:" + kind, {{"name", name}}, std::move(children)};
}
inline Tree include(std::string const& location) {
  return {"xs:include", {{"schemaLocation", location}}};
}
inline Tree import(std::string const& uri, std::string const& location) {
  return {"xs:import", {{"namespace", uri}, {"schemaLocation", location}}};
}
inline Tree redefine(std::string const& location, std::vector<Tree> children) {
  return {"xs:redefine", {{"schemaLocation", location}}, std::move(children)};
}

/// Knows the schemas that the test adds; any other location is unusable.
class MemoryLoader : public SchemaLoader {
 public:
  explicit MemoryLoader(CDMXMLNodeStore& store) : m_store(store) {}

  void add(std::string const& location, Tree tree) { m_schemas[location] = std::move(tree); }

  CDMXMLElement* load(std::string const& location) override {
    loads.push_back(location);
    auto found = m_schemas.find(location);
    return found == m_schemas.end() ? nullptr : buildDocument(m_store, found->second);
  }

  std::vector<std::string> loads;  ///< every location asked for, in order

 private:
  CDMXMLNodeStore& m_store;
  std::map<std::string, Tree> m_schemas;
};

}  // namespace fdmorph

// A schema in a folder of its own, and the model of it.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "support/captured_console.h"
#include "support/temporary_folder.h"
#include "xml/schema_model.h"

namespace fdmorph {

inline std::string schemaOf(std::string const& content, std::string const& attributes = "") {
  return "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'" + attributes + ">\n" + content +
         "</xs:schema>\n";
}

/// An element r of an anonymous complex type.
inline std::string elementWith(std::string const& content) {
  return schemaOf("<xs:element name='r'><xs:complexType>" + content +
                  "</xs:complexType></xs:element>\n");
}

inline std::vector<std::string> namesOf(std::vector<SchemaElement const*> const& elements) {
  std::vector<std::string> names;
  for (SchemaElement const* element : elements) names.push_back(element->name.local);
  return names;
}

class SchemaModelTest : public ConsoleTest {
 protected:
  SchemaModel& load(std::string const& text) {
    model.reset();
    files.clear();
    LoadedSchema loaded = SchemaModel::load(folder.write("a.xsd", text), files);
    for (SchemaReport const& report : loaded.reports) ADD_FAILURE() << report.message;
    model = std::move(loaded.model);
    return *model;
  }

  SchemaElement const& global(std::string const& name, std::string const& space = "") {
    SchemaElement const* found = model->globalElement({name, space});
    EXPECT_NE(found, nullptr) << name;
    return *found;
  }

  SchemaType const& typeOf(std::string const& name) { return model->typeOf(global(name)); }

  /// The simple type of an element r with this content of xs:simpleType.
  SimpleType const& simple(std::string const& content) {
    load(schemaOf("<xs:element name='r'><xs:simpleType>" + content +
                  "</xs:simpleType></xs:element>"));
    return *typeOf("r").text;
  }

  SimpleType const& restriction(std::string const& base, std::string const& facets) {
    return simple("<xs:restriction base='" + base + "'>" + facets + "</xs:restriction>");
  }

  TemporaryFolder folder;
  InputFiles files;
  std::unique_ptr<SchemaModel> model;
};

}  // namespace fdmorph

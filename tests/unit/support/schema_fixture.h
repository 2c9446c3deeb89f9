// A schema document over files in memory.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "schema/schema_preprocessing.h"
#include "support/memory_loader.h"
#include "xml/DMDOMParser.h"

namespace fdmorph {

/// The main file is /s/main.xsd, unless the test says otherwise.
class SchemaTest : public testing::Test {
 protected:
  // Paths are resolved by the XML library.
  static void SetUpTestSuite() { CDMDOMParser::InitializePlatform(); }

  CDMXMLSchemaDoc& load(Tree const& main, std::string const& path = "/s/main.xsd") {
    schemas = SchemaPreprocessing(loader).PreProcessSchema(buildDocument(store, main), path);
    return *document;
  }

  /// The components under the main root, by name.
  std::vector<std::string> mainComponents() const {
    return namesOf(document->rootElement->getChildElements());
  }

  CDMXMLNodeStore store;
  MemoryLoader loader{store};
  SchemaSet schemas;
  CDMXMLSchemaDoc* document = &schemas.main;
};

}  // namespace fdmorph

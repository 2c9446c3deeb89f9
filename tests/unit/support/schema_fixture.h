// A schema document over files in memory.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "schema/DMXMLSchemaDoc.h"
#include "support/memory_loader.h"
#include "xml/DMDOMParser.h"

namespace fdmorph {

/// The main file is /s/main.xsd, unless the test says otherwise.
class SchemaTest : public testing::Test {
 protected:
  // Path questions go to the XML library.
  static void SetUpTestSuite() { CDMDOMParser::InitializePlatform(); }

  CDMXMLSchemaDoc& load(Tree const& main, std::string const& path = "/s/main.xsd") {
    document = std::make_unique<CDMXMLSchemaDoc>(buildDocument(store, main), path, loader);
    return *document;
  }

  /// The components under the main root, by name.
  std::vector<std::string> mainComponents() const {
    return namesOf(document->rootElement->getChildElements());
  }

  CDMXMLNodeStore store;
  MemoryLoader loader{store};
  std::unique_ptr<CDMXMLSchemaDoc> document;
};

}  // namespace fdmorph

// A generator on a schema from memory.
#pragma once

#include <memory>
#include <string>

#include "cobol/DMCOBOLGenerator.h"
#include "support/query_fixture.h"
#include "support/temporary_folder.h"

namespace fdmorph {

class GeneratorTest : public QueryTest {
 protected:
  void use(Tree const& main) {
    load(main);
    generator = std::make_unique<CDMCOBOLGenerator>(document);
  }

  /// The records that the schema becomes.
  std::string generate(std::string const& prefix = "", bool countIn = false, bool unique = false) {
    EXPECT_TRUE(generator->GenerateFile(folder.path("a.cpy"), prefix, countIn, unique));
    return folder.read("a.cpy");
  }

  TemporaryFolder folder;
  std::unique_ptr<CDMCOBOLGenerator> generator;
};

}  // namespace fdmorph

// The example on the page of dictionaries.

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "support/compiled_source.h"

namespace fdmorph::compiler {
namespace {

// The example of the page on dictionaries is what the compiler writes.
TEST(DictionaryPage, HasATrueExample) {
  std::ifstream file(ZBC_DICTIONARY_PAGE);
  std::stringstream content;
  content << file.rdbuf();
  std::string page = content.str();
  auto exampleAfter = [&](std::string const& words) {
    std::size_t begin = page.find(".nf\n", page.find(words)) + 4;
    return page.substr(begin, page.find(".fi\n", begin) - begin);
  };
  MemoryTree tree;
  tree.files["order.cpy"] = fixed(exampleAfter("The copybook\n"));
  Directives directives;
  directives.writesDictionary = true;
  EXPECT_EQ(compileSource("order.cpy", directives, tree).dictionary,
            exampleAfter("has the dictionary\n"));
}

}  // namespace
}  // namespace fdmorph::compiler

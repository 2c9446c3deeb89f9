// The codes of diagnostics and their documentation.

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "compiler/command_line.h"
#include "source/diagnostics.h"
#include "support/compiled_source.h"

namespace fdmorph::compiler {
namespace {

// Codes of records stand on the page of fdrec, the others on that of zbc.
TEST(ManPage, DocumentsEveryCode) {
  std::stringstream page;
  for (char const* path : {ZBC_MAN_PAGE, FDREC_MAN_PAGE}) page << std::ifstream(path).rdbuf();
  for (CodeEntry const& entry : allCodes()) {
    std::string line = "\n.B " + std::string(entry.name) + "\n";
    EXPECT_NE(page.str().find(line), std::string::npos) << entry.name;
  }
}

TEST(ManPage, DocumentsEveryDirective) {
  std::ifstream file(ZBC_MAN_PAGE);
  std::stringstream page;
  page << file.rdbuf();
  std::istringstream help(helpText());
  int directives = 0;
  for (std::string line; std::getline(help, line);) {
    bool isDirective =
        line.starts_with("  ") && line.size() > 2 && line[2] >= 'A' && line[2] <= 'Z';
    if (!isDirective || line.starts_with("  SOURCE,")) continue;
    std::string name = line.substr(2, line.find_first_of("(,", 2) - 2);
    EXPECT_NE(page.str().find(name), std::string::npos) << name;
    ++directives;
  }
  EXPECT_GT(directives, 10);
}

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

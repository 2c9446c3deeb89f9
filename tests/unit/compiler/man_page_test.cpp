// The codes of diagnostics and their documentation.

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "source/diagnostics.h"

namespace fdmorph::compiler {
namespace {

TEST(ManPage, DocumentsEveryCode) {
  std::ifstream file(ZBC_MAN_PAGE);
  std::stringstream page;
  page << file.rdbuf();
  for (CodeEntry const& entry : allCodes()) {
    std::string line = "\n.B " + std::string(entry.name) + "\n";
    EXPECT_NE(page.str().find(line), std::string::npos) << entry.name;
  }
}

}  // namespace
}  // namespace fdmorph::compiler

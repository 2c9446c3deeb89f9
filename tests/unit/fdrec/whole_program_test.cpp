#include "fdrec/whole_program.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace fdmorph::fdrec {
namespace {

bool isOnDataWith(std::vector<std::string> words) {
  words.insert(words.begin(), "fdrec");
  std::vector<char*> arguments;
  arguments.reserve(words.size());
  for (std::string& word : words) arguments.push_back(word.data());
  return isOnData(arguments);
}

TEST(WholeProgram, IsNotNeededForCommandsOnData) {
  for (char const* command :
       {"schema", "index", "to-xml", "to-json", "from-xml", "from-json", "verify"}) {
    EXPECT_TRUE(isOnDataWith({command, "a.cpy", "a.dat"})) << command;
    EXPECT_TRUE(isOnDataWith({"--dialect", "gnucobol", command, "a.cpy"})) << command;
  }
}

TEST(WholeProgram, RunsTheOtherCommands) {
  for (char const* command : {"show", "plain", "check", "copybook", "deps", "bundle"}) {
    EXPECT_FALSE(isOnDataWith({command, "a.cpy"})) << command;
  }
}

TEST(WholeProgram, ValidatesBySchemas) {
  EXPECT_FALSE(isOnDataWith({"to-xml", "--schema", "a.xsd", "a.cpy"}));
  EXPECT_FALSE(isOnDataWith({"--schema=a.xsd", "from-xml", "a.cpy"}));
}

TEST(WholeProgram, ShowsTheHelpOfAllCommandsAndReportsWrongOnes) {
  EXPECT_FALSE(isOnDataWith({"--help"}));
  EXPECT_FALSE(isOnDataWith({"to-xml", "-h"}));
  EXPECT_FALSE(isOnDataWith({"--version"}));
  EXPECT_FALSE(isOnDataWith({"to-yaml", "a.cpy"}));
  EXPECT_FALSE(isOnDataWith({}));
}

// It runs the commands on data as well.
TEST(WholeProgram, RunsWhatMayBeAnotherCommand) {
  EXPECT_FALSE(isOnDataWith({"to-xml", "--record", "check", "a.cpy"}));
}

}  // namespace
}  // namespace fdmorph::fdrec

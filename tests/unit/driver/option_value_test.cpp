// Where the value of an option is found.

#include <gtest/gtest.h>

#include "driver/command_line.h"
#include "support/arguments.h"
#include "support/captured_console.h"
#include "text/console.h"

namespace fdmorph {
namespace {

class OptionValue : public ConsoleTest {
 protected:
  /// Reads the value of the option at index 1; returns the index where the
  /// scan stands then.
  int read(std::initializer_list<std::string> list, char const* name = "-C") {
    Arguments arguments(list);
    value = "before";
    return ProcessCmdLineNameValue(arguments.count(), arguments.values(), 1, name, value);
  }

  std::string value;
};

TEST_F(OptionValue, IsTheRestOfTheArgument) {
  EXPECT_EQ(read({"-cout.cpy", "next"}), 1);
  EXPECT_EQ(value, "out.cpy");
  EXPECT_EQ(read({"-c=x"}), 1);
  EXPECT_EQ(value, "=x");
}

TEST_F(OptionValue, IsTheNextArgumentOtherwise) {
  EXPECT_EQ(read({"-c", "out.cpy", "more"}), 2);
  EXPECT_EQ(value, "out.cpy");
}

TEST_F(OptionValue, MayBeginWithAHyphen) {
  EXPECT_EQ(read({"-c", "-v"}), 2);
  EXPECT_EQ(value, "-v");
}

TEST_F(OptionValue, MayBeEmpty) {
  EXPECT_EQ(read({"-c", ""}), 2);
  EXPECT_EQ(value, "");
}

TEST_F(OptionValue, IsCutAfterTheNameInCharacters) {
  EXPECT_EQ(read({"-c\u00fcber.cpy"}), 1);
  EXPECT_EQ(value, "\u00fcber.cpy");
}

TEST_F(OptionValue, LongerNamesTakeTheRestToo) {
  EXPECT_EQ(read({"-outfile"}, "-OUT"), 1);
  EXPECT_EQ(value, "file");
}

TEST_F(OptionValue, MissingOneIsReportedAndEndsTheScan) {
  EXPECT_EQ(read({"-C"}), 2);
  EXPECT_EQ(value, "before");
  EXPECT_EQ(captured.out(), "Error : Ignoring incomplete command-line option \"-C\"\n");
  EXPECT_EQ(console.m_nErrorCount, 1);
}

}  // namespace
}  // namespace fdmorph

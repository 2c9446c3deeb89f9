// The compiler's command line.

#include <gtest/gtest.h>

#include "compiler/command_line.h"
#include "support/compiled_source.h"

namespace fdmorph::compiler {
namespace {

using Action = CommandLine::Action;

class CompilerCommandLine : public testing::Test {
 protected:
  CommandLine read(std::vector<std::string> const& arguments) {
    return readCommandLine(arguments, tree);
  }

  MemoryTree tree;
};

TEST_F(CompilerCommandLine, IsAsConverterCallsIt) {
  CommandLine line = read({"-C", "dbgi", "noobj", "-C", "XMLGEN(WS)", "\"my prog.cbl\""});
  EXPECT_EQ(line.action, Action::compile);
  EXPECT_EQ(line.sourcePath, "my prog.cbl");
  EXPECT_TRUE(line.directives.writesDictionary);
  EXPECT_TRUE(line.directives.unknown.empty());
}

TEST_F(CompilerCommandLine, ReadsDirectiveFiles) {
  tree.files["d d"] = "* comment\nSOURCEFORMAT(FREE) tabs(4)\n copyext(inc,.cpy)\n";
  CommandLine line = read({"-C", "dbgi", "@\"d d\"", "-C", "XMLGEN(FILE)", "a.cbl"});
  EXPECT_EQ(line.directives.reading.format, Format::free);
  EXPECT_EQ(line.directives.reading.tabs, 4U);
  EXPECT_EQ(line.directives.copying.extensions, (std::vector<std::string>{"inc", "cpy", ""}));
  EXPECT_EQ(line.directives.order, DictionaryOrder::filesFirst);
}

TEST_F(CompilerCommandLine, TakesTheSourceAheadOfOptionsToo) {
  CommandLine line = read({"a.cbl", "-C", "COPYPATH(x:y z)", "NOOBJ"});
  EXPECT_EQ(line.sourcePath, "a.cbl");
  EXPECT_EQ(line.directives.copying.folders, (std::vector<std::string>{"x", "y z"}));
}

TEST_F(CompilerCommandLine, ReportsUsageErrors) {
  EXPECT_EQ(read({}).error, "no source file");
  EXPECT_EQ(read({"-C", "noobj"}).error, "no source file");
  EXPECT_EQ(read({"-x", "a.cbl"}).error, "unknown option -x");
  EXPECT_EQ(read({"a.cbl", "b.cbl"}).error, "more than one source file");
  EXPECT_EQ(read({"-C", "TABS(0)", "a.cbl"}).error, "invalid parameter in directive TABS(0)");
  EXPECT_EQ(read({"@none", "a.cbl"}).error,
            "cannot read directive file none: No such file or directory");
  EXPECT_EQ(read({"@none", "a.cbl"}).action, Action::usageError);
}

TEST_F(CompilerCommandLine, ShowsHelpAndVersion) {
  EXPECT_EQ(read({"--help"}).action, Action::help);
  EXPECT_EQ(read({"-C", "dbgi", "--version"}).action, Action::version);
}

TEST(DictionaryPath, ReplacesTheExtension) {
  EXPECT_EQ(dictionaryPath("d.d/a.b.cbl"), "d.d/a.b.xml");
  EXPECT_EQ(dictionaryPath("d.d/a"), "d.d/a.xml");
}

TEST(Directives, MayHaveBlanksAroundTheirParameters) {
  Directives directives;
  EXPECT_EQ(applyDirectives("XMLGEN (WS) SOURCEFORMAT( FREE )", directives), std::nullopt);
  EXPECT_TRUE(directives.writesDictionary);
  EXPECT_EQ(directives.reading.format, Format::free);
}

}  // namespace
}  // namespace fdmorph::compiler

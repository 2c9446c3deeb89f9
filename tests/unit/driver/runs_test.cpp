// The validation run and the schema to COBOL run, below the command line.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iostream>
#include <sstream>

#include "driver/settings.h"
#include "support/captured_console.h"
#include "support/parser_fixture.h"
#include "support/temporary_folder.h"
#include "text/console.h"

namespace fdmorph {
namespace {

using testing::EndsWith;
using testing::StartsWith;

constexpr char kRecord[] = "       01 a PIC S9(18) identified by \"a\" count in a-count.\n\n";

class RunTest : public ConsoleTest {
 protected:
  RunTest() : m_input(std::cin.rdbuf(&answers)) {}
  ~RunTest() override { std::cin.rdbuf(m_input); }

  WorkingFolder folder;
  Settings settings;
  std::stringbuf answers;

 private:
  std::streambuf* m_input;
};

class ValidationRun : public RunTest {};
class SchemaRun : public RunTest {};

TEST_F(ValidationRun, OfAGoodSchema) {
  folder.write("a.xsd", kGoodSchema);
  settings.givenName = settings.schemaFile = "a.xsd";
  EXPECT_EQ(runValidation(settings), 0);
  EXPECT_EQ(captured.out(),
            "Performing validation of \"a.xsd\", ignoring other options\n"
            "\n"
            "Validating a.xsd for well-formedness.\n");
  EXPECT_EQ(captured.err(), "0 error(s), 0 warning(s)\n");
}

TEST_F(ValidationRun, OfAGoodDocument) {
  folder.write("s.xsd", kGoodSchema);
  folder.write("a.xml", R"(<a xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance")"
                        R"( xsi:noNamespaceSchemaLocation="s.xsd">1</a>)");
  settings.givenName = settings.xmlFile = "a.xml";
  EXPECT_EQ(runValidation(settings), 0);
  EXPECT_EQ(captured.out(),
            "Performing validation of \"a.xml\", ignoring other options\n"
            "\n"
            "Validating \"a.xml\" for well-formedness and schema conformity.\n"
            "\n"
            "Validating \"a.xml\" for schema conformity. \n");
  EXPECT_EQ(captured.err(), "0 error(s), 0 warning(s)\n");
}

TEST_F(ValidationRun, OnlyTheSecondPassChecksConformity) {
  folder.write("a.xml", kInvalidDocument);
  settings.givenName = settings.xmlFile = "a.xml";
  EXPECT_NE(runValidation(settings), 0);
  EXPECT_EQ(countOf("Error : " + folder.path("a.xml") + "(Line 1, Col ", captured.err()),
            console.m_nErrorCount);
}

TEST_F(ValidationRun, SchemaWithOneErrorGivesStatus1) {
  folder.write("a.xsd", kBadSchema);
  settings.givenName = settings.schemaFile = "a.xsd";
  EXPECT_EQ(runValidation(settings), 1);
  EXPECT_THAT(captured.err(), StartsWith("Error : " + folder.path("a.xsd") + "(Line 2, Col "));
  EXPECT_THAT(captured.err(), EndsWith("\n1 error(s), 0 warning(s)\n"));
}

TEST_F(ValidationRun, ErrorThatBothPassesFindCountsTwice) {
  folder.write("a.xml", kMalformedDocument);
  settings.givenName = settings.xmlFile = "a.xml";
  int const status = runValidation(settings);
  EXPECT_EQ(countOf("Fatal Error : " + folder.path("a.xml") + "(Line 3, Col ", captured.err()), 2);
  EXPECT_EQ(status, console.m_nErrorCount + console.m_nWarningCount);
}

TEST_F(ValidationRun, SchemaIsCheckedFirst) {
  folder.write("a.xsd", kGoodSchema);
  settings.schemaFile = "a.xsd";
  settings.givenName = settings.xmlFile = "b.xml";
  EXPECT_EQ(runValidation(settings), 0);
  EXPECT_EQ(captured.out(),
            "Performing validation of \"b.xml\", ignoring other options\n"
            "\n"
            "Validating a.xsd for well-formedness.\n");
}

TEST_F(ValidationRun, MissingFileIsReported) {
  settings.givenName = settings.schemaFile = "missing.xsd";
  EXPECT_NE(runValidation(settings), 0);
}

TEST_F(ValidationRun, WithoutANameStops) {
  EXPECT_EQ(runValidation(settings), 1);
  EXPECT_EQ(captured.out(),
            "Performing validation of \"\", ignoring other options\n"
            "Error : Failed to specify XML Schema filename\n");
  EXPECT_EQ(captured.err(), "");
}

TEST_F(ValidationRun, EarlierReportsCountTowardsTheStatus) {
  folder.write("a.xml", "<a/>");
  settings.givenName = settings.xmlFile = "a.xml";
  console.m_nWarningCount = 300;
  EXPECT_EQ(runValidation(settings), 255);
}

TEST_F(SchemaRun, OfAGoodSchema) {
  folder.write("a.xsd", kGoodSchema);
  settings.givenName = settings.schemaFile = "a.xsd";
  EXPECT_EQ(runSchemaToCobol(settings), 0);
  EXPECT_EQ(captured.out(),
            "Checking a.xsd for errors\n"
            "\n"
            "Validating a.xsd for well-formedness.\n"
            "No schema errors found, processing XML schema a.xsd\n");
  EXPECT_EQ(captured.err(),
            "\n"
            "Successfully converted 1 of 1 schema head element(s).\n"
            "\n"
            "0 error(s), 0 warning(s)\n");
  EXPECT_EQ(folder.read("a.cpy"), kRecord);
}

TEST_F(SchemaRun, CopybookIsNamedByItsOption) {
  folder.write("a.xsd", kGoodSchema);
  settings.schemaFile = "a.xsd";
  settings.copybookFile = "out.cpy";
  EXPECT_EQ(runSchemaToCobol(settings), 0);
  EXPECT_EQ(folder.read("out.cpy"), kRecord);
  EXPECT_FALSE(folder.has("a.cpy"));
}

TEST_F(SchemaRun, CopybookIsNamedUpToTheLastDot) {
  folder.write("a.b.xsd", kGoodSchema);
  settings.schemaFile = "a.b.xsd";
  EXPECT_EQ(runSchemaToCobol(settings), 0);
  EXPECT_TRUE(folder.has("a.b.cpy"));
}

TEST_F(SchemaRun, CopybookOfATooLongNameIsNotWritten) {
  std::string const name = std::string(1500, 'n') + ".xsd";
  settings.schemaFile = name;
  EXPECT_EQ(runSchemaToCobol(settings), 1) << "no file can have this name";
  EXPECT_THAT(captured.out(), EndsWith("\nFailed to create " + std::string(1500, 'n') + ".cpy\n"));
}

TEST_F(SchemaRun, IncludedFileIsFoundBesideTheSchema) {
  folder.write("sub/a.xsd", R"(<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema">
  <xs:include schemaLocation="b.xsd"/>
</xs:schema>
)");
  folder.write("sub/b.xsd", kGoodSchema);
  settings.schemaFile = "sub/a.xsd";
  EXPECT_EQ(runSchemaToCobol(settings), 0);
  EXPECT_THAT(captured.out(), EndsWith("No schema errors found, processing XML schema sub/a.xsd\n"
                                       "\n"
                                       "Validating " +
                                       folder.path("sub/b.xsd") + " for well-formedness.\n"));
  EXPECT_EQ(folder.read("sub/a.cpy"), kRecord);
}

TEST_F(SchemaRun, FlagsReachTheRecord) {
  folder.write("a.xsd", kGoodSchema);
  settings.schemaFile = "a.xsd";
  settings.dataPrefix = "W-";
  settings.countIn = false;
  EXPECT_EQ(runSchemaToCobol(settings), 0);
  EXPECT_EQ(folder.read("a.cpy"), "       01 W-a PIC S9(18) identified by \"a\".\n\n");
}

TEST_F(SchemaRun, BadSchemaStopsIt) {
  folder.write("a.xsd", kBadSchema);
  settings.schemaFile = "a.xsd";
  EXPECT_EQ(runSchemaToCobol(settings), 1);
  EXPECT_EQ(captured.out(),
            "Checking a.xsd for errors\n"
            "\n"
            "Validating a.xsd for well-formedness.\n"
            "\n"
            "Failed to create a.cpy\n");
  EXPECT_THAT(captured.err(), EndsWith("\n1 error(s), 0 warning(s)\n"));
  EXPECT_FALSE(folder.has("a.cpy"));
}

TEST_F(SchemaRun, RefusedOverwriteEndsWithoutASummary) {
  folder.write("a.xsd", kGoodSchema);
  folder.write("a.cpy", "old");
  settings.schemaFile = "a.xsd";
  answers.str("n\n");
  EXPECT_EQ(runSchemaToCobol(settings), 1) << "the warning counts";
  EXPECT_EQ(folder.read("a.cpy"), "old");
  EXPECT_EQ(countOf("error(s)", captured.err()), 0);
}

TEST_F(SchemaRun, AllowedOverwriteStillCountsTheWarning) {
  folder.write("a.xsd", kGoodSchema);
  folder.write("a.cpy", "old");
  settings.schemaFile = "a.xsd";
  answers.str("y\n");
  EXPECT_EQ(runSchemaToCobol(settings), 1);
  EXPECT_EQ(folder.read("a.cpy"), kRecord);
  EXPECT_THAT(captured.err(), EndsWith("\n0 error(s), 1 warning(s)\n"));
}

TEST_F(SchemaRun, WithoutAPromptTheCopybookIsOverwritten) {
  folder.write("a.xsd", kGoodSchema);
  folder.write("a.cpy", "old");
  settings.schemaFile = "a.xsd";
  settings.promptOverwrite = false;
  EXPECT_EQ(runSchemaToCobol(settings), 0);
  EXPECT_EQ(folder.read("a.cpy"), kRecord);
}

TEST_F(SchemaRun, WithoutANameStops) {
  EXPECT_EQ(runSchemaToCobol(settings), 1);
  EXPECT_EQ(captured.out(),
            "Error : Failed to specify XML Schema filename\n"
            "Error : Failed to specify COBOL Copybook filename\n");
}

TEST_F(SchemaRun, QuietRunPrintsReportsOnly) {
  folder.write("a.xsd", kGoodSchema);
  settings.schemaFile = "a.xsd";
  beginQuietMode();
  EXPECT_EQ(runSchemaToCobol(settings), 0);
  EXPECT_EQ(captured.out(), "");
  EXPECT_THAT(captured.err(), EndsWith("0 error(s), 0 warning(s)\n"));
  EXPECT_EQ(std::cout.rdbuf(), captured.outBuffer());
}

}  // namespace
}  // namespace fdmorph

// From arguments to settings.

#include "driver/command_line.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iostream>

#include "support/arguments.h"
#include "support/captured_console.h"
#include "text/console.h"

namespace fdmorph {
namespace {

using testing::StartsWith;

class CommandLine : public ConsoleTest {
 protected:
  /// The status if the scan ends the run, otherwise nothing.
  std::optional<int> scan(std::initializer_list<std::string> list) {
    Arguments arguments(list);
    ScannedArguments scanned = scanArguments(arguments.count(), arguments.values());
    settings = scanned.settings;
    return scanned.status;
  }

  Settings settings;
};

class FileName : public CommandLine {};
class OptionScan : public CommandLine {};
class Validation : public CommandLine {};

TEST_F(FileName, OfASchemaChoosesTheSchemaRun) {
  for (std::string name : {"a.xsd", "a.XSD", "a.b.xSd", "a.xsdfoo", ".xsd"}) {
    EXPECT_EQ(scan({name}), std::nullopt) << name;
    EXPECT_EQ(settings.run, Run::schemaToCobol) << name;
    EXPECT_EQ(settings.schemaFile, name);
    EXPECT_EQ(settings.givenName, name);
    EXPECT_EQ(settings.sourceFile, "");
  }
}

TEST_F(FileName, OfASourceChoosesTheCobolRun) {
  for (std::string name : {"a.cbl", "a.CPY", "a.cblx", ".CBL", "a.b.cpy"}) {
    EXPECT_EQ(scan({name}), std::nullopt) << name;
    EXPECT_EQ(settings.run, Run::cobolToSchema) << name;
    EXPECT_EQ(settings.sourceFile, name);
    EXPECT_EQ(settings.xmlFile, "");
  }
}

TEST_F(FileName, OfADocumentChoosesTheCobolRunToo) {
  EXPECT_EQ(scan({"a.xml"}), std::nullopt);
  EXPECT_EQ(settings.run, Run::cobolToSchema);
  EXPECT_EQ(settings.sourceFile, "a.xml");
  EXPECT_EQ(settings.xmlFile, "a.xml");
}

TEST_F(FileName, OfAnotherKindEndsTheRunWithTheUsage) {
  for (std::string name : {"README", "a.txt", "a.xs", "a.", "", "a.xsd.old", "cbl"}) {
    CapturedConsole own;
    EXPECT_EQ(scan({name}), 1) << name;
    EXPECT_THAT(own.out(),
                StartsWith("Error : Unrecognized file type \"" + name + "\"\nUsage :\n"));
    EXPECT_EQ(console.m_nErrorCount, 1);
  }
}

TEST_F(FileName, SecondOneIsIgnoredWithAWarning) {
  EXPECT_EQ(scan({"a.cbl", "b.xsd", "README"}), std::nullopt);
  EXPECT_EQ(settings.givenName, "a.cbl");
  EXPECT_EQ(settings.run, Run::cobolToSchema);
  EXPECT_EQ(settings.schemaFile, "");
  EXPECT_EQ(captured.out(),
            "Warning : Source filename \"a.cbl\" already specified.  Ignoring \"b.xsd\"\n"
            "Warning : Source filename \"a.cbl\" already specified.  Ignoring \"README\"\n");
  EXPECT_EQ(console.m_nWarningCount, 2);
}

TEST_F(FileName, MayStandBetweenOptions) {
  EXPECT_EQ(scan({"-noprompt", "a.xsd", "-unique"}), std::nullopt);
  EXPECT_EQ(settings.schemaFile, "a.xsd");
  EXPECT_FALSE(settings.promptOverwrite);
  EXPECT_TRUE(settings.uniqueNames);
}

TEST_F(OptionScan, DefaultsHoldWithoutAny) {
  EXPECT_EQ(scan({}), std::nullopt);
  EXPECT_EQ(settings.givenName, "");
  EXPECT_TRUE(settings.promptOverwrite);
  EXPECT_TRUE(settings.countIn);
  EXPECT_FALSE(settings.uniqueNames);
  EXPECT_EQ(settings.run, Run::none);
}

TEST_F(OptionScan, ValuesGoToTheirSettings) {
  EXPECT_EQ(scan({"-c", "c", "-x", "x", "-m", "m", "-p", "p", "-d", "d"}), std::nullopt);
  EXPECT_EQ(settings.copybookFile, "c");
  EXPECT_EQ(settings.schemaFile, "x");
  EXPECT_EQ(settings.mappingFile, "m");
  EXPECT_EQ(settings.dataPrefix, "p");
  EXPECT_EQ(settings.directiveFile, "d");
  EXPECT_EQ(settings.givenName, "");
}

TEST_F(OptionScan, IgnoresCase) {
  EXPECT_EQ(scan({"-C", "a", "-P", "b", "-NoPrompt", "-NOCOUNTIN", "-Unique"}), std::nullopt);
  EXPECT_EQ(settings.copybookFile, "a");
  EXPECT_EQ(settings.dataPrefix, "b");
  EXPECT_FALSE(settings.promptOverwrite);
  EXPECT_FALSE(settings.countIn);
  EXPECT_TRUE(settings.uniqueNames);
}

TEST_F(OptionScan, OfTwoLettersMatchesOnItsPrefix) {
  EXPECT_EQ(scan({"-Xyz", "-Mapping", "-Prefix", "-Data", "-Copy"}), std::nullopt);
  EXPECT_EQ(settings.schemaFile, "yz");
  EXPECT_EQ(settings.mappingFile, "apping");
  EXPECT_EQ(settings.dataPrefix, "refix");
  EXPECT_EQ(settings.directiveFile, "ata");
  EXPECT_EQ(settings.copybookFile, "opy");
}

TEST_F(OptionScan, LongOnesMatchOnTheirPrefixToo) {
  EXPECT_EQ(scan({"-nopromptly", "-nocountinside", "-uniqueness", "-logging"}), std::nullopt);
  EXPECT_FALSE(settings.promptOverwrite);
  EXPECT_FALSE(settings.countIn);
  EXPECT_TRUE(settings.uniqueNames);
}

TEST_F(OptionScan, QuietSilencesTheOutput) {
  EXPECT_EQ(scan({"-Quiet"}), std::nullopt);
  EXPECT_TRUE(console.quietMode);
  EXPECT_EQ(std::cout.rdbuf(), nullptr);
}

TEST_F(OptionScan, LogDoesNothingInTheScan) {
  EXPECT_EQ(scan({"-log", "-LOGFILE"}), std::nullopt);
  EXPECT_FALSE(console.logMode);
  EXPECT_EQ(captured.out(), "");
}

TEST_F(OptionScan, HelpPrintsTheUsageAndEndsTheRun) {
  for (std::string help : {"-?", "-help", "-HELP"}) {
    CapturedConsole own;
    EXPECT_EQ(scan({"-noprompt", help, "-garbage", "-unique"}), 0) << help;
    EXPECT_THAT(own.out(), StartsWith("Usage :\n"));
    EXPECT_FALSE(settings.promptOverwrite) << "what stood before has its effect";
    EXPECT_FALSE(settings.uniqueNames) << "what follows is not looked at";
  }
}

TEST_F(OptionScan, UnknownOneEndsTheRunWithoutTheUsage) {
  for (std::string bad : {"-", "-garbage", "-helpme", "-?x", "-noprom", "-nocounti", "-uniqu",
                          "-lo", "--x", "-no", "-hel"}) {
    CapturedConsole own;
    EXPECT_EQ(scan({bad, "-noprompt"}), 1) << bad;
    EXPECT_EQ(own.out(), "Error : Invalid option \"" + bad + "\"\n");
    EXPECT_TRUE(settings.promptOverwrite);
    EXPECT_EQ(console.m_nErrorCount, 1);
  }
}

TEST_F(OptionScan, UnknownOneInAQuietRunIsDroppedAndTheStreamRestored) {
  EXPECT_EQ(scan({"-q", "-garbage"}), 1);
  EXPECT_EQ(captured.out(), "");
  EXPECT_EQ(console.m_nErrorCount, 0);
  EXPECT_EQ(std::cout.rdbuf(), captured.outBuffer());
}

TEST_F(OptionScan, LaterAssignmentReplacesAnEarlierOne) {
  EXPECT_EQ(scan({"a.xsd", "-x", "b.xsd"}), std::nullopt);
  EXPECT_EQ(settings.schemaFile, "b.xsd");
  EXPECT_EQ(settings.givenName, "a.xsd");
  EXPECT_EQ(scan({"-x", "b.xsd", "a.xsd"}), std::nullopt);
  EXPECT_EQ(settings.schemaFile, "a.xsd");
  EXPECT_EQ(scan({"-p", "one", "-p", "two"}), std::nullopt);
  EXPECT_EQ(settings.dataPrefix, "two");
}

TEST_F(OptionScan, ValueMayLookLikeAnOption) {
  EXPECT_EQ(scan({"-c", "-log", "-p", "-", "a.cbl"}), std::nullopt);
  EXPECT_EQ(settings.copybookFile, "-log");
  EXPECT_EQ(settings.dataPrefix, "-");
  EXPECT_EQ(settings.sourceFile, "a.cbl");
}

TEST_F(OptionScan, IncompleteOneIsReportedAndTheRunGoesOn) {
  EXPECT_EQ(scan({"-c"}), std::nullopt);
  EXPECT_EQ(captured.out(), "Error : Ignoring incomplete command-line option \"-c\"\n");
  EXPECT_EQ(console.m_nErrorCount, 1);
  EXPECT_EQ(settings.copybookFile, "");
}

TEST_F(Validation, OfADocumentOrASchema) {
  EXPECT_EQ(scan({"-v", "a.xml"}), std::nullopt);
  EXPECT_EQ(settings.run, Run::validation);
  EXPECT_EQ(settings.givenName, "a.xml");
  EXPECT_EQ(settings.xmlFile, "a.xml");
  EXPECT_EQ(settings.schemaFile, "");
  EXPECT_EQ(scan({"-va.XSD"}), std::nullopt);
  EXPECT_EQ(settings.schemaFile, "a.XSD");
  EXPECT_EQ(settings.run, Run::validation);
}

TEST_F(Validation, EndsTheScan) {
  EXPECT_EQ(scan({"-v", "a.xml", "-garbage", "-noprompt", "b.cbl"}), std::nullopt);
  EXPECT_EQ(captured.out(), "");
  EXPECT_TRUE(settings.promptOverwrite);
}

TEST_F(Validation, KeepsTheEffectOfEarlierArguments) {
  EXPECT_EQ(scan({"-noprompt", "a.xsd", "-v", "b.xml"}), std::nullopt);
  EXPECT_FALSE(settings.promptOverwrite);
  EXPECT_EQ(settings.givenName, "b.xml");
  EXPECT_EQ(settings.schemaFile, "a.xsd");
  EXPECT_EQ(settings.xmlFile, "b.xml");
  EXPECT_EQ(settings.run, Run::validation);
}

TEST_F(Validation, OfAnotherKindEndsTheRunWithoutTheUsage) {
  for (std::string argument : {"-va.txt", "-value", "-va.cbl", "-vxsd"}) {
    CapturedConsole own;
    EXPECT_EQ(scan({argument}), 1);
    EXPECT_EQ(own.out(), "Error : Unrecognized file type \"" + argument.substr(2) + "\"\n");
    EXPECT_EQ(settings.run, Run::none);
  }
}

TEST_F(Validation, WithoutANameIsIncompleteAndUnrecognized) {
  EXPECT_EQ(scan({"-v"}), 1);
  EXPECT_EQ(captured.out(),
            "Error : Ignoring incomplete command-line option \"-v\"\n"
            "Error : Unrecognized file type \"\"\n");
}

TEST_F(Validation, WithoutANameFallsBackOnAnEarlierOne) {
  EXPECT_EQ(scan({"a.xsd", "-v"}), std::nullopt);
  EXPECT_EQ(captured.out(), "Error : Ignoring incomplete command-line option \"-v\"\n");
  EXPECT_EQ(settings.run, Run::validation);
  EXPECT_EQ(settings.schemaFile, "a.xsd");
}

}  // namespace
}  // namespace fdmorph

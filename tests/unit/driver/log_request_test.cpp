// Which arguments open the log.

#include <gtest/gtest.h>

#include <iostream>

#include "driver/command_line.h"
#include "support/arguments.h"
#include "support/captured_console.h"
#include "support/temporary_folder.h"
#include "text/console.h"

namespace fdmorph {
namespace {

class LogRequest : public ConsoleTest {
 protected:
  bool opensLog(std::initializer_list<std::string> list) {
    CapturedConsole own;
    Arguments arguments(list);
    EXPECT_TRUE(openRequestedLog(arguments.count(), arguments.values()));
    EXPECT_EQ(folder.has("fdmorph.log"), console.logMode);
    bool const isOpen = console.logMode;
    RestoreStreams();
    std::filesystem::remove("fdmorph.log");
    return isOpen;
  }

  WorkingFolder folder;
};

TEST_F(LogRequest, IsAnArgumentThatBeginsWithLog) {
  EXPECT_TRUE(opensLog({"-LOG"}));
  EXPECT_TRUE(opensLog({"a.xsd", "-log"}));
  EXPECT_TRUE(opensLog({"-LOGFILE"}));
  EXPECT_TRUE(opensLog({"-Logging", "a.xsd"}));
}

TEST_F(LogRequest, IsNothingElse) {
  EXPECT_FALSE(opensLog({}));
  EXPECT_FALSE(opensLog({"-lo", "log", "--log", "a.log", "-q"}));
}

TEST_F(LogRequest, AfterAFileOptionIsAFileName) {
  for (std::string option : {"-C", "-c", "-X", "-x", "-M", "-m", "-D", "-d"}) {
    EXPECT_FALSE(opensLog({option, "-log", "a.cbl"})) << option;
  }
}

TEST_F(LogRequest, AfterOtherOptionsCounts) {
  EXPECT_TRUE(opensLog({"-p", "-log", "a.cbl"}));
  EXPECT_TRUE(opensLog({"-v", "-log"}));
  EXPECT_TRUE(opensLog({"-noprompt", "-log"}));
}

TEST_F(LogRequest, AfterAFileOptionWithItsValueCounts) {
  EXPECT_TRUE(opensLog({"-cout.cpy", "-log"}));
  EXPECT_TRUE(opensLog({"-cx", "-log"}));
}

TEST_F(LogRequest, ShieldedOneDoesNotHideALaterOne) {
  EXPECT_TRUE(opensLog({"-c", "-log", "-log"}));
  EXPECT_TRUE(opensLog({"-c", "-log", "a.cbl", "-LOG"}));
}

TEST_F(LogRequest, BannerIsTheFirstOfTheLog) {
  console.headerShown = false;
  Arguments arguments{"-log"};
  EXPECT_TRUE(openRequestedLog(arguments.count(), arguments.values()));
  RestoreStreams();
  EXPECT_EQ(folder.read("fdmorph.log").substr(0, 29), "Tallmere FDMORPH Version 1.0\n");
  EXPECT_EQ(captured.out(), "");
}

TEST_F(LogRequest, IsRefusedIfAnArgumentNamesTheFile) {
  folder.write("fdmorph.log", "mine");
  std::filesystem::create_hard_link("fdmorph.log", "a.xsd");
  for (std::string argument : {"a.xsd", "./a.xsd", "-ca.xsd", "fdmorph.log"}) {
    CapturedConsole own;
    Arguments arguments{argument, "-log"};
    EXPECT_FALSE(openRequestedLog(arguments.count(), arguments.values())) << argument;
    EXPECT_FALSE(console.logMode);
    EXPECT_EQ(own.out(), "Error : The log ./fdmorph.log is a file of the command line\n");
    EXPECT_EQ(folder.read("a.xsd"), "mine");
  }
}

TEST_F(LogRequest, WithoutOneThereIsNoBannerYet) {
  console.headerShown = false;
  Arguments arguments{"a.xsd"};
  EXPECT_TRUE(openRequestedLog(arguments.count(), arguments.values()));
  EXPECT_FALSE(console.headerShown);
}

}  // namespace
}  // namespace fdmorph

// Where formatted XML goes.

#include "xml/DMDOMFormatTarget.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iostream>
#include <string_view>

#include "support/captured_console.h"
#include "support/temporary_folder.h"
#include "text/console.h"

namespace fdmorph {
namespace {

class FormatTarget : public ConsoleTest {
 protected:
  static void write(CDMDOMFormatTarget& target, std::string_view text) {
    target.writeChars(reinterpret_cast<XMLByte const*>(text.data()), text.size(), nullptr);
  }

  TemporaryFolder folder;
  std::ofstream file{folder.path("a.xml")};
};

TEST_F(FormatTarget, WritesToTheOutputStream) {
  CDMDOMFormatTarget target;
  write(target, "<a/>");
  EXPECT_EQ(captured.out(), "<a/>");
}

TEST_F(FormatTarget, WritesExactlyTheBytesThatItIsGiven) {
  CDMDOMFormatTarget target;
  write(target, std::string_view("a\0b", 3));
  EXPECT_EQ(captured.out(), std::string("a\0b", 3));
}

TEST_F(FormatTarget, FileTakesEverythingOnTheOutputStream) {
  CDMDOMFormatTarget target;
  target.setTarget(file);
  write(target, "<a/>");
  out() << "text";
  target.restoreTarget();
  file.close();
  EXPECT_EQ(folder.read("a.xml"), "<a/>text");
  EXPECT_EQ(captured.out(), "");
}

TEST_F(FormatTarget, RestoreGivesTheBufferOfTheConstructionBack) {
  CDMDOMFormatTarget target;
  target.setTarget(file);
  target.restoreTarget();
  write(target, "<b/>");
  EXPECT_EQ(captured.out(), "<b/>");
}

TEST_F(FormatTarget, QuietRunDropsConsoleOutputAndWritesTheFile) {
  beginQuietMode();
  CDMDOMFormatTarget target;
  write(target, "dropped");
  target.setTarget(file);
  write(target, "kept");
  target.restoreTarget();
  EXPECT_EQ(std::cout.rdbuf(), nullptr);
  file.close();
  EXPECT_EQ(folder.read("a.xml"), "kept");
  EXPECT_EQ(captured.out(), "");
}

}  // namespace
}  // namespace fdmorph

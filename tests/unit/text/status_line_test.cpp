// The line that shows what a run is at: when it is drawn, what it says, and how it goes.

#include "text/status_line.h"

#include <gtest/gtest.h>

#include <clocale>
#include <sstream>
#include <string>
#include <utility>

#include "text/terminal_filter.h"

namespace fdmorph {
namespace {

using std::chrono::milliseconds;

// What the line reaches by plain functions.
std::string drawn;
StatusLine::Duration clockTime{};
unsigned terminalColumns = 80;

/// A line on a terminal of 80 columns that keeps what is drawn.
class StatusLineTest : public testing::Test {
 protected:
  StatusLineTest() {
    std::setlocale(LC_ALL, "C.UTF-8");
    drawn.clear();
    clockTime = milliseconds(5000);
    terminalColumns = 80;
  }
  ~StatusLineTest() override { std::setlocale(LC_ALL, "C"); }

  static void start(StatusLine& line) {
    line.start({[](std::string_view text) { drawn += text; }, [] { return clockTime; },
                [] { return terminalColumns; }});
  }

  void start() { start(m_line); }

  // Starts the line and lets a second pass.
  void startAndWait() {
    start();
    clockTime += milliseconds(1000);
  }

  // What has been drawn since the last call.
  static std::string takeDrawn() { return std::exchange(drawn, {}); }

  StatusLine m_line;
};

std::string shown(std::string const& text) {
  return "\r" + text + "\x1b[K";
}

constexpr char kCleared[] = "\r\x1b[K";

TEST_F(StatusLineTest, IsNotDrawnUnlessStarted) {
  clockTime += milliseconds(5000);
  m_line.beginStep("checking", "a.xsd", StepUnit::files);
  m_line.count(StepUnit::files);
  m_line.poll();
  m_line.hide();
  m_line.end();
  EXPECT_EQ(drawn, "");
}

TEST_F(StatusLineTest, IsNotDrawnInTheFirstSecond) {
  start();
  m_line.beginStep("checking", "a.xsd", StepUnit::files);
  clockTime += milliseconds(999);
  m_line.poll();
  m_line.end();
  EXPECT_EQ(drawn, "");
}

TEST_F(StatusLineTest, ShowsTheStepFromTheSecondSecondOn) {
  start();
  m_line.beginStep("checking", "a.xsd", StepUnit::files);
  clockTime += milliseconds(1000);
  m_line.poll();
  EXPECT_EQ(drawn, shown("fdmorph: checking a.xsd, 1 s"));
}

TEST_F(StatusLineTest, ShowsAStepThatBeginsLater) {
  startAndWait();
  m_line.beginStep("converting", "Order", StepUnit::items, " (2 of 5)");
  EXPECT_EQ(drawn, shown("fdmorph: converting Order (2 of 5), 1 s"));
}

TEST_F(StatusLineTest, IsDrawnFiveTimesASecond) {
  startAndWait();
  m_line.beginStep("converting", "Order", StepUnit::items);
  takeDrawn();
  m_line.count(StepUnit::items, 41);
  clockTime += milliseconds(199);
  m_line.poll();
  EXPECT_EQ(drawn, "");
  clockTime += milliseconds(1);
  m_line.count(StepUnit::items);
  EXPECT_EQ(drawn, shown("fdmorph: converting Order, 42 items, 1 s"));
}

TEST_F(StatusLineTest, CountsTheUnitOfTheStepOnly) {
  startAndWait();
  m_line.beginStep("checking", "a.xsd", StepUnit::files);
  m_line.count(StepUnit::bytes, 1000);
  m_line.count(StepUnit::files);
  takeDrawn();
  clockTime += milliseconds(200);
  m_line.poll();
  EXPECT_EQ(takeDrawn(), shown("fdmorph: checking a.xsd, 1 file, 1 s"));
  clockTime += milliseconds(200);
  m_line.count(StepUnit::files, 2);
  EXPECT_EQ(takeDrawn(), shown("fdmorph: checking a.xsd, 3 files, 1 s"));
}

TEST_F(StatusLineTest, CountsEachStepAnew) {
  startAndWait();
  m_line.beginStep("converting", "A", StepUnit::items);
  m_line.count(StepUnit::items, 3);
  takeDrawn();
  clockTime += milliseconds(200);
  m_line.beginStep("converting", "B", StepUnit::items);
  EXPECT_EQ(drawn, shown("fdmorph: converting B, 1 s"));
}

TEST_F(StatusLineTest, ShowsTheSecondsOfTheRun) {
  start();
  clockTime += milliseconds(61'900);
  m_line.beginStep("checking", "a.xsd", StepUnit::files);
  EXPECT_EQ(drawn, shown("fdmorph: checking a.xsd, 61 s"));
}

TEST_F(StatusLineTest, LooksAtTheClockRarelyIfAsked) {
  startAndWait();
  m_line.beginStep("checking", "a.xsd", StepUnit::files);
  takeDrawn();
  clockTime += milliseconds(1000);
  for (int i = 0; i < 255; ++i) m_line.pollRarely();
  EXPECT_EQ(drawn, "");
  m_line.pollRarely();
  EXPECT_EQ(drawn, shown("fdmorph: checking a.xsd, 2 s"));
}

TEST_F(StatusLineTest, ShowsBytesInMillions) {
  startAndWait();
  m_line.beginStep("reading", "a.xml", StepUnit::bytes);
  takeDrawn();
  clockTime += milliseconds(200);
  m_line.count(StepUnit::bytes, 12'340'000);
  EXPECT_EQ(drawn, shown("fdmorph: reading a.xml, 12.3 MB, 1 s"));
}

TEST_F(StatusLineTest, IsClearedOnce) {
  startAndWait();
  m_line.beginStep("reading", "a.xml", StepUnit::bytes);
  takeDrawn();
  m_line.hide();
  EXPECT_EQ(takeDrawn(), kCleared);
  m_line.hide();
  m_line.end();
  EXPECT_EQ(drawn, "");
}

TEST_F(StatusLineTest, IsClearedAtTheEndOfTheRun) {
  startAndWait();
  m_line.beginStep("reading", "a.xml", StepUnit::bytes);
  takeDrawn();
  m_line.end();
  EXPECT_EQ(takeDrawn(), kCleared);
  clockTime += milliseconds(5000);
  m_line.poll();
  EXPECT_EQ(drawn, "");
}

TEST_F(StatusLineTest, IsNotDrawnAfterATextWithoutAnEnd) {
  startAndWait();
  m_line.noteText(false);
  m_line.beginStep("reading", "a.xml", StepUnit::bytes);
  EXPECT_EQ(takeDrawn(), "");
  m_line.noteText(true);
  m_line.poll();
  EXPECT_EQ(drawn, shown("fdmorph: reading a.xml, 1 s"));
}

TEST_F(StatusLineTest, IsNotDrawnWhileItIsSuspended) {
  startAndWait();
  m_line.beginStep("reading", "a.xml", StepUnit::bytes);
  takeDrawn();
  {
    StatusLine::Suspension const suspension(m_line);
    EXPECT_EQ(takeDrawn(), kCleared);
    clockTime += milliseconds(5000);
    m_line.poll();
    EXPECT_EQ(takeDrawn(), "");
  }
  m_line.poll();
  EXPECT_EQ(drawn, shown("fdmorph: reading a.xml, 6 s"));
}

TEST_F(StatusLineTest, IsClearedInTheBackground) {
  startAndWait();
  m_line.beginStep("reading", "a.xml", StepUnit::bytes);
  takeDrawn();
  terminalColumns = 0;
  clockTime += milliseconds(200);
  m_line.poll();
  EXPECT_EQ(drawn, kCleared);
}

TEST_F(StatusLineTest, LeavesTheLastColumnFree) {
  std::string const whole = "fdmorph: converting PurchaseOne (1 of 2), 1 s";
  startAndWait();
  terminalColumns = static_cast<unsigned>(whole.size()) + 1;
  m_line.beginStep("converting", "PurchaseOne", StepUnit::items, " (1 of 2)");
  EXPECT_EQ(takeDrawn(), shown(whole));
  terminalColumns = static_cast<unsigned>(whole.size());
  clockTime += milliseconds(200);
  m_line.poll();
  EXPECT_EQ(drawn, shown("fdmorph: converting Purchas... (1 of 2), 1 s"));
}

TEST_F(StatusLineTest, IsCutAsAWholeIfThereIsNoRoomForTheName) {
  startAndWait();
  terminalColumns = 25;
  m_line.beginStep("converting", "PurchaseOrder", StepUnit::items, " (1 of 2)");
  EXPECT_EQ(drawn, shown("fdmorph: converting P..."));
}

TEST_F(StatusLineTest, IsNotDrawnOnATerminalOfAFewColumns) {
  startAndWait();
  terminalColumns = 19;
  m_line.beginStep("converting", "Order", StepUnit::items);
  EXPECT_EQ(drawn, "");
}

TEST_F(StatusLineTest, IsClearedBeforeTextOfAStreamOnATerminal) {
  start(statusLine);
  clockTime += milliseconds(1000);
  statusLine.beginStep("reading", "a.xml", StepUnit::bytes);
  takeDrawn();
  std::stringbuf screen;
  TerminalFilter filter(screen);
  std::ostream stream(&filter);
  stream << "a text";
  EXPECT_EQ(takeDrawn(), kCleared);
  clockTime += milliseconds(200);
  statusLine.poll();
  EXPECT_EQ(takeDrawn(), "");
  stream << '\n';
  statusLine.poll();
  EXPECT_EQ(takeDrawn(), shown("fdmorph: reading a.xml, 1 s"));
  stream.flush();  // may write what the target holds
  EXPECT_EQ(takeDrawn(), kCleared);
  statusLine.end();
}

TEST_F(StatusLineTest, ShowsATextThatFits) {
  EXPECT_EQ(fittedText("abcde", 5), "abcde");
}

TEST_F(StatusLineTest, CutsAtACharacter) {
  EXPECT_EQ(fittedText("\u00e4\u00f6\u00fc\u00df\u00e9", 5), "\u00e4\u00f6\u00fc\u00df\u00e9");
  EXPECT_EQ(fittedText("\u00e4\u00f6\u00fc\u00df\u00e9", 4), "\u00e4...");
  EXPECT_EQ(fittedText("abcdef", 2), "..");
}

// U+6CE8 and U+6587 take two columns each.
TEST_F(StatusLineTest, CountsColumns) {
  EXPECT_EQ(fittedText("\u6ce8\u6587", 4), "\u6ce8\u6587");
  EXPECT_EQ(fittedText("\u6ce8\u6587\u6ce8\u6587", 7), "\u6ce8\u6587...");
  EXPECT_EQ(fittedText("\u6ce8\u6587\u6ce8\u6587", 6), "\u6ce8...");
}

TEST_F(StatusLineTest, ShowsWhatATerminalWouldObeyAsQuestionMarks) {
  EXPECT_EQ(fittedText("a\x1b[2J\u009bm\n", 20), "a?[2J?m?");
  EXPECT_EQ(fittedText("a\xff\xc3", 20), "a??");
}

}  // namespace
}  // namespace fdmorph

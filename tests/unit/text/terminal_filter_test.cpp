// What a terminal gets instead of control characters (ECMA-48).

#include <gtest/gtest.h>

#include <clocale>
#include <ostream>
#include <sstream>
#include <string>

#include "text/terminal_filter.h"

namespace fdmorph {
namespace {

class InLocale {
 public:
  explicit InLocale(char const* name) : m_isSet(std::setlocale(LC_ALL, name) != nullptr) {}
  ~InLocale() { std::setlocale(LC_ALL, "C"); }
  InLocale(InLocale const&) = delete;
  InLocale& operator=(InLocale const&) = delete;
  bool isSet() const { return m_isSet; }

 private:
  bool m_isSet;
};

class Terminal : public testing::Test {
 protected:
  std::string shown(std::string const& text) {
    stream << text << std::flush;
    return std::exchange(screen, std::stringbuf()).str();
  }

  std::stringbuf screen;
  TerminalFilter filter{screen};
  std::ostream stream{&filter};
};

TEST_F(Terminal, PlainTextPasses) {
  EXPECT_EQ(shown("Error : a \"b\" ~\n\tc\n"), "Error : a \"b\" ~\n\tc\n");
}

TEST_F(Terminal, EscapeAndOtherControlCharactersAreQuestionMarks) {
  EXPECT_EQ(shown("a\x1b[31mb\rc\bd\ae\x7f"
                  "f"),
            "a?[31mb?c?d?e?f");
}

TEST_F(Terminal, NulIsAQuestionMark) {
  EXPECT_EQ(shown(std::string("a\0b", 3)), "a?b");
}

TEST_F(Terminal, BytesOfC1AreQuestionMarksInTheLocaleC) {
  EXPECT_EQ(shown("a\x80"
                  "b\x9b"
                  "c\x9f"
                  "d\xa0"
                  "e"),
            "a?b?c?d\xa0"
            "e");
}

TEST_F(Terminal, C1CharactersAreOneQuestionMarkInUtf8) {
  InLocale utf8("C.UTF-8");
  ASSERT_TRUE(utf8.isSet());
  EXPECT_EQ(shown("a\xc2\x9b"
                  "b\xc2\x80"
                  "c"),
            "a?b?c");
}

TEST_F(Terminal, LettersOfUtf8Pass) {
  InLocale utf8("C.UTF-8");
  ASSERT_TRUE(utf8.isSet());
  // The second bytes of these are those of C1.
  EXPECT_EQ(shown("\xc3\x9b \xe2\x82\xac \xf0\x9f\x98\x80\n"),
            "\xc3\x9b \xe2\x82\xac \xf0\x9f\x98\x80\n");
}

TEST_F(Terminal, StrayC1BytesAreQuestionMarksInUtf8) {
  InLocale utf8("C.UTF-8");
  ASSERT_TRUE(utf8.isSet());
  EXPECT_EQ(shown("a\x9b"
                  "b\xe2\x82"
                  "c\xff"),
            "a?b\xe2?c\xff");
}

TEST_F(Terminal, AControlCharacterEndsACharacterThatIsNotComplete) {
  InLocale utf8("C.UTF-8");
  ASSERT_TRUE(utf8.isSet());
  EXPECT_EQ(shown("\xe2\x82\x1b[0m"), "\xe2??[0m");
}

TEST_F(Terminal, ACharacterBeginsAfterOneThatIsNotComplete) {
  InLocale utf8("C.UTF-8");
  ASSERT_TRUE(utf8.isSet());
  EXPECT_EQ(shown("\xe2\xc3\x9b!"), "\xe2\xc3\x9b!");
}

TEST_F(Terminal, ACharacterMayComeInPieces) {
  InLocale utf8("C.UTF-8");
  ASSERT_TRUE(utf8.isSet());
  stream << "\xc3";
  stream.put('\x9b');
  EXPECT_EQ(shown("."), "\xc3\x9b.");
}

TEST_F(Terminal, AnIncompleteCharacterComesOutWithTheFlush) {
  InLocale utf8("C.UTF-8");
  ASSERT_TRUE(utf8.isSet());
  EXPECT_EQ(shown("\xf0\x9f"), "\xf0?");
}

// The state of the stream shows that text was lost.
TEST(LostText, MakesTheStreamBad) {
  struct Full : std::streambuf {
  } full;
  TerminalFilter filter(full);
  std::ostream stream(&filter);
  stream << "a";
  EXPECT_TRUE(stream.bad());
}

}  // namespace
}  // namespace fdmorph

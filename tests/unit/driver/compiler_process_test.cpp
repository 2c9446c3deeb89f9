// Names in the shell command that runs the compiler.

#include "driver/compiler_process.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace fdmorph {
namespace {

/// The words that a shell makes of `text`, one on a line.
std::string wordsOf(std::string const& text) {
  std::FILE* pipe = popen(("printf '%s\\n' " + text).c_str(), "r");
  std::string words;
  for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe)) words += static_cast<char>(c);
  pclose(pipe);
  return words;
}

TEST(ShellWord, OfLettersDigitsDotUnderscoreSlashAndHyphenIsTheName) {
  EXPECT_EQ(shellWord("../sub_1/My-file.cbl"), "../sub_1/My-file.cbl");
}

TEST(ShellWord, WithBlanksKeepsItsDoubleQuotes) {
  EXPECT_EQ(shellWord("\"my file.cbl\""), "\"my file.cbl\"");
}

TEST(ShellWord, WithAnythingElseIsInSingleQuotes) {
  EXPECT_EQ(shellWord("a$b"), "'a$b'");
  EXPECT_EQ(shellWord("\"a $b\""), "'a $b'");
}

TEST(ShellWord, IsOneWordThatIsTheName) {
  for (std::string name :
       {"a;b", "a$HOME", "`id`", "$(id)", "a'b", "''", "a\\b", "a\tb", "a\nb", "~", "*", "#a", "a&",
        "a|b>c<d", "!", "\xC3\xBC", "a=b", "{a,b}", "(a)"}) {
    EXPECT_EQ(wordsOf(shellWord(name)), name + "\n");
    std::string const withBlank = "my " + name;
    EXPECT_EQ(wordsOf(shellWord("\"" + withBlank + "\"")), withBlank + "\n");
  }
}

}  // namespace
}  // namespace fdmorph

// COPY with REPLACING, and REPLACE.

#include <gtest/gtest.h>

#include "support/compiled_source.h"

namespace fdmorph::compiler {
namespace {

class Replacing : public testing::Test {
 protected:
  /// Compiles `main` with the member M.
  std::string copy(std::string_view main, std::string_view member) {
    tree.files["a.cpy"] = fixed(main);
    tree.files["M.cpy"] = fixed(member);
    result = compile(tree);
    return result.dictionary;
  }

  MemoryTree tree;
  CompilationResult result;
};

TEST_F(Replacing, CompletesWordsByTags) {
  std::string dictionary =
      copy("COPY M REPLACING ==:T:== BY ==CUST==.", "01 :T:-A PIC X.\n01 B-:T:-C PIC X.");
  EXPECT_TRUE(attributeOf(dictionary, "CUST-A", "length"));
  EXPECT_TRUE(attributeOf(dictionary, "B-CUST-C", "length"));
}

TEST_F(Replacing, LeavesLongerWordsAlone) {
  std::string dictionary = copy("COPY M REPLACING A BY B.", "01 A PIC X(2).\n01 A-A PIC X(3).");
  EXPECT_EQ(attributeOf(dictionary, "B", "length"), "2");
  EXPECT_EQ(attributeOf(dictionary, "A-A", "length"), "3");
}

TEST_F(Replacing, FindsWordsOfAPictureBetweenItsParentheses) {
  std::string dictionary = copy("COPY M REPLACING X BY 9.",
                                "01 A PIC X(2).\n01 B PIC X.\n01 C PIC XX.\n01 D PIC A(2)X.");
  EXPECT_EQ(attributeOf(dictionary, "A", "picture"), "9(2)");
  EXPECT_EQ(attributeOf(dictionary, "B", "picture"), "9");
  EXPECT_EQ(attributeOf(dictionary, "C", "picture"), "XX");
  EXPECT_EQ(attributeOf(dictionary, "D", "picture"), "A(2)9");
}

TEST_F(Replacing, ReachesIntoThePartsOfAPicture) {
  std::string dictionary = copy("COPY M REPLACING ==9(3)== BY ==9(4)== ==:N:== BY ==7==.",
                                "01 A PIC 9(3)V99.\n01 B PIC X(:N:).");
  EXPECT_EQ(attributeOf(dictionary, "A", "picture"), "9(4)V99");
  EXPECT_EQ(attributeOf(dictionary, "B", "picture"), "X(7)");
}

TEST_F(Replacing, ChangesPartsOfWords) {
  std::string dictionary = copy(
      "COPY M REPLACING LEADING ==A-== BY ==B-==\n"
      "TRAILING ==-X== BY ====.",
      "01 A-C PIC X.\n01 D-X PIC X.");
  EXPECT_TRUE(attributeOf(dictionary, "B-C", "length"));
  EXPECT_TRUE(attributeOf(dictionary, "D", "length"));
}

TEST_F(Replacing, TakesTheFirstThatFits) {
  std::string dictionary =
      copy("COPY M REPLACING ==PIC X== BY ==PIC 9== ==PIC== BY ==PICTURE A==.", "01 A PIC X.");
  EXPECT_EQ(attributeOf(dictionary, "A", "picture"), "9");
}

TEST_F(Replacing, DoesNotReplaceWhatItReplaced) {
  std::string dictionary = copy("COPY M REPLACING A BY B, B BY A.", "01 A PIC X.\n01 B PIC XX.");
  EXPECT_EQ(attributeOf(dictionary, "B", "length"), "1");
  EXPECT_EQ(attributeOf(dictionary, "A", "length"), "2");
}

TEST_F(Replacing, ReachesNestedMembers) {
  tree.files["N.cpy"] = fixed("01 :T:-N PIC X.");
  EXPECT_TRUE(attributeOf(copy("COPY M REPLACING ==:T:== BY ==Q==.", "COPY N."), "Q-N", "length"));
}

TEST_F(Replacing, HoldsFromReplaceToReplaceOff) {
  std::string dictionary =
      copy("REPLACE ==P== BY ==PIC XX==.\n01 A P.\nREPLACE OFF.\n01 P PIC X.", "");
  EXPECT_EQ(attributeOf(dictionary, "A", "length"), "2");
  EXPECT_EQ(attributeOf(dictionary, "P", "length"), "1");
}

TEST_F(Replacing, ReportsAMemberThatCopiesItself) {
  copy("COPY M.", "COPY M.");
  EXPECT_EQ(result.diagnostics,
            "M.cpy:1:13: error: copy member 'M.cpy' copies itself [copy-circle]\n"
            "         COPY M.\n"
            "              ^\n"
            "a.cpy:1:13: note: copied from here\n");
}

TEST_F(Replacing, FindsMembersOfALibraryAndInAnyCase) {
  tree.files["lib/part.CPY"] = fixed("01 A PIC X.");
  EXPECT_TRUE(attributeOf(copy("COPY PART OF LIB.", ""), "A", "length"));
}

TEST_F(Replacing, PassesEmbeddedStatementsOver) {
  std::string dictionary =
      copy("EXEC SQL DECLARE C CURSOR FOR SELECT 'x' END-EXEC.\nEXEC SQL INCLUDE M END-EXEC.",
           "01 A PIC X.");
  EXPECT_EQ(result.diagnostics, "");
  EXPECT_TRUE(attributeOf(dictionary, "A", "length"));
}

TEST_F(Replacing, KeepsItsOrderAmongTextsOfAnyForm) {
  // A word, the beginning of a word, and several words: the first that fits.
  std::string dictionary =
      copy("COPY M REPLACING LEADING ==A== BY ==P== ==A-B PIC== BY ==Q PIC==.", "01 A-B PIC X.");
  EXPECT_TRUE(attributeOf(dictionary, "P-B", "length"));
  dictionary = copy("COPY M REPLACING ==A-B PIC== BY ==Q PIC== LEADING ==A== BY ==P==.",
                    "01 A-B PIC X.\n01 A-C PIC X.");
  EXPECT_TRUE(attributeOf(dictionary, "Q", "length"));
  EXPECT_TRUE(attributeOf(dictionary, "P-C", "length"));
  dictionary = copy("COPY M REPLACING A BY B ==A PIC== BY ==C PIC==.", "01 A PIC X.");
  EXPECT_TRUE(attributeOf(dictionary, "B", "length"));
  dictionary = copy("COPY M REPLACING ==A PIC== BY ==C PIC== A BY B.",
                    "01 A PIC X.\n01 A-1.\n 05 A COMP-1.");
  EXPECT_TRUE(attributeOf(dictionary, "C", "length"));
  EXPECT_TRUE(attributeOf(dictionary, "B", "length"));
}

TEST_F(Replacing, TakesACommaInAPictureForWhatItIs) {
  std::string dictionary =
      copy("COPY M REPLACING ==PIC ZZZ,ZZ9== BY ==PIC X(20)==.", "01 A PIC ZZZ,ZZ9.");
  EXPECT_EQ(attributeOf(dictionary, "A", "picture"), "X(20)");
}

TEST_F(Replacing, SeesSeparatorsBetweenWordsAsBlanks) {
  std::string dictionary = copy("COPY M REPLACING ==A PIC== BY ==B PIC==.", "01 A , PIC X.");
  EXPECT_TRUE(attributeOf(dictionary, "B", "length"));
}

TEST_F(Replacing, MayHaveSeparatorsBetweenItsOperands) {
  std::string dictionary = copy("COPY M, REPLACING, ==A==, BY; ==B==, LEADING, ==C-== BY ==D-==.",
                                "01 A PIC X.\n01 C-1 PIC X.");
  EXPECT_TRUE(attributeOf(dictionary, "B", "length"));
  EXPECT_TRUE(attributeOf(dictionary, "D-1", "length"));
}

TEST_F(Replacing, EndsTextThatGrowsWithoutBound) {
  // Each of 2,000 words would be replaced by 2,000 literals: 200 MB.
  std::string to;
  for (int i = 0; i < 2000; ++i) to += "\"" + std::string(50, 'x') + "\"\n";
  std::string from = "01 A PIC X(50).\n 88 B VALUES\n";
  for (int i = 0; i < 2000; ++i) from += "TEXT\n";
  copy("COPY M REPLACING TEXT BY ==\n" + to + "==.", from);
  EXPECT_EQ(result.status, kStatusError);
  EXPECT_NE(result.diagnostics.find("error: too much text is replaced [copy-limit]"),
            std::string::npos);
}

TEST_F(Replacing, EndsMembersThatAreCopiedTooOften) {
  // 40 copies of 1 MB; a single one may be as large as it likes.
  std::string copies;
  for (int i = 0; i < 40; ++i) copies += "COPY M.\n";
  std::string member = "01 A PIC X." + std::string(1 << 20, ' ');
  copy(copies, member);
  EXPECT_NE(result.diagnostics.find("error: too much text is copied [copy-limit]"),
            std::string::npos);
}

}  // namespace
}  // namespace fdmorph::compiler

#include "syntax/value_parser.h"

#include <gtest/gtest.h>

#include "source/literals.h"
#include "support/parsed_text.h"

namespace fdmorph::compiler {
namespace {

using Kind = Literal::Kind;

Literal textLiteral(std::string_view text) {
  Literal literal;
  literal.kind = Kind::text;
  literal.text = text;
  return literal;
}

/// The content of the literal in `source`, in which K is the constant "k"; or
/// what is reported of it.
std::string contentOf(std::string const& source) {
  ParsedText text(source);
  EXPECT_TRUE(text.constants.add("K", textLiteral("\"k\"")));
  std::optional<Literal> literal = text.values.parseLiteral();
  if (!literal || !text.reports().empty()) return text.reports();
  return literal->kind == Kind::text ? decodeLiteral(literal->text).text
                                     : std::string(literal->text);
}

TEST(Literal, MayBeANumberATextOrAConstant) {
  EXPECT_EQ(contentOf("-1.5"), "-1.5");
  EXPECT_EQ(contentOf("'a''b'"), "a'b");
  EXPECT_EQ(contentOf("k"), "k");
}

TEST(Literal, MayBeFigurative) {
  for (auto [word, kind] : {std::pair{"ZEROES", Kind::zero},
                            {"SPACE", Kind::space},
                            {"QUOTES", Kind::quote},
                            {"LOW-VALUE", Kind::lowValue},
                            {"HIGH-VALUES", Kind::highValue},
                            {"NULL", Kind::null}}) {
    ParsedText text(word);
    std::optional<Literal> literal = text.values.parseLiteral();
    ASSERT_TRUE(literal) << word;
    EXPECT_EQ(literal->kind, kind) << word;
  }
}

TEST(Literal, IsNoOtherWord) {
  ParsedText text("FOO");
  EXPECT_FALSE(text.values.parseLiteral());
  EXPECT_EQ(text.tokens.peek().text, "FOO");
  EXPECT_EQ(text.reports(), "");
}

TEST(Literal, MayBeAVariableOfConditionalCompilation) {
  ParsedText text("N T T");
  text.variables["N"] = {"5", true};
  text.variables["T"] = {"a\"b", false};
  std::optional<Literal> number = text.values.parseLiteral();
  ASSERT_TRUE(number);
  EXPECT_EQ(number->kind, Kind::number);
  EXPECT_EQ(number->text, "5");
  EXPECT_EQ(decodeLiteral(text.values.parseLiteral()->text).text, "a\"b");
  // A constant of the source hides it.
  EXPECT_TRUE(text.constants.add("T", textLiteral("'c'")));
  EXPECT_EQ(decodeLiteral(text.values.parseLiteral()->text).text, "c");
}

TEST(JoinedLiterals, AreOne) {
  EXPECT_EQ(contentOf("\"a\" & 'b' & X\"63\""), "abc");
  EXPECT_EQ(contentOf("\"a\" & K"), "ak");
  EXPECT_EQ(contentOf("K & \"a\" & k"), "kak");
  EXPECT_EQ(contentOf("\"a\" & SPACE & QUOTE & ZERO"), "a \"0");
  EXPECT_EQ(contentOf("SPACES & \"a\""), " a");
}

TEST(JoinedLiterals, MayHoldBytesThatNoTextStandsFor) {
  for (char const* source : {"\"a\" & HIGH-VALUE", "X\"FF\" & \"a\""}) {
    ParsedText text(source);
    EXPECT_TRUE(text.values.parseLiteral()->isBinary) << source;
  }
  ParsedText text("N\"a\" & SPACE");
  EXPECT_EQ(text.values.parseLiteral()->text, "N\"a \"");
}

TEST(JoinedLiterals, AreOfOneClass) {
  char const* report = "error: '&' joins literals of different classes [literal]\n";
  EXPECT_EQ(contentOf("\"a\" & N\"b\""), "1:7: " + std::string(report));
  EXPECT_EQ(contentOf("\"a\" & 5"), "1:7: " + std::string(report));
  EXPECT_EQ(contentOf("5 & \"a\""), "1:1: " + std::string(report));
  EXPECT_EQ(contentOf("\"a\" & FOO"),
            "1:7: error: expected a literal after '&', found 'FOO' [literal]\n");
}

TEST(Literal, IsChecked) {
  EXPECT_EQ(contentOf("\"a"), "1:1: error: literal has no closing quote [literal]\n");
  EXPECT_EQ(contentOf("X\"4\""), "1:1: error: invalid hexadecimal literal 'X\"4\"' [literal]\n");
  EXPECT_EQ(contentOf("ALL FOO"),
            "1:5: error: expected a literal after ALL, found 'FOO' [value]\n");
  EXPECT_NE(contentOf("\"" + std::string(8192, 'a') + "\"")
                .find("error: literal is longer than 8191 bytes [literal]"),
            std::string::npos);
}

TEST(Values, OfAConditionMayBeRanges) {
  ParsedText text("1 THRU 5, \"a\" & \"b\" 7\n8\n05 A");
  std::vector<ValueRange> values = text.values.parseValues(true);
  ASSERT_EQ(values.size(), 4);
  EXPECT_EQ(values[0].from.text, "1");
  EXPECT_EQ(values[0].to.text, "5");
  EXPECT_EQ(values[1].from.text, "\"ab\"");
  EXPECT_EQ(values[1].to.kind, Kind::none);
  EXPECT_EQ(values[3].from.text, "8");
  EXPECT_EQ(text.reports(), "");
}

TEST(Values, AreOneForAnItem) {
  ParsedText text("1 2");
  EXPECT_EQ(text.values.parseValues(false).size(), 1);
  EXPECT_EQ(text.tokens.peek().text, "2");
}

TEST(Values, AreExpected) {
  ParsedText none("FOO");
  EXPECT_TRUE(none.values.parseValues(false).empty());
  EXPECT_EQ(none.reports(), "1:1: error: expected a literal after VALUE, found 'FOO' [value]\n");
  ParsedText range("1 THRU .");
  EXPECT_EQ(range.values.parseValues(true).size(), 1);
  EXPECT_EQ(range.reports(), "1:8: error: expected a literal after THRU, found '.' [value]\n");
}

TEST(Integer, MayBeAConstant) {
  ParsedText text("5 N -1 K");
  Literal six;
  six.kind = Kind::number;
  six.text = "6";
  EXPECT_TRUE(text.constants.add("N", six));
  EXPECT_TRUE(text.constants.add("K", textLiteral("'k'")));
  EXPECT_EQ(text.values.parseInteger(), 5);
  EXPECT_EQ(text.values.parseInteger(), 6);
  EXPECT_EQ(text.values.parseInteger(), std::nullopt);
  EXPECT_EQ(text.tokens.take().text, "-1");
  EXPECT_EQ(text.values.parseInteger(), std::nullopt);
}

}  // namespace
}  // namespace fdmorph::compiler

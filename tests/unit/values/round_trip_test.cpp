// Values of all formats, decoded, encoded and decoded again, with a fixed seed.
#include <gtest/gtest.h>

#include <random>

#include "support/one_item.h"

namespace fdmorph::values {
namespace {

constexpr char const* kClauses[] = {
    "PIC X(7)",
    "PIC X(7) JUST",
    "PIC N(4)",
    "PIC 9(5)",
    "PIC S9(5)V99",
    "PIC S9(5) SIGN LEADING",
    "PIC S9(5) SIGN TRAILING SEPARATE",
    "PIC S9(5)V9 SIGN LEADING SEPARATE",
    "PIC S9(3)PPP",
    "PIC SVPP9(3)",
    "PIC 9(4) BLANK WHEN ZERO",
    "PIC S9(7)V99 COMP-3",
    "PIC S9(8) COMP-3",
    "PIC 9(8) COMP-3",
    "PIC 9(5) COMP-6",
    "PIC S9(4) COMP",
    "PIC 9(9) COMP",
    "PIC S9(9)V9(9) COMP",
    "PIC S99 COMP-5",
    "PIC 9(18) COMP-5",
    "PIC S9(7) COMP-X",
    "PIC S9(12)V9 COMP-N",
    "PIC X(3) COMP-X",
    "BINARY-CHAR",
    "BINARY-LONG UNSIGNED",
    "BINARY-DOUBLE",
    "COMP-1",
    "COMP-2",
    "PIC ZZ,ZZ9.99-",
    "PIC $$,$$9.99CR",
    "PIC +(5).99",
    "PIC *(5)9",
};

// What is read is written, and what is written is read as the same. Writing is
// canonical: the second time the bytes stay.
void checkItem(OneItem const& item, Bytes const& bytes) {
  std::string const text = item.textOf<Target::plain>(bytes);
  if (text.starts_with('[')) return;
  std::string const written = item.bytesOf(text);
  ASSERT_FALSE(written.starts_with('[')) << text << written;
  EXPECT_EQ(item.textOf<Target::plain>(hex(written)), text) << hexOf(bytes);
  EXPECT_EQ(item.bytesOf(item.textOf<Target::plain>(hex(written))), written);
}

// Bytes that often are digits, signs or blanks.
unsigned char likelyByte(std::mt19937& random, bool isZoned, unsigned char zero) {
  constexpr unsigned char kOthers[] = {0x40, 0x20, 0x00, 0xC1, 0xD1, 0x7B, 0x4A, 0x79, 0x2D, 0x60};
  if (random() % 8 == 0) return kOthers[random() % std::size(kOthers)];
  if (random() % 16 == 0) return static_cast<unsigned char>(random());
  if (isZoned) return static_cast<unsigned char>(zero + random() % 10);
  return static_cast<unsigned char>((random() % 10) * 16 + random() % 16);
}

class RoundTrip : public testing::TestWithParam<Conventions> {};

TEST_P(RoundTrip, OfBytesKeepsTheValue) {
  std::mt19937 random(4711);
  Conventions conventions = GetParam();
  conventions.hasEditedNumbers = true;
  auto const dialect =
      conventions.floats == FloatForm::ibm ? compiler::Dialect::ibm : compiler::Dialect::gnuCobol;
  for (char const* clauses : kClauses) {
    OneItem const item(clauses, conventions, dialect);
    bool const isZoned = item.format.kind == Kind::zoned || item.format.kind == Kind::text;
    for (int i = 0; i < 500; ++i) {
      Bytes bytes(item.format.size);
      for (unsigned char& each : bytes) {
        each = likelyByte(random, isZoned, conventions.codePage->zeroDigit());
      }
      checkItem(item, bytes);
    }
  }
}

TEST_P(RoundTrip, OfNumbersKeepsTheText) {
  std::mt19937 random(815);
  Conventions conventions = GetParam();
  conventions.hasEditedNumbers = true;
  unsigned written = 0;
  for (char const* clauses : kClauses) {
    OneItem const item(clauses, conventions);
    if (!item.format.isNumber() || item.format.kind == Kind::floating) continue;
    for (int i = 0; i < 300; ++i) {
      unsigned const limit = i % 3 == 0 ? 10 : i % 3 == 1 ? 100 : 100000;
      std::string text = (random() % 2 == 0 ? "-" : "") + std::to_string(random() % limit);
      if (random() % 2 == 0) text += "." + std::to_string(random() % 100);
      std::string const bytes = item.bytesOf(text);
      if (bytes.starts_with('[')) continue;
      ++written;
      EXPECT_EQ(compareDecimals(item.textOf(hex(bytes)), text), std::strong_ordering::equal)
          << clauses << " " << text;
    }
  }
  EXPECT_GT(written, 2000U);
}

INSTANTIATE_TEST_SUITE_P(All, RoundTrip,
                         testing::Values(ibm(), gnuCobol(),
                                         conventionsOf(compiler::Dialect::ibm, "latin-1"),
                                         conventionsOf(compiler::Dialect::gnuCobol, "cp1047")));

}  // namespace
}  // namespace fdmorph::values

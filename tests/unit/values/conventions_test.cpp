// The conventions of a dialect and an encoding.
#include "values/conventions.h"

#include <gtest/gtest.h>

namespace fdmorph::values {
namespace {

using compiler::Dialect;

ConventionsResult make(Dialect dialect, char const* encoding,
                       std::optional<SignTable> signs = std::nullopt) {
  return makeConventions(dialect, charset::CodePage::open(encoding).page, signs);
}

TEST(Conventions, OfIbm) {
  Conventions const conventions = make(Dialect::ibm, "cp037").conventions;
  EXPECT_EQ(conventions.signs, SignTable::ebcdic);
  EXPECT_EQ(conventions.floats, FloatForm::ibm);
  EXPECT_TRUE(conventions.isBinaryBigEndian);
  EXPECT_TRUE(conventions.isNativeBigEndian);
  EXPECT_TRUE(conventions.isNationalBigEndian);
}

TEST(Conventions, OfGnuCobol) {
  Conventions const conventions = make(Dialect::gnuCobol, "utf-8").conventions;
  EXPECT_EQ(conventions.signs, SignTable::gnuCobol);
  EXPECT_EQ(conventions.floats, FloatForm::ieeeLittle);
  EXPECT_TRUE(conventions.isBinaryBigEndian);
  EXPECT_FALSE(conventions.isNativeBigEndian);
  EXPECT_FALSE(conventions.isNationalBigEndian);
}

TEST(Conventions, TakeTheSignsOfTheOtherDialectWithItsEncoding) {
  EXPECT_EQ(make(Dialect::ibm, "ascii").conventions.signs, SignTable::overpunch);
  EXPECT_EQ(make(Dialect::gnuCobol, "cp1047").conventions.signs, SignTable::ebcdic);
}

TEST(Conventions, TakeASignTableOfTheSameFamily) {
  EXPECT_EQ(make(Dialect::ibm, "ascii", SignTable::gnuCobol).conventions.signs,
            SignTable::gnuCobol);
  EXPECT_EQ(make(Dialect::gnuCobol, "utf-8", SignTable::overpunch).conventions.signs,
            SignTable::overpunch);
  EXPECT_EQ(make(Dialect::ibm, "utf-8", SignTable::ebcdic).error,
            "sign table 'ebcdic' does not go with encoding 'utf-8', which is based on ASCII");
  EXPECT_EQ(make(Dialect::ibm, "cp037", SignTable::overpunch).error,
            "sign table 'overpunch' does not go with encoding 'cp037', which is based on EBCDIC");
  EXPECT_EQ(make(Dialect::ibm, "cp037", SignTable::gnuCobol).error,
            "sign table 'gnucobol' does not go with encoding 'cp037', which is based on EBCDIC");
}

}  // namespace
}  // namespace fdmorph::values

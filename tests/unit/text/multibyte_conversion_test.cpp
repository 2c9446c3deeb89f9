// Conversion between multibyte and wide text, and numbers as text.

#include <gtest/gtest.h>

#include <climits>
#include <clocale>
#include <string>

#include "support/captured_console.h"
#include "text/console.h"
#include "text/multibyte.h"

namespace fdmorph {
namespace {

class Conversion : public ConsoleTest {};

TEST_F(Conversion, NullGivesAnEmptyString) {
  EXPECT_EQ(my_mbstowcs(nullptr), L"");
  EXPECT_EQ(my_wcstombs(nullptr), "");
  EXPECT_EQ(captured.err(), "");
}

TEST_F(Conversion, EmptyTextStaysEmpty) {
  EXPECT_EQ(my_mbstowcs(""), L"");
  EXPECT_EQ(my_wcstombs(L""), "");
  EXPECT_EQ(captured.err(), "");
}

TEST_F(Conversion, CharactersOfSeveralBytesBecomeOne) {
  EXPECT_EQ(my_mbstowcs("gr\u00fc\u00df"), L"gr\u00fc\u00df");
  EXPECT_EQ(my_mbstowcs("\U0001F600").size(), 1U);
}

TEST_F(Conversion, WideCharactersBecomeTheirBytes) {
  EXPECT_EQ(my_wcstombs(L"a\u4e2d"), "a\xE4\xB8\xAD");
}

TEST_F(Conversion, ThereAndBackGivesTheSame) {
  std::string const text = "a_\u00e4\u20ac\U0001F600.xsd";
  EXPECT_EQ(my_wcstombs(my_mbstowcs(text.c_str()).c_str()), text);
}

TEST_F(Conversion, InvalidMultibyteTextIsReportedWithoutALineEnd) {
  EXPECT_EQ(my_mbstowcs("abc\xff"), L"");
  EXPECT_EQ(captured.err(), "Error : Unable to convert multibyte character to Unicode");
  EXPECT_EQ(console.m_nErrorCount, 1);
}

TEST_F(Conversion, TextOfTheLocaleBecomesUtf8) {
  EXPECT_EQ(localeToUtf8("a-b"), "a-b");
  EXPECT_EQ(localeToUtf8("gr\u00fc\u00df \U0001F600"), "gr\u00fc\u00df \U0001F600");
  EXPECT_EQ(localeToUtf8(""), "");
  EXPECT_EQ(captured.err(), "");
}

TEST_F(Conversion, InvalidTextHasNoUtf8AndIsReported) {
  EXPECT_EQ(localeToUtf8("abc\xff"), "");
  EXPECT_EQ(captured.err(), "Error : Unable to convert multibyte character to Unicode");
}

TEST_F(Conversion, CutCharacterIsInvalid) {
  EXPECT_EQ(my_mbstowcs("abc\xE4\xB8"), L"");
  EXPECT_EQ(console.m_nErrorCount, 1);
}

TEST_F(Conversion, WideCharacterThatTheLocaleLacksIsReportedWithoutALineEnd) {
  std::setlocale(LC_ALL, "C");
  std::string narrow = my_wcstombs(L"a\u4e2d");
  std::setlocale(LC_ALL, "C.UTF-8");
  EXPECT_EQ(narrow, "");
  EXPECT_EQ(captured.err(), "Error : Unable to convert Unicode character to multibyte");
  EXPECT_EQ(console.m_nErrorCount, 1);
}

std::string numberAsText(int value, int radix) {
  char buffer[12] = "unchanged";
  itoa(value, buffer, radix);
  return buffer;
}

TEST(Itoa, RadixTenIsDecimal) {
  EXPECT_EQ(numberAsText(0, 10), "0");
  EXPECT_EQ(numberAsText(-17, 10), "-17");
  EXPECT_EQ(numberAsText(INT_MIN, 10), "-2147483648");
}

TEST(Itoa, RadixSixteenIsUpperCaseHexadecimal) {
  EXPECT_EQ(numberAsText(255, 16), "FF");
  EXPECT_EQ(numberAsText(48879, 16), "BEEF");
  EXPECT_EQ(numberAsText(-1, 16), "FFFFFFFF");
}

TEST(Itoa, OtherRadixLeavesTheBufferAsItIs) {
  EXPECT_EQ(numberAsText(5, 2), "unchanged");
  EXPECT_EQ(numberAsText(5, 8), "unchanged");
}

}  // namespace
}  // namespace fdmorph

// Character sets by name.
#include "charset/code_page.h"

#include <gtest/gtest.h>

namespace fdmorph::charset {
namespace {

std::shared_ptr<CodePage const> pageOf(char const* name) {
  CodePage::Opened opened = CodePage::open(name);
  EXPECT_EQ(opened.error, "");
  return opened.page;
}

TEST(CodePage, OfEbcdicHasItsDigitsAtF0) {
  auto const page = pageOf("cp037");
  EXPECT_TRUE(page->isEbcdic());
  EXPECT_FALSE(page->isUtf8());
  EXPECT_EQ(page->blank(), 0x40);
  EXPECT_EQ(page->zeroDigit(), 0xF0);
  EXPECT_EQ(page->characterOf(0xC1), 'A');
  EXPECT_EQ(page->byteOf('A'), 0xC1);
  EXPECT_EQ(page->byteOf(U'\u20AC'), -1);
}

TEST(CodePage, OfAsciiHasItsDigitsAt30) {
  auto const page = pageOf("ascii");
  EXPECT_FALSE(page->isEbcdic());
  EXPECT_EQ(page->blank(), 0x20);
  EXPECT_EQ(page->zeroDigit(), 0x30);
  EXPECT_EQ(page->characterOf(0x7F), 0x7F);
  EXPECT_EQ(page->characterOf(0x80), -1);
  EXPECT_EQ(page->byteOf(0x80), -1);
}

// The brackets are what sets these two apart.
TEST(CodePage, DiffersInBracketsFrom037To1047) {
  EXPECT_EQ(pageOf("cp037")->byteOf('['), 0xBA);
  EXPECT_EQ(pageOf("cp1047")->byteOf('['), 0xAD);
}

TEST(CodePage, HasCharactersAboveLatin1) {
  EXPECT_EQ(pageOf("cp1140")->byteOf(U'\u20AC'), 0x9F);
  EXPECT_EQ(pageOf("cp1140")->characterOf(0x9F), 0x20AC);
}

TEST(CodePage, OfLatin1IsItsCodePoints) {
  auto const page = pageOf("Latin-1");
  for (int byte = 0; byte < 256; ++byte) {
    EXPECT_EQ(page->characterOf(static_cast<std::uint8_t>(byte)), byte);
    EXPECT_EQ(page->byteOf(static_cast<char32_t>(byte)), byte);
  }
}

TEST(CodePage, OfUtf8HasSingleBytesOfAsciiOnly) {
  for (char const* name : {"utf-8", "UTF-8", "utf8", "ibm-1208"}) {
    auto const page = pageOf(name);
    EXPECT_TRUE(page->isUtf8()) << name;
    EXPECT_EQ(page->characterOf('z'), 'z');
    EXPECT_EQ(page->characterOf(0xC3), -1);
    EXPECT_EQ(page->byteOf(0xE9), -1);
  }
}

// ICU has A as the best fit of the wide letter U+FF21.
TEST(CodePage, HasNoFallbacks) {
  EXPECT_EQ(pageOf("windows-1252")->byteOf(U'\uFF21'), -1);
}

TEST(CodePage, IsRefusedIfItIsUnknown) {
  EXPECT_EQ(CodePage::open("klingon").error, "unknown encoding 'klingon'");
  EXPECT_EQ(CodePage::open("").error, "unknown encoding ''");
  EXPECT_EQ(CodePage::open("klingon").page, nullptr);
}

TEST(CodePage, IsRefusedIfCharactersHaveSeveralBytes) {
  for (std::string const name : {"shift_jis", "utf-16", "gb18030", "ibm-939", "utf-7", "hz"}) {
    EXPECT_EQ(CodePage::open(name).error,
              "encoding '" + name + "' has characters of several bytes");
  }
}

}  // namespace
}  // namespace fdmorph::charset

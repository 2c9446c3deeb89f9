// From the library's UTF-16 to the locale's text and back.

#include "xml/transcoding.h"

#include <gtest/gtest.h>

#include <clocale>

#include "support/captured_console.h"
#include "text/console.h"
#include "xml/DMDOMParser.h"

namespace fdmorph {
namespace {

class Transcoding : public ConsoleTest {
 protected:
  static void SetUpTestSuite() { CDMDOMParser::InitializePlatform(); }
};

TEST_F(Transcoding, NullAndEmptyTextGiveAnEmptyString) {
  EXPECT_EQ(toMultibyte(nullptr), "");
  EXPECT_EQ(toMultibyte(u""), "");
  EXPECT_EQ(toLocalText(nullptr), "");
}

TEST_F(Transcoding, AsciiTextStaysAsItIs) {
  EXPECT_EQ(toMultibyte(u"xs:element"), "xs:element");
}

TEST_F(Transcoding, OtherCharactersAreEncodedByTheLocale) {
  EXPECT_EQ(toMultibyte(u"gr\u00fc\u00df \u4e2d"), "gr\u00fc\u00df \u4e2d");
}

TEST_F(Transcoding, SurrogatePairIsOneCharacter) {
  EXPECT_EQ(toMultibyte(u"a\U0001F600b"), "a\U0001F600b");
}

TEST_F(Transcoding, CharacterThatTheLocaleLacksIsReported) {
  std::setlocale(LC_ALL, "C");
  std::string text = toMultibyte(u"\u4e2d");
  std::setlocale(LC_ALL, "C.UTF-8");
  EXPECT_EQ(text, "");
  EXPECT_EQ(captured.err(), "Error : Unable to convert Unicode character to multibyte");
  EXPECT_EQ(console.m_nErrorCount, 1);
}

TEST_F(Transcoding, MessagesAreNeverReported) {
  EXPECT_EQ(toLocalText(u"text of the library"), "text of the library");
  EXPECT_EQ(captured.err(), "");
}

TEST_F(Transcoding, Utf8DoesNotDependOnTheLocale) {
  std::setlocale(LC_ALL, "C");
  std::string text = toUtf8(u"a\u00fc\u4e2d\U0001F600");
  std::setlocale(LC_ALL, "C.UTF-8");
  EXPECT_EQ(text, "a\u00fc\u4e2d\U0001F600");
  EXPECT_EQ(toUtf8(nullptr), "");
}

TEST_F(Transcoding, TextForTheLibraryIsUtf16) {
  EXPECT_EQ(toLibraryText("a.xsd"), u"a.xsd");
  EXPECT_EQ(toLibraryText("gr\u00fc\u00df"), u"gr\u00fc\u00df");
  EXPECT_EQ(toLibraryText(""), u"");
}

}  // namespace
}  // namespace fdmorph

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

TEST_F(Transcoding, OtherCharactersTakeTheLocalesBytes) {
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

TEST_F(Transcoding, LocalesTextBecomesUtf16) {
  EXPECT_EQ(fromMultibyte("xs:element"), u"xs:element");
  EXPECT_EQ(fromMultibyte("gr\u00fc\u00df \u4e2d"), u"gr\u00fc\u00df \u4e2d");
  EXPECT_EQ(fromMultibyte("a\U0001F600b"), u"a\U0001F600b");
  EXPECT_EQ(fromMultibyte(""), u"");
}

TEST_F(Transcoding, TextThatIsNotTheLocalesIsReported) {
  EXPECT_EQ(fromMultibyte("a\xff"), u"");
  EXPECT_EQ(captured.err(), "Error : Unable to convert multibyte character to Unicode");
  EXPECT_EQ(console.m_nErrorCount, 1);
}

TEST_F(Transcoding, MessagesAreNeverReported) {
  EXPECT_EQ(toLocalText(u"text of the library"), "text of the library");
  EXPECT_EQ(captured.err(), "");
}

TEST_F(Transcoding, TextForTheLibraryIsUtf16) {
  EXPECT_EQ(toLibraryText("a.xsd"), u"a.xsd");
  EXPECT_EQ(toLibraryText("gr\u00fc\u00df"), u"gr\u00fc\u00df");
  EXPECT_EQ(toLibraryText(""), u"");
}

}  // namespace
}  // namespace fdmorph

// Whole dictionaries.

#include <gtest/gtest.h>

#include "support/compiled_source.h"

namespace fdmorph::compiler {
namespace {

constexpr std::string_view kHead = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

TEST(DictionaryWriter, WritesARecord) {
  EXPECT_EQ(compile("01 Rec.\n"
                    " 05 a-b PIC X(5) JUST.\n"
                    " 05 N PIC S9(5)V99 COMP-3 VALUE -1.5.\n"
                    " 05 G OCCURS 3.\n"
                    "  10 PIC ZZ9.")
                .dictionary,
            std::string(kHead) +
                R"xml(<program name="a">
   <dataItems>
      <group name="Rec" level="1" length="18">
         <alphanumeric name="a-b" level="5" usage="display" picture="X(5)" length="5" justified="right"/>
         <numeric name="N" level="5" usage="comp-3" digits="7" alignment="2" picture="S9(5)V99" length="4" value="-1.5"/>
         <group name="G" level="5" length="3" minOccurs="3" maxOccurs="3">
            <numericEdited name="FILLER" level="10" usage="display" picture="ZZ9" length="3"/>
         </group>
      </group>
   </dataItems>
</program>
)xml");
}

constexpr std::string_view kProgram =
    "IDENTIFICATION DIVISION.\nPROGRAM-ID. P.\nDATA DIVISION.\nFILE SECTION.\n"
    "FD F RECORDING MODE F.\n01 R PIC X.\nWORKING-STORAGE SECTION.\n01 W PIC X.\n"
    "LINKAGE SECTION.\n01 L PIC X.\nPROCEDURE DIVISION.\n    STOP RUN.\n"
    "IDENTIFICATION DIVISION.\nPROGRAM-ID. Q.";

TEST(DictionaryWriter, WritesTheSectionsInTheOrderAskedFor) {
  std::string item =
      "<alphanumeric name=\"%\" level=\"1\" usage=\"display\" picture=\"X\""
      " length=\"1\"/>\n";
  auto named = [&item](char name) { return std::string(item).replace(item.find('%'), 1, 1, name); };
  std::string storage = "   <dataItems>\n      " + named('W') + "   </dataItems>\n";
  std::string files = "   <fileSection>\n      <fd name=\"F\">\n         " + named('R') +
                      "      </fd>\n   </fileSection>\n";
  std::string program = std::string(kHead) + "<program name=\"P\">\n";
  EXPECT_EQ(compile(kProgram).dictionary, program + storage + files + "</program>\n");
  MemoryTree tree;
  tree.files["a.cpy"] = fixed(kProgram);
  Directives directives;
  directives.order = DictionaryOrder::filesFirst;
  EXPECT_EQ(compile(tree, directives).dictionary, program + files + storage + "</program>\n");
}

TEST(DictionaryWriter, WritesConditionsUnderTheirItem) {
  std::string dictionary =
      compile("01 A PIC 9.\n 88 B VALUE 1 3 THRU 5.\n01 C PIC XX.\n 88 D VALUE ZERO \"x\"\"y\".")
          .dictionary;
  EXPECT_NE(dictionary.find(R"(         <numericCondition name="B">
            <numericConstant value="1"/>
            <numericRange from="3" to="5"/>
         </numericCondition>
)"),
            std::string::npos);
  EXPECT_NE(dictionary.find(R"(         <alphanumericCondition name="D">
            <alphanumericConstant value="00"/>
            <alphanumericConstant value="x&quot;y"/>
         </alphanumericCondition>
)"),
            std::string::npos);
}

TEST(DictionaryWriter, NamesTheObjectOfATableInFull) {
  std::string dictionary =
      compile("01 R.\n 05 .\n  10 N PIC 9.\n 05 T PIC X OCCURS 1 TO 5 DEPENDING ON N.").dictionary;
  EXPECT_EQ(attributeOf(dictionary, "T", "odo"), "R.FILLER.N");
  EXPECT_EQ(attributeOf(dictionary, "T", "minOccurs"), "1");
  EXPECT_EQ(attributeOf(dictionary, "T", "maxOccurs"), "5");
}

TEST(DictionaryWriter, SaysThatAGroupDoesNotRepeat) {
  std::string dictionary = compile("01 R.\n 05 G.\n  10 A PIC X.").dictionary;
  EXPECT_EQ(attributeOf(dictionary, "R", "maxOccurs"), std::nullopt);
  EXPECT_EQ(attributeOf(dictionary, "G", "maxOccurs"), "1");
  EXPECT_EQ(attributeOf(dictionary, "A", "maxOccurs"), std::nullopt);
}

TEST(DictionaryWriter, HoldsTheItemsOfACopybookTogetherThatBeginsBelowLevel01) {
  std::string dictionary = compile("05 A PIC X(2).\n05 B PIC X(3).").dictionary;
  EXPECT_NE(dictionary.find("      <group name=\"COPYBOOK\" level=\"1\" length=\"5\">\n"),
            std::string::npos);
}

TEST(DictionaryWriter, PutsBlanksInPlaceOfControlCharacters) {
  std::string dictionary = compile(
                               "PROGRAM-ID. \"A\x01"
                               "B\".\nDATA DIVISION.\nWORKING-STORAGE SECTION.\n01 C PIC X.")
                               .dictionary;
  EXPECT_NE(dictionary.find("<program name=\"A B\""), std::string::npos);
}

TEST(DictionaryWriter, IsNotThereAfterAnError) {
  CompilationResult result = compile("01 A.");
  EXPECT_EQ(result.status, kStatusError);
  EXPECT_EQ(result.dictionary, "");
}

TEST(DictionaryWriter, LeavesValuesOutThatXmlCannotHold) {
  std::string dictionary = compile(
                               "01 A PIC X VALUE LOW-VALUE.\n01 B PIC X VALUE X\"00\".\n"
                               "01 C PIC X VALUE X\"41\".")
                               .dictionary;
  EXPECT_EQ(attributeOf(dictionary, "A", "value"), std::nullopt);
  EXPECT_EQ(attributeOf(dictionary, "B", "value"), std::nullopt);
  EXPECT_EQ(attributeOf(dictionary, "C", "value"), "A");
}

/// The value of an item A with these clauses; nothing if there is none.
std::optional<std::string> valueOf(std::string const& clauses) {
  return attributeOf(compile("01 A " + clauses + ".").dictionary, "A", "value");
}

TEST(DictionaryWriter, FillsAnItemWithAll) {
  EXPECT_EQ(valueOf("PIC 9(3) VALUE ALL \"1\""), "111");
  EXPECT_EQ(valueOf("PIC S9(3) VALUE ALL \"12\""), "121");
  EXPECT_EQ(valueOf("PIC X(5) VALUE ALL \"ab\""), "ababa");
  // Two bytes are a character of a text, one of two bytes of an item that is
  // measured in bytes: the one that doesn't fit is left out.
  EXPECT_EQ(valueOf("PIC N(3) VALUE ALL N\"\xC3\xA9\""), "\xC3\xA9\xC3\xA9\xC3\xA9");
  EXPECT_EQ(valueOf("PIC X(3) VALUE ALL \"\xC3\xA9\""), "\xC3\xA9");
  EXPECT_EQ(valueOf("PIC X(9000) VALUE ALL \"a\""), std::nullopt);
}

TEST(DictionaryWriter, FillsWithBytesThatAreNoCharacters) {
  // Latin-1, and lone bytes of longer characters.
  EXPECT_EQ(valueOf("PIC X(3) VALUE ALL \"\xB0\""), "\xC2\xB0\xC2\xB0\xC2\xB0");
  EXPECT_EQ(valueOf("PIC N(2) VALUE ALL N\"\x80\""), "\xC2\x80\xC2\x80");
  for (int byte = 0x20; byte < 0x100; ++byte) {
    if (byte == '"') continue;
    std::string literal = " VALUE ALL \"" + std::string(1, static_cast<char>(byte)) + "\"";
    EXPECT_TRUE(valueOf("PIC X(2)" + literal)) << byte;
    EXPECT_TRUE(valueOf("PIC N(2)" + literal)) << byte;
  }
}

TEST(DictionaryWriter, LeavesOutBytesThatNoTextStandsFor) {
  EXPECT_EQ(valueOf("PIC X VALUE X\"41\""), "A");
  EXPECT_EQ(valueOf("PIC X VALUE X\"E9\""), std::nullopt);
  EXPECT_EQ(valueOf("PIC X(2) VALUE \"a\" & X\"E9\""), std::nullopt);
  EXPECT_EQ(valueOf("PIC X(4) VALUE ALL X\"C1\""), std::nullopt);
  EXPECT_EQ(valueOf("PIC X(4) VALUE Z\"abc\""), std::nullopt);
  // A pair of surrogates is a character, a lone one is none.
  EXPECT_EQ(valueOf("PIC N(2) VALUE NX\"D83DDE00\""), "\xF0\x9F\x98\x80");
  EXPECT_EQ(valueOf("PIC N VALUE NX\"D83D\""), std::nullopt);
}

TEST(DictionaryWriter, TellsTheBytesThatAlignItems) {
  std::string dictionary = compile("01 R.\n 05 A PIC X.\n 05 B PIC 9(9) COMP SYNC.").dictionary;
  EXPECT_NE(dictionary.find("picture=\"X(3)\" length=\"3\" slack=\"true\"/>\n         "
                            "<numeric name=\"B\""),
            std::string::npos)
      << dictionary;
}

TEST(DictionaryWriter, LeavesOutWhatACopybookCanNotSay) {
  EXPECT_EQ(valueOf("PIC X(2) VALUE X\"0D0A\""), std::nullopt);
  EXPECT_EQ(valueOf("PIC ZZ9 VALUE \"N/A\""), std::nullopt);
  EXPECT_EQ(valueOf("PIC Z,ZZ9 VALUE \"1,234\""), std::nullopt);
  EXPECT_EQ(valueOf("PIC 9(3) BLANK WHEN ZERO VALUE \"   \""), std::nullopt);
  EXPECT_EQ(valueOf("PIC X(2) COMP-5 VALUE \"AB\""), std::nullopt);
  EXPECT_EQ(valueOf("PIC ZZ9 VALUE \"  7\""), "  7");
}

TEST(DictionaryWriter, TellsBitsAsTheyAre) {
  EXPECT_EQ(valueOf("PIC 1(3) USAGE BIT VALUE B\"101\""), "101");
}

}  // namespace
}  // namespace fdmorph::compiler

#include "document/xml_reader.h"

#include <gtest/gtest.h>

#include "support/document_fixture.h"

namespace fdmorph::document {
namespace {

TEST(XmlReader, TakesTheRootAsARecordOrAsAWrapper) {
  DocumentFixture fixture("A B");
  EXPECT_EQ(fixture.readXml("<A><B>1</B></A>"), "1 A(B=1)\n");
  EXPECT_EQ(fixture.readXml("<list><A><B>1</B></A><A/></list>"), "1 A(B=1)\n2 A\n");
  EXPECT_EQ(fixture.readXml("<list/>"), "");
}

TEST(XmlReader, TakesWhatComesAfterARecordAsFurtherRecords) {
  DocumentFixture fixture("A B");
  EXPECT_EQ(fixture.readXml("<A>1</A>\n<A>2</A>\n\n<A>3</A>\n"), "1 A=1\n2 A=2\n3 A=3\n");
  EXPECT_EQ(fixture.readXml("<A/><A/><!-- c --><?p?>"), "1 A\n2 A\n");
  EXPECT_EQ(fixture.readXml("\n\n<A/>\n"), "1 A\n");
}

TEST(XmlReader, FindsNoRecordInBlankInput) {
  DocumentFixture fixture("A");
  EXPECT_EQ(fixture.readXml(""), "");
  EXPECT_EQ(fixture.readXml(" \n\t\r\n"), "");
  EXPECT_EQ(fixture.readXml("<?xml version='1.0'?>"), "1 [1:22 xml no element found]\n");
}

TEST(XmlReader, TakesAnyOfSeveralRecords) {
  DocumentFixture fixture("A B");
  fixture.records = {"A", "B"};
  EXPECT_EQ(fixture.readXml("<list><B/><A/></list>"), "1 B\n2 A\n");
}

TEST(XmlReader, CountsAChildOfTheWrapperThatIsNoRecord) {
  DocumentFixture fixture("A B");
  std::string_view text = "<list>\n <B><A/></B>\n <c/><A/></list>";
  EXPECT_EQ(fixture.readXml(text),
            "1 [2:2 unknown B: no record has this name]\n"
            "2 [3:2 unknown c: no record has this name]\n"
            "3 A\n");
  fixture.options.ignoresUnknown = true;
  EXPECT_EQ(fixture.readXml(text), "1 A\n");
}

TEST(XmlReader, IgnoresTextInTheWrapper) {
  DocumentFixture fixture("A");
  EXPECT_EQ(fixture.readXml("<list>x<A/>y<![CDATA[z]]></list>"), "1 A\n");
}

TEST(XmlReader, KeepsPartsInTheirOrderWithAttributesFirst) {
  DocumentFixture fixture("A B C d e");
  EXPECT_EQ(fixture.readXml("<A d='1' e='&lt;'><B/><C d=''>x</C><B>y</B></A>"),
            "1 A(@d=1,@e=<,B,C=x(@d),B=y)\n");
}

TEST(XmlReader, KeepsUnknownPartsUnlessTheyAreIgnored) {
  DocumentFixture fixture("A B");
  std::string_view text = "<A u='1'><v w='2'><B/></v><B>3</B></A>";
  EXPECT_EQ(fixture.readXml(text), "1 A(?@u=1,?v(?@w=2,B),B=3)\n");
  fixture.options.ignoresUnknown = true;
  EXPECT_EQ(fixture.readXml(text), "1 A(B=3)\n");
}

TEST(XmlReader, PutsThePiecesOfATextTogether) {
  DocumentFixture fixture("A B");
  EXPECT_EQ(fixture.readXml("<A>a<!-- -->b<?p?>&amp;<![CDATA[<c>]]>&#x64;</A>"), "1 A=ab&<c>d\n");
  EXPECT_EQ(fixture.readXml("<A>a<B>1</B>b<B>2<B>3</B>4</B>c</A>"), "1 A=abc(B=1,B=24(B=3))\n");
  fixture.options.ignoresUnknown = true;
  EXPECT_EQ(fixture.readXml("<A>1<u>x</u>2<u/>\n3</A>"), "1 A=12\n3\n");
}

// XML 1.0, 2.11: CR LF and CR are read as LF; references stay what they are.
TEST(XmlReader, ReadsLineEndsAsTheStandardSays) {
  DocumentFixture fixture("A");
  EXPECT_EQ(fixture.readXml("<A>a\r\nb\rc&#13;</A>"), "1 A=a\nb\nc\r\n");
}

TEST(XmlReader, MarksPartsThatAreNilAndLeavesOutTheirContent) {
  DocumentFixture fixture("A B C");
  EXPECT_EQ(fixture.readXml("<A xmlns:x='http://www.w3.org/2001/XMLSchema-instance' "
                            "x:schemaLocation='a b'><B x:nil=' true '>t<C/></B><B x:nil='1'/>"
                            "<B x:nil='false'>f</B><B x:type='t'/></A>"),
            "1 A(B!nil,B!nil,B=f,B)\n");
}

TEST(XmlReader, TakesAnAttributeOfNoNamespaceForNoDeclarationOfNil) {
  DocumentFixture fixture("A");
  EXPECT_EQ(fixture.readXml("<A nil='true'>t</A>"), "1 A=t(?@nil=true)\n");
}

TEST(XmlReader, TellsTheBytesOfStartTags) {
  DocumentFixture fixture("A B");
  NameNumbers index(fixture.names, NameMatch::exact);
  ReaderOptions options;
  options.records = {0};
  // The umlaut has two bytes.
  std::string_view text = "<list>\n\n  <A>\xC3\xBC<B/>\n<B\n/></A> <A/></list>";
  for (std::size_t size : {SIZE_MAX, std::size_t{1}, std::size_t{7}}) {
    XmlReader reader(blocksOf(text, size), index, options);
    DocumentRecord record;
    ASSERT_TRUE(reader.next(record));
    EXPECT_EQ(record.line, 3U);
    EXPECT_EQ(record.column, 3U);
    ASSERT_EQ(record.instances.all.size(), 3U);
    EXPECT_EQ(record.instances.all[1].line, 3U);
    EXPECT_EQ(record.instances.all[1].column, 8U);
    EXPECT_EQ(record.instances.all[2].line, 4U);
    EXPECT_EQ(record.instances.all[2].column, 1U);
    ASSERT_TRUE(reader.next(record));
    EXPECT_EQ(record.line, 5U);
    EXPECT_EQ(record.column, 8U);
    EXPECT_FALSE(reader.next(record));
  }
}

TEST(XmlReader, EndsWhenTheInputFails) {
  layout::Names names;
  ReaderOptions options;
  options.records = {names.add("", "A")};
  NameNumbers index(names, NameMatch::exact);
  bool isFirst = true;
  XmlReader reader(
      [&](std::span<char> room) -> std::optional<std::size_t> {
        if (!isFirst) return std::nullopt;
        isFirst = false;
        std::string_view text = "<list><A/><A>";
        std::memcpy(room.data(), text.data(), text.size());
        return text.size();
      },
      index, options);
  DocumentRecord record;
  EXPECT_TRUE(reader.next(record));
  EXPECT_FALSE(reader.hasFailed());
  EXPECT_FALSE(reader.next(record));
  EXPECT_TRUE(reader.hasFailed());
  EXPECT_FALSE(reader.next(record));
}

// Blocks end anywhere: in names, references, markup, and characters.
TEST(XmlReader, ReadsTheSameInBlocksOfAnySize) {
  DocumentFixture fixture("A B d");
  fixture.options.keepsText = true;
  std::string text = "<?xml version='1.0'?>\n<!-- head --><l xmlns:p='u'>";
  for (int i = 0; i < 50; ++i) {
    text += "<A d='\xE2\x82\xAC&quot;'>\r\n<B><![CDATA[]]]]>&#x20AC;</B><p:u/>t" +
            std::to_string(i) + "</A>\n<c/>";
  }
  text += "</l>\n<!-- tail -->";
  std::string expected = fixture.readXml(text);
  std::vector<std::string> texts = fixture.texts;
  ASSERT_EQ(texts.size(), 100U);
  for (std::size_t size : {1U, 2U, 3U, 5U, 7U, 64U, 1000U}) {
    fixture.blockSize = size;
    EXPECT_EQ(fixture.readXml(text), expected) << size;
    EXPECT_EQ(fixture.texts, texts) << size;
  }
}

TEST(XmlReader, EndsACutDocumentWithAnErrorAfterWholeRecords) {
  DocumentFixture fixture("A B");
  std::string_view text = "<?xml version='1.0'?><l><A><B>1</B></A><!-- c --><A b='2'/></l>";
  std::string_view first = "</A>";
  std::size_t firstEnd = text.find(first) + first.size();
  std::size_t secondEnd = text.find("/></l>") + 2;
  for (std::size_t size = 1; size < text.size(); ++size) {
    std::string result = fixture.readXml(text.substr(0, size));
    std::string expected = size >= firstEnd ? "1 A(B=1)\n" : "";
    if (size >= secondEnd) expected += "2 A(?@b=2)\n";
    EXPECT_TRUE(result.starts_with(expected)) << size << ": " << result;
    EXPECT_NE(result.find(" xml "), std::string::npos) << size << ": " << result;
    EXPECT_EQ(std::count(result.begin(), result.end(), '\n'),
              std::count(expected.begin(), expected.end(), '\n') + 1);
  }
}

TEST(XmlReader, EndsCutLinesWithAnErrorUnlessTheyEndAfterARecord) {
  DocumentFixture fixture("A B");
  std::string_view text = "<A><B>1</B></A>\n<A b='2'/>\n";
  EXPECT_EQ(fixture.readXml(text), "1 A(B=1)\n2 A(?@b=2)\n");
  EXPECT_EQ(fixture.readXml(text.substr(0, 15)), "1 A(B=1)\n");
  EXPECT_EQ(fixture.readXml(text.substr(0, 16)), "1 A(B=1)\n");
  for (std::size_t size = 17; size < 26; ++size) {
    std::string result = fixture.readXml(text.substr(0, size));
    EXPECT_TRUE(result.starts_with("1 A(B=1)\n2 [2:")) << size << ": " << result;
  }
}

}  // namespace
}  // namespace fdmorph::document

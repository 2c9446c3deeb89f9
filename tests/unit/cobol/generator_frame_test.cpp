// The output of GenerateFile, and the reports of a whole conversion.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iostream>

#include "support/generator_fixture.h"
#include "text/console.h"

namespace fdmorph {
namespace {

using testing::StartsWith;

constexpr char kRecord[] = "       01 a PIC X(80) identified by \"a\".\n\n";
constexpr char kOneOfOne[] = "\nSuccessfully converted 1 of 1 schema head element(s).\n\n";

class GenerateFile : public GeneratorTest {
 protected:
  GenerateFile() { use(schema({element("a", {{"type", "xs:string"}})})); }
};

TEST_F(GenerateFile, WritesTheRecordAndALineEndToTheFile) {
  EXPECT_TRUE(generator->GenerateFile(folder.path("a.cpy"), "", false, false));
  EXPECT_EQ(folder.read("a.cpy"), kRecord);
  EXPECT_EQ(captured.out(), "");
  EXPECT_EQ(captured.err(), kOneOfOne);
}

TEST_F(GenerateFile, ReplacesWhatTheFileHeld) {
  folder.write("a.cpy", std::string(1000, 'x'));
  EXPECT_EQ(generate(), kRecord);
}

TEST_F(GenerateFile, RestoresTheBufferOfTheOutputStream) {
  generate();
  EXPECT_EQ(std::cout.rdbuf(), captured.outBuffer());
}

TEST_F(GenerateFile, EmptyNameIsReportedAndWritesToTheConsole) {
  EXPECT_FALSE(generator->GenerateFile("", "", false, false));
  EXPECT_EQ(captured.out(),
            std::string("Invalid filename.  Outputting  to console:\n\n") + kRecord);
  EXPECT_EQ(captured.err(), kOneOfOne);
}

TEST_F(GenerateFile, FileThatCannotBeOpenedWritesToTheConsoleSilently) {
  EXPECT_FALSE(generator->GenerateFile(folder.path("missing/a.cpy"), "", false, false));
  EXPECT_EQ(captured.out(), kRecord);
  EXPECT_EQ(captured.err(), kOneOfOne);
}

TEST_F(GenerateFile, FullDiskIsReportedAndCounted) {
  EXPECT_TRUE(generator->GenerateFile("/dev/full", "", false, false));
  EXPECT_EQ(captured.err(),
            std::string(kOneOfOne) + "Error : Unable to write output file /dev/full\n");
  EXPECT_EQ(console.m_nErrorCount, 1);
  EXPECT_EQ(std::cout.rdbuf(), captured.outBuffer());
}

TEST_F(GenerateFile, PrefixAndFlagsReachTheRecord) {
  EXPECT_EQ(generate("W-", true),
            "       01 W-a PIC X(80) identified by \"a\" count in W-a-count.\n\n");
}

TEST_F(GenerateFile, WithoutADocumentIsAnInternalError) {
  CDMCOBOLGenerator empty;
  EXPECT_TRUE(empty.GenerateFile(folder.path("a.cpy"), "", false, false));
  EXPECT_EQ(captured.err(), "Internal Error : Error initializing schema document\n\n");
  EXPECT_EQ(folder.read("a.cpy"), "");
  EXPECT_EQ(std::cout.rdbuf(), captured.outBuffer());
  EXPECT_EQ(console.m_nErrorCount, 1);
}

TEST_F(GenerateFile, NullDocumentIsAnInternalError) {
  CDMCOBOLGenerator empty(nullptr);
  EXPECT_FALSE(empty.GenerateFile("", "", false, false));
  EXPECT_EQ(captured.err(), "Internal Error : Error initializing schema document\n\n");
}

TEST_F(GenerateFile, WithoutASchemaElementIsAnInternalError) {
  CDMXMLSchemaDoc noSchema;
  CDMCOBOLGenerator rootless(&noSchema);
  EXPECT_TRUE(rootless.GenerateFile(folder.path("a.cpy"), "", false, false));
  EXPECT_EQ(captured.err(), "Internal Error : Unable to locate schema element\n\n");
}

TEST_F(GenerateFile, WithoutAHeadElementTheFileStaysEmpty) {
  use(schema({element("a", {}, {sequenceType({reference("a")})})}));
  EXPECT_EQ(generate(), "");
  EXPECT_EQ(captured.err(),
            "Error : No schema head element found in schema definition. A non-referenced\n"
            " global head element is required for conversion to COBOL record\n"
            "\n");
}

TEST_F(GenerateFile, EachHeadElementBecomesARecord) {
  use(schema({element("a", {{"type", "xs:string"}}), element("b", {{"type", "xs:int"}})}));
  EXPECT_EQ(generate(), std::string(kRecord) + "       01 b PIC S9(18) identified by \"b\".\n\n");
  EXPECT_EQ(captured.err(),
            "Warning : More than one head element was found in the schema definition."
            " Attempting to generate multiple file definitions\n"
            "\nSuccessfully converted 2 of 2 schema head element(s).\n\n");
}

TEST_F(GenerateFile, NamesAreUniqueWithinEachRecordOnly) {
  Tree const type =
      sequenceType({element("x", {{"type", "xs:int"}}), element("x", {{"type", "xs:int"}})});
  use(schema({element("a", {}, {type}), element("b", {}, {type})}));
  std::string const text = generate("", false, true);
  EXPECT_EQ(countOf("02 x PIC S9(18) identified by \"x\".\n", text), 2);
  EXPECT_EQ(countOf("02 x-1 PIC S9(18) identified by \"x\".\n", text), 2);
}

TEST_F(GenerateFile, AttributeFormOfTrueIsRefused) {
  Tree tree = schema({element("a", {{"type", "xs:string"}})});
  tree.attributes.emplace_back("attributeFormDefault", "true");
  use(tree);
  EXPECT_EQ(generate(), "");
  EXPECT_EQ(captured.err(),
            "Error : COBOL XML does not support namespace qualifiers for attributes"
            " in instance documents\n\n");
}

TEST_F(GenerateFile, AttributeFormOfQualifiedPasses) {
  Tree tree = schema({element("a", {{"type", "xs:string"}})});
  tree.attributes.emplace_back("attributeFormDefault", "qualified");
  use(tree);
  EXPECT_EQ(generate(), kRecord);
}

TEST_F(GenerateFile, LevelsAndIndentationGrowByOne) {
  Tree const line = sequenceType({element("sku", {{"type", "xs:string"}})}, "line");
  Tree order = sequenceType({element("id", {{"type", "xs:int"}}),
                             element("item", {{"type", "line"}, {"maxOccurs", "3"}})});
  order.children.push_back({"xs:attribute", {{"name", "ver"}, {"type", "xs:string"}}});
  use(schema({element("order", {}, {order}), line}));
  EXPECT_EQ(generate(),
            "       01 order identified by \"order\".\n"
            "        02 id PIC S9(18) identified by \"id\".\n"
            "        02 item occurs 3 times identified by \"item\".\n"
            "         03 sku PIC X(80) identified by \"sku\".\n"
            "        02 ver PIC X(80) identified by \"ver\" is attribute.\n"
            "\n");
  EXPECT_EQ(captured.err(), kOneOfOne);
}

TEST_F(GenerateFile, BannerBeginsTheFileInAQuietRun) {
  beginQuietMode();
  console.headerShown = false;
  EXPECT_THAT(generate(), StartsWith("Tallmere FDMORPH Version 1.0\n"));
  EXPECT_EQ(std::cout.rdbuf(), nullptr);
}

}  // namespace
}  // namespace fdmorph

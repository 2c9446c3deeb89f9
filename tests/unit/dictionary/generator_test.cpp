// The dictionary generator's choice of output.

#include "dictionary_fixture.h"

namespace fdmorph {
namespace {

constexpr char kDeclaration[] = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
constexpr char kConsoleNotice[] = "Invalid filename.  Outputting XML to console:\n\n";

class DictionaryFrame : public DictionaryTest {};

TEST_F(DictionaryFrame, WithoutADictionaryNothingIsWritten) {
  CDMXMLGenerator generator;
  EXPECT_FALSE(generator.GenerateFile("", "", "s.xsd", "", Type::FT_XML_SCHEMA, "", true));
  EXPECT_EQ(captured.err(), "Invalid COBOL Data Dictionary\n");
  EXPECT_EQ(captured.out(), "");
}

TEST_F(DictionaryFrame, TreeWithoutAFormatterHasNoTarget) {
  CDMXMLElement top;
  CDMXMLGenerator generator(&top, nullptr);
  EXPECT_FALSE(generator.GenerateFile("", "", "s.xsd", "", Type::FT_XML_SCHEMA, "", true));
  EXPECT_EQ(captured.err(), "Invalid XML Target Formatter\n");
}

TEST_F(DictionaryFrame, ResetForgetsTheDictionary) {
  CDMXMLGenerator generator(dictionary("<program/>"), nullptr);
  generator.Reset();
  EXPECT_FALSE(generator.GenerateFile("", "", "", "", Type::FT_XML_SCHEMA, "", true));
  EXPECT_EQ(captured.err(), "Invalid COBOL Data Dictionary\n");
}

TEST_F(DictionaryFrame, NullChangesNothing) {
  CDMXMLGenerator generator(dictionary("<program name='P'/>"), nullptr);
  generator.setCOBOLDataDictionary(nullptr);
  generator.setXMLCOBOLExternalMapping(nullptr);
  EXPECT_FALSE(generator.GenerateFile("", "", "", "", Type::FT_ENHANCED_COBOL, "", true));
  EXPECT_EQ(captured.err(), kConsoleNotice);
}

TEST_F(DictionaryFrame, UnknownTypeWritesTheDeclarationAndAMessage) {
  constexpr auto kNoType = static_cast<Type>(4);
  EXPECT_EQ(generate(kNoType, dictionary("<program/>")), kDeclaration);
  EXPECT_EQ(captured.err(),
            std::string(kConsoleNotice) + "Invalid File Type Selection for XML Output\n");
}

TEST_F(DictionaryFrame, EmptyTreeGivesTheDeclarationAlone) {
  CDMXMLElement* top = store.newElement();
  top->setFormatter(store.newFormatter());
  EXPECT_EQ(generate(Type::FT_XML_SCHEMA, top), kDeclaration);
}

TEST_F(DictionaryFrame, UnusableNameGivesTwoMessagesAndTheConsole) {
  std::string name = folder.path("missing/s.xsd");
  CDMXMLGenerator generator(dictionary("<program/>"), nullptr);
  EXPECT_FALSE(generator.GenerateFile("", "", name, "", Type::FT_XML_SCHEMA, "", true));
  EXPECT_EQ(captured.err(),
            "Unable to open output file " + name + "\nOutputting XML to stdout by default\n\n");
  EXPECT_EQ(captured.out().substr(0, sizeof kDeclaration - 1), kDeclaration);
}

TEST_F(DictionaryFrame, FileReceivesTheOutputAndTheStreamIsRestored) {
  CDMXMLGenerator generator(dictionary("<program/>"), nullptr);
  EXPECT_TRUE(
      generator.GenerateFile("", "", folder.path("s.xsd"), "", Type::FT_XML_SCHEMA, "", true));
  EXPECT_EQ(captured.out(), "");
  EXPECT_EQ(folder.read("s.xsd").substr(0, sizeof kDeclaration - 1), kDeclaration);
  EXPECT_EQ(std::cout.rdbuf(), captured.outBuffer());
}

TEST_F(DictionaryFrame, CopybookHasNoDeclaration) {
  EXPECT_EQ(generate(Type::FT_ENHANCED_COBOL, dictionary("<program/>")), "");
}

}  // namespace
}  // namespace fdmorph

// The service description: nested parameters and fields.

#include "dictionary_fixture.h"

namespace fdmorph {
namespace {

constexpr char kHead[] =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<service xmlns=\"http://www.tallmere.example/schema/xml/v1.0/dmxml.xsd\""
    " xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\""
    " xsi:schemaLocation=\"http://www.tallmere.example/schema/xml/v1.0/dmxml.xsd dmxml.xsd\""
    " name=\"P\" programName=\"P\" dataDictFilename=\"a.xml\" implementation=\"xml\">\n"
    "   <parameterTypeDefs>\n";
constexpr char kTail[] =
    "   </parameterTypeDefs>\n"
    "</service>\n";

class ServiceOutput : public DictionaryTest {
 protected:
  std::string service(std::string const& items) {
    return generate(Type::FT_INTERNAL_MAPPING,
                    dictionary("<program name='P'><dataItems>" + items + "</dataItems></program>"));
  }
};

TEST_F(ServiceOutput, AlwaysGoesToTheConsoleWithAMessage) {
  CDMXMLGenerator generator(dictionary("<program/>"), nullptr);
  EXPECT_FALSE(generator.GenerateFile("d.xml", "m.xml", "s.xsd", "c.cpy", Type::FT_INTERNAL_MAPPING,
                                      "", true));
  EXPECT_EQ(captured.err(), "Invalid filename.  Outputting XML to console:\n\n");
}

TEST_F(ServiceOutput, RecordIsAParameterAndItsMembersAreFields) {
  EXPECT_EQ(service("<group name='REC'><numeric name='B' alignment='2'/></group>"),
            std::string(kHead) +
                "      <parameter name=\"REC\" byType=\"io\" namespace=\"\">\n"
                "         <mappings>\n"
                "            <mapping item=\"REC\"/>\n"
                "         </mappings>\n"
                "         <field name=\"B\" dataType=\"decimal\" namespace=\"\""
                " isAttribute=\"false\">\n"
                "            <mappings>\n"
                "               <mapping item=\"REC.B\"/>\n"
                "            </mappings>\n"
                "         </field>\n"
                "      </parameter>\n" +
                kTail);
}

TEST_F(ServiceOutput, RedefiningItemsAreWrittenLikeOthers) {
  std::string text = service("<group name='R' redefines='true'><numeric name='B'/></group>");
  EXPECT_NE(text.find("<parameter name=\"R\" byType=\"io\""), std::string::npos);
}

TEST_F(ServiceOutput, FillerGroupWritesOnlyItsMembers) {
  std::string text =
      service("<group name='REC'><group name='Filler'><alphanumeric name='A'/></group></group>");
  EXPECT_NE(text.find("         <field name=\"A\" dataType=\"string\""), std::string::npos);
  EXPECT_EQ(text.find("Filler\" "), std::string::npos);
  EXPECT_NE(text.find("<mapping item=\"REC.Filler.A\"/>"), std::string::npos);
}

TEST_F(ServiceOutput, ElementaryFillerIsAFieldWithoutAName) {
  std::string text = service("<group name='REC'><alphanumeric name='FILLER'/></group>");
  EXPECT_NE(text.find("<field name=\"\" dataType=\"string\""), std::string::npos);
}

// A record of one elementary item opens a parameter and closes a field.
TEST_F(ServiceOutput, ElementaryRecordHasMismatchedTags) {
  EXPECT_EQ(service("<alphanumeric name='A'/>"),
            std::string(kHead) +
                "      <parameter name=\"A\" byType=\"io\" dataType=\"string\" namespace=\"\""
                " isAttribute=\"false\">\n"
                "         <mappings>\n"
                "            <mapping item=\"A\"/>\n"
                "         </mappings>\n"
                "      </field>\n" +
                kTail);
}

TEST_F(ServiceOutput, ConditionsAddNothing) {
  std::string text = service(
      "<alphanumeric name='A'><alphanumericCondition name='C'>"
      "<alphanumericConstant value='Y'/></alphanumericCondition></alphanumeric>");
  EXPECT_EQ(text.find("\"C\""), std::string::npos);
  EXPECT_EQ(text.find("Y"), std::string::npos);
}

TEST_F(ServiceOutput, ProgramWithoutANameWritesNothing) {
  EXPECT_EQ(generate(Type::FT_INTERNAL_MAPPING,
                     dictionary("<program><dataItems><numeric name='A'/></dataItems></program>")),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
}

TEST_F(ServiceOutput, MappingGivesNameTypeNamespaceAndFlag) {
  CDMXMLCOBOLExternalMapping mapping;
  mapping.Initialize(
      dictionary("<xml-cobol-mapping-file><xml-cobol-mapping><cobol-name>REC.A</cobol-name>"
                 "<xml-name>Alpha</xml-name><xml-type>token</xml-type>"
                 "<xml-namespace>urn:a</xml-namespace><xml-attribute>true</xml-attribute>"
                 "</xml-cobol-mapping></xml-cobol-mapping-file>"),
      nullptr);
  std::string text = generate(
      Type::FT_INTERNAL_MAPPING,
      dictionary("<program name='P'><dataItems><group name='REC'><numeric name='A'/></group>"
                 "</dataItems></program>"),
      &mapping);
  EXPECT_NE(text.find("<field name=\"Alpha\" dataType=\"token\" namespace=\"urn:a\""
                      " isAttribute=\"true\">"),
            std::string::npos);
}

}  // namespace
}  // namespace fdmorph

// The mapping file in memory.

#include "dictionary/data_dictionary.h"
#include "dictionary_fixture.h"

namespace fdmorph {
namespace {

class MappingModel : public DictionaryTest {
 protected:
  void read(std::string const& entries) {
    EXPECT_TRUE(mapping.Initialize(
        dictionary("<xml-cobol-mapping-file>" + entries + "</xml-cobol-mapping-file>"), nullptr));
  }

  static std::string entry(std::string const& name, std::string const& more = "") {
    return "<xml-cobol-mapping><cobol-name>" + name + "</cobol-name>" + more +
           "</xml-cobol-mapping>";
  }

  CDMXMLCOBOLExternalMapping mapping;
};

TEST_F(MappingModel, MissingElementsHaveTheirDefaults) {
  read(entry("A"));
  CDMXMLCOBOLMapping const* found = mapping.findMapping("A");
  ASSERT_NE(found, nullptr);
  EXPECT_TRUE(found->cobolCountIn);
  EXPECT_FALSE(found->xmlAttribute);
  EXPECT_EQ(found->xmlName + found->xmlType + found->xmlNamespace, "");
}

TEST_F(MappingModel, OnlyTheWordTrueIsTrue) {
  read(entry("A", "<cobol-count-in>TRUE</cobol-count-in><xml-attribute>1</xml-attribute>"));
  EXPECT_FALSE(mapping.findMapping("A")->cobolCountIn);
  EXPECT_FALSE(mapping.findMapping("A")->xmlAttribute);
}

TEST_F(MappingModel, TheFirstEntryOfANameWins) {
  read(entry("A", "<xml-name>first</xml-name>") + entry("A", "<xml-name>second</xml-name>"));
  EXPECT_EQ(mapping.findMapping("A")->xmlName, "first");
}

TEST_F(MappingModel, KeysAreComparedWithTheirCase) {
  read(entry("rec"));
  EXPECT_EQ(mapping.findMapping("REC"), nullptr);
}

TEST_F(MappingModel, EntryWithoutANameNeverMatchesAnItem) {
  read("<xml-cobol-mapping><xml-name>x</xml-name></xml-cobol-mapping>");
  CDMXMLElement* item = dictionary("<numeric/>")->getFirstChildElem();
  EXPECT_EQ(mapping.findMapping(item), nullptr);
}

TEST_F(MappingModel, UnknownElementDiscardsEarlierEntries) {
  read(entry("A") + "<other/>" + entry("B"));
  EXPECT_EQ(mapping.findMapping("A"), nullptr);
  EXPECT_NE(mapping.findMapping("B"), nullptr);
  EXPECT_EQ(mapping.entries().size(), 1U);
}

TEST_F(MappingModel, UnknownElementInAnEntryDiscardsThatEntryToo) {
  read(entry("A", "<other/><xml-name>late</xml-name>") + entry("B"));
  EXPECT_EQ(mapping.findMapping("A"), nullptr);
  EXPECT_NE(mapping.findMapping("B"), nullptr);
}

TEST_F(MappingModel, ChildrenOfAnUnknownElementAreNotRead) {
  read("<other>" + entry("A") + "</other>");
  EXPECT_TRUE(mapping.entries().empty());
}

TEST_F(MappingModel, PrefixMakesAnElementUnknown) {
  read(entry("A") + "<m:xml-cobol-mapping xmlns:m='urn:m'/>");
  EXPECT_TRUE(mapping.entries().empty());
}

TEST_F(MappingModel, ItemIsFoundByItsWholePath) {
  read(entry("REC.G.A", "<xml-name>x</xml-name>") + entry("A") + entry("G.A"));
  CDMXMLElement* record =
      dictionary("<group name='REC'><group name='G'><numeric name='A'/></group></group>")
          ->getFirstChildElem();
  CDMXMLElement* item = record->getFirstChildElem()->getFirstChildElem();
  EXPECT_EQ(getQualifiedNameAttr(item), "REC.G.A");
  ASSERT_NE(mapping.findMapping(item), nullptr);
  EXPECT_EQ(mapping.findMapping(item)->xmlName, "x");
  EXPECT_EQ(mapping.findMapping(record), nullptr);
}

// The count-in option of the run overrides the file, but not vice versa.
TEST_F(MappingModel, CountInCanOnlyBeSwitchedOff) {
  read(entry("A", "<cobol-count-in>true</cobol-count-in>") +
       entry("B", "<cobol-count-in>false</cobol-count-in>"));
  CDMXMLElement* a = dictionary("<numeric name='A'/>")->getFirstChildElem();
  CDMXMLElement* b = dictionary("<numeric name='B'/>")->getFirstChildElem();
  ItemName switchedOff = defaultNameOf(a, false);
  ApplyExternalMappingFile(a, &mapping, switchedOff);
  EXPECT_FALSE(switchedOff.countIn);
  ItemName switchedOn = defaultNameOf(b, true);
  ApplyExternalMappingFile(b, &mapping, switchedOn);
  EXPECT_FALSE(switchedOn.countIn);
}

TEST_F(MappingModel, EmptyTextOfAnEntryReplacesADefault) {
  read(entry("A"));
  CDMXMLElement* a = dictionary("<numeric name='A'/>")->getFirstChildElem();
  ItemName name = defaultNameOf(a, true);
  EXPECT_EQ(name.xmlName, "A");
  EXPECT_TRUE(ApplyExternalMappingFile(a, &mapping, name));
  EXPECT_EQ(name.xmlName, "");
  EXPECT_EQ(name.xmlType, "");
}

TEST_F(MappingModel, ItemWithoutAnEntryKeepsItsDefaults) {
  read(entry("A"));
  CDMXMLElement* b = dictionary("<numeric name='B'/>")->getFirstChildElem();
  ItemName name = defaultNameOf(b, true);
  EXPECT_FALSE(ApplyExternalMappingFile(b, &mapping, name));
  EXPECT_EQ(name.xmlName, "B");
}

}  // namespace
}  // namespace fdmorph

// The entries of mapping files.

#include "mapping/mapping_entries.h"

#include <gtest/gtest.h>

namespace fdmorph::mapping {
namespace {

/// The document outlives its entries.
struct Entries {
  explicit Entries(std::string_view text)
      : document(readMapping(text, "map.xml").document), content(readEntries(document)) {}

  MappingDocument document;
  MappingContent content;
};

constexpr char kTwoEntries[] =
    "<xml-cobol-mapping-file>"
    "<xml-cobol-mapping><cobol-name>A</cobol-name></xml-cobol-mapping>"
    "<xml-cobol-mapping><xml-name>b</xml-name><cobol-name>B</cobol-name></xml-cobol-mapping>"
    "</xml-cobol-mapping-file>";

TEST(MappingEntries, ValuesMayBeMissingAndInAnyOrder) {
  Entries const read(kTwoEntries);
  ASSERT_EQ(read.content.entries.size(), 2U);
  MappingEntry const& first = read.content.entries[0];
  EXPECT_EQ(first.key(), "A");
  EXPECT_FALSE(first.has(MappingField::name));
  EXPECT_TRUE(first.hasCountIn());
  EXPECT_FALSE(first.isAttribute());
  EXPECT_EQ(read.content.entries[1].texts[MappingField::name], "b");
}

TEST(MappingEntries, AnUnknownElementDiscardsTheEntriesBeforeIt) {
  Entries const read(
      "<xml-cobol-mapping-file><xml-cobol-mapping/><xml-cobol-mapping><typo><cobol-name>A"
      "</cobol-name></typo></xml-cobol-mapping><p:other xmlns:p='urn:p'/><xml-cobol-mapping/>"
      "</xml-cobol-mapping-file>");
  ASSERT_EQ(read.content.foreign.size(), 2U);
  EXPECT_EQ(read.content.foreign[0].discarded, 2U);
  EXPECT_EQ(read.content.foreign[1].discarded, 0U);
  EXPECT_EQ(read.content.entries.size(), 3U);
  EXPECT_EQ(read.content.entries[1].key(), "");
}

TEST(MappingEntries, KnownElementsAtOtherPlacesAreTold) {
  Entries const root("<xml-cobol-mapping><cobol-name>A</cobol-name></xml-cobol-mapping>");
  EXPECT_EQ(root.content.misplaced, std::vector<std::size_t>{0});
  EXPECT_EQ(root.content.entries.front().key(), "A");
  Entries const outside("<xml-cobol-mapping-file><xml-name/></xml-cobol-mapping-file>");
  EXPECT_EQ(outside.content.outside, std::vector<std::size_t>{1});
}

TEST(MappingEntries, TheLastOfSeveralValuesCounts) {
  Entries const read(
      "<xml-cobol-mapping><xml-name>a</xml-name><xml-name>b</xml-name></xml-cobol-mapping>");
  EXPECT_EQ(read.content.entries.front().texts[MappingField::name], "b");
  EXPECT_EQ(read.content.repeated, std::vector<std::size_t>{1});
}

TEST(MappingEntries, RemarksBelongToTheNextEntryOrTheirOwnLine) {
  Entries const read(
      "<!--head-->\n<xml-cobol-mapping-file>\n<!--first-->\n"
      "<xml-cobol-mapping><!--inside--></xml-cobol-mapping> <!--same line-->\n"
      "<!--second--><xml-cobol-mapping/>\n<!--end-->\n</xml-cobol-mapping-file>\n<!--tail-->");
  using Remarks = std::vector<std::string>;
  EXPECT_EQ(read.content.head, Remarks{"<!--head-->"});
  EXPECT_EQ(read.content.entries[0].remarks,
            (Remarks{"<!--first-->", "<!--inside-->", "<!--same line-->"}));
  EXPECT_EQ(read.content.entries[1].remarks, Remarks{"<!--second-->"});
  EXPECT_EQ(read.content.end, Remarks{"<!--end-->"});
  EXPECT_EQ(read.content.tail, Remarks{"<!--tail-->"});
}

}  // namespace
}  // namespace fdmorph::mapping

// Edits carried over to a changed copybook.

#include "mapping/mapping_merge.h"

#include <gtest/gtest.h>

#include "mapping/carried_values.h"
#include "mapping/merged_file.h"
#include "mapping_fixture.h"

namespace fdmorph::mapping {
namespace {

MergeResult merge(Described const& described, std::string const& content,
                  MergeOptions const& options = {}) {
  return mergeMapping(content, "map.xml", described.data(), options);
}

/// What fdmorph writes.
std::string fresh(Described const& described, bool countIn = true) {
  return writeMerged(*described.data().dictionary(), {}, countIn);
}

/// A text with a part replaced.
std::string with(std::string text, std::string const& old, std::string const& now) {
  std::size_t const at = text.find(old);
  EXPECT_NE(at, text.npos) << old;
  return at == text.npos ? text : text.replace(at, old.size(), now);
}

constexpr char kRecord[] =
    "01  REC.\n"
    "    05  A PIC X(4).\n"
    "        88  GOOD VALUE 'good'.\n"
    "    05  B PIC 9(4).\n"
    "    05  PIC X.\n"
    "    05  PIC 9.\n";

TEST(MappingMerge, NothingChangesWithoutAChange) {
  Described const described(kRecord);
  for (bool countIn : {true, false}) {
    std::string const text = fresh(described, countIn);
    MergeResult const result = merge(described, text);
    EXPECT_EQ(result.text, text);
    EXPECT_EQ(result.findings.count(), 0U);
  }
}

TEST(MappingMerge, EditsAndCommentsStay) {
  Described const described(kRecord);
  std::string text = fresh(described);
  text = with(text, "<xml-name>B</xml-name>", "<xml-name>b</xml-name>");
  text = with(text, "   <xml-cobol-mapping>\n      <cobol-name>REC.B<",
              "   <!-- the number\n     of the bill -->\n"
              "   <xml-cobol-mapping>\n      <cobol-name>REC.B<");
  text = with(text, "</xml-cobol-mapping-file>", "   <!-- end -->\n</xml-cobol-mapping-file>");
  EXPECT_EQ(merge(described, text).text, text);
}

TEST(MappingMerge, MarkupInValuesIsEscaped) {
  Described const described("01  A PIC X.\n");
  std::string const text =
      with(fresh(described), "<xml-namespace></", "<xml-namespace>urn:a?b&amp;c</");
  EXPECT_EQ(merge(described, text).text, text);
}

TEST(MappingMerge, MissingValuesAreWrittenAsTheyAreTaken) {
  Described const described("01  A PIC X.\n");
  std::string const text = mappingFile(
      "<xml-cobol-mapping><cobol-name>A</cobol-name><xml-name>a</xml-name></xml-cobol-mapping>");
  std::string const expected = with(with(fresh(described), "<xml-name>A<", "<xml-name>a<"),
                                    "<xml-type>string<", "<xml-type><");
  EXPECT_EQ(merge(described, text).text, expected);
}

TEST(MappingMerge, NewTypeComesThroughWithTheOldCopybook) {
  Described const old("01  A.\n    05  B PIC X.\n    05  C PIC X.\n");
  Described const described("01  A.\n    05  B PIC 9.\n    05  C PIC 9.\n");
  std::string const text = with(fresh(old), "<xml-name>C</xml-name>\n      <xml-type>string<",
                                "<xml-name>C</xml-name>\n      <xml-type>token<");
  MergeOptions options;
  options.old = &old.data();
  std::string const expected =
      with(fresh(described), "<xml-name>C</xml-name>\n      <xml-type>integer<",
           "<xml-name>C</xml-name>\n      <xml-type>token<");
  EXPECT_EQ(merge(described, text, options).text, expected);
  EXPECT_EQ(merge(described, text).text,
            with(expected, "<xml-name>B</xml-name>\n      <xml-type>integer<",
                 "<xml-name>B</xml-name>\n      <xml-type>string<"));
}

TEST(MappingMerge, TypeThatTheItemCannotHaveIsReplaced) {
  Described const old("01  A.\n    05  B PIC 9.\n    05  C PIC X.\n");
  Described const described("01  A.\n    05  B PIC X.\n    05  C.\n        10  D PIC X.\n");
  std::string const text = with(fresh(old), "<xml-type>string<", "<xml-type>token<");
  MergeResult const result = merge(described, text);
  EXPECT_EQ(withoutPlaces(result.findings),
            "new A.C.D: the item has no entry; it gets one\n"
            "edit A.B: the type 'integer' does not go with the item any more; 'string' replaces "
            "it\n"
            "edit A.C: the type 'token' does not go with the item any more; 'group' replaces it\n");
  EXPECT_EQ(result.text,
            with(fresh(described), "   <xml-cobol-mapping>\n      <cobol-name>A.C<",
                 "   <!-- xml-type was token -->\n   <xml-cobol-mapping>\n      <cobol-name>A.C<"));
}

TEST(MappingMerge, EntryWithoutAnItemBecomesAComment) {
  Described const described("01  A.\n    05  B PIC X.\n");
  std::string const text =
      mappingFile(entry("A", "A", "group") + entry("A.B", "B") +
                  "\n<!-- gone --><xml-cobol-mapping><cobol-name>A.LONG--NAME</cobol-name>"
                  "<xml-name>a&lt;---b</xml-name></xml-cobol-mapping>");
  MergeResult const result = merge(described, text);
  EXPECT_EQ(withoutPlaces(result.findings),
            "gone A.LONG--NAME: no item has this name any more; the entry is now a comment\n");
  EXPECT_EQ(result.text, with(fresh(described), "</xml-cobol-mapping-file>",
                              "   <!-- gone -->\n"
                              "   <!-- no item has this name any more\n"
                              "   <xml-cobol-mapping>\n"
                              "      <cobol-name>A.LONG-&#45;NAME</cobol-name>\n"
                              "      <xml-name>a&lt;-&#45;-b</xml-name>\n"
                              "   </xml-cobol-mapping>\n"
                              "   -->\n"
                              "</xml-cobol-mapping-file>"));
  // The comment stays in the next run.
  EXPECT_EQ(merge(described, result.text).text, result.text);
}

TEST(MappingMerge, EntryWithoutAnItemAndWithoutEditsGoesAway) {
  Described const old("01  A.\n    05  B PIC X.\n    05  C PIC X.\n    05  PIC X.\n");
  Described const described("01  A.\n    05  B PIC X.\n");
  MergeOptions options;
  options.old = &old.data();
  MergeResult const result = merge(described, fresh(old), options);
  EXPECT_EQ(result.text, fresh(described));
  EXPECT_EQ(result.findings.count(), 0U);
}

TEST(MappingMerge, OnlyNewItemOfTheGroupIsSuggested) {
  Described const described("01  A.\n    05  B PIC X.\n    05  EMAIL PIC X.\n");
  EXPECT_EQ(withoutPlaces(merge(described, mappingFile(entry("A", "A", "group") +
                                                       entry("A.B", "B") + entry("A.FAX", "fax")))
                              .findings),
            "new A.EMAIL: the item has no entry; it gets one\n"
            "gone A.FAX: no item has this name any more; the entry is now a comment; --rename "
            "A.FAX=A.EMAIL if that is its new name\n");
}

TEST(MappingMerge, EntriesThatFdmorphWouldNotWriteStay) {
  Described const described("01  A.\n    05  FILLER.\n        10  B PIC X.\n01  C PIC X.\n");
  std::string const text = mappingFile(entry("C", "c") + entry("A", "A", "group") +
                                       entry("A.FILLER", "", "") + entry("A.FILLER.B", "B"));
  auto const written = [](std::string const& key, std::string const& name,
                          std::string const& type) {
    return "   <xml-cobol-mapping>\n      <cobol-name>" + key +
           "</cobol-name>\n      <cobol-count-in>true</cobol-count-in>\n      <xml-name>" + name +
           "</xml-name>\n      <xml-type>" + type +
           "</xml-type>\n      <xml-attribute>false</xml-attribute>\n"
           "      <xml-namespace></xml-namespace>\n   </xml-cobol-mapping>\n";
  };
  MergeResult const result = merge(described, text);
  std::string const member = written("A.FILLER.B", "B", "string");
  EXPECT_EQ(result.text,
            with(fresh(described), member,
                 written("A.FILLER", "", "group") + member + written("C", "c", "string")));
  EXPECT_EQ(withoutPlaces(result.findings),
            "kept C: kept, although fdmorph writes no entry for it\n");
}

TEST(MappingMerge, FileThatIsNotReadAsItLooksIsRefused) {
  Described const described("01  A PIC X.\n");
  MergeResult const result = merge(described, mappingFile("<typo/>" + entry("A", "a")));
  EXPECT_EQ(result.text, "");
  EXPECT_EQ(withoutPlaces(result.findings), "element : unknown element 'typo'\n");
  EXPECT_EQ(merge(described, "<a>").text, "");
}

TEST(MappingMerge, RenameHasToNameAnEntryAndAnItem) {
  Described const described("01  A PIC X.\n");
  MergeOptions options;
  options.renames = {{"B", "A"}};
  MergeResult const result = merge(described, mappingFile(entry("A", "a")), options);
  EXPECT_EQ(result.text, "");
  EXPECT_EQ(withoutPlaces(result.findings), "rename : no entry for 'B'\n");
}

TEST(MappingMerge, TypesThatFollowFromADictionaryAreKnown) {
  EXPECT_TRUE(isDefaultType("decimal"));
  EXPECT_FALSE(isDefaultType("token"));
}

}  // namespace
}  // namespace fdmorph::mapping

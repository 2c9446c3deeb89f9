// Data descriptions written again.
#include "copybook/copybook_writer.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "support/copybook_round_trip.h"

namespace fdmorph::copybook {
namespace {

/// A source in free format, and what is written of its records.
struct Written {
  explicit Written(std::string const& text) : before(text, LineForm::free) {
    EXPECT_EQ(before.errors(), "");
  }

  std::vector<compiler::DataItem const*> records() const {
    return recordsOf(before.source->data().workingStorage);
  }
  std::string text(CopybookForm const& form = {}, ItemChanges const& changes = {}) const {
    return writeCopybook(records(), form, changes);
  }
  compiler::DataItem const* item(std::string_view name) const {
    for (auto const& each : before.source->data().items) {
      if (each.name == name) return &each;
    }
    return nullptr;
  }

  MemorySource before;
};

void expectSameItems(std::vector<compiler::DataItem const*> const& records,
                     std::string const& what) {
  for (LineForm lines : {LineForm::fixed, LineForm::free}) {
    for (bool hasXml : {true, false}) {
      std::string text = writeCopybook(records, {hasXml, lines}, {});
      MemorySource after(text, lines);
      ASSERT_EQ(after.errors(), "") << what << "\n" << text;
      ASSERT_EQ(describeItems(recordsOf(after.source->data().workingStorage), hasXml),
                describeItems(records, hasXml))
          << what << "\n"
          << text;
    }
  }
}

TEST(CopybookWriter, WritesEveryClause) {
  Written source(
      "01 R USAGE DISPLAY.\n"
      " 05 A PIC S9(3)V99 SIGN LEADING SEPARATE VALUE IS -1.5.\n"
      " 05 REDEFINES A PIC X(6).\n"
      " 05 FILLER PIC A(3) JUST.\n"
      " 05 N PIC 99 COMP SYNC.\n"
      " 05 Z PIC 99 BLANK ZERO.\n"
      " 88 C VALUES 1 THRU 3 5 WHEN SET TO FALSE ZEROS.\n"
      " 05 T OCCURS 1 TO 9 DEPENDING N ASCENDING KEY K L DESCENDING M INDEXED BY I J.\n"
      "  10 K PIC X VALUE ALL '*'. 10 L BINARY-CHAR UNSIGNED. 10 M COMP-1.\n"
      " 66 S RENAMES A OF R THRU N.\n");
  EXPECT_EQ(source.text(),
            "       01 R USAGE DISPLAY.\n"
            "           05 A PIC S9(3)V99 SIGN LEADING SEPARATE VALUE -1.5.\n"
            "           05 FILLER REDEFINES A PIC X(6).\n"
            "           05 FILLER PIC A(3) JUSTIFIED.\n"
            "           05 N PIC 99 USAGE COMP SYNCHRONIZED.\n"
            "           05 Z PIC 99 BLANK WHEN ZERO.\n"
            "             88 C VALUE 1 THRU 3 5 WHEN SET TO FALSE ZERO.\n"
            "           05 T OCCURS 1 TO 9 TIMES DEPENDING ON N ASCENDING KEY K L\n"
            "               DESCENDING KEY M INDEXED BY I J.\n"
            "             10 K PIC X VALUE ALL '*'.\n"
            "             10 L USAGE BINARY-CHAR UNSIGNED.\n"
            "             10 M USAGE COMP-1.\n"
            "           66 S RENAMES A OF R THRU N.\n");
  expectSameItems(source.records(), "");
}

TEST(CopybookWriter, WritesXmlClausesInTheEnhancedForm) {
  Written source(
      "01 R IDENTIFIED BY 'r' NAMESPACE \"urn:r\".\n"
      " 05 A PIC X IDENTIFIED BY \"a\" ATTRIBUTE COUNT IN A-COUNT.\n");
  EXPECT_EQ(source.text(),
            "       01 R IDENTIFIED BY 'r' NAMESPACE IS \"urn:r\".\n"
            "           05 A PIC X IDENTIFIED BY \"a\" IS ATTRIBUTE COUNT IN A-COUNT.\n");
  EXPECT_EQ(source.text({false}),
            "       01 R.\n"
            "           05 A PIC X.\n");
}

TEST(CopybookWriter, KeepsNamesThatAreKeywords) {
  Written source(
      "01 R IDENTIFIED BY \"r\".\n"
      " 05 VALUE IDENTIFIED BY \"v\" PIC X.\n"
      " 05 INDEX IDENTIFIED BY \"i\" REDEFINES VALUE PIC X.\n"
      " 05 DISPLAY OCCURS 3 TIMES IDENTIFIED BY \"d\".\n"
      "  10 SIGN PIC X.\n");
  std::string text = source.text();
  MemorySource after(text, LineForm::fixed);
  EXPECT_EQ(after.errors(), "") << text;
  EXPECT_EQ(describeItems(recordsOf(after.source->data().workingStorage), true),
            describeItems(source.records(), true));
}

TEST(CopybookWriter, WritesBytesInHexadecimal) {
  Written source("01 A PIC X(3) VALUE \"a\" & X\"00\" & \"b\".\n");
  EXPECT_EQ(source.text(), "       01 A PIC X(3) VALUE X\"610062\".\n");
}

TEST(CopybookWriter, WritesImpliedPicturesButNotImpliedRecords) {
  Written source("05 A PIC 9.\n05 B.\n 10 VALUE 'abc'.\n");
  EXPECT_EQ(source.text(),
            "       05 A PIC 9.\n"
            "       05 B.\n"
            "           10 FILLER PIC X(3) VALUE 'abc'.\n");
}

TEST(CopybookWriter, AppliesChanges) {
  Written source("01 R.\n 05 A PIC X.\n 05 N PIC 9.\n 05 B PIC 9 OCCURS 1 TO 3 DEPENDING N.\n");
  ItemChanges changes;
  changes[source.item("A")] = {.picture = "X(20)", .occurs = OccursRange{0, 7}};
  changes[source.item("B")] = {.occurs = OccursRange{1, 9}, .comments = {"longer"}};
  EXPECT_EQ(source.text({}, changes),
            "       01 R.\n"
            "           05 A PIC X(20) OCCURS 7 TIMES.\n"
            "           05 N PIC 9.\n"
            "      * longer\n"
            "           05 B PIC 9 OCCURS 1 TO 9 TIMES DEPENDING ON N.\n");
}

TEST(CopybookWriter, LetsReferencesFollowNames) {
  Written source(
      "01 R.\n 05 A PIC X.\n 05 B REDEFINES A PIC X.\n 05 G.\n  10 N PIC 9.\n 05 N2 PIC X.\n"
      " 05 T OCCURS 1 TO 3 DEPENDING ON N OF G ASCENDING KEY K OF T.\n  10 K PIC X.\n"
      " 66 Z RENAMES A THRU N OF G.\n");
  ItemChanges changes;
  changes[source.item("A")].name = "A-1";
  changes[source.item("G")].name = "G-1";
  changes[source.item("N2")].name = "N";
  changes[source.item("K")].name = "K-1";
  EXPECT_EQ(source.text({}, changes),
            "       01 R.\n"
            "           05 A-1 PIC X.\n"
            "           05 B REDEFINES A-1 PIC X.\n"
            "           05 G-1.\n"
            "             10 N PIC 9.\n"
            "           05 N PIC X.\n"
            "           05 T OCCURS 1 TO 3 TIMES DEPENDING ON N OF G-1 OF R\n"
            "               ASCENDING KEY K-1 OF T.\n"
            "             10 K-1 PIC X.\n"
            "           66 Z RENAMES A-1 THRU N OF G-1 OF R.\n");
}

TEST(CopybookWriter, LeavesItemsOut) {
  Written source("01 R.\n 05 A.\n  10 B PIC X.\n 05 C REDEFINES A PIC X VALUE 'c'.\n");
  ItemChanges changes;
  changes[source.item("A")].isLeftOut = true;
  changes[source.item("C")] = {.redefines = "", .hasNoValue = true};
  EXPECT_EQ(source.text({}, changes),
            "       01 R.\n"
            "           05 C PIC X.\n");
}

TEST(CopybookWriter, NestsUnderAnotherName) {
  CopybookForm form{.outerName = "OUTER"};
  EXPECT_EQ(Written("01 R.\n 05 A PIC X.\n").text(form),
            "       01 OUTER.\n"
            "           02 R.\n"
            "             06 A PIC X.\n");
  // Level 49 has no next one.
  EXPECT_EQ(Written("01 R.\n 49 A PIC X.\n 66 B RENAMES A.\n").text(form),
            "       01 OUTER.\n"
            "           02 R.\n"
            "             03 A PIC X.\n"
            "             66 B RENAMES A.\n");
  EXPECT_EQ(Written("05 A PIC X.\n05 B PIC X.\n").text(form),
            "       01 OUTER.\n"
            "           05 A PIC X.\n"
            "           05 B PIC X.\n");
}

std::string contentOf(std::filesystem::path const& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

TEST(CopybookWriter, KeepsTheItemsOfRealSources) {
  char const* corpus = std::getenv("FDMORPH_CORPUS");
  if (corpus == nullptr) GTEST_SKIP() << "FDMORPH_CORPUS is not set";
  std::size_t count = 0;
  for (auto const& entry :
       std::filesystem::recursive_directory_iterator(std::filesystem::path(corpus) / "cobol")) {
    if (!entry.is_regular_file()) continue;
    MemorySource source(contentOf(entry.path()), LineForm::fixed);
    if (!source.errors().empty()) continue;
    compiler::DataDivision const& data = source.source->data();
    std::vector<compiler::RecordList> lists{data.workingStorage, data.linkage, data.localStorage};
    for (auto const& file : data.files) lists.push_back(file.records);
    for (compiler::RecordList const& list : lists) {
      if (list.first == nullptr) continue;
      ++count;
      expectSameItems(recordsOf(list), entry.path());
    }
  }
  EXPECT_GT(count, 0);
}

}  // namespace
}  // namespace fdmorph::copybook

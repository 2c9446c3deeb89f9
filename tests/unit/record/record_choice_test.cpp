// The records that options choose.
#include "record/record_choice.h"

#include <gtest/gtest.h>

#include "source/diagnostic_output.h"
#include "support/memory_tree.h"

namespace fdmorph::record {
namespace {

constexpr char kProgram[] =
    "IDENTIFICATION DIVISION.\n"
    "PROGRAM-ID. P.\n"
    "ENVIRONMENT DIVISION.\n"
    "INPUT-OUTPUT SECTION.\n"
    "FILE-CONTROL.\n"
    "  SELECT F ASSIGN TO \"f\".\n"
    "DATA DIVISION.\n"
    "FILE SECTION.\n"
    "FD F.\n"
    "01 F-ONE PIC X.\n"
    "01 F-TWO PIC X.\n"
    "WORKING-STORAGE SECTION.\n"
    "77 W-ONE PIC X.\n"
    "78 W-CONSTANT VALUE 1.\n"
    "01 W-TWO.\n"
    "  05 W-ITEM PIC X.\n"
    "LINKAGE SECTION.\n"
    "01 L-ONE PIC X.\n";

/// The names of the chosen records, separated by blanks, and the messages.
struct Chosen {
  Chosen(std::string const& content, RecordChoice const& choice) {
    compiler::MemoryTree files;
    files.files["a.cbl"] = content;
    compiler::SourceOptions options;
    options.reading.format = compiler::Format::free;
    compiler::CompiledSource source("a.cbl", options, files);
    for (compiler::DataItem const* each : chooseRecords(source, choice)) {
      (names += names.empty() ? "" : " ") += each->name;
    }
    reports = compiler::printDiagnostics(source.diagnostics());
  }

  std::string names;
  std::string reports;
};

TEST(RecordChoice, IsAllRecordsOfTheFirstFileByDefault) {
  EXPECT_EQ(Chosen(kProgram, {}).names, "F-ONE F-TWO");
}

TEST(RecordChoice, IsTheFirstRecordOfAnotherSection) {
  EXPECT_EQ(Chosen(kProgram, {{}, RecordSection::workingStorage}).names, "W-ONE");
  EXPECT_EQ(Chosen(kProgram, {{}, RecordSection::linkage}).names, "L-ONE");
}

TEST(RecordChoice, PassesSectionsWithoutRecords) {
  EXPECT_EQ(Chosen("01 A PIC X.\n01 B PIC X.\n", {}).names, "A");
}

TEST(RecordChoice, IsByNameInAnyCaseInTheOrderGivenAndOnce) {
  Chosen chosen(kProgram, {{"l-one", "W-TWO", "f-two", "L-ONE"}});
  EXPECT_EQ(chosen.names, "L-ONE W-TWO F-TWO");
  EXPECT_EQ(chosen.reports, "");
}

TEST(RecordChoice, IsByNameInASection) {
  Chosen chosen(kProgram, {{"W-TWO"}, RecordSection::linkage});
  EXPECT_EQ(chosen.names, "");
  EXPECT_EQ(chosen.reports, "zbc: error: no record 'W-TWO' in the linkage section [choice]\n");
}

TEST(RecordChoice, HasOnlyLevels1And77) {
  for (char const* name : {"W-ITEM", "W-CONSTANT"}) {
    EXPECT_EQ(Chosen(kProgram, {{name}}).names, "") << name;
  }
}

TEST(RecordChoice, SuggestsANameThatIsNear) {
  EXPECT_EQ(Chosen(kProgram, {{"W-TOW"}}).reports,
            "zbc: error: no record 'W-TOW' in any section; did you mean W-TWO? [choice]\n");
}

TEST(RecordChoice, NeedsARecord) {
  EXPECT_EQ(Chosen(kProgram, {{}, RecordSection::localStorage}).reports,
            "zbc: error: no record in the local-storage section [no-data]\n");
}

}  // namespace
}  // namespace fdmorph::record

// The functions for programs, in a process that is not C.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <thread>
#include <vector>

#include "library/fdrec.h"
#include "support/temporary_folder.h"

namespace {

using fdmorph::TemporaryFolder;

class Interface : public ::testing::Test {
 protected:
  fdrec_layout* open(std::string const& copybook, char const* options) {
    std::string path = m_folder.write("a.cpy", copybook);
    EXPECT_EQ(fdrec_open(path.c_str(), options, &m_layout), FDREC_OK) << message();
    return m_layout;
  }

  void TearDown() override { fdrec_close(m_layout); }

  static std::string message() {
    std::string text(fdrec_message(nullptr, 0) + 1, '\0');
    fdrec_message(text.data(), text.size());
    text.pop_back();
    return text;
  }

  static std::string toXml(fdrec_layout const* layout, std::string const& record,
                           void const* counts = nullptr) {
    char out[1000];
    std::size_t used = 0;
    int status = fdrec_to_xml(layout, record.data(), record.size(), counts, out, sizeof out, &used);
    return status == FDREC_OK ? std::string(out, used) : message();
  }

  static std::string fromXml(fdrec_layout const* layout, std::string const& document,
                             void* counts = nullptr) {
    char out[1000];
    std::size_t used = 0;
    int status =
        fdrec_from_xml(layout, document.data(), document.size(), out, sizeof out, &used, counts);
    return status == FDREC_OK ? std::string(out, used) : message();
  }

  TemporaryFolder m_folder;
  fdrec_layout* m_layout = nullptr;
};

constexpr char kTable[] =
    "       01 A.\n"
    "          05 N PIC 9.\n"
    "          05 T PIC X OCCURS 1 TO 3 DEPENDING ON N.\n"
    "          05 E PIC X.\n";

// With tables that slide, a record is as long as its counter says.
TEST_F(Interface, RecordsWithSlidingTablesHaveTheLengthOfTheirCounter) {
  fdrec_layout const* layout = open(kTable, "--dialect gnucobol --format rdw");
  EXPECT_EQ(toXml(layout, "2abz"), "<A><N>2</N><T>a</T><T>b</T><E>z</E></A>");
  EXPECT_EQ(fromXml(layout, "<A><N>1</N><T>a</T><E>z</E></A>"), "1az");
}

// With the fixed format the record keeps the length of its largest form.
TEST_F(Interface, FixedRecordsAreFilledWithBlanks) {
  fdrec_layout const* layout = open(kTable, "--dialect gnucobol --odo shift");
  EXPECT_EQ(fromXml(layout, "<A><N>1</N><T>a</T><E>z</E></A>"), "1az  ");
  EXPECT_EQ(toXml(layout, "1az  "), "<A><N>1</N><T>a</T><E>z</E></A>");
}

constexpr char kCounted[] =
    "       01 A.\n"
    "          05 B PIC X COUNT IN B-COUNT.\n"
    "          05 C PIC X OCCURS 2 COUNT IN C-COUNT.\n";

// Two numbers of 4 bytes, for B and for C. The byte order is that of the dialect.
TEST_F(Interface, CountsAreInTheByteOrderOfTheDialect) {
  fdrec_layout const* layout = open(kCounted, "--dialect gnucobol");
  unsigned char const counts[] = {0, 0, 0, 0, 1, 0, 0, 0};
  EXPECT_EQ(toXml(layout, "xyz", counts), "<A><C>y</C></A>");
  EXPECT_EQ(toXml(layout, "xyz"), "<A><B>x</B><C>y</C><C>z</C></A>");
  unsigned char found[9] = {9, 9, 9, 9, 9, 9, 9, 9, 9};
  EXPECT_EQ(fromXml(layout, "<A><B>x</B><C>y</C><C>z</C></A>", found), "xyz");
  EXPECT_EQ(std::vector<int>(found, found + 9), (std::vector<int>{1, 0, 0, 0, 2, 0, 0, 0, 9}));
}

TEST_F(Interface, CountsOfTheIbmDialectAreBigEndian) {
  fdrec_layout const* layout = open(kCounted, "--encoding latin-1");
  unsigned char found[8] = {};
  EXPECT_EQ(fromXml(layout, "<A><C>y</C><C>z</C></A>", found), " yz");
  EXPECT_EQ(std::vector<int>(found, found + 8), (std::vector<int>{0, 0, 0, 0, 0, 0, 0, 2}));
}

// --counts is for files; in a program each call says whether there are counts.
TEST_F(Interface, TheOptionForCountsInFilesHasNoEffect) {
  fdrec_layout const* layout = open(kCounted, "--dialect gnucobol --counts");
  EXPECT_EQ(toXml(layout, "xyz"), "<A><B>x</B><C>y</C><C>z</C></A>");
  EXPECT_EQ(fromXml(layout, "<A><B>x</B></A>"), "x  ");
}

// JSON has no namespaces: the two items are one member there. XML does not mind.
TEST_F(Interface, AnErrorOfTheLayoutForJsonLeavesXml) {
  fdrec_layout const* layout = open(
      "       01 A IDENTIFIED BY \"a\".\n"
      "          05 B PIC X IDENTIFIED BY \"b\" NAMESPACE IS \"urn:1\".\n"
      "          05 C PIC X IDENTIFIED BY \"b\" NAMESPACE IS \"urn:2\".\n",
      "--dialect gnucobol");
  EXPECT_EQ(toXml(layout, "xy"),
            R"(<a xmlns:n1="urn:1" xmlns:n2="urn:2"><n1:b>x</n1:b><n2:b>y</n2:b></a>)");
  std::size_t used = 1;
  EXPECT_EQ(fdrec_to_json(layout, "xy", 2, nullptr, nullptr, 0, &used), FDREC_ERROR);
  EXPECT_EQ(used, 0U);
  EXPECT_NE(message().find("[layout]"), std::string::npos) << message();
}

TEST_F(Interface, AnElementAroundTheRecordIsAllowed) {
  fdrec_layout const* layout = open("       01 A PIC X(2).\n", "--dialect gnucobol");
  EXPECT_EQ(fromXml(layout, "<all><A>x</A></all>"), "x ");
  EXPECT_EQ(fromXml(layout, "<all><A>x</A><A>y</A></all>"),
            "1:14: error: expected one record, found another [single]");
  EXPECT_EQ(fromXml(layout, "<all/>"), "error: expected one record, found none [single]");
}

// Warnings do not fail a call, except with --werror.
TEST_F(Interface, WarningsAboutTheCopybookCanBeErrors) {
  char const* copybook = "       01 A.\n          05 9B PIC X.\n";
  open(copybook, "--dialect gnucobol");
  EXPECT_NE(message().find("[xml-name]"), std::string::npos) << message();
  fdrec_layout* other = nullptr;
  std::string path = m_folder.write("b.cpy", copybook);
  EXPECT_EQ(fdrec_open(path.c_str(), "--dialect gnucobol --werror", &other), FDREC_ERROR);
  EXPECT_EQ(other, nullptr);
}

// A warning that the program prints is part of the message here.
TEST_F(Interface, WarningsAboutLinesAreMessages) {
  open("       01 A.\n          05 B PIC 9 COMP-3.\n", "--dialect gnucobol --format lines");
  EXPECT_EQ(
      message(),
      "warning: item 'B' of record 'A' is binary or packed; its bytes can end a line [lines]");
}

// Each thread has messages of its own, and the memory that a call needs.
TEST_F(Interface, ThreadsShareALayout) {
  fdrec_layout const* layout = open("       01 A PIC 9(5).\n", "--dialect gnucobol");
  std::vector<std::thread> threads;
  for (int id = 0; id < 4; ++id) {
    threads.emplace_back([layout, id] {
      for (int i = 0; i < 300; ++i) {
        std::string record = std::to_string(10000 * (id + 1) + i);
        EXPECT_EQ(toXml(layout, record), "<A>" + record + "</A>");
        EXPECT_EQ(fromXml(layout, "<A>" + record + "</A>"), record);
        EXPECT_EQ(fromXml(layout, "<A>" + record + "x</A>"),
                  "1:1, A: error: '" + record + "x' is not a number [number]");
      }
    });
  }
  for (std::thread& each : threads) each.join();
}

}  // namespace

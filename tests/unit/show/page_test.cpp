// The page and its data.

#include "show/page.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "show/page_data.h"
#include "support/record_source.h"

namespace fdmorph::show {
namespace {

using record::RecordSource;

/// What is shown of a source in memory.
class Shown {
 public:
  explicit Shown(std::string const& content) : record(content) {
    source.file = "a.cpy";
    source.encoding = "cp037";
    source.records = {&record.tree, 1};
    source.sources = &record.diagnostics().sources();
  }

  RecordSource record;
  ShownSource source;
};

nlohmann::json dataOf(std::string const& content) {
  return nlohmann::json::parse(pageData(Shown(content).source));
}

TEST(PageData, HasTheFieldsOfAnItemInOrder) {
  nlohmann::json data = dataOf("01 A.\n02 B PIC 9(4).\n");
  // Group, level, name, picture, usage, offset, length, role, XML name, namespace,
  // file and line. The numbers in between are places in the list of texts.
  nlohmann::json fields = data["records"][0]["items"][1];
  ASSERT_EQ(fields.size(), 13U);
  for (std::size_t i : {4U, 9U, 10U}) fields[i] = data["texts"][fields[i].get<std::size_t>()];
  EXPECT_EQ(fields.dump(), R"x([0,2,"B","9(4)","display",0,4,2,"B","","a.cpy",2,{"number":1}])x");
}

TEST(PageData, HasTablesRedefinitionsAndConditions) {
  nlohmann::json items = dataOf(
      "01 A. 02 N PIC 9. 02 B PIC X(8). 88 C VALUE 'x' THRU 'y'. 02 D REDEFINES B PIC X OCCURS 0 "
      "TO 8 DEPENDING ON N.")["records"][0]["items"];
  EXPECT_EQ(items[2].back().dump(), R"({"conditions":[["C","'x' THRU 'y'"]]})");
  EXPECT_EQ(items[3].back().dump(), R"({"lane":1,"occurs":[0,8,"N"],"redefines":2})");
}

TEST(PageData, CannotEndItsElement) {
  std::string data = pageData(Shown("01 A. 02 B PIC X(9). 88 C VALUE '</script><!--'.").source);
  EXPECT_EQ(data.find('<'), std::string::npos);
  EXPECT_NE(data.find(R"('\u003c/script>\u003c!--')"), std::string::npos);
}

TEST(PageData, ReplacesBytesThatAreNotUtf8) {
  nlohmann::json data = dataOf("01 A. 02 B PIC X. 88 C VALUE '\xFC'.");
  EXPECT_EQ(data["records"][0]["items"][1].back()["conditions"][0][1], "'\xEF\xBF\xBD'");
}

TEST(Page, HasTitleAndDataInTheirPlaces) {
  Shown shown("01 A PIC X.");
  std::string page = printPage(shown.source);
  EXPECT_TRUE(page.starts_with("<!doctype html>"));
  EXPECT_NE(page.find("<title>A - fdrec</title>"), std::string::npos);
  EXPECT_NE(page.find("type=\"application/json\">" + pageData(shown.source) + "</script>"),
            std::string::npos);
  EXPECT_EQ(page.find("{{"), std::string::npos);
}

TEST(Page, RefersToNothingElse) {
  std::string page = printPage(Shown("01 A PIC X.").source);
  for (char const* each : {"http:", "https:", " src=", " href=", "@import", "url("}) {
    EXPECT_EQ(page.find(each), std::string::npos) << each;
  }
}

}  // namespace
}  // namespace fdmorph::show

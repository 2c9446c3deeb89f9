// How findings look.

#include <gtest/gtest.h>

#include "mapping/mapping_finding.h"

namespace fdmorph::mapping {
namespace {

MappingFindings twoFindings() {
  MappingFindings findings;
  findings.add({MappingCode::flag, {2, 5}, "A.B", "a \"flag\""});
  findings.add({MappingCode::added, {}, "A", "new"});
  findings.sort();
  return findings;
}

TEST(FindingOutput, LineHasPlaceItemAndCode) {
  EXPECT_EQ(printText(twoFindings(), "map.xml"),
            "map.xml: note: A: new [new]\n"
            "map.xml:2:5: error: A.B: a \"flag\" [flag]\n"
            "fdrec: 1 error, 0 warnings, 1 note\n");
}

TEST(FindingOutput, MoreLinesThanWantedAreCounted) {
  MappingFindings findings = twoFindings();
  findings.add({MappingCode::added, {}, "C", "new"});
  EXPECT_EQ(printText(findings, "map.xml", 1),
            "map.xml: note: A: new [new]\n"
            "map.xml:2:5: error: A.B: a \"flag\" [flag]\n"
            "fdrec: 1 more findings are not shown\n"
            "fdrec: 1 error, 0 warnings, 2 notes\n");
}

TEST(FindingOutput, JsonHasALineForEachFinding) {
  EXPECT_EQ(printJson(twoFindings(), "map.xml", "a.cpy"),
            R"({"copybook":"a.cpy","mapping":"map.xml","errors":1,"warnings":0,"notes":1,)"
            "\"findings\":[\n"
            R"({"code":"new","severity":"note","item":"A","message":"new","file":"map.xml"},)"
            "\n"
            R"({"code":"flag","severity":"error","item":"A.B","message":"a \"flag\"",)"
            R"("file":"map.xml","line":2,"column":5})"
            "\n]}\n");
}

}  // namespace
}  // namespace fdmorph::mapping

// What the user says of single parts.

#include "fdrec/part_overrides.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/record_source.h"

namespace fdmorph::fdrec {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Overrides : public testing::Test {
 protected:
  void apply(std::vector<std::string> const& occurs, std::vector<std::string> const& pictures) {
    PartOverrides::Parsed parsed = PartOverrides::parse(occurs, pictures);
    ASSERT_FALSE(parsed.wrong) << *parsed.wrong;
    unused = parsed.overrides.apply(source.tree, changes);
  }

  copybook::ItemChange changeOf(std::string_view name) { return changes[source.node(name).item]; }

  record::RecordSource source{
      "01 ORDER IDENTIFIED BY 'order'.\n"
      " 05 ID PIC X(8) IDENTIFIED BY 'id' IS ATTRIBUTE.\n"
      " 05 LINE IDENTIFIED BY 'line'.\n"
      "  10 KIND IDENTIFIED BY 'kind' IS ATTRIBUTE.\n"
      "   15 KIND-VALUE PIC X(4).\n"
      "  10 PRICE PIC S9(9) IDENTIFIED BY 'price'.\n"
      " 05 TOTAL USAGE COMP-2 IDENTIFIED BY 'total'.\n"};
  copybook::ItemChanges changes;
  std::vector<std::string> unused;
};

TEST_F(Overrides, PictureIsThatOfTheItemWithTheText) {
  apply({}, {"order/@id=X(36)", "order/line/@kind=X(2)", "order/line/price=S9(7)V99"});
  EXPECT_THAT(unused, IsEmpty());
  EXPECT_EQ(changeOf("ID").picture, "X(36)");
  EXPECT_EQ(changeOf("KIND-VALUE").picture, "X(2)");
  EXPECT_EQ(changeOf("KIND").picture, "");
  EXPECT_EQ(changeOf("PRICE").picture, "S9(7)V99");
}

TEST_F(Overrides, FloatingItemBecomesOneWithAPicture) {
  apply({}, {"order/total=S9(9)V99"});
  EXPECT_EQ(changeOf("TOTAL").picture, "S9(9)V99");
  EXPECT_EQ(changeOf("TOTAL").usage, compiler::Usage::display);
}

TEST_F(Overrides, OccurrencesAreThoseOfAnElement) {
  apply({"order/line=25"}, {});
  EXPECT_THAT(unused, IsEmpty());
  ASSERT_TRUE(changeOf("LINE").occurs);
  EXPECT_EQ(changeOf("LINE").occurs->most, 25U);
}

TEST_F(Overrides, LastOneThatMatchesHolds) {
  apply({}, {"**=X(5)", "order/line/price=9(4)"});
  EXPECT_EQ(changeOf("ID").picture, "X(5)");
  EXPECT_EQ(changeOf("PRICE").picture, "9(4)");
}

TEST_F(Overrides, PartsThatCannotChangeAreTold) {
  apply({"order/@id=2", "order=3", "order/lines=4"}, {"order/line=X(3)", "gone=X"});
  EXPECT_THAT(unused,
              ElementsAre("order/@id=2", "order=3", "order/lines=4", "order/line=X(3)", "gone=X"));
}

TEST(OverrideArguments, NeedAPathAndAValue) {
  EXPECT_EQ(PartOverrides::parse({"a"}, {}).wrong, "a");
  EXPECT_EQ(PartOverrides::parse({"a="}, {}).wrong, "a=");
  EXPECT_EQ(PartOverrides::parse({"=1"}, {}).wrong, "=1");
  EXPECT_EQ(PartOverrides::parse({"a=0"}, {}).wrong, "a=0");
  EXPECT_EQ(PartOverrides::parse({"a=1x"}, {}).wrong, "a=1x");
  EXPECT_EQ(PartOverrides::parse({"a=2147483648"}, {}).wrong, "a=2147483648");
  EXPECT_EQ(PartOverrides::parse({}, {"a="}).wrong, "a=");
  EXPECT_EQ(PartOverrides::parse({"a=2147483647"}, {"a=X"}).wrong, std::nullopt);
}

}  // namespace
}  // namespace fdmorph::fdrec

// The names of files in a bundle.

#include "bundle/file_names.h"

#include <gtest/gtest.h>

namespace fdmorph::bundle {
namespace {

TEST(FileNames, AreLastPartsOfPaths) {
  FileNames names;
  EXPECT_EQ(names.take("a/b/order.xsd"), "order.xsd");
  EXPECT_EQ(names.take("types"), "types");
  EXPECT_EQ(names.take("https://host.example/2026/money+v1.0.xsd"), "money+v1.0.xsd");
}

TEST(FileNames, AreNumberedIfTheyClash) {
  FileNames names;
  EXPECT_EQ(names.take("a/types.v1.xsd"), "types.v1.xsd");
  EXPECT_EQ(names.take("b/types.v1.xsd"), "types.v1-2.xsd");
  EXPECT_EQ(names.take("c/types.v1-2.xsd"), "types.v1-2-2.xsd");
  EXPECT_EQ(names.take("d/types.v1.xsd"), "types.v1-3.xsd");
  EXPECT_EQ(names.take("e/none"), "none");
  EXPECT_EQ(names.take("f/none"), "none-2");
}

TEST(FileNames, ClashWhateverTheirCase) {
  FileNames names;
  EXPECT_EQ(names.take("Types.xsd"), "Types.xsd");
  EXPECT_EQ(names.take("types.XSD"), "types-2.XSD");
}

TEST(FileNames, AreNotThoseThatAreReserved) {
  FileNames names;
  names.reserve("list.txt");
  EXPECT_EQ(names.take("a/LIST.TXT"), "LIST-2.TXT");
}

TEST(FileNames, HaveNoCharactersThatMeanSomethingInLocations) {
  FileNames names;
  EXPECT_EQ(names.take("a/my types%20#1.xsd"), "my_types_20_1.xsd");
  EXPECT_EQ(names.take("a/gr\xC3\xB6\xC3\x9F"
                       "e.xsd"),
            "gr_e.xsd");
  EXPECT_EQ(names.take("a/-x.xsd"), "_x.xsd");
  EXPECT_EQ(names.take("a/.x.xsd"), "_x-2.xsd");
  EXPECT_EQ(names.take("a/"), "schema.xsd");
}

}  // namespace
}  // namespace fdmorph::bundle

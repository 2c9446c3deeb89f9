// Printing elements.
#include "docschema/markup.h"

#include <gtest/gtest.h>

namespace fdmorph::docschema {
namespace {

TEST(Markup, HasAnElementALine) {
  Markup root{"a", {{"x", "1<2"}}};
  root.add({"b"}).add({"c"}).text = "d & e";
  root.add({"f"});
  EXPECT_EQ(printElement(root),
            "<a x=\"1&lt;2\">\n"
            "   <b>\n"
            "      <c>d &amp; e</c>\n"
            "   </b>\n"
            "   <f/>\n"
            "</a>\n");
}

TEST(Markup, BeginsWithADeclaration) {
  EXPECT_EQ(printDocument({"a"}), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a/>\n");
}

TEST(Comments, HaveNoTwoHyphensInARow) {
  EXPECT_EQ(printElement(commentOf("a--b---c")), "<!-- a-b-c -->\n");
}

}  // namespace
}  // namespace fdmorph::docschema

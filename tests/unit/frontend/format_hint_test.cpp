// Sources that look as if they are read in the wrong format.

#include "frontend/format_hint.h"

#include <gtest/gtest.h>

namespace fdmorph::compiler {
namespace {

std::size_t const kNone = static_cast<std::size_t>(-1);

/// The offset of the line that looks wrong.
std::size_t hintAt(std::string_view content, Format format) {
  std::optional<FormatHint> hint = findFormatHint(content, format);
  return hint ? hint->offset : kNone;
}

TEST(FormatHint, IsAnEntryInTheSequenceArea) {
  EXPECT_EQ(hintAt("      * x\n  05 A PIC X.\n", Format::fixed), 10);
  EXPECT_EQ(hintAt("01 ORDER-REC.\n", Format::variable), 0);
}

TEST(FormatHint, IsAHeaderOrACopyStatementInTheSequenceArea) {
  EXPECT_EQ(hintAt("identification division.\n", Format::fixed), 0);
  EXPECT_EQ(hintAt("COPY ORDER.\n", Format::fixed), 0);
}

TEST(FormatHint, IsNotASequenceNumber) {
  EXPECT_EQ(hintAt("000100 01  A PIC X.\n", Format::fixed), kNone);
  EXPECT_EQ(hintAt("10     01  A PIC X.\nABCDEF 01  B PIC X.\n", Format::fixed), kNone);
  EXPECT_EQ(hintAt("       01  A PIC X.\n", Format::fixed), kNone);
}

TEST(FormatHint, IsACommentOfFixedFormatInFreeFormat) {
  EXPECT_EQ(hintAt("000100* x\n", Format::free), 0);
  EXPECT_EQ(hintAt("01 A PIC X.\n      / x\n", Format::free), 12);
}

// From there on the source says itself what it is.
TEST(FormatHint, DoesNotFollowADirective) {
  EXPECT_EQ(hintAt("       >>SOURCE FORMAT IS FREE\n01 A PIC X.\n", Format::fixed), kNone);
  EXPECT_EQ(hintAt("      $SET SOURCEFORMAT(FREE)\n01 A PIC X.\n", Format::fixed), kNone);
}

TEST(FormatHint, IsNotACommentOfFreeFormat) {
  EXPECT_EQ(hintAt("      *> x\n", Format::fixed), kNone);
  EXPECT_EQ(hintAt("*> x\n01 A PIC X.\n", Format::free), kNone);
}

}  // namespace
}  // namespace fdmorph::compiler

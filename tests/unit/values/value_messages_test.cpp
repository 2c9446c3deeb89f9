// The words of errors.
#include "values/value_messages.h"

#include <gtest/gtest.h>

#include "support/one_item.h"

namespace fdmorph::values {
namespace {

std::string messageOf(char const* clauses, std::string_view text) {
  OneItem const item = ibmItem(clauses);
  Bytes bytes(item.format.size);
  return describeText(item.values.encode(item.format, text, bytes.data()), item.format, text);
}

TEST(ValueMessage, SaysWhatIsWrongWithAText) {
  EXPECT_EQ(messageOf("PIC 99", "12x"), "'12x' is not a number");
  EXPECT_EQ(messageOf("PIC 99", ""), "an empty text is not a number");
  EXPECT_EQ(messageOf("PIC 99", "100"), "'100' is out of the item's range");
  EXPECT_EQ(messageOf("PIC 99", "1.5"), "'1.5' has more decimal places than the item");
  EXPECT_EQ(messageOf("PIC XX", "ABC"), "'ABC' is longer than 2 bytes");
  EXPECT_EQ(messageOf("PIC X", "AB"), "'AB' is longer than 1 byte");
  EXPECT_EQ(messageOf("PIC NN", "ABC"), "'ABC' is longer than 2 characters");
  EXPECT_EQ(messageOf("PIC XXX", "A\u20AC"), "character U+20AC is not in the encoding");
  EXPECT_EQ(messageOf("PIC XXX", "A\xFF"), "the text is not valid UTF-8");
}

TEST(ValueMessage, ShortensTexts) {
  EXPECT_EQ(messageOf("PIC 99", "a\nb" + std::string(40, 'c')),
            "'a b" + std::string(37, 'c') + "...' is not a number");
}

TEST(ValueMessage, SaysWhatIsWrongWithBytes) {
  EXPECT_EQ(describeBytes(ValueError::digit), "invalid digit");
  EXPECT_EQ(codeOf(ValueError::digit), "digit");
  EXPECT_EQ(codeOf(ValueError::length), "length");
}

}  // namespace
}  // namespace fdmorph::values

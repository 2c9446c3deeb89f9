// Messages of the generator are kept.

#include "fdrec/generator_messages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/captured_console.h"
#include "text/console.h"

namespace fdmorph::fdrec {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

class Kept : public ConsoleTest {};

TEST_F(Kept, ErrorsAndWarningsHaveTheirTexts) {
  console.headerShown = false;
  {
    GeneratorMessages messages;
    err() << "Error : one" << endLine;
    err() << "Warning : two" << endLine;
    err() << endLine;
    out() << "other" << endLine;
    EXPECT_THAT(messages.texts(), ElementsAre("one", "two"));
  }
  EXPECT_EQ(captured.err(), "");
  EXPECT_EQ(captured.out(), "");
  EXPECT_FALSE(console.headerShown);
  err() << "Error : three" << endLine;
  EXPECT_NE(captured.err().find("three"), std::string::npos);
}

TEST_F(Kept, FloodIsBounded) {
  GeneratorMessages messages;
  for (int i = 0; i < 10'000; ++i) err() << "Error : x" << endLine;
  // "Error : x" and a line end are 10 bytes.
  EXPECT_THAT(messages.texts(), SizeIs(GeneratorMessages::kMaxBytes / 10));
}

}  // namespace
}  // namespace fdmorph::fdrec

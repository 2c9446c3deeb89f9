// The usage text.

#include <gtest/gtest.h>

#include "driver/command_line.h"
#include "support/captured_console.h"
#include "text/console.h"

namespace fdmorph {
namespace {

constexpr char kUsage[] = R"(Usage :
fdmorph [options] <filename>

fdmorph [-c -x -m -p -d -noprompt -nocountin] <COBOL filename>
fdmorph [-c -p -noprompt -nocountin -unique] <XML Schema filename>
fdmorph [-v] (<XML filename> | <XML Schema filename>)

Options:

   -c|-C <filename>     Specify a filename for the COBOL file being
                        created.

   -x|-X <filename>     Specify a <filename> for the XML schema file
                        being created.  Note: This option is for the
                        processing of COBOL programs/copyfiles only.

   -m|-M <filename>     Specify a <filename> for the mapping file
                        to be used or created.  Note: This option is
                        for the processing of COBOL programs/copyfiles
                        only.

   -p|-P <prefix>       Specify a prefix to append to any generated
                        data names.

   -d|-D <filename>     Specify a compiler directive file <filename>
                        to use when preprocessing a COBOL file.

   -v|-V <filename>     Perform XML schema or instance document
                        validation on <filename>.

   -noprompt |          Prevent user prompt for the overwrite of existing
   -NOPROMPT            files.

   -nocountin |         Prevent generation of "count in" clauses for
   -NOCOUNTIN           generated data items.  This option overrides any
                        <cobol-count-in> mapping file values.

   -unique |            Ensure that all COBOL data names are unique within the
   -UNIQUE              generated COBOL data structure.

)";

class UsageText : public ConsoleTest {};

TEST_F(UsageText, HasFortyLines) {
  printUsage();
  EXPECT_EQ(captured.out(), kUsage);
  EXPECT_EQ(countOf("\n", captured.out()), 40);
  EXPECT_EQ(captured.err(), "");
}

TEST_F(UsageText, FollowsTheBanner) {
  console.headerShown = false;
  printUsage();
  EXPECT_EQ(captured.out().substr(0, 29), "Tallmere FDMORPH Version 1.0\n");
  EXPECT_EQ(countOf("Usage :\n", captured.out()), 1);
}

TEST_F(UsageText, CountsNothing) {
  printUsage();
  EXPECT_EQ(reportStatus(), 0);
}

}  // namespace
}  // namespace fdmorph

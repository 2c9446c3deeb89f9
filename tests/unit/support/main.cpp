#include <gtest/gtest.h>
#include <sanitizer/lsan_interface.h>

#include <clocale>

// The library lets its record of an external document type go on purpose, as
// others may still point to it; LeakSanitizer asks this function what to pass
// over.
extern "C" char const* __lsan_default_suppressions() {
  return "leak:XMLScanner::scanProlog\n";
}

// The tool takes its locale from the environment; the tests take the one that
// every Debian system has, so that multibyte text means the same everywhere.
int main(int argc, char** argv) {
  std::setlocale(LC_ALL, "C.UTF-8");
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}

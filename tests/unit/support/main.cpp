#include <gtest/gtest.h>

#include <clocale>

// The tool takes its locale from the environment; the tests take the one that
// every Debian system has, so that multibyte text means the same everywhere.
int main(int argc, char** argv) {
  std::setlocale(LC_ALL, "C.UTF-8");
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}

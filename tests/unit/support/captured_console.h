// A console for one test.
#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <streambuf>
#include <string>

namespace fdmorph {

/// For its lifetime both standard streams write to memory, nothing has been
/// counted yet, and the banner counts as shown. Afterwards the console is as
/// it was at the start of the process.
class CapturedConsole {
 public:
  CapturedConsole();
  ~CapturedConsole();
  CapturedConsole(CapturedConsole const&) = delete;
  CapturedConsole& operator=(CapturedConsole const&) = delete;

  /// What was written so far.
  std::string out() const { return m_out.str(); }
  std::string err() const { return m_err.str(); }

  std::streambuf* outBuffer() { return &m_out; }
  std::streambuf* errBuffer() { return &m_err; }

 private:
  std::stringbuf m_out;
  std::stringbuf m_err;
  std::streambuf* m_processOut;
  std::streambuf* m_processErr;
};

/// A fixture with such a console.
class ConsoleTest : public testing::Test {
 protected:
  CapturedConsole captured;
};

/// How often `part` stands in `text`, overlaps left out.
int countOf(std::string const& part, std::string const& text);

}  // namespace fdmorph

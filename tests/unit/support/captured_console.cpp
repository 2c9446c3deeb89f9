#include "support/captured_console.h"

#include <iostream>

#include "text/console.h"

namespace fdmorph {
namespace {

void resetConsole(std::streambuf* out, std::streambuf* err) {
  if (console.logStream.is_open()) console.logStream.close();
  std::cout.rdbuf(out);
  std::cerr.rdbuf(err);
  console.consoleOut = out;
  console.consoleErr = err;
  console.quietMode = console.logMode = console.outputLost = false;
  console.headerShown = true;
  console.savedCoutBuffer = console.savedCerrBuffer = nullptr;
  console.logDescriptor = -1;
  console.m_nErrorCount = console.m_nWarningCount = 0;
  console.maxShownMessages = kMaxShownMessages;
}

}  // namespace

CapturedConsole::CapturedConsole()
    : m_processOut(std::cout.rdbuf()), m_processErr(std::cerr.rdbuf()) {
  resetConsole(&m_out, &m_err);
}

CapturedConsole::~CapturedConsole() {
  resetConsole(m_processOut, m_processErr);
}

int countOf(std::string const& part, std::string const& text) {
  int count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos;
       at = text.find(part, at + part.size())) {
    ++count;
  }
  return count;
}

}  // namespace fdmorph

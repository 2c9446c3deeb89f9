#include "text/console.h"

#include <algorithm>

#include "text/multibyte.h"

namespace fdmorph {

Console console;

namespace {

constexpr char kNotice[] = "Converts between COBOL data definitions and XML Schema";
constexpr int kMaxStatus = 255;

bool beginsWith(char const* text, std::string_view head) {
  return my_strnicmp(text, head.data(), static_cast<int>(head.size())) == 0;
}

void countByHead(char const* text) {
  if (beginsWith(text, "Error :") || beginsWith(text, "Internal Error :")) {
    ++console.m_nErrorCount;
  } else if (beginsWith(text, "Warning :")) {
    ++console.m_nWarningCount;
  }
}

// A stream without a buffer is silent on purpose. Any other bad stream lost
// text.
bool hasLostOutput(std::ostream const& stream) {
  return stream.rdbuf() != nullptr && stream.bad();
}

}  // namespace

Console::Console() {
  // This gives the streams new buffers, so it comes first.
  std::ios::sync_with_stdio(false);
  consoleOut = std::cout.rdbuf();
  consoleErr = std::cerr.rdbuf();
}

Console::~Console() {
  // The standard streams outlive the log and are flushed again after its end.
  std::cout.rdbuf(consoleOut);
  std::cerr.rdbuf(consoleErr);
}

void DisplayHeader() {
  if (console.headerShown) return;
  std::cout << "Tallmere FDMORPH Version " << FDMORPH_VERSION << '\n' << kNotice << "\n\n";
  if (isLineByLine(std::cout.rdbuf())) std::cout.flush();
  console.headerShown = true;
}

void insertCounted(std::ostream& stream, char const* text) {
  std::streambuf const* buffer = stream.rdbuf();
  if (buffer == nullptr) return;
  bool isOut = buffer == std::cout.rdbuf();
  bool isErr = buffer == std::cerr.rdbuf();
  if (isOut || isErr) {
    countByHead(text);
    DisplayHeader();
  }
  // With a log both streams share one buffer, and the output stream writes.
  std::ostream& target = isOut ? std::cout : isErr ? std::cerr : stream;
  target << text;
}

void beginOutput(std::ostream const& stream) {
  if (console.headerShown || stream.rdbuf() == nullptr) return;
  bool isStandard = stream.rdbuf() == std::cout.rdbuf() || stream.rdbuf() == std::cerr.rdbuf();
  if (isStandard) DisplayHeader();
}

void RestoreStreams() {
  if (!console.quietMode && !console.logMode) return;
  bool logLost = console.logMode && (hasLostOutput(std::cout) || hasLostOutput(std::cerr));
  std::cout.rdbuf(console.savedCoutBuffer);
  if (!console.logMode) return;
  std::cerr.rdbuf(console.savedCerrBuffer);
  if (!console.logStream.is_open()) return;
  console.logStream.close();
  if (logLost || console.logStream.fail()) reportWriteFailure(kLogFileName);
}

void openLog() {
  console.savedCoutBuffer = std::cout.rdbuf();
  console.savedCerrBuffer = std::cerr.rdbuf();
  console.logStream.open(kLogFileName, std::ios::out | std::ios::trunc);
  if (console.logStream.is_open()) {
    std::cout.rdbuf(console.logStream.rdbuf());
    std::cerr.rdbuf(console.logStream.rdbuf());
    console.logMode = true;
  }
  DisplayHeader();
}

void beginQuietMode() {
  console.savedCoutBuffer = redirectOutput(nullptr);
  console.quietMode = true;
}

std::streambuf* redirectOutput(std::streambuf* buffer) {
  // A new buffer clears the state of the stream, which shows a loss.
  if (std::cout.rdbuf() == console.consoleOut && hasLostOutput(std::cout)) {
    console.outputLost = true;
  }
  return std::cout.rdbuf(buffer);
}

bool isLineByLine(std::streambuf const* buffer) {
  return buffer == console.consoleOut || buffer == console.consoleErr ||
         buffer == console.logStream.rdbuf();
}

std::ostream& endLine(std::ostream& stream) {
  stream << '\n';
  if (isLineByLine(stream.rdbuf())) stream.flush();
  return stream;
}

void reportWriteFailure(std::string_view fileName) {
  err() << "Error : Unable to write output file " << fileName << endLine;
}

bool flushConsole() {
  std::cout.flush();
  if (!hasLostOutput(std::cout) && !console.outputLost) return true;
  reportWriteFailure("standard output");
  return false;
}

int reportStatus() {
  return std::min(console.m_nErrorCount + console.m_nWarningCount, kMaxStatus);
}

}  // namespace fdmorph

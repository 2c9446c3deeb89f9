#include "text/console.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <ext/stdio_filebuf.h>

#include <algorithm>
#include <limits>

#include "text/early_end.h"
#include "text/multibyte.h"

namespace fdmorph {

Console console;

namespace {

constexpr char kNotice[] = "Converts between COBOL data definitions and XML Schema";
constexpr int kMaxStatus = 255;

bool beginsWith(char const* text, std::string_view head) {
  return my_strnicmp(text, head.data(), static_cast<int>(head.size())) == 0;
}

MessageKind kindOf(char const* text) {
  if (beginsWith(text, "Error :") || beginsWith(text, "Internal Error :")) {
    return MessageKind::error;
  }
  return beginsWith(text, "Warning :") ? MessageKind::warning : MessageKind::status;
}

// Stays at its largest value instead of becoming negative.
void increment(int& count) {
  if (count < std::numeric_limits<int>::max()) ++count;
}

// A stream without a buffer is silent on purpose. Any other bad stream lost
// text.
bool hasLostOutput(std::ostream const& stream) {
  return stream.rdbuf() != nullptr && stream.bad();
}

std::unique_ptr<TerminalFilter> filterFor(int descriptor, std::streambuf* buffer) {
  return isatty(descriptor) == 1 ? std::make_unique<TerminalFilter>(*buffer) : nullptr;
}

// The descriptor of the emptied log, or -1.
int openLogFile() {
  struct stat found {};
  bool isLink = false;
  if (lstat(kLogFileName, &found) == 0) {
    isLink = S_ISLNK(found.st_mode);
    if (isLink && found.st_uid != geteuid()) return -1;
    if (isLink && stat(kLogFileName, &found) != 0) found = {};
    if (S_ISFIFO(found.st_mode)) return -1;
  }
  // What lies there can change after the test. O_NONBLOCK keeps a FIFO from
  // waiting for its reader, and truncation comes after a second look.
  int flags = O_WRONLY | O_CREAT | O_NONBLOCK | O_CLOEXEC | (isLink ? 0 : O_NOFOLLOW);
  int descriptor = open(kLogFileName, flags, 0666);
  if (descriptor < 0) return -1;
  bool isUsable = fstat(descriptor, &found) == 0 && !S_ISFIFO(found.st_mode) &&
                  fcntl(descriptor, F_SETFL, 0) == 0 &&
                  (!S_ISREG(found.st_mode) || ftruncate(descriptor, 0) == 0);
  if (isUsable) return descriptor;
  close(descriptor);
  return -1;
}

}  // namespace

Console::Console() {
  // Before main, where nothing else catches an allocation that fails.
  endWithoutMemory([] { writeLastLine(STDERR_FILENO, "Error : Out of memory\n"); });
  // This gives the streams new buffers, so it comes first.
  std::ios::sync_with_stdio(false);
  m_firstOut = std::cout.rdbuf();
  m_firstErr = std::cerr.rdbuf();
  m_outFilter = filterFor(STDOUT_FILENO, m_firstOut);
  m_errFilter = filterFor(STDERR_FILENO, m_firstErr);
  if (m_outFilter != nullptr) std::cout.rdbuf(m_outFilter.get());
  if (m_errFilter != nullptr) std::cerr.rdbuf(m_errFilter.get());
  consoleOut = std::cout.rdbuf();
  consoleErr = std::cerr.rdbuf();
}

Console::~Console() {
  // The standard streams outlive the log and are flushed again after its end.
  std::cout.rdbuf(m_firstOut);
  std::cerr.rdbuf(m_firstErr);
}

void DisplayHeader() {
  if (console.headerShown) return;
  std::cout << "Tallmere FDMORPH Version " << FDMORPH_VERSION << '\n' << kNotice << "\n\n";
  if (isLineByLine(std::cout.rdbuf())) std::cout.flush();
  console.headerShown = true;
}

bool countMessage(MessageKind kind, Shown shown) {
  if (kind == MessageKind::status) return true;
  long long before = static_cast<long long>(console.m_nErrorCount) + console.m_nWarningCount;
  if (before == console.maxShownMessages) {
    std::cerr << "Warning : Further messages are counted but not shown" << endLine;
    increment(console.m_nWarningCount);
  }
  increment(kind == MessageKind::error ? console.m_nErrorCount : console.m_nWarningCount);
  return before < console.maxShownMessages || shown == Shown::always;
}

bool insertCounted(std::ostream& stream, char const* text, Shown shown) {
  std::streambuf const* buffer = stream.rdbuf();
  if (buffer == nullptr) return true;
  bool isOut = buffer == std::cout.rdbuf();
  bool isErr = buffer == std::cerr.rdbuf();
  if (isOut || isErr) {
    DisplayHeader();
    // What a run writes to a file is not a message, whatever it counts as.
    if (!countMessage(kindOf(text), isLineByLine(buffer) ? shown : Shown::always)) return false;
  }
  // With a log both streams share one buffer, and the output stream writes.
  std::ostream& target = isOut ? std::cout : isErr ? std::cerr : stream;
  target << text;
  return true;
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
  console.logDescriptor = -1;
  console.logStream.close();
  if (logLost || console.logStream.fail()) reportWriteFailure(kLogFileName);
}

void openLog() {
  console.savedCoutBuffer = std::cout.rdbuf();
  console.savedCerrBuffer = std::cerr.rdbuf();
  if (int descriptor = openLogFile(); descriptor >= 0) {
    *console.logStream.rdbuf() = __gnu_cxx::stdio_filebuf<char>(descriptor, std::ios::out);
    console.logDescriptor = descriptor;
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
  if (!hasLostOutput(std::cout) && !console.outputLost) return !hasLostOutput(std::cerr);
  reportWriteFailure("standard output");
  return false;
}

int reportStatus() {
  long long reports = static_cast<long long>(console.m_nErrorCount) + console.m_nWarningCount;
  return static_cast<int>(std::min<long long>(reports, kMaxStatus));
}

}  // namespace fdmorph

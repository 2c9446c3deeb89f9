// The console: every message of the tool passes through here, is counted, and
// is preceded by the banner. The output stream, the error stream, the log and
// the quiet mode differ only in the stream buffers that stand behind
// std::cout and std::cerr at the moment.
#pragma once

#include <fstream>
#include <iostream>
#include <streambuf>
#include <string_view>

namespace fdmorph {

/// The log of -LOG, in the current directory.
inline constexpr char kLogFileName[] = "./fdmorph.log";

/// The state that outlives every object of a run. There is one, `console`.
struct Console {
  Console();
  ~Console();
  Console(Console const&) = delete;
  Console& operator=(Console const&) = delete;

  bool quietMode = false;                     ///< -Q: the output stream has no buffer
  bool logMode = false;                       ///< -LOG: both streams write to `logStream`
  bool headerShown = false;                   ///< the banner is out
  std::streambuf* savedCoutBuffer = nullptr;  ///< what RestoreStreams gives back
  std::streambuf* savedCerrBuffer = nullptr;
  std::ofstream logStream;

  /// Tally of everything reported: by the tool's messages and by the parser.
  int m_nErrorCount = 0;
  int m_nWarningCount = 0;

  /// The process's own buffers, whatever stands in their place now.
  std::streambuf* consoleOut;
  std::streambuf* consoleErr;
  bool outputLost = false;  ///< the output stream's device refused text
};

extern Console console;

/// Prints the banner on the output stream, once in a process.
void DisplayHeader();

/// Inserts one piece of a message. Dropped on a stream without a buffer;
/// counted by its head ("Error :", "Internal Error :", "Warning :", blind to
/// case) on the two standard streams, where it also brings the banner out.
/// Only the head of a piece is looked at, so a message's first piece must
/// carry it.
void insertCounted(std::ostream& stream, char const* text);

/// Brings the banner out ahead of text on a standard stream, for text that
/// goes there past insertCounted.
void beginOutput(std::ostream const& stream);

/// Gives the standard streams the buffers that -Q and -LOG replaced, and
/// closes the log.
void RestoreStreams();

/// Opens the log "./fdmorph.log" for both standard streams. On failure the
/// console stays as it is, without a message.
void openLog();

/// Silences the output stream.
void beginQuietMode();

/// Aims the standard output stream at `buffer` (null silences it) and returns
/// the buffer that it had.
std::streambuf* redirectOutput(std::streambuf* buffer);

/// True when a person or a pipe may be reading `buffer` line by line; false
/// for an output file, which is written in blocks.
bool isLineByLine(std::streambuf const* buffer);

/// Ends a line: on a console or a log at once, in a file with its block.
std::ostream& endLine(std::ostream& stream);

/// Prints "Error : Unable to write output file " and the name on the error
/// stream.
void reportWriteFailure(std::string_view fileName);

/// Flushes the output stream and reports, once, text that its device refused
/// during the run. Returns false if there was any.
bool flushConsole();

/// Exit status of a run that reached its end: errors plus warnings, at most
/// 255, so that many reports never look like none.
int reportStatus();

/// One message on a standard stream. C strings are counted pieces; numbers,
/// strings and line ends are inserted the plain way.
class Message {
 public:
  explicit Message(std::ostream& stream) : m_stream(stream) {}

  Message& operator<<(char const* text) {
    insertCounted(m_stream, text);
    return *this;
  }
  Message& operator<<(std::string_view text) {
    m_stream << text;
    return *this;
  }
  Message& operator<<(long long number) {
    m_stream << number;
    return *this;
  }
  Message& operator<<(std::ostream& (*manipulator)(std::ostream&)) {
    manipulator(m_stream);
    return *this;
  }

 private:
  std::ostream& m_stream;
};

/// A message on the standard output stream.
inline Message out() {
  return Message(std::cout);
}

/// A message on the standard error stream.
inline Message err() {
  return Message(std::cerr);
}

}  // namespace fdmorph

// The console: every message of the tool passes through here, is counted, and
// is preceded by the banner. With a log or in quiet mode, std::cout and
// std::cerr have other stream buffers; nothing else differs.
#pragma once

#include <fstream>
#include <iostream>
#include <memory>
#include <streambuf>
#include <string_view>

#include "text/terminal_filter.h"

namespace fdmorph {

/// The log of -LOG, in the current directory.
inline constexpr char kLogFileName[] = "./fdmorph.log";

/// Errors and warnings that a run writes. More of them are only counted, because
/// a small schema can cause millions of lines.
inline constexpr int kMaxShownMessages = 5'000'000;

/// The state that outlives every object of a run. There is one, `console`.
struct Console {
  Console();
  ~Console();
  Console(Console const&) = delete;
  Console& operator=(Console const&) = delete;

  bool quietMode = false;                     ///< -Q: the output stream has no buffer
  bool logMode = false;                       ///< -LOG: both streams write to `logStream`
  bool headerShown = false;                   ///< the banner is out
  std::streambuf* savedCoutBuffer = nullptr;  ///< what RestoreStreams restores
  std::streambuf* savedCerrBuffer = nullptr;
  std::ofstream logStream;
  int logDescriptor = -1;  ///< of `logStream`; -1 without a log

  /// Tally of everything reported: by the tool's messages and by the parser.
  /// Use countMessage to add to it.
  int m_nErrorCount = 0;
  int m_nWarningCount = 0;
  int maxShownMessages = kMaxShownMessages;

  /// The buffers that the streams had when the process began, each behind a
  /// filter if it writes to a terminal.
  std::streambuf* consoleOut;
  std::streambuf* consoleErr;
  bool outputLost = false;  ///< the output stream's device refused text

 private:
  std::unique_ptr<TerminalFilter> m_outFilter;
  std::unique_ptr<TerminalFilter> m_errFilter;
  std::streambuf* m_firstOut;
  std::streambuf* m_firstErr;
};

extern Console console;

/// Prints the banner on the output stream, once in a process.
void DisplayHeader();

enum class MessageKind { status, warning, error };

/// Which messages a flood of messages hides.
enum class Shown {
  whileFew,  ///< those above the limit of a run
  always,    ///< none: a line that ends a part of the run
};

/// Counts a message, and says whether it is written. The first that is not
/// writes a line about that on the error stream. Messages of kind `status` are
/// not counted and are always written.
[[nodiscard]] bool countMessage(MessageKind kind, Shown shown = Shown::whileFew);

/// Inserts one piece of a message. A stream without a buffer drops it. On the
/// two standard streams it is counted by its head ("Error :", "Internal Error
/// :", "Warning :", in any case), and the banner is printed before it. Only the
/// head of a piece counts, so it must be in the first piece of a message.
/// False if the message is only counted, and none of it is to be written.
bool insertCounted(std::ostream& stream, char const* text, Shown shown = Shown::whileFew);

/// Prints the banner if `stream` is a standard stream, ahead of text that does
/// not go through insertCounted.
void beginOutput(std::ostream const& stream);

/// Restores the buffers of the standard streams that -Q and -LOG replaced, and
/// closes the log.
void RestoreStreams();

/// Opens the log "./fdmorph.log" for both standard streams. On failure the
/// console stays as it is, without a message. A FIFO is not opened, because that
/// can wait for ever, nor is a symbolic link of another user, which can lead to
/// any file of this one.
void openLog();

/// Silences the output stream.
void beginQuietMode();

/// Makes the standard output stream write to `buffer` (null silences it) and
/// returns the buffer that it had.
std::streambuf* redirectOutput(std::streambuf* buffer);

/// True for the console and the log, which are read line by line; false for an
/// output file, which is written in blocks.
[[nodiscard]] bool isLineByLine(std::streambuf const* buffer);

/// Ends a line: on a console or a log at once, in a file with its block.
std::ostream& endLine(std::ostream& stream);

/// Prints "Error : Unable to write output file " and the name on the error
/// stream.
void reportWriteFailure(std::string_view fileName);

/// Flushes the output stream and reports, once, that its device refused text
/// during the run. False if it did, or if that of the error stream did.
[[nodiscard]] bool flushConsole();

/// Exit status of a run that reached its end: errors plus warnings, at most
/// 255. A larger number would wrap around, perhaps to 0.
[[nodiscard]] int reportStatus();

/// One message on a standard stream. C strings are counted pieces; numbers,
/// strings and line ends are inserted as usual.
class Message {
 public:
  explicit Message(std::ostream& stream, Shown shown = Shown::whileFew)
      : m_stream(stream), m_shown(shown) {}

  Message& operator<<(char const* text) {
    if (m_isWritten) m_isWritten = insertCounted(m_stream, text, m_shown);
    return *this;
  }
  Message& operator<<(std::string_view text) {
    if (m_isWritten) m_stream << text;
    return *this;
  }
  Message& operator<<(long long number) {
    if (m_isWritten) m_stream << number;
    return *this;
  }
  Message& operator<<(std::ostream& (*manipulator)(std::ostream&)) {
    if (m_isWritten) manipulator(m_stream);
    return *this;
  }

 private:
  std::ostream& m_stream;
  Shown m_shown;
  bool m_isWritten = true;
};

/// A message on the standard output stream.
inline Message out() {
  return Message(std::cout);
}

/// A message on the standard error stream.
inline Message err(Shown shown = Shown::whileFew) {
  return Message(std::cerr, shown);
}

}  // namespace fdmorph

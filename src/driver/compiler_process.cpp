#include "driver/compiler_process.h"

#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string_view>
#include <system_error>
#include <vector>

#include "driver/process_setup.h"
#include "text/console.h"
#include "text/early_end.h"
#include "text/letter_case.h"
#include "text/pending_files.h"
#include "text/program_place.h"
#include "text/status_line.h"

namespace fdmorph {
namespace {

constexpr char kCompiler[] = "zbc";
constexpr char kDictionaryDirective[] = "XMLGEN(WS)";
constexpr char kSourceNameVariable[] = "ZBC_SOURCE_NAME";
constexpr std::size_t kPipePiece = 128;  // bytes, terminator included
constexpr int kEndPauses = 200;          // until a compiler that does not end is killed
constexpr int kEndPause = 10;            // milliseconds

// What kill takes for the running compiler; 0 without one. A signal handler
// reads it.
std::atomic<pid_t> runningCompiler = 0;
static_assert(std::atomic<pid_t>::is_always_lock_free);

// Whether a search of the path ended without a program that may be run.
bool isNotFound(int error) {
  return error == ENOENT || error == ENOTDIR || error == EACCES;
}

// Returns only if the compiler cannot be started.
void replaceProcess(std::string const& compileFile, std::string const& directives) {
  std::vector<std::string> words{kCompiler, "-C", "dbgi", "noobj"};
  if (!directives.empty()) words.push_back(directives);
  words.insert(words.end(), {"-C", kDictionaryDirective, compileFile});
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  execvp(kCompiler, arguments.data());
  if (!isNotFound(errno)) return;
  std::error_code error;
  std::filesystem::path const bundled = pathFromProgram(BUNDLED_COMPILER, error);
  if (!error) execv(bundled.c_str(), arguments.data());
}

// Copies what the compiler prints to the log.
void runThroughPipe(std::string const& compileFile, std::string const& directives) {
  std::string command = std::string(kCompiler) + " -C dbgi noobj ";
  if (!directives.empty()) command += directives.front() + shellWord(directives.substr(1)) + " ";
  command += std::string("-C ") + kDictionaryDirective + " " + shellWord(compileFile);
  std::FILE* pipe = popen(command.c_str(), "r");
  if (pipe == nullptr) return;
  std::array<char, kPipePiece> piece;
  while (std::fgets(piece.data(), static_cast<int>(piece.size()), pipe) != nullptr) {
    err() << piece.data();
  }
  pclose(pipe);
}

// The status word of a child that ended; nothing if there is no such child. A
// signal must not end another process that takes over its number, so the child
// keeps it until it no longer counts as running.
std::optional<int> waitForChild(pid_t child) {
  siginfo_t end{};
  while (waitid(P_PID, static_cast<id_t>(child), &end, WEXITED | WNOWAIT) != 0 && errno == EINTR) {
  }
  runningCompiler = 0;
  int status = 0;
  pid_t ended = 0;
  do {
    ended = waitpid(child, &status, 0);
  } while (ended < 0 && errno == EINTR);
  if (ended < 0) return std::nullopt;
  return status;
}

// The result is that of fork. A child that runs a shell gets a process group of
// its own, so that a signal to the group also ends what the shell has started.
pid_t startChild() {
  SignalsBlocked const blocked;
  pid_t child = fork();
  bool isGroup = console.logMode;
  if (child >= 0 && isGroup) setpgid(child, child);
  if (child > 0) runningCompiler = isGroup ? -child : child;
  if (child == 0) {
    restoreSignals();
    forgetPendingFiles();
  }
  return child;
}

}  // namespace

std::string shellWord(std::string const& name) {
  auto isPlain = [](char c) {
    return isLetter(c) || isDigit(c) || std::string_view("._/-").find(c) != std::string_view::npos;
  };
  bool isQuoted = name.size() > 1 && name.starts_with('"') && name.ends_with('"');
  std::string const bare = isQuoted ? name.substr(1, name.size() - 2) : name;
  // Blanks alone are safe in the double quotes that the name has.
  if (std::ranges::all_of(bare, [&](char c) { return isPlain(c) || (isQuoted && c == ' '); })) {
    return name;
  }
  std::string word = "'";
  for (char c : bare) word += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return word + "'";
}

CompileOutcome runCompiler(std::string const& compileFile, std::string const& directiveFile,
                           std::string const& sourceName) {
  std::string directives = directiveFile.empty() ? std::string() : "@" + directiveFile;
  // Both processes would write what is still in the buffers.
  std::cout.flush();
  std::cerr.flush();
  StatusLine::Suspension const suspension(statusLine);
  pid_t child = startChild();
  if (child < 0) return CompileOutcome::notCreated;
  if (child == 0) {
    setenv(kSourceNameVariable, sourceName.c_str(), 1);
    if (console.logMode) {
      runThroughPipe(compileFile, directives);
    } else {
      replaceProcess(compileFile, directives);
    }
  }
  std::optional<int> status = waitForChild(child);
  statusLine.noteText(false);  // nobody knows what the compiler has written
  if (!status) return CompileOutcome::notReturned;
  bool hasFailed = WIFEXITED(*status) && WEXITSTATUS(*status) > 0;
  return hasFailed ? CompileOutcome::failed : CompileOutcome::compiled;
}

void endCompiler() {
  pid_t compiler = runningCompiler;
  if (compiler == 0) return;
  kill(compiler, SIGTERM);
  pid_t child = compiler < 0 ? -compiler : compiler;
  for (int i = 0; i < kEndPauses; ++i) {
    if (waitpid(child, nullptr, WNOHANG) != 0) return;
    poll(nullptr, 0, kEndPause);
  }
  kill(compiler, SIGKILL);
  waitpid(child, nullptr, 0);
}

}  // namespace fdmorph

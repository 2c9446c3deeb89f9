#include "driver/compiler_process.h"

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <optional>

#include "driver/process_setup.h"
#include "text/console.h"

namespace fdmorph {
namespace {

constexpr char kCompiler[] = "zbc";
constexpr char kDictionaryDirective[] = "XMLGEN(WS)";
constexpr char kSourceNameVariable[] = "ZBC_SOURCE_NAME";
constexpr std::size_t kPipePiece = 128;  // bytes, terminator included

// Returns only if the compiler cannot be started.
void replaceProcess(std::string const& compileFile, std::string const& directives) {
  if (directives.empty()) {
    execlp(kCompiler, kCompiler, "-C", "dbgi", "noobj", "-C", kDictionaryDirective,
           compileFile.c_str(), nullptr);
  } else {
    execlp(kCompiler, kCompiler, "-C", "dbgi", "noobj", directives.c_str(), "-C",
           kDictionaryDirective, compileFile.c_str(), nullptr);
  }
}

// Copies what the compiler prints to the log.
void runThroughPipe(std::string const& compileFile, std::string const& directives) {
  std::string command = std::string(kCompiler) + " -C dbgi noobj ";
  if (!directives.empty()) command += directives + " ";
  command += std::string("-C ") + kDictionaryDirective + " " + compileFile;
  std::FILE* pipe = popen(command.c_str(), "r");
  if (pipe == nullptr) return;
  std::array<char, kPipePiece> piece;
  while (std::fgets(piece.data(), static_cast<int>(piece.size()), pipe) != nullptr) {
    err() << piece.data();
  }
  pclose(pipe);
}

// The status word of a child that ended; nothing if there is no such child.
std::optional<int> waitForChild(pid_t child) {
  int status = 0;
  pid_t ended = 0;
  do {
    ended = waitpid(child, &status, 0);
  } while (ended < 0 && errno == EINTR);
  if (ended < 0) return std::nullopt;
  return status;
}

}  // namespace

CompileOutcome runCompiler(std::string const& compileFile, std::string const& directiveFile,
                           std::string const& sourceName) {
  std::string directives = directiveFile.empty() ? std::string() : "@" + directiveFile;
  // Both processes would write what is still in the buffers.
  std::cout.flush();
  std::cerr.flush();
  pid_t child = fork();
  if (child < 0) return CompileOutcome::notCreated;
  if (child == 0) {
    restoreSignals();
    setenv(kSourceNameVariable, sourceName.c_str(), 1);
    if (console.logMode) {
      runThroughPipe(compileFile, directives);
    } else {
      replaceProcess(compileFile, directives);
    }
  }
  std::optional<int> status = waitForChild(child);
  if (!status) return CompileOutcome::notReturned;
  bool hasFailed = WIFEXITED(*status) && WEXITSTATUS(*status) > 0;
  return hasFailed ? CompileOutcome::failed : CompileOutcome::compiled;
}

}  // namespace fdmorph

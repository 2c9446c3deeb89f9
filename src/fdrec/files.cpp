#include "fdrec/files.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

#include "fdrec/command.h"
#include "text/file_replacement.h"

namespace fdmorph::fdrec {

namespace {

void printLine(char const* severity, std::string const& text, char const* code) {
  std::string line = "fdrec: ";
  line.append(severity).append(": ").append(compiler::printable(text));
  line.append(" [").append(code).append("]\n");
  std::fwrite(line.data(), 1, line.size(), stderr);
}

// The standard input or output.
bool isStandard(std::string const& path) {
  return path.empty() || path == compiler::kStandardInput;
}

std::filesystem::path normal(std::string const& path) {
  return std::filesystem::path(path).lexically_normal();
}

}  // namespace

void printError(std::string const& text, char const* code) {
  printLine("error", text, code);
}

void printWarning(std::string const& text, char const* code) {
  printLine("warning", text, code);
}

int writeOutput(std::string const& path, std::string const& text) {
  if (isStandard(path)) {
    bool isWritten = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
    isWritten = std::fflush(stdout) == 0 && isWritten;
    // A reader that has seen enough, such as head, closes the pipe.
    if (!isWritten && errno != EPIPE) printError("cannot write the standard output", "file");
    return isWritten ? kClean : kFailed;
  }
  std::optional<std::string> why = replaceFile(path, text);
  if (why) printError("cannot write " + compiler::quoted(path) + ": " + *why, "file");
  return why ? kFailed : kClean;
}

std::optional<std::string> readInput(std::string const& path) {
  compiler::DiskTree tree;
  std::optional<std::string> content = tree.read(path);
  if (!content) {
    printError("cannot read " + compiler::quoted(path) + ": " + compiler::whyUnreadable(path),
               "file");
  }
  return content;
}

int refuseOutputOver(std::string const& output, std::string const& input) {
  if (isStandard(output)) return kClean;
  std::error_code error;
  if (!std::filesystem::equivalent(output, input, error)) return kClean;
  printError("the output would replace the input " + compiler::quoted(input), "usage");
  return kUsageError;
}

int refuseSharedInput(std::string const& copybook, std::string const& data) {
  if (!isStandard(copybook) || !isStandard(data)) return kClean;
  printError("the copybook and the data cannot both be the standard input", "usage");
  return kUsageError;
}

int refuseSharedOutput(std::string const& output, std::string const& other) {
  if (other.empty()) return kClean;
  bool isShared = isStandard(other) ? isStandard(output) : normal(output) == normal(other);
  std::error_code error;
  if (!isShared || std::filesystem::is_character_file(other, error)) return kClean;
  std::string const name = isStandard(other) ? "the standard output" : compiler::quoted(other);
  printError("two outputs would go to " + name, "usage");
  return kUsageError;
}

}  // namespace fdmorph::fdrec

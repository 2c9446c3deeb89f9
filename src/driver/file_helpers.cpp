#include "driver/file_helpers.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <optional>
#include <random>
#include <sstream>
#include <string_view>
#include <vector>

#include "driver/settings.h"
#include "text/console.h"
#include "text/multibyte.h"
#include "text/status_line.h"

namespace fdmorph {
namespace {

constexpr std::size_t kMaxAnswerLength = 1023;  // bytes of a line that are kept

// A line of the standard input; nothing at its end.
std::optional<std::string> readAnswer() {
  std::string answer;
  for (int c = std::cin.get(); c != std::char_traits<char>::eof(); c = std::cin.get()) {
    if (c == '\n') {
      // A terminal shows it as well, after the question.
      if (isatty(STDIN_FILENO) == 1) statusLine.noteText(true);
      return answer;
    }
    if (answer.size() < kMaxAnswerLength) answer += static_cast<char>(c);
  }
  if (answer.empty()) return std::nullopt;
  return answer;
}

enum class Answer { yes, no, neither };

Answer meaningOf(std::string const& answer) {
  if (answer == "Y" || answer == "y") return Answer::yes;
  if (answer == "N" || answer == "n") return Answer::no;
  return Answer::neither;
}

// The first question reaches the user even with a log. Further ones go to the
// log, because the error stream is aimed at it again after the first answer.
bool askToOverwrite(std::string const& name) {
  std::streambuf* logBuffer = console.logMode ? std::cerr.rdbuf() : nullptr;
  if (console.logMode) std::cerr.rdbuf(console.savedCerrBuffer);
  err() << endLine << "Warning : The file \"" << name << "\" already exists" << endLine;
  Answer answer = Answer::neither;
  while (answer == Answer::neither) {
    err() << "Would you like to overwrite " << name << "? (y/n) " << std::flush;
    std::optional<std::string> line = readAnswer();
    answer = line ? meaningOf(*line) : Answer::no;
    if (console.logMode) std::cerr.rdbuf(logBuffer);
  }
  return answer == Answer::yes;
}

std::string randomName() {
  constexpr std::string_view kCharacters = "abcdefghijklmnopqrstuvwxyz0123456789";
  constexpr int kRandomCharacters = 6;
  static std::random_device device;
  std::uniform_int_distribution<std::size_t> position(0, kCharacters.size() - 1);
  std::string name = "./file";
  for (int i = 0; i < kRandomCharacters; ++i) name += kCharacters[position(device)];
  return name;
}

// Always false.
bool reportFailedCopy(std::string const& source, std::string const& target) {
  out() << "Error : Unable to copy file contents of " << source << " to " << target << endLine;
  return false;
}

// The suffixes of a list of extensions, each with its dot.
std::vector<std::string> splitExtensions(std::string const& extensions) {
  std::istringstream words(extensions);
  std::vector<std::string> suffixes;
  for (std::string word; words >> word;) {
    suffixes.push_back(word.front() == '.' ? word : "." + word);
  }
  return suffixes;
}

}  // namespace

bool FileExists(std::string const& name, bool prompt) {
  if (name.empty()) {
    out() << "Error : Invalid Filename.  Unable to create \"" << name << "\"" << endLine;
    return true;
  }
  std::FILE* file = std::fopen(name.c_str(), "r");
  if (file == nullptr) return false;
  if (std::fclose(file) != 0) {
    out() << "Error : Failed to close file \"" << name << "\" Ending FDMORPH process. " << endLine;
    std::exit(kStatusError);
  }
  return !prompt || !askToOverwrite(name);
}

bool isDanglingLink(std::string const& name) {
  struct stat state {};
  return lstat(name.c_str(), &state) == 0 && S_ISLNK(state.st_mode) &&
         stat(name.c_str(), &state) != 0;
}

bool isSameFile(std::string const& left, std::string const& right) {
  struct stat one {};
  struct stat other {};
  return stat(left.c_str(), &one) == 0 && stat(right.c_str(), &other) == 0 &&
         S_ISREG(one.st_mode) && one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

bool isRefusedOutput(std::string const& name, std::string const& input) {
  bool isLog = console.logMode && isSameFile(name, kLogFileName);
  if (!isLog && !isSameFile(name, input)) return false;
  out() << "Error : Output file " << name << " is the same file as "
        << (isLog ? std::string_view(kLogFileName) : std::string_view(input)) << endLine;
  return true;
}

bool CopyFileToFile(std::string const& source, std::string const& target) {
  std::ifstream in(source, std::ios::in | std::ios::binary);
  std::ofstream copy(target, std::ios::out | std::ios::trunc | std::ios::binary);
  if (!in.is_open() || !copy.is_open()) return reportFailedCopy(source, target);
  std::string line;
  while (!in.eof() && !in.bad() && copy.good()) {
    std::getline(in, line);
    copy << line.c_str() << '\n';
  }
  copy.close();
  if (copy.fail()) {
    reportWriteFailure(target);
    return false;
  }
  return !in.bad() || reportFailedCopy(source, target);
}

std::string GetTemporaryFilename(std::string const& extensions) {
  std::vector<std::string> const suffixes = splitExtensions(extensions);
  while (true) {
    std::string name = randomName();
    bool isTaken = std::any_of(suffixes.begin(), suffixes.end(), [&](std::string const& suffix) {
      return FileExists(name + suffix, false);
    });
    if (!isTaken) return name;
  }
}

std::string ProcessSpaceyFilename(std::string const& name) {
  std::wstring wide = my_mbstowcs(name.c_str());
  std::erase(wide, L'"');
  if (wide.find(L' ') != std::wstring::npos) wide = L'"' + wide + L'"';
  return my_wcstombs(wide.c_str());
}

}  // namespace fdmorph

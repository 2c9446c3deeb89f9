#include "driver/file_helpers.h"

#include <cstdio>
#include <cstdlib>
#include <iostream>

#include "text/console.h"

namespace fdmorph {
namespace {

constexpr std::size_t kLongestAnswer = 1023;  // bytes of a line that are kept

// False at the end of the input.
bool readAnswer(std::string& answer) {
  answer.clear();
  for (int c = std::cin.get(); c != std::char_traits<char>::eof(); c = std::cin.get()) {
    if (c == '\n') return true;
    if (answer.size() < kLongestAnswer) answer += static_cast<char>(c);
  }
  return !answer.empty();
}

enum class Answer { yes, no, neither };

Answer understand(std::string const& answer) {
  if (answer == "Y" || answer == "y") return Answer::yes;
  if (answer == "N" || answer == "n") return Answer::no;
  return Answer::neither;
}

// The first question must reach the user even with a log; further ones go to
// the log, as the error stream is aimed back at it after the first answer.
bool askToOverwrite(std::string const& name) {
  std::streambuf* logBuffer = console.logMode ? std::cerr.rdbuf() : nullptr;
  if (console.logMode) std::cerr.rdbuf(console.savedCerrBuffer);
  err() << endLine << "Warning : The file \"" << name << "\" already exists" << endLine;
  std::string line;
  Answer answer = Answer::neither;
  while (answer == Answer::neither) {
    err() << "Would you like to overwrite " << name << "? (y/n) " << std::flush;
    answer = readAnswer(line) ? understand(line) : Answer::no;
    if (console.logMode) std::cerr.rdbuf(logBuffer);
  }
  return answer == Answer::yes;
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
    std::exit(1);
  }
  return !prompt || !askToOverwrite(name);
}

}  // namespace fdmorph

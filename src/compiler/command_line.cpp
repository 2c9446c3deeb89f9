#include "compiler/command_line.h"

#include <algorithm>

namespace fdmorph::compiler {
namespace {

constexpr std::string_view kStyleOption = "--diagnostics=";

std::string withoutQuotes(std::string const& name) {
  bool isQuoted = name.size() >= 2 && name.front() == '"' && name.back() == '"';
  return isQuoted ? name.substr(1, name.size() - 2) : name;
}

class Reader {
 public:
  Reader(std::vector<std::string> const& arguments, FileTree& tree)
      : m_arguments(arguments), m_tree(tree) {}

  CommandLine read() {
    findSource();
    for (std::size_t i = 0; i < m_arguments.size() && m_result.error.empty(); ++i) {
      if (i != m_source) readArgument(m_arguments[i]);
      if (m_result.action == CommandLine::Action::help ||
          m_result.action == CommandLine::Action::version) {
        return m_result;
      }
    }
    if (m_result.error.empty() && m_result.sourcePath.empty()) {
      m_result.error = "no source file";
    }
    if (!m_result.error.empty()) m_result.action = CommandLine::Action::usageError;
    return m_result;
  }

 private:
  static bool isWord(std::string const& argument) {
    if (argument == kStandardInput) return true;
    return !argument.empty() && argument.front() != '-' && argument.front() != '@';
  }

  // Words after an option are directives, except the last word.
  void findSource() {
    m_source = m_arguments.size();
    if (!m_arguments.empty() && isWord(m_arguments.front())) m_source = 0;
    bool isLast = m_source != 0 && !m_arguments.empty() && isWord(m_arguments.back());
    // The word after "-C" is always a directive.
    bool isTaken = m_arguments.size() > 1 && m_arguments[m_arguments.size() - 2] == "-C";
    if (isLast && !isTaken) m_source = m_arguments.size() - 1;
    if (m_source < m_arguments.size()) m_result.sourcePath = withoutQuotes(m_arguments[m_source]);
  }

  void readArgument(std::string const& argument) {
    if (argument == "--help") {
      m_result.action = CommandLine::Action::help;
    } else if (argument == "--version") {
      m_result.action = CommandLine::Action::version;
    } else if (argument.starts_with(kStyleOption)) {
      readStyle(argument.substr(kStyleOption.size()));
    } else if (argument.starts_with("-C")) {
      m_isAfterOption = true;
      apply(argument.substr(2));
    } else if (argument.starts_with("@")) {
      readFile(withoutQuotes(argument.substr(1)));
    } else if (argument.starts_with("-")) {
      m_result.error = "unknown option " + argument;
    } else if (m_isAfterOption) {
      apply(argument);
    } else if (!argument.empty()) {
      m_result.error = "more than one source file";
    }
  }

  void readStyle(std::string const& style) {
    m_result.printsJson = style == "json";
    if (style != "json" && style != "text") {
      m_result.error = "expected json or text after " + std::string(kStyleOption);
    }
  }

  void apply(std::string const& text) {
    if (auto wrong = applyDirectives(text, m_result.directives)) {
      m_result.error = "invalid parameter in directive " + *wrong;
    }
  }

  void readFile(std::string const& name) {
    std::optional<std::string> content = m_tree.read(name);
    if (!content) {
      m_result.error = "cannot read directive file " + name + ": " + whyUnreadable(name);
    } else if (auto wrong = applyDirectiveFile(*content, m_result.directives)) {
      m_result.error = "invalid parameter in directive " + *wrong + " in " + name;
    }
    m_result.directives.files.push_back(name);
  }

  std::vector<std::string> const& m_arguments;
  FileTree& m_tree;
  CommandLine m_result;
  std::size_t m_source = 0;  // index of the argument that names the source
  bool m_isAfterOption = false;
};

}  // namespace

CommandLine readCommandLine(std::vector<std::string> const& arguments, FileTree& tree) {
  return Reader(arguments, tree).read();
}

char const* helpText() {
  return "Usage: zbc [OPTION]... [-C DIRECTIVE ...]... [@FILE] SOURCE\n"
         "Checks the data division of a COBOL program or copybook.\n"
         "\n"
         "  -C DIRECTIVE ...       apply compiler directives\n"
         "  @FILE                  apply the directives of a file; lines with * are comments\n"
         "  SOURCE, FILE           - is the standard input\n"
         "  --diagnostics=FORMAT   FORMAT is text or json, an object on each line\n"
         "  --help                 show this text\n"
         "  --version              show the version\n"
         "\n"
         "Directives:\n"
         "  XMLGEN(WS)             write the data dictionary next to the source, as .xml\n"
         "  XMLGEN(FILE)           the same, with the file section first\n"
         "  RECORD(NAME NAME)      only these records, in this order\n"
         "  SECTION(SECTION)       the records of FILE, WORKING-STORAGE, LOCAL-STORAGE or\n"
         "                         LINKAGE\n"
         "  CONDITIONS(OFF)        leave conditions out\n"
         "  VALUES(OFF)            leave the values of items out\n"
         "  REDEFINES(NAME NAME)   these items in place of those that they redefine\n"
         "  RENAME-FILLER(ON)      call FILLER items FILLER-1, FILLER-2, ...\n"
         "  LIST(FILE)             write a listing of the items; - is the standard output\n"
         "  DEPFILE(FILE)          write to FILE a rule for make with all files read\n"
         "  DEPTARGET(NAME)        a target of that rule; default: the dictionary\n"
         "  DIALECT(D)             sizes of binary items; D is GNUCOBOL or IBM\n"
         "  SOURCEFORMAT(F)        F is FIXED, VARIABLE or FREE\n"
         "  TABS(N)                columns between tab stops\n"
         "  COPYPATH(DIR:DIR)      folders to search for copy members\n"
         "  COPYEXT(EXT,EXT)       extensions of copy members\n"
         "  COPYMISSING(WARN)      only warn of a copy member that is not found\n"
         "  DBGI, NOOBJ            accepted without effect\n"
         "\n"
         "Exit status: 0 without errors, 1 with errors in the source,\n"
         "2 for a wrong command line.\n";
}

}  // namespace fdmorph::compiler

#include "driver/command_line.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "driver/file_helpers.h"
#include "driver/options.h"
#include "text/console.h"
#include "text/letter_case.h"
#include "text/multibyte.h"

namespace fdmorph {
namespace {

constexpr int kExtensionLength = 4;  // only these characters of it are compared

bool startsWith(char const* argument, char const* name) {
  return my_strnicmp(argument, name, static_cast<int>(std::strlen(name))) == 0;
}

bool matches(char const* argument, Option const& option) {
  return option.isWhole ? my_stricmp(argument, option.name.data()) == 0
                        : startsWith(argument, option.name.data());
}

// Null for an argument that is no option.
Option const* findOption(char const* argument) {
  auto option = std::find_if(kOptions.begin(), kOptions.end(),
                             [argument](Option const& each) { return matches(argument, each); });
  return option == kOptions.end() ? nullptr : &*option;
}

constexpr Option const& logOption() {
  return *std::find_if(kOptions.begin(), kOptions.end(), [](Option const& each) {
    OptionAction const* action = std::get_if<OptionAction>(&each.effect);
    return action != nullptr && *action == OptionAction::log;
  });
}

// After such an option an argument is a file name, even one that looks like
// -LOG.
bool isFileNameOption(char const* argument) {
  return std::any_of(kOptions.begin(), kOptions.end(), [argument](Option const& each) {
    return std::holds_alternative<FileNameOption>(each.effect) &&
           my_stricmp(argument, each.name.data()) == 0;
  });
}

bool hasExtension(char const* name, char const* extension) {
  return my_strnicmp(my_strrchr(name, "."), extension, kExtensionLength) == 0;
}

void reportUnrecognizedType(std::string const& name) {
  out() << "Error : Unrecognized file type \"" << name << "\"" << endLine;
}

/// One scan of the arguments.
class ArgumentScan {
 public:
  ArgumentScan(int argc, char** argv) : m_argc(argc), m_argv(argv) {}

  ScannedArguments run() {
    std::optional<int> status;
    for (m_index = 1; m_index < m_argc && !status && !m_isDone; ++m_index) {
      status = m_argv[m_index][0] == '-' ? takeOption() : takeFileName();
    }
    return {std::move(m_settings), status};
  }

 private:
  std::optional<int> takeFileName();
  std::optional<int> takeOption();
  std::optional<int> apply(Option const& option, OptionAction action);
  std::optional<int> takeValidation(Option const& option);

  void takeValue(Option const& option, std::string& value) {
    m_index = ProcessCmdLineNameValue(m_argc, m_argv, m_index, option.name.data(), value);
  }

  void chooseRun(Run run) {
    if (m_settings.run == Run::none) {
      m_settings.run = run;
    } else {
      out() << "Error : Invalid command line option, ignoring \"" << m_settings.givenName << "\""
            << endLine;
    }
  }

  int m_argc;
  char** m_argv;
  Settings m_settings;
  int m_index = 1;
  bool m_isDone = false;
};

std::optional<int> ArgumentScan::takeFileName() {
  char const* name = m_argv[m_index];
  if (!m_settings.givenName.empty()) {
    out() << "Warning : Source filename \"" << m_settings.givenName
          << "\" already specified.  Ignoring \"" << name << "\"" << endLine;
    return std::nullopt;
  }
  m_settings.givenName = name;
  bool isXml = hasExtension(name, ".XML");
  if (isXml || hasExtension(name, ".CBL") || hasExtension(name, ".CPY")) {
    chooseRun(Run::cobolToSchema);
    m_settings.sourceFile = name;
    if (isXml) m_settings.xmlFile = name;
  } else if (hasExtension(name, ".XSD")) {
    chooseRun(Run::schemaToCobol);
    m_settings.schemaFile = name;
  } else {
    reportUnrecognizedType(m_settings.givenName);
    printUsage();
    return stopRun();
  }
  return std::nullopt;
}

std::optional<int> ArgumentScan::takeOption() {
  char const* argument = m_argv[m_index];
  Option const* option = findOption(argument);
  if (option == nullptr) {
    out() << "Error : Invalid option \"" << argument << "\"" << endLine;
    return stopRun();
  }
  if (auto const* file = std::get_if<FileNameOption>(&option->effect)) {
    takeValue(*option, m_settings.*(file->field));
  } else if (auto const* text = std::get_if<TextOption>(&option->effect)) {
    takeValue(*option, m_settings.*(text->field));
  } else if (auto const* flag = std::get_if<FlagOption>(&option->effect)) {
    m_settings.*(flag->field) = flag->value;
  } else {
    return apply(*option, std::get<OptionAction>(option->effect));
  }
  return std::nullopt;
}

std::optional<int> ArgumentScan::apply(Option const& option, OptionAction action) {
  switch (action) {
    case OptionAction::help:
      printUsage();
      return stopRun(kStatusOk);
    case OptionAction::validate:
      return takeValidation(option);
    case OptionAction::quiet:
      beginQuietMode();
      break;
    case OptionAction::log:
      break;  // opened before the scan
  }
  return std::nullopt;
}

// -V ends the scan: what follows is not looked at.
std::optional<int> ArgumentScan::takeValidation(Option const& option) {
  takeValue(option, m_settings.givenName);
  char const* name = m_settings.givenName.c_str();
  if (hasExtension(name, ".XML")) {
    m_settings.xmlFile = name;
  } else if (hasExtension(name, ".XSD")) {
    m_settings.schemaFile = name;
  } else {
    reportUnrecognizedType(m_settings.givenName);
    return stopRun();
  }
  m_settings.run = Run::validation;
  m_isDone = true;
  return std::nullopt;
}

// Whether an argument, or the value in it, is the name of the log's file. The
// log is opened ahead of the scan that would tell which arguments are names.
bool isLogNamed(int argc, char** argv) {
  return std::any_of(argv + 1, argv + argc, [](char const* argument) {
    return isSameFile(argument, kLogFileName) ||
           (argument[0] == '-' && argument[1] != '\0' && isSameFile(argument + 2, kLogFileName));
  });
}

// The names of the options of a run, as the usage text lists them.
std::string optionNames(bool Option::*isOfRun) {
  std::string names;
  for (Option const& option : kOptions) {
    if (!(option.*isOfRun)) continue;
    names += names.empty() ? '[' : ' ';
    for (char c : option.name) names += toLower(c);
  }
  return names + "]";
}

}  // namespace

int stopRun(int status) {
  RestoreStreams();
  return status;
}

bool openRequestedLog(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    if (!startsWith(argv[i], logOption().name.data()) || isFileNameOption(argv[i - 1])) continue;
    if (isLogNamed(argc, argv)) {
      out() << "Error : The log " << kLogFileName << " is a file of the command line" << endLine;
      return false;
    }
    openLog();
    break;
  }
  return true;
}

ScannedArguments scanArguments(int argc, char** argv) {
  return ArgumentScan(argc, argv).run();
}

void printUsage() {
  out() << "Usage :" << endLine << "fdmorph [options] <filename>" << endLine << endLine;
  out() << "fdmorph " << optionNames(&Option::isOfCobolRun) << " <COBOL filename>" << endLine;
  out() << "fdmorph " << optionNames(&Option::isOfSchemaRun) << " <XML Schema filename>" << endLine;
  out() << "fdmorph [-v] (<XML filename> | <XML Schema filename>)" << endLine << endLine;
  out() << "Options:" << endLine << endLine;
  for (Option const& option : kOptions) {
    if (!option.help.empty()) out() << option.help.data() << endLine << endLine;
  }
}

int ProcessCmdLineNameValue(int argc, char** argv, int index, char const* name,
                            std::string& value) {
  std::wstring argument = my_mbstowcs(argv[index]);
  std::size_t nameLength = my_mbstowcs(name).size();
  if (argument.size() > nameLength) {
    value = my_wcstombs(argument.substr(nameLength).c_str());
    return index;
  }
  if (argument.size() < nameLength) return index;  // not valid in the locale, and reported
  if (index + 1 < argc) {
    value = argv[index + 1];
  } else {
    out() << "Error : Ignoring incomplete command-line option \""
          << static_cast<char const*>(argv[index]) << "\"" << endLine;
  }
  return index + 1;
}

}  // namespace fdmorph

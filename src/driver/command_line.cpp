#include "driver/command_line.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "driver/usage.h"
#include "text/console.h"
#include "text/multibyte.h"

namespace fdmorph {
namespace {

constexpr int kStopped = 1;
constexpr int kExtensionLength = 4;  // only these characters of it are compared
constexpr char kLogOption[] = "-LOG";

enum class OptionId {
  question,
  help,
  copybook,
  schema,
  mapping,
  prefix,
  directives,
  validate,
  quiet,
  log,
  noPrompt,
  noCountIn,
  unique,
  unknown,
};

struct Option {
  char const* name;
  bool isWhole;  // matched as a whole argument, otherwise as a prefix
  OptionId id;
};

// In the order of the tests: the first that matches decides, so -Value is -V
// with a value, -Xyz is -X, and -Quiet is -Q.
constexpr std::array<Option, 13> kOptions{{
    {"-?", true, OptionId::question},
    {"-HELP", true, OptionId::help},
    {"-C", false, OptionId::copybook},
    {"-X", false, OptionId::schema},
    {"-M", false, OptionId::mapping},
    {"-P", false, OptionId::prefix},
    {"-D", false, OptionId::directives},
    {"-V", false, OptionId::validate},
    {"-Q", false, OptionId::quiet},
    {kLogOption, false, OptionId::log},
    {"-NOPROMPT", false, OptionId::noPrompt},
    {"-NOCOUNTIN", false, OptionId::noCountIn},
    {"-UNIQUE", false, OptionId::unique},
}};

// Behind these an argument is a file name, even one that looks like -LOG.
constexpr std::array kFileOptions{"-C", "-X", "-M", "-D"};

bool startsWith(char const* argument, char const* name) {
  return my_strnicmp(argument, name, static_cast<int>(std::strlen(name))) == 0;
}

bool matches(char const* argument, Option const& option) {
  return option.isWhole ? my_stricmp(argument, option.name) == 0
                        : startsWith(argument, option.name);
}

OptionId identify(char const* argument) {
  auto option = std::find_if(kOptions.begin(), kOptions.end(),
                             [argument](Option const& each) { return matches(argument, each); });
  return option == kOptions.end() ? OptionId::unknown : option->id;
}

bool hasExtension(char const* name, char const* extension) {
  return my_strnicmp(my_strrchr(name, "."), extension, kExtensionLength) == 0;
}

int stop(int status) {
  RestoreStreams();
  return status;
}

void reportUnrecognizedType(std::string const& name) {
  out() << "Error : Unrecognized file type \"" << name << "\"" << endLine;
}

/// One scan of the arguments.
class ArgumentScan {
 public:
  ArgumentScan(int argc, char** argv, Settings& settings)
      : m_argc(argc), m_argv(argv), m_settings(settings) {}

  std::optional<int> run() {
    std::optional<int> status;
    for (m_index = 1; m_index < m_argc && !status && !m_isDone; ++m_index) {
      status = m_argv[m_index][0] == '-' ? takeOption() : takeFileName();
    }
    return status;
  }

 private:
  std::optional<int> takeFileName();
  std::optional<int> takeOption();
  std::optional<int> takeValidation();

  void takeValue(char const* name, std::string& value) {
    m_index = ProcessCmdLineNameValue(m_argc, m_argv, m_index, name, value);
  }

  void chooseRun(bool& chosen, bool isOtherChosen) {
    if (isOtherChosen) {
      out() << "Error : Invalid command line option, ignoring \"" << m_settings.givenName << "\""
            << endLine;
    } else {
      chosen = true;
    }
  }

  int m_argc;
  char** m_argv;
  Settings& m_settings;
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
    chooseRun(m_settings.cobolRun, m_settings.schemaRun);
    m_settings.sourceFile = name;
    if (isXml) m_settings.xmlFile = name;
  } else if (hasExtension(name, ".XSD")) {
    chooseRun(m_settings.schemaRun, m_settings.cobolRun);
    m_settings.schemaFile = name;
  } else {
    reportUnrecognizedType(m_settings.givenName);
    printUsage();
    return stop(kStopped);
  }
  return std::nullopt;
}

std::optional<int> ArgumentScan::takeOption() {
  switch (identify(m_argv[m_index])) {
    case OptionId::question:
    case OptionId::help:
      printUsage();
      return stop(0);
    case OptionId::copybook:
      takeValue("-C", m_settings.copybookFile);
      break;
    case OptionId::schema:
      takeValue("-X", m_settings.schemaFile);
      break;
    case OptionId::mapping:
      takeValue("-M", m_settings.mappingFile);
      break;
    case OptionId::prefix:
      takeValue("-P", m_settings.dataPrefix);
      break;
    case OptionId::directives:
      takeValue("-D", m_settings.directiveFile);
      break;
    case OptionId::validate:
      return takeValidation();
    case OptionId::quiet:
      beginQuietMode();
      break;
    case OptionId::log:
      break;  // opened before the scan
    case OptionId::noPrompt:
      m_settings.promptOverwrite = false;
      break;
    case OptionId::noCountIn:
      m_settings.countIn = false;
      break;
    case OptionId::unique:
      m_settings.uniqueNames = true;
      break;
    case OptionId::unknown:
      out() << "Error : Invalid option \"" << static_cast<char const*>(m_argv[m_index]) << "\""
            << endLine;
      return stop(kStopped);
  }
  return std::nullopt;
}

// -V ends the scan: what follows is not looked at.
std::optional<int> ArgumentScan::takeValidation() {
  takeValue("-V", m_settings.givenName);
  char const* name = m_settings.givenName.c_str();
  if (hasExtension(name, ".XML")) {
    m_settings.xmlFile = name;
  } else if (hasExtension(name, ".XSD")) {
    m_settings.schemaFile = name;
  } else {
    reportUnrecognizedType(m_settings.givenName);
    return stop(kStopped);
  }
  m_settings.validationRun = true;
  m_isDone = true;
  return std::nullopt;
}

bool isShieldedByFileOption(char const* before) {
  return std::any_of(kFileOptions.begin(), kFileOptions.end(),
                     [before](char const* option) { return my_stricmp(before, option) == 0; });
}

}  // namespace

void openRequestedLog(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    if (!startsWith(argv[i], kLogOption) || isShieldedByFileOption(argv[i - 1])) continue;
    openLog();
    return;
  }
}

std::optional<int> scanArguments(int argc, char** argv, Settings& settings) {
  return ArgumentScan(argc, argv, settings).run();
}

int ProcessCmdLineNameValue(int argc, char** argv, int index, char const* name,
                            std::string& value) {
  std::wstring argument = my_mbstowcs(argv[index]);
  std::size_t nameLength = my_mbstowcs(name).size();
  if (argument.size() > nameLength) {
    value = my_wcstombs(argument.substr(nameLength).c_str());
    return index;
  }
  if (argument.size() < nameLength) return index;  // no text of the locale, and reported so
  if (index + 1 < argc) {
    value = argv[index + 1];
  } else {
    out() << "Error : Ignoring incomplete command-line option \""
          << static_cast<char const*>(argv[index]) << "\"" << endLine;
  }
  return index + 1;
}

}  // namespace fdmorph

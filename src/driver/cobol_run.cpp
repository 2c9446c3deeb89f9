#include "driver/runs.h"
#include "driver/usage.h"
#include "text/console.h"
#include "text/multibyte.h"

namespace fdmorph {
namespace {

constexpr int kExtensionLength = 4;  // only these characters of it are compared

// A dictionary is no input, and a name that begins with its only dot has no
// extension.
bool isCobolSource(std::string const& sourceFile) {
  std::size_t dot = sourceFile.rfind('.');
  if (dot == std::string::npos || dot == 0) return false;
  char const* extension = sourceFile.c_str() + dot;
  return my_strnicmp(extension, ".CBL", kExtensionLength) == 0 ||
         my_strnicmp(extension, ".CPY", kExtensionLength) == 0;
}

}  // namespace

int runCobolToSchema(Settings const& settings) {
  if (!isCobolSource(settings.sourceFile)) {
    out() << "Error : Unrecognized file type \"" << settings.sourceFile << "\"" << endLine
          << endLine;
    Usage();
    RestoreStreams();
    return 1;
  }
  out() << "Error : Conversion of COBOL file \"" << settings.sourceFile
        << "\" to XML Schema is not available yet" << endLine;
  RestoreStreams();
  return reportStatus();
}

}  // namespace fdmorph

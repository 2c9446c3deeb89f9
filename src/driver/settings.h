// What the command line says.
#pragma once

#include <string>

namespace fdmorph {

/// The settings of one call. Every option is stored whatever the run; a run
/// doesn't read what it has no use for.
struct Settings {
  std::string givenName;        ///< file name as typed, or the value of -V
  std::string sourceFile;       ///< .XML, .CBL or .CPY
  std::string xmlFile;          ///< .XML, also by -V
  std::string schemaFile;       ///< .XSD, by -V or -X
  std::string copybookFile;     ///< -C
  std::string mappingFile;      ///< -M
  std::string dataPrefix;       ///< -P
  std::string directiveFile;    ///< -D
  bool promptOverwrite = true;  ///< -NOPROMPT clears it
  bool countIn = true;          ///< -NOCOUNTIN clears it
  bool uniqueNames = false;     ///< -UNIQUE
  bool cobolRun = false;
  bool schemaRun = false;
  bool validationRun = false;
};

}  // namespace fdmorph

// What the command line asks for, and the runs that do it.
#pragma once

#include <string>

namespace fdmorph {

/// Exit statuses besides reportStatus.
inline constexpr int kStatusOk = 0;
inline constexpr int kStatusError = 1;  ///< of a run that stopped early

/// What a call does.
enum class Run { none, cobolToSchema, schemaToCobol, validation };

/// The settings of one call. Every option is stored, whether the run uses it or
/// not.
struct Settings {
  Run run = Run::none;
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
};

// The runs. Each returns the exit status and leaves the standard streams
// restored.

/// Has a COBOL source compiled and converts its data dictionary.
[[nodiscard]] int runCobolToSchema(Settings const& settings);

/// Writes COBOL records from a schema.
[[nodiscard]] int runSchemaToCobol(Settings const& settings);

/// Validates a schema or an instance document and generates nothing.
[[nodiscard]] int runValidation(Settings const& settings);

/// Restores the standard streams and returns `status`, for a run that stops.
[[nodiscard]] int stopRun(int status = kStatusError);

}  // namespace fdmorph

// The options of the command line, in one table: how they are matched, what
// they set, and their part of the usage text.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <variant>

#include "driver/settings.h"

namespace fdmorph {

/// Options that do more than to set a field.
enum class OptionAction { help, validate, quiet, log };

/// An option with a value that is a file name.
struct FileNameOption {
  std::string Settings::*field;
};
/// An option with another value.
struct TextOption {
  std::string Settings::*field;
};
/// An option that sets a field to `value`.
struct FlagOption {
  bool Settings::*field;
  bool value;
};

/// One option.
struct Option {
  std::string_view name;  ///< matched in any case; null-terminated
  bool isWhole;           ///< matched as a whole argument, otherwise as a prefix
  std::variant<OptionAction, FileNameOption, TextOption, FlagOption> effect;

  // The usage text. Options without help are left out of it.
  bool isOfCobolRun = false;
  bool isOfSchemaRun = false;
  std::string_view help = {};  ///< its paragraph, without the last line end
};

// In the order of the tests: the first that matches decides, so -Value is -V
// with a value, -Xyz is -X, and -Quiet is -Q.
inline constexpr std::array<Option, 13> kOptions{{
    {"-?", true, OptionAction::help},
    {"-HELP", true, OptionAction::help},
    {"-C", false, FileNameOption{&Settings::copybookFile}, true, true,
     "   -c|-C <filename>     Specify a filename for the COBOL file being\n"
     "                        created."},
    {"-X", false, FileNameOption{&Settings::schemaFile}, true, false,
     "   -x|-X <filename>     Specify a <filename> for the XML schema file\n"
     "                        being created.  Note: This option is for the\n"
     "                        processing of COBOL programs/copyfiles only."},
    {"-M", false, FileNameOption{&Settings::mappingFile}, true, false,
     "   -m|-M <filename>     Specify a <filename> for the mapping file\n"
     "                        to be used or created.  Note: This option is\n"
     "                        for the processing of COBOL programs/copyfiles\n"
     "                        only."},
    {"-P", false, TextOption{&Settings::dataPrefix}, true, true,
     "   -p|-P <prefix>       Specify a prefix to append to any generated\n"
     "                        data names."},
    {"-D", false, FileNameOption{&Settings::directiveFile}, true, false,
     "   -d|-D <filename>     Specify a compiler directive file <filename>\n"
     "                        to use when preprocessing a COBOL file."},
    {"-V", false, OptionAction::validate, false, false,
     "   -v|-V <filename>     Perform XML schema or instance document\n"
     "                        validation on <filename>."},
    {"-Q", false, OptionAction::quiet},
    {"-LOG", false, OptionAction::log},
    {"-NOPROMPT", false, FlagOption{&Settings::promptOverwrite, false}, true, true,
     "   -noprompt |          Prevent user prompt for the overwrite of existing\n"
     "   -NOPROMPT            files."},
    {"-NOCOUNTIN", false, FlagOption{&Settings::countIn, false}, true, true,
     "   -nocountin |         Prevent generation of \"count in\" clauses for\n"
     "   -NOCOUNTIN           generated data items.  This option overrides any\n"
     "                        <cobol-count-in> mapping file values."},
    {"-UNIQUE", false, FlagOption{&Settings::uniqueNames, true}, false, true,
     "   -unique |            Ensure that all COBOL data names are unique within the\n"
     "   -UNIQUE              generated COBOL data structure."},
}};

}  // namespace fdmorph

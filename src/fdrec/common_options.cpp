#include "fdrec/common_options.h"

#include <CLI/CLI.hpp>

#include "fdrec/option_values.h"

namespace fdmorph::fdrec {
namespace {

using compiler::Dialect;
using compiler::Format;
using record::RecordSection;

/// The declaration of the common options.
class CommonDeclaration {
 public:
  CommonDeclaration(CLI::App& app, CommonOptions& options) : m_app(app), m_options(options) {}

  void declare() {
    declareSource();
    compiler::SourceOptions& source = m_options.source;
    add("--dialect", source.dialect, "DIALECT",
        "sizes and byte orders of this compiler: ibm or\n"
        "gnucobol; default: ibm")
        ->transform(oneOf<Dialect>({{"ibm", Dialect::ibm}, {"gnucobol", Dialect::gnuCobol}}));
    add("--encoding", m_options.encoding, "NAME",
        "character set of the data; default: cp037 with ibm\n"
        "(cp1047 differs in brackets), utf-8 with gnucobol");
    add("--namespace", m_options.naming.namespaceUri, "URI",
        "namespace of a record without XML clauses");
    add("-o,--output", m_options.output, "FILE", "write to FILE; default: the standard output");
    add("--depfile", m_options.depfile, "FILE",
        "write to FILE a rule for make: the output depends on\n"
        "all files that were read");
    m_app
        .add_flag("--werror", m_options.hasWarningsAsErrors,
                  "exit with status 1 after warnings as well")
        ->group(kCommonOptionsGroup);
  }

 private:
  void declareSource() {
    compiler::SourceOptions& source = m_options.source;
    addList("--record", m_options.choice.names, "NAME",
            "use this record of level 01 or 77 (repeatable);\n"
            "default: the first one, or all of its file");
    add("--section", m_options.choice.section, "SECTION",
        "where records are: auto, file, working-storage,\n"
        "linkage or local-storage; default: auto, the first\n"
        "of these that has a record")
        ->transform(oneOf<RecordSection>({{"auto", RecordSection::automatic},
                                          {"file", RecordSection::file},
                                          {"working-storage", RecordSection::workingStorage},
                                          {"linkage", RecordSection::linkage},
                                          {"local-storage", RecordSection::localStorage}}));
    add("--source-format", source.reading.format, "FORMAT",
        "format of the source: fixed, variable or free;\n"
        "default: fixed")
        ->transform(oneOf<Format>(
            {{"fixed", Format::fixed}, {"variable", Format::variable}, {"free", Format::free}}));
    addList("--copy-path", source.copying.folders, "DIR",
            "search copy members here as well (repeatable)")
        ->delimiter(':');
    addList("--copy-ext", source.copying.extensions, "EXT",
            "extensions of copy members, as EXT,EXT")
        ->delimiter(',');
  }

  template <typename Value>
  CLI::Option* add(char const* name, Value& value, char const* type, char const* text) {
    return m_app.add_option(name, value, text)->option_text(type)->group(kCommonOptionsGroup);
  }

  // An option that may be repeated.
  CLI::Option* addList(char const* name, std::vector<std::string>& values, char const* type,
                       char const* text) {
    return add(name, values, type, text)->expected(1)->take_all()->allow_extra_args(false);
  }

  CLI::App& m_app;
  CommonOptions& m_options;
};

}  // namespace

void declareCommonOptions(CLI::App& app, CommonOptions& options) {
  CommonDeclaration(app, options).declare();
}

}  // namespace fdmorph::fdrec

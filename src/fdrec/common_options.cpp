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
    addWord<Dialect>("--dialect", source.dialect,
                     {{"ibm", Dialect::ibm}, {"gnucobol", Dialect::gnuCobol}},
                     "sizes and byte orders of this compiler; default: ibm");
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
    addWord<RecordSection>("--section", m_options.choice.section,
                           {{"auto", RecordSection::automatic},
                            {"file", RecordSection::file},
                            {"working-storage", RecordSection::workingStorage},
                            {"linkage", RecordSection::linkage},
                            {"local-storage", RecordSection::localStorage}},
                           "where records are; default: auto, the first of file,\n"
                           "working-storage, linkage and local-storage that has\n"
                           "a record");
    addWord<Format>(
        "--source-format", source.reading.format,
        {{"fixed", Format::fixed}, {"variable", Format::variable}, {"free", Format::free}},
        "format of the source; default: fixed");
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

  template <typename Value>
  void addWord(char const* name, Value& value, std::map<std::string, Value> const& words,
               char const* text) {
    takeWord(add(name, value, "", text), words);
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

// fdrec map-merge: the edits of a mapping file for a changed copybook.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>

#include "fdrec/commands.h"
#include "fdrec/files.h"
#include "fdrec/map_options.h"
#include "mapping/mapping_merge.h"

namespace fdmorph::fdrec {
namespace {

// More lines of a severity are counted only.
constexpr std::size_t kMaxShown = 100;

class MapMergeCommand : public Command {
 public:
  void declare(CLI::App& app) override {
    app.add_option("COPYBOOK", m_copybook, "changed copybook or program; - is the standard input")
        ->required()
        ->option_text(" ");
    app.add_option("MAPPING", m_mapping, "mapping file with the edits")
        ->required()
        ->option_text(" ");
    app.add_option("--old", m_old,
                   "the copybook that MAPPING is for: what it\n"
                   "implies is no edit")
        ->option_text("COPYBOOK");
    app.add_option("--rename", m_renames,
                   "the item OLD is called NEW now, both with the\n"
                   "names of their groups (repeatable)")
        ->option_text("OLD=NEW")
        ->expected(1)
        ->take_all()
        ->allow_extra_args(false);
    app.add_flag("--no-count-in", m_isWithoutCounts,
                 "new entries have no count, as with fdmorph -nocountin");
    m_options.declare(app);
  }

  int run(CommonOptions const& options) override {
    for (std::string const& input : {m_copybook, m_mapping, m_old}) {
      int const status = refuseOutputOver(options.output, input);
      if (status != kClean) return status;
    }
    mapping::MergeOptions merge;
    merge.countIn = !m_isWithoutCounts;
    for (std::string const& each : m_renames) {
      std::size_t const sign = each.find('=');
      if (sign == each.npos) {
        printError("expected OLD=NEW after --rename, found " + compiler::quoted(each), "usage");
        return kUsageError;
      }
      merge.renames.push_back({each.substr(0, sign), each.substr(sign + 1)});
    }
    std::optional<std::string> const content = readInput(m_mapping);
    if (!content) return kFailed;
    int status = kClean;
    std::unique_ptr<DescribedSource> const source = describe(m_copybook, options, status);
    if (source == nullptr) return status;
    std::unique_ptr<DescribedSource> old;
    if (!m_old.empty()) {
      old = describe(m_old, options, status);
      if (old == nullptr) return status;
      merge.old = &*old->data;
    }
    return write(mapping::mergeMapping(*content, m_mapping, *source->data, merge), options, status);
  }

 private:
  // Null after errors, which are printed.
  [[nodiscard]] std::unique_ptr<DescribedSource> describe(std::string const& path,
                                                          CommonOptions const& options,
                                                          int& status) const {
    int result = kClean;
    std::unique_ptr<DescribedSource> source = m_options.describe(path, options, result);
    if (source != nullptr) result = source->finish(options.hasWarningsAsErrors);
    status = std::max(status, result);
    if (source != nullptr && !source->data) source.reset();
    return source;
  }

  int write(mapping::MergeResult const& result, CommonOptions const& options, int status) const {
    mapping::MappingFindings const& findings = result.findings;
    if (findings.count() != 0) {
      std::string const text = mapping::printText(findings, m_mapping, kMaxShown);
      std::fwrite(text.data(), 1, text.size(), stderr);
    }
    if (findings.countOf(compiler::Severity::error) != 0) return kErrors;
    if (writeOutput(options.output, result.text) != kClean) return kFailed;
    bool const isWarningAnError =
        options.hasWarningsAsErrors && findings.countOf(compiler::Severity::warning) != 0;
    return isWarningAnError ? kErrors : status;
  }

  std::string m_copybook;
  std::string m_mapping;
  std::string m_old;
  std::vector<std::string> m_renames;
  bool m_isWithoutCounts = false;
  MapOptions m_options;
};

}  // namespace

std::unique_ptr<Command> makeMapMergeCommand() {
  return std::make_unique<MapMergeCommand>();
}

}  // namespace fdmorph::fdrec

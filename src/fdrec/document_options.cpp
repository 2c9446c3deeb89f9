#include "fdrec/document_options.h"

#include <CLI/CLI.hpp>
#include <array>
#include <map>

#include "text/xml_names.h"

namespace fdmorph::fdrec {
namespace {

using docschema::Trim;

constexpr char kIgnoredGroup[] = "";  // not in the help

// Options of the data and of the way back.
constexpr std::array kIgnoredValues{
    "--format",  "--length",      "--rdw",           "--block",         "--skip",
    "--limit",   "--header",      "--trailer",       "--max-errors",    "--rejects",
    "--residue", "--schema",      "--controls",      "--odo",           "--counter",
    "--sign",    "--binary-size", "--binary-endian", "--native-endian", "--national",
    "--round",   "--unmappable",  "--threads",       "--part",          "--index"};
constexpr std::array kIgnoredFlags{"--strict-zones", "--any-namespace", "--ignore-unknown",
                                   "--truncate",     "--pad-short",     "--pretty",
                                   "--progress"};

template <typename Value>
CLI::CheckedTransformer oneOf(std::map<std::string, Value> const& values) {
  CLI::CheckedTransformer check(values, CLI::ignore_case);
  std::string names;
  for (auto const& [name, value] : values) names += (names.empty() ? "" : ", ") + name;
  check.description(names);
  return check;
}

std::string checkName(std::string const& name) {
  return isNcName(name) ? std::string() : "'" + name + "' is not an XML name without a prefix";
}

}  // namespace

void DocumentOptions::declare(CLI::App& app) {
  declareValues(app);
  declareShape(app);
  declareIgnored(app);
}

void DocumentOptions::declareValues(CLI::App& app) {
  app.add_option("--trim", m_rules.trim, "blanks that texts lose: right, both or none")
      ->option_text("ENDS")
      ->transform(
          oneOf<Trim>({{"right", Trim::right}, {"both", Trim::both}, {"none", Trim::none}}));
  app.add_option("--edited", m_rules.hasEditedNumbers,
                 "numeric-edited items are written as text or number")
      ->option_text("FORM")
      ->transform(oneOf<bool>({{"text", false}, {"number", true}}));
  app.add_option_function<std::string>(
         "--blank-numbers",
         [this](std::string const& value) { m_rules.omitsBlankNumbers = value == "omit"; },
         "zoned and packed numbers of blanks: error, leading,\nzero or omit")
      ->option_text("RULE")
      ->check(CLI::IsMember({"error", "leading", "zero", "omit"}));
  app.add_option("--binary-range", m_rules.hasFullBinaryRange,
                 "COMP items hold what fits picture, or full: their bytes")
      ->option_text("RANGE")
      ->transform(oneOf<bool>({{"picture", false}, {"full", true}}));
  app.add_option("--float", m_floats, "floating items: ibm, ieee-big or ieee-little")
      ->option_text("FORM")
      ->transform(oneOf<FloatForm>({{"ibm", FloatForm::ibm},
                                    {"ieee-big", FloatForm::ieeeBig},
                                    {"ieee-little", FloatForm::ieeeLittle}}));
  app.add_option("--numbers", m_rules.hasQuotedNumbers, "JSON: numbers as number or string")
      ->option_text("FORM")
      ->transform(oneOf<bool>({{"number", false}, {"string", true}}));
}

void DocumentOptions::declareShape(CLI::App& app) {
  app.add_option("--when", m_when, "NAME: TEST, a view or record that is used (repeatable)")
      ->option_text("RULE")
      ->expected(1)
      ->take_all()
      ->allow_extra_args(false);
  app.add_flag("--counts", m_rules.hasCounts, "counts follow each record");
  app.add_flag("--omit-empty", m_rules.omitsEmpty, "parts that are as if absent are left out");
  app.add_option("--root", m_root, "the element around all records; default: records")
      ->option_text("NAME")
      ->check(CLI::Validator(checkName, ""));
  CLI::Option* single = app.add_flag("--single", m_isSingle, "a document is one record");
  app.add_flag("--lines", m_isLines, "a record a line, without an element around them")
      ->excludes(single);
}

void DocumentOptions::declareIgnored(CLI::App& app) {
  for (char const* name : kIgnoredValues) {
    app.add_option(name, m_ignored)
        ->group(kIgnoredGroup)
        ->expected(1)
        ->take_all()
        ->allow_extra_args(false);
  }
  for (char const* name : kIgnoredFlags) app.add_flag(name, m_isIgnored)->group(kIgnoredGroup);
}

docschema::SchemaRules DocumentOptions::rules(CommonOptions const& options) const {
  docschema::SchemaRules rules = m_rules;
  bool const isIbm = options.source.dialect == compiler::Dialect::ibm;
  rules.hasHexadecimalFloats =
      m_floats == FloatForm::ibm || (m_floats == FloatForm::byDialect && isIbm);
  if (!m_isSingle && !m_isLines) rules.wrapper = m_root;
  return rules;
}

}  // namespace fdmorph::fdrec

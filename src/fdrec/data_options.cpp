#include "fdrec/data_options.h"

#include <CLI/CLI.hpp>
#include <charconv>
#include <map>

#include "fdrec/option_values.h"
#include "source/diagnostics.h"
#include "text/xml_names.h"
#include "values/utf8_reader.h"

namespace fdmorph::fdrec {
namespace {

using compiler::Dialect;
using layout::TableForm;

constexpr char kBytesGroup[] = "Bytes";
constexpr char kTextsGroup[] = "Texts";
constexpr char kDocumentsGroup[] = "Documents";
constexpr char kRunGroup[] = "Run";

/// Declares options, each in a group of the help.
class Declaration {
 public:
  explicit Declaration(CLI::App& app) : m_app(app) {}

  void setGroup(char const* group) { m_group = group; }

  template <typename Value>
  CLI::Option* add(char const* name, Value& value, char const* type, char const* text) {
    return m_app.add_option(name, value, text)->option_text(type)->group(m_group);
  }

  void addList(char const* name, std::vector<std::string>& values, char const* type,
               char const* text) {
    add(name, values, type, text)->expected(1)->take_all()->allow_extra_args(false);
  }

  void addFlag(char const* name, bool& value, char const* text) {
    m_app.add_flag(name, value, text)->group(m_group);
  }

  // An option with one of some words.
  template <typename Field, typename Value>
  void addChoice(char const* name, Field& field, std::map<std::string, Value> const& words,
                 char const* text) {
    std::string const names = joinedWords(words);
    m_app
        .add_option_function<std::string>(
            name,
            [name, &field, words, names](std::string const& word) {
              auto found = words.find(CLI::detail::to_lower(word));
              if (found == words.end()) {
                throw CLI::ValidationError(name, "expected " + names + ", found '" + word + "'");
              }
              field = found->second;
            },
            text)
        ->option_text(names)
        ->group(m_group);
  }

 private:
  CLI::App& m_app;
  char const* m_group = kBytesGroup;
};

void declareBytes(Declaration& options, DataOptions& data) {
  options.setGroup(kBytesGroup);
  std::map<std::string, bool> const orders{{"big", true}, {"little", false}};
  options.addChoice<std::optional<Dialect>, Dialect>(
      "--binary-size", data.binarySize, {{"ibm", Dialect::ibm}, {"gnucobol", Dialect::gnuCobol}},
      "sizes of binary items; default: those of the dialect");
  options.addChoice("--binary-endian", data.isBinaryBigEndian, orders,
                    "byte order of COMP, COMP-4 and BINARY");
  options.addChoice("--native-endian", data.isNativeBigEndian, orders,
                    "byte order of COMP-5 and count records");
  options.addChoice<std::optional<values::FloatForm>, values::FloatForm>(
      "--float", data.floats,
      {{"ibm", values::FloatForm::ibm},
       {"ieee-big", values::FloatForm::ieeeBig},
       {"ieee-little", values::FloatForm::ieeeLittle}},
      "form of COMP-1 and COMP-2");
  options.addChoice<std::optional<values::SignTable>, values::SignTable>(
      "--sign", data.signs,
      {{"ebcdic", values::SignTable::ebcdic},
       {"gnucobol", values::SignTable::gnuCobol},
       {"overpunch", values::SignTable::overpunch}},
      "signs in the digits of zoned numbers");
  options.addChoice<std::optional<bool>, bool>("--national", data.isNationalBigEndian,
                                               {{"utf-16be", true}, {"utf-16le", false}},
                                               "encoding of national items");
  options.addChoice<std::optional<TableForm>, TableForm>(
      "--odo", data.tables, {{"max", TableForm::largest}, {"shift", TableForm::shifted}},
      "tables with DEPENDING ON take their largest size, or\n"
      "what their counter says; default: shift with rdw and\n"
      "bdw, else max");
  options.addList("--counter", data.counters, "NAME=NUMBER",
                  "value of a counter that is not in the record\n(repeatable)");
  options.addList("--when", data.when, "RULE",
                  "use this redefinition or record if a test holds:\n"
                  "'NAME: ITEM = LITERAL', 'NAME: CONDITION', 'NAME:'\n"
                  "(repeatable)");
  options.addFlag("--strict-zones", data.hasStrictZones, "check all zones of zoned numbers");
  options.addChoice<bool, bool>("--binary-range", data.hasFullBinaryRange,
                                {{"picture", false}, {"full", true}},
                                "what COMP holds: the digits of the picture, or all\n"
                                "that its bytes do; default: picture");
  options.addFlag("--pad-short", data.padsShort, "fill short records with absent items");
}

void declareTexts(Declaration& options, DataOptions& data) {
  options.setGroup(kTextsGroup);
  options.addChoice<values::Trim, values::Trim>(
      "--trim", data.trim,
      {{"right", values::Trim::right}, {"both", values::Trim::both}, {"none", values::Trim::none}},
      "blanks that texts are without; default: right");
  options.addChoice<values::Controls, values::Controls>(
      "--controls", data.controls,
      {{"refuse", values::Controls::refuse},
       {"replace", values::Controls::replace},
       {"drop", values::Controls::drop}},
      "what becomes of characters that XML forbids;\ndefault: refuse");
  options.addChoice<values::BlankNumbers, values::BlankNumbers>(
      "--blank-numbers", data.blankNumbers,
      {{"refuse", values::BlankNumbers::refuse},
       {"leading", values::BlankNumbers::leading},
       {"zero", values::BlankNumbers::zero},
       {"omit", values::BlankNumbers::omit}},
      "what blanks in numbers are; default: refuse");
  options.addChoice<bool, bool>("--edited", data.hasEditedNumbers,
                                {{"text", false}, {"number", true}},
                                "what numeric-edited items are; default: text");
  options.addChoice<values::Rounding, values::Rounding>(
      "--round", data.rounding,
      {{"half-up", values::Rounding::halfUp}, {"truncate", values::Rounding::truncate}},
      "what becomes of digits that are not stored;\ndefault: an error");
  options.addFlag("--truncate", data.truncates, "cut texts that are too long");
  options.add("--unmappable", data.unmappable, "CHAR",
              "for characters that are not in the encoding;\ndefault: an error");
}

void declareDocuments(Declaration& options, DataOptions& data) {
  options.setGroup(kDocumentsGroup);
  options.addFlag("--counts", data.hasCounts, "records end with their count record");
  options.addFlag("--omit-empty", data.omitsEmpty, "leave out parts that are as if absent");
  options.addFlag("--pretty", data.isPretty, "XML: indent elements");
  options.add("--root", data.wrapper, "NAME",
              "XML: name of the element around all records;\ndefault: records");
  options.addFlag("--single", data.isSingle, "XML: exactly one record, which is the document");
  options.addFlag("--lines", data.areLines, "XML: one record a line, nothing around them");
  options.addChoice<bool, bool>("--numbers", data.quotesNumbers,
                                {{"number", false}, {"string", true}},
                                "JSON: what numbers are; default: number");
  options.addFlag("--ignore-unknown", data.ignoresUnknown,
                  "pass over elements and attributes without an item");
  options.addFlag("--any-namespace", data.matchesAnyNamespace,
                  "match elements by their local names alone");
  options.add("--schema", data.schema, "FILE",
              "XML: validate each record against this XML Schema,\n"
              "and take namespaces and optional parts from it");
  options.addList("--import-path", data.importFolders, "DIR",
                  "look for included and imported files of the schema\n"
                  "here, too (repeatable)");
  options.addList("--catalog", data.catalogs, "FILE",
                  "look them up in this OASIS XML catalog (repeatable)");
}

void declareRun(Declaration& options, DataOptions& data) {
  options.setGroup(kRunGroup);
  options
      .add("--max-errors", data.maxErrors, "N",
           "end after N records with errors; 0: never;\ndefault: 100")
      ->transform(decimal());
  options.add("--rejects", data.rejects, "FILE", "write records with errors to FILE");
  options.add("--residue", data.residue, "FILE", "bytes of the records that documents do not have");
}

// NAME=NUMBER, or nothing.
std::optional<layout::GivenCounter> parseCounter(std::string const& text) {
  std::size_t equals = text.find('=');
  if (equals == std::string::npos || equals == 0) return std::nullopt;
  layout::GivenCounter counter{text.substr(0, equals)};
  char const* end = text.data() + text.size();
  auto [rest, error] = std::from_chars(text.data() + equals + 1, end, counter.value);
  if (error != std::errc() || rest != end) return std::nullopt;
  return counter;
}

void setValues(values::Conventions& conventions, DataOptions const& data) {
  conventions.isBinaryBigEndian = data.isBinaryBigEndian.value_or(conventions.isBinaryBigEndian);
  conventions.isNativeBigEndian = data.isNativeBigEndian.value_or(conventions.isNativeBigEndian);
  conventions.isNationalBigEndian =
      data.isNationalBigEndian.value_or(conventions.isNationalBigEndian);
  conventions.floats = data.floats.value_or(conventions.floats);
  conventions.trim = data.trim;
  conventions.controls = data.controls;
  conventions.blankNumbers = data.blankNumbers;
  conventions.hasStrictZones = data.hasStrictZones;
  conventions.hasFullBinaryRange = data.hasFullBinaryRange;
  conventions.hasEditedNumbers = data.hasEditedNumbers;
  conventions.rounding = data.rounding;
  conventions.truncates = data.truncates;
}

// The character of --unmappable, or nothing.
std::optional<char32_t> parseCharacter(std::string const& text) {
  auto const* bytes = reinterpret_cast<unsigned char const*>(text.data());
  values::Utf8Character character = values::readUtf8(bytes, text.size());
  if (character.length == 0 || character.length != text.size()) return std::nullopt;
  return character.code;
}

DataRules failed(std::string error) {
  DataRules rules;
  rules.error = std::move(error);
  return rules;
}

}  // namespace

void DataOptions::declare(CLI::App& app) {
  framing.declare(app);
  Declaration options(app);
  declareBytes(options, *this);
  declareTexts(options, *this);
  declareDocuments(options, *this);
  declareRun(options, *this);
}

DataRules makeDataRules(CommonOptions const& common, DataOptions const& data) {
  charset::CodePage::Opened opened = charset::CodePage::open(common.effectiveEncoding());
  if (!opened.page) return failed("--encoding: " + opened.error);
  values::ConventionsResult conventions =
      values::makeConventions(common.source.dialect, opened.page, data.signs);
  if (!conventions.error.empty()) return failed(conventions.error);
  setValues(conventions.conventions, data);
  if (!data.unmappable.empty()) {
    std::optional<char32_t> character = parseCharacter(data.unmappable);
    if (!character) return failed("--unmappable: expected one character");
    bool isInPage = opened.page->isUtf8() || opened.page->byteOf(*character) >= 0;
    if (!isInPage) {
      return failed("--unmappable: the character is not in " + opened.page->name());
    }
    conventions.conventions.unmappable = character;
  }
  if (!isNcName(data.wrapper)) {
    return failed("--root: expected an XML name without a prefix, found " +
                  compiler::quoted(data.wrapper));
  }
  if (data.isSingle && data.areLines) return failed("--single and --lines exclude each other");
  if (data.hasCounts && data.framing.format() == framing::Format::lines) {
    return failed("--counts: lines have no count records");
  }
  if (data.framing.format() == framing::Format::lines && opened.page->isEbcdic()) {
    return failed("--format lines: expected an encoding based on ASCII, found " +
                  opened.page->name());
  }
  DataRules rules;
  rules.layout.conventions = std::move(conventions.conventions);
  bool isShifted = data.framing.format() == framing::Format::rdw ||
                   data.framing.format() == framing::Format::bdw;
  rules.layout.tables = data.tables.value_or(isShifted ? TableForm::shifted : TableForm::largest);
  rules.layout.hasCounts = data.hasCounts;
  rules.layout.omitsEmpty = data.omitsEmpty && !data.hasCounts;
  for (std::string const& text : data.counters) {
    std::optional<layout::GivenCounter> counter = parseCounter(text);
    if (!counter) {
      return failed("--counter: expected NAME=NUMBER, found " + compiler::quoted(text));
    }
    rules.layout.counters.push_back(std::move(*counter));
  }
  rules.lengths.padsShort = data.padsShort;
  if (data.framing.format() == framing::Format::fixed) {
    rules.lengths.ending = document::LengthRules::Ending::ignored;
  } else if (data.framing.format() == framing::Format::lines) {
    rules.lengths.ending = document::LengthRules::Ending::blanks;
  }
  return rules;
}

document::OutputRules makeOutputRules(DataOptions const& data, document::Syntax syntax) {
  document::OutputRules rules;
  rules.syntax = syntax;
  rules.isPretty = data.isPretty && syntax == document::Syntax::xml;
  rules.hasWrapper = !data.isSingle && !data.areLines;
  rules.quotesNumbers = data.quotesNumbers;
  return rules;
}

}  // namespace fdmorph::fdrec

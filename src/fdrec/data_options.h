// The options of the commands that read or write data.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "document/decoder.h"
#include "fdrec/command.h"
#include "fdrec/framing_options.h"

namespace fdmorph::fdrec {

/// What the user says about data and documents. Options of the other direction are
/// accepted without effect, so that one set serves both.
struct DataOptions {
  FramingOptions framing;

  // How bytes hold values.
  std::optional<compiler::Dialect> binarySize;
  std::optional<bool> isBinaryBigEndian;
  std::optional<bool> isNativeBigEndian;
  std::optional<values::FloatForm> floats;
  std::optional<values::SignTable> signs;
  std::optional<bool> isNationalBigEndian;
  std::optional<layout::TableForm> tables;
  std::vector<std::string> counters;  ///< NAME=NUMBER
  std::vector<std::string> when;      ///< rules of views and records
  bool hasStrictZones = false;
  bool hasFullBinaryRange = false;
  bool padsShort = false;

  // How values are texts.
  values::Trim trim = values::Trim::right;
  values::Controls controls = values::Controls::refuse;
  values::BlankNumbers blankNumbers = values::BlankNumbers::refuse;
  bool hasEditedNumbers = false;
  values::Rounding rounding = values::Rounding::refuse;
  bool truncates = false;
  std::string unmappable;  ///< one character

  // Documents.
  bool hasCounts = false;
  bool omitsEmpty = false;
  bool isPretty = false;
  bool isSingle = false;
  bool areLines = false;
  std::string wrapper = "records";
  bool quotesNumbers = false;
  bool ignoresUnknown = false;
  bool matchesAnyNamespace = false;
  std::string schema;
  std::vector<std::string> importFolders;  ///< where files of the schema are, too
  std::vector<std::string> catalogs;       ///< OASIS XML catalogs

  // The run.
  std::uint64_t maxErrors = 100;  ///< records with errors; 0: no bound
  std::string rejects;
  std::string residue;

  void declare(CLI::App& app);
};

/// What the options mean together, or what is wrong with them.
struct DataRules {
  layout::LayoutRules layout;
  document::LengthRules lengths;
  std::string error;  ///< of the usage; empty if there is none
};

/// The rules for the data. `common` and `data` must outlive the result.
[[nodiscard]] DataRules makeDataRules(CommonOptions const& common, DataOptions const& data);

/// The rules for documents.
[[nodiscard]] document::OutputRules makeOutputRules(DataOptions const& data,
                                                    document::Syntax syntax);

}  // namespace fdmorph::fdrec

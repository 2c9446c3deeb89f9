// The options that decide how documents look.
#pragma once

#include <string>
#include <vector>

#include "docschema/schema_rules.h"
#include "fdrec/command.h"

namespace fdmorph::fdrec {

/// How floating items are stored.
enum class FloatForm : std::uint8_t { byDialect, ibm, ieeeBig, ieeeLittle };

/// The options of commands that write documents, as far as the documents depend on
/// them. Those of the data itself, and of the way back, are accepted without effect.
class DocumentOptions {
 public:
  void declare(CLI::App& app);

  /// The rules without the views that the user chooses.
  [[nodiscard]] docschema::SchemaRules rules(CommonOptions const& options) const;

  /// The values of --when.
  [[nodiscard]] std::vector<std::string> const& when() const { return m_when; }

 private:
  void declareValues(CLI::App& app);
  void declareShape(CLI::App& app);
  void declareIgnored(CLI::App& app);

  docschema::SchemaRules m_rules;
  FloatForm m_floats = FloatForm::byDialect;
  std::vector<std::string> m_when;
  std::string m_root = "records";
  bool m_isSingle = false;
  bool m_isLines = false;
  std::vector<std::string> m_ignored;
  bool m_isIgnored = false;
};

}  // namespace fdmorph::fdrec

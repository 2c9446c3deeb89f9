// A copybook and the options of a caller, ready to convert.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "fdrec/data_input.h"
#include "library/conversion.h"

namespace fdmorph::library {

/// Why something cannot be done.
struct Fault {
  int status = fdrec::kClean;  ///< an exit status; kClean if there is no fault
  std::string message;         ///< lines without the last line feed; may be warnings
};

/// Whether records have count records.
enum class Counts : bool { none, given };

/// A layout with all that it is used for. Immutable; threads share it.
class LayoutFile {
 public:
  /// Reads the copybook. `options` is the text of a caller.
  LayoutFile(std::string const& copybook, std::string_view options);
  LayoutFile(LayoutFile const&) = delete;
  LayoutFile& operator=(LayoutFile const&) = delete;

  /// What is wrong with the copybook or the options: nothing can be converted then. May
  /// have warnings without that.
  [[nodiscard]] Fault const& fault() const { return m_fault; }

  /// What is wrong with the layout for one use only. The others do not suffer from it:
  /// a record without names for JSON still becomes XML.
  [[nodiscard]] Fault const& fault(document::Syntax syntax, Counts counts) const {
    return use(syntax, counts).fault;
  }

  /// How records are converted; only if there is no fault.
  [[nodiscard]] Conversion const& conversion(document::Syntax syntax, Counts counts) const {
    return *use(syntax, counts).conversion;
  }

  /// The copybook and how its records are stored, without counts.
  [[nodiscard]] fdrec::DataInput const& input() const { return *m_input; }

  /// The sources of the copybook.
  [[nodiscard]] compiler::Sources const& sources() const { return *m_sources; }

  /// The length of the longest count record in bytes; 0 if no item has COUNT IN. Then
  /// counts do not matter.
  [[nodiscard]] std::uint64_t maxCountSize() const {
    return m_counted == nullptr ? 0 : m_counted->maxCountSize();
  }

 private:
  struct Use {
    std::optional<Conversion> conversion;
    Fault fault;
  };

  [[nodiscard]] std::string parse(std::string_view options);
  void open(std::string const& copybook);
  void addLine(std::string const& line);
  void addUse(layout::RecordSet const& set, document::Syntax syntax, Counts counts);
  void addCounts();
  [[nodiscard]] Use& use(document::Syntax syntax, Counts counts) {
    return m_uses[syntax == document::Syntax::json][counts == Counts::given];
  }
  [[nodiscard]] Use const& use(document::Syntax syntax, Counts counts) const {
    return m_uses[syntax == document::Syntax::json][counts == Counts::given];
  }

  fdrec::CommonOptions m_common;
  fdrec::DataOptions m_data;
  Fault m_fault;
  std::optional<fdrec::DataInput> m_input;
  compiler::Sources const* m_sources = nullptr;
  std::unique_ptr<layout::RecordSet> m_counted;  // with count records
  Use m_uses[2][2];
};

}  // namespace fdmorph::library

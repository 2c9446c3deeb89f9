// A document's record to bytes, for one layout.
//
// The record starts as its absent bytes, and each element of the document writes its
// part over them. The parts of an element are found by name, in any order; those with
// the same name fill its slots in the order of the record.
//
// Of an area that items share, the document's parts name the view. Where they leave
// several, the area waits until all others have their bytes: then each view is tried,
// and the first that the rules choose stays. Such an area is called undecided.
//
// Tables with DEPENDING ON are compared with their counters after their element, so
// that the order of the document does not matter.
#pragma once

#include <optional>
#include <span>

#include "document/counter_states.h"
#include "document/encode_errors.h"
#include "document/encode_plan.h"
#include "document/instance.h"

namespace fdmorph::document {

struct EncodeRules {
  bool ignoresUnknown = false;  ///< elements and attributes without an item
  bool isJson = false;          ///< shapes are checked, numbers without quotes may have exponents
  bool endsWithViews = false;   ///< a record is written up to the end of its views
  bool isFilledUp = true;       ///< a record is written as long as the longest one
};

/// Bytes that take the place of those that a record would have.
struct ByteRun {
  std::uint64_t offset = 0;  ///< in the record as it is written
  std::string_view bytes;
};

/// Its buffers are used again for each record. Not to be shared by threads.
class RecordEncoder {
 public:
  /// All objects must outlive this one.
  RecordEncoder(layout::RecordSet const& set, std::uint32_t record, NameNumbers const& names,
                EncodeRules const& rules);

  /// Encodes the record that is the first instance. `runs` are put in. Errors are
  /// added; where a value has one, its bytes are as if it were absent, and the error has
  /// their place.
  void encode(Instances const& instances, std::span<ByteRun const> runs, EncodeErrors& errors);

  /// Forgets what was absorbed of a record.
  void forget() { m_isBegun = false; }

  /// Encodes parts of a record that is still being read, see PartAbsorber. The next call
  /// of encode() is for the same record.
  [[nodiscard]] std::vector<std::uint32_t> absorb(Instances& instances,
                                                  std::vector<std::uint32_t> const& open,
                                                  EncodeErrors& errors);

  /// Adds the errors of areas whose view is not the one that the rules choose for the
  /// record, of which `available` bytes are written.
  void checkViews(std::uint64_t available, EncodeErrors& errors);

  /// The end of the views that were taken for their texts and not by rules, in bytes.
  [[nodiscard]] std::uint64_t endOfTexts() const;

  /// The largest form of the record.
  [[nodiscard]] std::vector<unsigned char>& bytes() { return m_bytes; }
  [[nodiscard]] std::vector<unsigned char> const& counts() const { return m_counts; }

 private:
  /// The children of an element that have one of its names.
  struct NameUse {
    std::uint32_t first = kNoInstance;
    std::uint32_t last = kNoInstance;
    std::uint64_t count = 0;
    std::uint64_t absorbed = 0;          ///< of these, encoded already
    std::uint32_t area = layout::kNone;  ///< the area that encodes them, if it was undecided
    bool hasFailed = false;              ///< they are not looked at further
  };

  /// An element that is encoded. Its uses and views are on stacks.
  struct Frame {
    std::uint32_t node;
    std::uint32_t instance;
    std::uint64_t base;  ///< what the tables around its parts add to their offsets
    std::size_t uses;    ///< where its uses begin
    std::size_t taken;   ///< where the views of its areas begin
    std::uint32_t text;  ///< the instance with its text, or kNoInstance
  };

  struct TableCheck {
    std::uint32_t table;
    std::uint64_t count;
    bool hasCount;           ///< false: the table is not in the document
    bool hasFailed;          ///< its number does not count
    std::uint32_t instance;  ///< what an error is told at
    std::size_t occurrence;  ///< in m_pool
  };

  struct AreaCheck {
    std::uint32_t element;
    std::uint32_t area;  ///< in the plan
    std::uint32_t view;  ///< in the plan, or kNothing
    std::uint32_t part;  ///< the node of the document's first part of the area
    std::uint32_t instance;
    std::size_t occurrence;
    std::uint64_t end;  ///< of the view in the record, in bytes
  };

  struct Undecided {
    Frame frame;
    std::size_t occurrence;
  };

  /// Which undecided areas are tried.
  enum class Round : std::uint8_t {
    settled,  ///< those whose rules look at no other undecided area
    any,      ///< all
    last,     ///< all, and those for which no view can be taken fail
  };

  /// An element whose parts are absorbed while it is read.
  struct OpenElement {
    std::uint32_t node;
    std::uint64_t base;  ///< as in Frame
  };

  /// An occurrence of a name.
  struct SlotPlace {
    std::uint32_t node;
    std::uint64_t index;  ///< in the slot
  };

  /// The children of one name that were absorbed.
  struct NameProgress {
    std::uint64_t count = 0;
    std::uint32_t last = kNoInstance;  ///< that stands for others
    bool isBeyond = false;             ///< it has no place in the record
    bool isBlocked = false;            ///< no more can be absorbed
  };

  /// What is undone if a view is not the one.
  struct Mark {
    std::size_t errors;
    std::size_t tableChecks;
    std::size_t areaChecks;
    std::size_t viewErrors;
    std::size_t pool;
    std::vector<unsigned char> bytes;
    std::vector<unsigned char> counts;
  };

  // Views of areas; see m_taken.
  static constexpr std::uint32_t kNothing = layout::kNone;
  static constexpr std::uint32_t kFailed = layout::kNone - 1;
  static constexpr std::uint32_t kOpen = layout::kNone - 2;

  // Absorption: record_absorption.cpp
  void findAbsorbable();
  static void dropText(Instances& instances, Instance& part);
  std::optional<OpenElement> absorbChildren(Instances& instances, OpenElement element,
                                            std::uint32_t number, std::uint32_t open,
                                            std::vector<std::uint32_t>& removed);
  bool absorbChild(Instances& instances, OpenElement element, std::uint32_t number,
                   std::vector<NameProgress>& names, std::uint32_t& guess,
                   std::vector<std::uint32_t>& removed);
  void absorbOne(OpenElement element, SlotPlace place, std::uint32_t number);
  void settleTables(std::size_t first, std::uint32_t item);
  [[nodiscard]] std::uint32_t nameOf(OpenElement element, Instance const& child,
                                     std::uint32_t guess) const;
  [[nodiscard]] bool isAbsorbable(OpenElement element, std::uint32_t name,
                                  Instance const& child) const;
  [[nodiscard]] std::optional<SlotPlace> slotOf(OpenElement element, std::uint32_t name,
                                                std::uint64_t count) const;

  // Elements: record_encoder.cpp
  void begin();
  void encodeOne(std::uint32_t node, std::uint32_t number, std::uint64_t base);
  void encodeElement(std::uint32_t node, std::uint32_t number, std::uint64_t base);
  bool checkShape(std::uint32_t node, Instance const& instance);
  void matchChildren(Frame& frame);
  bool isTextMember(Frame const& frame, Instance const& child);
  void refuseUnknown(std::uint32_t node, Instance const& child);
  void encodeName(Frame const& frame, std::uint32_t name, bool isTentative);
  bool checkArray(PlannedPart const& part, NameUse const& use);
  std::uint32_t encodeSlot(Frame const& frame, std::uint32_t node, std::uint32_t child,
                           std::uint64_t begin, std::uint64_t end);
  void encodeTexts(Frame const& frame, Range texts);
  bool encodeText(std::uint32_t node, std::uint32_t number, std::uint64_t base);
  void finishItems(Frame const& frame, bool hasViews, bool hasOthers);
  void writeCount(std::uint32_t node, std::uint64_t count);
  void addError(Instance const& instance, std::uint32_t node, DataError error,
                bool isWhole = false);
  [[nodiscard]] bool isActive(Frame const& frame, std::uint32_t view) const;
  [[nodiscard]] PlannedElement const& planOf(Frame const& frame) const {
    return m_plan.elementOf(frame.node);
  }
  NameUse& useOf(Frame const& frame, std::uint32_t name) { return m_uses[frame.uses + name]; }
  [[nodiscard]] Instance const& instanceOf(Frame const& frame) const {
    return m_in->all[frame.instance];
  }

  // Views: record_views.cpp
  bool decideAreas(Frame const& frame);
  bool decideArea(Frame const& frame, std::uint32_t area);
  bool takeView(Frame const& frame, std::uint32_t view);
  void takeNothing(Frame const& frame, std::uint32_t area);
  void failArea(Frame const& frame, std::uint32_t area);
  [[nodiscard]] bool hasPart(Frame const& frame, std::uint32_t area) const;
  [[nodiscard]] std::vector<std::uint32_t> candidatesOf(Frame const& frame,
                                                        std::uint32_t area) const;
  [[nodiscard]] bool fits(Frame const& frame, PlannedView const& view) const;
  bool tryViews(Frame const& frame, std::uint32_t area, bool isLast);
  void encodeView(Frame const& frame, std::uint32_t view);
  void resolveUndecided();
  [[nodiscard]] bool looksAtUndecided(PlannedArea const& area) const;
  void finishUndecided(Undecided const& each);
  [[nodiscard]] Mark markOf(Frame const& frame, std::uint32_t area);
  void undo(Frame const& frame, std::uint32_t area, Mark const& mark);
  std::uint32_t chosenView(std::uint32_t area);
  void addAreaCheck(Frame const& frame, std::uint32_t area, std::uint32_t view);
  void checkArea(AreaCheck const& check, std::uint32_t area, std::uint64_t available,
                 EncodeErrors& errors);
  [[nodiscard]] DataError viewError(AreaCheck const& check) const;
  void putRuns();
  std::uint32_t& takenOf(Frame const& frame, std::uint32_t area) {
    return m_taken[frame.taken + (area - planOf(frame).areas.begin)];
  }

  // Tables: record_tables.cpp
  void addTableCheck(std::uint32_t table, std::uint64_t count, bool hasCount,
                     std::uint32_t instance);
  void noteCounter(std::uint32_t node, std::uint64_t offset, Instance const& instance,
                   bool hasFailed);
  void checkTables(bool isLast);
  void checkTable(TableCheck const& check);
  void checkUncounted(TableCheck const& check, CounterState& state, std::uint64_t offset);
  [[nodiscard]] bool isInArea(std::uint32_t node) const;

  std::size_t saveOccurrence(std::uint32_t depth);
  void loadOccurrence(std::size_t saved, std::uint32_t depth);
  [[nodiscard]] std::uint32_t innerDepth(std::uint32_t node) const {
    return m_layout[node].depth + (m_layout[node].repeats ? 1U : 0U);
  }

  layout::RecordSet const& m_set;
  layout::Layout const& m_layout;
  NameNumbers const& m_names;
  std::uint32_t m_record;
  EncodeRules m_rules;
  EncodePlan m_plan;

  std::vector<unsigned char> m_bytes;
  std::vector<unsigned char> m_counts;
  CounterStates m_counters;

  // Of one record.
  Instances const* m_in = nullptr;
  std::span<ByteRun const> m_runs;
  EncodeErrors* m_errors = nullptr;
  layout::Occurrence m_occurrence;
  std::vector<std::uint32_t> m_nextSame;  // by instance: the next of its name
  std::vector<NameUse> m_uses;
  std::vector<std::uint32_t> m_taken;  // the view of each area, or kNothing ...
  std::vector<std::uint64_t> m_pool;   // saved occurrences
  std::vector<TableCheck> m_tableChecks;
  std::vector<AreaCheck> m_areaChecks;
  std::vector<Undecided> m_undecided;
  std::vector<std::uint32_t> m_openCounts;  // by area of the layout: those that are kOpen
  std::vector<DataError> m_viewErrors;
  unsigned m_attempts = 0;  // that are under way, one in the other
  std::uint64_t m_attemptsLeft = 0;
  bool m_hasTextFailed = false;
  bool m_isBegun = false;            // parts of the record were absorbed
  std::uint64_t m_absorbedEnd = 0;   // see endOfTexts
  std::vector<bool> m_isAbsorbable;  // by name in the plan
};

}  // namespace fdmorph::document

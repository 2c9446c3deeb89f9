// A document's record before it becomes bytes: what the XML and JSON readers make and
// the encoder uses.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace fdmorph::document {

inline constexpr std::uint32_t kNoInstance = UINT32_MAX;

/// The name of the member "#text" of a JSON object, which is a part like any other.
inline constexpr std::uint32_t kTextMember = UINT32_MAX - 1;

/// Whether there is nothing but blanks between the elements of XML.
[[nodiscard]] inline bool isBlank(std::string_view text) {
  return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

/// An element, an attribute, or a value of JSON.
struct Instance {
  enum class Shape : std::uint8_t {
    any,     ///< XML: text, children or both
    scalar,  ///< JSON: a text or number
    object,  ///< JSON
  };

  std::uint32_t name;  ///< in the NameNumbers, or kTextMember; layout::kNone if it is not there
  std::uint32_t parent = kNoInstance;
  std::uint32_t firstChild = kNoInstance;  ///< attributes too, in the order of the document
  std::uint32_t lastChild = kNoInstance;
  std::uint32_t next = kNoInstance;  ///< the next child of the parent
  Shape shape = Shape::any;
  bool isAttribute = false;
  bool isNil = false;           ///< xsi:nil, or null in an array: an occurrence that is absent
  bool isInArray = false;       ///< JSON: a member of an array
  bool isString = false;        ///< JSON: in quotes
  bool isEmptyArray = false;    ///< JSON: an array without members, which stands for none
  bool isBroken = false;        ///< its reader reported an error; it and its parts have no other
  bool isDropped = false;       ///< JSON: of a member that is there twice; not among its siblings
  bool isAbsorbed = false;      ///< it is encoded, and has no parts; see PartAbsorber
  std::uint32_t standsFor = 1;  ///< absorbed: for itself, and for those that were taken out
  std::uint64_t textBegin = 0;  ///< in Instances::texts
  std::uint64_t textSize = 0;   ///< in bytes
  std::uint64_t line = 0;       ///< of the start tag or value, from 1
  std::uint64_t column = 0;     ///< from 1, in bytes
  std::uint32_t unknownName = kNoInstance;  ///< in Instances::unknownNames, if name is none
  std::uint32_t bytesBefore = 0;            ///< JSON: of the array ahead of its first member
};

/// The instances of one record; the first is the record. Its memory is used again for
/// the next.
struct Instances {
  std::vector<Instance> all;
  std::string texts;  ///< UTF-8; of JSON the text of a string, or a number as written
  std::vector<std::string> unknownNames;  ///< as in paths: "name" or "@name"

  /// Adds a part as the last child of its parent, and returns its number.
  std::uint32_t add(Instance const& part) {
    auto number = static_cast<std::uint32_t>(all.size());
    all.push_back(part);
    if (part.parent == kNoInstance) return number;
    Instance& parent = all[part.parent];
    (parent.firstChild == kNoInstance ? parent.firstChild : all[parent.lastChild].next) = number;
    parent.lastChild = number;
    return number;
  }

  [[nodiscard]] std::string_view textOf(Instance const& instance) const {
    return std::string_view(texts).substr(instance.textBegin, instance.textSize);
  }

  /// The new numbers of parts and unknown names after some were taken out; kNoInstance
  /// for these.
  struct Renumbering {
    std::vector<std::uint32_t> parts;
    std::vector<std::uint32_t> unknownNames;
  };

  /// Takes parts out, with all that is in them. `parts` are in order, and no child of a
  /// part that stays is linked to them.
  Renumbering remove(std::vector<std::uint32_t> const& parts);

  void clear() {
    all.clear();
    texts.clear();
    unknownNames.clear();
  }

 private:
  void removeNames(std::vector<bool> const& areRemoved, Renumbering& numbers);
};

/// Encodes parts while their record is still being read, so that a record of any length
/// takes little memory.
class PartAbsorber {
 public:
  PartAbsorber() = default;
  PartAbsorber(PartAbsorber const&) = delete;
  PartAbsorber& operator=(PartAbsorber const&) = delete;
  virtual ~PartAbsorber() = default;

  /// The next record begins. What was absorbed of another one is forgotten.
  virtual void beginRecord() = 0;

  /// Encodes what it can of the record in `instances`. `open` are the elements that have
  /// not ended, each in the one before. The result are the parts that are not needed any
  /// longer, in order, and not linked.
  [[nodiscard]] virtual std::vector<std::uint32_t> absorb(
      Instances& instances, std::vector<std::uint32_t> const& open) = 0;
};

/// When it is worth while to absorb parts.
struct AbsorptionRules {
  PartAbsorber* absorber = nullptr;              ///< null: records are kept whole
  std::size_t parts = std::size_t{1} << 15;      ///< from so many parts on,
  std::size_t textBytes = std::size_t{1} << 21;  ///< or so much text
};

/// Says when parts are to be absorbed.
class AbsorptionClock {
 public:
  explicit AbsorptionClock(AbsorptionRules const& rules) : m_rules(rules) {}

  [[nodiscard]] bool isDue(Instances const& instances) const {
    return instances.all.size() >= m_parts || instances.texts.size() >= m_text;
  }

  /// After an absorption: what is left may not be absorbable at all.
  void set(Instances const& instances) {
    m_parts = std::max(m_rules.parts, 2 * instances.all.size());
    m_text = std::max(m_rules.textBytes, 2 * instances.texts.size());
  }

  /// At the beginning of a record.
  void reset() {
    bool const isUsed = m_rules.absorber != nullptr;
    m_parts = isUsed ? m_rules.parts : SIZE_MAX;
    m_text = isUsed ? m_rules.textBytes : SIZE_MAX;
    if (isUsed) m_rules.absorber->beginRecord();
  }

 private:
  AbsorptionRules m_rules;
  std::size_t m_parts = SIZE_MAX;
  std::size_t m_text = SIZE_MAX;
};

}  // namespace fdmorph::document

// A document's record before it becomes bytes: what the XML and JSON readers make and
// the encoder uses.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace fdmorph::document {

inline constexpr std::uint32_t kNoInstance = UINT32_MAX;

/// The name of the member "#text" of a JSON object, which is a part like any other.
inline constexpr std::uint32_t kTextMember = UINT32_MAX - 1;

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
  bool isEmptyArray = false;    ///< JSON: an array without members, which stands for none
  bool isBroken = false;        ///< its reader reported an error; it and its parts have no other
  bool isDropped = false;       ///< JSON: of a member that is there twice; not among its siblings
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

  void clear() {
    all.clear();
    texts.clear();
    unknownNames.clear();
  }
};

}  // namespace fdmorph::document

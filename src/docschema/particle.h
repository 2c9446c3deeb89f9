// What an element contains, as a tree of the elements in it.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace fdmorph::docschema {

/// The name of an element or attribute. It looks at the record tree.
struct QName {
  std::string_view namespaceUri;
  std::string_view local;

  bool operator==(QName const&) const = default;
};

struct QNameHash {
  std::size_t operator()(QName const& name) const {
    std::hash<std::string_view> const hash;
    return hash(name.local) * 31 + hash(name.namespaceUri);
  }
};

/// A maximum without a bound.
inline constexpr std::uint64_t kUnbounded = UINT64_MAX;

/// A part of a content model.
struct Particle {
  enum class Kind : std::uint8_t {
    element,
    sequence,  ///< of its parts
    choice,    ///< one of its parts, which are sequences
    anyOrder,  ///< elements of different names, in any order and number
  };

  Kind kind = Kind::sequence;
  std::vector<Particle> parts = {};
  bool isOptional = false;  ///< of a choice: there may be none of them
  std::string comment = {};

  // Of an element.
  QName name = {};
  std::vector<std::uint32_t> nodes = {};  ///< those of the record tree that it may be
  std::uint64_t least = 1;
  std::uint64_t most = 1;
  bool repeats = false;        ///< it is a table
  bool mayBeOmitted = false;   ///< an option leaves it out
  bool isInOtherView = false;  ///< of an area, a view that is not the one without rules
  bool isPreceded = false;     ///< another part of its name precedes it
  bool isFollowed = false;     ///< the same for those that follow
  bool mayLackText = false;    ///< its text may be left out even if it is a number
  bool isShared = false;       ///< another part of the content model has its name
  bool isWrittenOut = false;   ///< each occurrence is a part of its own

  bool isElement() const { return kind == Kind::element; }
  bool isSlot() const { return isPreceded || isFollowed; }

  /// Whether it may be left out.
  [[nodiscard]] bool isEmptiable() const;
};

/// Calls `visit` for each element of a particle, in their order.
void visitElements(Particle& particle, std::function<void(Particle&)> const& visit);
void visitElements(Particle const& particle, std::function<void(Particle const&)> const& visit);

/// Finds the elements whose name other parts of the same element have, those of
/// different views of one area excepted, and sets isPreceded and isFollowed.
void markSlots(Particle& sequence);

}  // namespace fdmorph::docschema

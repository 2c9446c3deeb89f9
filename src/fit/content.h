// The content model of a type as its parts: which elements, how often, and what a
// record cannot tell of them.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "xml/schema_model.h"

namespace fdmorph::fit {

/// An element that may be in the content, by its name.
struct ContentPart {
  SchemaElement const* element = nullptr;
  SchemaElement const* head = nullptr;  ///< of its substitution group, if it stands for one
  bool isGroup = false;                 ///< the whole substitution group of `element`
  std::uint64_t least = 0;
  std::uint64_t most = 0;     ///< or kUnbounded
  std::size_t position = 0;   ///< of its first particle
  std::size_t branch = 0;     ///< of its first particle, in Content::branches
  bool isInOneBranch = true;  ///< all its particles are in that branch
  bool isScattered = false;   ///< several particles, with others between them
};

/// A branch of a choice that is made once, and the branch around that.
struct ContentBranch {
  std::size_t choice = 0;
  std::size_t around = 0;  ///< index of a branch; that of 0 is the whole content
};

/// The parts of a choice, by the branch that they stand in.
struct ContentChoice {
  std::vector<std::vector<std::size_t>> branches;  ///< indexes of parts
};

struct Content {
  std::vector<ContentPart> parts;  ///< in the order of their first particles
  std::vector<ContentBranch> branches;
  std::vector<ContentChoice> choices;
  std::vector<SchemaWildcard> wildcards;
  std::vector<std::vector<std::size_t>> freeGroups;  ///< parts whose order is free

  /// Whether a document may have both parts in one element.
  [[nodiscard]] bool mayBeTogether(ContentPart const& left, ContentPart const& right) const;

  [[nodiscard]] bool admits(std::string_view namespaceUri) const;
};

/// The content of a type.
[[nodiscard]] Content contentOf(SchemaType const& type, SchemaModel& model);

}  // namespace fdmorph::fit

// What a schema says of documents, free of the library's types: declarations,
// types and content models. SchemaModel makes and owns them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace fdmorph {

/// A number of occurrences without a bound.
inline constexpr std::uint64_t kUnbounded = std::numeric_limits<std::uint64_t>::max();

/// A place in a schema file; the numbers begin at 1, and are 0 if there is none.
struct SchemaPlace {
  std::string file;
  std::size_t line = 0;
  std::size_t column = 0;
};

/// A name in a namespace, both in UTF-8. No namespace is the empty one.
struct SchemaName {
  std::string local;
  std::string space;

  bool operator==(SchemaName const&) const = default;
};

/// What the values of a simple type are.
enum class ValueKind : std::uint8_t {
  text,
  decimal,
  floating,  ///< xs:float and xs:double
  boolean,
  date,  ///< dates, times, their parts, and durations
  binary,
  list,
  unionOf,
};

/// A bound of the values of an ordered type.
struct ValueBound {
  std::string value;  ///< as written in the schema
  bool isExclusive = false;
};

/// A simple type with the facets that apply to it, inherited ones included.
struct SimpleType {
  std::string name;       ///< empty if it is anonymous
  std::string builtIn;    ///< the local name of the nearest built-in type
  std::string primitive;  ///< the local name of its primitive type; of lists and unions empty
  ValueKind kind = ValueKind::text;
  std::optional<std::uint64_t> maxLength;  ///< characters; bytes of binary values; items of lists
  std::optional<std::uint64_t> minLength;
  std::optional<std::uint64_t> patternLength;  ///< characters that the patterns allow at most
  std::optional<std::uint64_t> totalDigits;
  std::optional<std::uint64_t> fractionDigits;
  std::optional<ValueBound> lower;
  std::optional<ValueBound> upper;
  bool hasPattern = false;  ///< besides those of the built-in types
  std::shared_ptr<std::vector<std::string> const> enumeration;  ///< null if there is none
  std::vector<SimpleType const*> members;  ///< of a union; the one item type of a list
};

struct SchemaAttribute {
  SchemaName name;
  bool isRequired = false;
  SimpleType const* type = nullptr;
};

/// The namespaces that a wildcard allows.
struct SchemaWildcard {
  bool isNegative = false;          ///< allows all but those of `spaces`
  std::vector<std::string> spaces;  ///< of a negative one without entries: any

  bool admits(std::string const& space) const;
};

struct SchemaElement {
  SchemaName name;
  bool isGlobal = false;
  bool isNillable = false;
  bool isAbstract = false;
  bool isHead = false;  ///< of a substitution group
};

/// A part of a content model.
struct SchemaParticle {
  enum class Kind : std::uint8_t { element, wildcard, sequence, choice, all };

  Kind kind = Kind::sequence;
  std::uint64_t least = 1;
  std::uint64_t most = 1;                  ///< or kUnbounded
  SchemaElement const* element = nullptr;  ///< of an element
  SchemaWildcard wildcard;                 ///< of a wildcard
  std::vector<SchemaParticle> parts;       ///< of groups
};

enum class ContentKind : std::uint8_t { empty, text, elements, mixed };

/// The type of an element. One object stands for one type.
struct SchemaType {
  SchemaName name;  ///< empty if it is anonymous
  ContentKind content = ContentKind::empty;
  bool isAbstract = false;
  bool isAny = false;                ///< xs:anyType
  bool hasDerived = false;           ///< other complex types extend or restrict it
  SimpleType const* text = nullptr;  ///< of text content
  std::vector<SchemaAttribute> attributes;
  std::optional<SchemaWildcard> anyAttribute;
  std::optional<SchemaParticle> particle;  ///< of elements and mixed content
};

}  // namespace fdmorph

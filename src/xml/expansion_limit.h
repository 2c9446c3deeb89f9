// The limits on what entities expand to, for every document that the library
// reads. Only the limits themselves are for other folders.
//
// The library's SecurityManager counts general entities only, knows no limit on
// text, and does not reach the parsers that the library makes for schemas. But
// the library reads the text of each internal entity through a transcoder for
// its own characters. A transcoder that counts sees every expansion of every
// kind, whatever the encoding of the file. External entities are counted as
// they are opened and read.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace fdmorph {

struct ExpansionLimits {
  std::size_t expansions = 50'000;
  std::size_t text = std::size_t{64} << 20;  ///< in characters; external entities in bytes
};

/// Counts for one document, from construction to destruction. Documents nest:
/// a schema is read while the document that names it is being read.
class ExpansionLimit {
 public:
  /// `refuse` gets the message of a limit that is exceeded. The exception that
  /// ends the parse follows.
  using Refuse = std::function<void(std::string)>;

  ExpansionLimit(ExpansionLimits limits, Refuse refuse);
  ~ExpansionLimit();
  ExpansionLimit(ExpansionLimit const&) = delete;
  ExpansionLimit& operator=(ExpansionLimit const&) = delete;

  /// The innermost document; null if none is being read.
  static ExpansionLimit* current();

  void countExpansion() { ++m_expansions; }

  /// Counts text that was read from an entity.
  void countText(std::size_t amount) { m_text += amount; }

  /// Throws an XMLException if a limit is exceeded. Not to be called while the
  /// library constructs a reader, which would leak.
  void check();

 private:
  ExpansionLimits m_limits;
  Refuse m_refuse;
  std::size_t m_expansions = 0;
  std::size_t m_text = 0;
  ExpansionLimit* m_outer;
};

/// Makes the library count. To be called after each start of the library.
void installExpansionCounter();

/// The exception that ends a parse whose refusal has been noted.
[[noreturn]] void endRefusedParse();

}  // namespace fdmorph

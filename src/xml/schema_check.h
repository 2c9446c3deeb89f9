// What is refused in a schema file before the library loads it. For this folder
// only.
#pragma once

#include <cstddef>
#include <xercesc/sax/InputSource.hpp>

#include "xml/input_files.h"
#include "xml/input_sources.h"
#include "xml/transcoding.h"

namespace fdmorph {

/// The library writes out the repetitions of a pattern and reads nested
/// parentheses by recursion.
struct PatternLimits {
  std::size_t repetition = 1'000'000;  ///< the product of nested repetition counts
  std::size_t atoms = 10'000'000;      ///< of all patterns of a file, written out
  std::size_t depth = 100'000;         ///< of parentheses
};

/// False if the bytes of the schema file show that its patterns are within the
/// limits, as those of nearly all files do. True if one is not, or if the text can
/// be read by the library only.
[[nodiscard]] bool needsCheck(InputFile& file, PatternLimits limits = {});

/// True if all patterns of the schema file that `source` brings are within the
/// limits, and its entities, too. False after a report; that of a pattern names
/// its type. A file that is not well-formed is checked up to its first error,
/// which is not reported.
[[nodiscard]] bool arePatternsAdmitted(xerces::InputSource const& source, InputSources& sources,
                                       PatternLimits limits = {});

/// The target namespace of the schema file that `source` brings; empty if it has
/// none or is not well-formed. Reads no more than the start tag of the root.
[[nodiscard]] std::string targetNamespaceOf(xerces::InputSource const& source,
                                            InputSources& sources);

}  // namespace fdmorph

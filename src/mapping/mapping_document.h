// A mapping file as it is written, with the places of its elements.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "xml/xml_events.h"

namespace fdmorph::mapping {

/// Stands for no index.
inline constexpr std::size_t kNone = static_cast<std::size_t>(-1);

struct MappingElement {
  std::string name;                     ///< as it is written, prefix included
  std::string uri;                      ///< its namespace
  std::string value;                    ///< what fdmorph takes: the last piece of its text
  std::size_t parent = kNone;           ///< the index of the element around
  TagPlace place;                       ///< where it begins
  TagPlace textPlace;                   ///< where its content begins
  std::optional<TagPlace> lost;         ///< text that fdmorph does not take
  std::vector<std::string> attributes;  ///< their names, without declarations and xsi:...
};

/// A comment or a processing instruction.
struct MappingRemark {
  std::string markup;
  std::size_t next = 0;        ///< the index of the element that begins after it
  std::size_t parent = kNone;  ///< the index of the element around
  bool isAfterText = false;    ///< something precedes it on its line
};

/// The elements in the order of the file, the root first.
struct MappingDocument {
  std::vector<MappingElement> elements;
  std::vector<MappingRemark> remarks;
};

/// Reads the content of a mapping file. Nothing but a fault if it is no XML.
struct MappingReading {
  MappingDocument document;
  std::optional<XmlFault> fault;
};

/// `name` is that of the file in faults.
[[nodiscard]] MappingReading readMapping(std::string_view content, std::string const& name);

}  // namespace fdmorph::mapping

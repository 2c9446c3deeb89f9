// The texts of elements, which come in pieces.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "document/instance.h"

namespace fdmorph::document {

/// Appends pieces of text to the elements that are open. Pieces that other elements
/// stand between are put together at the end of their element.
class PartTexts {
 public:
  void begin(Instances& instances) {
    m_instances = &instances;
    m_pieces.clear();
  }

  /// A piece of the text of the innermost open element. `pieces` counts those of it that
  /// do not follow the one before.
  void append(std::uint32_t part, std::uint32_t& pieces, std::string_view text) {
    Instance& instance = m_instances->all[part];
    std::string& texts = m_instances->texts;
    if (instance.textSize == 0) instance.textBegin = texts.size();
    if (instance.textBegin + instance.textSize == texts.size()) {
      instance.textSize += text.size();
    } else {
      if (pieces != 0 && m_pieces.back().begin + m_pieces.back().size == texts.size()) {
        m_pieces.back().size += text.size();
      } else {
        m_pieces.push_back({texts.size(), text.size()});
        ++pieces;
      }
    }
    texts += text;
  }

  /// The end of an element with pieces.
  void join(std::uint32_t part, std::uint32_t pieces);

 private:
  struct Piece {
    std::uint64_t begin;
    std::uint64_t size;
  };

  Instances* m_instances = nullptr;
  std::vector<Piece> m_pieces;  // of the open elements, the innermost last
};

}  // namespace fdmorph::document

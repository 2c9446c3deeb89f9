#include "cobol/part_filter.h"

#include <algorithm>
#include <cstddef>

#include "cobol/namespace_lookup.h"

namespace fdmorph {
namespace {

// The name of a declaration or reference, without its prefix.
std::string_view nameOf(CDMXMLElement const* declaration) {
  auto name = findAttrByName(declaration, "name");
  if (!name) name = findAttrByName(declaration, "ref");
  return CDMXMLNode::getNonQualifiedName(name.value_or(""));
}

// Items of unions and values have no XML name and are no steps of a path.
bool isStep(CDMCOBOLRecordItem const* item) {
  return !item->identifiedBy.empty();
}

// With a slash at its end.
std::string pathOf(ItemsAbove above) {
  std::string path;
  for (std::size_t i = above.size(); i-- > 0;) {
    if (!isStep(above[i])) continue;
    path += CDMXMLNode::getNonQualifiedName(above[i]->identifiedBy);
    path += '/';
  }
  return path;
}

}  // namespace

bool PathFilter::admits(CDMXMLElement const* declaration, ItemsAbove above) {
  bool isAttribute = generatorElementKind(declaration) == GeneratorElementKind::attribute;
  if (!isAttribute && findAttrByName(declaration, "maxOccurs") == "0") return false;
  if (!isAttribute && m_depth != 0 && std::ranges::count_if(above, isStep) >= m_depth) return false;
  if (m_skipped.empty()) return true;
  std::string path = pathOf(above);
  if (isAttribute) path += '@';
  path += nameOf(declaration);
  bool isAdmitted = true;
  for (std::size_t i = 0; i < m_skipped.size(); ++i) {
    if (!m_skipped[i].matches(path)) continue;
    m_hasMatched[i] = true;
    isAdmitted = false;
  }
  return isAdmitted;
}

std::vector<std::string> PathFilter::unmatched() const {
  std::vector<std::string> texts;
  for (std::size_t i = 0; i < m_skipped.size(); ++i) {
    if (!m_hasMatched[i]) texts.push_back(m_skipped[i].text());
  }
  return texts;
}

}  // namespace fdmorph

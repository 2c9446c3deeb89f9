#include "cobol/part_filter.h"

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
unsigned depthOf(CDMCOBOLRecordItem const* item) {
  unsigned depth = 0;
  for (; item != nullptr; item = item->parent) {
    if (!item->identifiedBy.empty()) ++depth;
  }
  return depth;
}

// With a slash at its end.
std::string pathOf(CDMCOBOLRecordItem const* item) {
  std::string path;
  for (; item != nullptr; item = item->parent) {
    if (item->identifiedBy.empty()) continue;
    std::string step(CDMXMLNode::getNonQualifiedName(item->identifiedBy));
    path.insert(0, step.append("/"));
  }
  return path;
}

}  // namespace

bool PathFilter::admits(CDMXMLElement const* declaration, CDMCOBOLRecordItem const* parent) {
  bool isAttribute = generatorElementKind(declaration) == GeneratorElementKind::attribute;
  if (!isAttribute && findAttrByName(declaration, "maxOccurs") == "0") return false;
  if (!isAttribute && m_depth != 0 && depthOf(parent) >= m_depth) return false;
  if (m_skipped.empty()) return true;
  std::string path = pathOf(parent);
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

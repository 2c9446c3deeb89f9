#include "xml/schema_references.h"

#include <algorithm>

namespace fdmorph {

std::size_t SchemaReferences::number(std::string const& file) {
  auto [entry, isNew] = m_numbers.try_emplace(file, m_files.size());
  if (isNew) {
    m_files.emplace_back();
    m_names.push_back(file);
  }
  return entry->second;
}

void SchemaReferences::beginLoad(std::string const& file) {
  for (std::size_t referred : m_referred) m_files[referred].referrers.clear();
  m_referred.clear();
  m_hasRedefine = false;
  ++m_loads;
  m_main = number(file);
  m_files[m_main].lastRead = m_loads;
}

void SchemaReferences::addReference(std::string const& from, std::string const& to,
                                    bool isRedefine) {
  std::size_t referrer = number(from);
  std::size_t referred = number(to);
  if (m_files[referred].referrers.empty()) m_referred.push_back(referred);
  m_files[referred].referrers.push_back(referrer);
  m_hasRedefine = m_hasRedefine || isRedefine;
}

void SchemaReferences::addRead(std::string const& file) {
  m_files[number(file)].lastRead = m_loads;
}

// The load leads from its file to all others, so the circle is what leads back.
std::vector<std::size_t> SchemaReferences::circleOfMain() const {
  std::vector<std::size_t> circle{m_main};
  std::vector<bool> isMember(m_files.size());
  isMember[m_main] = true;
  for (std::size_t i = 0; i < circle.size(); ++i) {
    for (std::size_t referrer : m_files[circle[i]].referrers) {
      if (isMember[referrer]) continue;
      isMember[referrer] = true;
      circle.push_back(referrer);
    }
  }
  return circle;
}

void SchemaReferences::endCleanLoad(NamespaceOf const& namespaceOf) {
  if (m_hasRedefine || m_files[m_main].referrers.empty()) return;
  std::vector<std::size_t> circle = circleOfMain();
  std::erase_if(circle, [this](std::size_t file) { return m_files[file].lastRead != m_loads; });
  std::vector<std::size_t> withNamespace;
  for (std::size_t file : circle) {
    if (!namespaceOf(m_names[file]).empty()) withNamespace.push_back(file);
  }
  for (std::size_t file : withNamespace.empty() ? circle : withNamespace) {
    m_files[file].isCovered = true;
  }
}

bool SchemaReferences::isCovered(std::string const& file) const {
  auto found = m_numbers.find(file);
  return found != m_numbers.end() && m_files[found->second].isCovered;
}

}  // namespace fdmorph

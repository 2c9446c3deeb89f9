#include "document/qualified_names.h"

#include <functional>

namespace fdmorph::document {
namespace {

constexpr std::size_t kFirstSlots = 256;  // a power of two, as all sizes of the table

}  // namespace

QualifiedNames::QualifiedNames(NameNumbers const& index, NamespaceScopes& scopes, Limits limits)
    : m_index(&index),
      m_scopes(&scopes),
      m_spellings(1),
      m_slots(kFirstSlots, 0),
      m_last(&m_spellings.front()),
      m_limits(limits) {
  m_last->follower = m_last;
}

QualifiedNames::Spelling* QualifiedNames::search(std::string_view name) {
  auto hash = static_cast<std::uint32_t>(std::hash<std::string_view>()(name));
  std::size_t slot = hash & (m_slots.size() - 1);
  while (m_slots[slot] != 0) {
    Spelling& spelling = m_spellings[m_slots[slot]];
    if (spelling.hash == hash && spelling.text == name) {
      m_last->follower = &spelling;
      return &spelling;
    }
    slot = (slot + 1) & (m_slots.size() - 1);
  }
  auto number = static_cast<std::uint32_t>(m_spellings.size());
  m_slots[slot] = number;
  Spelling& added = m_spellings.emplace_back();
  m_last->follower = &added;
  added.follower = &m_spellings.front();
  added.text = name;
  added.hash = hash;
  m_textSize += name.size();
  m_areTooMany = m_spellings.size() > m_limits.names || m_textSize > m_limits.bytes;
  std::size_t colon = name.find(':');
  if (colon != std::string_view::npos) {
    added.localBegin = colon + 1;
    added.isName = colon != 0 && added.localBegin != name.size() &&
                   added.local().find(':') == std::string_view::npos &&
                   added.local().front() != '-' && added.local().front() != '.' &&
                   (added.local().front() < '0' || added.local().front() > '9');
    added.prefix = m_scopes->prefixNumber(name.substr(0, colon));
  }
  if (m_spellings.size() * 2 > m_slots.size()) enlarge();
  return &added;
}

void QualifiedNames::enlarge() {
  m_slots.assign(m_slots.size() * 2, 0);
  for (std::uint32_t i = 1; i < m_spellings.size(); ++i) {
    std::size_t slot = m_spellings[i].hash & (m_slots.size() - 1);
    while (m_slots[slot] != 0) slot = (slot + 1) & (m_slots.size() - 1);
    m_slots[slot] = i;
  }
}

std::optional<std::uint32_t> QualifiedNames::lookUpElement(Spelling& spelling) const {
  std::optional<std::string_view> namespaceUri = m_scopes->namespaceOf(spelling.prefix);
  if (!namespaceUri) return std::nullopt;
  spelling.elementScope = m_scopes->scope();
  spelling.elementNumber = m_index->find(*namespaceUri, spelling.local());
  return spelling.elementNumber;
}

std::optional<std::uint32_t> QualifiedNames::lookUpAttribute(Spelling& spelling) const {
  std::optional<std::string_view> namespaceUri = "";
  if (spelling.hasPrefix()) namespaceUri = m_scopes->namespaceOf(spelling.prefix);
  if (!namespaceUri) return std::nullopt;
  spelling.attributeScope = m_scopes->scope();
  spelling.attributeNumber = *namespaceUri == kSchemaInstanceNamespace
                                 ? kSchemaInstanceName
                                 : m_index->find(*namespaceUri, spelling.local());
  return spelling.attributeNumber;
}

}  // namespace fdmorph::document

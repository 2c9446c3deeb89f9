#include "docschema/particle.h"

#include <algorithm>
#include <unordered_set>

namespace fdmorph::docschema {
namespace {

/// Goes through the elements of a sequence in one direction and marks those whose
/// names it has met. The views of an area do not see each other's names; what comes
/// after the area sees them all.
class SlotWalk {
 public:
  SlotWalk(bool isBackward, bool Particle::*mark) : m_isBackward(isBackward), m_mark(mark) {}

  // The recursion is bounded by the number of levels.
  void walk(Particle& particle) {
    if (particle.kind == Particle::Kind::element) {
      if (m_known.insert(particle.name).second) {
        m_added.push_back(particle.name);
      } else {
        particle.*m_mark = true;
      }
    } else if (particle.kind == Particle::Kind::choice) {
      walkChoice(particle);
    } else if (m_isBackward) {
      for (std::size_t i = particle.parts.size(); i-- > 0;) walk(particle.parts[i]);
    } else {
      for (Particle& each : particle.parts) walk(each);
    }
  }

 private:
  void walkChoice(Particle& choice) {
    std::vector<QName> names;
    for (Particle& each : choice.parts) {
      std::size_t const begin = m_added.size();
      walk(each);
      for (std::size_t i = begin; i < m_added.size(); ++i) {
        names.push_back(m_added[i]);
        m_known.erase(m_added[i]);
      }
      m_added.resize(begin);
    }
    for (QName const& each : names) {
      if (m_known.insert(each).second) m_added.push_back(each);
    }
  }

  bool m_isBackward;
  bool Particle::*m_mark;
  std::unordered_set<QName, QNameHash> m_known;
  std::vector<QName> m_added;  // to m_known, in their order
};

}  // namespace

bool Particle::isEmptiable() const {
  switch (kind) {
    case Kind::element:
      return least == 0;
    case Kind::anyOrder:
      return true;
    case Kind::choice:
      return isOptional || std::ranges::any_of(parts, &Particle::isEmptiable);
    case Kind::sequence:
      break;
  }
  return std::ranges::all_of(parts, &Particle::isEmptiable);
}

void visitElements(Particle& particle, std::function<void(Particle&)> const& visit) {
  if (particle.isElement()) visit(particle);
  for (Particle& each : particle.parts) visitElements(each, visit);
}

void visitElements(Particle const& particle, std::function<void(Particle const&)> const& visit) {
  if (particle.isElement()) visit(particle);
  for (Particle const& each : particle.parts) visitElements(each, visit);
}

void markSlots(Particle& sequence) {
  SlotWalk(false, &Particle::isPreceded).walk(sequence);
  SlotWalk(true, &Particle::isFollowed).walk(sequence);
}

}  // namespace fdmorph::docschema

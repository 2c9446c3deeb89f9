#include "fit/part_demands.h"

#include <algorithm>
#include <optional>
#include <string>
#include <unordered_map>

namespace fdmorph::fit {
namespace {

using Kind = SchemaParticle::Kind;
using record::PartDemand;

constexpr std::size_t kNoGroup = SIZE_MAX;

std::string keyOf(SchemaName const& name) {
  return name.space + ' ' + name.local;
}

/// A particle of an element that the record has.
struct Leaf {
  std::size_t item;     // of the record
  std::size_t group;    // the innermost optional particle around it or itself, or kNoGroup
  std::uint64_t least;  // occurrences if that is there
};

class DemandReader {
 public:
  DemandReader(SchemaModel& model, Content const& content, PartMatch const& match)
      : m_model(model) {
    for (std::size_t i = 0; i < content.parts.size(); ++i) {
      if (match.itemOf[i]) m_items[keyOf(content.parts[i].element->name)] = *match.itemOf[i];
    }
  }

  // The recursion is bounded by the depth of the content model, as in contentOf.
  void read(SchemaParticle const& particle, std::size_t around, std::uint64_t times,
            bool isAlternative) {
    if (particle.most == 0) return;
    bool const isOptional = particle.least == 0 || isAlternative;
    std::size_t const group = isOptional ? newGroup(around) : around;
    std::uint64_t const own = std::max<std::uint64_t>(particle.least, 1);
    bool const isTooMany = !isOptional && times > kUnbounded / own;
    std::uint64_t const least = isOptional ? own : isTooMany ? kUnbounded : times * own;
    if (particle.kind == Kind::element) {
      if (particle.element != nullptr) readElement(*particle.element, group, least);
      return;
    }
    bool const isChoice = particle.kind == Kind::choice && branchesWithItems(particle) > 1;
    for (SchemaParticle const& part : particle.parts) read(part, group, least, isChoice);
  }

  [[nodiscard]] std::vector<Leaf> const& leaves() const { return m_leaves; }

  [[nodiscard]] bool isInGroup(Leaf const& leaf, std::size_t group) const {
    std::size_t at = leaf.group;
    while (at != kNoGroup && at != group) at = m_around[at];
    return at == group;
  }

 private:
  std::size_t newGroup(std::size_t around) {
    m_around.push_back(around);
    return m_around.size() - 1;
  }

  void readElement(SchemaElement const& element, std::size_t group, std::uint64_t least) {
    std::vector<SchemaElement const*> members;
    if (element.isHead) members = m_model.substitutesOf(element);
    if (!element.isAbstract) members.push_back(&element);
    bool const areSeveral = members.size() > 1 && countOf(members) > 1;
    for (SchemaElement const* each : members) {
      auto found = m_items.find(keyOf(each->name));
      if (found == m_items.end()) continue;
      m_leaves.push_back({found->second, areSeveral ? newGroup(group) : group,
                          areSeveral ? std::uint64_t{1} : least});
    }
  }

  [[nodiscard]] std::size_t countOf(std::vector<SchemaElement const*> const& elements) const {
    return static_cast<std::size_t>(std::ranges::count_if(
        elements,
        [this](SchemaElement const* each) { return m_items.contains(keyOf(each->name)); }));
  }

  std::size_t branchesWithItems(SchemaParticle const& choice) {
    return static_cast<std::size_t>(std::ranges::count_if(
        choice.parts, [this](SchemaParticle const& branch) { return hasItem(branch); }));
  }

  bool hasItem(SchemaParticle const& particle) {
    if (particle.kind != Kind::element) {
      return std::ranges::any_of(particle.parts,
                                 [this](SchemaParticle const& part) { return hasItem(part); });
    }
    if (particle.element == nullptr) return false;
    if (m_items.contains(keyOf(particle.element->name))) return true;
    return particle.element->isHead && countOf(m_model.substitutesOf(*particle.element)) > 0;
  }

  SchemaModel& m_model;
  std::unordered_map<std::string, std::size_t> m_items;  // by name in the schema
  std::vector<std::size_t> m_around;                     // of each group the one around it
  std::vector<Leaf> m_leaves;
};

}  // namespace

std::vector<std::pair<std::uint32_t, PartDemand>> demandsOf(SchemaType const& type,
                                                            SchemaModel& model,
                                                            Content const& content,
                                                            std::vector<RecordPart> const& elements,
                                                            PartMatch const& match,
                                                            record::RecordTree const& tree) {
  std::vector<std::pair<std::uint32_t, PartDemand>> demands;
  if (!type.particle) return demands;
  DemandReader reader(model, content, match);
  reader.read(*type.particle, kNoGroup, 1, false);
  for (std::size_t item = 0; item < elements.size(); ++item) {
    if (!match.partOf[item]) continue;
    std::vector<std::uint32_t> const& nodes = elements[item].nodes;
    ContentPart const& part = content.parts[*match.partOf[item]];
    PartDemand demand{part.least, {}};
    auto isHere = [item](Leaf const& leaf) { return leaf.item == item; };
    auto const leaf = std::ranges::find_if(reader.leaves(), isHere);
    bool const isAlone = std::ranges::count_if(reader.leaves(), isHere) == 1;
    if (isAlone) {
      // Of a choice the record may have one branch only, which is always there then.
      demand.least = leaf->least;
      for (Leaf const& other : reader.leaves()) {
        if (leaf->group == kNoGroup || !reader.isInGroup(other, leaf->group)) continue;
        std::vector<std::uint32_t> const& slots = elements[other.item].nodes;
        demand.together.insert(demand.together.end(), slots.begin(), slots.end());
      }
    } else if (part.least == 0) {
      demand.least = 1;
      demand.together = nodes;
    }
    std::uint64_t before = 0;  // occurrences in earlier slots
    for (std::uint32_t node : nodes) {
      PartDemand own = demand;
      own.least = demand.least > before ? demand.least - before : 0;
      if (own.least == 0) own.together = {node};
      demands.emplace_back(node, std::move(own));
      before += tree.nodes()[node].item->occurrences();
    }
  }
  return demands;
}

}  // namespace fdmorph::fit

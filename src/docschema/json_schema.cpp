#include "docschema/json_schema.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <optional>
#include <unordered_map>
#include <unordered_set>

#include "docschema/condition_values.h"
#include "docschema/document_parts.h"
#include "docschema/json_values.h"

namespace fdmorph::docschema {
namespace {

using compiler::DataItem;
using nlohmann::ordered_json;
using record::RecordTree;
using ParticleKind = Particle::Kind;
using NameSet = std::unordered_set<QName, QNameHash>;

constexpr char kDialect[] = "https://json-schema.org/draft/2020-12/schema";
constexpr int kIndent = 2;

/// How many values an array has.
struct Range {
  std::uint64_t least = 0;
  std::uint64_t most = 0;
};
using Ranges = std::unordered_map<QName, Range, QNameHash>;

// The recursions are bounded by the number of levels.
Ranges rangesOf(Particle const& particle) {
  Ranges ranges;
  if (particle.isElement()) {
    ranges[particle.name] = {particle.least, particle.most};
  } else if (particle.kind == ParticleKind::choice) {
    std::vector<Ranges> views;
    for (Particle const& each : particle.parts) views.push_back(rangesOf(each));
    std::unordered_map<QName, std::size_t, QNameHash> viewsWithIt;
    for (Ranges const& view : views) {
      for (auto const& [name, range] : view) {
        bool const isFirst = ++viewsWithIt[name] == 1;
        Range& all = ranges[name];
        all.least = isFirst ? range.least : std::min(all.least, range.least);
        all.most = std::max(all.most, range.most);
      }
    }
    for (auto& [name, range] : ranges) {
      if (particle.isOptional || viewsWithIt[name] < views.size()) range.least = 0;
    }
  } else {
    for (Particle const& each : particle.parts) {
      for (auto const& [name, range] : rangesOf(each)) {
        ranges[name].least += range.least;
        ranges[name].most += range.most;
      }
    }
  }
  return ranges;
}

bool isArray(Particle const& element) {
  return element.repeats || element.isSlot();
}

// The names that are always there.
void addRequired(Particle const& particle, NameSet& names) {
  if (particle.isElement()) {
    // A table of no occurrences is an empty array.
    bool const isThere = particle.least > 0 || (particle.repeats && !particle.mayBeOmitted);
    if (isThere) names.insert(particle.name);
  } else if (particle.kind == ParticleKind::choice) {
    if (particle.isOptional) return;
    std::optional<NameSet> all;
    for (Particle const& each : particle.parts) {
      NameSet own;
      addRequired(each, own);
      if (all) std::erase_if(own, [&all](QName const& name) { return !all->contains(name); });
      all = std::move(own);
    }
    if (all) names.insert(all->begin(), all->end());
  } else {
    for (Particle const& each : particle.parts) addRequired(each, names);
  }
}

std::vector<QName> namesOf(Particle const& particle) {
  std::vector<QName> names;
  NameSet known;
  visitElements(particle, [&](Particle const& element) {
    if (known.insert(element.name).second) names.push_back(element.name);
  });
  return names;
}

using Counts = std::unordered_map<QName, std::size_t, QNameHash>;

Counts countsOf(Particle const& particle) {
  Counts counts;
  visitElements(particle, [&counts](Particle const& element) { ++counts[element.name]; });
  return counts;
}

/// Makes the schemas of the elements of one record.
class ElementSchemas {
 public:
  ElementSchemas(RecordTree const& tree, SchemaRules const& rules) : m_parts(tree, rules) {}

  ordered_json schemaOf(std::uint32_t node, bool mayLackText) {
    Parts parts = m_parts.partsOf(node);
    parts.mayLackText = parts.mayLackText || mayLackText;
    DataItem const& item = *m_parts.tree().nodes()[node].item;
    if (item.isGroup()) parts.items.push_back(&item);
    bool const isBare = parts.hasText() && parts.attributes.empty() && !parts.hasElements();
    ordered_json schema =
        isBare ? jsonValueOf(parts.texts, parts.mayLackText, m_parts.rules()) : objectOf(parts);
    describe(schema, parts.items);
    return schema;
  }

 private:
  ordered_json objectOf(Parts const& parts) {
    SchemaRules const& rules = m_parts.rules();
    ordered_json properties = ordered_json::object();
    ordered_json required = ordered_json::array();
    for (AttributeUse const& each : parts.attributes) {
      std::string const name = "@" + std::string(each.name.local);
      ordered_json& value = properties[name];
      if (!each.types.empty()) value = jsonValueOf(each.types, each.mayLackText, rules);
      describe(value, each.items);
      if (each.isRequired) required.push_back(name);
    }
    if (parts.hasText()) {
      properties["#text"] = jsonValueOf(parts.texts, parts.mayLackText, rules);
      bool const mayBeAbsent = rules.omitsEmpty && !rules.hasCounts;
      if (!parts.mayLackText && !mayBeAbsent) required.push_back("#text");
    }
    addElements(parts.content, properties, required);
    ordered_json object = {{"type", "object"}, {"properties", std::move(properties)}};
    if (!required.empty()) object["required"] = std::move(required);
    object["additionalProperties"] = false;
    ordered_json areas = areasOf(parts.content, {});
    if (!areas.empty()) object["allOf"] = std::move(areas);
    return object;
  }

  void addElements(Particle const& content, ordered_json& properties, ordered_json& required) {
    std::unordered_map<QName, std::vector<Particle const*>, QNameHash> byName;
    visitElements(content, [&](Particle const& each) { byName[each.name].push_back(&each); });
    Ranges const ranges = rangesOf(content);
    NameSet always;
    addRequired(content, always);
    for (QName const& name : namesOf(content)) {
      std::string const member(name.local);
      properties[member] = memberOf(byName[name], ranges.at(name));
      if (always.contains(name)) required.push_back(member);
    }
  }

  // The schema of all elements of one name.
  ordered_json memberOf(std::vector<Particle const*> const& elements, Range range) {
    std::vector<ordered_json> singles;
    std::vector<ordered_json> items;
    for (Particle const* each : elements) {
      std::vector<ordered_json>& list = isArray(*each) ? items : singles;
      list.push_back(schemaOf(each->nodes.front(), each->mayLackText));
    }
    if (items.empty()) return jsonAnyOf(std::move(singles));
    ordered_json array = {{"type", "array"}, {"items", jsonAnyOf(std::move(items))}};
    // A view that lacks it leaves out the member.
    auto const least = std::ranges::min(elements, {}, &Particle::least)->least;
    array["minItems"] = std::max(range.least, elements.size() == 1 ? least : range.least);
    array["maxItems"] = range.most;
    if (singles.empty()) return array;
    singles.push_back(std::move(array));
    return jsonAnyOf(std::move(singles));
  }

  // What holds for the views of each area: the members of a view are there, those of
  // the others are not. `outside` are names of other parts of the element.
  ordered_json areasOf(Particle const& sequence, NameSet const& outside) {
    ordered_json areas = ordered_json::array();
    Counts const counts = countsOf(sequence);
    for (Particle const& part : sequence.parts) {
      if (part.kind != ParticleKind::choice) continue;
      NameSet shared;
      for (auto const& [name, count] : countsOf(part)) {
        if (outside.contains(name) || counts.at(name) > count) shared.insert(name);
      }
      areas.push_back({{"anyOf", viewsOf(part, shared)}});
    }
    return areas;
  }

  // `shared` are the names that parts outside of the choice have, too.
  ordered_json viewsOf(Particle const& choice, NameSet const& shared) {
    std::vector<QName> const all = namesOf(choice);
    ordered_json views = ordered_json::array();
    auto const withoutOthers = [&](NameSet const& own) {
      ordered_json view = ordered_json::object();
      for (QName const& each : all) {
        bool const mayBeThere = shared.contains(each) || own.contains(each);
        if (!mayBeThere) view["properties"][std::string(each.local)] = false;
      }
      return view;
    };
    for (Particle const& each : choice.parts) {
      std::vector<QName> const own = namesOf(each);
      ordered_json view = withoutOthers(NameSet(own.begin(), own.end()));
      NameSet required;
      addRequired(each, required);
      for (QName const& name : own) {
        if (required.contains(name)) view["required"].push_back(std::string(name.local));
      }
      ordered_json areas = areasOf(each, shared);
      if (!areas.empty()) view["allOf"] = std::move(areas);
      views.push_back(std::move(view));
    }
    if (choice.isOptional) views.push_back(withoutOthers({}));
    return views;
  }

  // The conditions that no enumeration has.
  void describe(ordered_json& schema, std::vector<DataItem const*> const& items) const {
    std::string text;
    for (DataItem const* each : items) {
      bool const isEnumerated =
          !each->isGroup() && !valueTypeOf(*each, m_parts.rules()).values.empty();
      if (isEnumerated) continue;
      for (std::string const& line : conditionLines(*each)) {
        text += (text.empty() ? "" : "\n") + line;
      }
    }
    if (!text.empty()) schema["description"] = std::move(text);
  }

  DocumentParts m_parts;
};

}  // namespace

std::string writeJsonSchema(std::vector<RecordTree> const& records, SchemaRules const& rules) {
  ordered_json schema = {{"$schema", kDialect}};
  if (records.size() == 1) {
    RecordTree const& tree = records.front();
    schema["title"] = std::string(tree.root().name);
    schema.update(ElementSchemas(tree, rules).schemaOf(0, false));
  } else {
    ordered_json alternatives = ordered_json::array();
    for (RecordTree const& each : records) {
      std::string const name(each.root().name);
      ordered_json properties = {{name, ElementSchemas(each, rules).schemaOf(0, false)}};
      alternatives.push_back({{"type", "object"},
                              {"properties", std::move(properties)},
                              {"required", ordered_json::array({name})},
                              {"additionalProperties", false}});
    }
    schema["oneOf"] = std::move(alternatives);
  }
  return schema.dump(kIndent, ' ', false, ordered_json::error_handler_t::replace) + "\n";
}

}  // namespace fdmorph::docschema

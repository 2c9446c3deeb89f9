#include "docschema/determinism.h"

#include <algorithm>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace fdmorph::docschema {
namespace {

using ParticleKind = Particle::Kind;
using NameSet = std::unordered_set<QName, QNameHash>;

// Occurrences that are written out.
constexpr std::uint64_t kMaxWrittenOut = 1000;

constexpr char kMergedComment[] = "views that begin with the same name: each part may be left out";
constexpr char kAnyOrderComment[] = "views whose parts cannot be told apart: in any order";

// The names that a particle may begin with.
void addStart(Particle const& particle, NameSet& names) {
  if (particle.isElement()) {
    names.insert(particle.name);
  } else if (particle.kind == ParticleKind::sequence) {
    for (Particle const& each : particle.parts) {
      addStart(each, names);
      if (!each.isEmptiable()) break;
    }
  } else {
    for (Particle const& each : particle.parts) addStart(each, names);
  }
}

// The names that may still come in a particle which could also be over.
void addOpen(Particle const& particle, NameSet& names) {
  if (particle.isElement()) {
    if (particle.least < particle.most) names.insert(particle.name);
  } else if (particle.kind == ParticleKind::sequence) {
    for (std::size_t i = particle.parts.size(); i-- > 0;) {
      Particle const& last = particle.parts[i];
      addOpen(last, names);
      if (!last.isEmptiable()) return;
      addStart(last, names);
    }
  } else {
    bool const isList = particle.kind == ParticleKind::anyOrder;
    for (Particle const& each : particle.parts) {
      addOpen(each, names);
      if (isList || particle.isEmptiable()) addStart(each, names);
    }
  }
}

bool overlap(NameSet const& left, NameSet const& right) {
  NameSet const& fewer = left.size() < right.size() ? left : right;
  NameSet const& more = &fewer == &left ? right : left;
  return std::ranges::any_of(fewer, [&more](QName const& each) { return more.contains(each); });
}

// What may be one or the other.
void mergeInto(Particle& element, Particle const& other) {
  for (std::uint32_t each : other.nodes) {
    if (std::ranges::find(element.nodes, each) == element.nodes.end()) {
      element.nodes.push_back(each);
    }
  }
  element.least = std::min(element.least, other.least);
  element.most = std::max(element.most, other.most);
  element.repeats = element.repeats || other.repeats;
  element.mayLackText = element.mayLackText || other.mayLackText;
}

std::vector<Particle> elementsOf(Particle const& particle) {
  std::vector<Particle> elements;
  visitElements(particle, [&elements](Particle const& each) { elements.push_back(each); });
  return elements;
}

// Two lists as one that has each name once and keeps the order of both. Nothing if
// the orders differ or a name is twice in a list.
std::optional<std::vector<Particle>> merge(std::vector<Particle> const& left,
                                           std::vector<Particle> const& right) {
  std::unordered_map<QName, std::size_t, QNameHash> places;
  for (std::size_t i = 0; i < left.size(); ++i) places.emplace(left[i].name, i);
  if (places.size() != left.size()) return std::nullopt;
  std::vector<Particle> result;
  std::size_t at = 0;
  // Adds what only the left list has up to a place, before what only the right list has.
  auto const addLeft = [&](std::size_t end) {
    std::size_t own = result.size();
    while (own > 0 && !places.contains(result[own - 1].name)) --own;
    result.insert(result.begin() + static_cast<std::ptrdiff_t>(own),
                  left.begin() + static_cast<std::ptrdiff_t>(at),
                  left.begin() + static_cast<std::ptrdiff_t>(end));
  };
  NameSet seen;
  for (Particle const& each : right) {
    if (!seen.insert(each.name).second) return std::nullopt;
    auto const place = places.find(each.name);
    if (place == places.end()) {
      result.push_back(each);
      continue;
    }
    if (place->second < at) return std::nullopt;
    addLeft(place->second);
    at = place->second + 1;
    result.push_back(left[place->second]);
    mergeInto(result.back(), each);
  }
  addLeft(left.size());
  return result;
}

Particle anyOrderOf(std::vector<Particle> const& elements) {
  Particle list{ParticleKind::anyOrder};
  list.comment = kAnyOrderComment;
  for (Particle const& each : elements) {
    auto const known = std::ranges::find(list.parts, each.name, &Particle::name);
    if (known != list.parts.end()) {
      mergeInto(*known, each);
    } else {
      list.parts.push_back(each);
    }
  }
  for (Particle& each : list.parts) each.least = each.most = 1;
  return list;
}

// The views of a choice as one sequence.
Particle mergeViews(Particle const& choice) {
  std::vector<Particle> merged = elementsOf(choice.parts.front());
  for (std::size_t i = 1; i < choice.parts.size(); ++i) {
    std::optional<std::vector<Particle>> next = merge(merged, elementsOf(choice.parts[i]));
    if (!next) return anyOrderOf(elementsOf(choice));
    merged = std::move(*next);
  }
  for (Particle& each : merged) each.least = 0;
  Particle sequence{ParticleKind::sequence, std::move(merged)};
  sequence.comment = kMergedComment;
  return sequence;
}

bool beginDifferently(std::vector<Particle> const& views) {
  NameSet all;
  for (Particle const& each : views) {
    NameSet start;
    addStart(each, start);
    if (overlap(all, start)) return false;
    all.insert(start.begin(), start.end());
  }
  return true;
}

// Joins elements of one name that follow one another. The recursion is bounded by the
// number of levels.
void joinNeighbors(Particle& particle) {
  for (Particle& each : particle.parts) joinNeighbors(each);
  if (particle.kind != ParticleKind::sequence) return;
  std::vector<Particle> parts;
  for (Particle& each : particle.parts) {
    bool const isSame = !parts.empty() && each.isElement() && parts.back().isElement() &&
                        parts.back().name == each.name;
    if (!isSame) {
      parts.push_back(std::move(each));
      continue;
    }
    Particle& before = parts.back();
    std::uint64_t const least = before.least + each.least;
    std::uint64_t const most = before.most + each.most;
    mergeInto(before, each);
    before.least = least;
    before.most = most;
  }
  particle.parts = std::move(parts);
}

/// A place where a name could be two parts of a sequence: parts from `first` to `last`.
struct Conflict {
  std::size_t first;
  std::size_t last;
};

std::optional<Conflict> findConflict(std::vector<Particle> const& parts) {
  NameSet following;  // the names that the parts after i may begin with
  for (std::size_t i = parts.size(); i-- > 0;) {
    NameSet open;
    addOpen(parts[i], open);
    bool const isEmptiable = parts[i].isEmptiable();
    if (isEmptiable) addStart(parts[i], open);
    if (overlap(open, following)) {
      Conflict conflict{i, i};
      for (std::size_t k = i + 1; k < parts.size(); ++k) {
        NameSet start;
        addStart(parts[k], start);
        if (overlap(open, start)) conflict.last = k;
        if (!parts[k].isEmptiable()) break;
      }
      return conflict;
    }
    if (!isEmptiable) following = NameSet();
    addStart(parts[i], following);
  }
  return std::nullopt;
}

}  // namespace

// The recursion is bounded by the number of levels.
void makeDeterministic(Particle& sequence) {
  bool hasChoice = false;
  for (Particle& part : sequence.parts) {
    if (part.kind != ParticleKind::choice) continue;
    hasChoice = true;
    for (Particle& view : part.parts) makeDeterministic(view);
    if (!beginDifferently(part.parts)) part = mergeViews(part);
  }
  // The slots of one name have fixed numbers of elements, except for the last.
  if (!hasChoice) return;
  while (std::optional<Conflict> const conflict = findConflict(sequence.parts)) {
    std::vector<Particle> elements;
    for (std::size_t i = conflict->first; i <= conflict->last; ++i) {
      for (Particle& each : elementsOf(sequence.parts[i])) elements.push_back(std::move(each));
    }
    auto const begin = sequence.parts.begin();
    sequence.parts[conflict->first] = anyOrderOf(elements);
    sequence.parts.erase(begin + static_cast<std::ptrdiff_t>(conflict->first) + 1,
                         begin + static_cast<std::ptrdiff_t>(conflict->last) + 1);
  }
}

void makeConsistent(Particle& sequence) {
  joinNeighbors(sequence);
  std::unordered_map<QName, std::vector<Particle*>, QNameHash> byName;
  visitElements(sequence, [&byName](Particle& each) { byName[each.name].push_back(&each); });
  for (auto& [name, elements] : byName) {
    if (elements.size() < 2) continue;
    Particle all = *elements.front();
    for (Particle* each : elements) mergeInto(all, *each);
    for (Particle* each : elements) {
      each->nodes = all.nodes;
      each->mayLackText = all.mayLackText;
      each->isShared = true;
      each->isWrittenOut = each->most > 1 && each->least <= kMaxWrittenOut;
    }
  }
}

}  // namespace fdmorph::docschema

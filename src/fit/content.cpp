#include "fit/content.h"

#include <algorithm>
#include <string>
#include <unordered_map>
#include <utility>

namespace fdmorph::fit {
namespace {

using Kind = SchemaParticle::Kind;

std::uint64_t sum(std::uint64_t left, std::uint64_t right) {
  return left > kUnbounded - right ? kUnbounded : left + right;
}

std::uint64_t product(std::uint64_t left, std::uint64_t right) {
  if (left == 0 || right == 0) return 0;
  return left > kUnbounded / right ? kUnbounded : left * right;
}

struct Range {
  std::uint64_t least = 0;
  std::uint64_t most = 0;
};

/// How often each part occurs in a particle, by index of the part.
using Ranges = std::unordered_map<std::size_t, Range>;

class ContentReader {
 public:
  explicit ContentReader(SchemaModel& model) : m_model(model) { m_content.branches.emplace_back(); }

  Content read(SchemaParticle const& particle) {
    for (auto const& [part, range] : readParticle(particle, 0)) {
      m_content.parts[part].least = range.least;
      m_content.parts[part].most = range.most;
    }
    return std::move(m_content);
  }

 private:
  Ranges readParticle(SchemaParticle const& particle, std::size_t branch) {
    if (particle.most == 0) return {};
    Ranges ranges;
    switch (particle.kind) {
      case Kind::element:
        if (particle.element != nullptr) ranges = readElement(*particle.element, branch);
        break;
      case Kind::wildcard:
        m_content.wildcards.push_back(particle.wildcard);
        break;
      case Kind::choice:
        ranges = readChoice(particle, branch);
        break;
      case Kind::sequence:
      case Kind::all:
        for (SchemaParticle const& part : particle.parts) {
          add(ranges, readParticle(part, branch));
        }
        break;
    }
    bool const isRepeated = particle.most > 1 && particle.kind != Kind::element;
    if ((isRepeated || particle.kind == Kind::all) && ranges.size() > 1) {
      std::vector<std::size_t>& group = m_content.freeGroups.emplace_back();
      for (auto const& [part, range] : ranges) {
        if (!m_content.parts[part].isGroup) group.push_back(part);
      }
      std::ranges::sort(group);
    }
    if (particle.least == 1 && particle.most == 1) return ranges;
    for (auto& [part, range] : ranges) {
      range.least = product(range.least, particle.least);
      range.most = product(range.most, particle.most);
    }
    return ranges;
  }

  Ranges readElement(SchemaElement const& element, std::size_t branch) {
    Ranges ranges;
    if (!element.isHead) {
      ranges[partOf(element, nullptr, branch)] = {1, 1};
      return ranges;
    }
    std::vector<SchemaElement const*> const& substitutes = m_model.substitutesOf(element);
    std::size_t const count = substitutes.size() + (element.isAbstract ? 0 : 1);
    std::uint64_t const least = count == 1 ? 1 : 0;
    ranges[groupOf(element, branch)] = {1, 1};
    if (!element.isAbstract) ranges[partOf(element, &element, branch)] = {least, 1};
    for (SchemaElement const* each : substitutes) {
      ranges[partOf(*each, &element, branch)] = {least, 1};
    }
    return ranges;
  }

  // A choice that is made once gives branches that exclude each other.
  Ranges readChoice(SchemaParticle const& particle, std::size_t branch) {
    bool const isOnce = particle.most == 1;
    std::size_t const choice = m_content.choices.size();
    m_content.choices.emplace_back();
    std::vector<std::vector<std::size_t>> parts;
    Ranges result;
    std::unordered_map<std::size_t, std::size_t> counts;  // branches that have a part
    for (SchemaParticle const& part : particle.parts) {
      std::size_t inner = branch;
      if (isOnce) {
        inner = m_content.branches.size();
        m_content.branches.push_back({choice, branch});
      }
      std::vector<std::size_t>& names = parts.emplace_back();
      for (auto const& [index, range] : readParticle(part, inner)) {
        if (!m_content.parts[index].isGroup) names.push_back(index);
        ++counts[index];
        auto [known, isNew] = result.try_emplace(index, range);
        if (isNew) continue;
        known->second.least = std::min(known->second.least, range.least);
        known->second.most = std::max(known->second.most, range.most);
      }
    }
    for (auto& [index, range] : result) {
      if (counts[index] < particle.parts.size()) range.least = 0;
    }
    m_content.choices[choice].branches = std::move(parts);
    return result;
  }

  static void add(Ranges& target, Ranges source) {
    if (target.size() < source.size()) std::swap(target, source);
    for (auto const& [part, range] : source) {
      Range& present = target[part];
      present.least = sum(present.least, range.least);
      present.most = sum(present.most, range.most);
    }
  }

  std::size_t groupOf(SchemaElement const& head, std::size_t branch) {
    auto [known, isNew] = m_groups.try_emplace(&head, m_content.parts.size());
    if (isNew) {
      m_content.parts.push_back({&head, &head, true, 0, 0, m_position, branch});
      m_last.push_back(m_position);
    }
    return known->second;
  }

  std::size_t partOf(SchemaElement const& element, SchemaElement const* head, std::size_t branch) {
    std::string key = element.name.space + ' ' + element.name.local;
    auto [known, isNew] = m_names.try_emplace(std::move(key), m_content.parts.size());
    std::size_t const position = m_position++;
    if (isNew) {
      m_content.parts.push_back({&element, head, false, 0, 0, position, branch});
      m_last.push_back(position);
      return known->second;
    }
    ContentPart& part = m_content.parts[known->second];
    part.isInOneBranch = part.isInOneBranch && part.branch == branch;
    bool const isNext = m_last[known->second] + 1 == position;
    part.isScattered = part.isScattered || (!isNext && part.branch == branch);
    m_last[known->second] = position;
    return known->second;
  }

  SchemaModel& m_model;
  Content m_content;
  std::unordered_map<std::string, std::size_t> m_names;
  std::vector<std::size_t> m_last;  // position of the last particle of each part
  std::unordered_map<SchemaElement const*, std::size_t> m_groups;
  std::size_t m_position = 0;
};

}  // namespace

bool Content::mayBeTogether(ContentPart const& left, ContentPart const& right) const {
  if (!left.isInOneBranch || !right.isInOneBranch) return true;
  std::unordered_map<std::size_t, std::size_t> chosen;  // branch by choice
  for (std::size_t at = left.branch; at != 0; at = branches[at].around) {
    chosen[branches[at].choice] = at;
  }
  for (std::size_t at = right.branch; at != 0; at = branches[at].around) {
    auto const other = chosen.find(branches[at].choice);
    if (other != chosen.end() && other->second != at) return false;
  }
  return true;
}

bool Content::admits(std::string_view namespaceUri) const {
  std::string const space(namespaceUri);
  return std::ranges::any_of(wildcards,
                             [&space](SchemaWildcard const& each) { return each.admits(space); });
}

Content contentOf(SchemaType const& type, SchemaModel& model) {
  if (!type.particle) {
    Content content;
    if (type.isAny) content.wildcards.push_back({true, {}});
    return content;
  }
  return ContentReader(model).read(*type.particle);
}

}  // namespace fdmorph::fit

#include "show/page_data.h"

#include <nlohmann/json.hpp>
#include <unordered_map>
#include <vector>

#include "semantics/item_rules.h"
#include "show/item_words.h"
#include "show/lanes.h"

namespace fdmorph::show {
namespace {

using compiler::DataItem;
using nlohmann::json;
using record::dataNameOf;
using record::RecordNode;
using record::RecordTree;

std::string textOf(json const& value) {
  return value.dump(-1, ' ', false, json::error_handler_t::replace);
}

/// Texts by number, each once.
class TextList {
 public:
  std::size_t add(std::string_view text) {
    auto [known, isNew] = m_numbers.try_emplace(std::string(text), m_texts.size());
    if (isNew) m_texts.emplace_back(text);
    return known->second;
  }

  std::vector<std::string> const& texts() const { return m_texts; }

 private:
  std::unordered_map<std::string, std::size_t> m_numbers;
  std::vector<std::string> m_texts;
};

/// Makes the object of one source.
class DataWriter {
 public:
  explicit DataWriter(ShownSource const& source) : m_source(source) {}

  std::string print() {
    std::string records;
    for (std::size_t i = 0; i < m_source.records.size(); ++i) {
      if (i > 0) records += ',';
      SchemaView const* view = m_source.views.empty() ? nullptr : &m_source.views[i];
      records += recordText(m_source.records[i], view);
    }
    json head = {{"file", m_source.file},         {"dialect", nameOf(m_source.dialect)},
                 {"encoding", m_source.encoding}, {"remark", remarkOn(m_source.encoding)},
                 {"schema", m_source.schema},     {"texts", m_texts.texts()}};
    std::string out = textOf(head);
    out.back() = ',';
    return out + "\"records\":[" + records + "]}";
  }

 private:
  std::string recordText(RecordTree const& tree, SchemaView const* view) {
    DataItem const& record = *tree.root().item;
    std::string out = textOf(json{{"name", dataNameOf(record)}, {"length", record.size}});
    out.back() = ',';
    out += "\"items\":[";
    std::vector<std::uint32_t> lanes = lanesOf(tree);
    std::unordered_map<DataItem const*, std::uint32_t> numbers;
    for (std::uint32_t i = 0; i < lanes.size(); ++i) {
      RecordNode const& node = tree.nodes()[i];
      numbers.emplace(node.item, i);
      if (i > 0) out += ",\n";
      json fields = fieldsOf(node);
      json more = extrasOf(*node.item, numbers);
      if (lanes[i] != 0) more["lane"] = lanes[i];
      if (view != nullptr) addSchema(more, *view, i);
      if (!more.empty()) fields.push_back(std::move(more));
      out += textOf(fields);
    }
    return out + "]}";
  }

  void addSchema(json& more, SchemaView const& view, std::uint32_t node) {
    if (!view.types[node].empty()) more["type"] = m_texts.add(view.types[node]);
    for (ShownFinding const& each : findingsOf(view, node)) {
      more["findings"].push_back({each.severity, each.code, each.text, each.path});
    }
  }

  // Parent, level, name, picture, number of the text of the usage, offset, length,
  // role, XML name, number of the namespace, number of the file, line. The object
  // after them has what few items have.
  json fieldsOf(RecordNode const& node) {
    DataItem const& item = *node.item;
    compiler::LinePlace line;
    if (!item.isImplied && item.place.isKnown()) line = m_source.sources->locate(item.place);
    std::int64_t parent = node.parent == record::kNoNode ? -1 : std::int64_t{node.parent};
    return json::array({parent, item.isImplied ? 1 : item.level, dataNameOf(item), pictureOf(item),
                        m_texts.add(storageWords(item)), item.offset, item.size,
                        static_cast<int>(node.role), node.name, m_texts.add(node.namespaceUri),
                        m_texts.add(line.file), line.line});
  }

  static json extrasOf(DataItem const& item,
                       std::unordered_map<DataItem const*, std::uint32_t> const& numbers) {
    json more = json::object();
    if (item.occurs != nullptr) {
      compiler::OccursClause const& clause = *item.occurs;
      more["occurs"] = {clause.isDepending ? clause.least : clause.most, clause.most,
                        clause.isDepending ? clause.depending.name : std::string_view()};
    }
    auto redefined = numbers.find(item.redefined);
    if (redefined != numbers.end()) more["redefines"] = redefined->second;
    if (item.xml != nullptr && !item.xml->countIn.name.empty()) {
      more["countIn"] = item.xml->countIn.name;
    }
    bool isNumber = !item.isGroup() && kindOf(item) == compiler::ItemKind::numeric;
    if (isNumber) more["number"] = 1;
    for (DataItem const* each = item.firstCondition; each != nullptr; each = each->next) {
      more["conditions"].push_back({each->name, valueWords(*each)});
    }
    return more;
  }

  ShownSource const& m_source;
  TextList m_texts;
};

// A less-than sign could begin a tag or a comment that ends the element.
std::string withoutTags(std::string const& text) {
  std::string out;
  out.reserve(text.size());
  for (char each : text) {
    if (each == '<') {
      out += "\\u003c";
    } else {
      out += each;
    }
  }
  return out;
}

}  // namespace

std::string pageData(ShownSource const& source) {
  return withoutTags(DataWriter(source).print());
}

}  // namespace fdmorph::show

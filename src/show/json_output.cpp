#include "show/json_output.h"

#include <nlohmann/json.hpp>
#include <vector>

#include "show/item_words.h"

namespace fdmorph::show {
namespace {

using compiler::DataItem;
using compiler::LinePlace;
using compiler::Place;
using compiler::SignPosition;
using nlohmann::ordered_json;
using record::dataNameOf;
using record::RecordNode;
using record::RecordTree;
using record::Role;

/// Makes the objects of one source.
class JsonWriter {
 public:
  explicit JsonWriter(ShownSource const& source) : m_source(source) {}

  std::string print() {
    ordered_json head = {{"file", m_source.file},
                         {"dialect", nameOf(m_source.dialect)},
                         {"encoding", m_source.encoding}};
    if (!m_source.schema.empty()) head["schema"] = m_source.schema;
    // The head without its closing brace, since the records follow. An item is a
    // line: a value of the whole document would take much more memory.
    m_out = textOf(head);
    m_out.back() = ',';
    m_out += "\"records\":[";
    char const* separator = "\n";
    for (RecordTree const& tree : m_source.records) {
      m_out += separator;
      addRecord(tree, findView(tree));
      separator = ",\n";
    }
    m_out += "\n]}\n";
    return std::move(m_out);
  }

 private:
  static std::string textOf(ordered_json const& value) {
    return value.dump(-1, ' ', false, ordered_json::error_handler_t::replace);
  }

  // What the schema says of a record; null without a schema.
  SchemaView const* findView(RecordTree const& tree) const {
    if (m_source.views.empty()) return nullptr;
    return &m_source.views[static_cast<std::size_t>(&tree - m_source.records.data())];
  }

  void addRecord(RecordTree const& tree, SchemaView const* view) {
    DataItem const& record = *tree.root().item;
    ordered_json head = {
        {"name", dataNameOf(record)}, {"length", record.size}, {"enhanced", tree.isEnhanced()}};
    m_out += textOf(head);
    m_out.back() = ',';
    m_out += "\"items\":[";
    std::vector<std::uint32_t> depths = depthsOf(tree);
    for (std::uint32_t i = 0; i < depths.size(); ++i) {
      m_out += i == 0 ? "\n" : ",\n";
      ordered_json object = itemObject(tree, i, depths[i]);
      if (view != nullptr) addSchema(object, *view, i);
      m_out += textOf(object);
    }
    m_out += "\n]}";
  }

  ordered_json itemObject(RecordTree const& tree, std::uint32_t number, std::uint32_t depth) const {
    RecordNode const& node = tree.nodes()[number];
    DataItem const& item = *node.item;
    ordered_json object = {
        {"level", item.isImplied ? 1 : item.level}, {"depth", depth}, {"name", dataNameOf(item)}};
    if (!item.isImplied) addPlace(object, item.place);
    addStorage(object, item);
    object["offset"] = item.offset;
    object["length"] = item.size;
    if (item.slack != 0) object["slack"] = item.slack;
    if (item.occurs != nullptr) object["occurs"] = occursObject(*item.occurs);
    if (item.redefined != nullptr) object["redefines"] = dataNameOf(*item.redefined);
    object["role"] = nameOf(node.role);
    if (node.role == Role::element || node.role == Role::attribute) {
      object["xmlName"] = node.name;
      object["namespace"] = node.namespaceUri;
    }
    std::string path = tree.xmlPath(number);
    if (!path.empty()) object["path"] = std::move(path);
    if (item.xml != nullptr && !item.xml->countIn.name.empty()) {
      object["countIn"] = item.xml->countIn.name;
    }
    if (item.firstCondition != nullptr) object["conditions"] = conditionList(item);
    return object;
  }

  static void addSchema(ordered_json& object, SchemaView const& view, std::uint32_t node) {
    if (!view.types[node].empty()) object["type"] = view.types[node];
    ordered_json list = ordered_json::array();
    for (ShownFinding const& each : findingsOf(view, node)) {
      list.push_back({{"severity", each.severity},
                      {"code", each.code},
                      {"path", each.path},
                      {"message", each.text}});
    }
    if (!list.empty()) object["findings"] = std::move(list);
  }

  void addPlace(ordered_json& object, Place place) const {
    if (!place.isKnown()) return;
    LinePlace line = m_source.sources->locate(place);
    object["file"] = line.file;
    object["line"] = line.line;
  }

  static void addStorage(ordered_json& object, DataItem const& item) {
    if (!pictureOf(item).empty()) object["picture"] = pictureOf(item);
    if (usageOf(item).empty()) return;
    object["usage"] = usageOf(item);
    bool isSigned = item.picture != nullptr && item.picture->isSigned;
    if (isSigned && item.effectiveSign.position != SignPosition::none) {
      bool isLeading = item.effectiveSign.position == SignPosition::leading;
      object["sign"] = {{"position", isLeading ? "leading" : "trailing"},
                        {"separate", item.effectiveSign.isSeparate}};
    }
    if (item.isUnsigned) object["unsigned"] = true;
    if (item.isJustified) object["justified"] = true;
    if (item.isBlankWhenZero) object["blankWhenZero"] = true;
    if (item.isSynchronized) object["synchronized"] = true;
  }

  static ordered_json occursObject(compiler::OccursClause const& clause) {
    ordered_json object = {{"min", clause.isDepending ? clause.least : clause.most},
                           {"max", clause.most}};
    if (clause.isDepending) object["dependingOn"] = clause.depending.name;
    return object;
  }

  ordered_json conditionList(DataItem const& item) const {
    ordered_json list = ordered_json::array();
    for (DataItem const* each = item.firstCondition; each != nullptr; each = each->next) {
      ordered_json condition = {{"name", each->name}};
      addPlace(condition, each->place);
      ordered_json values = ordered_json::array();
      for (compiler::ValueRange const& range : each->values) {
        ordered_json value = {{"from", literalWords(range.from)}};
        if (range.to.kind != compiler::Literal::Kind::none) value["to"] = literalWords(range.to);
        values.push_back(std::move(value));
      }
      condition["values"] = std::move(values);
      list.push_back(std::move(condition));
    }
    return list;
  }

  ShownSource const& m_source;
  std::string m_out;
};

}  // namespace

std::string printJson(ShownSource const& source) {
  return JsonWriter(source).print();
}

}  // namespace fdmorph::show

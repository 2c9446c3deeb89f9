#include "mapping/described_data.h"

#include <algorithm>
#include <iostream>

#include "description/dictionary_writer.h"
#include "dictionary/mapping_writer.h"
#include "source/diagnostics.h"
#include "xml/DMDOMFormatTarget.h"
#include "xml/xml_events.h"

namespace fdmorph::mapping {
namespace {

using compiler::DictionaryContent;
using compiler::DictionaryOrder;

using enum DATADICT_ELEMENT_TYPE;

/// Builds the tree of a dictionary.
class TreeReader : public XmlEvents {
 public:
  explicit TreeReader(CDMXMLNodeStore& nodes) : m_nodes(nodes), m_open{nodes.newElement()} {}

  void startTag(XmlTag const& tag) override {
    CDMXMLElement* element = m_nodes.newElement();
    element->name = tag.qualifiedName;
    for (XmlAttribute const& each : tag.attributes) {
      CDMXMLAttribute* attribute = m_nodes.newAttribute();
      attribute->setParent(element);
      attribute->name = each.qualifiedName;
      attribute->value = each.value;
      element->addAttribute(attribute);
    }
    element->setParent(m_open.back());
    m_open.back()->addChildElement(element);
    m_open.push_back(element);
  }

  void endTag() override { m_open.pop_back(); }

  [[nodiscard]] CDMXMLElement const* top() const { return m_open.front(); }

 private:
  CDMXMLNodeStore& m_nodes;
  std::vector<CDMXMLElement*> m_open;  // the first is that of the document
};

// Null after an error. What a reader of the dictionary loses is no matter here.
CDMXMLElement const* makeTree(compiler::CompiledSource const& source,
                              DictionaryContent const& content, CDMXMLNodeStore& nodes) {
  compiler::Diagnostics unused(source.sources());
  std::string const text = compiler::buildDictionary(source.data(), content,
                                                     DictionaryOrder::workingStorageFirst, unused);
  if (text.empty()) return nullptr;
  TreeReader reader(nodes);
  if (readXmlText(text, "dictionary", reader)) return nullptr;
  return reader.top();
}

using Standings = std::unordered_map<CDMXMLElement const*, Standing>;

/// Notes the items of a mapping file instead of writing it.
class ItemCollector : public MappingWriter {
 public:
  ItemCollector(WriterContext const& context, Standings& standings)
      : MappingWriter(context), m_standings(standings) {}

 protected:
  void visitItem(CDMXMLElement const& element, MappingTexts const& /*texts*/) override {
    m_standings.emplace(&element, Standing::written);
  }
  void visitFillerGroup(CDMXMLElement const& element) override {
    m_standings.emplace(&element, Standing::fillerGroup);
  }

 private:
  Standings& m_standings;
};

Standings standingsOf(CDMXMLElement const& dictionary) {
  Standings standings;
  XmlFormatter formatter;  // has no target
  WriterContext const context{formatter, std::cout, nullptr, {}, {}, true};
  ItemCollector collector(context, standings);
  walkDictionary(dictionary, 0, collector);
  return standings;
}

/// Lists the items of a dictionary.
class ItemReader {
 public:
  explicit ItemReader(CDMXMLElement const& dictionary) : m_standings(standingsOf(dictionary)) {
    read(dictionary, kNone, Standing::otherRecord);
  }

  std::vector<DescribedItem> release() { return std::move(m_items); }

 private:
  // `around` is the standing of items that the walk over the dictionary does not
  // reach. The recursion is bounded by the number of levels.
  void read(CDMXMLElement const& element, std::size_t parent, Standing around) {
    DATADICT_ELEMENT_TYPE const kind = getDataDictElementType(&element);
    if (isDataItem(kind) || isCondition(kind) || kind == DD_FD) {
      around = standingOf(element, kind, around);
      m_items.push_back(
          {getQualifiedNameAttr(&element), &element, parent, around, kind == DD_GROUP});
      parent = m_items.size() - 1;
      if (around == Standing::file) around = Standing::otherRecord;
    }
    bool isNextReached = false;
    for (CDMXMLElement const* each : element.getChildElements()) {
      read(*each, parent, isNextReached ? Standing::unwritten : around);
      // The writer of the schema passes over it, and that of the mapping file ends.
      if (isContainer(kind)) isNextReached = isFillerRecord(*each);
    }
  }

  Standing standingOf(CDMXMLElement const& element, DATADICT_ELEMENT_TYPE kind,
                      Standing around) const {
    if (kind == DD_FD) return Standing::file;
    if (isCondition(kind)) return Standing::condition;
    if (attributeIs(&element, "redefines", "true")) return Standing::redefinition;
    auto const found = m_standings.find(&element);
    return found == m_standings.end() ? around : found->second;
  }

  [[nodiscard]] bool isFillerRecord(CDMXMLElement const& element) const {
    return m_standings.contains(&element) && isElementary(getDataDictElementType(&element)) &&
           isFiller(dataNameOf(&element));
  }

  Standings m_standings;
  std::vector<DescribedItem> m_items;
};

bool hasRecord(compiler::FileDescription const& file) {
  return file.records.first != nullptr;
}

// The data of all sections, redefinitions included.
DictionaryContent contentOfAll(compiler::DataDivision const& data, bool hasFillerNames) {
  DictionaryContent content;
  content.hasFillerNames = hasFillerNames;
  content.hasFiles = std::ranges::any_of(data.files, hasRecord);
  for (compiler::RecordList const* list :
       {&data.workingStorage, &data.localStorage, &data.linkage}) {
    compiler::DataItem const* item = list->first;
    for (; item != nullptr; item = item->next) content.records.push_back(item);
  }
  return content;
}

}  // namespace

std::string_view DescribedItem::name() const {
  return dataNameOf(element);
}

DescribedData::DescribedData(compiler::CompiledSource& source,
                             compiler::DictionaryChoice const& choice)
    : m_source(source), m_hasFillerNames(choice.hasFillerNames) {
  compiler::Diagnostics& diagnostics = source.diagnostics();
  DictionaryContent const content = compiler::chooseContent(source.data(), choice, diagnostics);
  if (diagnostics.hasErrors()) return;
  if (content.isEmpty()) {
    diagnostics.report(compiler::Code::noData, {}, "no record in the chosen section");
    return;
  }
  m_dictionary = makeTree(source, content, m_nodes);
  if (m_dictionary == nullptr) {
    diagnostics.report(compiler::Code::size, {}, "the dictionary is too large");
    return;
  }
  m_items = ItemReader(*m_dictionary).release();
  for (std::size_t i = 0; i < m_items.size(); ++i) m_byKey[m_items[i].key].push_back(i);
}

std::span<std::size_t const> DescribedData::find(std::string_view key) const {
  auto const found = m_byKey.find(key);
  if (found == m_byKey.end()) return {};
  return found->second;
}

bool DescribedData::isElsewhere(std::string_view key) const {
  if (!m_allKeys) {
    m_allKeys.emplace();
    CDMXMLNodeStore nodes;
    DictionaryContent const content = contentOfAll(m_source.data(), m_hasFillerNames);
    if (CDMXMLElement const* all = makeTree(m_source, content, nodes)) {
      for (DescribedItem& each : ItemReader(*all).release()) {
        m_allKeys->insert(std::move(each.key));
      }
    }
  }
  return m_allKeys->contains(std::string(key));
}

}  // namespace fdmorph::mapping

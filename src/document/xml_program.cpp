#include "document/xml_program.h"

#include <algorithm>

#include "document/left_out.h"
#include "layout/layout_builder.h"

namespace fdmorph::document {

using layout::kNone;
using layout::Node;
using record::RecordNode;
using record::Role;

namespace {

constexpr int kIndent = 2;  // blanks

}  // namespace

Program XmlProgram::make() {
  int depth = m_rules.hasWrapper ? 1 : 0;
  if (m_rules.isPretty) m_list.write(std::string(static_cast<std::size_t>(depth * kIndent), ' '));
  addElement(0, {"", depth});
  m_list.write("\n");
  return m_list.finish();
}

std::string XmlProgram::lineEnd(int depth) const {
  if (!m_rules.isPretty) return {};
  return '\n' + std::string(static_cast<std::size_t>(depth * kIndent), ' ');
}

void XmlProgram::addElement(std::uint32_t node, Place place) {
  RecordNode const& item = m_layout.item(node);
  std::string name;
  std::string declarations;
  if (node == 0) {
    declarations = m_prefixes.declarations();
    place.defaultNamespace = m_prefixes.own();
  } else if (item.namespaceUri.empty() || item.namespaceUri == m_prefixes.own()) {
    if (place.defaultNamespace != item.namespaceUri) {
      declarations = " xmlns=\"" + escapedAttribute(item.namespaceUri) + '"';
    }
    place.defaultNamespace = item.namespaceUri;
  } else {
    name = m_prefixes.prefixOf(item.namespaceUri);
  }
  name += item.name;
  std::size_t begin = m_list.pending().size() - (node == 0 ? 0 : lineEnd(place.depth).size());
  m_list.write('<' + name + declarations);
  if (!item.item->isGroup() && m_layout[node].size > 0) {
    m_list.write(">");
    addText(node, Operation::Kind::text, "</" + name + '>', true, m_list.pending().size() - begin);
    return;
  }
  addItems(node, PartKind::attributes, place);
  addContent(node, name, {place.defaultNamespace, place.depth + 1});
}

// What follows the attributes in the start tag, up to the end tag.
void XmlProgram::addContent(std::uint32_t node, std::string const& name, Place inside) {
  bool hasContent = false;
  for (std::uint32_t i = node + 1; i < m_layout.item(node).end; ++i) {
    if (m_layout.item(i).enclosing == node && isPartOfKind(m_layout, i, PartKind::content)) {
      hasContent = true;
    }
  }
  if (!hasContent) {
    m_list.write("/>");
    return;
  }
  m_list.write(">");
  std::string endTag = "</" + name + '>';
  if (std::uint32_t text = onlyText(node); text != kNone) {
    addText(text, Operation::Kind::text, endTag, true, 0);
    return;
  }
  bool hasText = false;
  for (std::uint32_t i = node + 1; i < m_layout.item(node).end; ++i) {
    hasText =
        hasText || (m_layout.item(i).enclosing == node && m_layout.item(i).role == Role::value);
  }
  std::string end = (hasText ? std::string() : lineEnd(inside.depth - 1)) + endTag;
  if (alwaysHasContent(node)) {
    addItems(node, PartKind::content, inside);
    m_list.write(end);
    return;
  }
  m_list.add(Operation::Kind::mark, node);
  addItems(node, PartKind::content, inside);
  m_list.addEnd(Operation::Kind::close, end);
}

// The value item of an element whose content is this item alone.
std::uint32_t XmlProgram::onlyText(std::uint32_t element) const {
  std::uint32_t text = kNone;
  for (std::uint32_t i = element + 1; i < m_layout.item(element).end; ++i) {
    if (m_layout.item(i).enclosing != element) continue;
    if (m_layout.item(i).role == Role::element) return kNone;
    if (m_layout.item(i).role != Role::value) continue;
    bool isView = false;
    for (std::uint32_t each = i; each != element; each = m_layout.item(each).parent) {
      isView = isView || m_layout[each].area != kNone;
    }
    if (text != kNone || isView) return kNone;
    text = i;
  }
  return text;
}

void XmlProgram::addItems(std::uint32_t group, PartKind kind, Place place) {
  for (std::uint32_t i = group + 1; i < m_layout.item(group).end; i = m_layout.item(i).end) {
    if (!layout::isStored(*m_layout.item(i).item)) continue;
    std::uint32_t area = m_layout[i].area;
    if (area == kNone) {
      addItem(i, kind, place);
    } else if (m_layout.areas()[area].views.front() == i) {
      addArea(area, kind, place);
    }
  }
}

void XmlProgram::addArea(std::uint32_t area, PartKind kind, Place place) {
  if (!areaHasPartOfKind(m_layout, area, kind)) return;
  std::uint32_t operation = m_list.open(Operation::Kind::area, area);
  for (std::uint32_t view : m_layout.areas()[area].views) {
    if (!hasPartOfKind(m_layout, view, kind)) continue;
    std::uint32_t branch = m_list.open(Operation::Kind::branch, view);
    addItem(view, kind, place);
    m_list.end(branch);
  }
  m_list.end(operation);
}

void XmlProgram::addItem(std::uint32_t node, PartKind kind, Place place) {
  if (m_layout.item(node).role == Role::transparent) {
    addItems(node, kind, place);
  } else if (isPartOfKind(m_layout, node, kind)) {
    addPart(node, place);
  }
}

void XmlProgram::addPart(std::uint32_t node, Place place) {
  std::uint32_t around = kNone;
  if (m_layout[node].repeats) around = m_list.open(Operation::Kind::table, node);
  if (mayBeLeftOut(m_set, m_layout, node)) around = m_list.open(Operation::Kind::optional, node);
  switch (m_layout.item(node).role) {
    case Role::attribute:
      addAttribute(node);
      break;
    case Role::value:
      addText(node, Operation::Kind::text, "", false, 0);
      break;
    default:
      m_list.write(lineEnd(place.depth));
      addElement(node, place);
  }
  if (around != kNone) m_list.end(around);
}

// The text of a group that is an attribute is that of the value item in it.
void XmlProgram::addAttribute(std::uint32_t node) {
  RecordNode const& item = m_layout.item(node);
  std::string start = ' ' + m_prefixes.prefixOf(item.namespaceUri) + std::string(item.name) + "=\"";
  m_list.write(start);
  std::uint32_t text = item.item->isGroup() ? onlyText(node) : node;
  if (text != kNone) {
    addText(text, Operation::Kind::attribute, "\"", false, start.size());
    return;
  }
  addItems(node, PartKind::content, {});
  m_list.write("\"");
}

void XmlProgram::addText(std::uint32_t item, Operation::Kind kind, std::string_view after,
                         bool collapses, std::size_t ownMarkup) {
  bool isInAttribute = kind == Operation::Kind::text && !collapses &&
                       m_layout.item(m_layout.item(item).enclosing).role == Role::attribute;
  Operation::Kind used = isInAttribute ? Operation::Kind::attribute : kind;
  bool mayBeEmpty =
      !m_layout[item].format.isNumber() || mayHoldNoNumber(m_set, m_layout[item].format);
  Operation& operation = m_list.addItem(used, item, mayBeEmpty ? after : "");
  operation.collapses = collapses;
  bool isWholePart = kind == Operation::Kind::attribute || ownMarkup > 0;
  operation.mayBeLeftOut =
      isWholePart && (kind == Operation::Kind::attribute || isLeftOutWithoutNumber(m_layout, item));
  operation.ownMarkup = static_cast<std::uint32_t>(ownMarkup);
  if (!mayBeEmpty) m_list.write(after);
}

// Whether a group always has something in it.
bool XmlProgram::alwaysHasContent(std::uint32_t group) const {
  for (std::uint32_t i = group + 1; i < m_layout.item(group).end; i = m_layout.item(i).end) {
    if (m_layout[i].area != kNone || !layout::isStored(*m_layout.item(i).item)) continue;
    if (m_layout.item(i).role == Role::transparent ? alwaysHasContent(i) : isAlwaysWritten(i)) {
      return true;
    }
  }
  return false;
}

bool XmlProgram::isAlwaysWritten(std::uint32_t node) const {
  if (m_layout.item(node).role != Role::element || mayBeLeftOut(m_set, m_layout, node)) {
    return false;
  }
  Node const& item = m_layout[node];
  if (item.repeats) {
    bool hasCount = m_set.rules().hasCounts && item.count != kNone;
    if (hasCount || mayEndEarly(m_set, m_layout, node)) return false;
    return (item.counter == kNone ? item.most : item.least) > 0;
  }
  return m_layout.item(node).item->isGroup() || !mayHoldNoNumber(m_set, item.format);
}

}  // namespace fdmorph::document

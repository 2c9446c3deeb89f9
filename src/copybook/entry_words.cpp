#include "copybook/entry_words.h"

#include <array>

#include "source/literals.h"
#include "syntax/keywords.h"
#include "text/letter_case.h"

namespace fdmorph::copybook {
namespace {

using compiler::DataItem;
using compiler::KeyOrder;
using compiler::Literal;
using compiler::OccursClause;
using compiler::SignPosition;
using compiler::Usage;

std::string usageWord(Usage usage) {
  return usage == Usage::comp ? "COMP" : upperCase(compiler::entryOf(usage).name);
}

// A word that can begin a clause is a name only where certain words follow.
bool isKeyword(std::string_view name) {
  return compiler::keywordOf(name) != compiler::Keyword::none;
}

bool hasControl(std::string_view text) {
  for (char c : text) {
    if (static_cast<unsigned char>(c) < ' ' || c == '\x7F') return true;
  }
  return false;
}

// A literal that was joined from others may have bytes that no line can hold.
std::string writtenLiteral(Literal const& literal) {
  bool isPlain = !literal.isBinary && !hasControl(literal.text);
  if (isPlain || compiler::isNationalLiteral(literal.text)) return std::string(literal.text);
  return compiler::hexadecimalLiteral(compiler::decodeLiteral(literal.text).text);
}

std::string_view figurativeWord(Literal::Kind kind) {
  switch (kind) {
    case Literal::Kind::zero:
      return "ZERO";
    case Literal::Kind::space:
      return "SPACE";
    case Literal::Kind::quote:
      return "QUOTE";
    case Literal::Kind::lowValue:
      return "LOW-VALUE";
    case Literal::Kind::highValue:
      return "HIGH-VALUE";
    default:
      return "NULL";
  }
}

}  // namespace

void EntryWords::write(bool hasXmlClauses) {
  add(m_names.nameOf(m_item));
  switch (m_item.level) {
    case compiler::kConditionLevel:
      writeValues();
      return;
    case compiler::kRenamesLevel:
      writeRenames();
      return;
    default:
      writeData(hasXmlClauses);
      return;
  }
}

void EntryWords::writeData(bool hasXmlClauses) {
  bool isXmlFirst = hasXmlClauses && isKeyword(m_item.name);
  if (isXmlFirst) writeXmlClauses();
  if (isXmlFirst) writePicture();
  writeRedefines();
  if (!isXmlFirst) writePicture();
  writeUsageAndSign();
  writeOccurs();
  writeFlags();
  if (hasXmlClauses && !isXmlFirst) writeXmlClauses();
  if (m_change == nullptr || !m_change->hasNoValue) writeValues();
}

void EntryWords::writeRedefines() {
  std::string_view name;
  if (m_item.redefined != nullptr) name = m_names.nameOf(*m_item.redefined);
  if (m_change != nullptr && m_change->redefines) name = *m_change->redefines;
  if (name.empty()) return;
  add("REDEFINES");
  add(name);
}

void EntryWords::writePicture() {
  bool isNew = m_change != nullptr && !m_change->picture.empty();
  if (!isNew && m_item.picture == nullptr) return;
  if (m_change != nullptr && m_change->usage && !compiler::takesPicture(*m_change->usage)) return;
  add("PIC");
  add(isNew ? m_change->picture : m_item.picture->text);
}

void EntryWords::writeUsageAndSign() {
  if (m_change != nullptr && m_change->usage) {
    add("USAGE");
    add(usageWord(*m_change->usage));
    return;
  }
  if (m_item.usage != Usage::none) {
    add("USAGE");
    add(usageWord(m_item.usage));
    if (m_item.isUnsigned) add("UNSIGNED");
  }
  if (m_item.sign.position == SignPosition::none) return;
  add("SIGN");
  add(m_item.sign.position == SignPosition::leading ? "LEADING" : "TRAILING");
  if (m_item.sign.isSeparate) add("SEPARATE");
}

void EntryWords::writeOccurs() {
  OccursClause const* occurs = m_item.occurs.get();
  bool isNew = m_change != nullptr && m_change->occurs.has_value();
  if (occurs == nullptr && !isNew) return;
  OccursRange range = isNew ? *m_change->occurs : OccursRange{occurs->least, occurs->most};
  bool isDepending = occurs != nullptr && occurs->isDepending;
  if (isNew && !isDepending && range.most == 1) return;
  add("OCCURS");
  if (isDepending && range.least < range.most) {
    add(std::to_string(range.least));
    add("TO");
  }
  add(std::to_string(range.most));
  add("TIMES");
  if (isDepending) {
    add("DEPENDING ON");
    DataItem const* counter = m_item.dependingOn;
    add(counter == nullptr ? sourceReference(occurs->depending)
                           : m_names.refer(*counter, occurs->depending));
  }
  if (occurs != nullptr) writeKeys();
}

void EntryWords::writeKeys() {
  OccursClause const& occurs = *m_item.occurs;
  for (std::size_t i = 0; i < occurs.keys.size(); ++i) {
    KeyOrder order = occurs.keyOrders[i];
    if (i == 0 || order != occurs.keyOrders[i - 1]) {
      add(order == KeyOrder::ascending ? "ASCENDING KEY" : "DESCENDING KEY");
    }
    add(m_names.referWithin(m_item, occurs.keys[i]));
  }
  bool isRenamed = m_change != nullptr && !m_change->indexes.empty();
  if (occurs.indexes.empty()) return;
  add("INDEXED BY");
  for (std::size_t i = 0; i < occurs.indexes.size(); ++i) {
    add(isRenamed ? std::string_view(m_change->indexes[i]) : occurs.indexes[i]);
  }
}

void EntryWords::writeFlags() {
  if (m_item.isJustified) add("JUSTIFIED");
  if (m_item.isBlankWhenZero) add("BLANK WHEN ZERO");
  if (m_item.isSynchronized) add("SYNCHRONIZED");
}

void EntryWords::writeXmlClauses() {
  if (m_item.xml == nullptr) return;
  compiler::XmlClauses const& xml = *m_item.xml;
  if (xml.identifiedBy.kind == Literal::Kind::text) {
    add("IDENTIFIED BY");
    writeLiteral(xml.identifiedBy);
  }
  if (xml.namespaceName.kind == Literal::Kind::text) {
    add("NAMESPACE IS");
    writeLiteral(xml.namespaceName);
  }
  if (xml.isAttribute) add("IS ATTRIBUTE");
  if (xml.countIn.name.empty()) return;
  add("COUNT IN");
  add(xml.countIn.name);
}

void EntryWords::writeValues() {
  if (m_item.values.empty()) return;
  add("VALUE");
  for (compiler::ValueRange const& each : m_item.values) {
    writeLiteral(each.from);
    if (each.to.kind == Literal::Kind::none) continue;
    add("THRU");
    writeLiteral(each.to);
  }
  if (m_item.falseValue == nullptr) return;
  add("WHEN SET TO FALSE");
  writeLiteral(*m_item.falseValue);
}

void EntryWords::writeRenames() {
  DataItem const& record = *compiler::recordOf(m_item);
  add("RENAMES");
  add(m_names.referWithin(record, *m_item.related));
  if (m_item.through == nullptr) return;
  add("THRU");
  add(m_names.referWithin(record, *m_item.through));
}

void EntryWords::writeLiteral(Literal const& literal) {
  if (literal.isAll) add("ALL");
  if (literal.kind == Literal::Kind::number) {
    add(literal.text);
  } else if (literal.kind == Literal::Kind::text) {
    m_words.push_back({writtenLiteral(literal), true});
  } else {
    add(figurativeWord(literal.kind));
  }
}

}  // namespace fdmorph::copybook

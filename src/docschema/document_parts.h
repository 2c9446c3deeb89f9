// The parts of an element as the documents have them: texts, attributes, elements.
#pragma once

#include <vector>

#include "docschema/particle.h"
#include "docschema/value_type.h"
#include "record/record_tree.h"

namespace fdmorph::docschema {

/// An attribute of an element.
struct AttributeUse {
  QName name;
  std::vector<ValueType> types;  ///< the text is of one of them
  bool mayLackText = false;      ///< or there is none
  bool isRequired = true;
  std::vector<compiler::DataItem const*> items;  ///< whose conditions describe the text
};

/// The parts of an element.
struct Parts {
  std::vector<ValueType> texts;  ///< the text is of one of them; empty: it has no text
  bool mayLackText = false;      ///< or there is none
  std::vector<compiler::DataItem const*> items;  ///< whose conditions describe the text
  std::vector<AttributeUse> attributes;
  Particle content;  ///< a sequence

  bool hasElements() const { return !content.parts.empty(); }
  bool hasText() const { return !texts.empty(); }
};

/// Finds the parts of elements of one record.
///
/// Of each area that items share, the views that can be in a document are looked at:
/// those that the user has rules for, or else the first with a role.
class DocumentParts {
 public:
  /// Both must outlive this object.
  DocumentParts(record::RecordTree const& tree, SchemaRules const& rules)
      : m_tree(tree), m_rules(rules) {}

  [[nodiscard]] record::RecordTree const& tree() const { return m_tree; }
  [[nodiscard]] SchemaRules const& rules() const { return m_rules; }

  /// The parts of an element or attribute, as the record has them.
  [[nodiscard]] Parts partsOf(std::uint32_t node) const;

  /// The parts of an element that is any of several nodes: everything that one of
  /// them may have.
  [[nodiscard]] Parts partsOf(Particle const& element) const;

  /// Those of `nodes` that differ in their parts or in what is in these.
  [[nodiscard]] std::vector<std::uint32_t> distinct(std::vector<std::uint32_t> const& nodes) const;

 private:
  void addItems(std::uint32_t group, Parts& parts, bool isInOtherView) const;
  void addItem(std::uint32_t node, Parts& parts, bool isInOtherView) const;
  void addArea(std::vector<std::uint32_t> const& views, Parts& parts, bool isInOtherView) const;
  void addElement(std::uint32_t node, Parts& parts, bool isInOtherView) const;
  void addAttribute(std::uint32_t node, Parts& parts, bool isInOtherView) const;
  void addText(std::uint32_t node, Parts& parts) const;
  void setOccurrences(Particle& element) const;
  [[nodiscard]] bool hasRole(std::uint32_t node) const;
  [[nodiscard]] bool isCounted(std::uint32_t node) const;
  [[nodiscard]] bool mayBeBlank(std::uint32_t node) const;
  [[nodiscard]] std::string signatureOf(std::uint32_t node) const;

  record::RecordTree const& m_tree;
  SchemaRules const& m_rules;
};

}  // namespace fdmorph::docschema

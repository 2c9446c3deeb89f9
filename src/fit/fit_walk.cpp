#include "fit/fit_walk.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "fit/content_rules.h"
#include "fit/text_rules.h"
#include "fit/walk_context.h"

namespace fdmorph::fit {
namespace {

using record::RecordNode;
using record::Role;

class Walk {
 public:
  explicit Walk(WalkContext& context) : m_context(context) {}

  void start(std::string const& schemaFile) {
    RecordNode const& root = m_context.tree.root();
    SchemaElement const* element = findRootElement(m_context.tree, m_context.model);
    if (element != nullptr) {
      checkElement(0, *element);
      return;
    }
    Finding finding;
    finding.code = FindingCode::noElement;
    finding.path = m_context.tree.xmlPath(0);
    finding.text = root.role == Role::element
                       ? "the schema has no global element " + compiler::quoted(root.name)
                       : "the record has no XML name";
    finding.itemSide = "record " + std::string(record::dataNameOf(*root.item));
    finding.item = root.item->place;
    finding.schema.file = schemaFile;
    m_context.add(std::move(finding));
  }

 private:
  // The recursion is bounded by the number of levels of a record.
  void checkElement(std::uint32_t node, SchemaElement const& element) {
    SchemaType const& type = m_context.model.typeOf(element);
    RecordParts const parts = partsOf(m_context.tree, node);
    Subject const subject{node, element, type, parts};
    noteElement(subject);
    bool const isEmpty = parts.elements.empty() && parts.attributes.empty() && parts.values.empty();
    bool const isOpen = m_open.contains(&type);
    if (isOpen && isEmpty && type.particle) {
      m_context.add(
          subject, FindingCode::recursive,
          "documents may nest deeper than the record: " + nameOfType(type) + " contains itself");
    }
    checkText(m_context, subject);
    checkAttributes(m_context, subject);
    if (!isOpen) m_open.insert(&type);
    for (auto const& [part, inner] : checkContent(m_context, subject, m_open)) {
      for (std::uint32_t slot : part->nodes) checkElement(slot, *inner);
    }
    if (!isOpen) m_open.erase(&type);
  }

  void noteElement(Subject const& subject) {
    if (subject.element.isNillable) {
      m_context.add(subject, FindingCode::nillable, "the element may be nil");
    }
    if (subject.type.hasDerived || subject.type.isAbstract) {
      m_context.add(subject, FindingCode::substitution,
                    "documents may name a type that is derived from " + nameOfType(subject.type));
    }
  }

  static std::string nameOfType(SchemaType const& type) {
    return type.name.local.empty() ? "its type" : "type " + compiler::quoted(type.name.local);
  }

  WalkContext& m_context;
  std::unordered_set<SchemaType const*> m_open;  // of the elements around the present one
};

}  // namespace

SchemaElement const* findRootElement(record::RecordTree const& tree, SchemaModel const& model) {
  RecordNode const& root = tree.root();
  if (root.role != Role::element) return nullptr;
  SchemaName const name{std::string(root.name), std::string(root.namespaceUri)};
  if (SchemaElement const* exact = model.globalElement(name)) return exact;
  SchemaElement const* other = nullptr;
  for (SchemaElement const* each : model.globalElements()) {
    bool const isNamed = each->name.local == root.name;
    if (isNamed && (other == nullptr || each->name.space < other->name.space)) other = each;
  }
  return other;
}

Repairs checkFit(record::RecordTree const& tree, SchemaModel& model, std::string const& schemaFile,
                 FitOptions const& options, Findings& findings) {
  Repairs repairs;
  WalkContext context{tree, model, options, findings, repairs, {}};
  Walk(context).start(schemaFile);
  return repairs;
}

}  // namespace fdmorph::fit

#include "docschema/xml_schema.h"

#include <deque>
#include <unordered_map>

#include "docschema/condition_values.h"
#include "docschema/determinism.h"
#include "docschema/document_parts.h"
#include "docschema/schema_file.h"
#include "docschema/simple_types.h"

namespace fdmorph::docschema {
namespace {

using compiler::DataItem;
using record::RecordTree;
using ParticleKind = Particle::Kind;

std::string occurrenceText(std::uint64_t count) {
  return count == kUnbounded ? "unbounded" : std::to_string(count);
}

void setOccurs(Markup& markup, std::uint64_t least, std::uint64_t most) {
  if (least != 1) markup.set("minOccurs", std::to_string(least));
  if (most != 1) markup.set("maxOccurs", occurrenceText(most));
}

void setType(Markup& element, SimpleType type) {
  if (type.builtIn.empty()) {
    element.add(std::move(type.definition));
  } else {
    element.set("type", type.builtIn);
  }
}

/// Writes the files of a schema.
///
/// A local element of a schema file is in its namespace or in none. One of another
/// namespace is in a group of that namespace's file, so that elements of one name may
/// have different types at different places. Attributes are the same.
class SchemaWriter {
 public:
  explicit SchemaWriter(SchemaRules const& rules) : m_rules(rules) {}

  std::vector<SchemaFile> write(std::vector<RecordTree> const& records) {
    NamespaceFile& main = fileOf(m_rules.wrapper ? "" : records.front().root().namespaceUri);
    Markup content{records.size() == 1 ? "xs:sequence" : "xs:choice"};
    if (records.size() != 1) setOccurs(content, 0, kUnbounded);
    for (RecordTree const& each : records) {
      Markup& part = content.add(addRecord(each, main));
      if (records.size() == 1) setOccurs(part, 0, kUnbounded);
    }
    if (m_rules.wrapper) {
      Markup wrapper{"xs:element"};
      wrapper.set("name", *m_rules.wrapper);
      wrapper.add({"xs:complexType"}).add(std::move(content));
      main.addElement(std::move(wrapper));
    }
    std::vector<SchemaFile> files;
    for (NamespaceFile const& each : m_files) files.push_back({each.name(), each.print()});
    return files;
  }

 private:
  // Adds a global element. The result refers to it.
  Markup addRecord(RecordTree const& tree, NamespaceFile& main) {
    m_parts.emplace(tree, m_rules);
    Particle record{ParticleKind::element};
    record.name = {tree.root().namespaceUri, tree.root().name};
    record.nodes = {0};
    NamespaceFile& file = fileOf(record.name.namespaceUri);
    main.import(file);
    Names names;
    Markup element = declarationOf(record, file, names);
    // The wrapper may have the name of a record, which is then a part of it.
    bool const isHidden = &file == &main && m_rules.wrapper == record.name.local;
    if (isHidden) return element;
    Markup reference{"xs:element"};
    reference.set("ref", file.qualified(record.name.local));
    file.addElement(std::move(element));
    return reference;
  }

  // The file of a namespace; that of the main file if there is none.
  NamespaceFile& fileOf(std::string_view namespaceUri) {
    for (NamespaceFile& each : m_files) {
      if (each.namespaceUri() == namespaceUri) return each;
    }
    std::string prefix;
    if (!namespaceUri.empty()) prefix = "n" + std::to_string(++m_prefixes);
    if (namespaceUri == kXmlNamespace) prefix = "xml";
    std::string name = "schema";
    if (!m_files.empty()) name += "-" + std::to_string(m_files.size());
    return m_files.emplace_back(namespaceUri, std::move(prefix), name + ".xsd");
  }

  /// The names of the types that several elements of one content model share.
  using Names = std::unordered_map<QName, std::string, QNameHash>;

  // The recursion is bounded by the number of levels.
  Markup particleOf(Particle const& particle, NamespaceFile& file, Names& names) {
    if (particle.isElement()) return elementOf(particle, file, names);
    Markup group{particle.kind == ParticleKind::sequence ? "xs:sequence" : "xs:choice"};
    bool const isList = particle.kind == ParticleKind::anyOrder;
    if (isList || particle.isOptional) group.set("minOccurs", "0");
    if (isList) group.set("maxOccurs", "unbounded");
    if (!particle.comment.empty()) group.add(commentOf(particle.comment));
    for (Particle const& each : particle.parts) {
      bool const isGroup = each.kind == ParticleKind::sequence && each.comment.empty();
      bool const isOne = isGroup && each.parts.size() == 1;
      group.add(particleOf(isOne ? each.parts.front() : each, file, names));
    }
    return group;
  }

  Markup elementOf(Particle const& element, NamespaceFile& file, Names& names) {
    std::string_view const namespaceUri = element.name.namespaceUri;
    if (namespaceUri.empty() || namespaceUri == file.namespaceUri()) {
      return localElementOf(element, file, names);
    }
    NamespaceFile& other = fileOf(namespaceUri);
    file.import(other);
    Markup group{"xs:group"};
    group.add({"xs:sequence"}).add(localElementOf(element, other, names));
    Markup reference{"xs:group"};
    reference.set("ref", other.qualified(other.define(std::move(group), element.name.local)));
    return reference;
  }

  Markup localElementOf(Particle const& element, NamespaceFile& file, Names& names) {
    Markup markup = declarationOf(element, file, names);
    bool const isUnqualified = element.name.namespaceUri.empty() && file.hasNamespace();
    if (isUnqualified) markup.set("form", "unqualified");
    if (!element.isWrittenOut) {
      setOccurs(markup, element.least, element.most);
      return markup;
    }
    Markup list{"xs:sequence"};
    for (std::uint64_t i = 0; i < element.least; ++i) list.add(markup);
    if (element.least < element.most) {
      list.add(commentOf("at most " + std::to_string(element.most) + " in all"));
      setOccurs(list.add(std::move(markup)), 0, kUnbounded);
    }
    return list;
  }

  Markup declarationOf(Particle const& element, NamespaceFile& file, Names& names) {
    Markup markup{"xs:element"};
    markup.set("name", element.name.local);
    Particle distinct = element;
    distinct.nodes = m_parts->distinct(element.nodes);
    Parts parts = m_parts->partsOf(distinct);
    for (std::uint32_t each : element.nodes) {
      DataItem const* item = m_parts->tree().nodes()[each].item;
      if (item->isGroup()) parts.items.push_back(item);
    }
    addConditions(markup, parts.items);
    if (!element.isShared) {
      addType(markup, parts, element.name.local, file);
      return markup;
    }
    auto known = names.find(element.name);
    if (known == names.end()) {
      std::string name = defineType(parts, element.name.local, file);
      known = names.emplace(element.name, std::move(name)).first;
    }
    markup.set("type", known->second);
    return markup;
  }

  // The conditions that no enumeration has, each as a text.
  void addConditions(Markup& markup, std::vector<DataItem const*> const& items) const {
    Markup annotation{"xs:annotation"};
    for (DataItem const* each : items) {
      bool const isEnumerated = !each->isGroup() && !valueTypeOf(*each, m_rules).values.empty();
      if (isEnumerated) continue;
      for (std::string& line : conditionLines(*each)) {
        annotation.add({"xs:documentation"}).text = std::move(line);
      }
    }
    if (!annotation.parts.empty()) markup.add(std::move(annotation));
  }

  static bool isSimple(Parts const& parts) {
    return parts.hasText() && !parts.hasElements() && parts.attributes.empty();
  }

  void addType(Markup& element, Parts& parts, std::string_view name, NamespaceFile& file) {
    if (isSimple(parts)) {
      setType(element, simpleTypeOf(parts.texts, parts.mayLackText));
    } else {
      element.add(complexTypeOf(parts, name, file));
    }
  }

  // A named type; the result is its name as a reference.
  std::string defineType(Parts& parts, std::string_view name, NamespaceFile& file) {
    if (!isSimple(parts)) {
      return file.qualified(file.define(complexTypeOf(parts, name, file), name));
    }
    return nameOf(simpleTypeOf(parts.texts, parts.mayLackText), name, file);
  }

  static std::string nameOf(SimpleType type, std::string_view name, NamespaceFile& file) {
    if (!type.builtIn.empty()) return type.builtIn;
    return file.qualified(file.defineOnce(std::move(type.definition), name));
  }

  Markup complexTypeOf(Parts& parts, std::string_view name, NamespaceFile& file) {
    Markup type{"xs:complexType"};
    if (parts.hasElements()) {
      if (parts.hasText()) type.set("mixed", "true");
      makeDeterministic(parts.content);
      makeConsistent(parts.content);
      Names names;
      Markup content = particleOf(parts.content, file, names);
      // Another element of the same type may have just a text.
      if (parts.hasText()) content.set("minOccurs", "0");
      type.add(std::move(content));
      addAttributes(type, parts, name, file);
    } else if (parts.hasText()) {
      Markup extension{"xs:extension"};
      extension.set("base", nameOf(simpleTypeOf(parts.texts, parts.mayLackText), name, file));
      addAttributes(extension, parts, name, file);
      type.add({"xs:simpleContent"}).add(std::move(extension));
    } else {
      addAttributes(type, parts, name, file);
    }
    return type;
  }

  void addAttributes(Markup& type, Parts const& parts, std::string_view name, NamespaceFile& file) {
    for (AttributeUse const& each : parts.attributes) {
      std::string_view const namespaceUri = each.name.namespaceUri;
      Markup attribute = attributeOf(each);
      if (namespaceUri.empty()) {
        type.add(std::move(attribute));
        continue;
      }
      attribute.set("form", "qualified");
      if (namespaceUri == file.namespaceUri()) {
        type.add(std::move(attribute));
        continue;
      }
      NamespaceFile& other = fileOf(namespaceUri);
      file.import(other);
      Markup group{"xs:attributeGroup"};
      group.add(std::move(attribute));
      type.add({"xs:attributeGroup"})
          .set("ref", other.qualified(other.define(std::move(group), name)));
    }
  }

  [[nodiscard]] Markup attributeOf(AttributeUse const& use) const {
    Markup attribute{"xs:attribute"};
    attribute.set("name", use.name.local);
    if (use.isRequired) attribute.set("use", "required");
    addConditions(attribute, use.items);
    if (!use.types.empty()) setType(attribute, simpleTypeOf(use.types, use.mayLackText));
    return attribute;
  }

  SchemaRules const& m_rules;
  std::deque<NamespaceFile> m_files;  // the first is the main one
  std::optional<DocumentParts> m_parts;
  int m_prefixes = 0;
};

}  // namespace

std::vector<SchemaFile> writeXmlSchema(std::vector<RecordTree> const& records,
                                       SchemaRules const& rules) {
  return SchemaWriter(rules).write(records);
}

}  // namespace fdmorph::docschema

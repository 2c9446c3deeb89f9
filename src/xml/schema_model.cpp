#include "xml/schema_model.h"

#include <algorithm>
#include <deque>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "xml/content_specs.h"
#include "xml/schema_grammars.h"
#include "xml/simple_types.h"

namespace fdmorph {
namespace {

using NodeKind = SchemaNode::Kind;
using TypeSource = xerces::ComplexTypeInfo;
using ElementSource = xerces::SchemaElementDecl;
using xerces::SchemaSymbols;

struct ElementEntry;

struct TypeEntry : SchemaType {
  ElementEntry* owner = nullptr;  // the element that an anonymous type is for
};

struct ElementEntry : SchemaElement {
  ElementSource* source = nullptr;
  TypeEntry const* scope = nullptr;  // the type in which a local element was found
  TypeEntry const* type = nullptr;   // null until it is asked for
  std::optional<SchemaPlaces::Index> node;
};

// The entries are all made by one model, which lends them as constants.
ElementEntry& entryOf(SchemaElement const& element) {
  return const_cast<ElementEntry&>(static_cast<ElementEntry const&>(element));
}

// The derivation steps between the types of two elements that their head forbids.
bool isSubstituteBlocked(ElementSource const& member, ElementSource const& head) {
  int block = head.getBlockSet();
  TypeSource const* const target = head.getComplexTypeInfo();
  if (target != nullptr) block |= target->getBlockSet();
  TypeSource const* type = member.getComplexTypeInfo();
  if (type == nullptr) {
    bool const isSame = member.getDatatypeValidator() == head.getDatatypeValidator();
    return !isSame && (block & SchemaSymbols::XSD_RESTRICTION) != 0;
  }
  for (; type != nullptr && type != target; type = type->getBaseComplexTypeInfo()) {
    if ((type->getDerivedBy() & block) != 0) return true;
  }
  return false;
}

ContentKind contentOf(TypeSource const& source) {
  switch (source.getContentType()) {
    case ElementSource::Simple:
      return ContentKind::text;
    case ElementSource::Children:
      return ContentKind::elements;
    case ElementSource::Mixed_Simple:
    case ElementSource::Mixed_Complex:
    case ElementSource::Any:
      return ContentKind::mixed;
    default:
      return ContentKind::empty;
  }
}

}  // namespace

bool SchemaWildcard::admits(std::string const& space) const {
  bool const isNamed = std::ranges::find(spaces, space) != spaces.end();
  return isNamed != isNegative;
}

class SchemaModel::Impl {
 public:
  Impl(std::string const& fileName, InputFiles& files, LocationResolver* resolver)
      : m_grammars(fileName, files, resolver) {}

  /// False if the schema cannot be used.
  bool load();
  std::vector<SchemaReport> reports() const { return m_grammars.reports(); }

  std::vector<SchemaElement const*> const& globals() const { return m_globals; }
  SchemaElement const* global(SchemaName const& name) const;
  TypeEntry const& typeOf(ElementEntry& element);
  std::vector<SchemaElement const*> const& substitutesOf(SchemaElement const& head);
  SchemaPlace placeOf(ElementEntry& element) { return shown(nodeOf(element)); }
  SchemaPlace placeOf(SchemaAttribute const& attribute, ElementEntry& owner);

 private:
  void noteGlobals();
  void noteMembers();
  void noteBases();
  ElementEntry* elementOf(ElementSource& source, TypeEntry const* scope);
  void fill(TypeEntry& type, ElementSource& source);
  void fill(TypeEntry& type, TypeSource& source);
  void addAttributes(TypeEntry& type, TypeSource& source);
  SchemaParticle particleOf(xerces::ContentSpecNode const& source, TypeEntry const& scope);
  SchemaPlaces::Index scopeOf(TypeEntry const& type);
  SchemaPlaces::Index nodeOf(ElementEntry& element);
  SchemaPlace shown(SchemaPlaces::Index node);

  SchemaGrammars m_grammars;
  SimpleTypes m_simpleTypes;
  std::deque<ElementEntry> m_elements;
  std::deque<TypeEntry> m_types;
  std::vector<SchemaElement const*> m_globals;
  std::unordered_map<std::string, SchemaElement const*> m_globalNames;
  std::unordered_map<ElementSource const*, ElementEntry*> m_knownElements;
  std::unordered_map<void const*, TypeEntry*> m_knownTypes;
  std::unordered_map<std::string, std::string> m_shownNames;  // of files
  std::unordered_set<TypeSource const*> m_bases;              // of other complex types
  std::unordered_map<SchemaElement const*, std::vector<SchemaElement const*>> m_members;
  std::unordered_map<SchemaElement const*, std::vector<SchemaElement const*>> m_substitutes;
};

bool SchemaModel::Impl::load() {
  if (!m_grammars.load()) return false;
  noteGlobals();
  noteMembers();
  noteBases();
  return true;
}

static std::string keyOf(SchemaName const& name) {
  return name.space + ' ' + name.local;
}

void SchemaModel::Impl::noteGlobals() {
  for (xerces::SchemaGrammar* grammar : m_grammars.grammars()) {
    auto declared = grammar->getElemEnumerator();
    while (declared.hasMoreElements()) {
      ElementSource& source = declared.nextElement();
      if (source.getEnclosingScope() != xerces::Grammar::TOP_LEVEL_SCOPE) continue;
      ElementEntry* entry = elementOf(source, nullptr);
      m_globals.push_back(entry);
      m_globalNames.emplace(keyOf(entry->name), entry);
    }
  }
}

void SchemaModel::Impl::noteMembers() {
  for (SchemaElement const* member : m_globals) {
    ElementSource* head = entryOf(*member).source->getSubstitutionGroupElem();
    if (head == nullptr || (head->getBlockSet() & SchemaSymbols::XSD_SUBSTITUTION) != 0) continue;
    ElementEntry* entry = elementOf(*head, nullptr);
    entry->isHead = true;
    m_members[entry].push_back(member);
  }
}

void SchemaModel::Impl::noteBases() {
  for (xerces::SchemaGrammar* grammar : m_grammars.grammars()) {
    if (grammar->getComplexTypeRegistry() == nullptr) continue;
    xerces::RefHashTableOfEnumerator<TypeSource> types(grammar->getComplexTypeRegistry());
    while (types.hasMoreElements()) m_bases.insert(types.nextElement().getBaseComplexTypeInfo());
  }
}

SchemaElement const* SchemaModel::Impl::global(SchemaName const& name) const {
  auto found = m_globalNames.find(keyOf(name));
  return found == m_globalNames.end() ? nullptr : found->second;
}

ElementEntry* SchemaModel::Impl::elementOf(ElementSource& source, TypeEntry const* scope) {
  auto [known, isNew] = m_knownElements.try_emplace(&source);
  if (!isNew) return known->second;
  ElementEntry& entry = m_elements.emplace_back();
  known->second = &entry;
  entry.name = {toUtf8(source.getBaseName()), m_grammars.spaceOf(source.getURI())};
  entry.isGlobal = source.getEnclosingScope() == xerces::Grammar::TOP_LEVEL_SCOPE;
  entry.isNillable = (source.getMiscFlags() & SchemaSymbols::XSD_NILLABLE) != 0;
  entry.isAbstract = (source.getMiscFlags() & SchemaSymbols::XSD_ABSTRACT) != 0;
  entry.source = &source;
  entry.scope = entry.isGlobal ? nullptr : scope;
  return &entry;
}

TypeEntry const& SchemaModel::Impl::typeOf(ElementEntry& element) {
  if (element.type != nullptr) return *element.type;
  ElementSource& source = *element.source;
  void const* key = source.getComplexTypeInfo();
  if (key == nullptr) key = source.getDatatypeValidator();
  auto [known, isNew] = m_knownTypes.try_emplace(key);
  if (isNew) {
    TypeEntry& type = m_types.emplace_back();
    known->second = &type;
    type.owner = &element;
    fill(type, source);
  }
  element.type = known->second;
  return *element.type;
}

void SchemaModel::Impl::fill(TypeEntry& type, ElementSource& source) {
  if (source.getComplexTypeInfo() != nullptr) {
    fill(type, *source.getComplexTypeInfo());
  } else if (xerces::DatatypeValidator* text = source.getDatatypeValidator()) {
    type.content = ContentKind::text;
    type.text = m_simpleTypes.of(*text);
    if (!text->getAnonymous()) type.name.local = type.text->name;
  } else {
    type.isAny = true;
    type.content = ContentKind::mixed;
  }
}

void SchemaModel::Impl::fill(TypeEntry& type, TypeSource& source) {
  if (!source.getAnonymous()) {
    type.name = {toUtf8(source.getTypeLocalName()), toUtf8(source.getTypeUri())};
  }
  type.isAny = type.name == SchemaName{"anyType", toUtf8(SchemaSymbols::fgURI_SCHEMAFORSCHEMA)};
  type.isAbstract = source.getAbstract();
  type.hasDerived = !type.isAny && m_bases.contains(&source);
  type.content = contentOf(source);
  if (type.content == ContentKind::text && source.getDatatypeValidator() != nullptr) {
    type.text = m_simpleTypes.of(*source.getDatatypeValidator());
  }
  if (xerces::ContentSpecNode const* content = source.getContentSpec()) {
    type.particle = particleOf(*content, type);
  }
  addAttributes(type, source);
}

void SchemaModel::Impl::addAttributes(TypeEntry& type, TypeSource& source) {
  if (xerces::SchemaAttDef const* any = source.getAttWildCard()) {
    type.anyAttribute = wildcardOf(*any, m_grammars);
  }
  if (!source.hasAttDefs()) return;
  xerces::XMLAttDefList& declared = source.getAttDefList();
  for (XMLSize_t i = 0; i < declared.getAttDefCount(); ++i) {
    auto& each = static_cast<xerces::SchemaAttDef&>(declared.getAttDef(i));
    xerces::XMLAttDef::DefAttTypes const use = each.getDefaultType();
    if (use == xerces::XMLAttDef::Prohibited || each.getDatatypeValidator() == nullptr) continue;
    SchemaAttribute attribute;
    attribute.name = {toUtf8(each.getAttName()->getLocalPart()),
                      m_grammars.spaceOf(each.getAttName()->getURI())};
    attribute.isRequired =
        use == xerces::XMLAttDef::Required || use == xerces::XMLAttDef::Required_And_Fixed;
    attribute.type = m_simpleTypes.of(*each.getDatatypeValidator());
    type.attributes.push_back(std::move(attribute));
  }
}

SchemaParticle SchemaModel::Impl::particleOf(xerces::ContentSpecNode const& source,
                                             TypeEntry const& scope) {
  SchemaParticle particle;
  particle.kind = kindOf(source);
  particle.least = static_cast<std::uint64_t>(std::max(source.getMinOccurs(), 0));
  particle.most = source.getMaxOccurs() == SchemaSymbols::XSD_UNBOUNDED
                      ? kUnbounded
                      : static_cast<std::uint64_t>(source.getMaxOccurs());
  switch (particle.kind) {
    case SchemaParticle::Kind::element: {
      auto const* declared = static_cast<ElementSource const*>(source.getElementDecl());
      if (declared != nullptr) {
        particle.element = elementOf(const_cast<ElementSource&>(*declared), &scope);
      }
      break;
    }
    case SchemaParticle::Kind::wildcard:
      particle.wildcard = wildcardOf(source, m_grammars);
      break;
    default:
      for (xerces::ContentSpecNode const* part : partsOf(source)) {
        particle.parts.push_back(particleOf(*part, scope));
      }
      break;
  }
  return particle;
}

std::vector<SchemaElement const*> const& SchemaModel::Impl::substitutesOf(
    SchemaElement const& head) {
  auto [entry, isNew] = m_substitutes.try_emplace(&head);
  std::vector<SchemaElement const*>& found = entry->second;
  if (!isNew) return found;
  std::unordered_set<SchemaElement const*> seen{&head};
  std::vector<SchemaElement const*> pending{&head};
  while (!pending.empty()) {
    auto const direct = m_members.find(pending.back());
    pending.pop_back();
    if (direct == m_members.end()) continue;
    for (SchemaElement const* member : direct->second) {
      if (!seen.insert(member).second) continue;
      bool const isBlocked = isSubstituteBlocked(*entryOf(*member).source, *entryOf(head).source);
      if (!member->isAbstract && !isBlocked) found.push_back(member);
      pending.push_back(member);
    }
  }
  return found;
}

SchemaPlaces::Index SchemaModel::Impl::scopeOf(TypeEntry const& type) {
  if (type.name.local.empty()) return nodeOf(*type.owner);
  return m_grammars.places().global(NodeKind::complexType, type.name);
}

SchemaPlaces::Index SchemaModel::Impl::nodeOf(ElementEntry& element) {
  if (element.node) return *element.node;
  SchemaPlaces::Index node;
  if (element.scope == nullptr) {
    node = m_grammars.places().global(NodeKind::element, element.name);
  } else if (SchemaPlaces::Index scope = scopeOf(*element.scope)) {
    node = m_grammars.places().local(*scope, NodeKind::element, element.name.local);
  }
  element.node = node;
  return node;
}

SchemaPlace SchemaModel::Impl::placeOf(SchemaAttribute const& attribute, ElementEntry& owner) {
  if (SchemaPlaces::Index scope = scopeOf(typeOf(owner))) {
    SchemaPlaces& places = m_grammars.places();
    SchemaPlaces::Index node = places.local(*scope, NodeKind::attribute, attribute.name.local);
    if (node) return shown(node);
  }
  return placeOf(owner);
}

SchemaPlace SchemaModel::Impl::shown(SchemaPlaces::Index node) {
  if (!node) return {};
  SchemaPlace place = m_grammars.places().placeOf(*node);
  auto [known, isNew] = m_shownNames.try_emplace(place.file);
  if (isNew) known->second = m_grammars.names().shown(place.file);
  place.file = known->second;
  return place;
}

SchemaModel::SchemaModel(std::unique_ptr<Impl> impl) : m_impl(std::move(impl)) {}
SchemaModel::~SchemaModel() = default;

LoadedSchema SchemaModel::load(std::string const& fileName, InputFiles& files,
                               LocationResolver* resolver) {
  auto impl = std::make_unique<Impl>(fileName, files, resolver);
  bool const isLoaded = impl->load();
  std::vector<SchemaReport> reports = impl->reports();
  std::unique_ptr<SchemaModel> model;
  if (isLoaded) model.reset(new SchemaModel(std::move(impl)));
  return {std::move(model), std::move(reports)};
}

std::vector<SchemaElement const*> const& SchemaModel::globalElements() const {
  return m_impl->globals();
}

SchemaElement const* SchemaModel::globalElement(SchemaName const& name) const {
  return m_impl->global(name);
}

SchemaType const& SchemaModel::typeOf(SchemaElement const& element) {
  return m_impl->typeOf(entryOf(element));
}

std::vector<SchemaElement const*> const& SchemaModel::substitutesOf(SchemaElement const& head) {
  return m_impl->substitutesOf(head);
}

SchemaPlace SchemaModel::placeOf(SchemaElement const& element) {
  return m_impl->placeOf(entryOf(element));
}

SchemaPlace SchemaModel::placeOf(SchemaAttribute const& attribute, SchemaElement const& owner) {
  return m_impl->placeOf(attribute, entryOf(owner));
}

}  // namespace fdmorph

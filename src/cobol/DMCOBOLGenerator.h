// The conversion of an XML Schema into COBOL record text.
//
// GenerateFile chooses the output and starts the walk on the `schema` element.
// The walk finds the head elements, builds one tree of record items for each,
// writes it and lets it go. Below a head element the walker dispatches each
// schema element to the Process routine of its kind, which works on the item
// in the frame's slot and tells, through the frame, how the walk goes on:
// with another element, with the element's children, or not at all.
//
// A conversion failure never ends the run. It is one line on the error stream;
// the item concerned is removed or left out, and the walk goes on.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "cobol/DMCOBOLRecordItem.h"
#include "cobol/generator_kind.h"
#include "cobol/open_definitions.h"
#include "cobol/record_store.h"
#include "schema/DMXMLSchemaDoc.h"

namespace fdmorph {

/// Where the slot of a walk is: a place that holds the item under which new
/// items are hung, or null. Routines may change what it holds.
using ItemSlot = CDMCOBOLRecordItem*;

/// The state of one visit of the walker.
struct WalkFrame {
  unsigned level;   ///< COBOL level number of the next new item
  unsigned indent;  ///< blanks in front of that level number
  ItemSlot& slot;
  bool walkChildren = false;             ///< go on with the element's children
  CDMXMLElement* nextElement = nullptr;  ///< go on here instead
};

struct UnionMembers;

/// The lists of a schema document that a search can name.
enum class Search : unsigned {
  complexTypes = 1,
  simpleTypes = 2,
  elements = 3,
  attributes = 4,
  groups = 5,
  attributeGroups = 6,
  substitutionGroupElements = 7,
  redefinedElements = 10,
};

class CDMCOBOLGenerator {
 public:
  CDMCOBOLGenerator() = default;

  /// Converts `document`, which must outlive the generator; null is ignored.
  explicit CDMCOBOLGenerator(CDMXMLSchemaDoc* document);

  /// Writes the records of the document to the file, or to the console if the
  /// name is empty or the file can't be opened. `prefix` goes in front of data
  /// names; `countInClauses` and `unique` as in RecordOutput. True if the
  /// output went to a file; says nothing about the conversion.
  bool GenerateFile(std::string const& fileName, std::string const& prefix, bool countInClauses,
                    bool unique);

  /// Appends the global elements that no element refers to, each of which
  /// becomes a record, and reports when there isn't exactly one. Returns the
  /// only one, or null.
  CDMXMLElement* getSchemaHeadElement(std::vector<CDMXMLElement*>& headElements);

  /// Gives `item` the picture symbol or usage of a built-in type, seen from
  /// the item's schema element; any other type changes nothing. True for the
  /// character and the unsigned types only.
  bool convertXMLtoCOBOL(CDMCOBOLRecordItem* item, std::string_view typeName);

  // Namespaces and types. Namespaces are views of the schema's text.

  /// The target namespace that applies to `element`. False for null.
  bool getElementNamespace(CDMXMLElement const* element, std::string_view& uri) const;

  /// The namespace bound to the prefix of `typeName`, seen from `element`.
  /// False if the prefix is undeclared.
  bool getTypeNamespace(CDMXMLElement const* element, std::string_view typeName,
                        std::string_view& uri) const;

  /// The value of the nearest attribute of this name, from `element` upward.
  /// Where there is none, "xmlns" and "targetNamespace" give the main schema's
  /// target namespace, and any other name gives false.
  bool getNamespaceURI(CDMXMLElement const* element, std::string_view attributeName,
                       std::string_view& uri) const;

  /// Whether `typeName`, seen from `element`, is a built-in type with a COBOL
  /// form.
  bool isSupportedDefaultSchemaType(CDMXMLElement const* element, std::string_view typeName) const;

  static GeneratorElementKind getElementType(CDMXMLElement const* element) {
    return generatorElementKind(element);
  }

  // Searches.

  /// The global component that `name` stands for at `element`; null if the
  /// prefix is undeclared or nothing of the name is in the list searched.
  CDMXMLElement* findElementByName(CDMXMLElement const* element, std::string_view name,
                                   Search search) const;

  static bool findAttrByName(CDMXMLElement const* element, std::string_view name,
                             std::string_view& value) {
    return fdmorph::findAttrByName(element, name, value);
  }

  /// Whether global elements of the main document name the item's element as
  /// the head of their substitution group; they are appended to `members` if
  /// that isn't null.
  bool elementHasSubGroup(CDMCOBOLRecordItem const* item,
                          std::vector<CDMXMLElement*>* members) const;

  /// Whether following the `ref` or `type` of the item's schema element would
  /// lead into a structure that is already open above the item.
  bool isRecursivePattern(CDMCOBOLRecordItem const* item) const;

  // One-line diagnostics on the standard output stream; no conversion uses
  // them.

  static void writeIndent(unsigned count);
  static void writeLevelNumber(unsigned level);
  static bool writeRecordName(std::string const& name);
  static bool writeCOBOLType(std::string const& type);
  static bool writeIdentifiedBy(std::string const& name);
  static void writeIsAttribute(bool isAttribute);
  static void writeRecordItem(std::string const& name, std::string const& identifiedBy,
                              std::string const& type, unsigned level, unsigned indent,
                              bool isAttribute);

  /// Prints a schema tree on the error stream, a line an element.
  static void dumpElement(CDMXMLElement const* element, bool recurse, std::string const& indent);

 private:
  using Scope = OpenDefinitions::Scope;

  // The walker (schema_walker.cpp, type_content.cpp).
  bool isReady() const;
  CDMCOBOLRecordItem* getCOBOLFromSchema(CDMXMLElement* element, unsigned level, unsigned indent,
                                         ItemSlot& currentItem);
  CDMCOBOLRecordItem* dispatch(CDMXMLElement* element, WalkFrame& frame);
  CDMCOBOLRecordItem* followNextElement(CDMCOBOLRecordItem* item, WalkFrame& frame);
  CDMCOBOLRecordItem* visitChildren(CDMXMLElement* element, CDMCOBOLRecordItem* item,
                                    unsigned level, unsigned indent, ItemSlot& slot);
  void convertSchema(CDMXMLElement* element, WalkFrame& frame);
  bool convertHeadElement(CDMXMLElement* element, WalkFrame const& frame);
  bool ProcessSchemaElement(CDMXMLElement const* element, bool& walkChildren);
  CDMCOBOLRecordItem* enterTypeDefinition(CDMXMLElement* element, WalkFrame& frame);
  void addMixedValue(CDMCOBOLRecordItem* item);
  void moveValueToChild(CDMXMLElement const* element, CDMCOBOLRecordItem* item);
  CDMCOBOLRecordItem* makeValueItem(CDMCOBOLRecordItem* item);
  void prune(CDMXMLElement const* element, ItemSlot& slot);

  // Linking of items (item_linking.cpp).
  CDMCOBOLRecordItem* findOrMakeItem(CDMXMLElement* element, WalkFrame& frame, bool& isNew);
  void refuse(CDMCOBOLRecordItem* item, ItemSlot& slot);
  void setNames(CDMCOBOLRecordItem* item, CDMXMLElement* element, std::string_view name);
  void setElementNamespace(CDMCOBOLRecordItem* item, CDMXMLElement const* element) const;
  void setBuiltinPicture(CDMCOBOLRecordItem* item, std::string_view typeName);
  static void setDefaultSize(CDMCOBOLRecordItem* item);
  static void reportRecursion(std::string_view name);
  static void reportMissingReference(std::string_view name);
  static void reportUnconstrainedType(std::string_view name);

  // Elements and attributes.
  CDMCOBOLRecordItem* ProcessElementElement(CDMXMLElement* element, WalkFrame& frame);
  CDMCOBOLRecordItem* convertBuiltinElement(CDMXMLElement* element, std::string_view type,
                                            CDMCOBOLRecordItem* item, WalkFrame& frame);
  CDMCOBOLRecordItem* convertInlineElement(CDMXMLElement* element, std::string_view name,
                                           CDMCOBOLRecordItem* item, WalkFrame& frame);
  CDMCOBOLRecordItem* convertReferringElement(CDMXMLElement* element, std::string_view ref,
                                              CDMCOBOLRecordItem* item, WalkFrame& frame);
  CDMCOBOLRecordItem* ProcessAttributeElement(CDMXMLElement* element, WalkFrame& frame);
  CDMCOBOLRecordItem* convertReferringAttribute(CDMXMLElement* element, std::string_view ref,
                                                CDMCOBOLRecordItem* item, WalkFrame& frame);
  CDMCOBOLRecordItem* followNamedType(CDMXMLElement* element, std::string_view type,
                                      CDMCOBOLRecordItem* item, WalkFrame& frame);
  static CDMCOBOLRecordItem* goBelow(CDMCOBOLRecordItem* item, WalkFrame& frame);

  // Substitution groups.
  enum class MemberResult { listedAgain, dropped };
  CDMCOBOLRecordItem* walkSubstitution(CDMXMLElement* head, CDMCOBOLRecordItem* item,
                                       std::vector<CDMXMLElement*> const& members, MemberResult use,
                                       WalkFrame& frame);
  void walkMemberInSlot(CDMXMLElement* member, MemberResult use, WalkFrame& frame);
  void walkMemberAsSibling(CDMXMLElement* member, CDMCOBOLRecordItem* parent,
                           WalkFrame const& frame);

  // Model groups, unions, derivation and facets.
  CDMCOBOLRecordItem* ProcessModelGroup(CDMXMLElement* element, WalkFrame& frame);
  CDMCOBOLRecordItem* convertGroup(CDMXMLElement* element, WalkFrame& frame, Search definitions);
  CDMCOBOLRecordItem* walkDefinition(CDMXMLElement* definition, std::string_view text,
                                     unsigned level, unsigned indent, ItemSlot& slot);
  CDMCOBOLRecordItem* ProcessElementUnion(CDMXMLElement* element, WalkFrame& frame);
  bool convertNamedMember(CDMXMLElement* element, std::string_view type, UnionMembers& members,
                          WalkFrame const& frame);
  void convertInlineMember(CDMXMLElement* element, CDMXMLElement* simpleType, UnionMembers& members,
                           WalkFrame const& frame);
  CDMCOBOLRecordItem* ProcessElementRestriction(CDMXMLElement* element, WalkFrame& frame);
  void restrictNamedType(CDMXMLElement* element, std::string_view base, WalkFrame& frame);
  CDMCOBOLRecordItem* ProcessElementExtension(CDMXMLElement* element, WalkFrame& frame);
  CDMXMLElement* findRedefinedBase(CDMXMLElement* element, std::string_view base) const;
  void ProcessElementFacets(CDMCOBOLRecordItem* item, CDMXMLElement* element);

  bool wouldContainItself(CDMCOBOLRecordItem const* item) const;
  CDMXMLElement const* expansionOf(CDMCOBOLRecordItem const* item, bool& isReference) const;
  CDMXMLSchemaDoc const* documentOf(std::string_view uri) const;
  std::string_view countNameOf(std::string_view dataName);

  CDMXMLSchemaDoc* schemaDoc = nullptr;
  CDMXMLElement* schemaRootElement = nullptr;  // root of the main schema
  std::string dataPrefix;
  bool countIn = true;
  bool uniqueNames = false;

  RecordStore m_store;
  OpenDefinitions m_open;
  std::unordered_set<CDMXMLElement const*> m_openMembers;
  // Built at the first question, when the document is complete.
  mutable std::unordered_map<std::string_view, CDMXMLSchemaDoc*> m_importedByNamespace;
  mutable bool m_importsIndexed = false;
  mutable std::unordered_map<std::string_view, std::vector<CDMXMLElement*>> m_membersByHead;
  mutable bool m_membersIndexed = false;
};

}  // namespace fdmorph

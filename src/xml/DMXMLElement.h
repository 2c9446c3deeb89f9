// The tool's own document tree. Every XML document that is read is copied into
// such a tree after the parse, and the generators work on the tree. An element
// has its attributes and child elements as lists and through sibling links.
// There are no comments and processing instructions.
//
// Nodes belong to a CDMXMLNodeStore; no pointer between them owns.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace fdmorph {

class CDMDOMFormatTarget;
class CDMXMLElement;
class XmlFormatter;

enum class NodeType { element = 1, attribute = 2 };

class CDMXMLNode {
 public:
  explicit CDMXMLNode(NodeType type) : nodeType(type) {}

  /// The part of `name` before its first colon; empty without a colon.
  static std::string_view getNameQualifier(std::string_view name);

  /// The part of `name` after its first colon; all of it without a colon.
  static std::string_view getNonQualifiedName(std::string_view name);

  NodeType nodeType;
  std::string name;   ///< as the document has it, prefix included
  std::string value;  ///< an attribute's value, an element's last text
};

/// Whether an attribute of this name declares a namespace or the target
/// namespace.
bool isNamespaceDeclaration(std::string_view attributeName);

class CDMXMLAttribute : public CDMXMLNode {
 public:
  CDMXMLAttribute() : CDMXMLNode(NodeType::attribute) {}

  void setParent(CDMXMLElement* element) { parent = element; }
  CDMXMLElement* getParent() const { return parent; }
  CDMXMLAttribute* getPrevSibling() const { return prevSibling; }
  CDMXMLAttribute* getNextSibling() const { return nextSibling; }
  void setPrevSibling(CDMXMLAttribute* attribute) { prevSibling = attribute; }
  void setNextSibling(CDMXMLAttribute* attribute) { nextSibling = attribute; }

 private:
  CDMXMLElement* parent = nullptr;
  CDMXMLAttribute* prevSibling = nullptr;
  CDMXMLAttribute* nextSibling = nullptr;
};

class CDMXMLElement : public CDMXMLNode {
 public:
  /// Returns the element to record for a candidate, or null.
  using Match = CDMXMLElement* (*)(CDMXMLElement* candidate, void* key);

  CDMXMLElement() : CDMXMLNode(NodeType::element) {}

  void setParent(CDMXMLElement* element) { parent = element; }
  CDMXMLElement* getParent() const { return parent; }
  CDMXMLElement* getPrevSibling() const { return prevSibling; }
  CDMXMLElement* getNextSibling() const { return nextSibling; }
  void setPrevSibling(CDMXMLElement* element) { prevSibling = element; }
  void setNextSibling(CDMXMLElement* element) { nextSibling = element; }
  void setFormatter(XmlFormatter* formatter) { m_formatter = formatter; }

  /// True if this element has a parent. Whether it has children does not matter.
  bool isParent() const { return parent != nullptr; }

  /// Appends an attribute and links it to the one before. An attribute may be
  /// in the lists of several elements; its links are those of the last list.
  void addAttribute(CDMXMLAttribute* attribute);

  /// Appends a child and links it to the one before. It becomes the last of the
  /// chain, even if it was in another one. The caller sets its parent.
  void addChildElement(CDMXMLElement* child);

  CDMXMLAttribute* getFirstAttr() const;
  static CDMXMLAttribute* getNextAttr(CDMXMLAttribute const* attribute);
  static CDMXMLAttribute* getPrevAttr(CDMXMLAttribute const* attribute);
  CDMXMLElement* getFirstChildElem() const;
  static CDMXMLElement* getNextChildElem(CDMXMLElement const* element);
  static CDMXMLElement* getPrevChildElem(CDMXMLElement const* element);

  std::vector<CDMXMLAttribute*> const& getAttributes() const { return attributes; }
  std::vector<CDMXMLElement*> const& getChildElements() const { return childElements; }

  /// The first attribute whose name equals `wanted` byte for byte, prefix
  /// included; null if there is none.
  CDMXMLAttribute* getAttribute(std::string_view wanted) const;

  /// Appends to `found` what `match` returns for this element and, with
  /// `recurse`, for everything below it (parents first), otherwise for its
  /// following siblings. Does nothing if `match` is null.
  void findElement(void* key, Match match, std::vector<CDMXMLElement*>& found, bool recurse);

  /// The formatter and the format target of the tree that a parser built; null
  /// in other trees. They live as long as the nodes, in the same store.
  XmlFormatter* getXMLFormatter() const { return m_formatter; }
  CDMDOMFormatTarget* getFormatTarget() const;

  /// The nearest element, from this one up, that declares a namespace or a
  /// target namespace; null if none does. The result is cached, so the document
  /// must be complete.
  CDMXMLElement const* getNamespaceScope() const;

 private:
  CDMXMLElement* parent = nullptr;
  CDMXMLElement* prevSibling = nullptr;
  CDMXMLElement* nextSibling = nullptr;
  std::vector<CDMXMLAttribute*> attributes;
  std::vector<CDMXMLElement*> childElements;
  XmlFormatter* m_formatter = nullptr;
  mutable CDMXMLElement const* namespaceScope = nullptr;
  mutable bool namespaceScopeKnown = false;
};

}  // namespace fdmorph

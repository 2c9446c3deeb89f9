// An imported namespace and the document that defines it.
#pragma once

#include <list>
#include <string>
#include <string_view>

namespace fdmorph {

class CDMXMLSchemaDoc;

class CDMXMLNamespaceSchemaPair {
 public:
  CDMXMLNamespaceSchemaPair() = default;

  /// Sets both; without a document the pair stays empty.
  CDMXMLNamespaceSchemaPair(std::string_view uri, CDMXMLSchemaDoc* document);

  /// Stores the URI; an empty one is ignored.
  void setNS(std::string_view uri);

  /// Stores the document, which stays the caller's; null is ignored.
  void setSchemaDoc(CDMXMLSchemaDoc* document);

  std::string const& getNamespaceURI() const { return namespaceURI; }
  CDMXMLSchemaDoc* getSchemaDoc() const { return schemaDoc; }

  /// The document of the first pair for `uri`; null if there is none.
  static CDMXMLSchemaDoc* findDocumentByNamespace(
      std::string_view uri, std::list<CDMXMLNamespaceSchemaPair> const& pairs);

 private:
  std::string namespaceURI;
  CDMXMLSchemaDoc* schemaDoc = nullptr;
};

}  // namespace fdmorph

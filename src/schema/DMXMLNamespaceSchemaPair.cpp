#include "schema/DMXMLNamespaceSchemaPair.h"

namespace fdmorph {

CDMXMLNamespaceSchemaPair::CDMXMLNamespaceSchemaPair(std::string_view uri,
                                                     CDMXMLSchemaDoc* document) {
  if (document == nullptr) return;
  setNS(uri);
  setSchemaDoc(document);
}

void CDMXMLNamespaceSchemaPair::setNS(std::string_view uri) {
  if (!uri.empty()) namespaceURI = uri;
}

void CDMXMLNamespaceSchemaPair::setSchemaDoc(CDMXMLSchemaDoc* document) {
  if (document != nullptr) schemaDoc = document;
}

CDMXMLSchemaDoc* CDMXMLNamespaceSchemaPair::findDocumentByNamespace(
    std::string_view uri, std::list<CDMXMLNamespaceSchemaPair> const& pairs) {
  for (CDMXMLNamespaceSchemaPair const& pair : pairs) {
    if (pair.namespaceURI == uri) return pair.schemaDoc;
  }
  return nullptr;
}

}  // namespace fdmorph

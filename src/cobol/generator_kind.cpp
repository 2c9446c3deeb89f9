#include "cobol/generator_kind.h"

#include "schema/DMXMLSchemaDoc.h"

namespace fdmorph {

GeneratorElementKind generatorElementKind(CDMXMLElement const* element) {
  SchemaElementKind kind = CDMXMLSchemaDoc::getElementType(element);
  if (kind == SchemaElementKind::enumeration) return GeneratorElementKind::other;
  int value = static_cast<int>(kind);
  return static_cast<GeneratorElementKind>(kind < SchemaElementKind::enumeration ? value
                                                                                 : value - 1);
}

}  // namespace fdmorph

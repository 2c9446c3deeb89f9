// The types that elements take from the heads of their substitution groups.
#pragma once

#include "schema/schema_preprocessing.h"
#include "xml/node_store.h"

namespace fdmorph {

/// Gives each global element without a type that of the head of its substitution
/// group (XML Schema: Structures, 3.3.2): the name of the type, or a copy of it.
/// To be called once, for a complete schema in which nothing has been looked up.
void completeSubstitutionTypes(SchemaSet& schema, CDMXMLNodeStore& store);

}  // namespace fdmorph

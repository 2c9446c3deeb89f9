// The clauses that tie an item to an element or attribute of an XML document.
//
// Each function parses one clause whose first word, `word`, is taken.
#pragma once

#include "syntax/clauses.h"

namespace fdmorph::compiler {

/// IS ATTRIBUTE
void parseAttribute(ClauseContext& context, DataItem& item, Token const& word);

/// COUNT IN data-name
void parseCountIn(ClauseContext& context, DataItem& item, Token const& word);

/// IDENTIFIED BY literal
void parseIdentifiedBy(ClauseContext& context, DataItem& item, Token const& word);

/// NAMESPACE IS literal
void parseNamespace(ClauseContext& context, DataItem& item, Token const& word);

}  // namespace fdmorph::compiler

// The global element that a record is made for.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "cobol/namespace_lookup.h"
#include "schema/DMXMLSchemaDoc.h"

namespace fdmorph {

/// One element, or why there is none.
struct RootElement {
  CDMXMLElement* element = nullptr;
  bool isAbstract = false;              ///< the element of that name is; `element` is null
  std::vector<std::string> candidates;  ///< names, if there is no element
};

/// Finds the element that `name` stands for: NAME in the main namespace, or else in
/// the only namespace that has it, or {NAMESPACE}NAME. Without a name it is the
/// only head element, or else the only global element, of the main document.
/// `document` is a main document.
[[nodiscard]] RootElement findRootElement(CDMXMLSchemaDoc const& document,
                                          NamespaceLookup const& namespaces, std::string_view name);

}  // namespace fdmorph

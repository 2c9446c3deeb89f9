#include "schema/schema_parts.h"

#include <algorithm>

namespace fdmorph {

void redefineComponents(CDMXMLElement const* part, std::vector<CDMXMLElement*>& pending,
                        ComponentList& redefined) {
  for (CDMXMLElement* child : part->getChildElements()) {
    std::string_view name = findAttrByName(child, "name").value_or("");
    if (name.empty()) continue;
    auto replaced = std::ranges::find_if(pending, [name](CDMXMLElement const* entry) {
      return findAttrByName(entry, "name") == name;
    });
    if (replaced == pending.end()) continue;
    redefined.append(*replaced);
    pending.erase(replaced);
    pending.push_back(child);
  }
}

}  // namespace fdmorph

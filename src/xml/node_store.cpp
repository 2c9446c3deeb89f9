#include "xml/node_store.h"

#include <utility>
#include <vector>

#include "xml/DMDOMFormatTarget.h"

namespace fdmorph {

CDMXMLNodeStore::CDMXMLNodeStore() = default;
CDMXMLNodeStore::~CDMXMLNodeStore() = default;

XmlFormatter* CDMXMLNodeStore::newFormatter() {
  return m_formatters.emplace_back(std::make_unique<XmlFormatter>()).get();
}

CDMXMLElement* CDMXMLNodeStore::copyElement(CDMXMLElement const& original) {
  CDMXMLElement* copy = newElement();
  copy->name = original.name;
  copy->value = original.value;
  for (CDMXMLAttribute const* attribute : original.getAttributes()) {
    if (attribute->getParent() != &original) continue;
    CDMXMLAttribute* own = newAttribute();
    own->name = attribute->name;
    own->value = attribute->value;
    own->setParent(copy);
    copy->addAttribute(own);
  }
  return copy;
}

CDMXMLElement* CDMXMLNodeStore::copyTree(CDMXMLElement const& top) {
  CDMXMLElement* copiedTop = copyElement(top);
  std::vector<std::pair<CDMXMLElement const*, CDMXMLElement*>> pending{{&top, copiedTop}};
  while (!pending.empty()) {
    auto [original, copy] = pending.back();
    pending.pop_back();
    for (CDMXMLElement const* child : original->getChildElements()) {
      CDMXMLElement* copiedChild = copyElement(*child);
      copiedChild->setParent(copy);
      copy->addChildElement(copiedChild);
      pending.emplace_back(child, copiedChild);
    }
  }
  return copiedTop;
}

}  // namespace fdmorph

#include "dictionary/dictionary_writer.h"

#include "text/status_line.h"

namespace fdmorph {
namespace {

using enum DATADICT_ELEMENT_TYPE;

Visit enterElement(CDMXMLElement const& element, DATADICT_ELEMENT_TYPE kind, unsigned depth,
                   DictionaryWriter& writer) {
  if (kind == DD_PROGRAM || isDataItem(kind) || isConditionValue(kind)) {
    statusLine.count(StepUnit::items);
    return writer.enter(element, depth);
  }
  return isContainer(kind) || isCondition(kind) ? Visit::descend(depth) : Visit::skip();
}

}  // namespace

bool walkDictionary(CDMXMLElement const& element, unsigned depth, DictionaryWriter& writer) {
  if (!element.isParent()) {
    for (CDMXMLElement const* child : element.getChildElements()) {
      walkDictionary(*child, depth, writer);
    }
    return false;
  }
  DATADICT_ELEMENT_TYPE kind = getDataDictElementType(&element);
  Visit visit = enterElement(element, kind, depth, writer);
  if (visit.descends) {
    for (CDMXMLElement const* child : element.getChildElements()) {
      if (walkDictionary(*child, visit.childDepth, writer) && isContainer(kind)) break;
    }
  }
  if (visit.isLeft) writer.leave(element, depth);
  return visit.descends;
}

ItemName WriterContext::nameOf(CDMXMLElement const& element) const {
  ItemName name = defaultNameOf(&element, countIn);
  ApplyExternalMappingFile(&element, mapping, name);
  return name;
}

}  // namespace fdmorph

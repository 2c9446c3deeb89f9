#include "fit/walk_context.h"

#include <utility>

namespace fdmorph::fit {

Content const& WalkContext::contentOf(SchemaType const& type) {
  auto [entry, isNew] = contents.try_emplace(&type);
  if (isNew) entry->second = fit::contentOf(type, model);
  return entry->second;
}

void WalkContext::add(Subject const& subject, FindingCode code, std::string text) {
  add(findingAt(subject.node, subject, code, std::move(text)));
}

Finding WalkContext::findingAt(std::uint32_t number, Subject const& subject, FindingCode code,
                               std::string text) const {
  Finding finding;
  finding.code = code;
  finding.severity = severityOf(code);
  finding.path = tree.xmlPath(number);
  finding.text = std::move(text);
  finding.item = node(number).item->place;
  finding.schema = model.placeOf(subject.element);
  return finding;
}

}  // namespace fdmorph::fit

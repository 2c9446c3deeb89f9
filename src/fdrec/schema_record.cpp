#include "fdrec/schema_record.h"

#include <algorithm>
#include <string_view>

#include "cobol/part_filter.h"
#include "cobol/record_text.h"
#include "cobol/root_element.h"
#include "copybook/reserved_words.h"
#include "fdrec/files.h"
#include "fdrec/generator_messages.h"
#include "source/diagnostics.h"

namespace fdmorph::fdrec {
namespace {

constexpr std::size_t kMaxItems = 1'000'000;
constexpr std::size_t kMaxListed = 50;  // names in a message
constexpr unsigned kDeepestLevel = 49;

std::string listed(std::vector<std::string> const& names) {
  std::string text;
  for (std::size_t i = 0; i < names.size() && i < kMaxListed; ++i) {
    text += (i == 0 ? "" : ", ") + names[i];
  }
  if (names.size() > kMaxListed) {
    text += " and " + std::to_string(names.size() - kMaxListed) + " more";
  }
  return text;
}

void reportRoot(RootElement const& root, std::string const& name) {
  if (root.isAbstract) {
    return printError(
        "the element " + compiler::quoted(name) + " is abstract and is in no document", "root");
  }
  if (root.candidates.empty()) {
    return printError("the schema has no global element", "root");
  }
  std::string text = name.empty() ? "the schema has several elements that can be the root"
                                  : "the schema has no global element " + compiler::quoted(name);
  printError(text + ", choose one with --root: " + listed(root.candidates), "root");
}

}  // namespace

SchemaRecord makeSchemaRecord(CDMXMLSchemaDoc const& schema, RecordRequest const& request) {
  GeneratorMessages messages;
  NamespaceLookup const namespaces(&schema);
  RootElement const root = findRootElement(schema, namespaces, request.root);
  if (root.element == nullptr) {
    reportRoot(root, request.root);
    return {};
  }
  std::vector<PathPattern> patterns;
  for (std::string const& each : request.skipped) patterns.emplace_back(each);
  unsigned depth = request.depth == 0 ? kDeepestLevel : std::min(request.depth, kDeepestLevel);
  PathFilter filter(std::move(patterns), depth);
  RecordTextOptions options{.prefix = request.prefix, .filter = &filter};
  options.limits.items = kMaxItems;
  options.isReserved = copybook::isReservedWord;
  RecordText record = makeRecordText(schema, root.element, options);
  std::string const name = compiler::quoted(root.element->getAttribute("name")->value);
  if (record.isTooLarge) {
    printError("the record of " + name + " has more than " + std::to_string(kMaxItems) +
                   " items, leave some out with --skip or --depth",
               "size");
    return {};
  }
  if (record.text.empty()) {
    std::string reasons;
    for (std::string const& each : messages.texts()) reasons += "; " + each;
    printError("nothing is left of the record of " + name + reasons, "empty");
    return {};
  }
  std::vector<std::string> const unmatched = filter.unmatched();
  for (std::string const& each : unmatched) {
    printWarning("no part of the record has the path " + compiler::quoted(each) + " to skip",
                 "path");
  }
  return {std::move(record.text), std::move(record.documentation), !unmatched.empty()};
}

}  // namespace fdmorph::fdrec

#include "fdrec/document_rules.h"

#include <utility>

#include "document/json_reader.h"
#include "document/xml_reader.h"

namespace fdmorph::fdrec {

using document::Syntax;
using framing::Format;

document::NameMatch nameMatch(DataOptions const& data, Syntax syntax) {
  bool isLocal = syntax == Syntax::json || data.matchesAnyNamespace;
  return isLocal ? document::NameMatch::local : document::NameMatch::exact;
}

document::EncodeRules makeEncodeRules(DataOptions const& data, Syntax syntax) {
  document::EncodeRules rules;
  rules.ignoresUnknown = data.ignoresUnknown;
  rules.isJson = syntax == Syntax::json;
  Format format = data.framing.format();
  rules.endsWithViews =
      format == Format::rdw || format == Format::bdw || format == Format::gnucobolVariable;
  rules.isFilledUp = format == Format::fixed;
  return rules;
}

document::ReaderOptions makeReaderOptions(layout::RecordSet const& set,
                                          document::NameNumbers const& names,
                                          DataOptions const& data) {
  document::ReaderOptions options;
  for (layout::Layout const& each : set.layouts()) {
    options.records.push_back(names.numberOf(each[0].name));
  }
  options.ignoresUnknown = data.ignoresUnknown;
  return options;
}

std::unique_ptr<document::DocumentReader> makeDocumentReader(Syntax syntax,
                                                             document::ReadBlock read,
                                                             document::NameNumbers const& names,
                                                             document::ReaderOptions const& options,
                                                             document::RecordPredictor* predictor) {
  if (syntax == Syntax::json) {
    return std::make_unique<document::JsonReader>(std::move(read), names, options);
  }
  return std::make_unique<document::XmlReader>(std::move(read), names, options, predictor);
}

}  // namespace fdmorph::fdrec

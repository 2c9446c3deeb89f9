// How documents are read, by the options.
#pragma once

#include "document/document_reader.h"
#include "document/encoder.h"
#include "document/name_numbers.h"
#include "document/program.h"
#include "document/record_predictor.h"
#include "fdrec/data_options.h"

namespace fdmorph::fdrec {

[[nodiscard]] document::NameMatch nameMatch(DataOptions const& data, document::Syntax syntax);

[[nodiscard]] document::EncodeRules makeEncodeRules(DataOptions const& data,
                                                    document::Syntax syntax);

/// Options to read the records of a set.
[[nodiscard]] document::ReaderOptions makeReaderOptions(layout::RecordSet const& set,
                                                        document::NameNumbers const& names,
                                                        DataOptions const& data);

/// A reader of records. `names` and `predictor`, which may be null, must outlive it.
[[nodiscard]] std::unique_ptr<document::DocumentReader> makeDocumentReader(
    document::Syntax syntax, document::ReadBlock read, document::NameNumbers const& names,
    document::ReaderOptions const& options, document::RecordPredictor* predictor = nullptr);

}  // namespace fdmorph::fdrec

// Reads XML documents.
#pragma once

#include <memory>
#include <string>

#include "document/document_reader.h"
#include "document/input_window.h"
#include "document/line_index.h"
#include "document/name_numbers.h"
#include "document/record_predictor.h"

struct XML_ParserStruct;

namespace fdmorph::document {

class XmlHandlers;

/// Reads the records of an XML document: its root, or the children of its root. What
/// comes after a root that is a record are further records, one after another. Blank
/// input has no records.
///
/// No entities are expanded: a document type declaration is an error. A child of the
/// root that is not a record is one with an error `unknown`, unless that is ignored.
/// The text of its elements has the line ends that XML 1.0 gives it.
class XmlReader : public DocumentReader {
 public:
  /// `index` and `predictor`, which may be null, must outlive this object.
  XmlReader(ReadBlock read, NameNumbers const& index, ReaderOptions options,
            RecordPredictor* predictor = nullptr);
  ~XmlReader() override;

  [[nodiscard]] bool next(DocumentRecord& record) override;
  void restart() override;
  [[nodiscard]] bool hasFailed() const override { return m_window.hasFailed(); }
  [[nodiscard]] std::uint64_t bytesRead() const override { return m_window.offset(); }

 private:
  enum class Step : std::uint8_t { more, record, end };
  struct FreeParser {
    void operator()(XML_ParserStruct* parser) const;
  };

  [[nodiscard]] Step step(DocumentRecord& record);
  [[nodiscard]] Step feed(DocumentRecord& record);
  [[nodiscard]] Step finish(DocumentRecord& record);
  [[nodiscard]] Step afterParsing(int status, DocumentRecord& record);
  [[nodiscard]] Step fail(std::string text, std::uint64_t offset, DocumentRecord& record);
  [[nodiscard]] Step predict(DocumentRecord& record);
  [[nodiscard]] bool canPredict() const;
  [[nodiscard]] std::size_t sliceSize() const;
  bool readMore();
  void begin();
  void beginWrapped();

  /// What is so at the beginning of a document.
  struct State {
    LineIndex::Unit unit = LineIndex::Unit::byte;
    std::int64_t shift = 0;                 // see XmlHandlers::setShift
    std::uint64_t pending = 0;              // bytes that the parser keeps
    std::uint64_t declinedAt = UINT64_MAX;  // offset of the record that goes to the parser
    std::size_t declined = 0;               // records, one after another
    std::size_t pause = 0;                  // slices that go to the parser unasked
    std::size_t nextPause = 1;
    bool hasBegun = false;
    bool isWrapped = false;
    bool isRootDone = false;  // it was a record
    bool isSuspended = false;
    bool isFinal = false;  // the parser knows that there is no more
    bool hasEnded = false;
  };

  NameNumbers const& m_index;
  ReaderOptions m_options;
  RecordPredictor* m_predictor;
  InputWindow m_window;
  LineIndex m_lines;
  std::unique_ptr<XML_ParserStruct, FreeParser> m_parser;
  std::unique_ptr<XmlHandlers> m_handlers;
  State m_state;
};

}  // namespace fdmorph::document

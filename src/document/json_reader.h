// Reads JSON lines.
#pragma once

#include "document/document_reader.h"
#include "document/input_window.h"
#include "document/json_parts.h"
#include "document/name_numbers.h"

namespace fdmorph::document {

/// Reads a record from each line that is not blank. With one type of records a line is
/// an object or a value, with several an object of one member that has the name of the
/// record. A line with an error `json` is one record, and reading goes on after it.
///
/// A byte order mark before the first line is passed over.
class JsonReader : public DocumentReader {
 public:
  /// `index` matches local names. It must outlive this object.
  JsonReader(ReadBlock read, NameNumbers const& index, ReaderOptions options);

  [[nodiscard]] bool next(DocumentRecord& record) override;
  void restart() override;
  [[nodiscard]] bool hasFailed() const override { return m_window.hasFailed(); }
  [[nodiscard]] std::uint64_t bytesRead() const override { return m_window.offset(); }

 private:
  struct Line {
    std::string_view text;  ///< without LF; its beginning if it is too long for the window
    bool isLong = false;
  };

  [[nodiscard]] bool readShort(Line line, std::size_t begin, DocumentRecord& record);
  [[nodiscard]] bool readLong(std::size_t begin, DocumentRecord& record);

  /// The next line, valid until the one after it. Nothing at the end of the input.
  [[nodiscard]] std::optional<Line> nextLine();

  ReaderOptions m_options;
  InputWindow m_window;
  JsonParts m_parts;
  std::size_t m_lineSize = 0;  // of the line that is still in the window, with its LF
  std::uint64_t m_line = 0;
  std::uint64_t m_recordCount = 0;
};

}  // namespace fdmorph::document

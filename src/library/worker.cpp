#include "library/worker.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "document/error_lines.h"

namespace fdmorph::library {

using document::DataError;
using document::DocumentRecord;
using document::ErrorCode;
using document::Syntax;

namespace {

constexpr std::string_view kDeclaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

Output failed(std::string message) {
  return {{fdrec::kErrors, std::move(message)}};
}

void addLine(std::string& lines, std::string const& line) {
  if (!lines.empty()) lines += '\n';
  lines += line;
}

Output failedDocument(document::DataErrors const& errors) {
  std::string lines;
  for (DataError const& each : errors) addLine(lines, document::documentErrorText(each));
  return failed(std::move(lines));
}

// The document goes on after its first record.
Output failedAfterRecord(DocumentRecord const& second) {
  bool isMalformed = std::ranges::any_of(second.errors, [](DataError const& error) {
    return error.code == ErrorCode::xml || error.code == ErrorCode::json;
  });
  if (isMalformed) return failedDocument(second.errors);
  DataError error{ErrorCode::single, "expected one record, found another"};
  error.line = second.line;
  error.column = second.column;
  return failedDocument({error});
}

}  // namespace

Output Worker::toDocument(Syntax syntax, document::StoredRecord record) {
  Counts counts = record.counts.empty() ? Counts::none : Counts::given;
  if (Fault const& fault = m_file.fault(syntax, counts); fault.status != 0) return {fault};
  Conversion const& conversion = m_file.conversion(syntax, counts);
  std::optional<document::Decoder>& decoder = tools(syntax, counts).decoder;
  if (!decoder) decoder.emplace(conversion.programs(), m_file.input().lengths());
  m_text.clear();
  m_errors.clear();
  if (conversion.isSingle()) m_text.append(kDeclaration);
  if (!decoder->decode(record, m_text, m_errors)) {
    std::string lines;
    for (DataError const& each : m_errors) addLine(lines, document::byteErrorText(0, each));
    return failed(std::move(lines));
  }
  Output output;
  output.bytes = m_text.text();
  if (!conversion.isSingle() && output.bytes.ends_with('\n')) output.bytes.remove_suffix(1);
  return output;
}

Output Worker::toRecord(Syntax syntax, std::string_view document, Counts counts) {
  if (Fault const& fault = m_file.fault(syntax, counts); fault.status != 0) return {fault};
  Conversion const& conversion = m_file.conversion(syntax, counts);
  std::optional<document::Encoder>& encoder = tools(syntax, counts).encoder;
  if (!encoder) encoder.emplace(conversion.set(), conversion.names(), conversion.encodeRules());
  auto read = [&document](std::span<char> buffer) -> std::optional<std::size_t> {
    std::size_t size = std::min(buffer.size(), document.size());
    if (size != 0) std::memcpy(buffer.data(), document.data(), size);
    document.remove_prefix(size);
    return size;
  };
  auto reader =
      fdrec::makeDocumentReader(syntax, read, conversion.names(), conversion.readerOptions());
  if (!reader->next(m_record)) return failed("error: expected one record, found none [single]");
  bool isEncoded =
      !m_record.instances.all.empty() && encoder->encode(m_record.instances, m_record.errors);
  if (!isEncoded || !m_record.errors.empty()) return failedDocument(m_record.errors);
  if (reader->next(m_record)) return failedAfterRecord(m_record);
  return {{}, m_form.assemble(encoder->result()), encoder->result().counts};
}

std::unique_ptr<Worker> WorkerPool::take() {
  {
    std::lock_guard const lock(m_mutex);
    if (!m_idle.empty()) {
      std::unique_ptr<Worker> worker = std::move(m_idle.back());
      m_idle.pop_back();
      return worker;
    }
  }
  return std::make_unique<Worker>(m_file);
}

void WorkerPool::putBack(std::unique_ptr<Worker> worker) {
  std::lock_guard const lock(m_mutex);
  m_idle.push_back(std::move(worker));
}

}  // namespace fdmorph::library

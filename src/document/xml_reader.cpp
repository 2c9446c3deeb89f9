#include "document/xml_reader.h"

#include <expat.h>

#include <algorithm>
#include <utility>

#include "document/xml_handlers.h"

namespace fdmorph::document {
namespace {

constexpr std::size_t kWindowBytes = 1U << 18U;
constexpr std::size_t kSliceBytes = 1U << 16U;

// A predictor that has declined so many records in a row pauses for some slices, then
// for twice as many, up to a limit.
constexpr std::size_t kMaxDeclined = 16;
constexpr std::size_t kMaxPause = 256;

LineIndex::Unit unitOf(std::string_view bytes) {
  if (bytes.size() < 2) return LineIndex::Unit::byte;
  std::string_view head = bytes.substr(0, 2);
  if (head == "\xFE\xFF" || head[0] == '\0') return LineIndex::Unit::utf16Big;
  if (head == "\xFF\xFE" || head[1] == '\0') return LineIndex::Unit::utf16Little;
  return LineIndex::Unit::byte;
}

std::string spelledIn(LineIndex::Unit unit, std::string_view ascii) {
  if (unit == LineIndex::Unit::byte) return std::string(ascii);
  std::string out;
  for (char c : ascii) {
    if (unit == LineIndex::Unit::utf16Big) out += '\0';
    out += c;
    if (unit == LineIndex::Unit::utf16Little) out += '\0';
  }
  return out;
}

bool isUtf8Name(std::string_view encoding) {
  return encoding.empty() || encoding == "UTF-8" || encoding == "utf-8";
}

/// The name at the beginning of a start tag.
std::string_view nameOfTag(std::string_view bytes) {
  if (bytes.size() < 2 || bytes[0] != '<') return {};
  return bytes.substr(1, bytes.find_first_of(" \t\r\n/>!?", 1) - 1);
}

}  // namespace

void XmlReader::FreeParser::operator()(XML_ParserStruct* parser) const {
  XML_ParserFree(parser);
}

XmlReader::XmlReader(ReadBlock read, NameNumbers const& index, ReaderOptions options,
                     RecordPredictor* predictor)
    : m_index(index),
      m_options(std::move(options)),
      m_predictor(predictor),
      m_window(std::move(read), kWindowBytes),
      m_parser(XML_ParserCreate(nullptr)),
      m_handlers(std::make_unique<XmlHandlers>(index, m_lines, m_options)) {}

XmlReader::~XmlReader() = default;

bool XmlReader::next(DocumentRecord& record) {
  record.instances.clear();
  record.errors.clear();
  record.text.clear();
  record.isPredicted = false;
  m_handlers->setRecord(record);
  while (!m_state.hasEnded) {
    Step result = step(record);
    if (result == Step::record) return true;
    if (result == Step::end) m_state.hasEnded = true;
  }
  return false;
}

void XmlReader::restart() {
  m_state = {};
  m_window.restart();
  m_lines = {};
  XML_ParserReset(m_parser.get(), nullptr);
  if (m_handlers->canRestart()) {
    m_handlers->restart();
  } else {
    m_handlers = std::make_unique<XmlHandlers>(m_index, m_lines, m_options);
  }
}

bool XmlReader::readMore() {
  std::string_view bytes = m_window.readMore();
  if (m_state.hasBegun) m_lines.add(bytes);
  return !bytes.empty();
}

// The first bytes tell UTF-16 from other encodings.
void XmlReader::begin() {
  while (m_window.bytes().size() < 4 && readMore()) {
  }
  m_state.hasBegun = true;
  m_state.unit = unitOf(m_window.bytes());
  m_lines.setUnit(m_state.unit);
  m_lines.add(m_window.bytes());
  m_handlers->attach(m_parser.get(), false);
}

// The rest of the input goes into an element of ours, in the encoding of the document.
void XmlReader::beginWrapped() {
  m_state.isWrapped = true;
  m_state.isRootDone = false;
  m_state.pending = 0;
  std::string encoding = m_state.unit == LineIndex::Unit::utf16Big      ? "UTF-16BE"
                         : m_state.unit == LineIndex::Unit::utf16Little ? "UTF-16LE"
                         : m_handlers->encoding().empty()               ? "UTF-8"
                                                                        : m_handlers->encoding();
  XML_ParserReset(m_parser.get(), encoding.c_str());
  m_handlers->attach(m_parser.get(), true);
  std::string wrapper = spelledIn(m_state.unit, "<_>");
  m_state.shift =
      static_cast<std::int64_t>(m_window.offset()) - static_cast<std::int64_t>(wrapper.size());
  m_handlers->setShift(m_state.shift);
  XML_Parse(m_parser.get(), wrapper.data(), static_cast<int>(wrapper.size()), XML_FALSE);
}

XmlReader::Step XmlReader::step(DocumentRecord& record) {
  if (!m_state.hasBegun) begin();
  if (m_state.isSuspended) {
    m_state.isSuspended = false;
    return afterParsing(XML_ResumeParser(m_parser.get()), record);
  }
  if (m_state.isFinal) return Step::end;
  if (m_state.isRootDone) beginWrapped();
  if (m_window.bytes().empty() && !readMore()) return finish(record);
  if (canPredict()) return predict(record);
  return feed(record);
}

XmlReader::Step XmlReader::feed(DocumentRecord& record) {
  std::size_t size = sliceSize();
  if (m_state.pause != 0) --m_state.pause;
  std::uint64_t begin = m_window.offset();
  int status =
      XML_Parse(m_parser.get(), m_window.bytes().data(), static_cast<int>(size), XML_FALSE);
  if (m_handlers->isRecordDone() && m_handlers->depth() == 0) {
    m_state.isRootDone = true;
    size = m_handlers->offset() +
           static_cast<std::size_t>(XML_GetCurrentByteCount(m_parser.get())) - begin;
  }
  m_window.consume(size);
  return afterParsing(status, record);
}

XmlReader::Step XmlReader::finish(DocumentRecord& record) {
  if (m_window.hasFailed()) return Step::end;
  m_state.isFinal = true;
  return afterParsing(XML_Parse(m_parser.get(), "", 0, XML_TRUE), record);
}

XmlReader::Step XmlReader::afterParsing(int status, DocumentRecord& record) {
  if (m_handlers->failure()) {
    return fail(m_handlers->failure()->text, m_handlers->failure()->offset, record);
  }
  m_state.isSuspended = status == XML_STATUS_SUSPENDED;
  if (m_handlers->isRecordDone()) return Step::record;
  if (status == XML_STATUS_ERROR) {
    XML_Error error = XML_GetErrorCode(m_parser.get());
    bool isOutside = m_handlers->depth() == (m_state.isWrapped ? 1 : 0);
    if (m_state.isFinal && error == XML_ERROR_NO_ELEMENTS && isOutside &&
        (m_state.isWrapped || !m_handlers->hasDeclaration())) {
      return Step::end;
    }
    return fail(error == XML_ERROR_NO_ELEMENTS && !isOutside ? "an element is not closed"
                                                             : XML_ErrorString(error),
                m_handlers->offset(), record);
  }
  std::uint64_t offset = m_handlers->offset();
  m_state.pending = m_window.offset() - std::min(offset, m_window.offset());
  if (m_state.pending > m_options.limits.markupBytes) {
    return fail("a tag, comment or processing instruction of more than " +
                    std::to_string(m_options.limits.markupBytes) + " bytes",
                offset, record);
  }
  if (m_handlers->isInRecord() &&
      m_window.offset() - m_handlers->recordOffset() > m_options.limits.recordBytes) {
    return fail("a record of more than " + std::to_string(m_options.limits.recordBytes) + " bytes",
                m_handlers->recordOffset(), record);
  }
  return Step::more;
}

XmlReader::Step XmlReader::fail(std::string text, std::uint64_t offset, DocumentRecord& record) {
  BytePlace place = m_lines.at(std::min(offset, m_window.offset() + m_window.bytes().size()));
  if (!m_handlers->isInRecord()) m_handlers->countRecord(place);
  record.instances.clear();
  record.text.clear();
  record.errors.clear();
  record.errors.push_back({.code = ErrorCode::xml,
                           .text = std::move(text),
                           .line = place.line,
                           .column = place.column});
  m_state.hasEnded = true;
  return Step::record;
}

bool XmlReader::canPredict() const {
  return m_predictor != nullptr && m_state.pause == 0 && m_state.pending == 0 &&
         m_handlers->depth() == 1 && !m_handlers->isInRecord() && !m_handlers->isInNamespaces() &&
         !m_handlers->isInCdata() && m_state.unit == LineIndex::Unit::byte &&
         isUtf8Name(m_handlers->encoding()) && m_state.declinedAt != m_window.offset();
}

// The parser is in the root and has no bytes left.
XmlReader::Step XmlReader::predict(DocumentRecord& record) {
  std::string_view bytes = m_window.bytes();
  std::size_t blanks = std::min(bytes.find_first_not_of(" \t\r\n"), bytes.size());
  m_window.consume(blanks);
  m_state.shift += static_cast<std::int64_t>(blanks);
  m_handlers->setShift(m_state.shift);
  bytes = m_window.bytes();
  if (bytes.empty()) return Step::more;
  if (bytes.size() == 1 && bytes[0] == '<' && readMore()) return Step::more;
  if (nameOfTag(bytes).empty()) return feed(record);

  RecordPredictor::Outcome outcome = m_predictor->read(bytes);
  using Kind = RecordPredictor::Outcome::Kind;
  if (outcome.kind == Kind::incomplete && !m_window.isFull() && readMore()) return Step::more;
  if (outcome.kind != Kind::taken) {
    m_state.declinedAt = m_window.offset();
    if (++m_state.declined >= kMaxDeclined) {
      m_state.declined = 0;
      m_state.pause = m_state.nextPause;
      m_state.nextPause = std::min(m_state.nextPause * 2, kMaxPause);
    }
    return feed(record);
  }
  m_handlers->countRecord(m_lines.at(m_window.offset()));
  m_window.consume(outcome.size);
  m_state.shift += static_cast<std::int64_t>(outcome.size);
  m_handlers->setShift(m_state.shift);
  m_state.declined = 0;
  m_state.nextPause = 1;
  record.isPredicted = true;
  return Step::record;
}

// With a predictor, the parser gets no byte after the end of a record.
std::size_t XmlReader::sliceSize() const {
  std::string_view bytes = m_window.bytes();
  std::size_t most =
      m_state.pending > kSliceBytes ? bytes.size() : std::min(bytes.size(), kSliceBytes);
  bool const isWhole = m_state.pause != 0 || m_state.unit != LineIndex::Unit::byte;
  if (m_predictor == nullptr || isWhole) return most;
  std::string end = ">";
  if (m_handlers->isInRecord()) {
    end = "</" + m_handlers->recordName() + ">";
  } else if (m_handlers->depth() == 1 && !nameOfTag(bytes).empty()) {
    std::size_t tagEnd = bytes.find('>');
    bool isWholeElement = tagEnd != std::string_view::npos && bytes[tagEnd - 1] == '/';
    if (!isWholeElement) end = "</" + std::string(nameOfTag(bytes)) + ">";
  }
  std::size_t at = bytes.find(end);
  return at == std::string_view::npos ? most : std::min(most, at + end.size());
}

}  // namespace fdmorph::document

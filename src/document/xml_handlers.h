// What the events of the XML parser mean for records.
#pragma once

#include <expat.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "document/document_reader.h"
#include "document/line_index.h"
#include "document/name_numbers.h"
#include "document/namespace_scopes.h"
#include "document/part_texts.h"
#include "document/qualified_names.h"
#include "document/record_line.h"

namespace fdmorph::document {

/// Makes records of the events of a parser that does no namespaces. After a record it
/// suspends the parser; after a record that is the root, and after an error, it aborts
/// the parser.
class XmlHandlers {
 public:
  struct Failure {
    std::string text;
    std::uint64_t offset;  ///< in the input
  };

  /// All must outlive this object.
  XmlHandlers(NameNumbers const& index, LineIndex& lines, ReaderOptions const& options);
  XmlHandlers(XmlHandlers const&) = delete;
  XmlHandlers& operator=(XmlHandlers const&) = delete;

  /// Takes the events of a parser at the beginning of its input. `isWrapped`: its root
  /// is not in the document, and no other text than elements may be in it.
  void attach(XML_Parser parser, bool isWrapped);

  /// Begins another document, with the names that are known. Not if they are many, since
  /// their number is limited.
  void restart();
  [[nodiscard]] bool canRestart() const { return m_names.size() <= kManyNames; }

  /// What the parser's offsets are less than those of the input.
  void setShift(std::int64_t shift) { m_shift = shift; }

  /// Builds the next record in `record`, which is empty.
  void setRecord(DocumentRecord& record) {
    m_record = &record;
    m_isRecordDone = false;
  }

  [[nodiscard]] bool isRecordDone() const { return m_isRecordDone; }
  [[nodiscard]] bool isInRecord() const { return m_isInRecord; }
  [[nodiscard]] std::optional<Failure> const& failure() const { return m_failure; }

  /// The number of open elements.
  [[nodiscard]] std::size_t depth() const { return m_open.size(); }
  /// Whether what comes next is text, whatever it looks like.
  [[nodiscard]] bool isInCdata() const { return m_isInCdata; }
  [[nodiscard]] bool isInNamespaces() const { return m_scopes.depth() != 0; }
  [[nodiscard]] bool hasDeclaration() const { return m_hasDeclaration; }

  /// The encoding that the document declares, or nothing.
  [[nodiscard]] std::string const& encoding() const { return m_encoding; }

  /// Of the record that is open: the offset of its start tag, and its name as spelled.
  [[nodiscard]] std::uint64_t recordOffset() const { return m_recordOffset; }
  [[nodiscard]] std::string const& recordName() const { return m_recordName; }

  /// Counts a record that begins at a place.
  void countRecord(BytePlace place);

  /// The offset of the parser in the input: of its event, or of what it keeps of a tag
  /// that is not complete.
  [[nodiscard]] std::uint64_t offset() const {
    return static_cast<std::uint64_t>(XML_GetCurrentByteIndex(m_parser) + m_shift);
  }

 private:
  static constexpr std::size_t kManyNames = 10'000;

  struct Open {
    std::uint32_t part;        // kNoInstance: it is left out
    std::uint32_t pieces = 0;  // of its text, see PartTexts
    bool declares = false;     // it has entered a scope
  };

  static void XMLCALL onStart(void* self, char const* name, char const** attributes);
  static void XMLCALL onEnd(void* self, char const* name);
  static void XMLCALL onText(void* self, char const* text, int size);
  static void XMLCALL onCdata(void* self);
  static void XMLCALL onCdataEnd(void* self);
  static void XMLCALL onDeclaration(void* self, char const* version, char const* encoding, int);
  static int XMLCALL onEncoding(void*, char const* name, XML_Encoding* encoding);
  static void XMLCALL onOther(void* self, char const* text, int size);

  void startTag(char const* name, char const** attributes);
  void endTag(char const* name);
  void text(std::string_view text);
  void fail(std::string text);

  [[nodiscard]] bool declare(char const** attributes);
  [[nodiscard]] bool readAttributes(char const** attributes, Open& open);
  [[nodiscard]] bool areDistinct() const;
  void beginRecord(QualifiedNames::Spelling const& spelling, bool isKnown, bool declares);
  [[nodiscard]] bool beginRoot();
  [[nodiscard]] bool areLimitsPassed() const;
  void failName(QualifiedNames::Spelling const& spelling);
  void failLimit();
  [[nodiscard]] std::uint32_t addPart(std::uint32_t name, std::uint32_t parent);
  void absorbParts();
  void nameUnknown(std::uint32_t part, char const* mark, std::string_view local);

  LineIndex* m_lines;
  ReaderOptions const* m_options;
  std::vector<char> m_isRecord;  // by name
  NamespaceScopes m_scopes;
  QualifiedNames m_names;
  PartTexts m_texts;
  AbsorptionClock m_absorption;
  RecordLine m_recordLine;
  XML_Parser m_parser = nullptr;
  std::int64_t m_shift = 0;
  DocumentRecord* m_record = nullptr;
  std::uint64_t m_recordCount = 0;
  std::uint64_t m_recordOffset = 0;
  std::string m_recordName;
  std::size_t m_recordDepth = 0;  // the elements around the record
  std::vector<Open> m_open;
  std::vector<NamespaceScopes::Declaration> m_declarations;
  std::vector<QualifiedNames::Spelling const*> m_prefixed;  // attributes
  BytePlace m_place;                                        // of the start tag
  std::optional<Failure> m_failure;
  std::string m_encoding;
  bool m_hasDeclaration = false;
  bool m_isWrapped = false;
  bool m_isInCdata = false;
  bool m_isInRecord = false;
  bool m_isRecordDone = false;
};

}  // namespace fdmorph::document

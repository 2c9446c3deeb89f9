// The mapping file: its format, and the writer, which others can make theirs.
//
// Entries are flat: a group's entry is closed before its members are walked.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "dictionary/dictionary_writer.h"

namespace fdmorph {

inline constexpr std::string_view kMappingNamespace =
    "http://www.tallmere.example/schema/xml/v1.0/dmxmlmap.xsd";
inline constexpr std::string_view kMappingSchema = "dmxmlmap.xsd";
inline constexpr std::string_view kMappingFileElement = "xml-cobol-mapping-file";
inline constexpr std::string_view kMappingElement = "xml-cobol-mapping";

/// The type of a group in its entry.
inline constexpr std::string_view kGroupType = "group";

/// The values of an entry.
enum class MappingField { key, countIn, name, type, attribute, uri };
inline constexpr std::size_t kMappingFields = 6;

/// The elements of the values, in the order in which they are written.
inline constexpr std::array<std::string_view, kMappingFields> kMappingFieldNames{
    "cobol-name", "cobol-count-in", "xml-name", "xml-type", "xml-attribute", "xml-namespace"};

/// The texts of an entry.
struct MappingTexts {
  std::array<std::string, kMappingFields> all;

  std::string& operator[](MappingField field) { return all[static_cast<std::size_t>(field)]; }
  std::string const& operator[](MappingField field) const {
    return all[static_cast<std::size_t>(field)];
  }
};

/// The texts of an entry that follow from the dictionary. The item is no filler group.
[[nodiscard]] MappingTexts defaultTextsOf(CDMXMLElement const& element, bool countIn);

/// Writes an entry for each item. A derived class can change entries and add to them.
class MappingWriter : public DictionaryWriter {
 public:
  explicit MappingWriter(WriterContext const& context)
      : m_xml(context.xml), m_countIn(context.countIn) {}

  Visit enter(CDMXMLElement const& element, unsigned depth) override;

  /// Only the program is left.
  void leave(CDMXMLElement const& element, unsigned depth) override;

 protected:
  /// The entry of an item, with the values that follow from the dictionary.
  virtual void visitItem(CDMXMLElement const& element, MappingTexts const& texts) {
    writeEntry(element, texts);
  }

  /// A filler group, which has no entry.
  virtual void visitFillerGroup(CDMXMLElement const& /*element*/) {}

  /// Called before the end tag of the file.
  virtual void visitEnd() {}

  /// Writes an entry. Nothing in the texts is escaped.
  void writeEntry(CDMXMLElement const& element, MappingTexts const& texts);

  /// The parts of an entry: up to the end tag of the last value, without its end.
  void beginEntry(MappingTexts const& texts);
  void endEntry();

  XmlFormatter& xml() { return m_xml; }

 private:
  Visit enterProgram(CDMXMLElement const& element, unsigned depth);

  XmlFormatter& m_xml;
  bool m_countIn;
};

}  // namespace fdmorph

#include "mapping/merged_file.h"

#include <sstream>

namespace fdmorph::mapping {
namespace {

constexpr unsigned kIndent = 3;  // of entries

// Text of an element.
std::string escaped(std::string_view text) {
  std::string out;
  for (char c : text) {
    switch (c) {
      case '&':
        out += "&amp;";
        break;
      case '<':
        out += "&lt;";
        break;
      case '>':
        out += "&gt;";
        break;
      case '\r':
        out += "&#13;";
        break;
      default:
        out += c;
    }
  }
  return out;
}

MappingTexts escaped(MappingTexts const& texts) {
  MappingTexts result;
  for (std::size_t i = 0; i < kMappingFields; ++i) result.all[i] = escaped(texts.all[i]);
  return result;
}

class MergeWriter : public MappingWriter {
 public:
  MergeWriter(WriterContext const& context, MergedFile const& file)
      : MappingWriter(context), m_file(file) {}

  void writeRemarks(std::vector<std::string> const& remarks, unsigned indent) {
    for (std::string const& each : remarks) {
      writeIndent(xml(), indent) << each;
      xml() << "\n";
    }
  }

 protected:
  void visitItem(CDMXMLElement const& element, MappingTexts const& texts) override {
    auto const found = m_file.entries.find(&element);
    if (found == m_file.entries.end()) {
      writeEntry(element, texts);
    } else {
      writeRemarks(found->second.remarks, kIndent);
      writeEntry(element, escaped(found->second.texts));
    }
  }

  void visitFillerGroup(CDMXMLElement const& element) override {
    auto const found = m_file.entries.find(&element);
    if (found != m_file.entries.end()) writeOwnEntry(found->second);
  }

  void visitEnd() override {
    for (MergedEntry const& each : m_file.more) writeOwnEntry(each);
    writeRemarks(m_file.end, kIndent);
    for (ParkedEntry const& each : m_file.parked) writeParked(each);
  }

 private:
  // An entry that fdmorph does not write.
  void writeOwnEntry(MergedEntry const& entry) {
    writeRemarks(entry.remarks, kIndent);
    beginEntry(escaped(entry.texts));
    xml() << ">\n";
    endEntry();
  }

  void writeParked(ParkedEntry const& parked) {
    writeRemarks(parked.entry.remarks, kIndent);
    writeIndent(xml(), kIndent) << "<!-- " << parked.why << "\n";
    writeIndent(xml(), kIndent) << "<" << kMappingElement << ">\n";
    for (std::size_t i = 0; i < kMappingFields; ++i) {
      if (parked.entry.elements[i] == kNone) continue;
      std::string_view const name = kMappingFieldNames[i];
      writeIndent(xml(), 2 * kIndent) << "<" << name << ">";
      xml() << commentText(escaped(parked.entry.texts.all[i])) << "</" << name << ">\n";
    }
    writeIndent(xml(), kIndent) << "</" << kMappingElement << ">\n";
    writeIndent(xml(), kIndent) << "-->\n";
  }

  MergedFile const& m_file;
};

}  // namespace

std::string commentText(std::string_view text) {
  std::string out;
  for (char c : text) {
    if (c == '-' && out.ends_with('-')) {
      out += "&#45;";
    } else {
      out += c;
    }
  }
  return out;
}

std::string writeMerged(CDMXMLElement const& dictionary, MergedFile const& file, bool countIn) {
  std::ostringstream stream;
  XmlFormatter formatter;
  formatter.target().setTarget(stream);
  formatter.begin();
  writeXmlDeclaration(formatter);
  MergeWriter writer(WriterContext{formatter, stream, nullptr, {}, {}, countIn}, file);
  writer.writeRemarks(file.head, 0);
  walkDictionary(dictionary, 0, writer);
  writer.writeRemarks(file.tail, 0);
  formatter.end();
  return stream.str();
}

}  // namespace fdmorph::mapping

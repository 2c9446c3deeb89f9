#include "xml/schema_check.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>
#include <xercesc/framework/XMLPScanToken.hpp>
#include <xercesc/parsers/SAX2XMLReaderImpl.hpp>
#include <xercesc/sax/Locator.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/sax2/Attributes.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>
#include <xercesc/util/XMLUni.hpp>

#include "text/letter_case.h"
#include "xml/DMDOMErrorHandler.h"
#include "xml/pattern_size.h"

namespace fdmorph {
namespace {

using xerces::XMLUni;
using Text = std::u16string_view;

constexpr Text kSchemaNamespace = u"http://www.w3.org/2001/XMLSchema";

// Heads of the names of encodings in which ASCII text reads as ASCII.
constexpr std::array kReadableEncodings{
    std::string_view("UTF-8"), std::string_view("UTF8"),        std::string_view("US-ASCII"),
    std::string_view("ASCII"), std::string_view("ISO-8859"),    std::string_view("ISO8859"),
    std::string_view("LATIN"), std::string_view("WINDOWS-125"),
};

// True if the names in a file that begins with `text` stand in its bytes as in
// ASCII.
bool isReadableText(std::string_view text) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  constexpr std::string_view kAttribute = "encoding";
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  if (!text.starts_with("<?xml")) {
    return text.size() > 1 &&
           (text[0] == '<' || std::isspace(static_cast<unsigned char>(text[0]))) && text[1] != '\0';
  }
  std::string_view declaration = text.substr(0, text.find('>'));
  std::size_t attribute = declaration.find(kAttribute);
  if (attribute == declaration.npos) return true;
  std::size_t quote = declaration.find_first_of("\"'", attribute + kAttribute.size());
  if (quote == declaration.npos) return false;
  std::string_view encoding = declaration.substr(quote + 1);
  return std::ranges::any_of(kReadableEncodings, [encoding](std::string_view head) {
    return startsWithIgnoringCase(encoding, head);
  });
}

// True if each quoted text in `tag` is a pattern within the limits. False also if
// it depends on a reference.
bool isEachSmall(std::string_view tag, PatternLimits const& limits, std::size_t& atoms) {
  constexpr std::string_view kQuotes = "\"'";
  if (tag.find('&') != tag.npos) return false;
  while (true) {
    std::size_t quote = tag.find_first_of(kQuotes);
    if (quote == tag.npos) return true;
    std::size_t end = std::min(tag.find(tag[quote], quote + 1), tag.size());
    // The bytes of a character count as several.
    std::u16string pattern;
    for (char c : tag.substr(quote + 1, end - quote - 1)) pattern += static_cast<unsigned char>(c);
    PatternSize size = patternSize(pattern);
    atoms += size.atoms;
    if (size.repetition > limits.repetition || size.depth > limits.depth || atoms > limits.atoms) {
      return false;
    }
    tag.remove_prefix(std::min(end + 1, tag.size()));
  }
}

/// Thrown out of a parse that has found what it looks for.
struct Found {};

/// Reads a schema file without validation. Errors end it without a report, except
/// that entities expand beyond the limits.
class Reader : public xerces::DefaultHandler {
 public:
  explicit Reader(InputSources& sources) : m_sources(sources) {
    m_reader.setContentHandler(this);
    m_reader.setErrorHandler(this);
    m_reader.setXMLEntityResolver(&sources);
    m_reader.setFeature(XMLUni::fgSAX2CoreNameSpaces, true);
    m_reader.setFeature(XMLUni::fgSAX2CoreValidation, false);
    m_reader.setFeature(XMLUni::fgXercesSchema, false);
  }

  /// False if entities of the file expand beyond the limits.
  bool read(xerces::InputSource const& source) {
    ExpansionLimit limit(m_sources.limits(), [this](std::string message) {
      m_isRefused = true;
      m_sources.errorHandler().refuse(std::move(message));
    });
    try {
      m_reader.parse(source);
    } catch (Found) {
      // The rest of the file does not matter.
    } catch (xerces::XMLException const&) {
      // The library reports it when it loads the file.
    }
    return !m_isRefused;
  }

  void setDocumentLocator(xerces::Locator const* locator) override { m_locator = locator; }
  void fatalError(xerces::SAXParseException const& e) override {
    if (m_isRefused) m_sources.errorHandler().fatalError(e);
    throw Found();
  }

 protected:
  xerces::Locator const* locator() const { return m_locator; }

 private:
  InputSources& m_sources;
  xerces::SAX2XMLReaderImpl m_reader;
  xerces::Locator const* m_locator = nullptr;
  bool m_isRefused = false;
};

class NamespaceReader : public Reader {
 public:
  using Reader::Reader;
  void startElement(XMLCh const*, XMLCh const*, XMLCh const*,
                    xerces::Attributes const& attributes) override {
    if (XMLCh const* value = attributes.getValue(u"targetNamespace")) result = toLocalText(value);
    throw Found();
  }

  std::string result;
};

class PatternReader : public Reader {
 public:
  PatternReader(InputSources& sources, PatternLimits limits) : Reader(sources), m_limits(limits) {}

  void startElement(XMLCh const* uri, XMLCh const* name, XMLCh const*,
                    xerces::Attributes const& attributes) override {
    XMLCh const* given = attributes.getValue(u"name");
    m_open.push_back({name, given == nullptr ? std::string() : toLocalText(given)});
    XMLCh const* value = attributes.getValue(u"value");
    if (Text(uri) != kSchemaNamespace || Text(name) != u"pattern" || value == nullptr) return;
    std::optional<std::string> message = refusalOf(value);
    if (!message) return;
    refusal = CDMDOMErrorHandler::placedReport(
        "Error", ParserReport::Kind::error, toLocalText(locator()->getSystemId()),
        locator()->getLineNumber(), locator()->getColumnNumber());
    refusal->line += " : " + *message;
    refusal->message = std::move(*message);
    refusal->isLimit = true;
    throw Found();
  }

  void endElement(XMLCh const*, XMLCh const*, XMLCh const*) override { m_open.pop_back(); }

  std::optional<ParserReport> refusal;

 private:
  struct Open {
    std::u16string kind;
    std::string name;
  };

  std::optional<std::string> refusalOf(Text pattern) {
    PatternSize size = patternSize(pattern);
    m_atoms += size.atoms;
    std::string subject = "the pattern of " + owner();
    if (size.repetition > m_limits.repetition) {
      return subject + " repeats more than " + std::to_string(m_limits.repetition) + " times";
    }
    if (size.depth > m_limits.depth) {
      return subject + " is nested more than " + std::to_string(m_limits.depth) + " levels deep";
    }
    if (m_atoms > m_limits.atoms) {
      return subject + " makes the patterns of the file larger than " +
             std::to_string(m_limits.atoms) + " characters";
    }
    return std::nullopt;
  }

  // The type that holds the pattern, or what the anonymous type belongs to.
  std::string owner() const {
    for (std::size_t i = m_open.size(); i-- > 0;) {
      if (m_open[i].name.empty()) continue;
      bool isType = m_open[i].kind == u"simpleType" || m_open[i].kind == u"complexType";
      return (isType ? "type " : "the type of " + toLocalText(m_open[i].kind.c_str()) + " ") +
             m_open[i].name;
    }
    return "an anonymous type";
  }

  PatternLimits m_limits;
  std::size_t m_atoms = 0;
  std::vector<Open> m_open;
};

}  // namespace

bool needsCheck(InputFile& file, PatternLimits limits) {
  std::string_view text = file.textBeforeZero();
  if (!isReadableText(text) || text.find("<!DOCTYPE") != text.npos) return true;
  constexpr std::string_view kPattern = "pattern";
  std::size_t atoms = 0;
  for (std::size_t at = text.find(kPattern); at != text.npos; at = text.find(kPattern, at)) {
    std::size_t end = std::min(text.find('<', at), text.size());
    if (!isEachSmall(text.substr(at, end - at), limits, atoms)) return true;
    at = end;
  }
  return false;
}

bool arePatternsAdmitted(xerces::InputSource const& source, InputSources& sources,
                         PatternLimits limits) {
  PatternReader reader(sources, limits);
  bool isWithinLimits = reader.read(source);
  if (!reader.refusal) return isWithinLimits;
  sources.errorHandler().emit(*reader.refusal);
  return false;
}

std::string targetNamespaceOf(xerces::InputSource const& source, InputSources& sources) {
  NamespaceReader reader(sources);
  static_cast<void>(reader.read(source));
  return reader.result;
}

}  // namespace fdmorph

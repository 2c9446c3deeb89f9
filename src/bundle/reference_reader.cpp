#include "bundle/reference_reader.h"

#include <expat.h>

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <tuple>
#include <utility>

#include "bundle/tag_text.h"
#include "charset/code_page.h"
#include "text/name_table.h"

namespace fdmorph::bundle {
namespace {

using Kind = FileReference::Kind;

constexpr std::string_view kSchemaUri = "http://www.w3.org/2001/XMLSchema";
constexpr std::string_view kInstanceUri = "http://www.w3.org/2001/XMLSchema-instance";
constexpr char kSeparator = '\x1F';  // of URI, name and prefix; XML has no such character
constexpr std::size_t kSlice = std::size_t{64} << 20;
constexpr std::size_t kMaxInputs = 100;  // of entities in entities

constexpr auto kParts = makeNameTable<std::optional<Kind>>({
    {"import", Kind::import},
    {"include", Kind::include},
    {"redefine", Kind::redefine},
});
static_assert(kParts.isSorted());

struct ExpandedName {
  std::string_view uri;
  std::string_view local;
  std::string_view prefix;

  [[nodiscard]] std::string qualified() const {
    std::string name(prefix);
    if (!name.empty()) name += ':';
    return name.append(local);
  }
};

ExpandedName expand(std::string_view name) {
  std::size_t const first = name.find(kSeparator);
  if (first == name.npos) return {{}, name, {}};
  std::size_t const second = std::min(name.find(kSeparator, first + 1), name.size());
  return {name.substr(0, first), name.substr(first + 1, second - first - 1),
          name.substr(std::min(second + 1, name.size()))};
}

std::string textOf(char const* text) {
  return text == nullptr ? std::string() : std::string(text);
}

std::vector<std::string> splitWords(std::string const& value) {
  std::vector<std::string> words;
  TextUnits const text(value);
  for (ByteRange const& each : wordsOf(text, {0, value.size()})) {
    words.push_back(value.substr(each.begin, each.end - each.begin));
  }
  return words;
}

struct FreeParser {
  void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};
using ParserOwner = std::unique_ptr<XML_ParserStruct, FreeParser>;
using OpenParser = std::function<XML_Parser(char const* encoding)>;

/// Reads one file, and its entities by parsers that depend on the first one.
class ReferenceReader {
 public:
  ReferenceReader(FileContents& contents, LocationResolver& resolver)
      : m_contents(contents), m_resolver(resolver) {}

  FileReferences read(std::string const& path) {
    m_path = path;
    parse(path, [this](char const* encoding) {
      XML_Parser parser = XML_ParserCreateNS(encoding, kSeparator);
      if (parser != nullptr) attach(parser);
      return parser;
    });
    return std::move(m_result);
  }

 private:
  struct Input {
    std::string const& path;
    TextUnits text;
    XML_Parser parser;
  };

  /// What the parser hands over when it needs an entity.
  using EntityKey = std::tuple<std::string, std::string, std::string>;

  static ReferenceReader& of(void* self) { return *static_cast<ReferenceReader*>(self); }

  void attach(XML_Parser parser) {
    XML_SetUserData(parser, this);
    XML_SetReturnNSTriplet(parser, XML_TRUE);
    XML_SetParamEntityParsing(parser, XML_PARAM_ENTITY_PARSING_ALWAYS);
    XML_SetElementHandler(parser, onStart, onEnd);
    XML_SetStartDoctypeDeclHandler(parser, onDocumentType);
    XML_SetEntityDeclHandler(parser, onDeclaration);
    XML_SetExternalEntityRefHandler(parser, onEntity);
    XML_SetUnknownEncodingHandler(parser, onEncoding, this);
  }

  static void XMLCALL onStart(void* self, char const* name, char const** attributes) {
    of(self).startTag(expand(name), attributes);
  }

  static void XMLCALL onEnd(void* self, char const*) { --of(self).m_depth; }

  static void XMLCALL onDocumentType(void* self, char const*, char const* systemId,
                                     char const* publicId, int) {
    if (systemId != nullptr) of(self).declare(Kind::documentType, systemId, publicId);
  }

  static void XMLCALL onDeclaration(void* self, char const*, int, char const*, int, char const*,
                                    char const* systemId, char const* publicId,
                                    char const* notation) {
    bool const isParsed = systemId != nullptr && notation == nullptr;
    if (isParsed) of(self).declare(Kind::entity, systemId, publicId);
  }

  static int XMLCALL onEntity(XML_Parser parser, char const* context, char const* base,
                              char const* systemId, char const* publicId) {
    ReferenceReader& reader = of(XML_GetUserData(parser));
    EntityKey const key{textOf(base), textOf(systemId), textOf(publicId)};
    OpenParser const open = [parser, context](char const* encoding) {
      return XML_ExternalEntityParserCreate(parser, context, encoding);
    };
    return reader.readEntity(key, open) ? XML_STATUS_OK : XML_STATUS_ERROR;
  }

  // An encoding that the parser does not know. It accepts those that have ASCII's
  // characters at their places.
  static int XMLCALL onEncoding(void* self, char const* name, XML_Encoding* encoding) {
    std::shared_ptr<charset::CodePage const> page = charset::CodePage::open(name).page;
    of(self).m_unknown = {name, page != nullptr && page->isUtf8()};
    if (page == nullptr || page->isUtf8()) return XML_STATUS_ERROR;
    for (unsigned i = 0; i < std::size(encoding->map); ++i) {
      encoding->map[i] = page->characterOf(static_cast<std::uint8_t>(i));
    }
    encoding->data = nullptr;
    encoding->convert = nullptr;
    encoding->release = nullptr;
    return XML_STATUS_OK;
  }

  // False after a fault, which is kept.
  bool parse(std::string const& path, OpenParser const& open) {
    std::string const* bytes = m_contents.at(path);
    if (bytes == nullptr) {
      return fail({path, 0, 0, "cannot read the file: " + compiler::whyUnreadable(path)});
    }
    bool isRead = parseAs(nullptr, path, *bytes, open);
    // Another name of UTF-8: nothing but the declaration has been read.
    if (!isRead && !m_result.fault) isRead = parseAs("UTF-8", path, *bytes, open);
    return isRead;
  }

  // False without a fault if the encoding has to be given.
  bool parseAs(char const* encoding, std::string const& path, std::string const& bytes,
               OpenParser const& open) {
    ParserOwner const parser(open(encoding));
    if (parser == nullptr) return fail({path, 0, 0, "out of memory"});
    XML_SetBase(parser.get(), path.c_str());
    m_inputs.push_back({path, TextUnits(bytes), parser.get()});
    bool const isRead = feed(parser.get(), bytes);
    m_inputs.pop_back();
    if (isRead || m_result.fault) return isRead;
    XML_Error const code = XML_GetErrorCode(parser.get());
    std::string text = XML_ErrorString(code);
    if (code == XML_ERROR_UNKNOWN_ENCODING) {
      if (m_unknown.isUtf8) return false;
      text = "the encoding '" + m_unknown.name +
             "' is not supported, expected UTF-8, UTF-16 or one with a byte for each character";
    }
    return fail({path, static_cast<unsigned>(XML_GetCurrentLineNumber(parser.get())),
                 static_cast<unsigned>(XML_GetCurrentColumnNumber(parser.get())) + 1, text});
  }

  static bool feed(XML_Parser parser, std::string_view bytes) {
    while (true) {
      std::size_t const size = std::min(bytes.size(), kSlice);
      bool const isLast = size == bytes.size();
      if (XML_Parse(parser, bytes.data(), static_cast<int>(size), isLast) != XML_STATUS_OK) {
        return false;
      }
      if (isLast) return true;
      bytes.remove_prefix(size);
    }
  }

  bool fail(XmlFault fault) {
    if (!m_result.fault) m_result.fault = std::move(fault);
    return false;
  }

  // Where the parser is in the innermost input.
  [[nodiscard]] std::size_t offset() const {
    return static_cast<std::size_t>(XML_GetCurrentByteIndex(m_inputs.back().parser));
  }

  // In a declaration the parser is at what follows the literal.
  void declare(Kind kind, char const* systemId, char const* publicId) {
    FileReference declared = makeReference(kind, m_inputs.back().path);
    declared.location = systemId;
    declared.identifier = textOf(publicId);
    declared.range = literalBefore(m_inputs.back().text, declared.offset);
    if (declared.range) declared.offset = declared.range->begin;
    m_declared[{declared.base, declared.location, declared.identifier}].push_back(declared);
  }

  FileReference makeReference(Kind kind, std::string const& base) const {
    FileReference reference;
    reference.kind = kind;
    reference.base = base;
    reference.holder = m_inputs.back().path;
    reference.offset = offset();
    return reference;
  }

  bool readEntity(EntityKey const& key, OpenParser const& open) {
    auto const& [base, systemId, publicId] = key;
    std::vector<FileReference>& declared = m_declared[key];
    std::ranges::move(declared, std::back_inserter(m_result.references));
    declared.clear();
    std::optional<std::string> const path = m_resolver.resolve({base, systemId, publicId});
    if (!path) return true;
    if (m_inputs.size() > kMaxInputs) {
      return fail({*path, 0, 0, "entities are nested too deeply"});
    }
    return parse(*path, open);
  }

  void startTag(ExpandedName const& element, char const** attributes) {
    ++m_depth;
    bool const isOfSchema = element.uri == kSchemaUri;
    if (m_depth == 1) m_result.isSchema = isOfSchema && element.local == "schema";
    if (!m_result.isSchema) return;
    std::optional<Kind> part;
    if (m_depth == 2 && isOfSchema) part = kParts.find(element.local, std::nullopt);
    if (part) addPart(*part, element, attributes);
    for (; *attributes != nullptr; attributes += 2) {
      ExpandedName const name = expand(attributes[0]);
      if (name.uri == kInstanceUri) addHints(element, name, attributes[1]);
    }
  }

  void addPart(Kind kind, ExpandedName const& element, char const** attributes) {
    FileReference part = makeReference(kind, m_path);
    part.isWritten = false;
    for (; *attributes != nullptr; attributes += 2) {
      std::string_view const name(attributes[0]);
      if (name == "schemaLocation") {
        part.location = attributes[1];
        part.isWritten = true;
      }
      if (name == "namespace" && kind == Kind::import) part.identifier = attributes[1];
    }
    if (std::optional<TagText> const tag = tagOf(element)) {
      part.range = part.isWritten ? tag->valueOf("schemaLocation") : ByteRange{tag->end, tag->end};
    }
    m_result.references.push_back(std::move(part));
  }

  void addHints(ExpandedName const& element, ExpandedName const& attribute, char const* value) {
    bool const hasNamespaces = attribute.local == "schemaLocation";
    if (!hasNamespaces && attribute.local != "noNamespaceSchemaLocation") return;
    std::vector<std::string> const words = splitWords(value);
    std::vector<ByteRange> ranges;
    if (std::optional<TagText> const tag = tagOf(element)) {
      auto const range = tag->valueOf(attribute.qualified());
      if (range) ranges = wordsOf(m_inputs.back().text, *range);
    }
    std::size_t const step = hasNamespaces ? 2 : 1;
    for (std::size_t i = step - 1; i < words.size(); i += step) {
      FileReference hint = makeReference(Kind::hint, m_path);
      hint.location = words[i];
      if (hasNamespaces) hint.identifier = words[i - 1];
      // They differ where white space is written as a reference.
      if (ranges.size() == words.size()) {
        hint.range = ranges[i];
        hint.offset = ranges[i].begin;
      }
      m_result.references.push_back(std::move(hint));
    }
  }

  // The current start tag in the text of the input, unless it is in an entity's value.
  [[nodiscard]] std::optional<TagText> tagOf(ExpandedName const& element) const {
    std::optional<TagText> tag = readTag(m_inputs.back().text, offset());
    if (tag && tag->name != element.qualified()) return std::nullopt;
    return tag;
  }

  FileContents& m_contents;
  LocationResolver& m_resolver;
  std::string m_path;
  FileReferences m_result;
  std::vector<Input> m_inputs;                                 // the innermost last
  std::map<EntityKey, std::vector<FileReference>> m_declared;  // that have not been read
  std::size_t m_depth = 0;                                     // of open elements
  struct {
    std::string name;
    bool isUtf8 = false;
  } m_unknown;  // encoding of the parser's last question
};

}  // namespace

FileReferences readReferences(std::string const& path, FileContents& contents,
                              LocationResolver& resolver) {
  return ReferenceReader(contents, resolver).read(path);
}

}  // namespace fdmorph::bundle

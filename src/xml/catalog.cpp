#include "xml/catalog.h"

#include <algorithm>
#include <array>
#include <set>

#include "xml/uris.h"

namespace fdmorph {
namespace {

constexpr std::string_view kCatalogNamespace = "urn:oasis:names:tc:entity:xmlns:xml:catalog";
constexpr std::string_view kXmlNamespace = "http://www.w3.org/XML/1998/namespace";

/// What an entry compares.
enum class Key { publicId, systemId, uri, none };

/// What an entry does with an identifier that it matches.
enum class Effect {
  replace,   ///< the whole identifier is equal
  rewrite,   ///< it begins like the entry, and the beginning is replaced
  suffix,    ///< it ends like the entry
  delegate,  ///< it begins like the entry, and another catalog is asked
  next,      ///< another catalog is asked for what is not found here
};

struct EntryKind {
  std::string_view element;
  Key key;
  Effect effect;
  std::string_view match;   ///< attribute with the text to compare
  std::string_view target;  ///< attribute with the result
};

constexpr std::array kEntryKinds{
    EntryKind{"public", Key::publicId, Effect::replace, "publicId", "uri"},
    EntryKind{"system", Key::systemId, Effect::replace, "systemId", "uri"},
    EntryKind{"uri", Key::uri, Effect::replace, "name", "uri"},
    EntryKind{"rewriteSystem", Key::systemId, Effect::rewrite, "systemIdStartString",
              "rewritePrefix"},
    EntryKind{"rewriteURI", Key::uri, Effect::rewrite, "uriStartString", "rewritePrefix"},
    EntryKind{"systemSuffix", Key::systemId, Effect::suffix, "systemIdSuffix", "uri"},
    EntryKind{"uriSuffix", Key::uri, Effect::suffix, "uriSuffix", "uri"},
    EntryKind{"delegatePublic", Key::publicId, Effect::delegate, "publicIdStartString", "catalog"},
    EntryKind{"delegateSystem", Key::systemId, Effect::delegate, "systemIdStartString", "catalog"},
    EntryKind{"delegateURI", Key::uri, Effect::delegate, "uriStartString", "catalog"},
    EntryKind{"nextCatalog", Key::none, Effect::next, "", "catalog"},
};

struct Entry {
  Key key;
  Effect effect;
  std::string match;
  std::string target;  ///< absolute
  bool prefersPublic;  ///< a public identifier counts beside a system identifier
};

// A public identifier with single blanks and none around it.
std::string normalPublicId(std::string_view text) {
  std::string normal;
  for (char c : text) {
    bool isBlank = c == ' ' || c == '\t' || c == '\n' || c == '\r';
    if (!isBlank) {
      normal += c;
    } else if (!normal.empty() && normal.back() != ' ') {
      normal += ' ';
    }
  }
  if (!normal.empty() && normal.back() == ' ') normal.pop_back();
  return normal;
}

bool isMatch(Entry const& entry, std::string_view identifier) {
  switch (entry.effect) {
    case Effect::replace:
      return identifier == entry.match;
    case Effect::suffix:
      return identifier.ends_with(entry.match);
    case Effect::rewrite:
    case Effect::delegate:
      return identifier.starts_with(entry.match);
    case Effect::next:
      break;
  }
  return false;
}

/// Collects the entries of a file.
class EntryReader : public XmlEvents {
 public:
  EntryReader(std::string const& path, std::vector<Entry>& entries) : m_entries(entries) {
    m_open.push_back({fileUri(path), true});
  }

  void startTag(XmlTag const& tag) override {
    Context context = m_open.back();
    for (XmlAttribute const& attribute : tag.attributes) {
      if (attribute.uri == kXmlNamespace && attribute.name == "base") {
        context.base = resolveUri(context.base, attribute.value);
      }
    }
    if (auto prefer = tag.attribute("prefer")) context.prefersPublic = *prefer != "system";
    m_open.push_back(context);
    // Some catalogs have no namespace.
    if (tag.uri != kCatalogNamespace && !tag.uri.empty()) return;
    auto const* kind = std::ranges::find(kEntryKinds, tag.name, &EntryKind::element);
    if (kind == kEntryKinds.end()) return;
    auto match = kind->key == Key::none ? std::string_view() : tag.attribute(kind->match);
    auto target = tag.attribute(kind->target);
    if (!match || !target) return;
    m_entries.push_back({kind->key, kind->effect,
                         kind->key == Key::publicId ? normalPublicId(*match) : std::string(*match),
                         resolveUri(context.base, *target), context.prefersPublic});
  }

  void endTag() override { m_open.pop_back(); }

 private:
  struct Context {
    std::string base;
    bool prefersPublic;
  };

  std::vector<Entry>& m_entries;
  std::vector<Context> m_open;
};

}  // namespace

struct Catalog::File {
  std::vector<Entry> entries;
  std::optional<XmlFault> fault;
};

/// One question, and where it has been asked.
struct Catalog::Search {
  Kind kind;
  std::string publicId;
  std::string_view other;  ///< system identifier or URI
  std::set<std::string> asked = {};
  std::optional<std::string> result = {};

  /// The identifier that an entry compares; empty: the entry does not count.
  [[nodiscard]] std::string_view identifierFor(Entry const& entry) const {
    switch (entry.key) {
      case Key::publicId:
        return kind == Kind::external && (other.empty() || entry.prefersPublic)
                   ? std::string_view(publicId)
                   : std::string_view();
      case Key::systemId:
        return kind == Kind::external ? other : std::string_view();
      case Key::uri:
        return kind == Kind::uri ? other : std::string_view();
      case Key::none:
        break;
    }
    return {};
  }
};

Catalog::Catalog() = default;
Catalog::Catalog(std::vector<std::string> files) : m_paths(std::move(files)) {}
Catalog::~Catalog() = default;
Catalog::Catalog(Catalog&&) noexcept = default;
Catalog& Catalog::operator=(Catalog&&) noexcept = default;

std::vector<XmlFault> Catalog::load() {
  std::vector<XmlFault> faults;
  for (std::string const& path : m_paths) {
    if (at(path).fault) faults.push_back(*at(path).fault);
  }
  return faults;
}

std::optional<std::string> Catalog::findExternal(std::string_view publicId,
                                                 std::string_view systemId) {
  Search wanted{Kind::external, normalPublicId(publicId), systemId};
  for (std::string const& path : m_paths) {
    if (search(path, wanted)) break;
  }
  return wanted.result;
}

std::optional<std::string> Catalog::findUri(std::string_view uri) {
  Search wanted{Kind::uri, "", uri};
  for (std::string const& path : m_paths) {
    if (search(path, wanted)) break;
  }
  return wanted.result;
}

std::vector<std::string> Catalog::files() const {
  std::vector<std::string> paths;
  for (auto const& [path, file] : m_files) {
    if (!file->fault) paths.push_back(path);
  }
  return paths;
}

Catalog::File const& Catalog::at(std::string const& path) {
  std::unique_ptr<File>& file = m_files[path];
  if (file == nullptr) {
    file = std::make_unique<File>();
    EntryReader reader(path, file->entries);
    file->fault = readXml(path, reader);
    if (file->fault) file->entries.clear();
  }
  return *file;
}

// True if the search is over, perhaps without a result: what has been delegated
// is asked nowhere else.
bool Catalog::search(std::string const& path, Search& wanted) {
  if (!wanted.asked.insert(path).second) return false;
  File const& file = at(path);
  // System identifiers and URIs go first, and in each case the longest match.
  constexpr std::array kSteps{
      std::pair(true, Effect::replace),  std::pair(true, Effect::rewrite),
      std::pair(true, Effect::suffix),   std::pair(true, Effect::delegate),
      std::pair(false, Effect::replace), std::pair(false, Effect::delegate),
  };
  for (auto [isOther, effect] : kSteps) {
    std::vector<Entry const*> matches;
    std::string_view identifier = isOther ? wanted.other : std::string_view(wanted.publicId);
    for (Entry const& entry : file.entries) {
      if (entry.effect != effect || (entry.key != Key::publicId) != isOther) continue;
      if (wanted.identifierFor(entry).empty() || !isMatch(entry, identifier)) continue;
      matches.push_back(&entry);
    }
    if (matches.empty()) continue;
    std::ranges::stable_sort(matches, std::ranges::greater(),
                             [](Entry const* entry) { return entry->match.size(); });
    Entry const& best = *matches.front();
    if (effect == Effect::delegate) {
      for (Entry const* entry : matches) {
        auto target = pathOfFileUri(entry->target);
        if (target && search(*target, wanted)) break;
      }
      return true;
    }
    wanted.result = best.target;
    if (effect == Effect::rewrite) *wanted.result += identifier.substr(best.match.size());
    return true;
  }
  return searchNext(file, wanted);
}

bool Catalog::searchNext(File const& file, Search& wanted) {
  for (Entry const& entry : file.entries) {
    if (entry.effect != Effect::next) continue;
    auto target = pathOfFileUri(entry.target);
    if (target && search(*target, wanted)) return true;
  }
  return false;
}

}  // namespace fdmorph

#include "description/directives.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "source/source_directives.h"
#include "text/letter_case.h"
#include "text/near_words.h"

namespace fdmorph::compiler {
namespace {

constexpr unsigned kMaxTabs = 255;

// Each folder is searched for each member with each extension.
constexpr std::size_t kMaxCopyFolders = 1000;
constexpr std::size_t kMaxCopyExtensions = 20;

// In characters: what an error shows of a parameter.
constexpr std::size_t kMaxShownParameter = 60;

bool setDictionary(std::string_view parameter, Directives& directives) {
  bool isFile = equalsIgnoringCase(parameter, "FILE");
  if (!isFile && !equalsIgnoringCase(parameter, "WS")) return false;
  directives.writesDictionary = true;
  directives.order = isFile ? DictionaryOrder::filesFirst : DictionaryOrder::workingStorageFirst;
  return true;
}

bool setFormat(std::string_view parameter, Directives& directives) {
  std::optional<Format> format = formatOfName(parameter);
  if (format) directives.reading.format = *format;
  return format.has_value();
}

bool setTabs(std::string_view parameter, Directives& directives) {
  unsigned tabs = 0;
  auto [end, error] = std::from_chars(parameter.data(), parameter.data() + parameter.size(), tabs);
  bool isValid = error == std::errc() && end == parameter.data() + parameter.size() && tabs > 0 &&
                 tabs <= kMaxTabs;
  if (isValid) directives.reading.tabs = tabs;
  return isValid;
}

std::vector<std::string> split(std::string_view text, char separator) {
  std::vector<std::string> parts;
  while (true) {
    std::size_t end = text.find(separator);
    parts.emplace_back(text.substr(0, end));
    if (end == std::string_view::npos) return parts;
    text.remove_prefix(end + 1);
  }
}

bool setCopyPath(std::string_view parameter, Directives& directives) {
  std::vector<std::string> folders = split(parameter, ':');
  if (parameter.empty() || folders.size() > kMaxCopyFolders) return false;
  directives.copying.folders = std::move(folders);
  return true;
}

// A member without an extension is always allowed.
bool setCopyExtensions(std::string_view parameter, Directives& directives) {
  std::vector<std::string> extensions = split(parameter, ',');
  if (extensions.size() > kMaxCopyExtensions) return false;
  directives.copying.extensions.clear();
  for (std::string& each : extensions) {
    std::erase(each, ' ');
    if (!each.empty() && each.front() == '.') each.erase(0, 1);
    directives.copying.extensions.push_back(each);
  }
  std::vector<std::string>& all = directives.copying.extensions;
  if (std::find(all.begin(), all.end(), "") == all.end()) all.emplace_back();
  return true;
}

// Words separated by blanks or commas.
std::vector<std::string> words(std::string_view text) {
  std::vector<std::string> result;
  constexpr std::string_view kSeparators = " \t,";
  while (true) {
    text.remove_prefix(std::min(text.find_first_not_of(kSeparators), text.size()));
    if (text.empty()) return result;
    std::size_t end = std::min(text.find_first_of(kSeparators), text.size());
    result.emplace_back(text.substr(0, end));
    text.remove_prefix(end);
  }
}

bool setRecords(std::string_view parameter, Directives& directives) {
  directives.choice.records = words(parameter);
  return !directives.choice.records.empty();
}

bool setViews(std::string_view parameter, Directives& directives) {
  directives.choice.views = words(parameter);
  return !directives.choice.views.empty();
}

/// A word of a parameter and what it stands for.
template <typename Value>
struct Choice {
  std::string_view word;
  Value value;
};

template <typename Value, std::size_t Size>
bool choose(std::string_view parameter, std::array<Choice<Value>, Size> const& choices,
            auto& result) {
  auto found = std::find_if(choices.begin(), choices.end(), [&](Choice<Value> const& each) {
    return equalsIgnoringCase(each.word, parameter);
  });
  if (found != choices.end()) result = found->value;
  return found != choices.end();
}

constexpr std::array kSwitch{Choice<bool>{"ON", true}, Choice<bool>{"OFF", false}};
constexpr std::array kSections{
    Choice<Section>{"FILE", Section::file},
    Choice<Section>{"WORKING-STORAGE", Section::workingStorage},
    Choice<Section>{"LOCAL-STORAGE", Section::localStorage},
    Choice<Section>{"LINKAGE", Section::linkage},
};
constexpr std::array kDialects{
    Choice<Dialect>{"GNUCOBOL", Dialect::gnuCobol},
    Choice<Dialect>{"IBM", Dialect::ibm},
};
constexpr std::array kCopyMissing{Choice<bool>{"ERROR", false}, Choice<bool>{"WARN", true}};

bool setSection(std::string_view parameter, Directives& directives) {
  return choose(parameter, kSections, directives.choice.section);
}

bool setConditions(std::string_view parameter, Directives& directives) {
  return choose(parameter, kSwitch, directives.choice.hasConditions);
}

bool setValues(std::string_view parameter, Directives& directives) {
  return choose(parameter, kSwitch, directives.choice.hasValues);
}

bool setFillerNames(std::string_view parameter, Directives& directives) {
  return choose(parameter, kSwitch, directives.choice.hasFillerNames);
}

bool setCopyMissing(std::string_view parameter, Directives& directives) {
  return choose(parameter, kCopyMissing, directives.warnsOfMissingCopies);
}

bool setDialect(std::string_view parameter, Directives& directives) {
  return choose(parameter, kDialects, directives.dialect);
}

bool setListing(std::string_view parameter, Directives& directives) {
  directives.listing = parameter;
  return !parameter.empty();
}

bool setDepfile(std::string_view parameter, Directives& directives) {
  directives.depfile = parameter;
  return !parameter.empty();
}

bool addDepTarget(std::string_view parameter, Directives& directives) {
  directives.depTargets.emplace_back(parameter);
  return !parameter.empty();
}

// zbc makes neither object code nor debugging information.
bool ignore(std::string_view, Directives&) {
  return true;
}

struct Entry {
  std::string_view name;
  bool (*apply)(std::string_view parameter, Directives& directives);
};

constexpr std::array kDirectives{
    Entry{"XMLGEN", setDictionary},
    Entry{"RECORD", setRecords},
    Entry{"SECTION", setSection},
    Entry{"CONDITIONS", setConditions},
    Entry{"VALUES", setValues},
    Entry{"REDEFINES", setViews},
    Entry{"RENAME-FILLER", setFillerNames},
    Entry{"LIST", setListing},
    Entry{"DIALECT", setDialect},
    Entry{"SOURCEFORMAT", setFormat},
    Entry{"TABS", setTabs},
    Entry{"COPYPATH", setCopyPath},
    Entry{"COPYEXT", setCopyExtensions},
    Entry{"COPYMISSING", setCopyMissing},
    Entry{"DEPFILE", setDepfile},
    Entry{"DEPTARGET", addDepTarget},
    Entry{"DBGI", ignore},
    Entry{"NODBGI", ignore},
    Entry{"OBJ", ignore},
    Entry{"NOOBJ", ignore},
};

bool isBlank(char c) {
  return static_cast<unsigned char>(c) <= ' ';
}

/// Reads `NAME`, `NAME(PARAMETER)` and `NAME"PARAMETER"` one after another.
class DirectiveReader {
 public:
  explicit DirectiveReader(std::string_view text) : m_text(text) {}

  // Reads the next directive. Returns false at the end of the text.
  bool next() {
    while (m_at < m_text.size() && isBlank(m_text[m_at])) ++m_at;
    std::size_t begin = m_at;
    while (m_at < m_text.size() && !isBlank(m_text[m_at]) && m_text[m_at] != '(' &&
           m_text[m_at] != '"') {
      ++m_at;
    }
    name = m_text.substr(begin, m_at - begin);
    parameter = {};
    // Blanks may precede the parenthesis.
    std::size_t next = m_at;
    while (next < m_text.size() && isBlank(m_text[next])) ++next;
    if (next < m_text.size() && m_text[next] == '(') m_at = next;
    if (m_at < m_text.size() && !isBlank(m_text[m_at])) readParameter();
    return m_at > begin;
  }

  std::string_view name;
  std::string_view parameter;

 private:
  void readParameter() {
    char close = m_text[m_at] == '(' ? ')' : '"';
    std::size_t end = m_text.find(close, m_at + 1);
    if (end == std::string_view::npos) end = m_text.size();
    parameter = m_text.substr(m_at + 1, end - m_at - 1);
    m_at = std::min(end + 1, m_text.size());
    while (!parameter.empty() && isBlank(parameter.front())) parameter.remove_prefix(1);
    while (!parameter.empty() && isBlank(parameter.back())) parameter.remove_suffix(1);
    if (parameter.size() >= 2 && parameter.front() == '"' && parameter.back() == '"') {
      parameter = parameter.substr(1, parameter.size() - 2);
    }
  }

  std::string_view m_text;
  std::size_t m_at = 0;
};

std::string shownParameter(std::string_view parameter) {
  std::string shown(firstCharacters(parameter, kMaxShownParameter));
  if (shown.size() < parameter.size()) shown += "...";
  return shown;
}

}  // namespace

std::string describeUnknown(std::string const& name) {
  std::array<std::string_view, kDirectives.size()> names;
  std::transform(kDirectives.begin(), kDirectives.end(), names.begin(),
                 [](Entry const& each) { return each.name; });
  return "unknown directive " + quoted(name) + suggestWord(name, names);
}

std::optional<std::string> applyDirectives(std::string_view text, Directives& directives) {
  DirectiveReader reader(text);
  while (reader.next()) {
    auto found = std::find_if(kDirectives.begin(), kDirectives.end(), [&](Entry const& each) {
      return equalsIgnoringCase(each.name, reader.name);
    });
    if (found == kDirectives.end()) {
      std::string name = upperCase(reader.name);
      if (directives.unknownNames.insert(name).second) directives.unknown.push_back(name);
    } else if (!found->apply(reader.parameter, directives)) {
      return std::string(found->name) + "(" + shownParameter(reader.parameter) + ")";
    }
  }
  return std::nullopt;
}

std::optional<std::string> applyDirectiveFile(std::string_view content, Directives& directives) {
  while (!content.empty()) {
    std::size_t end = std::min(content.find('\n'), content.size());
    std::string_view line = content.substr(0, end);
    content.remove_prefix(std::min(end + 1, content.size()));
    while (!line.empty() && isBlank(line.front())) line.remove_prefix(1);
    if (line.starts_with('*')) continue;
    if (auto wrong = applyDirectives(line, directives)) return wrong;
  }
  return std::nullopt;
}

}  // namespace fdmorph::compiler

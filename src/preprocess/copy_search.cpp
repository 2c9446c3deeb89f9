#include "preprocess/copy_search.h"

#include "text/output_file.h"

#include <algorithm>

namespace fdmorph::compiler {
namespace {

std::string lowerCase(std::string text) {
  for (char& c : text) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  return text;
}

std::string upperCaseOf(std::string text) {
  for (char& c : text) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  return text;
}

std::string withSlash(std::string folder) {
  if (!folder.empty() && folder.back() != '/') folder += '/';
  return folder;
}

}  // namespace

CopySearch::CopySearch(Sources& sources, CopyRules rules, std::string const& sourcePath)
    : m_sources(sources), m_rules(std::move(rules)), m_sourceFolder(folderOf(sourcePath)) {}

SourceFile const* CopySearch::find(std::string_view member, std::string_view library,
                                   std::string_view copyingPath) {
  std::string name(member);
  if (name.empty()) return nullptr;
  if (name.front() == '/') return searchFolder("", name);
  std::string copyingFolder = folderOf(copyingPath);
  // A line feed stands in no name.
  std::string key = name + '\n' + std::string(library) + '\n' + copyingFolder;
  auto [entry, isNew] = m_found.try_emplace(key, nullptr);
  if (isNew) entry->second = search(name, std::string(library), copyingFolder);
  return entry->second;
}

SourceFile const* CopySearch::search(std::string const& member, std::string const& library,
                                     std::string const& copyingFolder) {
  std::vector<std::string> folders{m_sourceFolder};
  if (copyingFolder != m_sourceFolder) folders.push_back(copyingFolder);
  for (std::string const& each : m_rules.folders) folders.push_back(withSlash(each));
  if (!library.empty()) {
    for (std::string const& folder : folders) {
      for (std::string const& each : {library, lowerCase(library), upperCaseOf(library)}) {
        if (SourceFile const* file = searchFolder(folder + withSlash(each), member)) return file;
      }
    }
  }
  for (std::string const& folder : folders) {
    if (SourceFile const* file = searchFolder(folder, member)) return file;
  }
  return nullptr;
}

SourceFile const* CopySearch::searchFolder(std::string const& folder, std::string const& member) {
  std::vector<std::string> names{member};
  for (std::string const& each : {lowerCase(member), upperCaseOf(member)}) {
    if (std::find(names.begin(), names.end(), each) == names.end()) names.push_back(each);
  }
  for (std::string const& name : names) {
    for (std::string const& extension : m_rules.extensions) {
      std::string path = folder + name;
      if (!extension.empty()) (path += '.') += extension;
      if (SourceFile const* file = m_sources.file(path)) return file;
    }
  }
  return nullptr;
}

}  // namespace fdmorph::compiler

#include "preprocess/copy_search.h"

#include <algorithm>
#include <array>

#include "text/file_replacement.h"
#include "text/letter_case.h"

namespace fdmorph::compiler {
namespace {

std::string lowerCase(std::string text) {
  for (char& c : text) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  return text;
}

/// A name as written, in lower case and in upper case.
std::array<std::string, 3> spellingsOf(std::string const& name) {
  return {name, lowerCase(name), upperCase(name)};
}

std::string withSlash(std::string folder) {
  if (!folder.empty() && folder.back() != '/') folder += '/';
  return folder;
}

std::string withoutSlash(std::string folder) {
  if (folder.size() > 1 && folder.back() == '/') folder.pop_back();
  return folder.empty() ? "." : folder;
}

void addOnce(std::vector<std::string>& list, std::string text) {
  if (std::find(list.begin(), list.end(), text) == list.end()) list.push_back(std::move(text));
}

}  // namespace

CopySearch::CopySearch(Sources& sources, CopyRules rules, std::string sourcePath)
    : m_sources(sources), m_rules(std::move(rules)), m_sourcePath(std::move(sourcePath)) {}

SourceFile const* CopySearch::find(std::string_view member, std::string_view library,
                                   std::string_view copyingPath) {
  std::string name(member);
  if (name.empty()) return nullptr;
  std::string copyingFolder = folderOf(copyingPath);
  // No name contains a line feed.
  std::string key = name + '\n' + std::string(library) + '\n' + copyingFolder;
  auto [entry, isNew] = m_found.try_emplace(key, nullptr);
  if (!isNew) return entry->second;
  m_isSourceSkipped = false;
  entry->second = search(name, std::string(library), copyingFolder);
  if (entry->second == nullptr && m_isSourceSkipped) entry->second = m_sources.file(m_sourcePath);
  return entry->second;
}

std::vector<std::string> CopySearch::foldersSearched(std::string_view copyingPath) {
  std::vector<std::string> folders;
  for (std::string const& each : foldersFor(folderOf(copyingPath))) {
    addOnce(folders, withoutSlash(each));
  }
  return folders;
}

std::vector<std::string> const& CopySearch::foldersFor(std::string const& copyingFolder) {
  if (!m_folders.empty() && m_copyingFolder == copyingFolder) return m_folders;
  m_copyingFolder = copyingFolder;
  m_folders = {folderOf(m_sourcePath)};
  addOnce(m_folders, copyingFolder);
  for (std::string const& each : m_rules.folders) addOnce(m_folders, withSlash(each));
  return m_folders;
}

SourceFile const* CopySearch::search(std::string const& member, std::string const& library,
                                     std::string const& copyingFolder) {
  if (member.front() == '/') return searchFolder("", member);
  std::vector<std::string> const& folders = foldersFor(copyingFolder);
  if (!library.empty()) {
    for (std::string const& folder : folders) {
      for (std::string const& each : spellingsOf(library)) {
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
  std::vector<std::string> names;
  for (std::string& each : spellingsOf(member)) addOnce(names, std::move(each));
  for (std::string const& name : names) {
    for (std::string const& extension : m_rules.extensions) {
      std::string path = folder + name;
      if (!extension.empty()) (path += '.') += extension;
      bool isSource = path == m_sourcePath;
      m_isSourceSkipped |= isSource;
      if (isSource) continue;
      if (SourceFile const* file = m_sources.file(path)) return file;
    }
  }
  return nullptr;
}

}  // namespace fdmorph::compiler

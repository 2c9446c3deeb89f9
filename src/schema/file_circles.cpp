#include "schema/file_circles.h"

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace fdmorph {
namespace {

constexpr std::string_view kFileScheme = "file://";

std::string resolve(std::string const& location) {
  namespace fs = std::filesystem;
  std::string path = location;
  if (path.compare(0, kFileScheme.size(), kFileScheme) == 0) {
    std::size_t slash = path.find('/', kFileScheme.size());
    path = slash == std::string::npos ? std::string() : path.substr(slash);
  }
  if (path.find("://") != std::string::npos) return location;
  std::error_code error;
  fs::path absolute = fs::absolute(path, error);
  if (error) return location;
  fs::path resolved = fs::weakly_canonical(absolute, error);
  return error ? absolute.lexically_normal().string() : resolved.string();
}

}  // namespace

bool FileCircles::enter(std::string const& location) {
  auto [entry, isNew] = m_files.try_emplace(resolve(location));
  File* file = &entry->second;
  if (isNew) {
    file->order = file->lowest = m_files.size();
    m_reading.push_back(file);
    m_unfinished.push_back(file);
    return true;
  }
  if (file->isUnfinished) {
    File* referrer = reading();
    if (referrer != nullptr) referrer->lowest = std::min(referrer->lowest, file->order);
    file->isInCircle = true;
    return false;
  }
  if (file->isInCircle) return false;
  // Everything it leads to is finished, so reading it again finds no new circle.
  m_reading.push_back(nullptr);
  return true;
}

void FileCircles::leave() {
  File* file = reading();
  m_reading.pop_back();
  if (file == nullptr) return;
  if (file->lowest == file->order) finishComponent(file);
  if (reading() != nullptr) reading()->lowest = std::min(reading()->lowest, file->lowest);
}

void FileCircles::finishComponent(File* first) {
  bool isCircle = m_unfinished.back() != first;
  File* file = nullptr;
  do {
    file = m_unfinished.back();
    m_unfinished.pop_back();
    file->isUnfinished = false;
    file->isInCircle = file->isInCircle || isCircle;
  } while (file != first);
}

}  // namespace fdmorph

#include "support/temporary_folder.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>

namespace fdmorph {

TemporaryFolder::TemporaryFolder() {
  // The real path, as the current directory would give it.
  auto parent = std::filesystem::canonical(std::filesystem::temp_directory_path());
  std::string name = (parent / "fdmorph-unit-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
  m_path = name;
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(m_path, ignored);
}

std::string TemporaryFolder::write(std::string const& name, std::string_view text) const {
  std::filesystem::path file = m_path / name;
  std::filesystem::create_directories(file.parent_path());
  std::ofstream(file, std::ios::binary) << text;
  return file.string();
}

std::string TemporaryFolder::read(std::string const& name) const {
  std::ifstream file(m_path / name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

}  // namespace fdmorph

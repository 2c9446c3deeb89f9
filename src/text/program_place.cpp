#include "text/program_place.h"

namespace fdmorph {

std::filesystem::path pathFromProgram(std::string_view relative, std::error_code& error) {
  std::filesystem::path const program = std::filesystem::read_symlink("/proc/self/exe", error);
  if (error) return {};
  // The system names a file outside the root of the process in another way.
  if (!program.is_absolute()) {
    error = std::make_error_code(std::errc::no_such_file_or_directory);
    return {};
  }
  return (program.parent_path() / relative).lexically_normal();
}

}  // namespace fdmorph

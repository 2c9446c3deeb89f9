// Where the program that runs lies.
#pragma once

#include <filesystem>
#include <string_view>
#include <system_error>

namespace fdmorph {

/// The absolute path of a file that has the place `relative` to the folder of the program
/// that runs. Links to the program are followed. Empty, with `error` set, if the system
/// does not say where the program is: never a path relative to the current folder, which
/// may be anybody's.
[[nodiscard]] std::filesystem::path pathFromProgram(std::string_view relative,
                                                    std::error_code& error);

}  // namespace fdmorph

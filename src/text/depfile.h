// Files that hold a rule for make: what an output was made from.
#pragma once

#include <span>
#include <string>

namespace fdmorph {

/// A rule of make by which `targets` depend on `files`, in the form that make, ninja
/// and CMake read, and a rule without prerequisites for each file, so that make goes on
/// when a file is gone. Names are paths as they were opened. A name with a line feed,
/// which the form cannot hold, is left out.
[[nodiscard]] std::string writeDepfile(std::span<std::string const> targets,
                                       std::span<std::string const> files);

}  // namespace fdmorph

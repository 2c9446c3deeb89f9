// What the fuzz targets share. A target keeps its files in the working
// directory, which scripts/fuzz makes for each run.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace fdmorph {

/// Ends a file in an input of several files. No XML document holds it.
inline constexpr char kFileSeparator = '\x1E';

/// The bytes of an input.
inline std::string_view fuzzText(std::uint8_t const* data, std::size_t size) {
  return {reinterpret_cast<char const*>(data), size};
}

/// The files of an input, at most `count`. The last one takes the rest.
[[nodiscard]] std::vector<std::string_view> splitFuzzFiles(std::string_view text,
                                                           std::size_t count);

/// Writes a file to the working directory, and ends the process if it cannot.
void writeFuzzFile(std::string const& name, std::string_view content);

/// The bytes of a file of the working directory; none if it is missing.
[[nodiscard]] std::string readFuzzFile(std::string const& name);

/// Starts a run: nothing is counted, and the console goes to memory.
void beginFuzzRun();

/// What the run has said so far, or the beginning of it.
[[nodiscard]] std::string const& fuzzMessages();

/// Starts the XML library for the whole process. Nothing is fetched: no host can
/// be reached.
void startFuzzLibrary();

/// Reports a rule that does not hold, with what shows it, and ends the process.
[[noreturn]] void failFuzzRun(std::string_view rule, std::string_view evidence);

}  // namespace fdmorph

// How far a run has come.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace fdmorph::framing {

/// What a progress line is made of.
struct ProgressState {
  std::uint64_t bytes = 0;             ///< read
  std::optional<std::uint64_t> total;  ///< bytes in all, if known
  std::uint64_t records = 0;           ///< read
  std::chrono::duration<double> time{};
};

/// The line, without an end: "12.5 MB of 50.0 MB, 1000 records, 2.5 MB/s, 0:15 left".
/// What is not known is left out. MB are 1,000,000 bytes.
[[nodiscard]] std::string progressLine(ProgressState const& state);

/// A line that is kept up to date. On a terminal it is written over; elsewhere a new line
/// follows each old one. Not for several threads at a time.
class Progress {
 public:
  using Duration = std::chrono::steady_clock::duration;

  /// Where the line goes and what the time is.
  struct Surroundings {
    bool isTerminal;
    std::function<void(std::string_view)> print;
    std::function<Duration()> now;  ///< since any moment
  };

  /// The standard error stream and the clock of the system.
  [[nodiscard]] static Surroundings standardError();

  /// Starts the time.
  Progress(Surroundings surroundings, std::optional<std::uint64_t> totalBytes);

  /// Tells what is read by now. Prints a line if the last one is old enough; the first
  /// appears after a second.
  void update(std::uint64_t bytes, std::uint64_t records);

  /// Clears the line, so that a message can be printed.
  void hide();

  /// Prints the last line. On a terminal only if there was one before: a short run has
  /// none.
  void finish();

 private:
  void print();

  Surroundings m_surroundings;
  ProgressState m_state;
  Duration m_start;
  Duration m_next;  // time of the next line
  bool m_isShown = false;
  bool m_wasShown = false;
};

}  // namespace fdmorph::framing

// The options that say how records stand in a file, and which of them to read.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "fdrec/command.h"
#include "framing/frame_error.h"
#include "framing/framing_rules.h"
#include "framing/input_stream.h"
#include "framing/parts.h"

namespace fdmorph::fdrec {

/// A part to read, or why there is none.
struct ChosenPart {
  framing::PartRange range;
  int status = kClean;  ///< else an exit status; the reason is printed
};

class FramingOptions {
 public:
  /// Declares the options that say where records are: --format, --length, --rdw,
  /// --header and --trailer.
  void declarePlaces(CLI::App& app);

  /// Declares all options of framing, these included.
  void declare(CLI::App& app);

  /// The format, which is known as soon as the options are parsed.
  [[nodiscard]] framing::Format format() const { return m_rules.format; }

  /// Completes the rules for records of up to `length` bytes, filled with `blank`.
  /// The result is an error of usage; empty if there is none.
  [[nodiscard]] std::string complete(std::uint64_t length, char blank);

  /// The rules of the file, after complete().
  [[nodiscard]] framing::FramingRules const& rules() const { return m_rules; }

  /// The part of `input` to read: the whole without --part. Reads the index if one is
  /// needed. `name` is that of the data in messages.
  [[nodiscard]] ChosenPart choosePart(framing::InputStream const& input,
                                      std::string const& name) const;

  /// The number of threads, at least 1.
  [[nodiscard]] std::size_t threads() const { return m_threads; }

  /// Whether the progress is shown; by default on a terminal.
  [[nodiscard]] bool hasProgress() const;

 private:
  enum class RdwForm : std::uint8_t { exclusive, little };

  [[nodiscard]] ChosenPart choosePartByIndex(framing::InputStream const& input,
                                             std::string const& name) const;

  framing::FramingRules m_rules;
  std::optional<std::uint64_t> m_length;
  std::vector<RdwForm> m_rdw;
  std::string m_part;
  std::optional<framing::Part> m_parsedPart;
  std::string m_index;
  std::size_t m_threads = 1;
  bool m_hasProgress = false;
  bool m_isSilent = false;
};

/// The name of an input in messages.
[[nodiscard]] std::string inputName(std::string const& path);

/// Prints where and why a file cannot be read further.
void printFrameError(std::string const& name, framing::FrameError const& error);

/// Prints why an input could not be read.
void printReadFailure(std::string const& name, std::string const& reason);

}  // namespace fdmorph::fdrec

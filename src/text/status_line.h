// A line on a terminal that shows what a long run is at.
//
// It is drawn where the cursor is, and only while that is the beginning of a line. Before
// anything else is written to a terminal, it is cleared. A run that takes less than a
// second has none.
//
// There are no timers: the code that works says what it does and counts, and now and then
// that draws the line. Where the line was not started, that costs one comparison.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

namespace fdmorph {

/// What a step counts.
enum class StepUnit { none, bytes, files, items };

class StatusLine {
 public:
  using Duration = std::chrono::steady_clock::duration;

  /// Where the line is drawn. Signal handlers may call `write`.
  struct Terminal {
    void (*write)(std::string_view text) = nullptr;
    Duration (*now)() = nullptr;      ///< since any moment
    unsigned (*columns)() = nullptr;  ///< 0 while nothing may be drawn
  };

  StatusLine() = default;
  StatusLine(StatusLine const&) = delete;
  StatusLine& operator=(StatusLine const&) = delete;

  /// Starts the time.
  void start(Terminal const& terminal);

  /// Clears the line. There is none from here on.
  void end();

  /// Begins what the line shows next: "fdmorph: checking a.xsd, 3 files, 2 s". `action` is the
  /// first word; `name` is cut if the terminal is too narrow, and `part` follows it.
  void beginStep(std::string_view action, std::string_view name, StepUnit unit,
                 std::string_view part = {}) {
    if (m_isStarted) setStep(action, name, unit, part);
  }

  /// Counts what the step has done. Another unit than that of the step changes nothing.
  void count(StepUnit unit, std::uint64_t number = 1) {
    if (!m_isStarted) return;
    if (unit == m_unit) m_number += number;
    drawIfDue();
  }

  /// Lets the line be drawn, if it is time.
  void poll() {
    if (m_isStarted) drawIfDue();
  }

  /// The same, where calls are so many that looking at the clock takes time.
  void pollRarely() {
    if (m_isStarted && ++m_calls % kRarely == 0) drawIfDue();
  }

  [[nodiscard]] bool isStarted() const { return m_isStarted; }

  /// Clears the line, since text follows. May be called in a signal handler.
  void hide();

  /// Notes that the cursor is at the beginning of a line after a text, or is not.
  void noteText(bool endsLine) { m_isAtLineBegin = endsLine; }

  /// Keeps the line from being drawn during its lifetime: something else writes to the
  /// terminal.
  class Suspension {
   public:
    explicit Suspension(StatusLine& line);
    ~Suspension();
    Suspension(Suspension const&) = delete;
    Suspension& operator=(Suspension const&) = delete;

   private:
    StatusLine* m_line;  // null if it was not started
  };

 private:
  static constexpr unsigned kRarely = 256;  // calls

  void setStep(std::string_view action, std::string_view name, StepUnit unit,
               std::string_view part);
  void drawIfDue();
  [[nodiscard]] std::string text(unsigned columns, Duration now) const;

  bool m_isStarted = false;
  Terminal m_terminal;
  Duration m_start{};
  Duration m_next{};  // when the line may be drawn
  std::string m_action;
  std::string m_name;
  std::string m_part;
  StepUnit m_unit = StepUnit::none;
  std::uint64_t m_number = 0;
  unsigned m_calls = 0;
  int m_suspensions = 0;
  bool m_isAtLineBegin = true;
  std::atomic<bool> m_isShown = false;  // a signal handler reads it
};

/// The line of this process. Only fdmorph starts it.
extern StatusLine statusLine;

/// `text` as a terminal shows it, in no more columns than these. What does not fit is
/// cut off at a character, and "..." follows. What the terminal does not show as a
/// character is "?".
[[nodiscard]] std::string fittedText(std::string_view text, unsigned columns);

}  // namespace fdmorph

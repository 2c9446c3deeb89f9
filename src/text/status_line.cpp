#include "text/status_line.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cwchar>
#include <utility>
#include <vector>

#include "text/terminal.h"

namespace fdmorph {

StatusLine statusLine;

namespace {

static_assert(std::atomic<bool>::is_always_lock_free, "signal handlers read one");

constexpr StatusLine::Duration kFirst = std::chrono::seconds(1);
constexpr StatusLine::Duration kPause = std::chrono::milliseconds(200);
constexpr unsigned kLeastColumns = 20;
constexpr unsigned kLeastName = 8;  // columns; with less room the whole line is cut
constexpr std::string_view kCut = "...";
constexpr double kMegabyte = 1e6;

/// A character as a terminal shows it.
struct Cell {
  std::string bytes;
  unsigned columns;
};

std::vector<Cell> cellsOf(std::string_view text) {
  std::vector<Cell> cells;
  std::mbstate_t state{};
  while (!text.empty()) {
    wchar_t character = 0;
    std::size_t length = std::mbrtowc(&character, text.data(), text.size(), &state);
    bool isCharacter = length > 0 && length <= text.size();
    int const columns = isCharacter ? wcwidth(character) : -1;
    if (columns < 0) {
      cells.push_back({"?", 1});
    } else {
      cells.push_back({std::string(text.substr(0, length)), static_cast<unsigned>(columns)});
    }
    text.remove_prefix(isCharacter ? length : 1);
    if (!isCharacter) state = {};
  }
  return cells;
}

unsigned columnsOf(std::vector<Cell> const& cells) {
  unsigned columns = 0;
  for (Cell const& cell : cells) columns += cell.columns;
  return columns;
}

unsigned columnsOf(std::string_view text) {
  return columnsOf(cellsOf(text));
}

std::string countText(StepUnit unit, std::uint64_t number) {
  if (number == 0) return {};
  std::string const one = ", " + std::to_string(number);
  std::string const plural = number == 1 ? "" : "s";
  std::array<char, 64> megabytes;
  switch (unit) {
    case StepUnit::none:
      break;
    case StepUnit::bytes:
      std::snprintf(megabytes.data(), megabytes.size(), ", %.1f MB",
                    static_cast<double>(number) / kMegabyte);
      return megabytes.data();
    case StepUnit::files:
      return one + " file" + plural;
    case StepUnit::items:
      return one + " item" + plural;
  }
  return {};
}

}  // namespace

std::string fittedText(std::string_view text, unsigned columns) {
  std::vector<Cell> const cells = cellsOf(text);
  bool const isCut = columnsOf(cells) > columns;
  unsigned const end = static_cast<unsigned>(std::min<std::size_t>(kCut.size(), columns));
  unsigned room = isCut ? columns - end : columns;
  std::string fitted;
  for (Cell const& cell : cells) {
    if (cell.columns > room) break;
    room -= cell.columns;
    fitted += cell.bytes;
  }
  if (isCut) fitted += kCut.substr(0, end);
  return fitted;
}

void StatusLine::start(Terminal const& terminal) {
  m_terminal = terminal;
  m_start = terminal.now();
  m_next = m_start + kFirst;
  m_isAtLineBegin = true;
  m_isStarted = true;
}

void StatusLine::end() {
  hide();
  m_isStarted = false;
  m_action.clear();
}

void StatusLine::setStep(std::string_view action, std::string_view name, StepUnit unit,
                         std::string_view part) {
  m_action = action;
  m_name = name;
  m_part = part;
  m_unit = unit;
  m_number = 0;
  drawIfDue();
}

void StatusLine::drawIfDue() {
  if (m_action.empty() || m_suspensions > 0 || !m_isAtLineBegin) return;
  Duration const now = m_terminal.now();
  if (now < m_next) return;
  m_next = now + kPause;
  unsigned const columns = m_terminal.columns();
  if (columns < kLeastColumns) {
    hide();
    return;
  }
  // A signal handler that runs before the line is drawn clears nothing, and one that runs
  // after that has to know.
  m_isShown = true;
  m_terminal.write("\r" + text(columns - 1, now) + kClearToEnd);
  m_isShown = true;
}

void StatusLine::hide() {
  if (!m_isShown) return;
  m_terminal.write(kClearLine);
  m_isShown = false;
}

std::string StatusLine::text(unsigned columns, Duration now) const {
  auto const seconds = std::chrono::duration_cast<std::chrono::seconds>(now - m_start);
  std::string const head = "fdmorph: " + m_action + " ";
  std::string const tail =
      m_part + countText(m_unit, m_number) + ", " + std::to_string(seconds.count()) + " s";
  unsigned const around = columnsOf(head) + columnsOf(tail);
  if (around + kLeastName > columns) return fittedText(head + m_name + tail, columns);
  return head + fittedText(m_name, columns - around) + tail;
}

StatusLine::Suspension::Suspension(StatusLine& line) : m_line(line.m_isStarted ? &line : nullptr) {
  if (m_line == nullptr) return;
  m_line->hide();
  ++m_line->m_suspensions;
}

StatusLine::Suspension::~Suspension() {
  if (m_line != nullptr) --m_line->m_suspensions;
}

}  // namespace fdmorph

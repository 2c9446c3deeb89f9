#include "framing/progress.h"

#include <unistd.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <utility>

#include "text/terminal.h"

namespace fdmorph::framing {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

constexpr Progress::Duration kFirst = seconds(1);
constexpr Progress::Duration kOnTerminal = milliseconds(200);
constexpr Progress::Duration kElsewhere = seconds(1);

constexpr double kMegabyte = 1e6;
constexpr double kGigabyte = 1e9;
constexpr double kFirstGigabytes = 1e10;  // below, the unit is MB
constexpr double kMaxSeconds = 1e9;       // above, nobody waits
constexpr std::uint64_t kMinute = 60;     // seconds
constexpr std::uint64_t kHour = 3600;

std::string sizeText(double bytes) {
  std::array<char, 64> text;
  bool const isLarge = bytes >= kFirstGigabytes;
  std::snprintf(text.data(), text.size(), "%.1f %s", bytes / (isLarge ? kGigabyte : kMegabyte),
                isLarge ? "GB" : "MB");
  return text.data();
}

std::string timeText(std::uint64_t time) {
  std::array<char, 64> text;
  unsigned long long const hours = time / kHour;
  unsigned long long const minutes = time % kHour / kMinute;
  unsigned long long const rest = time % kMinute;
  if (hours != 0) {
    std::snprintf(text.data(), text.size(), "%llu:%02llu:%02llu", hours, minutes, rest);
  } else {
    std::snprintf(text.data(), text.size(), "%llu:%02llu", minutes, rest);
  }
  return text.data();
}

}  // namespace

std::string progressLine(ProgressState const& state) {
  double const bytes = static_cast<double>(state.bytes);
  std::string line = sizeText(bytes);
  if (state.total) line += " of " + sizeText(static_cast<double>(*state.total));
  line += ", " + std::to_string(state.records) + (state.records == 1 ? " record" : " records");
  if (state.time.count() <= 0) return line;
  double const rate = bytes / state.time.count();
  line += ", " + sizeText(rate) + "/s";
  if (!state.total || *state.total < state.bytes || rate <= 0) return line;
  double const left = std::ceil(static_cast<double>(*state.total - state.bytes) / rate);
  if (left < kMaxSeconds) line += ", " + timeText(static_cast<std::uint64_t>(left)) + " left";
  return line;
}

Progress::Surroundings Progress::standardError() {
  return {isatty(STDERR_FILENO) == 1,
          [](std::string_view text) { std::fwrite(text.data(), 1, text.size(), stderr); },
          [] { return std::chrono::steady_clock::now().time_since_epoch(); }};
}

Progress::Progress(Surroundings surroundings, std::optional<std::uint64_t> totalBytes)
    : m_surroundings(std::move(surroundings)),
      m_start(m_surroundings.now()),
      m_next(m_start + kFirst) {
  m_state.total = totalBytes;
}

void Progress::update(std::uint64_t bytes, std::uint64_t records) {
  m_state.bytes = bytes;
  m_state.records = records;
  Duration const now = m_surroundings.now();
  if (now < m_next) return;
  m_next = now + (m_surroundings.isTerminal ? kOnTerminal : kElsewhere);
  print();
}

void Progress::print() {
  m_state.time = m_surroundings.now() - m_start;
  std::string line = "fdrec: " + progressLine(m_state);
  if (m_surroundings.isTerminal) {
    line.insert(0, kClearLine);
  } else {
    line += '\n';
  }
  m_surroundings.print(line);
  m_isShown = true;
  m_wasShown = true;
}

void Progress::hide() {
  if (m_isShown && m_surroundings.isTerminal) m_surroundings.print(kClearLine);
  m_isShown = false;
}

void Progress::finish() {
  if (m_surroundings.isTerminal && !m_wasShown) return;
  print();
  if (m_surroundings.isTerminal) m_surroundings.print("\n");
  m_isShown = false;
}

}  // namespace fdmorph::framing

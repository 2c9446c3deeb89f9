// The terminal of a user.
#pragma once

#include <optional>

#include "text/status_line.h"

namespace fdmorph {

/// What clears a terminal from the cursor to the end of the line (ECMA-48, 8.3.41).
inline constexpr char kClearToEnd[] = "\x1b[K";

/// What clears the line of the cursor, and leaves the cursor at its beginning.
inline constexpr char kClearLine[] = "\r\x1b[K";

/// Whether the descriptor is a pipe or a socket. What reads it may write to the terminal
/// at any moment.
[[nodiscard]] bool isPipe(int descriptor);

/// The terminal of the standard error stream. Nothing if that stream is none, or one that
/// cannot clear a line (by TERM), or if the standard output stream is a pipe. The number of
/// columns is 0 while the process is in the background.
[[nodiscard]] std::optional<StatusLine::Terminal> terminalOfErrors();

/// Has SIGTSTP and SIGQUIT clear the status line before they have their usual effect.
/// Signals that are ignored stay ignored.
void hideStatusLineOnSignals();

}  // namespace fdmorph

// Protection of the process as a whole: its standard streams and its stack.
#pragma once

namespace fdmorph {

/// Makes sure that no file that is opened later becomes a standard stream, so
/// that messages never end up in an output file: a closed stream is opened so
/// that it can neither be read nor written. A pipe without a reader makes
/// writing fail, instead of ending the process in the middle of a file.
void secureStandardStreams();

/// Restores the usual signals, for a child process.
void restoreSignals();

/// Raises the limit of the stack as far as the system allows, and makes sure
/// that a stack overflow ends the process with a line that begins "Internal
/// Error : " and exit status 1.
void guardStack();

}  // namespace fdmorph

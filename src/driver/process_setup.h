// Protection of the process as a whole: its standard streams, its stack, and its
// end before its time.
#pragma once

namespace fdmorph {

/// Makes sure that no file that is opened later becomes a standard stream, so
/// that messages never end up in an output file: a closed stream is opened so
/// that it can neither be read nor written, and a closed error stream so that it
/// takes everything. A pipe without a reader makes
/// writing fail, instead of ending the process in the middle of a file, and so
/// does the limit of the size of a file.
void secureStandardStreams();

/// Restores the usual signals, for a child process.
void restoreSignals();

/// Raises the limit of the stack as far as the system allows, and makes sure
/// that a stack overflow, or any other invalid memory access, ends the process
/// with a line that begins "Internal Error : " and exit status 1.
void guardStack();

/// Makes sure that a failed allocation ends the process with the line "Error :
/// Out of memory" and exit status 1, and that SIGINT, SIGTERM and SIGHUP end it
/// with a line after a compiler that is running. Files that are not complete by
/// then are removed.
void guardEnd();

/// Starts the line that shows on a terminal what the run is at, unless the run is quiet
/// or has a log.
void startStatusLine();

}  // namespace fdmorph

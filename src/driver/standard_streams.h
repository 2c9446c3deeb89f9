// The process's standard streams, whatever state they were handed over in.
#pragma once

namespace fdmorph {

/// Makes sure that no file that is opened later becomes a standard stream, so
/// that messages never end up in an output file: a closed stream is opened
/// such that it yields and takes nothing. A reader that goes away makes writing
/// fail instead of ending the process in the middle of a file.
void secureStandardStreams();

/// Gives a child process the usual behaviour back.
void restoreSignals();

}  // namespace fdmorph

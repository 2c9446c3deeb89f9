// The COBOL compiler as a child process.
#pragma once

#include <string>

namespace fdmorph {

/// How a call of the compiler ended.
enum class CompileOutcome {
  compiled,
  failed,       ///< exit code above zero
  notCreated,   ///< no child process
  notReturned,  ///< the child cannot be waited for; also in the child itself
};

/// Runs the compiler `zbc` on `compileFile` with the directives that make it
/// write its data dictionary, and waits for it. It is the one on the path, or if
/// the path has none, the bundled one at its place relative to this program. `directiveFile` may be
/// empty; both names are in double quotes if they hold a blank. The compiler's messages call the
/// source `sourceName`.
///
/// The child has no exit of its own: if the compiler cannot be started, or was
/// run through the pipe to the log, the call returns in the child as well,
/// with notReturned. A compiler that is killed by a signal counts as compiled.
[[nodiscard]] CompileOutcome runCompiler(std::string const& compileFile,
                                         std::string const& directiveFile,
                                         std::string const& sourceName);

/// `name`, which is in double quotes if it holds a blank, as a word of a shell
/// command.
[[nodiscard]] std::string shellWord(std::string const& name);

/// Ends a compiler that is running, and waits for its end. May be called in a
/// signal handler.
void endCompiler();

}  // namespace fdmorph

// Protection against input nested so deep that the stack runs out.
#pragma once

namespace fdmorph {

/// Raises the limit of the stack as far as the system allows, and makes sure
/// that running out of it all the same ends the process with a line that
/// begins "Internal Error : " and exit status 1.
void guardStack();

}  // namespace fdmorph

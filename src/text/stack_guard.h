// What happens where the stack of the process ends.
#pragma once

namespace fdmorph {

/// Lets the stack grow to 1 GB, as far as the process may, and calls `onOverflow` where
/// it ends and `onBadAccess` after another fault. Both have to end the process, and may
/// do what signal handlers may. `isMemoryUsed`: the process may have no more memory.
void installStackGuard(void (*onOverflow)(bool isMemoryUsed), void (*onBadAccess)());

}  // namespace fdmorph

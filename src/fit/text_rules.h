// The text and the attributes of an element. For this folder only.
#pragma once

#include "fit/walk_context.h"

namespace fdmorph::fit {

void checkText(WalkContext& context, Subject const& subject);
void checkAttributes(WalkContext& context, Subject const& subject);

}  // namespace fdmorph::fit

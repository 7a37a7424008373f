// The process's hooking library, MSHookMessageEx, and what it was used for.
#pragma once

namespace sim {

// How many methods have been replaced through MSHookMessageEx.
int replacedMethods();

}  // namespace sim

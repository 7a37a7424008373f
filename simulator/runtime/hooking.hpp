// The process's hooking library, MSHookMessageEx, and what it was used for.
#pragma once

namespace sim {

// How many methods have been replaced through MSHookMessageEx, and how many of these the class had only
// inherited.
struct HookCount {
  int replaced = 0;
  int inherited = 0;
};

const HookCount& hookCount();

}  // namespace sim

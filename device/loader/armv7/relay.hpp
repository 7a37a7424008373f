// Functions that stand for others and lay the words of a call out anew.
#pragma once

#include "device/loader/armv7/words.hpp"

namespace device::loader {

// What the relay goes by: the function to call, and its words. The routine knows where each lies.
struct Relay {
  void* target = nullptr;
  uint32_t count = 0;
  const uint32_t* words = nullptr;
  WordMap map;
};

// Lives as long as the process.
const Relay* makeRelay(void* target, const WordMap& map);

// A function that calls `target` with the words laid out by `map`, on a stack aligned for either side, and
// keeps register 9, which is the caller's on Linux and nobody's on Apple's systems.
void* relayed(void* target, const WordMap& map);

// What `function` leads to, where it is one of these; itself otherwise.
void* relayTarget(void* function);

}  // namespace device::loader

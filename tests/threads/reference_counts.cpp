// Tells the thread sanitizer of the order that reference counts bring about, for their libraries are not
// built with it: what a thread did to a block or an object before it let go of it has happened before the
// last one to let go takes it apart.
#include <dlfcn.h>

#include <atomic>
#include <thread>

#include "bridge/replace.hpp"
#include "platform/foundation/object.hpp"
#include "simulator/runtime/dealloc.hpp"
#include "simulator/runtime/export.hpp"

extern "C" {
void __tsan_acquire(void* address);
void __tsan_release(void* address);
}

namespace {

struct Counted : bridge::Face<"NSObject", NSObject> {
  MESSAGE Method<"release", void()> release;
};

void release(Counted self) {
  __tsan_release(self.raw);
  bridge::original<release>(self);
}

[[maybe_unused]] const bool watching = [] {
  bridge::replaceMethod(bridge::classNamed<Counted>(), bridge::selector<"release">(),
                        bridge::implementationOf<&Counted::release, release>(), bridge::slot<release>);
  sim::whenObjectsDie([](id dying) { __tsan_acquire(dying); });
  return true;
}();

}  // namespace

// One thread at a time lets go of a block, so that whoever is the last has been told of all before. The lock
// is one that the sanitizer learns nothing from: relaxed, it orders only what is told of it here.
SIMULATOR_EXPORT void _Block_release(const void* block) {
  static const auto original = reinterpret_cast<void (*)(const void*)>(dlsym(RTLD_NEXT, "_Block_release"));
  static std::atomic<bool> taken = false;
  static thread_local int depth = 0;  // what a block keeps may keep blocks
  if (depth++ == 0)
    while (taken.exchange(true, std::memory_order_relaxed)) std::this_thread::yield();
  __tsan_release(const_cast<void*>(block));
  __tsan_acquire(const_cast<void*>(block));
  original(block);
  if (--depth == 0) taken.store(false, std::memory_order_relaxed);
}

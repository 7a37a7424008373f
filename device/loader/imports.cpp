// The functions that Linux has otherwise than Apple's systems, or not at all, whatever the processor.
#include "device/loader/imports.hpp"

#include <dlfcn.h>
#include <fmt/format.h>

#include <cstdio>
#include <cstdlib>
#include <map>

#include "bridge/runtime.hpp"
#include "device/loader/constant_string.hpp"
#include "device/loader/crossings.hpp"
#include "device/loader/process.hpp"

namespace device::loader {
namespace {

// Apple's numbers.
enum : int { applesNow = 2, applesGlobal = 8 };
const auto everywhere = reinterpret_cast<void*>(-2);

void* openLibrary(const char* path, int mode) {
  return dlopen(path,
                (mode & applesNow ? RTLD_NOW : RTLD_LAZY) | (mode & applesGlobal ? RTLD_GLOBAL : RTLD_LOCAL));
}

void* pushPool() { return new bridge::Pool; }
void popPool(void* pool) { delete static_cast<bridge::Pool*>(pool); }

// Every pointer is bound when the image is loaded.
[[noreturn]] void bindLater() {
  fmt::print(stderr, "the slice asked for a pointer to be bound that is not in its table\n");
  std::abort();
}

constinit uintptr_t stackGuard = 0x5ca1ab1e;

}  // namespace

void* symbolNamed(void* image, const char* name) {
  return image == everywhere ? asItStands(std::string("_") + name) : dlsym(image, name);
}

void* importNamed(const std::string& symbol) {
  static const std::map<std::string, void*> own = [] {
    auto pointer = [](auto function) { return asImport(reinterpret_cast<void*>(function)); };
    std::map<std::string, void*> table{
        {"___CFConstantStringClassReference", constantStringClass()},
        {"___stack_chk_guard", &stackGuard},
        {"_dlopen", pointer(openLibrary)},
        {"_dlsym", pointer(symbolNamed)},
        {"_objc_autorelease", pointer(bridge::autorelease)},
        {"_objc_autoreleasePoolPop", pointer(popPool)},
        {"_objc_autoreleasePoolPush", pointer(pushPool)},
        {"_objc_release", pointer(bridge::release)},
        {"_objc_retain", pointer(bridge::retain)},
        {"_object_getClass", pointer(bridge::classOf)},
        {"dyld_stub_binder", pointer(bindLater)},
    };
    // Those of the processor come before those of any.
    auto first = crossings();
    first.merge(table);
    return first;
  }();
  if (auto found = own.find(symbol); found != own.end()) return found->second;
  return asImport(asItStands(symbol));
}

}  // namespace device::loader

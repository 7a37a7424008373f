// Every implementation that the slice gives is handed on as a function that lays the words out as Apple has
// them, every one that it gets as one that lays them out as Linux has them.
#include "device/loader/armv7/messages.hpp"

#include <fmt/format.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <unordered_map>

#include "bridge/block.hpp"
#include "device/loader/armv7/relay.hpp"
#include "device/loader/crossings.hpp"
#include "device/loader/imports.hpp"

extern "C" {
IMP objc_msg_lookup(id receiver, SEL selector);
void MSHookMessageEx(Class cls, SEL selector, IMP implementation, IMP* previous);
void dispatch_once_f(long* token, void* context, void (*function)(void*));
void sliceMessageSend();
void sliceMessageSendStructure();
}

// What the message goes to and how its words are laid out is looked up with the arguments kept. nil answers
// zero; what the runtime has for it leaves a structure as it is.
__asm__(R"(
  .text
  .arm
  .balign 4
  .global sliceMessageSend
  .type sliceMessageSend, %function
sliceMessageSend:
  cmp r0, #0
  moveq r1, #0
  bxeq lr
  push {r0-r3, r11, lr}
  mov r11, sp
  bic sp, sp, #7
  bl sliceRelayOf
  mov r12, r0
  mov sp, r11
  pop {r0-r3, r11, lr}
  b sliceRelay
  .size sliceMessageSend, . - sliceMessageSend

  .global sliceMessageSendStructure
  .type sliceMessageSendStructure, %function
sliceMessageSendStructure:
  push {r0-r3, r11, lr}
  mov r11, sp
  bic sp, sp, #7
  mov r0, r1
  mov r1, r2
  bl sliceRelayOf
  mov r12, r0
  mov sp, r11
  pop {r0-r3, r11, lr}
  b sliceRelay
  .size sliceMessageSendStructure, . - sliceMessageSendStructure
)");

namespace device::loader {
namespace {

// Of a method that has no encoding: forwarded ones, whose arguments are words.
constexpr const char* unknown = "@@:@@@@@@";

const char* typesOf(Class cls, SEL selector) {
  objc_method* method = cls ? class_getInstanceMethod(cls, selector) : nullptr;
  const char* types = method ? method_getTypeEncoding(method) : nullptr;
  return types ? types : unknown;
}

// The implementation, laid out as `from` calls it. What comes back to the side that it is of is as it was.
IMP across(IMP implementation, const char* types, Side from, Side to) {
  if (!implementation) return nullptr;
  void* code = reinterpret_cast<void*>(implementation);
  if (void* own = relayTarget(code); own != code) return reinterpret_cast<IMP>(own);
  return reinterpret_cast<IMP>(relayed(code, wordMap(types, from, to)));
}

// The slice's, for the process to call; and the other way about.
IMP outward(IMP implementation, const char* types) {
  return across(implementation, types, Side::linux, Side::apple);
}
IMP inward(IMP implementation, const char* types) {
  return across(implementation, types, Side::apple, Side::linux);
}

uint32_t addMethod(Class cls, SEL selector, IMP implementation, const char* types) {
  return class_addMethod(cls, selector, outward(implementation, types), types);
}

IMP implementationOf(Class cls, SEL selector) {
  return inward(class_getMethodImplementation(cls, selector), typesOf(cls, selector));
}

IMP implementationOfMethod(objc_method* method) {
  return inward(method_getImplementation(method), method_getTypeEncoding(method));
}

IMP setImplementation(objc_method* method, IMP implementation) {
  const char* types = method_getTypeEncoding(method);
  return inward(method_setImplementation(method, outward(implementation, types)), types);
}

void hook(Class cls, SEL selector, IMP implementation, IMP* previous) {
  const char* types = typesOf(cls, selector);
  IMP found = nullptr;
  MSHookMessageEx(cls, selector, outward(implementation, types), &found);
  if (found && previous) *previous = inward(found, types);
}

// A function of the slice, for the process to call.
template <class Function>
Function* callable(Function* function) {
  return reinterpret_cast<Function*>(asFunction(reinterpret_cast<void*>(function)));
}

void once(long* token, void* context, void (*function)(void*)) {
  dispatch_once_f(token, context, callable(function));
}

// What a block is called by is in its memory, where the slice and the process find the same: arguments that
// the two lay out in different ways cannot be had.
IMP invokedByBoth(IMP invoke, const char* signature) {
  if (wordMap(signature, Side::linux, Side::apple) != wordMap(signature, Side::apple, Side::linux)) {
    fmt::print(stderr, "a block '{}' cannot be called by both sides\n", signature);
    std::abort();
  }
  return outward(invoke, signature);
}

// The mark of a copy, which alone tells it here: it stays an instance of what the literal was one of.
constexpr int onHeap = 1 << 24;

// A literal that lies on the slice's stack still, and is its to give away: what it consists of is made
// callable before it is copied.
void* copyBlock(bridge::BlockHeader* block) {
  static std::unordered_map<const bridge::BlockDescriptor*, const bridge::BlockDescriptor*> descriptors;
  if ((block->flags & (bridge::blockHasCopyDispose | onHeap)) == bridge::blockHasCopyDispose) {
    const bridge::BlockDescriptor& own = *block->descriptor;
    const bridge::BlockDescriptor*& made = descriptors[&own];
    if (!made)
      made = new bridge::BlockDescriptor{own.reserved, own.size, callable(own.copy), callable(own.dispose),
                                         own.signature};
    *block = {block->isa, block->flags, block->reserved, invokedByBoth(block->invoke, own.signature), made};
  }
  return _Block_copy(block);
}

void* findSymbol(void* image, const char* name) {
  if (std::strcmp(name, "MSHookMessageEx") == 0) return asImport(reinterpret_cast<void*>(hook));
  return asImport(symbolNamed(image, name));
}

}  // namespace

std::map<std::string, void*> messageCrossings() {
  auto import = [](auto function) { return asImport(reinterpret_cast<void*>(function)); };
  return {
      {"__Block_copy", import(copyBlock)},
      {"_class_addMethod", import(addMethod)},
      {"_class_getMethodImplementation", import(implementationOf)},
      {"_dispatch_once_f", import(once)},
      {"_dlsym", import(findSymbol)},
      {"_method_getImplementation", import(implementationOfMethod)},
      {"_method_setImplementation", import(setImplementation)},
      {"_objc_msgSend", reinterpret_cast<void*>(sliceMessageSend)},
      {"_objc_msgSend_stret", reinterpret_cast<void*>(sliceMessageSendStructure)},
  };
}

}  // namespace device::loader

// The relay of the method that a message reaches. Kept for each implementation with the class and the
// selector, which its encoding goes by.
extern "C" __attribute__((used)) const device::loader::Relay* sliceRelayOf(id receiver, SEL selector) {
  using namespace device::loader;
  struct Key {
    Class cls;
    SEL selector;
    IMP implementation;
    bool operator==(const Key&) const = default;
  };
  struct Hash {
    size_t operator()(const Key& key) const {
      return std::hash<std::string_view>()({reinterpret_cast<const char*>(&key), sizeof key});
    }
  };
  static thread_local std::unordered_map<Key, const Relay*, Hash> known;
  const Key key{bridge::classOf(receiver), selector, objc_msg_lookup(receiver, selector)};
  const Relay*& relay = known[key];
  if (!relay)
    relay = makeRelay(reinterpret_cast<void*>(key.implementation),
                      wordMap(typesOf(key.cls, selector), Side::apple, Side::linux));
  return relay;
}

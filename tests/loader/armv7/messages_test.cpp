// Methods, messages and blocks that cross between the slice and the process. A function of the slice has a
// real behind three words at the very next one, as two arguments of 32 bits; Linux's compiler leaves a word
// out before it.
#include "device/loader/armv7/messages.hpp"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <csignal>
#include <cstring>

#include "bridge/block.hpp"
#include "bridge/runtime.hpp"
#include "device/loader/armv7/relay.hpp"
#include "tests/loader/armv7/caller.hpp"
#include "tests/loader/imported.hpp"

namespace {

using test::imported;
using testing::KilledBySignal;

uint32_t low(double value) { return static_cast<uint32_t>(std::bit_cast<uint64_t>(value)); }
uint32_t high(double value) { return static_cast<uint32_t>(std::bit_cast<uint64_t>(value) >> 32); }
double real(uint32_t low, uint32_t high) { return std::bit_cast<double>(uint64_t{high} << 32 | low); }

constexpr const char* types = "i@:cd";
using Ours = int(id, SEL, char, double);
using Slices = int(id, SEL, uint32_t, uint32_t, uint32_t);
int ours(id, SEL, char whole, double real) { return whole * 100 + static_cast<int>(real * 10); }
int slices(id, SEL, uint32_t whole, uint32_t low, uint32_t high) {
  return static_cast<int>(whole) * 1000 + static_cast<int>(real(low, high) * 10);
}

template <class Function>
IMP implementation(Function* function) {
  return reinterpret_cast<IMP>(function);
}
int callOurs(IMP implementation) { return reinterpret_cast<Ours*>(implementation)(nullptr, nullptr, 3, 1.5); }
int callSlices(IMP implementation) {
  return reinterpret_cast<Slices*>(implementation)(nullptr, nullptr, 3, low(1.5), high(1.5));
}

const SEL selector = sel_registerName("whole:real:");

// A class with a method of the process, and an object of it.
struct Methods : testing::Test {
  Class cls = objc_allocateClassPair(objc_getClass("NSObject"), "Crossed", 0);
  id object = reinterpret_cast<id>(&cls);

  Methods() {
    objc_registerClassPair(cls);
    class_addMethod(cls, selector, implementation(ours), types);
  }

  objc_method* method() const { return class_getInstanceMethod(cls, selector); }
  IMP own() const { return class_getMethodImplementation(cls, selector); }
};

TEST_F(Methods, OfTheSliceAreCalledByTheProcess) {
  const SEL other = sel_registerName("other:real:");
  EXPECT_EQ(imported<uint32_t(Class, SEL, IMP, const char*)>("_class_addMethod")(
                cls, other, implementation(slices), types),
            1u);
  EXPECT_EQ(callOurs(class_getMethodImplementation(cls, other)), 3015);
}

TEST_F(Methods, ThatAreThereAlreadyAreNotAdded) {
  EXPECT_EQ(imported<uint32_t(Class, SEL, IMP, const char*)>("_class_addMethod")(
                cls, selector, implementation(slices), types),
            0u);
}

TEST_F(Methods, OfTheProcessAreCalledByTheSlice) {
  EXPECT_EQ(callSlices(imported<IMP(Class, SEL)>("_class_getMethodImplementation")(cls, selector)), 315);
  EXPECT_EQ(callSlices(imported<IMP(objc_method*)>("_method_getImplementation")(method())), 315);
}

TEST_F(Methods, OfNoClassAreNone) {
  EXPECT_EQ(imported<IMP(Class, SEL)>("_class_getMethodImplementation")(nullptr, selector), nullptr);
}

// What forwards messages has words alone.
TEST_F(Methods, ThatAreNotThereAreWhatTheRuntimeSaysOfThem) {
  const SEL unknown = sel_registerName("notThere");
  const IMP found = imported<IMP(Class, SEL)>("_class_getMethodImplementation")(cls, unknown);
  EXPECT_EQ(device::loader::relayTarget(reinterpret_cast<void*>(found)),
            reinterpret_cast<void*>(class_getMethodImplementation(cls, unknown)));
}

TEST_F(Methods, AreReplacedByTheSlicesAndAnsweredAsItCallsThem) {
  const IMP before =
      imported<IMP(objc_method*, IMP)>("_method_setImplementation")(method(), implementation(slices));
  EXPECT_EQ(callSlices(before), 315);
  EXPECT_EQ(callOurs(own()), 3015);
}

TEST_F(Methods, OfTheSliceComeBackAsTheyWere) {
  imported<IMP(objc_method*, IMP)>("_method_setImplementation")(method(), implementation(slices));
  EXPECT_EQ(imported<IMP(objc_method*)>("_method_getImplementation")(method()), implementation(slices));
  const IMP back =
      imported<IMP(objc_method*, IMP)>("_method_setImplementation")(method(), implementation(slices));
  EXPECT_EQ(back, implementation(slices));
}

using Hook = void(Class, SEL, IMP, IMP*);

struct Hooks : Methods {
  Hook* const hook = reinterpret_cast<Hook*>(
      imported<void*(void*, const char*)>("_dlsym")(reinterpret_cast<void*>(-2), "MSHookMessageEx"));
};

TEST_F(Hooks, TakeTheSlicesMethodAndGiveTheProcesss) {
  IMP before = nullptr;
  hook(cls, selector, implementation(slices), &before);
  EXPECT_EQ(callOurs(own()), 3015);
  EXPECT_EQ(callSlices(before), 315);
}

TEST_F(Hooks, NeedNotGiveIt) {
  hook(cls, selector, implementation(slices), nullptr);
  EXPECT_EQ(callOurs(own()), 3015);
}

TEST_F(Hooks, OfNoClassGiveNothing) {
  IMP before = implementation(slices);
  hook(nullptr, selector, implementation(slices), &before);
  EXPECT_EQ(before, implementation(slices));
}

TEST(Symbols, OfTheProcessAreCalledByARelay) {
  void* found = imported<void*(void*, const char*)>("_dlsym")(reinterpret_cast<void*>(-2), "strlen");
  EXPECT_EQ(device::loader::relayTarget(found), reinterpret_cast<void*>(&std::strlen));
  EXPECT_NE(found, reinterpret_cast<void*>(&std::strlen));
}

using Sent = int(id, SEL, uint32_t, uint32_t, uint32_t);

TEST_F(Methods, AreReachedByMessages) {
  EXPECT_EQ(imported<Sent>("_objc_msgSend")(object, selector, 3, low(1.5), high(1.5)), 315);
}

TEST_F(Methods, AreReachedByMessagesWhoeverReplacedThemMeanwhile) {
  imported<Sent>("_objc_msgSend")(object, selector, 3, low(1.5), high(1.5));
  Ours* other = [](id, SEL, char whole, double) -> int { return whole; };
  method_setImplementation(method(), implementation(other));
  EXPECT_EQ(imported<Sent>("_objc_msgSend")(object, selector, 3, low(1.5), high(1.5)), 3);
}

int lastTwo(id, SEL, uint32_t, uint32_t, uint32_t third, uint32_t fourth) {
  return static_cast<int>(third * 10 + fourth);
}

// One function for two messages, which tell their words apart.
TEST_F(Methods, AreReachedByWordsThatTheirOwnTypesTell) {
  const SEL words = sel_registerName("words"), reals = sel_registerName("reals");
  class_addMethod(cls, words, implementation(lastTwo), "i@:iiii");
  class_addMethod(cls, reals, implementation(lastTwo), "i@:id");
  using Send = int(id, SEL, uint32_t, uint32_t, uint32_t, uint32_t);
  EXPECT_EQ(imported<Send>("_objc_msgSend")(object, words, 1, 2, 3, 4), 34);
  EXPECT_EQ(imported<Send>("_objc_msgSend")(object, reals, 1, 2, 3, 4), 23);
}

uint64_t wide(id, SEL) { return 22ull << 32 | 21; }

TEST_F(Methods, AnswerMessagesWith64Bits) {
  const SEL answer = sel_registerName("wide");
  class_addMethod(cls, answer, implementation(wide), "Q@:");
  EXPECT_EQ(imported<decltype(wide)>("_objc_msgSend")(object, answer), 22ull << 32 | 21);
}

TEST(MessagesToNil, AnswerZeros) {
  EXPECT_EQ(imported<uint64_t(id, SEL)>("_objc_msgSend")(nullptr, selector), 0u);
}

struct Rect {
  float x, y, width, height;
};
Rect rect(id, SEL, float x) { return {x, 2, 3, 4}; }

TEST_F(Methods, AnswerMessagesWithAStructure) {
  const SEL answer = sel_registerName("rect:");
  class_addMethod(cls, answer, implementation(rect), "{Rect=ffff}@:f");
  const Rect found = imported<decltype(rect)>("_objc_msgSend_stret")(object, answer, 1.5);
  EXPECT_EQ((std::array{found.x, found.y, found.width, found.height}), (std::array{1.5f, 2.f, 3.f, 4.f}));
}

TEST(MessagesToNil, LeaveAStructureAsItIs) {
  Rect found{5, 6, 7, 8};
  imported<void(Rect*, id, SEL)>("_objc_msgSend_stret")(&found, nullptr, selector);
  EXPECT_EQ((std::array{found.x, found.y, found.width, found.height}), (std::array{5.f, 6.f, 7.f, 8.f}));
}

int onceDone = 0;

TEST(Once, CallsTheSlicesFunctionOnce) {
  long token = 0;
  auto once = imported<void(long*, void*, void (*)(void*))>("_dispatch_once_f");
  for (int i = 0; i < 2; ++i) once(&token, &onceDone, [](void* context) { ++*static_cast<int*>(context); });
  EXPECT_EQ(onceDone, 1);
}

uint32_t misalignment = 99;

// An object whose class the runtime initialises when it is first sent something.
id yetToBeInitialised() {
  static Class made;
  made = objc_allocateClassPair(objc_getClass("NSObject"), "YetToBeInitialised", 0);
  void (*initialise)(id, SEL) = [](id, SEL) { misalignment = misalignmentOfTheStack(); };
  class_addMethod(bridge::classOf(reinterpret_cast<id>(made)), sel_registerName("initialize"),
                  implementation(initialise), "v@:");
  objc_registerClassPair(made);
  class_addMethod(made, selector, implementation(wide), "Q@:");
  return reinterpret_cast<id>(&made);
}

template <class T>
uint32_t word(T* pointer) {
  return reinterpret_cast<uint32_t>(pointer);
}

TEST(Lookup, IsDoneOnAStackThatIsAligned) {
  test::callAsTheSlice(device::loader::importNamed("_objc_msgSend"),
                       {word(yetToBeInitialised()), word(selector)});
  EXPECT_EQ(misalignment, 0u);
}

TEST(Lookup, IsDoneOnAStackThatIsAlignedForAStructureToo) {
  Rect found;
  test::callAsTheSlice(device::loader::importNamed("_objc_msgSend_stret"),
                       {word(&found), word(yetToBeInitialised()), word(selector)});
  EXPECT_EQ(misalignment, 0u);
}

// A block as the slice has it on its stack.
struct Literal {
  bridge::BlockHeader header;
  int captured;
};
int copied = 0, disposed = 0;
const bridge::BlockDescriptor descriptor{0, sizeof(Literal), [](void*, const void*) { ++copied; },
                                         [](const void*) { ++disposed; }, "i@?i"};
int invoke(Literal* self, int more) { return self->captured + more; }

Literal literal(const bridge::BlockDescriptor& of = descriptor) {
  return {{_NSConcreteStackBlock, bridge::blockHasCopyDispose | bridge::blockHasSignature, 0,
           implementation(invoke), &of},
          40};
}

bridge::BlockHeader* copyOf(Literal& block) {
  return imported<bridge::BlockHeader*(bridge::BlockHeader*)>("__Block_copy")(&block.header);
}

int call(bridge::BlockHeader* block) {
  return reinterpret_cast<int (*)(bridge::BlockHeader*, int)>(block->invoke)(block, 2);
}

TEST(Blocks, OfTheSliceAreCalledCopiedAndDisposedOfByRelays) {
  Literal block = literal();
  bridge::BlockHeader* copy = copyOf(block);
  EXPECT_EQ(call(copy), 42);
  EXPECT_EQ(device::loader::relayTarget(reinterpret_cast<void*>(copy->invoke)),
            reinterpret_cast<void*>(invoke));
  EXPECT_NE(copy->invoke, implementation(invoke));
  EXPECT_NE(copy->descriptor, &descriptor);
  EXPECT_NE(copy->descriptor->copy, descriptor.copy);
  EXPECT_NE(copy->descriptor->dispose, descriptor.dispose);
  EXPECT_EQ(copied, 1);
  _Block_release(copy);
  EXPECT_EQ(disposed, 1);
}

TEST(Blocks, OfOneKindHaveOneDescriptor) {
  Literal first = literal(), second = literal();
  EXPECT_EQ(copyOf(first)->descriptor, copyOf(second)->descriptor);
  EXPECT_EQ(copied, 2);
}

TEST(Blocks, OfTwoKindsHaveTwo) {
  bridge::BlockDescriptor other = descriptor;
  Literal first = literal(), second = literal(other);
  EXPECT_NE(copyOf(first)->descriptor, copyOf(second)->descriptor);
}

TEST(Blocks, ThatWereCopiedAlreadyAreKeptAsTheyAre) {
  Literal block = literal();
  bridge::BlockHeader* copy = copyOf(block);
  const bridge::BlockDescriptor* made = copy->descriptor;
  EXPECT_EQ(imported<void*(void*)>("__Block_copy")(copy), copy);
  EXPECT_EQ(copy->descriptor, made);
}

TEST(Blocks, OfTheProcessAreKeptAsTheyAre) {
  Literal block = literal();
  block.header.flags &= ~bridge::blockHasCopyDispose;
  bridge::BlockHeader* copy = copyOf(block);
  EXPECT_EQ(copy->invoke, implementation(invoke));
  EXPECT_EQ(copy->descriptor, &descriptor);
}

TEST(Blocks, ThatTheTwoCallInDifferentWaysEndTheProcess) {
  bridge::BlockDescriptor wide = descriptor;
  wide.signature = "i@?d";
  Literal block = literal(wide);
  EXPECT_EXIT(copyOf(block), KilledBySignal(SIGABRT), "a block 'i@\\?d' cannot be called by both sides");
}

}  // namespace

// What a slice's imports are bound to, where calling is no crossing.
#include "device/loader/imports.hpp"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <csignal>
#include <cstring>

#include "bridge/runtime.hpp"
#include "device/loader/constant_string.hpp"
#include "device/loader/layout.hpp"

namespace {

using device::loader::importNamed;
using device::loader::symbolNamed;

// Apple's number for all images.
void* const everywhere = reinterpret_cast<void*>(-2);

template <class Function>
Function* imported(const char* symbol) {
  return reinterpret_cast<Function*>(importNamed(symbol));
}

TEST(Imports, AreWhatTheProcessHasByTheirName) {
  EXPECT_EQ(importNamed("_strlen"), dlsym(RTLD_DEFAULT, "strlen"));
  EXPECT_EQ(importNamed("_noFunctionOfThatName"), nullptr);
}

TEST(Imports, OfAnotherShapeAreRefused) { EXPECT_THROW(importNamed("_asprintf"), device::loader::Refusal); }

TEST(Imports, OfConstantStringsAreOfTheirClass) {
  EXPECT_EQ(importNamed("___CFConstantStringClassReference"), device::loader::constantStringClass());
}

TEST(Imports, OfTheStacksGuardAreOfAWord) {
  const auto* guard = static_cast<const uintptr_t*>(importNamed("___stack_chk_guard"));
  ASSERT_NE(guard, nullptr);
  EXPECT_NE(*guard, 0u);
}

TEST(Imports, OfOwningObjectsAreTheBridges) {
  EXPECT_EQ(imported<id(id)>("_objc_retain"), &bridge::retain);
  EXPECT_EQ(imported<void(id)>("_objc_release"), &bridge::release);
  EXPECT_EQ(imported<id(id)>("_objc_autorelease"), &bridge::autorelease);
  EXPECT_EQ(imported<Class(id)>("_object_getClass"), &bridge::classOf);
}

int ended = 0;

TEST(Imports, OfPoolsPushOneAndPopIt) {
  Class counted = objc_allocateClassPair(objc_getClass("NSObject"), "CountedToTheEnd", 0);
  class_addMethod(counted, sel_registerName("release"), reinterpret_cast<IMP>(+[](id, SEL) { ++ended; }),
                  "v@:");
  objc_registerClassPair(counted);
  Class isa = counted;
  void* pool = imported<void*()>("_objc_autoreleasePoolPush")();
  bridge::autorelease(reinterpret_cast<id>(&isa));
  EXPECT_EQ(ended, 0);
  imported<void(void*)>("_objc_autoreleasePoolPop")(pool);
  EXPECT_EQ(ended, 1);
}

// There since the program started: opened now or later, it is the same.
TEST(Imports, OfOpeningAnImageTakeApplesModes) {
  auto open = imported<void*(const char*, int)>("_dlopen");
  constexpr int later = 1, now = 2, global = 8;
  EXPECT_EQ(open("libobjc.so.4", now | global), dlopen("libobjc.so.4", RTLD_NOW));
  EXPECT_EQ(open("libobjc.so.4", later), dlopen("libobjc.so.4", RTLD_NOW));
  EXPECT_EQ(open("no such file", now), nullptr);
}

TEST(Imports, OfLookingForASymbolAreTheLoaders) {
  EXPECT_EQ(imported<void*(void*, const char*)>("_dlsym"), &symbolNamed);
}

TEST(Imports, OfBindingLaterEndTheProcess) {
  EXPECT_EXIT(imported<void()>("dyld_stub_binder")(), testing::KilledBySignal(SIGABRT),
              "asked for a pointer to be bound that is not in its table");
}

TEST(Symbols, OfAllImagesAreWhatTheProcessHas) {
  EXPECT_EQ(symbolNamed(everywhere, "strlen"), dlsym(RTLD_DEFAULT, "strlen"));
  EXPECT_EQ(symbolNamed(everywhere, "noFunctionOfThatName"), nullptr);
}

TEST(Symbols, OfAllImagesAreRefusedWhereTheyAreOfAnotherShape) {
  EXPECT_THROW(symbolNamed(everywhere, "asprintf"), device::loader::Refusal);
}

TEST(Symbols, OfAnImageAreItsOwn) {
  void* runtime = dlopen("libobjc.so.4", RTLD_NOW);
  ASSERT_NE(runtime, nullptr);
  EXPECT_EQ(symbolNamed(runtime, "sel_getName"), dlsym(runtime, "sel_getName"));
  EXPECT_NE(symbolNamed(runtime, "sel_getName"), nullptr);
}

}  // namespace

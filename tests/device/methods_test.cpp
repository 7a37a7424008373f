// Methods of the runtime that lead into an image: one that is made up, whose code nobody runs.
#include "device/loader/methods.hpp"

#include <gtest/gtest.h>

#include "bridge/runtime.hpp"
#include "device/tools/macho_image.hpp"

namespace {

using device::loader::Methods;
using device::loader::NamedFunction;
using device::loader::Names;
using device::loader::Place;

const std::string withSymbols = LINKED "/Tilo.dylib";
const Names noNames("", "arm64");
constexpr Place image{0x100000, 0x1000};

Class classWith(const char* selector, uintptr_t code, bool ofClass = false) {
  Class made = objc_allocateClassPair(objc_getClass("NSObject"), "Pretended", 0);
  Class of = ofClass ? bridge::classOf(reinterpret_cast<id>(made)) : made;
  class_addMethod(of, sel_registerName(selector), reinterpret_cast<IMP>(code), "v@:");
  objc_registerClassPair(made);
  return made;
}

std::string answeredAt(uint64_t start) { return Methods(image, noNames).answeredBy({start, "function()"}); }

TEST(Methods, AreNamedByTheirClassAndSelector) {
  classWith("doThis:with:", image.base + 0x10);
  EXPECT_EQ(answeredAt(0x10), "-[Pretended doThis:with:]");
}

TEST(Methods, OfAClassAreToldApart) {
  classWith("doThis", image.base + 0x10, true);
  EXPECT_EQ(answeredAt(0x10), "+[Pretended doThis]");
}

TEST(Methods, AreEachTheirFunctionsOwn) {
  Class made = classWith("first", image.base + 0x10);
  class_addMethod(made, sel_registerName("second"), reinterpret_cast<IMP>(image.base + 0x20), "v@:");
  EXPECT_EQ(answeredAt(0x10), "-[Pretended first]");
  EXPECT_EQ(answeredAt(0x20), "-[Pretended second]");
  EXPECT_EQ(answeredAt(0x30), "");
}

TEST(Methods, AreNotThoseBesideTheImage) {
  classWith("before", image.base - 4);
  EXPECT_EQ(answeredAt(static_cast<uint64_t>(-4)), "");
}

// What the runtime calls does nothing but call what it has in its name.
class Thunks : public testing::Test {
 protected:
  void SetUp() override {
    for (const device::Slice& slice : device::readImage(withSymbols)) {
      if (slice.architecture != "arm64") continue;
      for (const device::Symbol& symbol : slice.symbols) {
        // Of the method, and this function's.
        if (symbol.name.starts_with("__ZN6bridge5Thunk") &&
            symbol.name.find("hooks19verticalIconPadding") != std::string::npos)
          thunk = symbol.value;
      }
    }
    ASSERT_NE(thunk, 0u);
    classWith("verticalIconPadding", whole.base + thunk);
  }

  std::string answeredBy(const std::string& name) { return Methods(whole, names).answeredBy({4, name}); }

  const Place whole{0x10000000, 0x1000000};
  const Names names{withSymbols, "arm64"};
  uint64_t thunk = 0;
};

TEST_F(Thunks, AreThereForTheFunctionInTheirName) {
  EXPECT_EQ(answeredBy("tilo::hooks::verticalIconPadding(SBIconListView)"),
            "-[Pretended verticalIconPadding]");
}

TEST_F(Thunks, AreThereForItWhateverItTakes) {
  EXPECT_EQ(answeredBy("tilo::hooks::verticalIconPadding(void (*)(int), long) const"),
            "-[Pretended verticalIconPadding]");
}

TEST_F(Thunks, AreThereForItWithoutWhatItTakes) {
  EXPECT_EQ(answeredBy("tilo::hooks::verticalIconPadding"), "-[Pretended verticalIconPadding]");
}

TEST_F(Thunks, AreThereForNoneWhoseNameBeginsOrEndsOtherwise) {
  EXPECT_EQ(answeredBy("hooks::verticalIconPadding(SBIconListView)"), "");
  EXPECT_EQ(answeredBy("tilo::hooks::vertical(SBIconListView)"), "");
}

}  // namespace

// Constant strings as they lie in an image.
#include "device/loader/constant_string.hpp"

#include <gtest/gtest.h>

#include <map>

#include "bridge/runtime.hpp"

namespace {

using device::loader::constantStringClass;

template <class R, class... A>
R send(void* receiver, const char* name, A... arguments) {
  const SEL selector = sel_registerName(name);
  const id object = static_cast<id>(receiver);
  return reinterpret_cast<R (*)(id, SEL, A...)>(bridge::messenger(object, selector, false))(object, selector,
                                                                                            arguments...);
}

// As a compiler lays it out; nothing lies before it where a reference count would.
struct ConstantString : testing::Test {
  struct {
    void* isa = constantStringClass();
    int flags = 0x7c8;
    const char* bytes = "Tilo\xe9";
    long length = 5;
  } string;
};

TEST_F(ConstantString, HasItsLengthAndItsCharacters) {
  EXPECT_EQ(send<NSUInteger>(&string, "length"), 5u);
  EXPECT_EQ(send<unsigned short>(&string, "characterAtIndex:", NSUInteger{1}), 'i');
}

TEST_F(ConstantString, HasEachByteForACharacterAboveZero) {
  EXPECT_EQ(send<unsigned short>(&string, "characterAtIndex:", NSUInteger{4}), 0xe9);
}

TEST_F(ConstantString, HasTheVeryBytesForThoseOfUTF8) {
  EXPECT_EQ(send<const char*>(&string, "UTF8String"), string.bytes);
}

TEST_F(ConstantString, IsKeptAndCopiedAsItself) {
  EXPECT_EQ(send<void*>(&string, "retain"), &string);
  EXPECT_EQ(send<void*>(&string, "autorelease"), &string);
  EXPECT_EQ(send<void*>(&string, "copyWithZone:", static_cast<void*>(nullptr)), &string);
  send<void>(&string, "release");
  EXPECT_EQ(send<NSUInteger>(&string, "length"), 5u);
}

TEST_F(ConstantString, IsAnyOtherStringOfItsCharacters) {
  string.length = 4;
  const bridge::Pool pool;
  const id other = send<id>(objc_getClass("NSString"), "stringWithUTF8String:", "Tilo");
  EXPECT_TRUE(send<BOOL>(&string, "isEqualToString:", other));
  EXPECT_TRUE(send<BOOL>(other, "isEqual:", reinterpret_cast<id>(&string)));
}

TEST(ConstantStrings, HaveAClassOfThatName) {
  EXPECT_EQ(constantStringClass(), constantStringClass());
  EXPECT_EQ(objc_getClass("__NSCFConstantString"), constantStringClass());
}

TEST(ConstantStrings, AnswerTheseThemselves) {
  std::map<std::string, std::string> own;
  unsigned int count = 0;
  objc_method** methods = class_copyMethodList(static_cast<Class>(constantStringClass()), &count);
  for (unsigned int i = 0; i < count; ++i)
    own[sel_getName(method_getName(methods[i]))] = method_getTypeEncoding(methods[i]);
  EXPECT_EQ(own, (std::map<std::string, std::string>{{"length", "Q@:"},
                                                     {"characterAtIndex:", "S@:Q"},
                                                     {"UTF8String", "r*@:"},
                                                     {"retain", "@@:"},
                                                     {"autorelease", "@@:"},
                                                     {"copyWithZone:", "@@:^v"},
                                                     {"release", "v@:"}}));
}

}  // namespace

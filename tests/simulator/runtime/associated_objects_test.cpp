// Associated objects: what each policy does to the value, and what becomes of values whose object dies.
#include <gtest/gtest.h>

#include "platform/foundation/string.hpp"
#include "tests/bridge/counted.hpp"

namespace {

using bridge::make;

// Policies as the runtime's header numbers them.
constexpr uintptr_t assign = 0, retainNonatomic = 1, copyNonatomic = 3, retainAtomic = 01401,
                    copyAtomic = 01403;

char key, otherKey;

bridge::Strong<NSObject> newObject() { return make<NSObject, &NSObject::init>(); }

struct NSMutableString : bridge::Face<"NSMutableString", NSString> {
  static constexpr bridge::ClassMethod<"NSMutableString", "stringWithString:", NSMutableString(NSString)>
      stringWithString{};
  MESSAGE Method<"appendString:", void(NSString)> appendString;
};

class AssociatedObjects : public testing::Test {
 protected:
  bridge::Pool pool;
};

TEST_F(AssociatedObjects, AreNilUntilOneIsSet) {
  auto owner = newObject();
  EXPECT_EQ(objc_getAssociatedObject(owner.get().raw, &key), nullptr);
  EXPECT_EQ(objc_getAssociatedObject(nullptr, &key), nullptr);
}

TEST_F(AssociatedObjects, BelongToOneObjectAndOneKey) {
  auto owner = newObject(), other = newObject(), one = newObject(), two = newObject();
  objc_setAssociatedObject(owner.get().raw, &key, one.get().raw, retainNonatomic);
  objc_setAssociatedObject(owner.get().raw, &otherKey, two.get().raw, retainNonatomic);
  EXPECT_EQ(objc_getAssociatedObject(owner.get().raw, &key), one.get().raw);
  EXPECT_EQ(objc_getAssociatedObject(owner.get().raw, &otherKey), two.get().raw);
  EXPECT_EQ(objc_getAssociatedObject(other.get().raw, &key), nullptr);
}

TEST_F(AssociatedObjects, OfNilAreForgotten) {
  id value = test::newCounted();
  objc_setAssociatedObject(nullptr, &key, value, retainNonatomic);
  EXPECT_EQ(test::counts, test::Counts{});
  bridge::release(value);
}

void expectNotKept(uintptr_t policy) {
  auto owner = newObject();
  id value = test::newCounted();
  objc_setAssociatedObject(owner.get().raw, &key, value, policy);
  EXPECT_EQ(objc_getAssociatedObject(owner.get().raw, &key), value);
  owner.clear();
  EXPECT_EQ(test::counts, test::Counts{});
  bridge::release(value);
}

TEST_F(AssociatedObjects, ThatAreAssignedAreNotKept) { expectNotKept(assign); }

TEST_F(AssociatedObjects, OfAPolicyThatIsNoneAreNotKept) {
  expectNotKept(retainAtomic + 1);
  expectNotKept(retainAtomic - 1);
}

void expectRetained(uintptr_t policy) {
  auto owner = newObject();
  id value = test::newCounted();
  objc_setAssociatedObject(owner.get().raw, &key, value, policy);
  EXPECT_EQ(test::counts.retains, 1);
  EXPECT_EQ(objc_getAssociatedObject(owner.get().raw, &key), value);
  bridge::release(value);
  EXPECT_EQ(test::counts.deallocs, 0);
  owner.clear();
  EXPECT_EQ(test::counts.deallocs, 1);
}

TEST_F(AssociatedObjects, ThatAreRetainedLiveUntilTheirObjectDies) {
  expectRetained(retainNonatomic);
  expectRetained(retainAtomic);
}

void expectCopied(uintptr_t policy) {
  auto owner = newObject();
  auto value = NSMutableString::stringWithString("spoon"_ns);
  objc_setAssociatedObject(owner.get().raw, &key, value.raw, policy);
  value.appendString("s"_ns);
  auto kept = bridge::as<NSString>(objc_getAssociatedObject(owner.get().raw, &key));
  EXPECT_STREQ(kept.UTF8String(), "spoon");
}

TEST_F(AssociatedObjects, ThatAreCopiedKeepTheValueOfThatMoment) {
  expectCopied(copyNonatomic);
  expectCopied(copyAtomic);
}

TEST_F(AssociatedObjects, ReleaseTheValueThatIsReplaced) {
  auto owner = newObject(), next = newObject();
  id value = test::newCounted();
  objc_setAssociatedObject(owner.get().raw, &key, value, retainNonatomic);
  bridge::release(value);
  objc_setAssociatedObject(owner.get().raw, &key, next.get().raw, retainNonatomic);
  EXPECT_EQ(test::counts.deallocs, 1);
  EXPECT_EQ(objc_getAssociatedObject(owner.get().raw, &key), next.get().raw);
}

TEST_F(AssociatedObjects, ThatAreSetToThemselvesStay) {
  auto owner = newObject();
  id value = test::newCounted();
  objc_setAssociatedObject(owner.get().raw, &key, value, retainNonatomic);
  bridge::release(value);
  objc_setAssociatedObject(owner.get().raw, &key, value, retainNonatomic);
  EXPECT_EQ(test::counts.deallocs, 0);
  EXPECT_EQ(objc_getAssociatedObject(owner.get().raw, &key), value);
}

TEST_F(AssociatedObjects, AreRemovedByNil) {
  auto owner = newObject();
  id value = test::newCounted();
  objc_setAssociatedObject(owner.get().raw, &key, value, retainNonatomic);
  bridge::release(value);
  objc_setAssociatedObject(owner.get().raw, &key, nullptr, retainNonatomic);
  EXPECT_EQ(test::counts.deallocs, 1);
  EXPECT_EQ(objc_getAssociatedObject(owner.get().raw, &key), nullptr);
}

TEST_F(AssociatedObjects, MayLookAtAssociationsWhileTheyDie) {
  static auto& other = *new bridge::Strong<NSObject>(newObject());
  auto owner = newObject();
  id value = test::newCounted();
  test::atDealloc = [] {
    objc_setAssociatedObject(other.get().raw, &key, newObject().get().raw, retainNonatomic);
  };
  objc_setAssociatedObject(owner.get().raw, &key, value, retainNonatomic);
  bridge::release(value);
  owner.clear();
  EXPECT_EQ(test::counts.deallocs, 1);
  EXPECT_NE(objc_getAssociatedObject(other.get().raw, &key), nullptr);
}

TEST_F(AssociatedObjects, AreNotThoseOfAnEarlierObjectInTheSamePlace) {
  id value = test::newCounted();
  for (int i = 0; i < 1000; ++i) {
    auto owner = newObject();
    ASSERT_EQ(objc_getAssociatedObject(owner.get().raw, &key), nullptr);
    objc_setAssociatedObject(owner.get().raw, &key, value, retainNonatomic);
  }
  EXPECT_EQ(test::counts.retains, 1000);
  EXPECT_EQ(test::counts.releases, 1000);
  bridge::release(value);
}

}  // namespace

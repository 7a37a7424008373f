// Type encodings: what is derived from C++ types, and that it tells the same as the platform's own.
#include "bridge/encoding.hpp"

#include <gtest/gtest.h>

#include "bridge/define.hpp"
#include "platform/coregraphics/encoding.hpp"
#include "platform/foundation/data.hpp"
#include "platform/foundation/file_manager.hpp"
#include "platform/foundation/index_path.hpp"
#include "platform/foundation/json.hpp"
#include "platform/foundation/notification_center.hpp"
#include "platform/foundation/null.hpp"
#include "platform/foundation/number.hpp"
#include "platform/foundation/scanner.hpp"

namespace {

using bridge::BlockRef;
using bridge::blockTypes;
using bridge::Encoding;
using bridge::methodTypes;
using bridge::Object;
using bridge::Strong;

#define EXPECT_ENCODING(expected, ...) EXPECT_STREQ(expected, Encoding<__VA_ARGS__>::text.text)

TEST(Encoding, OfNothing) { EXPECT_ENCODING("v", void); }

TEST(Encoding, OfIntegers) {
  EXPECT_ENCODING("B", bool);
  EXPECT_ENCODING("C", unsigned char);
  EXPECT_ENCODING("c", signed char);
  EXPECT_ENCODING("S", unsigned short);
  EXPECT_ENCODING("i", int);
  EXPECT_ENCODING("I", unsigned int);
  EXPECT_ENCODING("q", long long);
  EXPECT_ENCODING("Q", unsigned long long);
}

TEST(Encoding, OfALongHasTheLetterOfItsWidth) {
  EXPECT_ENCODING(sizeof(long) == 8 ? "q" : "l", long);
  EXPECT_ENCODING(sizeof(long) == 8 ? "Q" : "L", unsigned long);
  EXPECT_ENCODING(sizeof(long) == 8 ? "q" : "i", NSInteger);
  EXPECT_ENCODING(sizeof(long) == 8 ? "Q" : "I", NSUInteger);
}

// The desktop's BOOL is an unsigned char.
TEST(Encoding, OfABoolIsThePlatformsLetter) { EXPECT_ENCODING("C", BOOL); }

TEST(Encoding, OfRealNumbers) {
  EXPECT_ENCODING("f", float);
  EXPECT_ENCODING("d", double);
}

TEST(Encoding, OfPointers) {
  EXPECT_ENCODING("r*", const char*);
  EXPECT_ENCODING("^v", void*);
  EXPECT_ENCODING("r^v", const void*);
  EXPECT_ENCODING("^i", int*);
  EXPECT_ENCODING("^@", id*);
  EXPECT_ENCODING("^@", NSObject*);
  EXPECT_ENCODING("^^v", void**);
  EXPECT_ENCODING("^{CGPoint=dd}", CGPoint*);
}

TEST(Encoding, OfWhatTheRuntimeKnows) {
  EXPECT_ENCODING("@", id);
  EXPECT_ENCODING("#", Class);
  EXPECT_ENCODING(":", SEL);
}

TEST(Encoding, OfEveryHandleAndOwnerIsAnObjects) {
  EXPECT_ENCODING("@", Object);
  EXPECT_ENCODING("@", NSObject);
  EXPECT_ENCODING("@", NSMutableDictionary);
  EXPECT_ENCODING("@", Strong<NSString>);
}

TEST(Encoding, OfABlock) {
  EXPECT_ENCODING("@?", BlockRef<void()>);
  EXPECT_ENCODING("@?", BlockRef<CGRect(NSObject, int)>);
}

TEST(Encoding, OfGeometry) {
  EXPECT_ENCODING("{CGPoint=dd}", CGPoint);
  EXPECT_ENCODING("{CGSize=dd}", CGSize);
  EXPECT_ENCODING("{CGRect={CGPoint=dd}{CGSize=dd}}", CGRect);
  EXPECT_ENCODING("{CGAffineTransform=dddddd}", CGAffineTransform);
}

TEST(Encoding, OfAMethodStartsWithResultReceiverAndSelector) {
  EXPECT_STREQ("v@:", (methodTypes<void>.text));
  EXPECT_STREQ("@@:", (methodTypes<NSObject>.text));
  EXPECT_STREQ("v@:d", (methodTypes<void, double>.text));
  EXPECT_STREQ("C@:{CGRect={CGPoint=dd}{CGSize=dd}}", (methodTypes<BOOL, CGRect>.text));
  EXPECT_STREQ("{CGPoint=dd}@:@:^@", (methodTypes<CGPoint, NSObject, SEL, id*>.text));
  EXPECT_STREQ("v@:d@?@?", (methodTypes<void, double, BlockRef<void()>, BlockRef<void(BOOL)>>.text));
}

TEST(Encoding, OfABlocksCallStartsWithResultAndBlock) {
  EXPECT_STREQ("v@?", (blockTypes<void>.text));
  EXPECT_STREQ("v@?C", (blockTypes<void, BOOL>.text));
  EXPECT_STREQ("{CGPoint=dd}@?@{CGSize=dd}", (blockTypes<CGPoint, NSObject, CGSize>.text));
}

// The platform's own encoding of the method that a member describes.
template <class Owner, auto Member>
const char* platformTypes() {
  Class cls = bridge::classNamed<Owner>();
  if (bridge::isClassMethod<Member>) cls = bridge::classOf(reinterpret_cast<id>(cls));
  objc_method* method = class_getInstanceMethod(cls, bridge::Descriptor<Member>::selector());
  return method ? method_getTypeEncoding(method) : "";
}

template <class Owner, auto... Members>
void expectSameShapeAsPlatform() {
  (
      [] {
        using D = bridge::Descriptor<Members>;
        const char* theirs = platformTypes<Owner, Members>();
        EXPECT_TRUE(bridge::sameShape(D::types(), theirs))
            << D::name << ": " << D::types() << " and " << theirs;
      }(),
      ...);
}

TEST(Encoding, TellsTheSameAsThePlatformsOwn) {
  expectSameShapeAsPlatform<NSObject, &NSObject::init, &NSObject::description, &NSObject::retainCount,
                            &NSObject::respondsToSelector>();
  expectSameShapeAsPlatform<NSString, &NSString::stringWithUTF8String, &NSString::UTF8String,
                            &NSString::length, &NSString::isEqualToString, &NSString::compare_options,
                            &NSString::stringByAppendingString, &NSString::stringByAppendingPathComponent>();
  expectSameShapeAsPlatform<NSNumber, &NSNumber::numberWithBool, &NSNumber::numberWithInt,
                            &NSNumber::numberWithLongLong, &NSNumber::numberWithFloat,
                            &NSNumber::numberWithDouble, &NSNumber::boolValue, &NSNumber::intValue,
                            &NSNumber::integerValue, &NSNumber::longLongValue, &NSNumber::floatValue,
                            &NSNumber::doubleValue, &NSNumber::objCType>();
  expectSameShapeAsPlatform<NSArray, &NSArray::array, &NSArray::count, &NSArray::objectAtIndex>();
  expectSameShapeAsPlatform<NSMutableArray, &NSMutableArray::array, &NSMutableArray::addObject>();
  expectSameShapeAsPlatform<NSDictionary, &NSDictionary::dictionary,
                            &NSDictionary::dictionaryWithObject_forKey, &NSDictionary::count,
                            &NSDictionary::allKeys, &NSDictionary::objectForKey, &NSDictionary::mutableCopy,
                            &NSDictionary::writeToFile_atomically>();
  expectSameShapeAsPlatform<NSMutableDictionary, &NSMutableDictionary::dictionary,
                            &NSMutableDictionary::initWithDictionary, &NSMutableDictionary::setObject_forKey,
                            &NSMutableDictionary::setValue_forKey,
                            &NSMutableDictionary::removeObjectForKey>();
  expectSameShapeAsPlatform<NSData, &NSData::dataWithContentsOfFile, &NSData::length, &NSData::bytes,
                            &NSData::writeToFile_atomically>();
  expectSameShapeAsPlatform<
      NSFileManager, &NSFileManager::defaultManager, &NSFileManager::fileExistsAtPath,
      &NSFileManager::createDirectoryAtPath_withIntermediateDirectories_attributes_error,
      &NSFileManager::moveItemAtPath_toPath_error>();
  expectSameShapeAsPlatform<NSNull, &NSNull::null>();
  expectSameShapeAsPlatform<NSScanner, &NSScanner::scannerWithString, &NSScanner::scanDouble>();
  expectSameShapeAsPlatform<NSIndexPath, &NSIndexPath::indexPathWithIndex, &NSIndexPath::indexAtPosition>();
  expectSameShapeAsPlatform<NSJSONSerialization, &NSJSONSerialization::JSONObjectWithData_options_error,
                            &NSJSONSerialization::dataWithJSONObject_options_error>();
  expectSameShapeAsPlatform<NSNotificationCenter, &NSNotificationCenter::defaultCenter,
                            &NSNotificationCenter::addObserver_selector_name_object,
                            &NSNotificationCenter::removeObserver,
                            &NSNotificationCenter::postNotificationName_object>();
}

}  // namespace

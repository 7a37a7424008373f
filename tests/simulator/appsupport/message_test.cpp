// Messages as bytes: which lengths may travel, and what is read back.
#include "simulator/appsupport/message.hpp"

#include <gtest/gtest.h>

#include "tests/support/home.hpp"

namespace {

using sim::appsupport::encode;
using sim::appsupport::longestPayload;
using sim::appsupport::payloadLength;

class AMessage : public testing::Test {
 protected:
  static std::optional<std::string> ofText(size_t length) {
    const auto info = bridge::make<NSMutableDictionary, &NSObject::init>();
    info->setObject_forKey(NSString::stringWithUTF8String(std::string(length, 'x').c_str()), "text"_ns);
    return encode({"name"_ns, info.get()});
  }
  // Of a text with which the whole is as long as may be.
  static size_t longestText() {
    return longestPayload - (ofText(1).value().size() - sim::appsupport::lengthBytes) + 1;
  }

  test::Home home;
};

TEST_F(AMessage, MayBeAsLongAsTheLimit) {
  const std::optional<std::string> bytes = ofText(longestText());
  ASSERT_TRUE(bytes);
  EXPECT_EQ(bytes->size(), longestPayload + sim::appsupport::lengthBytes);
  EXPECT_EQ(payloadLength(*bytes), longestPayload);
}

TEST_F(AMessage, IsNotSentWhenItIsLonger) { EXPECT_FALSE(ofText(longestText() + 1)); }

// Foundation here writes seven of the nine.
TEST_F(AMessage, KeepsAllDigitsOfSinglePrecision) {
  for (const float value : {309.17874145507812f, 0.1f, -1e-30f}) {
    const auto info = bridge::make<NSMutableDictionary, &NSObject::init>();
    info->setObject_forKey(NSNumber::numberWithFloat(value), "value"_ns);
    const std::string bytes = encode({"name"_ns, info.get()}).value();
    const auto read = sim::appsupport::decode(std::string_view(bytes).substr(sim::appsupport::lengthBytes));
    EXPECT_EQ(bridge::as<NSNumber>(read.value().userInfo.objectForKey("value"_ns)).floatValue(), value);
  }
}

TEST_F(AMessage, OfMoreThanPropertyListsIsNotSent) {
  const auto info = bridge::make<NSMutableDictionary, &NSObject::init>();
  info->setObject_forKey(bridge::make<NSObject, &NSObject::init>().get(), "object"_ns);
  EXPECT_FALSE(encode({"name"_ns, info.get()}));
}

TEST_F(AMessage, BeginsWithItsLengthMostSignificantByteFirst) {
  EXPECT_EQ(payloadLength(std::string_view("\0\0\0\1", 4)), 1u);
  EXPECT_EQ(payloadLength(std::string_view("\0\0\2\1", 4)), 0x201u);
  EXPECT_EQ(payloadLength(std::string_view("\0\1\0\0", 4)), longestPayload);
  EXPECT_FALSE(payloadLength(std::string_view("\0\1\0\1", 4)));
  EXPECT_FALSE(payloadLength(std::string_view("\0\0\0\0", 4)));
  EXPECT_FALSE(payloadLength(std::string_view("\1\0\0\1", 4)));
  const std::optional<std::string> bytes = ofText(300);
  ASSERT_TRUE(bytes);
  EXPECT_EQ(payloadLength(*bytes), bytes->size() - sim::appsupport::lengthBytes);
}

}  // namespace

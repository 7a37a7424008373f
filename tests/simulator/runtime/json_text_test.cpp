// Texts in JSON: which are read, and as what.
#include <gtest/gtest.h>

#include "platform/foundation/json.hpp"
#include "platform/foundation/null.hpp"
#include "platform/foundation/number.hpp"
#include "tests/support/home.hpp"

namespace {

bridge::Object read(std::string_view text, id* error = nullptr, NSUInteger options = 0) {
  return NSJSONSerialization::JSONObjectWithData_options_error(
      NSData::dataWithBytes_length(text.data(), text.size()), options, error);
}

// The only thing in a list.
bridge::Object readItem(const std::string& text) {
  return bridge::as<NSArray>(read("[" + text + "]")).objectAtIndex(0);
}
double number(const std::string& text) { return bridge::as<NSNumber>(readItem(text)).doubleValue(); }

std::u16string string(const std::string& text) {
  auto made = bridge::as<NSString>(readItem("\"" + text + "\""));
  std::u16string units;
  for (NSUInteger i = 0; i < made.length(); ++i) units += static_cast<char16_t>(made.characterAtIndex(i));
  return units;
}

std::string nested(std::size_t depth, const char* open, char close) {
  std::string text;
  for (std::size_t i = 0; i < depth; ++i) text += open;
  return text + "1" + std::string(depth, close);
}

class JsonText : public testing::Test {
  test::Home home;
  bridge::Pool pool;
};

TEST_F(JsonText, IsReadAsListsAndTables) {
  auto table = bridge::as<NSDictionary>(read(R"( {"list" : [ 1 , [ ] , { } ] , "" : "x"} )"));
  ASSERT_EQ(table.count(), 2u);
  auto list = bridge::as<NSArray>(table.objectForKey("list"_ns));
  ASSERT_EQ(list.count(), 3u);
  EXPECT_EQ(bridge::as<NSArray>(list.objectAtIndex(1)).count(), 0u);
  EXPECT_TRUE(bridge::isKindOf<NSDictionary>(list.objectAtIndex(2)));
  EXPECT_TRUE(bridge::as<NSString>(table.objectForKey(""_ns)).isEqualToString("x"_ns));
}

// confirmed: NSJSONSerialization makes mutable containers only when it is asked for them.
TEST_F(JsonText, IsReadAsWhatCannotBeChanged) {
  EXPECT_FALSE(bridge::isKindOf<NSMutableArray>(read("[]")));
  EXPECT_FALSE(bridge::isKindOf<NSMutableDictionary>(read("{}")));
  constexpr NSUInteger mutableContainers = 1;
  EXPECT_TRUE(bridge::isKindOf<NSMutableArray>(read("[]", nullptr, mutableContainers)));
  EXPECT_FALSE(read("[", nullptr, mutableContainers));
}

TEST_F(JsonText, HasNumbersOfEveryForm) {
  EXPECT_EQ(number("0"), 0);
  EXPECT_EQ(number("-12"), -12);
  EXPECT_EQ(number("10.25"), 10.25);
  EXPECT_EQ(number("0.1"), 0.1);
  EXPECT_EQ(number("3.4028234663852886e+38"), 3.4028234663852886e+38);
  EXPECT_EQ(number("1E2"), 100);
  EXPECT_EQ(number("5e-1"), 0.5);
  EXPECT_EQ(number("1e-400"), 0);
  EXPECT_EQ(number("123456789012345678901"), 123456789012345678901.0);
}

TEST_F(JsonText, HasZeroWithAnyExponent) {
  EXPECT_EQ(number("0E112"), 0);
  EXPECT_EQ(number("0.0e-30"), 0);
  EXPECT_EQ(number("-0e25"), 0);
}

TEST_F(JsonText, HasTheSmallestNumberAndNothingForHalfOfIt) {
  EXPECT_EQ(number("5e-324"), 5e-324);
  EXPECT_EQ(number("2e-324"), 0);
}

TEST_F(JsonText, HasTheLargestNumberAndNoneBeyond) {
  EXPECT_EQ(number("1.7976931348623157e308"), 1.7976931348623157e308);
  EXPECT_FALSE(read("[1.8e308]"));
  EXPECT_FALSE(read("[-1.8e308]"));
}

// Those that look alike in part are not taken for each other.
TEST_F(JsonText, HasEachNumberByItself) {
  std::string text = "[0";
  for (int i = 1; i < 3000; ++i) text += "," + std::to_string(i % 700) + (i % 2 ? ".5" : "");
  auto list = bridge::as<NSArray>(read(text + "]"));
  ASSERT_EQ(list.count(), 3000u);
  for (int i = 1; i < 3000; ++i)
    ASSERT_EQ(bridge::as<NSNumber>(list.objectAtIndex(static_cast<NSUInteger>(i))).doubleValue(),
              i % 700 + (i % 2 ? 0.5 : 0))
        << i;
}

TEST_F(JsonText, HasEachKeyByItself) {
  std::string text = "{\"\":-1";
  for (int i = 0; i < 500; ++i) text += ",\"k" + std::to_string(i) + "\":" + std::to_string(i);
  auto table = bridge::as<NSDictionary>(read(text + "}"));
  ASSERT_EQ(table.count(), 501u);
  for (int i = 0; i < 500; ++i) {
    NSString key = NSString::stringWithUTF8String(("k" + std::to_string(i)).c_str());
    ASSERT_EQ(bridge::as<NSNumber>(table.objectForKey(key)).intValue(), i);
  }
}

TEST_F(JsonText, HasTruthAndNothing) {
  EXPECT_STREQ(bridge::as<NSNumber>(readItem("true")).objCType(), NSNumber::numberWithBool(YES).objCType());
  EXPECT_TRUE(bridge::as<NSNumber>(readItem("true")).boolValue());
  EXPECT_FALSE(bridge::as<NSNumber>(readItem("false")).boolValue());
  EXPECT_TRUE(bridge::isKindOf<NSNull>(readItem("null")));
}

TEST_F(JsonText, HasStringsWithEscapes) {
  EXPECT_EQ(string(""), u"");
  EXPECT_EQ(string(R"(a\"\\\/\b\f\n\r\tz)"), u"a\"\\/\b\f\n\r\tz");
  EXPECT_EQ(string(R"(\u0041\u00e9\u20AC\ud83d\ude00)"), u"Aé€😀");
  EXPECT_EQ(string("é€😀\x7F"), u"é€😀\x7F");
  EXPECT_EQ(string(R"(\u0000)"), std::u16string(1, u'\0'));
}

TEST_F(JsonText, HasKeysWithEscapes) {
  auto table = bridge::as<NSDictionary>(read(R"({"\u0061":1,"b\"":2})"));
  EXPECT_EQ(bridge::as<NSNumber>(table.objectForKey("a"_ns)).intValue(), 1);
  EXPECT_EQ(bridge::as<NSNumber>(table.objectForKey("b\""_ns)).intValue(), 2);
}

// assumed
TEST_F(JsonText, HasTheLastValueOfAKeyThatIsThereTwice) {
  auto table = bridge::as<NSDictionary>(read(R"({"a":1,"a":2})"));
  EXPECT_EQ(table.count(), 1u);
  EXPECT_EQ(bridge::as<NSNumber>(table.objectForKey("a"_ns)).intValue(), 2);
}

TEST_F(JsonText, MayBeginWithTheMarkOfItsEncoding) { EXPECT_TRUE(read("\xEF\xBB\xBF[1]")); }

TEST_F(JsonText, IsRefusedWhereItIsNone) {
  for (std::string_view text : {"",
                                " ",
                                "[",
                                "]",
                                "[1",
                                "[1,",
                                "[1,]",
                                "[,1]",
                                "[1 2]",
                                "{",
                                "{\"a\"}",
                                "{\"a\":}",
                                "{\"a\":1,}",
                                "{1:2}",
                                "{\"a\" 1}",
                                "{\"a\":1",
                                "[1]]",
                                "[1]x",
                                "[01]",
                                "[-]",
                                "[+1]",
                                "[1.]",
                                "[.5]",
                                "[1e]",
                                "[1e+]",
                                "[0x1]",
                                "[1e400]",
                                "[-1e400]",
                                "[nul]",
                                "[True]",
                                "[NaN]",
                                "[Infinity]",
                                "['a']",
                                "[\"a]",
                                "[\"\\x\"]",
                                "[\"\\u12G4\"]",
                                "[\"\\u12\"]",
                                "[\"\\ud83d\"]",
                                "[\"\\ud83dx\"]",
                                "[\"\\ud83d\\u0041\"]",
                                "[\"\\ude00\"]",
                                "[\"a\nb\"]",
                                "[\"\x1F\"]",
                                "[\"\xFF\"]",
                                "[\"\xC3\"]",
                                "[\"\xC0\x80\"]",
                                "[\"\xED\xA0\x80\"]",
                                "[1]//"}) {
    id error = nullptr;
    EXPECT_FALSE(read(text, &error)) << text;
    EXPECT_TRUE(error) << text;
  }
}

TEST_F(JsonText, IsRefusedWhereANulFollows) { EXPECT_FALSE(read(std::string_view("[1]\0", 4))); }

TEST_F(JsonText, IsNestedAsDeepAsTheDeviceGoes) {
  EXPECT_TRUE(read(nested(512, "[", ']')));
  EXPECT_FALSE(read(nested(513, "[", ']')));
  EXPECT_TRUE(read(nested(512, "{\"a\":", '}')));
  EXPECT_FALSE(read(nested(513, "{\"a\":", '}')));
  // Beside each other as many as one likes.
  std::string lists = "[";
  for (int i = 0; i < 600; ++i) lists += i ? ",[1]" : "[1]";
  EXPECT_TRUE(read(lists + "]"));
}

TEST_F(JsonText, HoldsEachThingByOneReference) {
  auto kept = bridge::retained(bridge::as<NSArray>(read(R"([{"name":"x","value":12.5}, "y"])")));
  auto inner = bridge::retained(bridge::as<NSDictionary>(kept->objectAtIndex(0)));
  using RetainCount = bridge::Message<"retainCount", NSUInteger()>;
  EXPECT_EQ(RetainCount::send(inner.get().raw), 2u);
}

}  // namespace

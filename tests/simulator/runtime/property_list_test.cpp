// Property lists of every form, and those that nobody could read to their end.
#include "simulator/runtime/property_list.hpp"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>

#include "platform/foundation/number.hpp"
#include "simulator/runtime/property_list_nesting.hpp"
#include "tests/support/home.hpp"

namespace {

using sim::isNestedSanely;

const std::string letter = "\x51\x61";  // "a"

std::string repeated(const std::string& text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i) all += text;
  return all;
}

std::string bigEndian(std::size_t number, int size) {
  std::string bytes;
  for (int shift = 8 * (size - 1); shift >= 0; shift -= 8) bytes += static_cast<char>(number >> shift);
  return bytes;
}

// A binary list of these objects, the first of which is the top.
std::string binary(const std::vector<std::string>& objects) {
  std::string list = "bplist00", table;
  for (const std::string& object : objects) {
    table += bigEndian(list.size(), 4);
    list += object;
  }
  const std::size_t at = list.size();
  return list + table + std::string(6, '\0') + "\4\4" + bigEndian(objects.size(), 8) + bigEndian(0, 8) +
         bigEndian(at, 8);
}

std::string array(const std::vector<std::size_t>& held) {
  std::string object(1, static_cast<char>(0xA0 | held.size()));
  for (std::size_t each : held) object += bigEndian(each, 4);
  return object;
}

std::string dictionary(std::size_t key, std::size_t value) {
  return "\xD1" + bigEndian(key, 4) + bigEndian(value, 4);
}

// A dictionary with an array in an array, and so on.
std::string nestedBinary(int depth) {
  std::vector<std::string> objects{dictionary(1, 2), letter};
  for (int i = 2; i < depth; ++i) objects.push_back(array({objects.size() + 1}));
  objects.push_back(array({}));
  return binary(objects);
}

bool readable(const std::string& list) {
  bridge::Pool pool;
  const std::string file = test::temporaryFile("list.plist", list);
  return static_cast<bool>(sim::propertyList(NSString::stringWithUTF8String(file.c_str())));
}

// Foundation as the device has it.
class PropertyList : public testing::Test {
 protected:
  test::Home home{{"--stock"}};
};

TEST_F(PropertyList, InBinaryIsRead) {
  bridge::Pool pool;
  const std::string file = test::temporaryFile("list.plist", binary({dictionary(1, 2), letter, "\x10\5"}));
  NSDictionary read = sim::propertyList(NSString::stringWithUTF8String(file.c_str()));
  EXPECT_EQ(bridge::as<NSNumber>(read.objectForKey("a"_ns)).intValue(), 5);
}

TEST_F(PropertyList, IsReadTo512Levels) {
  EXPECT_TRUE(readable("{a=" + repeated("(", 511) + repeated(")", 511) + ";}"));
  EXPECT_FALSE(readable("{a=" + repeated("(", 512) + repeated(")", 512) + ";}"));
  const auto xml = [](int depth) {
    return "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>a</key>" +
           repeated("<array>", depth - 1) + repeated("</array>", depth - 1) + "</dict></plist>";
  };
  EXPECT_TRUE(readable(xml(512)));
  EXPECT_FALSE(readable(xml(513)));
  EXPECT_TRUE(readable(nestedBinary(512)));
  EXPECT_FALSE(readable(nestedBinary(514)));
}

TEST_F(PropertyList, MayBeAsWideAsItLikes) {
  EXPECT_TRUE(readable("{a=(" + repeated("(),", 3000) + "());}"));
  EXPECT_TRUE(readable("<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>a</key><array>" +
                       repeated("<array/><dict />", 3000) + "</array></dict></plist>"));
}

TEST_F(PropertyList, InBinaryIsNotFollowedForEver) {
  EXPECT_FALSE(readable(nestedBinary(50'000)));
  EXPECT_FALSE(readable(binary({dictionary(1, 0), letter})));  // in itself
  // Ten times ten times ten, thirty times.
  std::vector<std::string> objects{dictionary(1, 2), letter};
  for (int i = 0; i < 30; ++i) objects.push_back(array(std::vector<std::size_t>(10, objects.size() + 1)));
  objects.push_back(array({}));
  EXPECT_FALSE(readable(binary(objects)));
}

TEST_F(PropertyList, InBinaryThatIsDamagedIsRefused) {
  const std::string whole = nestedBinary(5);
  for (std::size_t length = 0; length < whole.size(); ++length)
    EXPECT_FALSE(readable(whole.substr(0, length))) << length;
  EXPECT_FALSE(isNestedSanely(binary({dictionary(1, 9), letter})));  // of nothing
}

// Of each kind: truth, a number, a real number, a date, bytes, a long text, letters of two bytes, a name of
// an archive, a list. GNUstep reads what stands behind a list that is shorter than it says.
TEST_F(PropertyList, InBinaryHasEachObjectWholeBeforeItsTable) {
  const std::string number(64, '\1');
  for (const std::string& object :
       {std::string("\x09"), "\x16" + number, "\x23" + number.substr(0, 8), "\x33" + number.substr(0, 8),
        "\x4a" + number.substr(0, 10), "\x5f\x10\x40" + number, "\x63" + number.substr(0, 6),
        std::string("\x81\1\1"), array({1})}) {
    EXPECT_TRUE(isNestedSanely(binary({dictionary(1, 2), letter, object}))) << testing::PrintToString(object);
    const std::string cut = object.substr(0, object.size() - 1);
    EXPECT_FALSE(isNestedSanely(binary({dictionary(1, 2), letter, cut}))) << testing::PrintToString(object);
  }
}

// From the year 4 to 9999.
TEST_F(PropertyList, HasNoDatesThatNobodyCouldWriteAgain) {
  const auto isReadWith = [](double seconds) {
    const std::string date = "\x33" + bigEndian(std::bit_cast<std::uint64_t>(seconds), 8);
    return readable(binary({dictionary(1, 2), letter, date}));
  };
  for (double seconds : {0.0, 8e8, -63e9, 252'455'615'999.0}) EXPECT_TRUE(isReadWith(seconds)) << seconds;
  for (double seconds : {-63.1e9, -1e300, 252'455'616'000.0, 1e300, HUGE_VAL, std::nan("")})
    EXPECT_FALSE(isReadWith(seconds)) << seconds;
}

TEST_F(PropertyList, InBinaryHasItsTableWhole) {
  std::string list = binary({dictionary(1, 2), letter, "\x09"});
  ASSERT_TRUE(isNestedSanely(list));
  list[list.size() - 1] += 1;
  EXPECT_FALSE(isNestedSanely(list));
  list[list.size() - 8] = '\xff';
  EXPECT_FALSE(isNestedSanely(list));
}

TEST_F(PropertyList, WithDeclarationsOfItsOwnIsRefused) {
  EXPECT_FALSE(
      readable("<?xml version=\"1.0\"?><!DOCTYPE plist [<!ENTITY a \"<array>\">]><plist "
               "version=\"1.0\"><dict/></plist>"));
  EXPECT_TRUE(
      readable("<?xml version=\"1.0\"?><!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
               "\"http://www.apple.com/DTDs/"
               "PropertyList-1.0.dtd\"><plist version=\"1.0\"><dict><key>a</key><true/></dict></plist>"));
}

TEST_F(PropertyList, IsNoneWhoseCommentOrQuoteDoesNotEnd) {
  for (const char* text : {"{a=\"", "{a=\"\\", "{ /* ", "<plist><!-- </plist>", "<plist><![CDATA[ </plist>",
                           "<? </plist>", "<plist a=\"></plist>"})
    EXPECT_FALSE(isNestedSanely(text)) << text;
  EXPECT_TRUE(isNestedSanely("{a=b;} // the end ((("));
}

// U+FEFF, with which a text in UTF-8 may begin, is one of its letters anywhere else.
TEST_F(PropertyList, KeepsMarksOfByteOrderWithinTexts) {
  bridge::Pool pool;
  const std::string mark = "\xef\xbb\xbf";
  const auto readText = [&](const std::string& text) -> std::string {
    const std::string list = "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>a</key><string>" +
                             text + "</string></dict></plist>";
    const std::string file = test::temporaryFile("list.plist", list);
    const NSDictionary read = sim::propertyList(NSString::stringWithUTF8String(file.c_str()));
    return bridge::as<NSString>(read.objectForKey("a"_ns)).UTF8String();
  };
  EXPECT_EQ(readText("a" + mark + "b"), "a" + mark + "b");
  EXPECT_EQ(readText(mark + "b"), mark + "b");
  EXPECT_EQ(readText(mark + mark + "b"), mark + mark + "b");
  EXPECT_EQ(readText(mark), mark);
  for (const std::string reference : {"&apos;", "&#39;", "&#x27;"})
    EXPECT_EQ(readText("a" + reference + mark + "b"), "a'" + mark + "b");
  EXPECT_EQ(readText(mark + "&apos;b"), mark + "'b");
  EXPECT_EQ(readText("&apos;" + mark + "&apos;" + mark), "'" + mark + "'" + mark);
  EXPECT_EQ(readText("a;" + mark + "b"), "a;" + mark + "b");
  EXPECT_EQ(readText("&amp; a;" + mark + "b"), "& a;" + mark + "b");
}

// As some editors leave it.
TEST_F(PropertyList, MayHaveAMarkOfByteOrderBeforeIt) {
  const std::string list =
      "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>a</key><true/></dict></plist>\n";
  EXPECT_TRUE(readable(list));
  EXPECT_TRUE(readable("\xef\xbb\xbf" + list));
}

}  // namespace

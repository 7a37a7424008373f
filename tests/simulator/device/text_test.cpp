// What is text, and what of a message is shown.
#include "simulator/device/text.hpp"

#include <gtest/gtest.h>

#include "simulator/device/usage_error.hpp"

namespace sim {
namespace {

TEST(Text, IsUtf8) {
  for (const char* text :
       {"", "plain", "caf\u00e9", "\u20ac", "\U0001F600", "\x01\x7f", "\uFFFD", "\U0010FFFF"})
    EXPECT_TRUE(isText(text)) << text;
}

TEST(Text, IsNothingElse) {
  for (const char* bytes : {"\xff", "a\xff", "\x80", "\xc3", "\xc3(", "\xe2\x82", "\xf0\x9f\x98", "\xfe"})
    EXPECT_FALSE(isText(bytes));
  // Longer than need be; half a pair; beyond the last character.
  for (const char* bytes : {"\xc0\xaf", "\xc1\xbf", "\xe0\x9f\xbf", "\xf0\x8f\xbf\xbf", "\xed\xa0\x80",
                            "\xf4\x90\x80\x80", "\xf5\x80\x80\x80"})
    EXPECT_FALSE(isText(bytes));
}

TEST(Text, HasNoNul) { EXPECT_FALSE(isText(std::string_view("a\0b", 3))); }

TEST(MessageLine, IsOneLine) { EXPECT_EQ(messageLine("a\nb\r\nc\td"), "a b  c d"); }

TEST(MessageLine, ShowsBytesThatAreNoTextByTheirNumbers) {
  using namespace std::string_view_literals;
  EXPECT_EQ(messageLine("caf\u00e9 \xff\x1b[1m\0\x7f"sv), "caf\u00e9 \\xff\\x1b[1m\\x00\\x7f");
}

TEST(MessageLine, KeepsBeginningAndEndOfWhatIsTooLong) {
  const std::string line = messageLine("begin" + std::string(3'000'000, 'x') + "end");
  EXPECT_LT(line.size(), 1300u);
  EXPECT_TRUE(line.starts_with("begin"));
  EXPECT_TRUE(line.ends_with("xend"));
  EXPECT_NE(line.find("x ... x"), line.npos);
}

TEST(MessageLine, IsCutBetweenCharacters) {
  for (const char* lead : {"", "a", "ab"}) {
    std::string message = lead;
    while (message.size() < 4000) message += "\u20ac";
    EXPECT_EQ(messageLine(message).find('\\'), std::string::npos);
  }
}

TEST(UsageError, SaysAllOfItsMessage) {
  using namespace std::string_view_literals;
  EXPECT_STREQ(UsageError("a\0b\nc"sv).what(), "a\\x00b c");
}

}  // namespace
}  // namespace sim

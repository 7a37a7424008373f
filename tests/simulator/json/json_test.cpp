// JSON values: their kinds, texts and order.
#include "simulator/json/json.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace sim {
namespace {

constexpr auto largest = std::numeric_limits<std::uint64_t>::max();
constexpr auto smallest = std::numeric_limits<std::int64_t>::min();

TEST(JsonValue, IsOfPairsWithANameInFrontAnObjectAndElseAnArray) {
  EXPECT_EQ(Json({{"a", 1}, {"b", nullptr}}).dump(), R"({"a":1,"b":null})");
  EXPECT_EQ(Json({"a", 1}).dump(), R"(["a",1])");
  EXPECT_EQ(Json({{"a", 1}, {2, 3}}).dump(), R"([["a",1],[2,3]])");
  EXPECT_EQ(Json::array({{"a", 1}}).dump(), R"([["a",1]])");
}

TEST(JsonValue, IsATruthValueOfATruthValueAlone) {
  EXPECT_TRUE(Json(true).isBoolean());
  EXPECT_TRUE(Json("text").isString());
  const int numbers[] = {1, 2};
  EXPECT_EQ(Json(numbers), Json({1, 2}));
  EXPECT_EQ(Json(std::vector<std::string>{"a"}), Json::array({"a"}));
}

TEST(JsonText, KeepsOrderKindsAndTheLargestNumbers) {
  const std::string text =
      R"({"z":1,"a":[1.0,-1,true,null,"é\n"],"most":18446744073709551615,"least":-9223372036854775808})";
  EXPECT_EQ(Json::parse(text).dump(), text);
  EXPECT_EQ(Json::parse(text)["most"].get<std::uint64_t>(), largest);
  EXPECT_EQ(Json(smallest).dump(), "-9223372036854775808");
}

TEST(JsonText, IsIndentedAndEscapedOnDemand) {
  EXPECT_EQ(Json({{"a", {1, 2}}}).dump(2), "{\n  \"a\": [\n    1,\n    2\n  ]\n}");
  EXPECT_EQ(Json("é").dump(-1, true), R"("\u00e9")");
}

TEST(JsonText, ThatIsNoneIsRefused) {
  for (const char* text : {"", "{", "[1,]", "[1] 2", "{\"a\":}"}) {
    EXPECT_THROW(Json::parse(text), JsonError) << text;
    EXPECT_FALSE(Json::read(text)) << text;
    EXPECT_FALSE(Json::accepts(text)) << text;
  }
}

TEST(JsonText, IsReadAsDeepAsIsAllowed) {
  EXPECT_TRUE(Json::read("[[[]]]", 3));
  EXPECT_FALSE(Json::read("[[[[]]]]", 2));
  EXPECT_FALSE(Json::read("[[[]]]", 2));
  EXPECT_FALSE(Json::read(std::string(100000, '['), 32));
}

TEST(JsonText, HasAMarkInPlaceOfBytesThatAreNone) { EXPECT_EQ(Json("a\xff.").dump(), "\"a\uFFFD.\""); }

TEST(JsonNumbers, AreEqualByValueWhateverTheirKind) {
  EXPECT_EQ(Json(1), 1.0);
  EXPECT_EQ(Json(1u), Json(1));
  EXPECT_NE(Json(1), Json(true));
  EXPECT_NE(Json(-3), Json(static_cast<std::uint64_t>(-3)));
}

TEST(JsonNumbers, HaveAnOrderAcrossSigns) {
  EXPECT_LT(Json(-1), Json(largest));
  EXPECT_GT(Json(largest), Json(smallest));
  EXPECT_LT(Json(smallest), -1);
  EXPECT_GT(Json(1.5), 1);
}

TEST(JsonNumbers, HaveNoOrderAgainstAnythingElse) {
  EXPECT_FALSE(Json(1) < Json("2"));
  EXPECT_FALSE(Json(1) >= Json("2"));
}

TEST(JsonMembers, ArePutInWhereTheyAreMissingButNeverIntoAConstant) {
  Json object;
  object["a"]["b"] = 1;
  EXPECT_EQ(object.dump(), R"({"a":{"b":1}})");
  const Json& constant = object;
  EXPECT_THROW(constant["c"], JsonError);
  EXPECT_TRUE(object.value("c").isNull());
  EXPECT_EQ(object.size(), 1u);
}

TEST(JsonMembers, CountTheirOrderUnlessSorted) {
  const Json one = Json::parse(R"({"a":1,"b":{"c":1,"d":2}})"),
             other = Json::parse(R"({"b":{"d":2,"c":1},"a":1})");
  EXPECT_NE(one, other);
  EXPECT_EQ(one.sorted(), other.sorted());
}

TEST(JsonItems, BeyondTheEndAreAnError) {
  Json list = {1, 2};
  EXPECT_EQ(list.back(), 2);
  EXPECT_THROW(list[2], JsonError);
  EXPECT_THROW(Json(5)[0], JsonError);
  EXPECT_THROW(Json().back(), JsonError);
}

TEST(JsonNumbers, BeyondAllWholeNumbersAreNoWholeOnes) {
  EXPECT_EQ(Json(-0x1p63).get<std::int64_t>(), std::numeric_limits<std::int64_t>::min());
  for (const double number : {0x1p63, -0x1.0000000000001p63, 1e300}) {
    EXPECT_THROW(Json(number).get<std::int64_t>(), JsonError) << number;
    EXPECT_EQ(Json(number).get<double>(), number);
  }
}

TEST(JsonKinds, ThatAreNotAskedForAreAnError) {
  EXPECT_THROW(Json("1").get<double>(), JsonError);
  EXPECT_THROW(Json(1).get<std::string>(), JsonError);
  EXPECT_THROW(Json(1).get<bool>(), JsonError);
  EXPECT_THROW(Json(1).items(), JsonError);
}

}  // namespace
}  // namespace sim

// Bytes that are no text, names that are too long, and lists in lists, wherever a user may put them.
#include "tests/simulator/app/run.hpp"

namespace {

namespace fs = std::filesystem;
using test::expectRefused;
using test::reportOf;

std::string script(const std::string& text) { return test::temporaryFile("steps", text); }

TEST(BytesThatAreNoText, AreNamedInASetting) {
  expectRefused({"--set", "name=\xff"}, "--set: 'name=\\xff' is not text");
  expectRefused({"--set", "n\xffme=1"}, "--set: 'n\\xffme=1' is not text");
}

TEST(BytesThatAreNoText, AreNamedInAStepWithItsLine) {
  for (const char* step : {"write name=\xff", "message Name key=\xff", "message N\xff key=1", "tap \"\xff\"",
                           "type \"\xff\" \"1\"", "enter \"\xff\"", "hov\xffr"}) {
    const std::string file = script(std::string("lock\n") + step + "\n");
    expectRefused({"--script", file}, file + ":2");
    expectRefused({"--script", file}, "\\xff");
  }
}

TEST(BytesThatAreNoText, MayStandInAComment) { reportOf({"--script", script("lock # caf\xe9\n# \xff\n")}); }

TEST(BytesThatAreNoText, MayBeInAFilesName) {
  const std::string picture = test::temporaryFile("caf\xe9.png", "");
  reportOf({"--snapshot", picture});
  EXPECT_NE(test::pngSize(picture)[0], 0u);
}

TEST(BytesThatAreNoText, MayBeInTheEnvironment) {
  setenv("WORD", "\xff", 1);
  EXPECT_EQ(reportOf({})["loaded"], true);
}

TEST(AScript, MayBeginWithAByteOrderMark) {
  EXPECT_EQ(reportOf({"--script", script("\xef\xbb\xbfwait 2\n")})["time"], 2);
  expectRefused({"--script", script("\xef\xbb\xbfhover\n")}, ":1: unknown step 'hover'");
  expectRefused({"--script", script("lock\n\xef\xbb\xbfwait 2\n")}, ":2: unknown step");
}

TEST(AStep, WithANulIsNamedWhole) {
  expectRefused({"--script", script(std::string("wa\0it 2\n", 8))}, "'wa\\x00it'");
}

TEST(AMessage, ThatIsTooLongSaysSo) {
  const std::string much(70'000, 'x');
  expectRefused({"--script", script("message Name key=" + much)}, ":1: the message is too long");
  expectRefused({"--script", script("message " + much)}, ":1: the message is too long");
}

TEST(AName, OfMegabytesIsShortened) {
  const std::string name(3'000'000, 'x');
  for (const std::string& step :
       {"hover" + name, "tap \"" + name + "\"", "launch \"" + name + "\"", "wait " + name}) {
    const std::string file = script(step);
    expectRefused({"--script", file}, file + ":1");
    EXPECT_LT(test::runSimulator({"--script", file}).errors.size(), 1500u);
  }
  EXPECT_LT(test::runSimulator({"--device", name.substr(0, 100'000)}).errors.size(), 1500u);
}

// As often as it takes to exhaust a stack.
std::string times(const std::string& text) {
  std::string all;
  for (int i = 0; i < 50'000; ++i) all += text;
  return all;
}

std::string nestedInXml(const std::string& open, const std::string& close) {
  return "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>a</key>" + times(open) + times(close) +
         "</dict></plist>";
}

void expectListRefused(const std::string& list) {
  const std::string file = test::temporaryFile("list.plist", list);
  expectRefused({"--prefs", file}, file);
}

TEST(ListsInLists, AreRefusedInXml) {
  expectListRefused(nestedInXml("<array>", "</array>"));
  expectListRefused(nestedInXml("<dict><key>a</key>", "</dict>"));
  expectListRefused(nestedInXml("<array \n>", "</array >"));
  expectListRefused(nestedInXml("<array><!-- </array> -->", "</array>"));
  expectListRefused(nestedInXml("<array><string><![CDATA[</array>]]></string>", "</array>"));
}

TEST(ListsInLists, AreRefusedInTheOldText) {
  expectListRefused("{a=" + times("(") + times(")") + ";}");
  expectListRefused(times("{a=") + "b" + times(";}"));
  expectListRefused("{a=" + times("(\")\",") + times(")") + ";}");
  expectListRefused("{a=" + times("( /* ) */ ") + times(")") + ";}");
}

TEST(ListsInLists, AreLeftAloneInAKeptRoot) {
  const sim::TemporaryRoot root;
  const fs::path place = root.path() / "var/mobile/Library/Preferences/com.wexor.tilo.plist";
  fs::create_directories(place.parent_path());
  const std::string list = nestedInXml("<array>", "</array>");
  std::ofstream(place) << list;
  EXPECT_EQ(reportOf({"--root", root.path().string()}, "swipe up\nwait 1\n")["loaded"], true);
  EXPECT_EQ(test::contentsOf(place), list);
}

}  // namespace

// What the library sends, every system answers that has the class; or it is declared in platform/ as a
// message that is sent to nobody before it is asked for.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>

#include "tests/support/files.hpp"
#include "tests/support/home.hpp"

namespace {

using Names = std::vector<std::string>;
using Systems = std::set<std::string>;
const Systems everywhere{"9.2", "9.3", "10.1", "10.2", "11.1", "12.2"};

// messages.txt.
struct Facts {
  std::map<std::string, Systems> systems;  // by message: "SBDockView +defaultHeight"
  std::map<std::string, Systems> classes;  // those that are not everywhere
  std::set<std::string> library;
};

Facts listed() {
  Facts facts;
  std::ifstream file(MESSAGES);
  std::string line, section, name, word;
  Systems systems;
  while (std::getline(file, line)) {
    if (line.starts_with('#')) continue;
    std::istringstream words(line);
    if (line.starts_with("= ")) {
      words >> word >> section;
      systems.clear();
      while (words >> word)
        if (word != "none") systems.insert(word);
      if (section == "documented") systems = everywhere;
      continue;
    }
    if (!line.starts_with(' ')) words >> name;
    while (words >> word) {
      if (section == "classes")
        facts.classes[name].insert(word);
      else if (section == "library")
        facts.library.insert(name + ' ' + word);
      else
        facts.systems[name + ' ' + word] = systems;
    }
  }
  return facts;
}

struct Declared {
  std::string className, message;
  bool optional;
};

std::vector<Declared> declarations(const std::string& source) {
  static const std::regex comment("//[^\n]*");
  static const std::regex form(
      R"re(\b(Face|Protocol|Method|OptionalMethod|ClassMethod|Property)<\s*"([^"]+)"(?:,\s*"([^"]+)")?(?:,\s*[\w:]+,\s*"([^"]+)")?)re");
  const std::string code = std::regex_replace(source, comment, "");
  std::vector<Declared> found;
  std::string of;
  for (std::sregex_iterator it(code.begin(), code.end(), form), end; it != end; ++it) {
    const std::string kind = (*it)[1], first = (*it)[2], second = (*it)[3];
    if (kind == "Face" || kind == "Protocol")
      of = first;
    else if (kind == "ClassMethod")
      found.push_back({first, '+' + second, false});
    else if (kind == "Property") {
      const std::string getter = (*it)[4].matched ? std::string((*it)[4]) : first;
      found.push_back({of, '-' + getter, false});
      found.push_back(
          {of, std::string("-set") + static_cast<char>(std::toupper(first[0])) + first.substr(1) + ':',
           false});
    } else
      found.push_back({of, '-' + first, kind == "OptionalMethod"});
  }
  return found;
}

std::string platform() {
  std::string all;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(std::string(SOURCES) + "/platform"))
    if (entry.is_regular_file()) all += test::contentsOf(entry.path());
  return all;
}

// The systems that have the class and not the message; "unlisted" when nothing is known of it.
Systems without(const Declared& declared, const Facts& facts) {
  const std::string name = declared.className + ' ' + declared.message;
  if (facts.library.contains(name)) return {};
  const auto systems = facts.systems.find(name);
  if (systems == facts.systems.end()) return {"unlisted"};
  const auto found = facts.classes.find(declared.className);
  Systems missing;
  for (const std::string& system : found == facts.classes.end() ? everywhere : found->second)
    if (!systems->second.contains(system)) missing.insert(system);
  return missing;
}

// What is declared as if it were everywhere, and is not; and what need not be asked for.
Names wrong(const std::string& source, const Facts& facts) {
  Names names;
  for (const Declared& declared : declarations(source))
    if (without(declared, facts).empty() == declared.optional)
      names.push_back(declared.className + ' ' + declared.message);
  return names;
}

TEST(Messages, AreAnsweredByEverySystemOrAskedForFirst) {
  EXPECT_EQ(wrong(platform(), listed()), Names{}) << "messages.txt lists the systems that have a message";
}

TEST(Messages, AreAllFound) {
  const std::string source = platform();
  size_t count = 0;
  for (size_t at = 0; (at = source.find("Method<", at)) != source.npos; ++at) ++count;
  for (size_t at = 0; (at = source.find("Property<", at)) != source.npos; ++at) count += 2;
  EXPECT_EQ(declarations(source).size(), count);
  EXPECT_GT(count, 600u);
}

TEST(Messages, ThatSomeSystemsLackAreNamedUnlessTheyAreAskedFor) {
  const std::string dock = R"(struct Dock : bridge::Face<"SBDockIconListView", SBRootIconListView> {
    MESSAGE Method<"setSpacing:", void(CGFloat)> setSpacing;)";
  const std::string asked = std::regex_replace(dock, std::regex(" Method"), " OptionalMethod");
  EXPECT_EQ(wrong(dock, listed()), Names{"SBDockIconListView -setSpacing:"});
  EXPECT_EQ(wrong(asked, listed()), Names{});
}

TEST(Messages, ThatEverySystemAnswersNeedNotBeAskedFor) {
  const std::string view = R"(struct View : bridge::Face<"UIView", UIResponder> {
    MESSAGE OptionalMethod<"frame", CGRect()> frame;)";
  EXPECT_EQ(wrong(view, listed()), Names{"UIView -frame"});
}

TEST(Messages, ThatNoSystemIsKnownToAnswerAreNamed) {
  const std::string made = R"(bridge::ClassMethod<"UIView",
    "levitate", void()> levitate{};)";
  EXPECT_EQ(wrong(made, listed()), Names{"UIView +levitate"});
}

TEST(Messages, OfAClassThatWentAreAnsweredForAsLongAsItWasThere) {
  const Declared chevron{"SBChevronView", "-initWithColor:", false};
  EXPECT_TRUE(without(chevron, listed()).empty());
  EXPECT_EQ(without({"SBLockScreenViewController", "-isLockScreenVisible", true}, listed()),
            (Systems{"10.1", "10.2"}));
}

// The library's sources declare classes of their own, and reach the system's by platform/ alone.
TEST(Messages, OfTheSystemsClassesAreDeclaredInPlatformAlone) {
  const Facts facts = listed();
  for (const char* room : {"startup", "hooks", "settings", "panel", "controls"})
    for (const auto& entry : std::filesystem::recursive_directory_iterator(std::string(SOURCES) + "/" + room))
      if (entry.is_regular_file())
        for (const Declared& declared : declarations(test::contentsOf(entry.path())))
          EXPECT_FALSE(facts.systems.contains(declared.className + ' ' + declared.message) &&
                       !facts.library.contains(declared.className + ' ' + declared.message))
              << entry.path() << ": " << declared.className << ' ' << declared.message;
}

bool answers(const std::string& message) {
  const size_t space = message.find(' ');
  Class cls = objc_getClass(message.substr(0, space).c_str());
  const SEL selector = sel_registerName(message.substr(space + 2).c_str());
  if (message[space + 1] == '+') cls = bridge::classOf(reinterpret_cast<id>(cls));
  return class_getInstanceMethod(cls, selector) != nullptr;
}

TEST(Messages, OfTheLibrarysOwnAreAddedByIt) {
  test::Home home;
  for (const std::string& message : listed().library) EXPECT_TRUE(answers(message)) << message;
}

TEST(Messages, OfTheLibrarysOwnAreNotTheSystems) {
  test::Home home({"--stock"});
  for (const std::string& message : listed().library) EXPECT_FALSE(answers(message)) << message;
}

}  // namespace

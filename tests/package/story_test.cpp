// Every story that touches the panel, acted out in a root into which the package was installed: told as the
// library by itself tells it, whichever loader finds it.
#include "phone.hpp"

namespace {

using namespace package::test;

// The files of stories that have a step of the panel's.
Lines storiesOfThePanel() {
  return must(
      fmt::format("grep -lE '^(swipe up|two-finger-tap|press|increment|decrement|slide|type|pick|apply)' "
                  "'{}'/tests/scenarios/*.txt",
                  SOURCE));
}

// But for the loader that it names, its files being where they lie.
std::string optionsOf(const std::string& story) {
  return must(fmt::format("sed -n 's| files/| {}/tests/scenarios/files/|g; s/--loader [a-z]*//; "
                          "s/^# options: //p' '{}'",
                          SOURCE, story))
      .front();
}

// Acts it out in the folder, which gets what was said, the pictures and the reports.
void act(const std::string& folder, const std::string& story, const std::string& options) {
  must(fmt::format(
      "mkdir -p '{0}' && cd '{0}' && '{1}/tilo-sim' {2} {3} --script '{4}' --report end.json >said 2>&1",
      folder, BUILD, optionsOf(story), options, story));
}

// Every other one, from the first or the second on: two tests can run side by side.
class InstalledStories : public testing::TestWithParam<size_t> {};

INSTANTIATE_TEST_SUITE_P(Halves, InstalledStories, testing::Values(0, 1),
                         [](const auto& info) { return info.param ? "Second" : "First"; });

TEST_P(InstalledStories, AreToldAsTheLibraryByItselfTellsThemWhicheverLoaderFindsIt) {
  Folder made, told;
  Phone phone;
  fs::create_directories(phone.path(injectorPath));
  phone.install(madePackage(made));
  const Lines stories = storiesOfThePanel();
  EXPECT_GE(stories.size(), 55u);
  for (size_t i = GetParam(); i < stories.size(); i += 2) {
    const std::string name = fs::path(stories[i]).stem(), place = told / name, alone = place + "/alone";
    must(fmt::format("mkdir '{0}' && mkdir '{0}/other' && cp -a '{1}/var' '{0}/other'", place, phone.root));
    act(alone, stories[i], "--root ../other");
    for (const std::string loader : {"substrate", "sbinject"}) {
      const std::string installed = place + "/" + loader;
      must(fmt::format("rm -rf '{0}/root' && cp -a '{1}' '{0}/root'", place, phone.root));
      act(installed, stories[i], "--root ../root --installed --loader " + loader);
      EXPECT_EQ(run(fmt::format("diff -rq '{}' '{}'", installed, alone)).lines, Lines{});
      EXPECT_EQ(must(fmt::format("jq .loaded '{}/end.json'", installed)), Lines{"true"}) << name;
    }
  }
}

TEST(InstalledPage, IsFoundWhereSettingsLooks) {
  Folder made;
  Phone phone;
  fs::create_directories(phone.path(injectorPath));
  phone.install(madePackage(made));
  const std::string steps = made / "steps.txt";
  write(steps, "settings\nwait 0.5\n");
  const auto opened = [&](const char* loader) {
    return run(
        fmt::format("'{}/tilo-sim' --root '{}' --installed --loader {} --script '{}' --report - "
                    "| jq -r '[.loaded, .application] | join(\" \")'; exit ${{PIPESTATUS[0]}}",
                    BUILD, phone.root, loader, steps));
  };
  for (const char* loader : {"substrate", "sbinject"})
    EXPECT_EQ(opened(loader).lines, Lines{"true Settings"}) << loader;
  fs::remove(phone.path("/Library/PreferenceLoader/Preferences/Tilo.plist"));
  EXPECT_EQ(opened("substrate").status, 2);
}

}  // namespace

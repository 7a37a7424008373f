// Installing, upgrading, removing and purging: the files where loaders look, and what is the user's as it
// was.
#include "phone.hpp"

namespace {

using namespace package::test;

class Installation : public testing::Test {
 protected:
  std::string standard() { return contents(phone.path(presetsPath)); }
  // Bytes, owners and dates of all that is the user's.
  Lines ofTheUser() {
    return must(
        fmt::format("cd '{}/var/mobile' && find . -printf '%P %m %U:%G %T@ %s\\n' | sort && "
                    "find . -type f -exec sha256sum {{}} + | sort",
                    phone.root));
  }

  Folder made;
  Phone phone;
};

TEST_F(Installation, PutsFilesWhereLoadersLook) {
  phone.install(madePackage(made));
  for (const char* name :
       {"Tilo.dylib", "Tilo.plist", "Tilo_Main.bundle/FontAwesome.ttf", "Tilo_Main.bundle/Info.plist"})
    EXPECT_TRUE(fs::exists(phone.path(librariesPath) + "/" + name)) << name;
  EXPECT_FALSE(fs::exists(phone.path("/bootstrap"))) << "its being there would tell of another loader";
}

TEST_F(Installation, LeadsAnInjectorToTheLibrary) {
  fs::create_directories(phone.path(injectorPath));
  phone.install(madePackage(made));
  for (const char* name : {"Tilo.dylib", "Tilo.plist", "Tilo_Main.bundle/FontAwesome.ttf"})
    EXPECT_EQ(contents(phone.path(injectorPath) + "/" + name),
              contents(phone.path(librariesPath) + "/" + name));
  EXPECT_TRUE(fs::is_symlink(phone.path(injectorPath) + "/Tilo.dylib"));
  phone.dpkg("-r com.wexor.tilo");
  EXPECT_TRUE(fs::is_empty(phone.path(injectorPath)));
}

TEST_F(Installation, LeavesAnInjectorsFolderThatIsTheSame) {
  fs::create_directories(phone.path("/bootstrap/Library"));
  fs::create_directories(phone.path(librariesPath));
  fs::create_symlink(fs::path("../..") / fs::path(librariesPath).relative_path(), phone.path(injectorPath));
  phone.install(madePackage(made));
  EXPECT_FALSE(fs::is_symlink(phone.path(librariesPath) + "/Tilo.dylib"));
  EXPECT_GT(fs::file_size(phone.path(injectorPath) + "/Tilo.dylib"), 100'000u);
}

TEST_F(Installation, LeavesWhatAnInjectorsFolderHasOfOthers) {
  write(phone.path(injectorPath) + "/Tilo.plist", "somebody's");
  phone.install(madePackage(made));
  EXPECT_EQ(contents(phone.path(injectorPath) + "/Tilo.plist"), "somebody's");
  phone.dpkg("-r com.wexor.tilo");
  EXPECT_EQ(contents(phone.path(injectorPath) + "/Tilo.plist"), "somebody's");
}

TEST_F(Installation, LeavesTheUsersFilesAsTheyAre) {
  const std::string older = madePackage(made, "0.1"), newer = madePackage(made, "9.0");
  phone.install(older);
  write(phone.path(presetsPath), R"({"configurations":[{"name":"Mine"}]})");
  write(phone.path(preferencesPath), "whatever this is");
  const Lines before = ofTheUser();
  phone.install(newer);
  EXPECT_EQ(ofTheUser(), before) << "upgraded";
  phone.install(older);
  EXPECT_EQ(ofTheUser(), before) << "downgraded";
  phone.dpkg("-r com.wexor.tilo");
  EXPECT_EQ(ofTheUser(), before) << "removed";
  phone.dpkg("-P com.wexor.tilo");
  EXPECT_EQ(ofTheUser(), before) << "purged";
  phone.install(newer);
  EXPECT_EQ(ofTheUser(), before) << "installed again";
}

TEST_F(Installation, LeavesNothingButTheUsersFiles) {
  phone.install(madePackage(made));
  phone.dpkg("-P com.wexor.tilo");
  EXPECT_EQ(must(fmt::format("cd '{}' && find . -type f -not -path './var/lib/*'", phone.root)),
            Lines{std::string(".") + presetsPath});
}

TEST_F(Installation, BringsOneLayout) {
  phone.install(madePackage(made));
  EXPECT_EQ(standard(),
            R"({"configurations":[{"name":"Standard","value":0,"configurable":1,"configuration":)"
            R"({"horizontal_padding":27,"vertical_padding":14,"side_inset":27,"top_inset":30}}]})");
}

TEST_F(Installation, GivesTheLayoutToTheUser) {
  if (getuid() != 0) GTEST_FAIL() << "only root can give files away";
  fs::create_directories(phone.path("/var/mobile"));
  phone.install(madePackage(made));
  EXPECT_EQ(
      must(fmt::format("cd '{}/var/mobile/Documents' && find . -printf '%p %U:%G %m\\n' | sort", phone.root)),
      (Lines{". 501:501 755", "./com.wexor.tilo3 501:501 755", "./com.wexor.tilo3/custom 501:501 755",
             "./com.wexor.tilo3/custom/config.json 501:501 644"}));
}

TEST_F(Installation, LeavesFoldersThatAreThere) {
  fs::create_directories(phone.path("/var/mobile/Documents"));
  const Lines before =
      must(fmt::format("stat -c '%U %a' '{0}/var/mobile' '{0}/var/mobile/Documents'", phone.root));
  phone.install(madePackage(made));
  EXPECT_EQ(must(fmt::format("stat -c '%U %a' '{0}/var/mobile' '{0}/var/mobile/Documents'", phone.root)),
            before);
}

TEST_F(Installation, LeavesAnEmptyPresetsFile) {
  write(phone.path(presetsPath), "");
  phone.install(madePackage(made));
  EXPECT_EQ(standard(), "");
}

TEST_F(Installation, LeavesALinkThatLeadsNowhere) {
  fs::create_directories(fs::path(phone.path(presetsPath)).parent_path());
  fs::create_symlink("/nowhere/else.json", phone.path(presetsPath));
  phone.install(madePackage(made));
  EXPECT_EQ(fs::read_symlink(phone.path(presetsPath)), "/nowhere/else.json");
}

TEST_F(Installation, LeavesAFolderInThePresetsPlace) {
  fs::create_directories(phone.path(presetsPath));
  phone.install(madePackage(made));
  EXPECT_TRUE(fs::is_empty(phone.path(presetsPath)));
}

TEST_F(Installation, DoesWithoutTheLayoutWhereItHasNoPlace) {
  write(phone.path("/var/mobile/Documents/com.wexor.tilo3/custom"), "a file");
  phone.install(madePackage(made));
  EXPECT_EQ(contents(phone.path("/var/mobile/Documents/com.wexor.tilo3/custom")), "a file");
}

// As a reader types them, next to a build folder.
TEST_F(Installation, IsTriedOutByThePagesCommands) {
  const std::string page = contents(fmt::format("{}/docs/install.md", SOURCE));
  const std::size_t begin = page.find("mkdir -p phone/"), end = page.find("```", begin);
  ASSERT_NE(begin, page.npos);
  const std::string here = made / "here";
  const std::string file = madePackage(made);
  must(
      fmt::format("mkdir -p '{0}/build' && cp '{1}' '{0}/build/com.wexor.tilo_0_iphoneos-arm.deb' && "
                  "ln -s '{2}/tilo-sim' '{0}/build'",
                  here, file, BUILD));
  must(fmt::format("cd '{}' && export PATH=$PATH:/usr/sbin:/sbin && set -e\n{}", here,
                   page.substr(begin, end - begin)));
  EXPECT_TRUE(fs::exists(here + "/phone" + presetsPath));
  EXPECT_TRUE(fs::exists(here + "/first.png"));
}

// Package managers name a descriptor; a line there asks for the respring.
class Respring : public Installation {
 protected:
  // What the manager is told with that value of its variable, the descriptor 7 being open for it.
  Lines told(const std::string& action, const std::string& variable) {
    const std::string file = phone.folder / "told";
    must(fmt::format(
        "rm -f '{0}'; PATH=/usr/sbin:/sbin:$PATH CYDIA='{1}' dpkg --root='{2}' --force-script-chrootless "
        "--force-not-root {3} 7>'{0}'",
        file, variable, phone.root, action));
    return must(fmt::format("cat '{}'", file));
  }
};

TEST_F(Respring, IsOfferedAfterInstalling) {
  EXPECT_EQ(told(fmt::format("-i '{}'", madePackage(made)), "7 1"), Lines{"finish:restart"});
}

TEST_F(Respring, IsOfferedAfterRemoving) {
  phone.install(madePackage(made));
  EXPECT_EQ(told("-r com.wexor.tilo", "7 1"), Lines{"finish:restart"});
}

TEST_F(Respring, IsNotOfferedAfterPurging) {
  phone.install(madePackage(made));
  phone.dpkg("-r com.wexor.tilo");
  EXPECT_EQ(told("-P com.wexor.tilo", "7 1"), Lines{});
}

TEST_F(Respring, IsOfferedOnADescriptorOfTwoDigits) {
  for (const char* shell : {"dash", "bash --posix"}) {
    const std::string file = phone.folder / "told";
    must(fmt::format("bash -c \"exec 12>'{}'; CYDIA='12 1' DPKG_ROOT='{}' {} '{}/postinst' configure\"", file,
                     phone.root, shell, PACKAGE));
    EXPECT_EQ(contents(file), "finish:restart\n") << shell;
  }
}

TEST_F(Respring, IsNoReasonToFail) {
  const std::string package = madePackage(made);
  for (const char* variable : {"77 1", "x", "7; touch /tmp/never", "-1", " "})
    EXPECT_EQ(told(fmt::format("-i '{}'", package), variable), Lines{}) << variable;
}

TEST_F(Respring, IsNamedToWhoInstallsByHand) {
  const Lines said = phone.dpkg(fmt::format("-i '{}'", madePackage(made)));
  EXPECT_TRUE(std::ranges::find(said, "Tilo takes effect with the next respring.") != said.end())
      << testing::PrintToString(said);
}

}  // namespace

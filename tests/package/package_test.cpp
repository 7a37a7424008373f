// The package as a whole: the same every time, and read by tools that are not ours.
#include "support.hpp"

namespace {

using namespace package::test;

TEST(Package, IsTheSameInTwoFoldersAtTwoTimes) {
  Folder one, other;
  stage(one / "tree");
  pack(one / "tree", one / "made.deb");
  // What was built, copied, so that its files have other dates and come in another order; another user's
  // settings.
  const std::string copied = other / "a longer name/build";
  must(fmt::format(
      "mkdir -p '{0}' && cd '{1}' && cp -r Tilo_Main.bundle Tilo.bundle '{0}' && cp Tilo.dylib '{0}' && "
      "{{ [ ! -e TiloPane-universal ] || cp TiloPane-universal '{0}'; }}",
      copied, BUILD));
  must(fmt::format(
      "cd '{}' && umask 077 && TZ=Asia/Tokyo LC_ALL=C.UTF-8 SOURCE_DATE_EPOCH=1 '{}/stage' '{}' tree",
      other.text(), PACKAGE, copied));
  must(fmt::format("cd '{}' && umask 077 && TZ=Asia/Tokyo SOURCE_DATE_EPOCH=1 '{}/pack' tree made.deb",
                   other.text(), PACKAGE));
  EXPECT_EQ(contents(one / "made.deb"), contents(other / "made.deb"));
  EXPECT_GT(contents(one / "made.deb").size(), 100'000u);
}

class MadePackage : public testing::Test {
 protected:
  MadePackage() {
    stage(folder / "tree");
    pack(folder / "tree", file);
  }
  Lines field(const std::string& name) { return must(fmt::format("dpkg-deb -f '{}' {}", file, name)); }

  Folder folder;
  std::string file = folder / "com.wexor.tilo_0_iphoneos-arm.deb";
};

TEST_F(MadePackage, TellsNothingOfWhereItWasBuilt) {
  must(fmt::format("dpkg-deb -R '{}' '{}'", file, folder / "unpacked"));
  EXPECT_EQ(run(fmt::format("grep -rlaF -e '{}' -e /tmp/ '{}'", SOURCE, folder / "unpacked")).lines, Lines{});
}

TEST_F(MadePackage, SaysWhatItNeeds) {
  EXPECT_EQ(field("Package"), Lines{"com.wexor.tilo"});
  EXPECT_EQ(field("Architecture"), Lines{"iphoneos-arm"});
  EXPECT_EQ(field("Depends"),
            Lines{"mobilesubstrate, preferenceloader, firmware (>= 9.2), firmware (<< 13.0)"});
  EXPECT_EQ(field("Recommends"), Lines{"com.chpwn.iconsupport"}) << "the library does without";
}

TEST_F(MadePackage, SaysHowLargeItIs) {
  int kibibytes = 0;
  for (const auto& entry : fs::recursive_directory_iterator(folder / "tree/Library"))
    if (entry.is_regular_file()) kibibytes += static_cast<int>((entry.file_size() + 1023) / 1024);
  EXPECT_EQ(field("Installed-Size"), Lines{std::to_string(kibibytes)});
}

// But for what is a rule of Debian's own archive: its folders, documents, sections, processors and fields,
// and that scripts end where something fails, which ours must not.
TEST_F(MadePackage, IsWithoutFaultForLintian) {
  const Lines said =
      run(fmt::format("lintian --allow-root --suppress-tags malformed-contact,no-changelog,no-copyright-file,"
                      "non-standard-toplevel-dir,executable-not-elf-or-script,file-in-unusual-dir,"
                      "maintainer-script-ignores-errors,unknown-architecture,unknown-field,unknown-section "
                      "'{}'",
                      file))
          .lines;
  EXPECT_EQ(said, Lines{});
}

TEST_F(MadePackage, HasListsThatOthersRead) {
  must(fmt::format("dpkg-deb -R '{}' '{}'", file, folder / "unpacked"));
  const Lines lists = must(fmt::format("find '{}' -name '*.plist'", folder / "unpacked"));
  EXPECT_GE(lists.size(), 2u);
  for (const std::string& list : lists) {
    must(fmt::format("plistutil -i '{}' -f bin -o '{}'", list, folder / "list"));
    must(fmt::format("python3 -c 'import plistlib, sys; plistlib.load(open(sys.argv[1], \"rb\"))' '{}'",
                     list));
  }
}

// By a reader that knows nothing of ours.
TEST_F(MadePackage, HasSignaturesThatOthersRead) {
  for (const auto& [file, name] : {std::pair("MobileSubstrate/DynamicLibraries/Tilo.dylib", "com.wexor.tilo"),
                                   {"PreferenceBundles/Tilo.bundle/Tilo", "com.wexor.tilo.preferences"}}) {
    const Lines slices = must(fmt::format("python3 '{}/tests/device/read_signature.py' '{}/Library/{}'",
                                          SOURCE, folder / "tree", file));
    EXPECT_EQ(slices.size(), 2u) << file;
    for (const std::string& slice : slices)
      EXPECT_TRUE(slice.ends_with(std::string(" pages, ") + name)) << slice;
  }
}

TEST_F(MadePackage, HasSumsOfItsFiles) {
  must(fmt::format("dpkg-deb -R '{0}' '{1}' && cd '{1}' && md5sum --check --quiet DEBIAN/md5sums", file,
                   folder / "unpacked"));
}

// As a package manager on a phone does it, with state of its own: nothing of this machine's is read or
// changed.
TEST_F(MadePackage, IsInstalledByAptFromARepository) {
  const std::string repository = folder / "repository", state = folder / "state", root = folder / "root";
  must(fmt::format("mkdir '{0}' && cp '{1}' '{0}' && '{2}/repository' '{0}'", repository, file, PACKAGE));
  for (const char* name : {"Packages", "Packages.gz", "Packages.bz2", "Release"})
    EXPECT_TRUE(fs::exists(repository + "/" + name)) << name;
  must(
      fmt::format("mkdir -p '{0}/lists/partial' '{0}/archives/partial' '{1}/var/lib/dpkg/info' "
                  "'{1}/var/lib/dpkg/updates' && echo iphoneos-arm >'{1}/var/lib/dpkg/arch'",
                  state, root));
  std::string there;
  for (const auto& [name, version] :
       {std::pair("firmware", "10.3.3"), {"mobilesubstrate", "0.9.7000"}, {"preferenceloader", "2.2.3"}})
    there += fmt::format(
        "Package: {}\nStatus: install ok installed\nMaintainer: nobody\nArchitecture: iphoneos-arm\n"
        "Version: {}\nDescription: there\n\n",
        name, version);
  write(root + "/var/lib/dpkg/status", there);
  write(state + "/sources.list", fmt::format("deb [trusted=yes] file:{} ./\n", repository));
  const std::string apt = fmt::format(
      "apt-get -q -o APT::Architecture=iphoneos-arm -o APT::Architectures::=iphoneos-arm -o Dir::State='{0}' "
      "-o Dir::State::status='{1}/var/lib/dpkg/status' -o Dir::Cache='{0}' -o "
      "Dir::Etc::SourceList='{0}/sources.list' "
      "-o Dir::Etc::SourceParts=/dev/null -o Dir::Etc::Parts=/dev/null -o Debug::NoLocking=true -o "
      "APT::Sandbox::User=root "
      "-o APT::Install-Recommends=true -o DPkg::Options::=--root='{1}' -o "
      "DPkg::Options::=--force-script-chrootless "
      "-o DPkg::Options::=--force-not-root -o Dir::Log='{0}' -o DPkg::Pre-Install-Pkgs::= -o "
      "DPkg::Post-Invoke::= ",
      state, root);
  must(apt + "update");
  const Lines said = must(apt + "install -y com.wexor.tilo");
  EXPECT_TRUE(fs::exists(root + "/Library/MobileSubstrate/DynamicLibraries/Tilo.dylib"))
      << testing::PrintToString(said);
  EXPECT_EQ(
      must(fmt::format("dpkg-query --admindir='{}/var/lib/dpkg' -W -f '${{Status}}' com.wexor.tilo", root)),
      Lines{"install ok installed"});
}

TEST(PageIcon, IsDrawnForEveryScale) {
  for (const auto& [name, pixels] : {std::pair("icon.png", 29), {"icon@2x.png", 58}, {"icon@3x.png", 87}})
    EXPECT_EQ(
        must(fmt::format("python3 -c 'import struct, sys; print(*struct.unpack(\">2I\", open(sys.argv[1], "
                         "\"rb\").read()[16:24]))' '{}/Tilo.bundle/{}'",
                         BUILD, name)),
        Lines{fmt::format("{0} {0}", pixels)})
        << name;
}

TEST(PageIcon, IsOfAKnownScale) {
  Folder folder;
  EXPECT_EQ(run(fmt::format("'{}/icon' 4 '{}'", BUILD, folder / "icon.png")).status, 2);
  const Outcome unwritable = run(fmt::format("'{}/icon' 1 /nowhere/icon.png", BUILD));
  EXPECT_EQ(unwritable.status, 2);
  EXPECT_EQ(unwritable.lines.size(), 1u);
}

TEST(ScriptPackage, NamesWhatItDoesNotTake) {
  const Outcome unknown = run(fmt::format("'{}/script/package' --fast", SOURCE));
  EXPECT_EQ(unknown.status, 2);
  EXPECT_EQ(unknown.lines, Lines{"script/package: what is --fast? It takes --repository DIR, or nothing."});
  const Outcome none = run(fmt::format("'{}/script/package' --repository", SOURCE));
  EXPECT_EQ(none.status, 2);
  EXPECT_EQ(none.lines, Lines{"script/package: --repository: no folder is named"});
  const Outcome file = run(fmt::format("'{}/script/package' --repository /etc/passwd", SOURCE));
  EXPECT_EQ(file.status, 2);
  EXPECT_EQ(file.lines, Lines{"script/package: --repository: '/etc/passwd' is no folder"});
  const Outcome more = run(fmt::format("'{}/script/package' --repository /tmp --fast", SOURCE));
  EXPECT_EQ(more.status, 2);
  EXPECT_EQ(more.lines, Lines{"script/package: what is --fast? It takes --repository DIR, or nothing."});
}

TEST(ScriptPackage, CountsFoldersFromWhereItIsCalled) {
  Folder here;
  write(here / "www", "a file");
  const Outcome file =
      run(fmt::format("cd '{}' && '{}/script/package' --repository www", here.text(), SOURCE));
  EXPECT_EQ(file.status, 2);
  EXPECT_EQ(file.lines, Lines{"script/package: --repository: 'www' is no folder"});
}

// Before it builds anything.
TEST(ScriptPackage, NamesAFolderThatCannotBeMade) {
  const Outcome below = run(fmt::format("'{}/script/package' --repository /dev/null/www", SOURCE));
  EXPECT_EQ(below.status, 2);
  EXPECT_EQ(below.lines, Lines{"script/package: --repository: '/dev/null/www' cannot be made"});
}

}  // namespace

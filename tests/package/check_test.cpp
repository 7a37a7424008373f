// The package's own checks: each thing that must not leave the house is refused, by its name; what ships
// passes.
#include "support.hpp"
#include "tests/device/spoiled.hpp"

namespace {

using namespace package::test;
using device::test::Bytes;

constexpr const char* libraries = "Library/MobileSubstrate/DynamicLibraries";

// What the checks say of the package after a shell command in the folder of its files.
class PackageCheck : public testing::Test {
 protected:
  PackageCheck() { stage(tree); }

  Outcome judged(const std::string& change) {
    must(fmt::format("cd '{}' && {}", tree, change));
    pack(tree, file);
    return check();
  }
  Outcome check() { return run(fmt::format("'{}/check' '{}' '{}'", PACKAGE, BUILD, file)); }

  void expectRefused(const std::string& change, const std::string& line) { expect(judged(change), line); }
  void expectOfLibrary(const Bytes& bytes, const std::string& line) {
    device::test::writeContents(library, bytes);
    expectRefused(":", line);
  }
  static void expect(const Outcome& outcome, const std::string& line) {
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(std::ranges::find(outcome.lines, line) != outcome.lines.end())
        << line << "\nfound: " << testing::PrintToString(outcome.lines);
  }

  Folder folder;
  std::string tree = folder / "tree", file = folder / "made.deb";
  std::string library = fmt::format("{}/{}/Tilo.dylib", tree, libraries);
};

TEST_F(PackageCheck, PassesWhatShips) {
  const Outcome outcome = judged(":");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.lines, Lines{});
}

constexpr const char* filterFault =
    "Library/MobileSubstrate/DynamicLibraries/Tilo.plist: a filter for anything but SpringBoard alone";

TEST_F(PackageCheck, RefusesAFilterForAnotherProgram) {
  expectRefused(
      fmt::format("sed -i 's|com.apple.springboard|com.apple.Preferences|' {}/Tilo.plist", libraries),
      filterFault);
}

TEST_F(PackageCheck, RefusesAFilterForOneProgramMore) {
  expectRefused(
      fmt::format("sed -i 's|</array>|<string>com.apple.UIKit</string></array>|' {}/Tilo.plist", libraries),
      filterFault);
}

TEST_F(PackageCheck, RefusesAFilterThatIsNone) {
  expectRefused(fmt::format("echo everything >{}/Tilo.plist", libraries), filterFault);
}

TEST_F(PackageCheck, TakesAFilterInBinaryForm) {
  const Outcome outcome =
      judged(fmt::format("plistutil -i {0}/Tilo.plist -f bin -o x && mv x {0}/Tilo.plist", libraries));
  EXPECT_EQ(outcome.status, 0) << testing::PrintToString(outcome.lines);
}

TEST_F(PackageCheck, RefusesAFileThatOthersMayWrite) {
  expectRefused(fmt::format("chmod 666 {}/Tilo.plist", libraries),
                fmt::format("{}/Tilo.plist: mode rw-rw-rw-, not rw-r--r--", libraries));
}

TEST_F(PackageCheck, RefusesALibraryThatDoesNotRun) {
  expectRefused(fmt::format("chmod 644 {}/Tilo.dylib", libraries),
                fmt::format("{}/Tilo.dylib: mode rw-r--r--, not rwxr-xr-x", libraries));
}

TEST_F(PackageCheck, RefusesAFolderThatOthersMayWrite) {
  expectRefused("chmod 777 Library", "Library: mode rwxrwxrwx, not rwxr-xr-x");
}

// dpkg-deb gives scripts their modes, so the archive is put together without it.
TEST_F(PackageCheck, RefusesAScriptOfAnotherMode) {
  must(
      fmt::format("cd '{}' && chmod 775 DEBIAN/postinst && echo 2.0 >../debian-binary && "
                  "tar -C DEBIAN --owner=0 --group=0 -czf ../control.tar.gz . && "
                  "tar --owner=0 --group=0 --exclude=./DEBIAN -czf ../data.tar.gz . && cd .. && "
                  "/usr/lib/llvm-19/bin/llvm-ar rcU made.deb debian-binary control.tar.gz data.tar.gz",
                  tree));
  expect(check(), "postinst: mode rwxrwxr-x, not rwxr-xr-x");
}

TEST_F(PackageCheck, RefusesAnotherOwner) {
  must(fmt::format("chown 501:501 '{}'/Library 2>/dev/null || true; dpkg-deb -Zgzip -b '{}' '{}'", tree, tree,
                   file));
  const Outcome outcome = check();
  EXPECT_EQ(outcome.status, 1);
  EXPECT_TRUE(std::ranges::any_of(outcome.lines, [](const std::string& line) {
    return line.starts_with("Library: owned by ") && line.ends_with(", not by root");
  })) << testing::PrintToString(outcome.lines);
}

TEST_F(PackageCheck, RefusesAnAbsoluteLink) {
  expectRefused(fmt::format("ln -s /Library/Fonts {}/Tilo_Main.bundle/fonts", libraries),
                fmt::format("{}/Tilo_Main.bundle/fonts: an absolute link, to /Library/Fonts", libraries));
}

TEST_F(PackageCheck, RefusesACopy) {
  expectRefused(
      fmt::format("cp {0}/Tilo_Main.bundle/FontAwesome.ttf {0}/Tilo_Main.bundle/Other.ttf", libraries),
      fmt::format(
          "{0}/Tilo_Main.bundle/Other.ttf: the same file twice, as {0}/Tilo_Main.bundle/FontAwesome.ttf",
          libraries));
}

TEST_F(PackageCheck, RefusesAFileByTwoNames) {
  const Outcome outcome = judged(
      fmt::format("ln {0}/Tilo_Main.bundle/FontAwesome.ttf {0}/Tilo_Main.bundle/Other.ttf", libraries));
  EXPECT_EQ(outcome.status, 1);
  EXPECT_TRUE(std::ranges::any_of(outcome.lines, [](const std::string& line) {
    return line.find("the same file twice, as") != line.npos;
  })) << testing::PrintToString(outcome.lines);
}

TEST_F(PackageCheck, RefusesWhatBelongsElsewhere) {
  expectRefused("mkdir -p var/mobile/Documents && echo mine >var/mobile/Documents/file",
                "var/mobile/Documents/file: does not belong into the package");
}

TEST_F(PackageCheck, RefusesWhatNobodyReads) {
  for (const std::string& name : {std::string(libraries) + "/Tilo_Main.bundle/notes.txt",
                                  std::string("Library/PreferenceBundles/Tilo.bundle/icon@4x.png")})
    expectRefused(fmt::format("echo {0} >{0}", name), name + ": does not belong into the package");
}

TEST_F(PackageCheck, RefusesWhatIsIncomplete) {
  expectRefused(fmt::format("rm {}/Tilo_Main.bundle/FontAwesome.ttf", libraries),
                fmt::format("{}/Tilo_Main.bundle/FontAwesome.ttf: is missing", libraries));
}

TEST_F(PackageCheck, RefusesHalfAPageInSettings) {
  const std::string bundle = "Library/PreferenceBundles/Tilo.bundle";
  expectRefused(fmt::format("mkdir -p {0} && rm -f {0}/icon@2x.png", bundle),
                fmt::format("{}/icon@2x.png: is missing", bundle));
}

TEST_F(PackageCheck, RefusesAPageWhoseExecutableIsAnotherFile) {
  expectRefused(fmt::format("cp {}/Tilo.dylib Library/PreferenceBundles/Tilo.bundle/Tilo", libraries),
                "Library/PreferenceBundles/Tilo.bundle/Tilo: arm64: install name is "
                "/Library/MobileSubstrate/DynamicLibraries/Tilo.dylib");
}

TEST_F(PackageCheck, RefusesALibraryOrAPageOfOneSlice) {
  constexpr const char* lipo = "/usr/lib/llvm-19/bin/llvm-lipo";
  const std::string page = "Library/PreferenceBundles/Tilo.bundle/Tilo";
  expectRefused(fmt::format("for file in {0}/Tilo.dylib {1}; do {2} -thin arm64 $file -output ../thin && "
                            "{2} -create ../thin -output $file; done",
                            libraries, page, lipo),
                fmt::format("{}/Tilo.dylib: armv7: 0 slices, not 1", libraries));
  expect(check(), page + ": armv7: 0 slices, not 1");
}

TEST_F(PackageCheck, RefusesALibraryWithoutEntitlementsBlob) {
  Bytes bytes = device::test::contentsOf(library);
  device::test::takeOutEntitlements(bytes, device::readImage(bytes).front());
  expectOfLibrary(bytes, fmt::format("{}/Tilo.dylib: armv7: no entitlements blob", libraries));
}

TEST_F(PackageCheck, RefusesALibraryWithAPageWhoseHashIsWrong) {
  Bytes bytes = device::test::contentsOf(library);
  bytes[device::readImage(bytes)[1].start + 0x5010] ^= 1;
  expectOfLibrary(
      bytes, fmt::format("{}/Tilo.dylib: arm64: SHA-256 directory: the hash of page 5 (at 0x5000) is wrong",
                         libraries));
}

TEST_F(PackageCheck, RefusesALibraryWhoseHeaderIsTooShort) {
  Bytes bytes = device::test::contentsOf(library);
  const device::Slice slice = device::readImage(bytes)[1];
  device::test::put32(bytes, device::test::firstSectionOffset(slice),
                      static_cast<uint32_t>(slice.commandsEnd) - 16);
  expectOfLibrary(bytes,
                  fmt::format("{}/Tilo.dylib: arm64: the header is 16 bytes too short for its load commands: "
                              "section __text begins in them",
                              libraries));
}

TEST_F(PackageCheck, RefusesALibraryWithoutSignature) {
  const std::string unsigned_ =
      std::string(BUILD) + "/device/Tilo.dylib";  // with its symbols, for crash reports
  expectOfLibrary(device::test::contentsOf(unsigned_),
                  fmt::format("{}/Tilo.dylib: arm64: no signature", libraries));
}

TEST_F(PackageCheck, RefusesWhatOldManagersCannotUnpack) {
  must(fmt::format("dpkg-deb --root-owner-group -Zxz -b '{}' '{}'", tree, file));
  expect(check(), "members: debian-binary control.tar.xz data.tar.xz");
}

TEST_F(PackageCheck, RefusesAScriptOfAnotherShell) {
  expectRefused("sed -i '1s/.*/#!\\/bin\\/bash/' DEBIAN/postinst", "DEBIAN/postinst: not for /bin/sh");
}

TEST_F(PackageCheck, RefusesAScriptThatDoesNotParse) {
  const Outcome outcome = judged("echo 'if then' >>DEBIAN/postrm");
  EXPECT_EQ(outcome.status, 1);
  ASSERT_FALSE(outcome.lines.empty());
  EXPECT_TRUE(outcome.lines.front().starts_with("DEBIAN/postrm: ")) << outcome.lines.front();
}

TEST_F(PackageCheck, RefusesAnotherProcessor) {
  expectRefused("sed -i 's/^Architecture: .*/Architecture: arm64/' DEBIAN/control",
                "control: Architecture is arm64");
}

TEST_F(PackageCheck, RefusesAPackageThatNeedsNothing) {
  const Outcome outcome = judged("sed -i '/^Depends: /d' DEBIAN/control");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.lines, (Lines{"control: does not depend on mobilesubstrate",
                                  "control: does not depend on preferenceloader",
                                  "control: does not depend on firmware (>= 9.2)",
                                  "control: does not depend on firmware (<< 13.0)"}));
}

TEST_F(PackageCheck, RefusesABundleWhoseListIsBroken) {
  expectRefused(fmt::format("echo '<plist' >{}/Tilo_Main.bundle/Info.plist", libraries),
                fmt::format("{}/Tilo_Main.bundle/Info.plist: no property list", libraries));
}

}  // namespace

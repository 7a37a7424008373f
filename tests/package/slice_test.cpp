// The very file of the package, in the programs of the slices' processors.
#include "phone.hpp"
#include "tests/device/spoiled.hpp"

namespace {

using namespace package::test;

// These load it as it is, which this machine's own cannot.
class PackagedSlice : public testing::TestWithParam<const char*> {
 protected:
  std::string started(const std::string& root) {
    return fmt::format("'{0}/device/linux/run' {1} '{2}/{1}/tilo-sim' --root '{3}' --installed", SOURCE,
                       GetParam(), BUILD, root);
  }
};

INSTANTIATE_TEST_SUITE_P(Slices, PackagedSlice, testing::Values("arm64", "armv7"),
                         [](const auto& info) { return std::string(info.param); });

TEST_P(PackagedSlice, IsLoadedAsItIs) {
  Folder made;
  Phone phone;
  phone.install(madePackage(made));
  EXPECT_EQ(must(started(phone.root) +
                 " --report - | jq -c '[.loaded, .hooks.replaced > 30, .pages[0].sideInset]'"),
            Lines{"[true,true,27]"});
  const std::string library = phone.path(librariesPath) + "/Tilo.dylib";
  auto bytes = device::test::contentsOf(library);
  for (const device::Slice& slice : device::readImage(bytes)) bytes[slice.start + 0x5010] ^= 1;
  device::test::writeContents(library, bytes);
  const Outcome changed = run(started(phone.root));
  EXPECT_EQ(changed.status, 2);
  ASSERT_FALSE(changed.lines.empty());
  EXPECT_NE(changed.lines.front().find("the hash of page 5 (at 0x5000) is wrong"), std::string::npos)
      << changed.lines.front();
}

// The page in Settings, too: what its executable writes is what this machine's own writes.
TEST_P(PackagedSlice, HasAPageThatDoesWhatThisMachinesDoes) {
  Folder made;
  Phone phone;
  phone.install(madePackage(made));
  const std::string same = made / "same", steps = made / "steps.txt";
  fs::copy(phone.root, same, fs::copy_options::recursive | fs::copy_options::copy_symlinks);
  write(steps,
        "settings\nwait 0.5\ndecrement \"Columns\"\ntoggle \"Custom Rows and Columns\"\nwait 0.3\n"
        "scroll-to \"Panel Color\"\ntap \"Panel Color\"\nwait 0.5\ntap \"Red\"\ntap \"Tilo\"\nwait 0.5\n"
        "scroll-to \"Back Up\"\ntap \"Back Up\"\nwait 0.5\nchoose \"OK\"\nwait 0.5\n");
  const std::string page = fmt::format("--device 'iPhone 5' --pages 1 --script '{}'", steps);
  must(fmt::format("{} {}", started(phone.root), page));
  must(fmt::format("'{}/tilo-sim' --root '{}' --installed {}", BUILD, same, page));
  EXPECT_EQ(must(fmt::format("cd '{}/var/mobile/Documents/com.wexor.tilo3' && ls backups", same)).size(), 1u);
  EXPECT_EQ(run(fmt::format("diff -r '{}/var/mobile' '{}/var/mobile'", phone.root, same)).lines, Lines{});
  const std::string file = phone.path("/Library/PreferenceBundles/Tilo.bundle/Tilo");
  auto bytes = device::test::contentsOf(file);
  for (const device::Slice& slice : device::readImage(bytes)) bytes[slice.start + 0x5010] ^= 1;
  device::test::writeContents(file, bytes);
  const Outcome changed = run(fmt::format("{} {}", started(phone.root), page));
  EXPECT_EQ(changed.status, 2);
  ASSERT_FALSE(changed.lines.empty());
  EXPECT_NE(changed.lines.front().find("the hash of page 5 (at 0x5000) is wrong"), std::string::npos)
      << changed.lines.front();
}

}  // namespace

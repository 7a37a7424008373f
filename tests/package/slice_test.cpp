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

}  // namespace

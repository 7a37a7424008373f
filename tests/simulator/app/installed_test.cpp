// What is installed on the device, found as its injection loader finds it, and nothing of the build put
// there.
#include "run.hpp"

namespace {

namespace fs = std::filesystem;
using sim::Json;
using test::reportOf;
using test::runSimulator;

constexpr const char* libraries = "Library/MobileSubstrate/DynamicLibraries";

class Installed : public testing::Test {
 protected:
  fs::path place(const std::string& name, const std::string& folder = libraries) {
    fs::create_directories(root / folder);
    return root / folder / name;
  }
  void put(const std::string& name, const std::string& text) { std::ofstream(place(name)) << text; }
  // The library of this machine, under the name that it has on a device.
  void putLibrary() {
    fs::copy(fs::canonical("/proc/self/exe").parent_path() / "libTilo.so", place("Tilo.dylib"));
  }
  void putFilter(const std::string& contents) {
    put("Tilo.plist", "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>Filter</key>" + contents +
                          "</dict></plist>");
  }
  static std::string list(const std::string& key, const std::string& name) {
    return "<key>" + key + "</key><array><string>" + name + "</string></array>";
  }
  Json loaded() { return reportOf({"--root", root.string(), "--installed"})["loaded"]; }
  bool loadedWith(const std::string& filter) {
    putFilter("<dict>" + filter + "</dict>");
    return loaded() == true;
  }

  sim::TemporaryRoot temporary;
  fs::path root = temporary.path();
};

TEST_F(Installed, NothingIsAStockHomeScreen) {
  Json report = reportOf({"--root", root.string(), "--installed"});
  EXPECT_EQ(report["loaded"], false);
  EXPECT_EQ(report["pages"], reportOf({"--stock"})["pages"]);
  EXPECT_TRUE(test::isEmptyFolder(root / libraries));
}

TEST_F(Installed, LibraryWithoutFilterIsLoaded) {
  putLibrary();
  EXPECT_EQ(loaded(), true);
}

TEST_F(Installed, LibraryIsLoadedByTheFilterOfABundle) {
  putLibrary();
  EXPECT_TRUE(loadedWith(list("Bundles", "com.apple.springboard")));
  EXPECT_FALSE(loadedWith(list("Bundles", "com.apple.Preferences")));
}

TEST_F(Installed, LibraryIsLoadedByTheFilterOfAProgram) {
  putLibrary();
  EXPECT_TRUE(loadedWith(list("Executables", "SpringBoard")));
  EXPECT_FALSE(loadedWith(list("Executables", "Preferences")));
}

TEST_F(Installed, LibraryIsLoadedByTheFilterOfAClass) {
  putLibrary();
  EXPECT_TRUE(loadedWith(list("Classes", "NSObject")));
  EXPECT_FALSE(loadedWith(list("Classes", "SBNoSuchClass")));
}

TEST_F(Installed, FiltersMustAllLetThroughUnlessAnyMay) {
  putLibrary();
  const std::string both = list("Bundles", "com.apple.springboard") + list("Executables", "Preferences");
  EXPECT_FALSE(loadedWith(both));
  EXPECT_TRUE(loadedWith(both + "<key>Mode</key><string>Any</string>"));
}

TEST_F(Installed, LibraryWithABrokenFilterIsSkipped) {
  putLibrary();
  put("Tilo.plist", "<plist");
  EXPECT_EQ(loaded(), false);
  put("Tilo.plist", "<?xml version=\"1.0\"?><plist version=\"1.0\"><array/></plist>");
  EXPECT_EQ(loaded(), false);
}

TEST_F(Installed, FilterOfOtherKindsAsksNothing) {
  putLibrary();
  putFilter("<string>SpringBoard</string>");
  EXPECT_EQ(loaded(), true);
  EXPECT_TRUE(loadedWith("<key>Bundles</key><string>com.apple.Preferences</string>"));
  EXPECT_FALSE(loadedWith("<key>Bundles</key><array><integer>1</integer></array>"));
}

TEST_F(Installed, LibraryIsFoundWhereTheOtherLoaderLooks) {
  fs::copy(fs::canonical("/proc/self/exe").parent_path() / "libTilo.so",
           place("Tilo.dylib", "bootstrap/Library/SBInject"));
  EXPECT_EQ(loaded(), false);
  EXPECT_EQ(reportOf({"--root", root.string(), "--installed", "--loader", "sbinject"})["loaded"], true);
}

TEST_F(Installed, FileForDevicesIsStoodInFor) {
  put("Tilo.dylib", "\xca\xfe\xba\xbe");
  Json report = reportOf({"--root", root.string(), "--installed"});
  EXPECT_EQ(report["loaded"], true);
  EXPECT_EQ(report["hooks"], reportOf({})["hooks"]);
  EXPECT_EQ(test::contentsOf(place("Tilo.dylib")), "\xca\xfe\xba\xbe");
}

TEST_F(Installed, FileForDevicesOfOthersIsLeftOut) {
  put("Other.dylib", "\xca\xfe\xba\xbe");
  test::Run run = runSimulator({"--root", root.string(), "--installed"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.errors,
            "tilo-sim: /Library/MobileSubstrate/DynamicLibraries/Other.dylib is for devices, and left out\n");
}

TEST_F(Installed, FileThatIsNoLibraryIsNamed) {
  put("Tilo.dylib", "nothing");
  test::expectRefused({"--root", root.string(), "--installed"},
                      "/Library/MobileSubstrate/DynamicLibraries/Tilo.dylib' cannot be loaded");
}

TEST_F(Installed, StockLoadsNothing) {
  putLibrary();
  EXPECT_EQ(reportOf({"--root", root.string(), "--installed", "--stock"})["loaded"], false);
}

TEST_F(Installed, IconSupportStays) {
  reportOf({"--root", root.string(), "--icon-support", "--stock"});
  putLibrary();
  EXPECT_EQ(reportOf({"--root", root.string(), "--installed"})["iconSupport"], Json::array({"Tilo"}));
}

}  // namespace

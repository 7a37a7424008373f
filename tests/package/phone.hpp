// A phone's file system in a folder, with a package manager's state, into which packages are installed.
#pragma once

#include "support.hpp"

namespace package::test {

class Phone {
 public:
  // Of the model that `uname -m` names.
  explicit Phone(const std::string& model = "iPhone9,1") {
    be(model);
    fs::create_directories(state + "/info");
    fs::create_directories(state + "/updates");
    write(state + "/arch", "iphoneos-arm\n");
    std::string there;
    for (const auto& [name, version] :
         {std::pair("firmware", "10.3.3"), {"mobilesubstrate", "0.9.7000"}, {"preferenceloader", "2.2.3"}}) {
      there += fmt::format(
          "Package: {}\nStatus: install ok installed\nMaintainer: nobody\nArchitecture: iphoneos-arm\n"
          "Version: {}\nDescription: there\n\n",
          name, version);
      write(fmt::format("{}/info/{}.list", state, name), "");
    }
    write(state + "/status", there);
  }

  void be(const std::string& model) {
    write(folder / "bin/uname", fmt::format("#!/bin/sh\necho {}\n", model));
    fs::permissions(folder / "bin/uname", fs::perms::owner_all);
  }

  std::string path(const std::string& ofDevice) const { return root + ofDevice; }

  // Scripts run by this machine's shell, and are told of the folder. Where a test is not root, so is dpkg
  // told.
  Lines dpkg(const std::string& action, const std::string& environment = "") {
    return must(fmt::format(
        "PATH='{}':/usr/sbin:/sbin:$PATH {} dpkg --root='{}' --force-script-chrootless --force-not-root {}",
        folder / "bin", environment, root, action));
  }
  void install(const std::string& package) { dpkg(fmt::format("-i '{}'", package)); }

  // The script that runs when the files are there, by itself.
  void configure() {
    must(fmt::format("PATH='{}':$PATH DPKG_ROOT='{}' sh '{}/postinst' configure", folder / "bin", root,
                     PACKAGE));
  }

  // What the simulator prints that is started into this device.
  Lines simulated(const std::string& options) {
    return must(fmt::format("'{}/tilo-sim' --root '{}' --installed {}", BUILD, root, options));
  }

  Folder folder;
  std::string root = folder / "root";
  std::string state = root + "/var/lib/dpkg";
};

// The package of this version, made once for a test.
inline std::string madePackage(const Folder& folder, const std::string& version = "") {
  const std::string tree = folder / ("tree" + version), file = folder / ("made" + version + ".deb");
  stage(tree);
  if (!version.empty())
    must(fmt::format("sed -i 's/^Version: .*/Version: {}/' '{}/DEBIAN/control'", version, tree));
  pack(tree, file);
  return file;
}

constexpr const char* presetsPath = "/var/mobile/Documents/com.wexor.tilo3/custom/config.json";
constexpr const char* preferencesPath = "/var/mobile/Library/Preferences/com.wexor.tilo.plist";
constexpr const char* librariesPath = "/Library/MobileSubstrate/DynamicLibraries";
constexpr const char* injectorPath = "/bootstrap/Library/SBInject";

}  // namespace package::test

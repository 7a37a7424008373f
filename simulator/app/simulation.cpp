// Bringing the device up: its files, Foundation, SpringBoard's classes, the library, the home screen.
#include "simulator/app/simulation.hpp"

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <string_view>

#include "bridge/runtime.hpp"
#include "simulator/app/injection.hpp"
#include "simulator/app/libraries.hpp"
#include "simulator/device/image.hpp"
#include "simulator/device/program_folder.hpp"
#include "simulator/device/unfinished_files.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/preferences/settings.hpp"
#include "simulator/runtime/foundation.hpp"
#include "simulator/runtime/preferences.hpp"
#include "simulator/runtime/threads.hpp"
#include "simulator/springboard/class_facts.hpp"
#include "simulator/springboard/lock_screen.hpp"
#include "simulator/springboard/orientation.hpp"
#include "simulator/springboard/springboard.hpp"
#include "simulator/springboard/stock.hpp"
#include "simulator/time/run_loop.hpp"
#include "simulator/uikit/base/classes.hpp"
#include "simulator/uikit/base/configuration.hpp"

namespace sim {
namespace {

namespace fs = std::filesystem;

constexpr const char* iconSupportPath = "/Library/MobileSubstrate/DynamicLibraries/IconSupport.dylib";

fs::path beside(const std::string& name) { return programFolder() / name; }

// The phones of the catalogue whose screens feel force.
bool feelsForce(const Device& device) {
  constexpr std::string_view names[] = {"iPhone 6s", "iPhone 6s Plus", "iPhone 7", "iPhone 7 Plus",
                                        "iPhone 8",  "iPhone 8 Plus",  "iPhone X"};
  return std::ranges::find(names, device.name) != std::end(names);
}

uikit::Configuration configurationOf(const Options& options) {
  const Device& device = *options.device;
  uikit::Configuration configuration;
  configuration.systemVersion = options.ios.text();
  configuration.idiom = static_cast<NSInteger>(device.idiom);
  configuration.size = device.points;
  configuration.scale = device.scale;
  configuration.nativeSize = device.nativePixels;
  configuration.forceTouch = feelsForce(device);
  configuration.orientation = springboard::asInterfaceOrientation(
      device.homeScreenTurns ? options.orientation : Orientation::portrait);
  return configuration;
}

// A copy, so that what is done to the device's does not reach the one that was built.
void installBundle(const fs::path& bundle, const fs::path& place) {
  if (!fs::exists(bundle)) throw UsageError("no resources '" + bundle.string() + "'");
  fs::remove_all(place);
  fs::copy(bundle, place, fs::copy_options::recursive);
}

fs::path rootOf(const Options& options, std::optional<TemporaryRoot>& temporary) {
  return options.root ? *options.root : temporary.emplace().path();
}

}  // namespace

Simulation::Simulation(const Options& given, const Program& made)
    : options(given),
      tables(made),
      model(*given.device),
      files(rootOf(given, temporary), given.loader),
      messages(files.root()) {
  removeUnfinishedPreferences(files.root());
  prepareFoundation();
  watchThreads();
  appsupport::defineMessagingCenter();
  if (made.prepare) made.prepare(*this);
  installLibraries();
  springboard::useDevice(model, options.ios);
  springboard::useClasses(options.ios, options.springboard);
  uikit::configure(configurationOf(options));
  uikit::registerClasses();
  springboard::defineClasses();
  preferences::defineSettings();
}

void Simulation::installLibraries() {
  const std::string folder = files.hostPath(libraryFolder(options.loader));
  if (!options.stock && !options.installed)
    for (const Library& library : librariesToLoad(options, tables)) {
      linkLibrary(library.file, files.hostPath(library.place.string()));
      if (!tables.bundle.empty()) installBundle(beside(tables.bundle), fs::path(folder) / tables.bundle);
    }
  if (options.iconSupport)
    linkLibrary(beside("libIconSupport.so"), files.hostPath(iconSupportPath));
  else if (!options.installed)
    fs::remove(files.hostPath(iconSupportPath));
}

// As the injection loaders do it. `name` is what whoever asked for it calls it.
void Simulation::load(const fs::path& file, const std::string& name) {
  std::string reason;
  void* const image = image::open(file, reason);
  if (!image) throw UsageError("the library '" + name + "' cannot be loaded: " + reason);
  images.push_back(image);
  imageFiles.push_back(file);
}

// Each library that the loader would hand to SpringBoard, found where it would find it. Of a library for
// devices, where those cannot be loaded, this machine's own build takes the place, where there is one.
void Simulation::loadWhatIsInstalled() {
  const std::vector<Library> builds = librariesToStandIn(options, tables);
  for (const fs::path& file :
       injection::librariesForSpringBoard(files.hostPath(libraryFolder(options.loader)))) {
    const fs::path place = fs::path(libraryFolder(options.loader)) / file.filename();
    if (image::takesDeviceFiles() || !injection::isDeviceLibrary(file)) {
      load(place, place.string());
      continue;
    }
    const auto build = std::ranges::find(builds, place, &Library::place);
    if (build != builds.end())
      load(build->file, place.string());
    else
      std::cerr << tables.name << ": " << place.string() << " is for devices, and left out\n";
  }
}

void* Simulation::exported(const char* name) const {
  for (void* const image : images)
    if (void* const found = image::symbol(image, name)) return found;
  return nullptr;
}

void Simulation::start() {
  if (options.installed && !options.stock)
    loadWhatIsInstalled();
  else if (!options.stock)
    for (const Library& library : librariesToLoad(options, tables))
      load(library.place, library.file.string());
  for (const fs::path& file : imageFiles) image::publish(file);
  springboard::start({.pages = options.pages, .icons = options.icons.value_or(-1)});
  settle();
}

void Simulation::rotate(Orientation to) {
  Orientation from = springboard::orientation();
  bool turning = springboard::beginRotation(to);
  letPass(springboard::rotationDuration);
  if (!turning) return;
  springboard::finishRotation(from);
  settle();
}

void Simulation::lock() {
  springboard::lock();
  settle();
}

void Simulation::unlock() {
  springboard::unlock();
  settle();
}

}  // namespace sim

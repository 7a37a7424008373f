// Sets up the device's folders and turns the redirection on and off.
#include "simulator/device/file_system.hpp"

#include <stdexcept>

namespace sim {
namespace {

namespace fs = std::filesystem;

bool exists = false;

fs::path below(const fs::path& root, std::string_view devicePath) {
  return root / fs::path(devicePath).relative_path();
}

void makeFolders(const fs::path& root, InjectionLoader loader) {
  for (const std::string_view folder : {"/var/mobile/Library/Preferences", "/var/mobile/Documents",
                                        "/Library/Application Support", "/System/Library", "/Applications"})
    fs::create_directories(below(root, folder));
  fs::create_directories(below(root, libraryFolder(loader)));
}

}  // namespace

std::string_view libraryFolder(InjectionLoader loader) {
  return loader == InjectionLoader::substrate ? "/Library/MobileSubstrate/DynamicLibraries"
                                              : "/bootstrap/Library/SBInject";
}

FileSystem::FileSystem(const fs::path& root, InjectionLoader loader) : before(fs::current_path()) {
  if (exists) throw std::logic_error("a device has one file system");
  fs::create_directories(root);
  folder = fs::canonical(root);
  // The host's own root cannot be a device: nothing could be told apart.
  if (folder == "/" || folder.native().size() >= PATH_MAX)
    throw fs::filesystem_error("not a root for a device", folder,
                               std::make_error_code(std::errc::invalid_argument));
  makeFolders(folder, loader);
  fs::current_path(folder);
  redirection::keepReplacedFunctions();
  redirection::setRoot(folder.native());
  exists = true;
}

FileSystem::~FileSystem() {
  exists = false;
  redirection::clearFaults();
  redirection::setRoot("");
  std::error_code ignored;  // that folder may be gone
  fs::current_path(before, ignored);
}

fs::path FileSystem::hostPath(std::string_view devicePath) const { return below(folder, devicePath); }

void FileSystem::refuse(std::string_view devicePath, Faults faults, int error) {
  redirection::addFault(devicePath, faults, error);
}

void FileSystem::allowAll() { redirection::clearFaults(); }

}  // namespace sim

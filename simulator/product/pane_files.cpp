// The page in Settings on the device: its bundle, and the entry that leads to it.
#include <filesystem>

#include "simulator/app/simulation.hpp"
#include "simulator/device/program_folder.hpp"
#include "simulator/product/start_files.hpp"

namespace sim::product {
namespace {

namespace fs = std::filesystem;

// The executable is linked to, which is large; the rest is copied, so that the device may change it.
void install(const fs::path& from, const fs::path& to) {
  fs::remove_all(to);
  fs::create_directories(to);
  for (const auto& file : fs::directory_iterator(from))
    if (file.path().has_extension())
      fs::copy_file(file, to / file.path().filename());
    else
      fs::create_symlink(file.path(), to / file.path().filename());
}

}  // namespace

void putPane(Simulation& simulation) {
  const fs::path bundle = simulation.fileSystem().hostPath("/Library/PreferenceBundles/Tilo.bundle");
  const fs::path entry = simulation.fileSystem().hostPath("/Library/PreferenceLoader/Preferences/Tilo.plist");
  const fs::path built = programFolder();
  if (simulation.startOptions().stock || simulation.startOptions().installed ||
      !fs::exists(built / "Tilo.bundle/Tilo"))
    return;
  install(built / "Tilo.bundle", bundle);
  fs::create_directories(entry.parent_path());
  fs::copy_file(built / "Tilo.plist", entry, fs::copy_options::overwrite_existing);
}

}  // namespace sim::product

// A library has its file's name in the loader's folder, the program's own the name that it has on a device.
#include "simulator/app/libraries.hpp"

#include <algorithm>

#include "simulator/app/options.hpp"
#include "simulator/app/program.hpp"
#include "simulator/device/program_folder.hpp"
#include "simulator/device/usage_error.hpp"

namespace sim {
namespace {

namespace fs = std::filesystem;

fs::path ownLibrary(const Program& program) {
  return program.library.empty() ? fs::path() : programFolder() / program.library;
}

std::string nameOnDevice(const fs::path& file, const Program& program) {
  const bool isOwn = file.filename() == program.library && !program.installedAs.empty();
  return isOwn ? program.installedAs : file.stem().string() + ".dylib";
}

bool has(const std::vector<Library>& all, fs::path Library::* part, const fs::path& path) {
  return std::ranges::find(all, path, part) != all.end();
}

// Files of one name from several folders are numbered from the second on.
void addTo(std::vector<Library>& all, const fs::path& file, const Options& options, const Program& program) {
  const fs::path first = fs::path(libraryFolder(options.loader)) / nameOnDevice(file, program);
  fs::path place = first;
  for (int number = 2; has(all, &Library::place, place); ++number)
    place.replace_filename(first.stem().string() + "-" + std::to_string(number) + ".dylib");
  all.push_back({file, place});
}

}  // namespace

std::vector<Library> librariesToLoad(const Options& options, const Program& program) {
  std::vector<Library> all;
  for (const fs::path& file : options.libraries) addTo(all, file, options, program);
  const fs::path own = ownLibrary(program);
  if (all.empty() && !own.empty()) addTo(all, own, options, program);
  return all;
}

std::vector<Library> librariesToStandIn(const Options& options, const Program& program) {
  std::vector<Library> all = librariesToLoad(options, program);
  const fs::path own = ownLibrary(program);
  if (!own.empty() && !has(all, &Library::file, own)) addTo(all, own, options, program);
  return all;
}

void linkLibrary(const fs::path& file, const fs::path& place) {
  if (!fs::exists(file)) throw UsageError("no library '" + file.string() + "'");
  fs::create_directories(place.parent_path());
  fs::remove(place);
  fs::create_symlink(file, place);
}

}  // namespace sim

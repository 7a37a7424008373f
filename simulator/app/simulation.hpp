// A simulated device with its home screen, from power-on to the last step.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "simulator/app/options.hpp"
#include "simulator/app/program.hpp"
#include "simulator/appsupport/messaging_center.hpp"
#include "simulator/device/catalogue.hpp"
#include "simulator/device/file_system.hpp"
#include "simulator/device/temporary_root.hpp"

namespace sim {

// There is one in a process, and one start: SpringBoard's classes and the library stay for the life of the
// process.
class Simulation {
 public:
  // The device's file system, Foundation and SpringBoard's classes; nothing is loaded or shown yet.
  // The program outlives it. Throws UsageError for what the options get wrong.
  Simulation(const Options& options, const Program& program);

  // Loads the library, unless the options leave it out, and starts SpringBoard.
  void start();

  FileSystem& fileSystem() { return files; }
  const Device& device() const { return model; }
  const Options& startOptions() const { return options; }
  const Program& program() const { return tables; }

  // What the loader got for the libraries, in their order.
  const std::vector<void*>& libraries() const { return images; }
  // A function or variable that one of them exports, of the first that does; null when none does.
  void* exported(const char* name) const;

  void rotate(Orientation to);
  void lock();
  void unlock();
  // Writes the screen as it is now; throws UsageError when the file cannot be written.
  void snapshot(const std::string& file);
  void report(const std::string& file);

 private:
  void installLibraries();
  void load(const std::filesystem::path& file, const std::string& name);
  void loadWhatIsInstalled();

  const Options options;
  const Program& tables;
  const Device& model;
  std::optional<TemporaryRoot> temporary;
  FileSystem files;
  appsupport::Messages messages;
  std::vector<void*> images;
  std::vector<std::filesystem::path> imageFiles;
};

}  // namespace sim

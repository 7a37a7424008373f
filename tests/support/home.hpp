// A simulated home screen in the test's own process, with the library loaded into it.
//
// A process has one SpringBoard, so a test has one Home; ctest runs every test in a process of its own.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/foundation/dictionary.hpp"
#include "platform/foundation/number.hpp"
#include "platform/springboard/dock.hpp"
#include "platform/springboard/icon_controller.hpp"
#include "simulator/app/report_values.hpp"
#include "simulator/app/simulation.hpp"

namespace test {

class Home {
 public:
  // The command line's options. `prepare` is called when the device's files are there and nothing has been
  // loaded.
  explicit Home(std::vector<std::string> options = {},
                const std::function<void(sim::Simulation&)>& prepare = nullptr);
  ~Home();

  sim::Simulation& simulation() { return *sim; }

  // Runs one line of a script.
  void step(const std::string& line);
  sim::Json report();

  SBRootIconListView page(size_t index);
  SBDockIconListView dock();
  SBFolderIconListView folder();

  // Another value for a preference, written as the library itself writes it.
  void save(NSString key, bridge::Object value);
  void save(NSString key, double value) { save(key, NSNumber::numberWithDouble(value)); }

  // Where a path of the device lies on the host.
  std::filesystem::path file(const std::string& devicePath);
  std::string contents(const std::string& devicePath);
  void write(const std::string& devicePath, const std::string& contents);

 private:
  bridge::Pool pool;
  std::unique_ptr<sim::Simulation> sim;
};

inline constexpr const char* preferencesPath = "/var/mobile/Library/Preferences/com.wexor.tilo.plist";
inline constexpr const char* presetsPath = "/var/mobile/Documents/com.wexor.tilo3/custom/config.json";
inline constexpr const char* logPath = "/var/mobile/Documents/Tilo3.log";

// A presets file with these records, as the library writes it.
std::string presetsDocument(const sim::Json& records);
sim::Json preset(const std::string& name, int configurable, double vertical, double horizontal, double side,
                 double top);

// A file with these contents in the test's own temporary folder; its path.
std::string temporaryFile(const std::string& name, const std::string& contents);

// What the loaded library exports by that name; null when there is none.
void* exportedSymbol(const char* name);

// A variable or function of the loaded library by its C++ name, exported or not, as a debugger finds it: in
// the symbol table of the library's file. Fails the test when there is none.
void* librarySymbol(const std::string& name);
template <class T>
T& libraryVariable(const std::string& name) {
  return *static_cast<T*>(librarySymbol(name));
}

// The simulator as another process.
struct Run {
  int status;
  std::string output, errors;
};
Run runSimulator(const std::vector<std::string>& options, const std::string& input = "",
                 const char* program = "tilo-sim");

}  // namespace test

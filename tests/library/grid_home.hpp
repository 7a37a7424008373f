// Home screens whose grid is under test: command lines, SpringBoard's own answers, and stand-ins for methods
// of the system.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "bridge/replace.hpp"
#include "simulator/device/image.hpp"
#include "tests/support/home.hpp"

namespace test {

constexpr const char* libraryFile = "/Library/MobileSubstrate/DynamicLibraries/Tilo.dylib";

// As the injection loader does it, some time before SpringBoard makes its icon controller.
inline void loadLibrary() {
  std::string error;
  ASSERT_TRUE(sim::image::open(libraryFile, error)) << error;
  sim::image::publish(libraryFile);
}

// A device whose preference domain holds `settings`, each KEY=VALUE.
inline std::vector<std::string> homeOptions(const std::string& device,
                                            const std::vector<std::string>& settings,
                                            const std::vector<std::string>& more = {}) {
  std::vector<std::string> options{"--device", device};
  for (const std::string& setting : settings) {
    options.push_back("--set");
    options.push_back(setting);
  }
  options.insert(options.end(), more.begin(), more.end());
  return options;
}

// The options that put these records into the device's presets file.
inline std::vector<std::string> withPresets(const std::vector<sim::Json>& records,
                                            std::vector<std::string> more = {}) {
  more.push_back("--presets");
  more.push_back(temporaryFile("presets.json", presetsDocument(sim::Json(records))));
  return more;
}

// The report of a simulator of its own.
inline sim::Json reportOf(std::vector<std::string> options) {
  options.insert(options.end(), {"--report", "-"});
  Run run = runSimulator(options);
  auto report = sim::Json::read(run.output);
  if (run.status != 0 || !report) {
    ADD_FAILURE() << "the simulator ended with " << run.status << ": " << run.errors;
    return nullptr;
  }
  return *report;
}

// What SpringBoard itself makes of that device: the report of a run without the library.
inline sim::Json stockReport(std::vector<std::string> options) {
  options.push_back("--stock");
  return reportOf(std::move(options));
}

// `Function` answers T's method from now on; `bridge::original<Function>` is what it answered before.
template <class T, auto Member, auto Function>
void standIn() {
  Class cls = bridge::classNamed<T>();
  if (bridge::isClassMethod<Member>) cls = bridge::classOf(reinterpret_cast<id>(cls));
  bridge::replaceMethod(cls, bridge::Descriptor<Member>::selector(),
                        bridge::implementationOf<Member, Function>(), bridge::slot<Function>);
}

inline Class metaclassOf(Class cls) { return bridge::classOf(reinterpret_cast<id>(cls)); }

}  // namespace test

// The home screen of a test.
#include "tests/support/home.hpp"

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>
#include <optional>

#include "settings/store/configuration_manager.hpp"
#include "simulator/app/report.hpp"
#include "simulator/app/steps.hpp"
#include "simulator/device/image.hpp"
#include "simulator/input/script.hpp"
#include "simulator/product/product.hpp"
#include "simulator/springboard/icon_controller.hpp"
#include "tests/support/files.hpp"

namespace test {
namespace fs = std::filesystem;
namespace {

// The folder of a test's own files; gone when the test has ended.
class TemporaryFiles : public testing::Environment {
 public:
  const fs::path& folder() {
    if (!root) root.emplace();
    return root->path();
  }
  void TearDown() override { root.reset(); }

 private:
  std::optional<sim::TemporaryRoot> root;
};

// The test program's to delete.
TemporaryFiles& temporaryFiles =
    static_cast<TemporaryFiles&>(*testing::AddGlobalTestEnvironment(new TemporaryFiles));

}  // namespace

Home::Home(std::vector<std::string> options, const std::function<void(sim::Simulation&)>& prepare) {
  options.insert(options.begin(), "tilo-sim");
  std::vector<const char*> arguments;
  for (auto& option : options) arguments.push_back(option.c_str());
  const sim::Program& program = sim::product::program();
  sim = std::make_unique<sim::Simulation>(
      sim::parseOptions(static_cast<int>(arguments.size()), arguments.data(), program.options), program);
  if (prepare) prepare(*sim);
  sim->start();
}

Home::~Home() = default;

void Home::step(const std::string& line) {
  auto parsed = sim::parseStep(line, "test:1", fs::current_path(), sim::product::program().steps);
  if (parsed) sim::perform(*sim, *parsed);
}

sim::Json Home::report() { return sim::makeReport(*sim); }

SBRootIconListView Home::page(size_t index) { return sim::springboard::homeScreen().pages.at(index).get(); }
SBDockIconListView Home::dock() { return sim::springboard::homeScreen().dock.get(); }
SBFolderIconListView Home::folder() { return sim::springboard::homeScreen().folder.get(); }

void Home::save(NSString key, bridge::Object value) {
  tilo::ConfigurationManager::sharedManager().saveWithKey_value(key, value);
}

fs::path Home::file(const std::string& devicePath) { return sim->fileSystem().hostPath(devicePath); }

std::string Home::contents(const std::string& devicePath) { return contentsOf(file(devicePath)); }

void Home::write(const std::string& devicePath, const std::string& contents) {
  fs::create_directories(file(devicePath).parent_path());
  std::ofstream(file(devicePath), std::ios::binary) << contents;
}

std::string presetsDocument(const sim::Json& records) {
  return sim::Json{{"configurations", records}}.dump();
}

sim::Json preset(const std::string& name, int configurable, double vertical, double horizontal, double side,
                 double top) {
  return {{"name", name},
          {"value", 0},
          {"configurable", configurable},
          {"configuration",
           {{"vertical_padding", vertical},
            {"horizontal_padding", horizontal},
            {"side_inset", side},
            {"top_inset", top}}}};
}

void* exportedSymbol(const char* name) { return sim::image::symbol(RTLD_DEFAULT, name); }

std::string temporaryFile(const std::string& name, const std::string& contents) {
  fs::path path = temporaryFiles.folder() / name;
  std::ofstream(path, std::ios::binary) << contents;
  return path.string();
}

}  // namespace test

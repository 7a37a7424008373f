// What it costs to choose a named layout: the presets file is read and parsed each time.
#include <filesystem>
#include <fstream>

#include "bench/home_screen.hpp"
#include "panel/popup_view.hpp"
#include "settings/gesture_controller.hpp"
#include "simulator/app/report_values.hpp"

namespace bench {
namespace {

void writePresets(long count) {
  sim::Json records = sim::Json::array();
  for (long i = 0; i < count; ++i)
    records.push_back({{"name", "Layout " + std::to_string(i)},
                       {"value", i},
                       {"configurable", 1},
                       {"configuration",
                        {{"horizontal_padding", static_cast<double>(i % 120) - 20},
                         {"vertical_padding", static_cast<double>(i % 37) / 4},
                         {"side_inset", static_cast<double>(i % 500)},
                         {"top_inset", static_cast<double>(i * 7 % 600)}}}});
  const auto file =
      started().fileSystem().hostPath("/var/mobile/Documents/com.wexor.tilo3/custom/config.json");
  std::filesystem::create_directories(file.parent_path());
  std::ofstream(file) << sim::Json{{"configurations", records}};
}

}  // namespace

void choosePreset(benchmark::State& state) {
  bridge::Pool pool;
  writePresets(state.range(0));
  for (auto _ : state) {
    bridge::Pool each;
    tilo::RQGestureController::sharedInstance().updateConfigWithValue(static_cast<int>(state.range(0) - 1));
  }
}

}  // namespace bench

// Costs, stock and with the library, in one run: build/tilo-bench [--device NAME].
#include <iostream>
#include <string>

#include "bench/home_screen.hpp"
#include "platform/uikit/application.hpp"
#include "simulator/app/steps.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/product/product.hpp"

namespace bench {
namespace {

std::string& device() {
  static auto& name = *new std::string("iPhone 7");
  return name;
}

bool panelIsShown() {
  NSArray views = UIApplication::sharedApplication().keyWindow().subviews();
  const Class panel = objc_getClass("RQPopupView");
  for (NSUInteger i = 0; i < views.count(); ++i)
    if (bridge::isKindOf(views.objectAtIndex(i), panel)) return true;
  return false;
}

// Takes what is ours from the command line; the rest is the benchmarks'.
void takeDevice(int& count, char** arguments) {
  int kept = 1;
  for (int i = 1; i < count; ++i) {
    if (std::string(arguments[i]) == "--device" && i + 1 < count)
      device() = arguments[++i];
    else
      arguments[kept++] = arguments[i];
  }
  count = kept;
}

}  // namespace

sim::Simulation& simulation() {
  static const char* arguments[] = {"tilo-bench",           "--device", device().c_str(),   "--set",
                                    "enabled=YES",          "--set",    "custom_preset=-1", "--set",
                                    "vertIconPadding=12.0", "--set",    "quick=YES"};
  const sim::Program& program = sim::product::program();
  static auto& only = *new sim::Simulation(sim::parseOptions(11, arguments, program.options), program);
  return only;
}

sim::Simulation& started() {
  if (simulation().libraries().empty()) simulation().start();
  return simulation();
}

void step(const char* line) {
  sim::perform(started(), *sim::parseStep(line, "bench", ".", sim::product::program().steps));
}

void openPanel() { step("swipe up"); }

void closePanel() {
  if (!panelIsShown()) return;
  step("wait 1");  // a panel on its way in takes no touches
  step("tap \"close\"");
  step("wait 1");
}

}  // namespace bench

int main(int count, char** arguments) try {
  bench::takeDevice(count, arguments);
  benchmark::Initialize(&count, arguments);
  if (benchmark::ReportUnrecognizedArguments(count, arguments)) return 1;
  benchmark::RegisterBenchmark("vertical padding, stock", bench::verticalPaddingStock);
  benchmark::RegisterBenchmark("scroll step, stock", bench::scrollStepStock);
  benchmark::RegisterBenchmark("vertical padding, replaced", bench::verticalPaddingReplaced);
  benchmark::RegisterBenchmark("scroll step, replaced", bench::scrollStepReplaced);
  benchmark::RegisterBenchmark("copy of the whole screen", bench::screenCopy);
  benchmark::RegisterBenchmark("frame while the panel springs in", bench::panelFrame);
  benchmark::RegisterBenchmark("served frame while the panel springs in", bench::servedFrame);
  benchmark::RegisterBenchmark("press on plus", bench::plusPress);
  benchmark::RegisterBenchmark("choosing a named layout", bench::choosePreset)->Arg(50)->Arg(5000);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
} catch (const sim::UsageError& error) {
  std::cerr << "tilo-bench: " << error.what() << "\n";
  return 2;
}

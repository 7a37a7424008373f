// Costs, stock and with the library, in one run: build/tilo-bench [--device NAME] [--pages N] [--icons N].
#include <iostream>
#include <string_view>
#include <vector>

#include "bench/home_screen.hpp"
#include "platform/uikit/application.hpp"
#include "simulator/app/steps.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/product/product.hpp"

namespace bench {
namespace {

// Of the home screen.
std::vector<const char*>& options() {
  static auto& all = *new std::vector<const char*>{
      "tilo-bench",           "--set", "enabled=YES", "--set", "custom_preset=-1", "--set",
      "vertIconPadding=12.0", "--set", "quick=YES"};
  return all;
}

bool panelIsShown() {
  NSArray views = UIApplication::sharedApplication().keyWindow().subviews();
  const Class panel = objc_getClass("RQPopupView");
  for (NSUInteger i = 0; i < views.count(); ++i)
    if (bridge::isKindOf(views.objectAtIndex(i), panel)) return true;
  return false;
}

// Takes what is ours from the command line; the rest is the benchmarks'.
void takeOptions(int& count, char** arguments) {
  int kept = 1;
  for (int i = 1; i < count; ++i) {
    const std::string_view word = arguments[i];
    if ((word == "--device" || word == "--pages" || word == "--icons") && i + 1 < count)
      options().insert(options().end(), {arguments[i], arguments[i + 1]}), ++i;
    else
      arguments[kept++] = arguments[i];
  }
  count = kept;
}

}  // namespace

sim::Simulation& simulation() {
  const sim::Program& program = sim::product::program();
  static auto& only = *new sim::Simulation(
      sim::parseOptions(static_cast<int>(options().size()), options().data(), program.options), program);
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
  bench::takeOptions(count, arguments);
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
  benchmark::RegisterBenchmark("relayout", bench::relayout);
  auto* layouts = benchmark::RegisterBenchmark("choosing a named layout", bench::choosePreset);
  for (const long number : {50, 312, 625, 1250, 2500, 5000}) layouts->Arg(number);
  auto* boxes = benchmark::RegisterBenchmark("notice boxes", bench::noticeBoxes);
  for (const long number : {10, 20, 40, 80, 160}) boxes->Arg(number);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
} catch (const sim::UsageError& error) {
  std::cerr << "tilo-bench: " << error.what() << "\n";
  return 2;
}

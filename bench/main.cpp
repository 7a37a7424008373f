// Costs, stock and with the library, in one run: build/tilo-bench.
#include "bench/home_screen.hpp"
#include "simulator/product/product.hpp"

namespace bench {

sim::Simulation& simulation() {
  static const char* arguments[] = {"tilo-bench",       "--set", "enabled=YES",          "--set",
                                    "custom_preset=-1", "--set", "vertIconPadding=12.0", "--set",
                                    "quick=YES"};
  const sim::Program& program = sim::product::program();
  static auto& only = *new sim::Simulation(sim::parseOptions(9, arguments, program.options), program);
  return only;
}

sim::Simulation& started() {
  if (simulation().libraries().empty()) simulation().start();
  return simulation();
}

}  // namespace bench

int main(int count, char** arguments) {
  benchmark::Initialize(&count, arguments);
  if (benchmark::ReportUnrecognizedArguments(count, arguments)) return 1;
  benchmark::RegisterBenchmark("vertical padding, stock", bench::verticalPaddingStock);
  benchmark::RegisterBenchmark("scroll step, stock", bench::scrollStepStock);
  benchmark::RegisterBenchmark("vertical padding, replaced", bench::verticalPaddingReplaced);
  benchmark::RegisterBenchmark("scroll step, replaced", bench::scrollStepReplaced);
  benchmark::RegisterBenchmark("frame while the panel springs in", bench::panelFrame);
  benchmark::RegisterBenchmark("press on plus", bench::plusPress);
  benchmark::RegisterBenchmark("choosing a named layout", bench::choosePreset)->Arg(50)->Arg(5000);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
}

// A line of a script: whatever it says, a step with what it needs, nothing, or a refusal.
#include "simulator/input/script.hpp"

#include "simulator/device/usage_error.hpp"

namespace {

void nothing(sim::Simulation&, const sim::Step&) {}

constexpr sim::StepRow rows[] = {
    {"wait", nothing, sim::with(sim::kinds::number("SECONDS", 0, 86400)), "", ""},
    {"tap", nothing, sim::with(sim::kinds::name), "", ""},
    {"enter", nothing, sim::with(sim::kinds::text), "", ""},
    {"increment", nothing, sim::with(sim::kinds::name), "", "",
     sim::with(sim::kinds::name, sim::kinds::whole("TIMES", 1, 10000))},
};

void read(const std::string& line) {
  try {
    const auto step = sim::parseStep(line, "fuzz:1", "/tmp", rows);
    if (!step || step->name() != "increment" || !step->has(1)) return;
    const double times = step->number(1);
    if (!(times >= 1 && times <= 10000)) __builtin_trap();
  } catch (const sim::UsageError&) {
  }
}

}  // namespace

// By itself, and behind the beginnings of steps, which nobody comes by often who tries letters.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t length) {
  const std::string line(reinterpret_cast<const char*>(bytes), length);
  for (const char* before : {"", "increment \"a\" ", "enter ", "wait "}) read(before + line);
  return 0;
}

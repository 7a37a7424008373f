// What a frame of the screen costs while the panel springs in, in copies of the whole screen's pixels as
// well.
#include <time.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "bench/home_screen.hpp"
#include "bridge/runtime.hpp"
#include "simulator/device/clock.hpp"
#include "simulator/time/run_loop.hpp"
#include "simulator/uikit/base/configuration.hpp"
#include "simulator/uikit/drawing/rendering.hpp"

namespace bench {
namespace {

constexpr double frame = 1.0 / 60;      // seconds
constexpr double springDuration = 0.4;  // of the panel's way in

// Of the processor alone: what else runs on the machine hardly counts.
double processorTime() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

template <class Work>
double timeOf(const Work& work) {
  const double start = processorTime();
  work();
  return processorTime() - start;
}

double medianOf(std::vector<double> times) {
  std::ranges::sort(times);
  return times.empty() ? 0 : times[times.size() / 2];
}

double averageOf(const std::vector<double>& times) {
  double sum = 0;
  for (const double time : times) sum += time;
  return sum / static_cast<double>(times.size());
}

}  // namespace

void screenCopy(benchmark::State& state) {
  started();
  const CGSize pixels = sim::uikit::screenPixels();
  std::vector<char> from(static_cast<std::size_t>(pixels.width * pixels.height) * 4, 1), to(from.size());
  for (auto _ : state) {
    std::memcpy(to.data(), from.data(), from.size());
    benchmark::DoNotOptimize(to.data());
    benchmark::ClobberMemory();
  }
}

void panelFrame(benchmark::State& state) {
  bridge::Pool pool;
  started();
  const CGSize pixels = sim::uikit::screenPixels();
  std::vector<char> from(static_cast<std::size_t>(pixels.width * pixels.height) * 4, 1), to(from.size());
  std::vector<double> frames, copies, openings;
  double left = 0;
  for (auto _ : state) {
    const bool opens = left < frame;
    if (opens) {
      state.PauseTiming();
      closePanel();
      openPanel();
      left = springDuration;
      for (int i = 0; i < 5; ++i) {
        const double time = timeOf([&] {
          std::memcpy(to.data(), from.data(), from.size());
          benchmark::DoNotOptimize(to.data());
          benchmark::ClobberMemory();
        });
        if (i > 0) copies.push_back(time);  // the first brings the pixels into the caches
      }
      state.ResumeTiming();
    }
    const double time = timeOf([&] {
      bridge::Pool each;
      sim::letPass(frame);
      benchmark::DoNotOptimize(sim::uikit::renderScreen(sim::clock::now()));
    });
    left -= frame;
    frames.push_back(time);
    if (opens) openings.push_back(time);
  }
  closePanel();
  const double copy = medianOf(copies);
  state.counters["copies"] = averageOf(frames) / copy;
  state.counters["median_copies"] = medianOf(frames) / copy;
  state.counters["first_copies"] = medianOf(openings) / copy;
  state.counters["copy"] = copy;
}

}  // namespace bench

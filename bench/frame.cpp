// What a frame of the screen costs while the panel springs in, in copies of the whole screen's pixels as
// well.
#include "simulator/serve/frame.hpp"

#include <sys/socket.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <stdexcept>
#include <string>
#include <thread>
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

// The panel on its way in: a frame after the other, and closed and opened again when it has arrived.
class Arrival {
 public:
  bool isOver() const { return left < frame; }
  void begin() {
    closePanel();
    openPanel();
    left = springDuration;
  }
  void step() {
    sim::letPass(frame);
    left -= frame;
  }

 private:
  double left = 0;
};

// Where frames go: what is sent is read by another thread.
class Sink {
 public:
  Sink() {
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_STREAM, 0, ends) != 0) throw std::runtime_error("no sockets");
    end = ends[0];
    reader = std::thread([other = ends[1]] {
      std::vector<char> room(1 << 16);
      while (::read(other, room.data(), room.size()) > 0) continue;
      ::close(other);
    });
  }
  ~Sink() {
    ::close(end);
    reader.join();
  }
  void take(const std::string& bytes) {
    for (std::size_t done = 0; done < bytes.size();) {
      const ssize_t count = ::send(end, bytes.data() + done, bytes.size() - done, MSG_NOSIGNAL);
      if (count <= 0) throw std::runtime_error("the reader has gone");
      done += static_cast<std::size_t>(count);
    }
  }

 private:
  int end;
  std::thread reader;
};

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
  Arrival arrival;
  for (auto _ : state) {
    const bool opens = arrival.isOver();
    if (opens) {
      state.PauseTiming();
      arrival.begin();
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
      arrival.step();
      benchmark::DoNotOptimize(sim::uikit::renderScreen(sim::clock::now()));
    });
    frames.push_back(time);
    if (opens) openings.push_back(time);
  }
  closePanel();
  const double copy = medianOf(copies);
  state.counters["mean"] = averageOf(frames);
  state.counters["copies"] = averageOf(frames) / copy;
  state.counters["median_copies"] = medianOf(frames) / copy;
  state.counters["first_copies"] = medianOf(openings) / copy;
  state.counters["copy"] = copy;
}

void servedFrame(benchmark::State& state) {
  using sim::serve::Codec, sim::serve::Tiles;
  bridge::Pool pool;
  started();
  Arrival arrival;
  Sink sink;
  sim::PaintedScreen screen;
  sim::Surface shown;
  std::vector<double> stepping, drawing, comparing, encoding, sending, bytes;
  for (auto _ : state) {
    if (arrival.isOver()) {
      state.PauseTiming();
      arrival.begin();
      state.ResumeTiming();
    }
    bridge::Pool each;
    sim::Surface picture;
    Tiles changed;
    std::string message;
    stepping.push_back(timeOf([&] { arrival.step(); }));
    drawing.push_back(timeOf([&] { picture = sim::uikit::renderScreen(sim::clock::now(), screen); }));
    comparing.push_back(
        timeOf([&] { changed = Tiles::changed(shown.get(), picture.get(), screen.changed()); }));
    encoding.push_back(timeOf([&] {
      if (changed.any())
        message = encodeFrame(1, picture.get(), sim::uikit::screenSize(), changed, Codec::jpeg);
    }));
    sending.push_back(timeOf([&] { sink.take(message); }));
    bytes.push_back(static_cast<double>(message.size()));
    shown = picture;
  }
  closePanel();
  state.counters["step"] = averageOf(stepping);
  state.counters["draw"] = averageOf(drawing);
  state.counters["diff"] = averageOf(comparing);
  state.counters["encode"] = averageOf(encoding);
  state.counters["send"] = averageOf(sending);
  state.counters["bytes"] = averageOf(bytes);
}

}  // namespace bench

// Acts scenarios out, each in a process of its own, forked from one that has started already: under an
// emulator the start is what takes longest.
//
//   act-scenarios --into FOLDER [--jobs N] [--library FILE] [--pictures NAME,...] [--pixels NAME,...]
//   SCENARIO...
//
// Each gets a folder below FOLDER with what it said and how it ended (`said`), its reports, and the one at
// its end (`end.json`). Those that --pictures names, otherwise all, leave the pictures that their steps take
// as well, and the size and the sum of the one at their end (`picture`); those that --pixels names leave it
// whole (`pixels`: its width and height, then a word for each pixel). Options stand in the scenario's line
// "# options:", as a shell would have them. Exit status 2 when there is nothing to act.
#include <fcntl.h>
#include <fmt/format.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <thread>
#include <tuple>
#include <vector>

#include "simulator/app/simulation.hpp"
#include "simulator/app/steps.hpp"
#include "simulator/artwork/wallpaper.hpp"
#include "simulator/device/clock.hpp"
#include "simulator/input/script.hpp"
#include "simulator/product/product.hpp"
#include "simulator/quartz/fonts.hpp"
#include "simulator/time/run_loop.hpp"
#include "simulator/uikit/drawing/rendering.hpp"

namespace {

namespace fs = std::filesystem;

constexpr unsigned timeLimit = 300;  // seconds for one scenario

struct Arguments {
  fs::path folder;
  std::string library;
  std::size_t jobs = 1;
  std::optional<std::set<std::string>> pictures;  // none: of all
  std::set<std::string> pixels;
  std::vector<fs::path> scenarios;
};

// The words of a line; what stands in double quotes is one.
std::vector<std::string> wordsOf(const std::string& line, char between = ' ') {
  std::vector<std::string> words;
  bool quoted = false, inside = false;
  for (const char c : line) {
    if (c == '"') {
      quoted = !quoted;
    } else if (c == between && !quoted) {
      inside = false;
      continue;
    }
    if (!inside) words.emplace_back();
    inside = true;
    if (c != '"') words.back() += c;
  }
  return words;
}

// Files in them count from the scenario's folder.
sim::Options optionsOf(const fs::path& scenario, const std::string& library) {
  fs::current_path(scenario.parent_path());
  constexpr std::string_view mark = "# options: ";
  std::vector<std::string> words{"tilo-sim"};
  std::ifstream in(scenario);
  for (std::string line; std::getline(in, line);)
    if (line.starts_with(mark))
      for (std::string& word : wordsOf(line.substr(mark.size()))) words.push_back(std::move(word));
  if (!library.empty()) words.insert(words.end(), {"--library", library});
  std::vector<const char*> arguments;
  for (const std::string& word : words) arguments.push_back(word.c_str());
  return sim::parseOptions(static_cast<int>(arguments.size()), arguments.data(),
                           sim::product::program().options);
}

// A word for each pixel, behind the width and the height.
std::vector<uint32_t> pixelsNow() {
  const sim::Surface surface = sim::uikit::renderScreen(sim::clock::now());
  cairo_surface_t* image = surface.get();
  cairo_surface_flush(image);
  const int width = cairo_image_surface_get_width(image), height = cairo_image_surface_get_height(image);
  std::vector<uint32_t> pixels{static_cast<uint32_t>(width), static_cast<uint32_t>(height)};
  for (int y = 0; y < height; ++y) {
    const auto* row = reinterpret_cast<const uint32_t*>(cairo_image_surface_get_data(image) +
                                                        y * cairo_image_surface_get_stride(image));
    pixels.insert(pixels.end(), row, row + width);
  }
  return pixels;
}

// FNV-1a.
uint64_t sumOf(const std::vector<uint32_t>& pixels) {
  uint64_t sum = 14695981039346656037U;
  for (const uint32_t pixel : pixels) sum = (sum ^ pixel) * 1099511628211U;
  return sum;
}

void takePicture(const fs::path& folder, bool whole) {
  const std::vector<uint32_t> pixels = pixelsNow();
  std::ofstream(folder / "picture") << fmt::format("{} x {}, {:016x}\n", pixels[0], pixels[1], sumOf(pixels));
  if (whole)
    std::ofstream(folder / "pixels", std::ios::binary)
        .write(reinterpret_cast<const char*>(pixels.data()),
               static_cast<std::streamsize>(pixels.size() * sizeof pixels[0]));
}

bool isPictured(const fs::path& scenario, const Arguments& given) {
  return !given.pictures || given.pictures->contains(scenario.stem());
}

void act(const fs::path& scenario, const Arguments& given) {
  const fs::path folder = fs::current_path();
  sim::Options options = optionsOf(scenario, given.library);
  fs::current_path(folder);
  if (const fs::path files = scenario.parent_path() / "files" / scenario.stem(); fs::is_directory(files)) {
    options.root = folder / "root";
    fs::copy(files, *options.root, fs::copy_options::recursive);
  }
  const sim::Program& program = sim::product::program();
  sim::Script script(scenario.string(), program.steps);
  sim::Simulation simulation(options, program);
  simulation.start();
  const bool whole = given.pixels.contains(scenario.stem());
  const bool isSeen = whole || isPictured(scenario, given);
  while (const auto step = script.next())
    if (isSeen || step->name() != "snapshot") sim::perform(simulation, *step);
  simulation.report((folder / "end.json").string());
  if (isSeen) takePicture(folder, whole);
}

int actAndTell(const fs::path& scenario, const Arguments& given) {
  try {
    act(scenario, given);
  } catch (const std::exception& error) {
    std::cerr << error.what() << "\n";
    return 2;
  }
  return 0;
}

pid_t start(const fs::path& scenario, const Arguments& given) {
  const fs::path folder = given.folder / scenario.stem();
  fs::remove_all(folder);
  fs::create_directories(folder);
  std::fflush(nullptr);
  const pid_t child = fork();
  if (child != 0) return child;
  fs::current_path(folder);
  const int said = open("said", O_WRONLY | O_CREAT | O_APPEND, 0644);
  dup2(said, STDOUT_FILENO);
  dup2(said, STDERR_FILENO);
  close(said);
  alarm(timeLimit);
  const int status = actAndTell(scenario, given);
  std::fflush(nullptr);
  _exit(status);
}

Arguments take(int count, char** words) {
  Arguments given;
  for (int i = 1; i < count; ++i) {
    const std::string word = words[i];
    if (word == "--library" && i + 1 < count)
      given.library = fs::absolute(words[++i]);
    else if (word == "--jobs" && i + 1 < count)
      given.jobs = std::max(1UL, std::strtoul(words[++i], nullptr, 10));
    else if (word == "--pictures" && i + 1 < count) {
      const std::vector<std::string> names = wordsOf(words[++i], ',');
      given.pictures.emplace(names.begin(), names.end());
    } else if (word == "--pixels" && i + 1 < count) {
      const std::vector<std::string> names = wordsOf(words[++i], ',');
      given.pixels = {names.begin(), names.end()};
    } else if (word == "--into" && i + 1 < count)
      given.folder = fs::absolute(words[++i]);
    else
      given.scenarios.push_back(fs::absolute(word));
  }
  return given;
}

}  // namespace

// What several processes would read or draw again otherwise, and what an emulator forgets when a first thread
// is started.
void prepare(const Arguments& given) {
  std::thread([] {}).join();
  sim::readFonts();
  std::map<std::tuple<double, double, double>, int> scenariosOf;
  for (const fs::path& scenario : given.scenarios) {
    if (!isPictured(scenario, given)) continue;
    const sim::Options options = optionsOf(scenario, {});
    const CGSize size = options.device->screenSize(options.orientation);
    if (++scenariosOf[{size.width, size.height, options.device->scale}] == 2)
      sim::wallpaper(size, options.device->scale);
  }
}

int main(int count, char** words) try {
  const Arguments given = take(count, words);
  if (given.folder.empty()) throw std::runtime_error("no folder");
  if (given.scenarios.empty()) throw std::runtime_error("no scenarios");
  prepare(given);
  std::vector<std::pair<pid_t, fs::path>> running;
  const auto awaitOne = [&] {
    int status = 0;
    const pid_t child = wait(&status);
    const auto ended = std::ranges::find(running, child, [](const auto& one) { return one.first; });
    if (ended == running.end()) return;
    std::ofstream said(given.folder / ended->second.stem() / "said", std::ios::app);
    if (WIFEXITED(status))
      said << "ends with " << WEXITSTATUS(status) << "\n";
    else
      said << "ended by " << strsignal(WTERMSIG(status)) << "\n";
    running.erase(ended);
  };
  for (const fs::path& scenario : given.scenarios) {
    if (running.size() == given.jobs) awaitOne();
    running.emplace_back(start(scenario, given), scenario);
  }
  while (!running.empty()) awaitOne();
  return 0;
} catch (const std::exception& error) {
  std::cerr << words[0] << ": " << error.what() << "\n";
  return 2;
}

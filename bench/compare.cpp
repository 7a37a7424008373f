// What each replaced method costs: SpringBoard's own, one written by hand in C (by_hand.c), and ours, in one
// run: build/tilo-compare [ROUNDS]. Each has a process of its own, which takes its turn in every round; told
// are medians. The answers by hand and ours have to be the same.
#include <fmt/format.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <ctime>
#include <iostream>
#include <string>
#include <vector>

#include "platform/springboard/dock.hpp"
#include "platform/springboard/icon_scroll_view.hpp"
#include "simulator/app/simulation.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/product/product.hpp"
#include "simulator/runtime/preferences.hpp"
#include "simulator/springboard/icon_controller.hpp"

namespace {

constexpr NSInteger portrait = 1;
constexpr int usualRounds = 41;
constexpr int pages = 3;

SBRootIconListView page() { return sim::springboard::homeScreen().pages.at(0).get(); }
SBDockIconListView dock() { return sim::springboard::homeScreen().dock.get(); }
SBFolderIconListView folder() { return sim::springboard::homeScreen().folder.get(); }

// Outside any window, so that nothing is drawn.
SBIconScrollView scrollView() {
  static const auto view = [] {
    constexpr CGSize screen{375, 667};
    auto made = bridge::make<SBIconScrollView, &NSObject::init>();
    made->frame.set({{}, screen});
    made->contentSize.set({pages * screen.width, screen.height});
    for (int i = 0; i < pages; ++i) {
      auto list = bridge::make<SBRootIconListView, &UIView::initWithFrame>(CGRect{{}, screen});
      made->addSubview(list);
    }
    return made;
  }();
  return view.get();
}

double scrollStep() {
  static CGFloat x = 0;
  x = x > 300 ? 0 : x + 1;
  scrollView().contentOffset.set({x, 0});
  return 0;
}

// The simulated store's cost is none of the library's: without it, a value that is stored goes nowhere.
bool storing = true;

double scrollStepWithoutStore() {
  storing = false;
  scrollStep();
  storing = true;
  return 0;
}

struct Subject {
  const char* name;
  double (*answer)();
  int calls;  // a round
};

constexpr int many = 4000, few = 20;

constexpr Subject subjects[] = {
    {"-verticalIconPadding", [] { return static_cast<double>(page().verticalIconPadding()); }, many},
    {"-horizontalIconPadding", [] { return static_cast<double>(page().horizontalIconPadding()); }, many},
    {"-sideIconInset", [] { return static_cast<double>(page().sideIconInset()); }, many},
    {"-topIconInset", [] { return static_cast<double>(page().topIconInset()); }, many},
    {"-verticalIconPadding of a folder", [] { return static_cast<double>(folder().verticalIconPadding()); },
     many},
    {"-iconRowsForSpacingCalculation",
     [] { return static_cast<double>(page().iconRowsForSpacingCalculation()); }, many},
    {"-iconRowsForCurrentOrientation",
     [] { return static_cast<double>(page().iconRowsForCurrentOrientation()); }, many},
    {"-iconColumnsForCurrentOrientation",
     [] { return static_cast<double>(page().iconColumnsForCurrentOrientation()); }, many},
    {"+iconRowsForInterfaceOrientation:",
     [] { return static_cast<double>(SBIconListView::iconRowsForInterfaceOrientation(portrait)); }, many},
    {"+iconColumnsForInterfaceOrientation:",
     [] { return static_cast<double>(SBIconListView::iconColumnsForInterfaceOrientation(portrait)); }, many},
    {"-iconsInRowForSpacingCalculation of the dock",
     [] { return static_cast<double>(dock().iconsInRowForSpacingCalculation()); }, many},
    {"+maxIcons of the dock", [] { return static_cast<double>(SBDockIconListView::maxIcons()); }, many},
    {"+maxVisibleIconRowsInterfaceOrientation: of the dock",
     [] { return static_cast<double>(SBDockIconListView::maxVisibleIconRowsInterfaceOrientation(portrait)); },
     many},
    {"+defaultHeight of the dock", [] { return static_cast<double>(SBDockView::defaultHeight()); }, many},
    {"-setContentOffset:", scrollStep, few},
    {"-setContentOffset:, storing nothing", scrollStepWithoutStore, many},
};

using Figures = std::array<double, std::size(subjects)>;

// Of the processor: other work on the machine is none of a method's.
double processorTime() {
  timespec now{};
  ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e9 + static_cast<double>(now.tv_nsec);
}

double nanosecondsOf(const Subject& subject) {
  const bridge::Pool pool;
  const double start = processorTime();
  for (int i = 0; i < subject.calls; ++i) subject.answer();
  return (processorTime() - start) / subject.calls;
}

template <class T>
void put(int channel, const T& value) {
  if (::write(channel, &value, sizeof value) != sizeof value) std::exit(1);
}
template <class T>
bool take(int channel, T& value) {
  return ::read(channel, &value, sizeof value) == sizeof value;
}

// The process with a home screen: first its answers, then figures whenever it is asked for them.
[[noreturn]] void live(const std::vector<std::string>& options, int questions, int answers) try {
  std::vector<const char*> arguments{"tilo-compare"};
  for (const std::string& option : options) arguments.push_back(option.c_str());
  const sim::Program& program = sim::product::program();
  sim::Simulation simulation(
      sim::parseOptions(static_cast<int>(arguments.size()), arguments.data(), program.options), program);
  simulation.start();
  Figures figures;
  {
    const bridge::Pool pool;
    for (std::size_t i = 0; i < figures.size(); ++i) figures[i] = subjects[i].answer();
  }
  put(answers, figures);
  for (char asked; take(questions, asked);) {
    for (std::size_t i = 0; i < figures.size(); ++i) figures[i] = nanosecondsOf(subjects[i]);
    put(answers, figures);
  }
  std::_Exit(0);
} catch (const std::exception& error) {
  std::cerr << "tilo-compare: " << error.what() << "\n";
  std::_Exit(2);
}

class Home {
 public:
  explicit Home(std::vector<std::string> options) {
    for (const char* setting : {"enabled=YES", "icons=YES", "rows=5", "columns=4", "custom_preset=-1",
                                "vertIconPadding=12.0", "horiIconPadding=11.5", "sideIconInset=14.5",
                                "topIconInset=30", "dockIconsEnabled=YES", "dockIcons=5", "dock=NO"})
      options.insert(options.end(), {"--set", setting});
    int ask[2], answer[2];
    if (::pipe(ask) != 0 || ::pipe(answer) != 0) throw sim::UsageError("no channel to a home screen");
    if (::fork() == 0) {
      ::close(ask[1]);
      live(options, ask[0], answer[1]);
    }
    ::close(ask[0]);
    ::close(answer[1]);
    questions = ask[1];
    answers = answer[0];
  }

  Figures told() {
    Figures figures;
    if (!take(answers, figures)) throw sim::UsageError("a home screen has ended");
    return figures;
  }
  void round() {
    put(questions, 'r');
    rounds.push_back(told());
  }
  double median(std::size_t subject) const {
    std::vector<double> all;
    for (const Figures& each : rounds) all.push_back(each[subject]);
    std::ranges::nth_element(all, all.begin() + static_cast<std::ptrdiff_t>(all.size() / 2));
    return all[all.size() / 2];
  }

 private:
  int questions, answers;
  std::vector<Figures> rounds;
};

int roundsIn(int count, char** arguments) {
  const int rounds = count > 1 ? std::atoi(arguments[1]) : usualRounds;
  if (count > 2 || rounds < 1) throw sim::UsageError("it takes a number of rounds, 1 or more");
  return rounds;
}

int compare(int rounds) {
  Home stock({"--stock"}), byHand({"--library", BY_HAND}), ours({});
  stock.told();
  const Figures expected = byHand.told(), told = ours.told();
  for (std::size_t i = 0; i < std::size(subjects); ++i)
    if (expected[i] != told[i]) {
      std::cerr << fmt::format("tilo-compare: {}: {} by hand, {} ours\n", subjects[i].name, expected[i],
                               told[i]);
      return 1;
    }
  for (int i = 0; i < rounds; ++i)
    for (Home* home : {&stock, &byHand, &ours}) home->round();
  std::cout << "| method, ns a call | stock | by hand | ours | ours / by hand |\n|---|---|---|---|---|\n";
  for (std::size_t i = 0; i < std::size(subjects); ++i)
    std::cout << fmt::format("| `{}` | {:.0f} | {:.0f} | {:.0f} | {:.2f} |\n", subjects[i].name,
                             stock.median(i), byHand.median(i), ours.median(i),
                             ours.median(i) / byHand.median(i));
  const std::size_t last = std::size(subjects) - 1;
  const double own = ours.median(last) - stock.median(last),
               ownByHand = byHand.median(last) - stock.median(last);
  std::cout << fmt::format(
      "\nOf a step that stores nothing, without what SpringBoard takes: {:.0f} by hand, "
      "{:.0f} ours, {:.2f}.\n",
      ownByHand, own, own / ownByHand);
  return 0;
}

}  // namespace

// The linker puts it in the place of the simulator's CFPreferencesSetValue.
extern "C" __attribute__((visibility("default"), used)) void comparedSetValue(id key, id value, id domain, id,
                                                                              id) {
  if (!storing) return;
  const bridge::Pool pool;
  sim::setPreference(bridge::as<NSString>(domain), bridge::as<NSString>(key), bridge::as<NSObject>(value));
}

int main(int count, char** arguments) try {
  return compare(roundsIn(count, arguments));
} catch (const std::exception& error) {
  std::cerr << "tilo-compare: " << error.what() << "\n";
  return 2;
}

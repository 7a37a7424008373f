// What holds of a home screen after every step, whatever was done to it.
#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>

#include "tests/library/expected_grid.hpp"
#include "tests/support/home.hpp"

namespace test::monkey {

class Promises {
 public:
  /** `stock` is the report of the same device without the library, by orientation. */
  Promises(Home& home, std::map<std::string, sim::Json> stock);

  /** What does not hold after that step; a word, a colon and the particulars. */
  std::optional<std::string> broken(const std::string& step);

 private:
  void follow(const std::string& step);
  void followSettings(const std::string& step);
  void followRow(const std::string& step);
  void followExport();
  void followTouch();
  bool isToldByTouch();
  std::optional<std::string> panels();
  std::optional<std::string> rows();
  std::optional<std::string> presetsFile();
  std::optional<std::string> answers();

  Home& home;
  std::map<std::string, sim::Json> stock;
  ExpectedScreen screen;
  sim::Orientation orientation = sim::Orientation::portrait;
  double aloneAt = 0;       // when there was one panel at most, in seconds
  sim::Json stored, known;  // the settings as they lie in the file, and as the library has been told of them
  std::set<std::string>
      told;  // keys that came another way since the panel did: their rows show what was before
  std::set<std::string> maybeTold;  // keys of which a touch may have told the library what the file has
  bool wereRowsShown = false;
  std::string foreignPresets;  // what somebody else wrote, until the library writes
  bool presetsAreTold = true;  // the library has read the file as it is
};

}  // namespace test::monkey

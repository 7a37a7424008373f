// A hand that does anything to a home screen: chooses steps of a script by chance, from a seed.
#pragma once

#include <cstdint>
#include <random>
#include <string>

#include "tests/support/home.hpp"

namespace test::monkey {

class Hand {
 public:
  explicit Hand(uint64_t seed) : random(seed) {}

  /** The next step. More of the steps are such as fit to what is in front: an alert, the panel. */
  std::string next(Home& home);

 private:
  int number(int least, int most) { return std::uniform_int_distribution(least, most)(random); }
  bool chance(int percent) { return number(1, 100) <= percent; }
  std::string pick(std::initializer_list<const char*> of);
  std::string place(CGSize screen);
  std::string value();
  std::string title();
  std::string answer(const sim::Json& alert);
  std::string withPanel(CGSize screen);
  std::string anywhere(CGSize screen);
  std::string byOthers();

  std::mt19937_64 random;
};

}  // namespace test::monkey

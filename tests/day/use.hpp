// What somebody does with a home screen in a day, in equal parts.
#pragma once

#include <map>
#include <string>

#include "tests/support/home.hpp"

namespace test::day {

struct Amounts {
  int panels = 5000, presses = 50'000, scrolls = 200'000, rotations = 1000, layouts = 500;
};

/** One of `parts` equal parts of a day; the remainder of a division is left out. */
void usePart(Home& home, const Amounts& day, int parts);

/** Bytes that are allocated. */
std::size_t memory();
/** Living objects by the names of their classes. Counted from the first call on. */
std::map<std::string, long> objects();

}  // namespace test::day

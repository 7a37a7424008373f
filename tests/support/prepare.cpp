// What is done once for all tests of the home screen, before the first is forked.
#include <stdexcept>

#include "simulator/quartz/fonts.hpp"

void prepareTests() try { sim::readFonts(); } catch (const std::runtime_error&) {
  // Each test that draws a text says so itself.
}

// The home screen that is measured, and what is measured on it: each thing as SpringBoard does it, then as it
// goes with the library.
//
// A process has one SpringBoard and a library that is loaded stays, so all stock figures are taken first.
#pragma once

#include <benchmark/benchmark.h>

#include "simulator/app/simulation.hpp"

namespace bench {

// Brought up so far that SpringBoard's classes are there.
sim::Simulation& simulation();
// The same with the library loaded and the home screen on display.
sim::Simulation& started();

// A line of a script.
void step(const char* line);
void openPanel();
// If it is open.
void closePanel();

// A page's answer for its vertical padding.
void verticalPaddingStock(benchmark::State& state);
void verticalPaddingReplaced(benchmark::State& state);

// One step of scrolling over three pages.
void scrollStepStock(benchmark::State& state);
void scrollStepReplaced(benchmark::State& state);

// One copy of all of the screen's pixels, from memory to memory.
void screenCopy(benchmark::State& state);
// A frame of the screen while the panel springs in. Its counters tell the processor's time in such copies: on
// average, the median, and of the first frame of each panel, whose views are drawn and whose shadow is
// blurred.
void panelFrame(benchmark::State& state);

// The same for a page: counters tell the processor's seconds of each stage, on average, and the bytes.
void servedFrame(benchmark::State& state);

// A press on a plus or minus button, from the finger's coming down to the stored value and the icons' new
// places; and how many messages that takes, where messages.c counts them.
void plusPress(benchmark::State& state);

// A relayout of all pages, until the icons rest. Its home screen is of --pages or --icons.
void relayout(benchmark::State& state);

// As many notice boxes as the argument says, shown, laid out and hidden.
void noticeBoxes(benchmark::State& state);

// Choosing the last of as many named layouts as the argument says.
void choosePreset(benchmark::State& state);

}  // namespace bench

// tilo-sim's tables: those of the home screen, and the library's among them.
#include "simulator/input/find.hpp"
#include "simulator/product/product.hpp"
#include "simulator/product/start_files.hpp"

namespace sim::product {
namespace {

constexpr const char* circledChevronUp = "\uF139";  // of Font Awesome

void prepare(Simulation& simulation) {
  putPreferences(simulation);
  putPresets(simulation);
  putPane(simulation);
  input::callGlyph(circledChevronUp, "collapse");
}

Program made() {
  Program program = homeScreenProgram();
  program.name = "tilo-sim";
  program.library = "libTilo.so";
  program.bundle = "Tilo_Main.bundle";
  program.installedAs = "Tilo.dylib";
  program.prepare = prepare;
  for (const StepTable rows : {rowSteps(), panelSteps(), settingsSteps(), settingStep(), paneSteps()})
    add(program.steps, rows);
  add(program.options, startFileOptions());
  add(program.pageMessages, settingsMessages());
  add(program.pageMessages, fileMessages());
  addAfter("classColumns", program.report, hooksKeys());
  addAfter("pageDots", program.report, framingKeys());
  addAfter("framing", program.report, panelKeys());
  addAfter("alert", program.report, hudKeys());
  addAfter("hud", program.report, filesKeys());
  return program;
}

}  // namespace

const Program& program() {
  static const Program& only = *new Program(made());
  return only;
}

}  // namespace sim::product

// home-sim: a phone's or tablet's home screen on the desktop, for any library.
#include "simulator/app/program.hpp"
#include "simulator/serve/recording.hpp"
#include "simulator/serve/serving.hpp"

int main(int count, char** arguments) {
  sim::Program program = sim::homeScreenProgram();
  sim::serve::addRecording(program);
  sim::serve::addServing(program);
  return sim::run(count, arguments, program);
}

// tilo-sim: a phone's or tablet's home screen on the desktop, with the library.
#include "simulator/product/product.hpp"
#include "simulator/serve/recording.hpp"
#include "simulator/serve/serving.hpp"

int main(int count, char** arguments) {
  sim::Program program = sim::product::program();
  sim::serve::addRecording(program);
  sim::serve::addServing(program);
  return sim::run(count, arguments, program);
}

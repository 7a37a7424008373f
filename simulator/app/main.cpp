// home-sim: a phone's or tablet's home screen on the desktop, for any library.
#include "simulator/app/program.hpp"

int main(int count, char** arguments) { return sim::run(count, arguments, sim::homeScreenProgram()); }

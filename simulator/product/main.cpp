// tilo-sim: a phone's or tablet's home screen on the desktop, with the library.
#include "simulator/product/product.hpp"

int main(int count, char** arguments) { return sim::run(count, arguments, sim::product::program()); }

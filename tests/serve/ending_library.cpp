// A library that ends whoever loads it.
#include <cstdlib>

__attribute__((constructor)) static void end() { std::abort(); }

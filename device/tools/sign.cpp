// sign: gives a slice an ad-hoc code signature. Last of all that is done to it: a byte changed later spoils
// it.
//
//   sign <identifier> <in.dylib> <out.dylib>
#include "device/signature/sign.hpp"

#include <fmt/format.h>

#include <cstdio>
#include <exception>
#include <fstream>
#include <iterator>

int main(int count, char** arguments) {
  if (count != 4) {
    fmt::print(stderr, "usage: sign <identifier> <in.dylib> <out.dylib>\n");
    return 2;
  }
  try {
    std::ifstream in(arguments[2], std::ios::binary);
    if (!in) throw std::runtime_error("cannot be read");
    const auto bytes =
        device::signature::withSignature({std::istreambuf_iterator<char>(in), {}}, arguments[1]);
    std::ofstream out(arguments[3], std::ios::binary);
    out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    out.close();
    if (!out) throw std::runtime_error(fmt::format("{} cannot be written", arguments[3]));
    return 0;
  } catch (const std::exception& error) {
    fmt::print(stderr, "{}: {}\n", arguments[2], error.what());
    return 2;
  }
}

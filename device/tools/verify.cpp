// verify: judges the code signatures of Mach-O files. A line for each fault, and 1 when there is any; 2 for
// what is no such file.
//
//   verify <file>...
#include "device/signature/verify.hpp"

#include <fmt/format.h>

#include <cstdio>
#include <exception>
#include <fstream>
#include <iterator>

int main(int count, char** arguments) {
  if (count < 2) {
    fmt::print(stderr, "usage: verify <file>...\n");
    return 2;
  }
  int status = 0;
  for (int i = 1; i < count; ++i) try {
      std::ifstream in(arguments[i], std::ios::binary);
      const std::vector<uint8_t> file{std::istreambuf_iterator<char>(in), {}};
      if (!in.good() && file.empty()) throw std::runtime_error("cannot be read");
      for (const std::string& line : device::signature::findings(file)) {
        fmt::print("{}: {}\n", arguments[i], line);
        status = std::max(status, 1);
      }
    } catch (const std::exception& error) {
      fmt::print(stderr, "{}: {}\n", arguments[i], error.what());
      status = 2;
    }
  return status;
}

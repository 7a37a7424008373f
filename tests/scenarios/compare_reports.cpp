// compare_reports TOLERANCE A B: whether two reports tell the same. Whole numbers are to be equal; of other
// numbers each may differ by that part of its value, and below 1 by that part of 1. A line for each value
// that differs; exit status 1 when there is one, 2 when a file is no report.
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

#include "simulator/json/json.hpp"

namespace {

using sim::Json;

Json read(const char* path) {
  std::ifstream in(path);
  if (auto report = Json::read({std::istreambuf_iterator<char>(in), {}})) return *report;
  std::cerr << "compare_reports: " << path << " is no report\n";
  std::exit(2);
}

class Comparison {
 public:
  explicit Comparison(double tolerance) : tolerance(tolerance) {}

  bool same(const Json& a, const Json& b) {
    compare("", a, b);
    return alike;
  }

 private:
  void compare(const std::string& key, const Json& a, const Json& b) {
    if (a.isObject() && b.isObject()) {
      for (const auto& [name, value] : a.items())
        b.contains(name) ? compare(key + '.' + name, value, b[name])
                         : tell(key + '.' + name, value, "nothing");
      for (const auto& [name, value] : b.items())
        if (!a.contains(name)) tell(key + '.' + name, "nothing", value);
    } else if (a.isArray() && b.isArray() && a.size() == b.size()) {
      for (size_t i = 0; i < a.size(); ++i) compare(key + '[' + std::to_string(i) + ']', a[i], b[i]);
    } else if (a != b && !close(a, b)) {
      tell(key, a, b);
    }
  }

  void tell(const std::string& key, const Json& a, const Json& b) {
    alike = false;
    std::cout << "  " << key << ": " << a << " and " << b << '\n';
  }

  // Below 1 stands what is left of a difference of lengths, which is as exact as they were.
  bool close(const Json& a, const Json& b) const {
    if (!a.isNumber() || !b.isNumber() || (a.isWhole() && b.isWhole())) return false;
    const double one = a.get<double>(), other = b.get<double>();
    return std::abs(one - other) <= tolerance * std::max({1.0, std::abs(one), std::abs(other)});
  }

  double tolerance;
  bool alike = true;
};

}  // namespace

int main(int count, char** words) {
  if (count != 4) {
    std::cerr << "compare_reports: takes a tolerance and two reports\n";
    return 2;
  }
  return Comparison(std::strtod(words[1], nullptr)).same(read(words[2]), read(words[3])) ? 0 : 1;
}

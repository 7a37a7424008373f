// Type encodings, as any library's classes have them: two compared, and one made into a call's shape.
#include <string>

#include "bridge/encoding.hpp"
#include "simulator/serve/call_shape.hpp"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t length) {
  const std::string all(reinterpret_cast<const char*>(bytes), length);
  const std::size_t bar = all.find('|');
  const std::string one = all.substr(0, bar), other = bar == all.npos ? one : all.substr(bar + 1);
  const bool same = bridge::sameShape(one.c_str(), other.c_str());
  if (same != bridge::sameShape(other.c_str(), one.c_str())) __builtin_trap();
  if (!bridge::sameShape(one.c_str(), one.c_str())) __builtin_trap();
  sim::serve::CallShape::make(one.c_str(), [](void*, void*, void**) {}, nullptr);
  return 0;
}

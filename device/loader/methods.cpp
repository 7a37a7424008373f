// Asks every class of the runtime for its own methods.
#include "device/loader/methods.hpp"

#include <cstdlib>

#include "bridge/runtime.hpp"
#include "device/loader/crossings.hpp"

extern "C" int objc_getClassList(Class* classes, int room);

namespace device::loader {
namespace {

// "a::b" of "a::b(int) const".
std::string withoutArguments(const std::string& name) {
  size_t at = name.rfind(')');
  if (at == std::string::npos) return name;
  for (int depth = 0; at > 0; --at) {
    depth += (name[at] == ')') - (name[at] == '(');
    if (depth == 0) break;
  }
  return name.substr(0, at);
}

}  // namespace

Methods::Methods(uintptr_t base, uint64_t size, const Names& names) {
  std::vector<Class> classes(static_cast<size_t>(objc_getClassList(nullptr, 0)));
  objc_getClassList(classes.data(), static_cast<int>(classes.size()));
  for (Class named : classes) {
    for (Class cls : {named, bridge::classOf(reinterpret_cast<id>(named))}) {
      unsigned int count = 0;
      objc_method** methods = class_copyMethodList(cls, &count);
      for (unsigned int i = 0; i < count; ++i) {
        const auto code = reinterpret_cast<uintptr_t>(
            ofSlice(reinterpret_cast<void*>(method_getImplementation(methods[i]))));
        if (code < base || code - base >= size) continue;
        const char* selector = sel_getName(method_getName(methods[i]));
        answers.push_back(
            {std::string(cls == named ? "-[" : "+[") + class_getName(named) + ' ' + selector + ']',
             names.at(code - base)});
      }
      std::free(methods);
    }
  }
}

std::string Methods::answeredBy(const NamedFunction& function) const {
  const std::string inItsName = '&' + withoutArguments(function.name) + ',';
  for (const Answer& answer : answers)
    if (answer.function.start == function.start || answer.function.name.find(inItsName) != std::string::npos)
      return answer.method;
  return {};
}

}  // namespace device::loader

// Asks every class of the runtime for its own methods.
#include "device/loader/methods.hpp"

#include <fmt/format.h>

#include <cstdlib>
#include <memory>
#include <span>

#include "bridge/runtime.hpp"
#include "device/loader/crossings.hpp"

extern "C" int objc_getClassList(Class* classes, int room);

namespace device::loader {
namespace {

// "a::b" of "a::b(int) const".
std::string withoutArguments(const std::string& name) {
  int depth = 0;
  for (size_t at = name.size(); at--;) {
    depth += (name[at] == ')') - (name[at] == '(');
    if (name[at] == '(' && depth == 0) return name.substr(0, at);
  }
  return name;
}

}  // namespace

Methods::Methods(const Place& image, const Names& names) {
  std::vector<Class> classes;
  const auto list = [&] { return objc_getClassList(classes.data(), static_cast<int>(classes.size())); };
  classes.resize(static_cast<size_t>(list()));
  list();
  for (Class named : classes) {
    for (Class cls : {named, bridge::classOf(reinterpret_cast<id>(named))}) {
      unsigned int count = 0;
      const std::unique_ptr<objc_method*, decltype(&std::free)> methods(class_copyMethodList(cls, &count),
                                                                        std::free);
      for (objc_method* method : std::span(methods.get(), count)) {
        const auto code =
            reinterpret_cast<uintptr_t>(ofSlice(reinterpret_cast<void*>(method_getImplementation(method))));
        if (!image.holds(code)) continue;
        answers.push_back({fmt::format("{}[{} {}]", cls == named ? '-' : '+', class_getName(named),
                                       sel_getName(method_getName(method))),
                           names.at(code - image.base)});
      }
    }
  }
}

std::string Methods::answeredBy(const NamedFunction& function) const {
  const std::string inItsName = fmt::format("&{},", withoutArguments(function.name));
  for (const Answer& answer : answers)
    if (answer.function.start == function.start || answer.function.name.contains(inItsName))
      return answer.method;
  return {};
}

}  // namespace device::loader

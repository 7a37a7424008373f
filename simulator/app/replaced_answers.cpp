// For each of the replacements the class has that one for a moment, so that a message of any shape is sent as
// ever.
#include "simulator/app/replaced_answers.hpp"

#include "bridge/runtime.hpp"
#include "simulator/runtime/hooking.hpp"

namespace sim {
namespace {

// Has another implementation for as long as it lives.
class Stead {
 public:
  Stead(Class cls, SEL selector, IMP implementation)
      : cls(cls), method(class_getInstanceMethod(cls, selector)), before(method_getImplementation(method)) {
    bridge::setImplementation(cls, method, implementation);
  }
  ~Stead() { bridge::setImplementation(cls, method, before); }
  Stead(const Stead&) = delete;
  Stead& operator=(const Stead&) = delete;

 private:
  Class cls;
  objc_method* method;
  IMP before;
};

}  // namespace

Json replacedAnswers(bridge::Object target, const std::string& message, std::span<const std::string> words,
                     const Meaning& meaning) {
  const SEL selector = sel_registerName(message.c_str());
  const std::vector<Replacement> replaced = replacementsOf(bridge::classOf(target.raw), selector);
  Json given = Json::array();
  const auto ask = [&](const std::string& by) {
    given.push_back({{"by", by}, {"value", invoke(target, message, words, meaning).value}});
  };
  const auto askAs = [&](const std::string& by, IMP implementation) {
    const Stead stead(replaced.back().cls, selector, implementation);
    ask(by);
  };
  if (replaced.empty())
    ask("SpringBoard");
  else
    askAs("SpringBoard", replaced.front().previous);
  for (const Replacement& each : replaced) askAs(each.library, each.implementation);
  return given;
}

}  // namespace sim

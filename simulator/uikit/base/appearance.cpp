// The appearance proxy. It takes the setters and getters of a class's own properties that are objects, and
// keeps the values; views ask for them. UIKit's own properties are not among them.
#include <fmt/format.h>

#include <cctype>
#include <map>
#include <string>
#include <utility>

#include "bridge/define.hpp"
#include "bridge/runtime.hpp"
#include "platform/uikit/view.hpp"
#include "simulator/uikit/base/exception.hpp"

namespace sim::uikit {
namespace {

struct NSMethodSignature : bridge::Face<"NSMethodSignature", NSObject> {
  MESSAGE Method<"methodReturnType", const char*()> methodReturnType;
  MESSAGE Method<"numberOfArguments", NSUInteger()> numberOfArguments;
  MESSAGE Method<"getArgumentTypeAtIndex:", const char*(NSUInteger)> getArgumentTypeAtIndex;
};

struct NSInvocation : bridge::Face<"NSInvocation", NSObject> {
  MESSAGE Method<"selector", SEL()> selector;
  MESSAGE Method<"methodSignature", NSMethodSignature()> methodSignature;
  MESSAGE Method<"getArgument:atIndex:", void(void*, NSInteger)> getArgument_atIndex;
  MESSAGE Method<"setReturnValue:", void(void*)> setReturnValue;
};

struct Described : bridge::Face<"UIView", UIView> {
  static constexpr bridge::ClassMethod<"UIView",
                                       "instanceMethodSignatureForSelector:", NSMethodSignature(SEL)>
      instanceMethodSignatureForSelector{};
  static constexpr bridge::ClassMethod<"UIView", "appearance", NSObject()> appearance{};
};

struct Appearance : bridge::Face<"_UIAppearance", NSObject> {
  MESSAGE Method<"methodSignatureForSelector:", NSMethodSignature(SEL)> methodSignatureForSelector;
  MESSAGE Method<"forwardInvocation:", void(NSInvocation)> forwardInvocation;
};

struct AppearanceState {
  Class subject = nullptr;
  std::map<std::string, bridge::Strong<NSObject>> values;  // by the name of the getter
};

using AppearanceClass = bridge::Implementation<Appearance, AppearanceState>;

// Made with the first use and kept.
std::map<Class, bridge::Strong<Appearance>>& proxies() {
  static auto& all = *new std::map<Class, bridge::Strong<Appearance>>();
  return all;
}

NSObject appearance(Class self) {
  bridge::Strong<Appearance>& proxy = proxies()[self];
  if (!proxy) {
    proxy = bridge::make<Appearance, &NSObject::init>();
    AppearanceClass::state(proxy).subject = self;
  }
  return proxy.get();
}

// The class that a method comes from.
Class ownerOf(Class cls, SEL selector) {
  const IMP implementation = class_getMethodImplementation(cls, selector);
  for (Class above = class_getSuperclass(cls);
       above && class_getMethodImplementation(above, selector) == implementation &&
       class_getInstanceMethod(above, selector);
       above = class_getSuperclass(cls))
    cls = above;
  return cls;
}

[[noreturn]] void refuse(Class subject, SEL selector) {
  raise("NSInvalidArgumentException"_ns,
        fmt::format("the appearance of {} has no {}", class_getName(subject), sel_getName(selector)));
}

// "setCornerRadius:" sets what "cornerRadius" gets; no text for a selector that sets nothing.
std::string getterOf(std::string selector) {
  if (selector.size() < 5 || !selector.starts_with("set") || selector.back() != ':') return {};
  selector = selector.substr(3, selector.size() - 4);
  selector[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(selector[0])));
  return selector;
}

NSMethodSignature methodSignature(Appearance self, SEL selector) {
  const Class subject = AppearanceClass::state(self).subject;
  if (!class_getInstanceMethod(subject, selector)) refuse(subject, selector);
  const std::string owner = class_getName(ownerOf(subject, selector));
  if (owner.starts_with("UI") || owner.starts_with("NS")) refuse(subject, selector);
  return Described::instanceMethodSignatureForSelector.on(subject, selector);
}

// What is wanted of a class is wanted of its subclasses as well, unless they want something else.
NSObject valueFor(Class subject, const std::string& getter) {
  for (; subject; subject = class_getSuperclass(subject)) {
    const auto proxy = proxies().find(subject);
    if (proxy == proxies().end()) continue;
    const auto& values = AppearanceClass::state(proxy->second).values;
    if (const auto found = values.find(getter); found != values.end()) return found->second;
  }
  return {};
}

void set(Appearance self, NSInvocation invocation, const std::string& getter) {
  id value = nullptr;
  invocation.getArgument_atIndex(&value, 2);
  AppearanceClass::state(self).values[getter] = retained(bridge::as<NSObject>(value));
}

void forwardInvocation(Appearance self, NSInvocation invocation) {
  const NSMethodSignature signature = invocation.methodSignature();
  const std::string name = sel_getName(invocation.selector());
  const std::string getter = getterOf(name);
  const bool returnsObject = *signature.methodReturnType() == '@';
  if (signature.numberOfArguments() == 3 && !getter.empty() && *signature.getArgumentTypeAtIndex(2) == '@')
    return set(self, invocation, getter);
  const Class subject = AppearanceClass::state(self).subject;
  if (signature.numberOfArguments() != 2 || !returnsObject) refuse(subject, invocation.selector());
  id value = valueFor(subject, name).raw;
  invocation.setReturnValue(&value);
}

}  // namespace

void defineAppearance() {
  using bridge::method;
  AppearanceClass::define<NSObject>(method<&Appearance::methodSignatureForSelector, methodSignature>(),
                                    method<&Appearance::forwardInvocation, forwardInvocation>());
  bridge::addMethod(bridge::classNamed<UIView>(), method<&Described::appearance, appearance>());
}

}  // namespace sim::uikit

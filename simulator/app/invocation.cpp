// Words to arguments and results to JSON, by the type encodings of methods.
#include "simulator/app/invocation.hpp"

#include <fmt/format.h>

#include <cstring>
#include <iostream>
#include <vector>

#include "bridge/block.hpp"
#include "platform/dispatch/dispatch.hpp"
#include "platform/foundation/array.hpp"
#include "platform/foundation/dictionary.hpp"
#include "simulator/app/report_values.hpp"
#include "simulator/device/setting.hpp"
#include "simulator/device/usage_error.hpp"

namespace sim {
namespace {

struct NSMethodSignature : bridge::Face<"NSMethodSignature", NSObject> {
  static constexpr bridge::ClassMethod<"NSMethodSignature",
                                       "signatureWithObjCTypes:", NSMethodSignature(const char*)>
      signatureWithObjCTypes{};
  MESSAGE Method<"numberOfArguments", NSUInteger()> numberOfArguments;
  MESSAGE Method<"getArgumentTypeAtIndex:", const char*(NSUInteger)> getArgumentTypeAtIndex;
  MESSAGE Method<"methodReturnType", const char*()> methodReturnType;
  MESSAGE Method<"methodReturnLength", NSUInteger()> methodReturnLength;
};

struct NSInvocation : bridge::Face<"NSInvocation", NSObject> {
  static constexpr bridge::ClassMethod<"NSInvocation",
                                       "invocationWithMethodSignature:", NSInvocation(NSMethodSignature)>
      invocationWithMethodSignature{};
  MESSAGE Method<"setSelector:", void(SEL)> setSelector;
  MESSAGE Method<"setArgument:atIndex:", void(void*, NSInteger)> setArgument_atIndex;
  MESSAGE Method<"invokeWithTarget:", void(bridge::Object)> invokeWithTarget;
  MESSAGE Method<"getReturnValue:", void(void*)> getReturnValue;
};

// Foundation does not know blocks, which travel as any pointer does.
constexpr const char* blockType = "^v";

std::string typesOf(objc_method* method) {
  std::string types = method_getTypeEncoding(method);
  for (std::size_t at; (at = types.find("@?")) != std::string::npos;) types.replace(at, 2, blockType);
  return types;
}

std::string unqualified(const char* type) { return type + std::strspn(type, "rnNoORV"); }

// Calls `visit` with a number of the type that the letter stands for; false for letters of other types.
template <class Visit>
bool withNumber(char letter, const Visit& visit) {
  switch (letter) {
    case 'B':
    case 'C':
      return visit(static_cast<unsigned char>(0)), true;
    case 'c':
      return visit(static_cast<signed char>(0)), true;
    case 's':
      return visit(static_cast<short>(0)), true;
    case 'S':
      return visit(static_cast<unsigned short>(0)), true;
    case 'i':
      return visit(0), true;
    case 'I':
      return visit(0U), true;
    case 'l':
      return visit(0L), true;
    case 'L':
      return visit(0UL), true;
    case 'q':
      return visit(0LL), true;
    case 'Q':
      return visit(0ULL), true;
    case 'f':
      return visit(0.0F), true;
    case 'd':
      return visit(0.0), true;
    default:
      return false;
  }
}

// The letters of a structure's numbers, those of structures in it included: names stand before an equals
// sign.
std::string lettersOf(const std::string& type) {
  std::string letters;
  for (std::size_t i = 0; i < type.size(); ++i) {
    if (type[i] == '{')
      i = type.find('=', i);
    else if (type[i] != '}')
      letters += type[i];
  }
  return letters;
}

[[noreturn]] void misfit(const std::string& word, const std::string& type) {
  throw UsageError(fmt::format("'{}' is nothing of the type '{}'", word, type));
}

// The bytes of an argument.
class Bytes {
 public:
  template <class T>
  void add(T value) {
    while (bytes.size() % alignof(T) != 0) bytes.push_back(0);
    const auto* first = reinterpret_cast<const unsigned char*>(&value);
    bytes.insert(bytes.end(), first, first + sizeof value);
  }
  void addNumber(const std::string& word, char letter, const std::string& type) {
    const SettingValue value = settingValue(word);
    if (std::holds_alternative<std::string>(value)) misfit(word, type);
    const bool isNumber = withNumber(letter, [&]<class T>(T) {
      std::visit(
          [&](const auto& held) {
            if constexpr (std::is_arithmetic_v<std::decay_t<decltype(held)>>) add(static_cast<T>(held));
          },
          value);
    });
    if (!isNumber) misfit(word, type);
  }
  void* data() { return bytes.data(); }

 private:
  std::vector<unsigned char> bytes;
};

std::vector<std::string> parts(const std::string& word) {
  std::vector<std::string> all{""};
  for (const char c : word)
    if (c == ',')
      all.emplace_back();
    else
      all.back() += c;
  return all;
}

// Kept for as long as the process lives, as nobody tells when it has been called for the last time.
void* blockThatPrints(const std::string& word) {
  auto& block = *new bridge::Block<void()>([word] { std::cout << word << std::endl; });
  return block.raw();
}

Bytes argument(const std::string& word, const std::string& type, const Meaning& meaning) {
  Bytes bytes;
  if (type == blockType) {
    bytes.add(word == "nil" ? nullptr : blockThatPrints(word));
  } else if (type[0] == '@') {
    // Queues are objects to the class runtime.
    bytes.add(word == "main-queue" ? reinterpret_cast<id>(&_dispatch_main_q) : meaning(word).raw);
  } else if (type[0] == '#') {
    bytes.add(objc_getClass(word.c_str()));
  } else if (type[0] == ':') {
    bytes.add(word == "nil" ? nullptr : sel_registerName(word.c_str()));
  } else if (type[0] == '^') {
    if (word != "nil") misfit(word, type);
    bytes.add<void*>(nullptr);
  } else if (type[0] == '{') {
    const std::vector<std::string> numbers = parts(word);
    const std::string letters = lettersOf(type);
    if (numbers.size() != letters.size()) misfit(word, type);
    for (std::size_t i = 0; i < letters.size(); ++i) bytes.addNumber(numbers[i], letters[i], type);
  } else {
    bytes.addNumber(word, type[0], type);
  }
  return bytes;
}

Json printable(bridge::Object object) {
  const bool isPlain = bridge::isKindOf<NSString>(object) || bridge::isKindOf<NSNumber>(object);
  if (!object || isPlain) return plain(object);
  if (bridge::isKindOf<NSArray>(object)) {
    Json list = Json::array();
    const auto array = bridge::as<NSArray>(object);
    for (NSUInteger i = 0; i < array.count(); ++i) list.push_back(printable(array.objectAtIndex(i)));
    return list;
  }
  return class_getName(bridge::classOf(object.raw));
}

Json numbers(const std::string& type, const unsigned char* bytes) {
  Json list = Json::array();
  std::size_t at = 0;
  for (const char letter : lettersOf(type))
    withNumber(letter, [&]<class T>(T value) {
      at = (at + alignof(T) - 1) / alignof(T) * alignof(T);
      std::memcpy(&value, bytes + at, sizeof value);
      at += sizeof value;
      if constexpr (std::is_integral_v<T>)
        list.push_back(static_cast<long long>(value));
      else
        list.push_back(number(static_cast<double>(value)));
    });
  return list;
}

Answer answerOf(NSInvocation invocation, NSMethodSignature signature) {
  Answer answer{unqualified(signature.methodReturnType()), {}, nullptr};
  if (answer.type[0] == 'v') return answer;
  std::vector<unsigned char> bytes(signature.methodReturnLength() + sizeof(void*));
  invocation.getReturnValue(bytes.data());
  if (answer.type[0] == '@') {
    std::memcpy(&answer.object.raw, bytes.data(), sizeof(id));
    answer.value = printable(answer.object);
  } else {
    const Json all = numbers(answer.type, bytes.data());
    answer.value = all.size() == 1 ? all[0] : all;
  }
  return answer;
}

}  // namespace

Answer invoke(bridge::Object target, const std::string& message, std::span<const std::string> words,
              const Meaning& meaning) {
  const SEL selector = sel_registerName(message.c_str());
  const Class cls = bridge::classOf(target.raw);
  objc_method* method = class_getInstanceMethod(cls, selector);
  if (!method) throw UsageError(fmt::format("{} has no {}", class_getName(cls), message));
  const auto signature = NSMethodSignature::signatureWithObjCTypes(typesOf(method).c_str());
  if (signature.numberOfArguments() != words.size() + 2)
    throw UsageError(fmt::format("{} takes {} arguments, not {}", message, signature.numberOfArguments() - 2,
                                 words.size()));
  const auto invocation = NSInvocation::invocationWithMethodSignature(signature);
  invocation.setSelector(selector);
  for (std::size_t i = 0; i < words.size(); ++i) {
    Bytes bytes = argument(words[i], unqualified(signature.getArgumentTypeAtIndex(i + 2)), meaning);
    invocation.setArgument_atIndex(bytes.data(), static_cast<NSInteger>(i + 2));
  }
  invocation.invokeWithTarget(target);
  return answerOf(invocation, signature);
}

}  // namespace sim

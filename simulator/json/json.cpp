// JSON values, and their texts by way of nlohmann's library.
#include "simulator/json/json.hpp"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <ostream>
#include <utility>

namespace sim {
namespace {

using Library = nlohmann::ordered_json;

Json fromLibrary(const Library& from) {
  switch (from.type()) {
    case Library::value_t::boolean:
      return from.get<bool>();
    case Library::value_t::number_integer:
      return from.get<std::int64_t>();
    case Library::value_t::number_unsigned:
      return from.get<std::uint64_t>();
    case Library::value_t::number_float:
      return from.get<double>();
    case Library::value_t::string:
      return from.get_ref<const std::string&>();
    case Library::value_t::array: {
      Json all = Json::array();
      for (const Library& item : from) all.push_back(fromLibrary(item));
      return all;
    }
    case Library::value_t::object: {
      Json all = Json::object();
      for (const auto& [key, value] : from.items()) all.items().push_back({key, fromLibrary(value)});
      return all;
    }
    default:
      return nullptr;
  }
}

Library toLibrary(const Json& from) {
  if (from.isBoolean()) return from.get<bool>();
  if (from.isWhole()) {
    // Above the largest signed number, the sign is what tells the two kinds apart.
    if (from < 0) return from.get<std::int64_t>();
    return from.get<std::uint64_t>();
  }
  if (from.isNumber()) return from.get<double>();
  if (from.isString()) return from.get<std::string>();
  if (from.isArray()) {
    Library all = Library::array();
    all.get_ref<Library::array_t&>().reserve(from.size());
    for (const Json& item : from) all.push_back(toLibrary(item));
    return all;
  }
  if (from.isObject()) {
    Library all = Library::object();
    auto& members = all.get_ref<Library::object_t&>();
    members.reserve(from.items().size());  // growing, it would copy all that is below
    for (const auto& [key, value] : from.items()) members.emplace_back(key, toLibrary(value));
    return all;
  }
  return nullptr;
}

const Json::Member* find(const Json::Object& members, std::string_view key) {
  auto found = std::ranges::find(members, key, &Json::Member::key);
  return found == members.end() ? nullptr : &*found;
}

bool isMember(const Json& item) { return item.isArray() && item.size() == 2 && item[0].isString(); }

template <class T, class Value>
T& ofKind(Value& value, const char* name) {
  if (auto* found = std::get_if<std::remove_const_t<T>>(&value)) return *found;
  throw JsonError(std::string("a JSON value is no ") + name);
}

}  // namespace

Json::Json() = default;
Json::Json(std::nullptr_t) {}
Json::Json(Exactly, bool truth) : held(truth) {}
Json::Json(Exactly, std::int64_t number) : held(number) {}
Json::Json(Exactly, std::uint64_t number) : held(number) {}
Json::Json(double number) : held(number) {}
Json::Json(const char* text) : held(std::string(text)) {}
Json::Json(std::string text) : held(std::move(text)) {}
Json::Json(std::string_view text) : held(std::string(text)) {}
Json::Json(Array items) : held(std::move(items)) {}
Json::Json(const std::map<std::string, Json>& members) : held(Object{}) {
  for (const auto& [key, value] : members) items().push_back({key, value});
}
Json::Json(std::initializer_list<Json> items) {
  *this = std::ranges::all_of(items, isMember) ? object(items) : array(items);
}

Json::Json(const Json&) = default;
Json::Json(Json&&) noexcept = default;
Json& Json::operator=(const Json&) = default;
Json& Json::operator=(Json&&) noexcept = default;
Json::~Json() = default;

Json Json::array(std::initializer_list<Json> items) {
  Json made;
  made.held = Array(items);
  return made;
}

Json Json::object(std::initializer_list<Json> members) {
  Json made;
  made.held = Object{};
  for (const Json& member : members)
    if (std::string key = member[0]; !made.contains(key)) made.items().push_back({std::move(key), member[1]});
  return made;
}

Json Json::parse(const std::string& text) {
  try {
    return fromLibrary(Library::parse(text));
  } catch (const Library::exception& error) {
    throw JsonError(error.what());
  }
}

std::optional<Json> Json::read(const std::string& text, int deepest) {
  bool tooDeep = false;
  using Event = Library::parse_event_t;
  // An array or object opens at the depth of what it is in.
  auto depthIsSane = [&](int depth, Event event, Library&) {
    const bool opens = event == Event::array_start || event == Event::object_start;
    tooDeep = tooDeep || depth + opens > deepest;
    return !tooDeep;
  };
  const Library parsed = Library::parse(text, depthIsSane, false);
  if (tooDeep || parsed.is_discarded()) return std::nullopt;
  return fromLibrary(parsed);
}

bool Json::accepts(std::string_view text) { return Library::accept(text); }

std::string Json::dump(int indent, bool ascii) const {
  return toLibrary(*this).dump(indent, ' ', ascii, Library::error_handler_t::replace);
}

bool Json::isWhole() const {
  return std::holds_alternative<std::int64_t>(held) || std::holds_alternative<std::uint64_t>(held);
}

bool Json::truth() const { return ofKind<const bool>(held, "truth value"); }

double Json::real() const {
  if (auto* whole = std::get_if<std::int64_t>(&held)) return static_cast<double>(*whole);
  if (auto* whole = std::get_if<std::uint64_t>(&held)) return static_cast<double>(*whole);
  if (auto* truth = std::get_if<bool>(&held)) return *truth;
  return ofKind<const double>(held, "number");
}

std::int64_t Json::whole() const {
  if (auto* whole = std::get_if<std::int64_t>(&held)) return *whole;
  if (auto* whole = std::get_if<std::uint64_t>(&held)) return static_cast<std::int64_t>(*whole);
  constexpr double beyond = 0x1p63;
  if (const double number = real(); number >= -beyond && number < beyond)
    return static_cast<std::int64_t>(number);
  throw JsonError("a JSON number is beyond all whole numbers");
}

const std::string& Json::text() const { return ofKind<const std::string>(held, "string"); }

std::size_t Json::size() const {
  if (auto* all = std::get_if<Object>(&held)) return all->size();
  if (auto* all = std::get_if<Array>(&held)) return all->size();
  return isNull() ? 0 : 1;
}

bool Json::contains(std::string_view key) const { return isObject() && find(items(), key); }

const Json::Object& Json::items() const { return ofKind<const Object>(held, "object"); }
Json::Object& Json::items() { return ofKind<Object>(held, "object"); }

Json& Json::member(std::string_view key) {
  if (isNull()) held = Object{};
  if (auto* found = find(items(), key)) return const_cast<Json&>(found->value);
  return items().emplace_back(std::string(key), Json()).value;
}

const Json& Json::at(std::string_view key) const {
  if (auto* found = find(items(), key)) return found->value;
  throw JsonError("a JSON object has no \"" + std::string(key) + "\"");
}

Json Json::value(std::string_view key) const { return contains(key) ? at(key) : Json(); }

void Json::erase(std::string_view key) {
  std::erase_if(items(), [&](const Member& member) { return member.key == key; });
}

void Json::update(const Json& other) {
  for (const auto& [key, value] : other.items()) member(key) = value;
}

Json& Json::item(std::size_t position) {
  auto& all = ofKind<Array>(held, "array");
  if (position >= all.size())
    throw JsonError("a JSON array of " + std::to_string(all.size()) + " has no item " +
                    std::to_string(position));
  return all[position];
}

void Json::push_back(Json last) {
  if (isNull()) held = Array{};
  ofKind<Array>(held, "array").push_back(std::move(last));
}

Json* Json::begin() { return isNull() ? nullptr : ofKind<Array>(held, "array").data(); }
Json* Json::end() { return begin() + size(); }
const Json* Json::begin() const { return const_cast<Json*>(this)->begin(); }
const Json* Json::end() const { return begin() + size(); }

Json Json::sorted() const {
  Json copy = *this;
  if (auto* all = std::get_if<Array>(&copy.held))
    for (Json& item : *all) item = item.sorted();
  if (auto* all = std::get_if<Object>(&copy.held)) {
    for (Member& member : *all) member.value = member.value.sorted();
    std::ranges::sort(*all, {}, &Member::key);
  }
  return copy;
}

bool operator==(const Json& one, const Json& other) {
  if (one.isNumber() && other.isNumber()) return (one <=> other) == std::partial_ordering::equivalent;
  return one.held == other.held;
}

std::partial_ordering operator<=>(const Json& one, const Json& other) {
  if (one.isString() && other.isString()) return one.text() <=> other.text();
  if (!one.isNumber() || !other.isNumber()) return std::partial_ordering::unordered;
  if (!one.isWhole() || !other.isWhole()) return one.real() <=> other.real();
  const auto isNegative = [](const Json& json) {
    auto* whole = std::get_if<std::int64_t>(&json.held);
    return whole && *whole < 0;
  };
  if (isNegative(one) != isNegative(other)) return isNegative(other) <=> isNegative(one);
  return static_cast<std::uint64_t>(one.whole()) <=> static_cast<std::uint64_t>(other.whole());
}

std::ostream& operator<<(std::ostream& stream, const Json& json) { return stream << json.dump(); }

}  // namespace sim

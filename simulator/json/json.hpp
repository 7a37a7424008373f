// A JSON value: what the report is made of. Reading and writing texts is a library's work (nlohmann's), which
// json.cpp alone includes: its header costs more to compile than most of our sources.
#pragma once

#include <compare>
#include <concepts>
#include <cstdint>
#include <initializer_list>
#include <iosfwd>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace sim {

/** A value of another kind than was asked for, a key or position that is not there, a text that is no JSON.
 */
struct JsonError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

class Json {
 public:
  /** A key and its value; an object keeps the order in which its keys came. */
  struct Member;
  using Array = std::vector<Json>;
  using Object = std::vector<Member>;

  Json();  // null
  Json(std::nullptr_t);
  Json(double);
  Json(const char*);
  Json(std::string);
  Json(std::string_view);
  Json(const std::map<std::string, Json>&);
  /** An object where every item is an array of two, the first of them a string; else an array. */
  Json(std::initializer_list<Json> items);
  // Exactly a truth value: what converts to one, like a pointer, is something else.
  template <std::same_as<bool> T>
  Json(T truth) : Json(Exactly(), truth) {}
  template <std::signed_integral T>
  Json(T number) : Json(Exactly(), static_cast<std::int64_t>(number)) {}
  template <std::unsigned_integral T>
    requires(!std::same_as<T, bool>)
  Json(T number) : Json(Exactly(), static_cast<std::uint64_t>(number)) {}
  template <class T>
  Json(const std::vector<T>& items) : Json(Array(items.begin(), items.end())) {}
  template <class T, std::size_t count>
    requires(!std::same_as<T, char>)
  Json(const T (&items)[count]) : Json(Array(items, items + count)) {}
  Json(Array items);

  Json(const Json&);
  Json(Json&&) noexcept;
  Json& operator=(const Json&);
  Json& operator=(Json&&) noexcept;
  ~Json();

  static Json array(std::initializer_list<Json> items = {});
  static Json object(std::initializer_list<Json> members = {});

  /** Throws JsonError for a text that is no JSON. */
  static Json parse(const std::string& text);
  /** None for a text that is no JSON, or nested deeper than `deepest`. */
  static std::optional<Json> read(const std::string& text, int deepest = 1000);
  static bool accepts(std::string_view text);

  /** One line; with an indent (in blanks) a line an item. Bytes that are no UTF-8 become U+FFFD. */
  std::string dump(int indent = -1, bool ascii = false) const;

  bool isNull() const { return std::holds_alternative<std::nullptr_t>(held); }
  bool isBoolean() const { return std::holds_alternative<bool>(held); }
  bool isWhole() const;
  bool isNumber() const { return isWhole() || std::holds_alternative<double>(held); }
  bool isString() const { return std::holds_alternative<std::string>(held); }
  bool isArray() const { return std::holds_alternative<Array>(held); }
  bool isObject() const { return std::holds_alternative<Object>(held); }

  /** The value as a number, truth or string; JsonError when it is none. */
  template <class T>
  T get() const {
    if constexpr (std::same_as<T, bool>)
      return truth();
    else if constexpr (std::floating_point<T>)
      return static_cast<T>(real());
    else if constexpr (std::integral<T>)
      return static_cast<T>(whole());
    else
      return T(text());
  }
  template <class T>
    requires std::floating_point<T> || std::integral<T> || std::same_as<T, std::string>
  operator T() const {
    return get<T>();
  }
  template <class T>
  operator std::vector<T>() const {
    return {begin(), end()};
  }

  // Of an array or object; null has no items.
  std::size_t size() const;
  bool empty() const { return size() == 0; }
  bool contains(std::string_view key) const;
  const Object& items() const;
  Object& items();
  /** Where there is no such key, null is put there, and null becomes an object. */
  Json& operator[](const char* key) { return member(key); }
  Json& operator[](const std::string& key) { return member(key); }
  const Json& operator[](const char* key) const { return at(key); }
  const Json& operator[](const std::string& key) const { return at(key); }
  const Json& at(std::string_view key) const;
  /** Null where there is no such key. */
  Json value(std::string_view key) const;
  void erase(std::string_view key);
  /** Takes over the other object's members. */
  void update(const Json& other);

  template <std::integral T>
  Json& operator[](T position) {
    return item(static_cast<std::size_t>(position));
  }
  template <std::integral T>
  const Json& operator[](T position) const {
    return const_cast<Json*>(this)->item(static_cast<std::size_t>(position));
  }
  Json& front() { return item(0); }
  Json& back() { return item(size() - 1); }
  const Json& back() const { return const_cast<Json*>(this)->back(); }
  /** Null becomes an array. */
  void push_back(Json last);
  // The items of an array; nothing of null. An object is gone through by `items`.
  Json* begin();
  Json* end();
  const Json* begin() const;
  const Json* end() const;

  /** With all keys in alphabetical order, at every depth: for comparing what has no order. */
  Json sorted() const;

  /** Numbers are equal when their values are, whatever their kinds; objects, when their orders are too. */
  friend bool operator==(const Json& one, const Json& other);
  /** Numbers by value, strings by bytes; all else has no order. */
  friend std::partial_ordering operator<=>(const Json& one, const Json& other);
  template <class T>
    requires std::integral<T> || std::floating_point<T>
  friend bool operator==(const Json& one, T other) {
    return one == Json(other);
  }
  template <class T>
    requires std::integral<T> || std::floating_point<T>
  friend std::partial_ordering operator<=>(const Json& one, T other) {
    return one <=> Json(other);
  }
  friend std::ostream& operator<<(std::ostream& stream, const Json& json);

 private:
  struct Exactly {};
  Json(Exactly, bool truth);
  Json(Exactly, std::int64_t number);
  Json(Exactly, std::uint64_t number);
  bool truth() const;
  double real() const;
  std::int64_t whole() const;
  const std::string& text() const;
  Json& member(std::string_view key);
  Json& item(std::size_t position);

  std::variant<std::nullptr_t, bool, std::int64_t, std::uint64_t, double, std::string, Array, Object> held;
};

struct Json::Member {
  std::string key;
  Json value;
  bool operator==(const Member&) const = default;
};

}  // namespace sim

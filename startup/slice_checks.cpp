// What each slice takes for granted about widths and encodings, checked when it is compiled. Nothing here
// runs.
#include <cstddef>

#include "bridge/encoding.hpp"
#include "platform/coregraphics/encoding.hpp"
#include "startup/grid/geometry.hpp"

namespace {

constexpr bool wide = sizeof(void*) == 8;

template <size_t Size>
consteval bool is(const bridge::Name<Size>& encoding, const char* expected) {
  for (size_t i = 0; i < Size; ++i)
    if (encoding.text[i] != expected[i]) return false;
  return true;
}

template <class T>
consteval bool encodes(const char* onWide, const char* onNarrow) {
  return is(bridge::Encoding<T>::text, wide ? onWide : onNarrow);
}

static_assert(sizeof(CGFloat) == sizeof(void*));
static_assert(sizeof(framing) == 4 * sizeof(CGFloat));
static_assert(alignof(decltype(framing)) == alignof(CGFloat));

// SpringBoard's counts are as wide as a pointer, those of the geometry engine 32 bits.
static_assert(sizeof(NSInteger) == sizeof(void*) && sizeof(NSUInteger) == sizeof(void*));
static_assert(sizeof(iconGridCalc(nullptr, nullptr, 0)) == 4);
static_assert(sizeof(tilo::numOfPages) == 4);
static_assert(sizeof(BOOL) == 1);

static_assert(encodes<CGFloat>("d", "f") && !encodes<CGFloat>("q", "i"));
static_assert(encodes<NSInteger>("q", "i"));
static_assert(encodes<NSUInteger>("Q", "I"));
static_assert(encodes<CGPoint>("{CGPoint=dd}", "{CGPoint=ff}"));
static_assert(encodes<CGRect>("{CGRect={CGPoint=dd}{CGSize=dd}}", "{CGRect={CGPoint=ff}{CGSize=ff}}"));
static_assert(encodes<float>("f", "f") && encodes<double>("d", "d") && encodes<int>("i", "i"));
static_assert(is(bridge::methodTypes<NSUInteger, NSInteger>, wide ? "Q@:q" : "I@:i"));
static_assert(is(bridge::methodTypes<void, bridge::Object, bridge::Object>, "v@:@@"));

}  // namespace

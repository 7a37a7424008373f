// How large keyboards are.
#include "simulator/uikit/text/keyboard_size.hpp"

#include "simulator/uikit/base/configuration.hpp"

namespace sim::uikit {
namespace {

struct Size {
  CGSize screen;  // upright; zero stands for any
  KeyboardSize portrait, landscape;
};

constexpr Size phones[] = {
    {{414, 736}, {226, 0}, {162, 0}}, {{375, 812}, {291, 75}, {200, 38}}, {{0, 0}, {216, 0}, {162, 0}}};
constexpr Size tablets[] = {{{1024, 1366}, {328, 0}, {423, 0}}, {{0, 0}, {264, 0}, {352, 0}}};

template <std::size_t N>
KeyboardSize sizeIn(const Size (&sizes)[N]) {
  const CGSize screen = configuration().size;
  std::size_t at = 0;
  while (at + 1 < N && !(sizes[at].screen == screen)) ++at;
  return isLandscape(configuration().orientation) ? sizes[at].landscape : sizes[at].portrait;
}

}  // namespace

KeyboardSize keyboardSize() { return hasTabletKeyboard() ? sizeIn(tablets) : sizeIn(phones); }
bool hasTabletKeyboard() { return configuration().idiom == 1; }

}  // namespace sim::uikit

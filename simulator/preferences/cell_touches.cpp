// A row is grey while a finger rests on it. A tap on it is its controller's.
#include <utility>

#include "simulator/preferences/cell_state.hpp"
#include "simulator/preferences/list_controller.hpp"
#include "simulator/preferences/look.hpp"

namespace sim::preferences {
namespace {

constexpr double fadingTime = 0.3;  // seconds

void fade(PSTableCell self) {
  UIView::animateWithDuration_animations(
      fadingTime, bridge::Block<void()>([cell = bridge::retained(self)] { setSelected(cell, false); }));
}

}  // namespace

void setSelected(PSTableCell cell, bool selected) {
  CellClass::state(cell).selected = selected;
  CellClass::state(cell).shade->alpha.set(selected ? 1 : 0);
}

void deselect(PSTableCell cell) {
  if (CellClass::state(cell).selected) fade(cell);
}

bool isTouchable(Cell kind) { return kind != Cell::onOff && kind != Cell::slider && kind != Cell::text; }

// What is done may take the row off the page. The row of another page stays as it is until that page is left.
void tapped(CellFace self, UIGestureRecognizer) {
  const auto kept = bridge::retained(self);
  CellState& state = CellClass::state(self);
  const bridge::Strong<PSSpecifier> row = state.specifier;
  state.touched = false;
  setSelected(self, true);
  select(state.controller, row);
  const Cell kind = rowOf(row).cell;
  if (kind != Cell::link && kind != Cell::linkList) fade(self);
}

// The page waits with telling of a finger that may be about to scroll.
void touchesBegan(CellFace self, NSSet, UIEvent) {
  CellState& state = CellClass::state(self);
  if (state.selected || !isTouchable(rowOf(state.specifier).cell)) return;
  state.touched = true;
  setSelected(self, true);
}
void touchesGone(CellFace self, NSSet, UIEvent) {
  if (std::exchange(CellClass::state(self).touched, false)) setSelected(self, false);
}

}  // namespace sim::preferences

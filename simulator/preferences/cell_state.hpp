// What a row consists of, and what fingers do to it.
#pragma once

#include "bridge/define.hpp"
#include "platform/uikit/gesture_recognizer.hpp"
#include "platform/uikit/label.hpp"
#include "simulator/preferences/specifier.hpp"
#include "simulator/preferences/table_cell.hpp"

namespace sim::preferences {

struct CellFace : bridge::Face<"PSTableCell", PSTableCell> {
  MESSAGE Method<"sim_tapped:", void(UIGestureRecognizer)> tapped;
  MESSAGE Method<"sim_changed:", void(UIControl)> changed;
};

struct CellState {
  bridge::Strong<PSSpecifier> specifier;
  PSListController controller;                           // which its page's cells do not outlive
  bridge::Strong<UIView> content, shade, control, mark;  // the shade makes a row grey
  bridge::Strong<UILabel> text, detail;
  bool touched = false, selected = false;
};

using CellClass = bridge::Implementation<PSTableCell, CellState>;

/** Whether a tap on such a row does something. */
bool isTouchable(Cell kind);

void touchesBegan(CellFace self, NSSet touches, UIEvent event);
void touchesGone(CellFace self, NSSet touches, UIEvent event);
void tapped(CellFace self, UIGestureRecognizer recognizer);

}  // namespace sim::preferences

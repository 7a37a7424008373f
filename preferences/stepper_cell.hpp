// TiloStepperCell: a row with a count, and a stepper at its right end.
#pragma once

namespace tilo::pane {

void defineStepperCell();

}  // namespace tilo::pane

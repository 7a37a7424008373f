// TiloColorsController: a list of choices that are colours, each shown beside its name.
#pragma once

namespace tilo::pane {

void defineColorsController();

}  // namespace tilo::pane

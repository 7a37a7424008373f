// The methods added to SBIconScrollView.
#include "hooks/scroll_view.hpp"

#include "startup/relayout.hpp"

namespace tilo::hooks {

void layout(SBIconScrollView, bridge::Object) { layoutIcons(false); }

}  // namespace tilo::hooks

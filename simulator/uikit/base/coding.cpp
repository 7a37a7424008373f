// What is archived of a view.
#include "simulator/uikit/base/coding.hpp"

#include "platform/uikit/color.hpp"
#include "simulator/uikit/base/exception.hpp"

namespace sim::uikit {
namespace {

void encodeRect(NSCoder coder, const CGRect& rect) {
  coder.encodeDouble_forKey(rect.origin.x, "UIBoundsX"_ns);
  coder.encodeDouble_forKey(rect.origin.y, "UIBoundsY"_ns);
  coder.encodeDouble_forKey(rect.size.width, "UIBoundsWidth"_ns);
  coder.encodeDouble_forKey(rect.size.height, "UIBoundsHeight"_ns);
}

CGRect decodeRect(NSCoder coder) {
  return {{coder.decodeDoubleForKey("UIBoundsX"_ns), coder.decodeDoubleForKey("UIBoundsY"_ns)},
          {coder.decodeDoubleForKey("UIBoundsWidth"_ns), coder.decodeDoubleForKey("UIBoundsHeight"_ns)}};
}

}  // namespace

void encodeView(UIView view, NSCoder coder) {
  if (view.subviews().count() > 0)
    raise("NSInvalidArchiveOperationException"_ns, "views with subviews cannot be archived");
  encodeLooks(view, coder);
}

void encodeLooks(UIView view, NSCoder coder) {
  encodeRect(coder, view.bounds());
  coder.encodeDouble_forKey(view.center().x, "UICenterX"_ns);
  coder.encodeDouble_forKey(view.center().y, "UICenterY"_ns);
  coder.encodeDouble_forKey(view.alpha(), "UIAlpha"_ns);
  coder.encodeInteger_forKey(view.hidden(), "UIHidden"_ns);
  coder.encodeInteger_forKey(view.opaque(), "UIOpaque"_ns);
  coder.encodeInteger_forKey(view.clipsToBounds(), "UIClipsToBounds"_ns);
  coder.encodeInteger_forKey(view.userInteractionEnabled(), "UIUserInteractionEnabled"_ns);
  coder.encodeInteger_forKey(static_cast<NSInteger>(view.autoresizingMask()), "UIAutoresizingMask"_ns);
  coder.encodeInteger_forKey(view.contentMode(), "UIContentMode"_ns);
  coder.encodeInteger_forKey(view.tag(), "UITag"_ns);
  coder.encodeObject_forKey(view.backgroundColor(), "UIBackgroundColor"_ns);
}

void decodeView(UIView view, NSCoder coder) {
  view.bounds.set(decodeRect(coder));
  view.center.set({coder.decodeDoubleForKey("UICenterX"_ns), coder.decodeDoubleForKey("UICenterY"_ns)});
  view.alpha.set(coder.decodeDoubleForKey("UIAlpha"_ns));
  view.hidden.set(coder.decodeIntegerForKey("UIHidden"_ns) != 0);
  view.opaque.set(coder.decodeIntegerForKey("UIOpaque"_ns) != 0);
  view.clipsToBounds.set(coder.decodeIntegerForKey("UIClipsToBounds"_ns) != 0);
  view.userInteractionEnabled.set(coder.decodeIntegerForKey("UIUserInteractionEnabled"_ns) != 0);
  view.autoresizingMask.set(static_cast<NSUInteger>(coder.decodeIntegerForKey("UIAutoresizingMask"_ns)));
  view.contentMode.set(coder.decodeIntegerForKey("UIContentMode"_ns));
  view.tag.set(coder.decodeIntegerForKey("UITag"_ns));
  view.backgroundColor.set(bridge::as<UIColor>(coder.decodeObjectForKey("UIBackgroundColor"_ns)));
}

}  // namespace sim::uikit

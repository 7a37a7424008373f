// Archiving of views.
#pragma once

#include "platform/foundation/string.hpp"
#include "platform/uikit/view.hpp"

namespace sim::uikit {

struct NSCoder : bridge::Face<"NSCoder", NSObject> {
  MESSAGE Method<"encodeObject:forKey:", void(bridge::Object, NSString)> encodeObject_forKey;
  MESSAGE Method<"encodeInteger:forKey:", void(NSInteger, NSString)> encodeInteger_forKey;
  MESSAGE Method<"encodeDouble:forKey:", void(double, NSString)> encodeDouble_forKey;
  MESSAGE Method<"decodeObjectForKey:", bridge::Object(NSString)> decodeObjectForKey;
  MESSAGE Method<"decodeIntegerForKey:", NSInteger(NSString)> decodeIntegerForKey;
  MESSAGE Method<"decodeDoubleForKey:", double(NSString)> decodeDoubleForKey;
};

/** The messages of what can be archived. */
struct Coding : bridge::Face<"UIView", UIView> {
  MESSAGE Method<"encodeWithCoder:", void(NSCoder)> encodeWithCoder;
  MESSAGE Method<"initWithCoder:", UIView(NSCoder)> initWithCoder;
};

/** Archives a view; raises for one with subviews, which the simulator does not archive. */
void encodeView(UIView view, NSCoder coder);
/** Archives a view without regard to subviews, for classes that make their own anew. */
void encodeLooks(UIView view, NSCoder coder);
/** Takes over what encodeLooks archived. */
void decodeView(UIView view, NSCoder coder);

}  // namespace sim::uikit

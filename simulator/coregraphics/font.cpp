// Making fonts of bytes.
#include "simulator/coregraphics/font.hpp"

#include "simulator/runtime/export.hpp"

SIMULATOR_EXPORT CGDataProvider* CGDataProviderCreateWithCFData(id data) {
  return data ? new CGDataProvider{bridge::retained(bridge::as<NSData>(data))} : nullptr;
}

SIMULATOR_EXPORT void CGDataProviderRelease(CGDataProvider* provider) {
  if (provider && --provider->references == 0) delete provider;
}

SIMULATOR_EXPORT CGFont* CGFontCreateWithDataProvider(CGDataProvider* provider) {
  if (!provider) return nullptr;
  const NSData data = provider->data;
  auto file = sim::FontFile::read({static_cast<const std::byte*>(data.bytes()), data.length()});
  return file ? new CGFont{std::move(file)} : nullptr;
}

SIMULATOR_EXPORT void CGFontRelease(CGFont* font) {
  if (font && --font->references == 0) delete font;
}

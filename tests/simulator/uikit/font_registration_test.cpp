// Fonts made of bytes and registered with the process, once in its life: each test wants a process of its
// own.
#include <fstream>
#include <iterator>

#include "platform/corefoundation/error.hpp"
#include "platform/coretext/font_manager.hpp"
#include "platform/uikit/label.hpp"
#include "simulator/uikit/text/font.hpp"
#include "tests/simulator/uikit/canvas.hpp"

namespace test {
namespace {

constexpr const char* iconFile = "/usr/share/fonts/truetype/font-awesome/fontawesome-webfont.ttf";

struct MadeData : bridge::Face<"NSData", NSObject> {
  static constexpr bridge::ClassMethod<"NSData", "dataWithBytes:length:", NSObject(const void*, NSUInteger)>
      dataWithBytes_length{};
};

std::string bytesOf(const char* file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

// The caller releases it.
CGFont* fontOf(const std::string& bytes) {
  CGDataProvider* provider =
      CGDataProviderCreateWithCFData(MadeData::dataWithBytes_length(bytes.data(), bytes.size()).raw);
  CGFont* font = CGFontCreateWithDataProvider(provider);
  CGDataProviderRelease(provider);
  return font;
}

class FontRegistration : public Canvas {
 protected:
  ~FontRegistration() override { CGFontRelease(font); }

  // What is drawn of an icon in a font of that name, or the system's where there is none.
  double inkOfIcon(NSString name) {
    auto label = make<UILabel, &UIView::initWithFrame>(CGRect{{0, 0}, {100, 100}});
    label->text.set(NSString::stringWithUTF8String("\uf111"));  // a disc
    const UIFont named = UIFont::fontWithName_size(name, 60);
    label->font.set(named ? named : UIFont::systemFontOfSize(60));
    label->drawRect(label->bounds());
    return ink();
  }

  CGFont* font = fontOf(bytesOf(iconFile));
};

TEST_F(FontRegistration, MakesAFontKnownByItsName) {
  EXPECT_FALSE(UIFont::fontWithName_size("FontAwesome"_ns, 20));
  ASSERT_TRUE(CTFontManagerRegisterGraphicsFont(font, nullptr));
  const UIFont known = UIFont::fontWithName_size("FontAwesome"_ns, 20);
  ASSERT_TRUE(known);
  EXPECT_STREQ(known.fontName().UTF8String(), "FontAwesome");
}

TEST_F(FontRegistration, MakesItsGlyphsVisible) {
  ASSERT_TRUE(CTFontManagerRegisterGraphicsFont(font, nullptr));
  EXPECT_GT(inkOfIcon("FontAwesome"_ns), 1500) << "a disc of 50 points";
}

TEST_F(FontRegistration, IsNeededForItsGlyphs) {
  EXPECT_LT(inkOfIcon("FontAwesome"_ns), 800) << "the sign for what is missing";
}

TEST_F(FontRegistration, OutlivesTheFontObject) {
  ASSERT_TRUE(CTFontManagerRegisterGraphicsFont(font, nullptr));
  CGFontRelease(font);
  font = nullptr;
  EXPECT_GT(inkOfIcon("FontAwesome"_ns), 1500);
}

TEST_F(FontRegistration, FailsTheSecondTime) {
  ASSERT_TRUE(CTFontManagerRegisterGraphicsFont(font, nullptr));
  CGFont* again = fontOf(bytesOf(iconFile));
  id error = nullptr;
  EXPECT_FALSE(CTFontManagerRegisterGraphicsFont(again, &error));
  EXPECT_FALSE(CTFontManagerRegisterGraphicsFont(again, nullptr));
  ASSERT_TRUE(error);
  auto text = bridge::adopt<NSString>(CFErrorCopyDescription(error));
  // confirmed: kCTFontManagerErrorAlreadyRegistered
  EXPECT_NE(std::string(text->UTF8String()).find("error 105"), std::string::npos) << text->UTF8String();
  EXPECT_NE(std::string(text->UTF8String()).find("already registered"), std::string::npos);
  CFRelease(error);
  CGFontRelease(again);
}

TEST_F(FontRegistration, OfNothingFails) {
  id error = nullptr;
  EXPECT_FALSE(CTFontManagerRegisterGraphicsFont(nullptr, &error));
  ASSERT_TRUE(error);
  CFRelease(error);
}

TEST_F(FontRegistration, KnowsNoFontInOtherBytes) {
  EXPECT_FALSE(fontOf(""));
  EXPECT_FALSE(fontOf("this is no font"));
  EXPECT_FALSE(fontOf(bytesOf(iconFile).substr(0, 100)));
  EXPECT_FALSE(CGDataProviderCreateWithCFData(nullptr));
  EXPECT_FALSE(CGFontCreateWithDataProvider(nullptr));
  CGDataProviderRelease(nullptr);
  CGFontRelease(nullptr);
}

TEST_F(FontRegistration, LeavesLettersToTheSystemFont) {
  ASSERT_TRUE(CTFontManagerRegisterGraphicsFont(font, nullptr));
  auto icons = make<UILabel, &UIView::initWithFrame>(CGRect{}),
       plain = make<UILabel, &UIView::initWithFrame>(CGRect{});
  icons->font.set(UIFont::fontWithName_size("FontAwesome"_ns, 17));
  icons->text.set("Add"_ns);
  plain->text.set("Add"_ns);
  EXPECT_EQ(icons->sizeThatFits({}).width, plain->sizeThatFits({}).width);
}

}  // namespace
}  // namespace test

// The home screen right after installing: that of the system, on every model.
#include "phone.hpp"

namespace {

using namespace package::test;

struct Model {
  const char* device;
  Lines names;  // as uname -m has them
};

const Model models[] = {
    {"iPhone 4s", {"iPhone4,1"}},
    {"iPhone 5", {"iPhone5,1", "iPhone5,2"}},
    {"iPhone 5c", {"iPhone5,3", "iPhone5,4"}},
    {"iPhone 5s", {"iPhone6,1", "iPhone6,2"}},
    {"iPhone 6", {"iPhone7,2"}},
    {"iPhone 6 Plus", {"iPhone7,1"}},
    {"iPhone 6s", {"iPhone8,1"}},
    {"iPhone 6s Plus", {"iPhone8,2"}},
    {"iPhone SE", {"iPhone8,4"}},
    {"iPhone 7", {"iPhone9,1", "iPhone9,3"}},
    {"iPhone 7 Plus", {"iPhone9,2", "iPhone9,4"}},
    {"iPhone 8", {"iPhone10,1", "iPhone10,4"}},
    {"iPhone 8 Plus", {"iPhone10,2", "iPhone10,5"}},
    {"iPhone X", {"iPhone10,3", "iPhone10,6"}},
    {"iPod touch 5", {"iPod5,1"}},
    {"iPod touch 6", {"iPod7,1"}},
    {"iPad 2", {"iPad2,1", "iPad2,2", "iPad2,3", "iPad2,4"}},
    {"iPad mini 1", {"iPad2,5", "iPad2,6", "iPad2,7"}},
    {"iPad 3", {"iPad3,1", "iPad3,2", "iPad3,3"}},
    {"iPad 4", {"iPad3,4", "iPad3,5", "iPad3,6"}},
    {"iPad Air", {"iPad4,1", "iPad4,2", "iPad4,3"}},
    {"iPad mini 2", {"iPad4,4", "iPad4,5", "iPad4,6"}},
    {"iPad mini 3", {"iPad4,7", "iPad4,8", "iPad4,9"}},
    {"iPad Air 2", {"iPad5,3", "iPad5,4"}},
    {"iPad mini 4", {"iPad5,1", "iPad5,2"}},
    {"iPad Pro (9.7-inch)", {"iPad6,3", "iPad6,4"}},
    {"iPad 5", {"iPad6,11", "iPad6,12"}},
    {"iPad 6", {"iPad7,5", "iPad7,6"}},
    {"iPad Pro (12.9-inch)", {"iPad6,7", "iPad6,8"}},
    {"iPad Pro (12.9-inch) 2", {"iPad7,1", "iPad7,2"}},
    {"iPad Pro (10.5-inch)", {"iPad7,3", "iPad7,4"}},
};

// The answers of the pages and the places of their icons, a line each.
Lines pages(const std::string& options) {
  return must(
      fmt::format("'{}/tilo-sim' {} --report - | jq -c '.pages[] | del(.icons[].label)'", BUILD, options));
}

void forgetLayouts(const Phone& phone) { fs::remove_all(phone.path("/var/mobile")); }

TEST(FirstLook, KnowsEveryModelOfTheCatalogue) {
  Lines known;
  for (const Model& model : models) known.emplace_back(model.device);
  Folder folder;
  must(fmt::format("'{}/tilo-sim' --list-devices --report '{}'", BUILD, folder / "devices.json"));
  Lines listed = must(fmt::format("jq -r '.[].name' '{}'", folder / "devices.json"));
  std::ranges::sort(known);
  std::ranges::sort(listed);
  EXPECT_EQ(known, listed);
}

TEST(FirstLook, IsTheSystemsOnEveryModel) {
  Folder made;
  Phone phone;
  phone.install(madePackage(made));
  for (const Model& model : models) {
    forgetLayouts(phone);
    phone.be(model.names.front());
    phone.configure();
    const std::string device = fmt::format("--device '{}'", model.device);
    const Lines installed = pages(fmt::format("{} --root '{}' --installed", device, phone.root));
    EXPECT_EQ(installed.size(), 3u) << model.device;
    EXPECT_TRUE(installed == pages(device + " --stock")) << model.device;
  }
}

TEST(FirstLook, IsTheSameByEveryNameOfAModel) {
  Phone phone;
  for (const Model& model : models) {
    std::string first;
    for (const std::string& name : model.names) {
      forgetLayouts(phone);
      phone.be(name);
      phone.configure();
      const std::string layout = contents(phone.path(presetsPath));
      if (first.empty()) first = layout;
      EXPECT_EQ(layout, first) << name;
      EXPECT_NE(layout.find("\"configurable\":1"), std::string::npos) << name;
    }
  }
}

TEST(FirstLook, IsALayoutOfTheSavedKind) {
  Phone phone;
  phone.configure();
  EXPECT_EQ(must(fmt::format("jq -c '[keys, (.configurations[0] | keys, (.configuration | keys))]' '{}'",
                             phone.path(presetsPath))),
            Lines{R"([["configurations"],["configurable","configuration","name","value"],)"
                  R"(["horizontal_padding","side_inset","top_inset","vertical_padding"]])"});
}

// The mean and the greatest distance of an icon from its place in the system, in points, as the page on
// installing tells them.
std::string distances(const Phone& phone, const std::string& device) {
  const auto frames = [&](const std::string& options) {
    return must(fmt::format(
                    "'{}/tilo-sim' --pages 1 --device '{}' {} --report - | jq -c '[.pages[0].icons[].frame]'",
                    BUILD, device, options))
        .front();
  };
  return must(fmt::format("jq -rn --argjson a '{}' --argjson b '{}' '[[$a, $b] | transpose[] | ((.[0][0] - "
                          ".[1][0]) | . * .) + "
                          "((.[0][1] - .[1][1]) | . * .) | sqrt] | [add / length, max] | map(round | "
                          "tostring) | join(\" | \")'",
                          frames(fmt::format("--root '{}' --installed", phone.root)), frames("--stock")))
      .front();
}

TEST(FirstLook, OfAnUnknownModelIsAsNearAsThePageSays) {
  Folder made;
  Phone phone("iPhone99,1");
  phone.install(madePackage(made));
  EXPECT_NE(contents(phone.path(presetsPath)).find("\"configurable\":0"), std::string::npos);
  const std::string page = contents(fmt::format("{}/docs/install.md", SOURCE));
  for (const char* device : {"iPhone 4s", "iPhone SE", "iPhone 7", "iPhone 7 Plus", "iPhone X", "iPad 2",
                             "iPad Air 2", "iPad Pro (10.5-inch)", "iPad Pro (12.9-inch)"}) {
    const std::string row = fmt::format("\n| {} | {} |\n", device, distances(phone, device));
    EXPECT_NE(page.find(row), std::string::npos) << row;
  }
}

}  // namespace

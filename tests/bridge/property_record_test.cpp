// What the runtime knows of our classes beside their methods: records of their properties, and protocols.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "bridge/define.hpp"
#include "platform/coregraphics/encoding.hpp"
#include "platform/foundation/string.hpp"
#include "simulator/runtime/protocols.hpp"

extern "C" {
struct objc_property;
objc_property** class_copyPropertyList(Class cls, unsigned int* count);
objc_property* class_getProperty(Class cls, const char* name);
const char* property_getName(objc_property* property);
const char* property_getAttributes(objc_property* property);
}

namespace {

using bridge::Strong;

struct Listener : bridge::Protocol<"RecordTestListener"> {
  MESSAGE Method<"heard", void()> heard;
};
struct Speaker : bridge::Protocol<"RecordTestSpeaker"> {};
struct Unknown : bridge::Protocol<"RecordTestUnknown"> {};

struct Radio : bridge::Face<"RecordTestRadio", NSObject> {
  MESSAGE Property<"station", NSString> station;
  MESSAGE Property<"loudness", float> loudness;
  MESSAGE Property<"on", BOOL> on;
  MESSAGE Property<"presets", NSInteger> presets;
  MESSAGE Property<"size", CGSize> size;
  MESSAGE Property<"anything", bridge::Object> anything;
  MESSAGE Property<"listener", Listener> listener;
  MESSAGE Property<"whenHeard", bridge::BlockRef<void()>> whenHeard;
  MESSAGE Property<"note", NSString> note;
  MESSAGE Method<"conformsToProtocol:", BOOL(objc_protocol*)> conformsToProtocol;
};
struct RadioState {
  Strong<NSString> station, note;
  float loudness = 0;
  BOOL on = NO;
  NSInteger presets = 0;
  CGSize size{};
  Strong<bridge::Object> anything;
  Listener listener;
  bridge::Block<void()> whenHeard;
};
using RadioClass = bridge::Implementation<Radio, RadioState>;

bridge::BlockRef<void()> whenHeard(Radio self) { return RadioClass::state(self).whenHeard; }
void setWhenHeard(Radio self, bridge::BlockRef<void()> block) {
  RadioClass::state(self).whenHeard = bridge::Block<void()>(block);
}
NSString note(Radio self) { return RadioClass::state(self).note; }
void setNote(Radio self, NSString text) { RadioClass::state(self).note = retained(text); }

struct CarRadio : bridge::Face<"RecordTestCarRadio", Radio> {
  MESSAGE Property<"fuse", int> fuse;
  MESSAGE Property<"playing", BOOL, "isPlaying"> playing;
};
struct CarState {
  int fuse = 0;
  BOOL playing = NO;
};
using CarClass = bridge::Implementation<CarRadio, CarState>;

void defineRadios() {
  using State = RadioState;
  sim::declareProtocols({"RecordTestListener", "RecordTestSpeaker"});
  RadioClass::define<NSObject>(bridge::adopts<Listener>(), bridge::adopts<Unknown>(),
                               RadioClass::property<&Radio::station, &State::station>(),
                               RadioClass::property<&Radio::loudness, &State::loudness>(),
                               RadioClass::property<&Radio::on, &State::on>(),
                               RadioClass::property<&Radio::presets, &State::presets>(),
                               RadioClass::property<&Radio::size, &State::size>(),
                               RadioClass::property<&Radio::anything, &State::anything>(),
                               RadioClass::property<&Radio::listener, &State::listener>(),
                               bridge::property<&Radio::whenHeard, whenHeard, setWhenHeard>(),
                               bridge::property<&Radio::note, note, setNote>(bridge::Keeping::copied, true));
  CarClass::define<Radio>(CarClass::property<&CarRadio::fuse, &CarState::fuse>(),
                          CarClass::property<&CarRadio::playing, &CarState::playing>());
}

std::vector<std::string> namesOf(Class cls) {
  unsigned int count = 77;
  objc_property** list = class_copyPropertyList(cls, &count);
  std::vector<std::string> names;
  for (unsigned int i = 0; i < count; ++i) names.push_back(property_getName(list[i]));
  std::free(list);
  return names;
}

std::string attributes(const char* name, Class cls = RadioClass::cls) {
  objc_property* found = class_getProperty(cls, name);
  return found ? property_getAttributes(found) : "none";
}

TEST(PropertyRecords, AreThoseOfTheClassInTheOrderOfItsTable) {
  defineRadios();
  EXPECT_EQ(namesOf(RadioClass::cls),
            (std::vector<std::string>{"station", "loudness", "on", "presets", "size", "anything", "listener",
                                      "whenHeard", "note"}));
  EXPECT_EQ(namesOf(CarClass::cls), (std::vector<std::string>{"fuse", "playing"}));
}

TEST(PropertyRecords, NameAGetterOfItsOwnName) {
  defineRadios();
  EXPECT_EQ(attributes("playing", CarClass::cls),
            std::string("T") + bridge::Encoding<BOOL>::text.text + ",N,GisPlaying,V_playing");
}

TEST(PropertyRecords, OfAParentAreFoundByNameAlone) {
  defineRadios();
  EXPECT_EQ(attributes("station", CarClass::cls), attributes("station"));
  EXPECT_EQ(attributes("fuse", RadioClass::cls), "none");
}

TEST(PropertyRecord, NamesTheClassOfAnObject) {
  defineRadios();
  EXPECT_EQ(attributes("station"), "T@\"NSString\",&,N,V_station");
  EXPECT_EQ(attributes("anything"), "T@,&,N,V_anything");
}

TEST(PropertyRecord, NamesTheProtocolOfAnObjectThatIsNotKept) {
  defineRadios();
  EXPECT_EQ(attributes("listener"), "T@\"<RecordTestListener>\",N,V_listener");
}

TEST(PropertyRecord, HasThePlatformsLettersForNumbersAndStructures) {
  defineRadios();
  EXPECT_EQ(attributes("loudness"), "Tf,N,V_loudness");
  EXPECT_EQ(attributes("on"), std::string("T") + bridge::Encoding<BOOL>::text.text + ",N,V_on");
  EXPECT_EQ(attributes("presets"),
            std::string("T") + bridge::Encoding<NSInteger>::text.text + ",N,V_presets");
  EXPECT_EQ(attributes("size"), "T{CGSize=dd},N,V_size");
}

TEST(PropertyRecord, TellsThatABlockIsCopied) {
  defineRadios();
  EXPECT_EQ(attributes("whenHeard"), "T@?,C,N,V_whenHeard");
}

TEST(PropertyRecord, TellsWhatItsAccessorsDoWhereThatIsNotTheUsual) {
  defineRadios();
  EXPECT_EQ(attributes("note"), "T@\"NSString\",C,V_note");
}

TEST(Protocols, AreThoseOfTheTableForTheClassAndItsSubclasses) {
  defineRadios();
  const bridge::Pool pool;
  auto radio = bridge::make<Radio, &NSObject::init>();
  auto car = bridge::make<CarRadio, &NSObject::init>();
  EXPECT_TRUE(radio->conformsToProtocol(objc_getProtocol("RecordTestListener")));
  EXPECT_TRUE(car->conformsToProtocol(objc_getProtocol("RecordTestListener")));
  EXPECT_FALSE(radio->conformsToProtocol(objc_getProtocol("RecordTestSpeaker")));
}

TEST(Protocols, ThatThePlatformLacksAreLeftOut) {
  defineRadios();
  EXPECT_FALSE(objc_getProtocol("RecordTestUnknown"));
  EXPECT_TRUE(RadioClass::cls);
}

}  // namespace

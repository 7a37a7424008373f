// Starting home screens, and what becomes of those that end.
#include "simulator/serve/homes.hpp"

#include <iostream>

#include "simulator/device/usage_error.hpp"
#include "simulator/serve/root_copy.hpp"

namespace sim::serve {
namespace {

constexpr Place all[] = {Place::first, Place::second};

// A root outlives the processes that live in it.
Options withRoot(Options options, std::optional<TemporaryRoot>& temporary) {
  if (!options.root) options.root = temporary.emplace().path();
  return options;
}

}  // namespace

Homes::Homes(const Options& start, const Program& tables, Pages& open)
    : program(tables),
      pages(open),
      homes{ServedHome(withRoot(start, firstRoot), tables), ServedHome(start, tables)} {}

void Homes::start(Place place, bool safely) {
  at(place).start(loop, safely);
  pages.tellAll(place, at(place).welcome());
  for (const std::uint32_t page : pages.at(place)) at(place).send({page, true, R"({"type":"join"})"});
}

void Homes::startAs(Place place, const Json& message) {
  const Device& device = findDevice(message.value("device").get<std::string>());
  const Json ios = message.value("ios"), stock = message.value("stock");
  Options options = at(place).options;
  options.device = &device;
  options.ios = ios.isNull() ? device.defaultVersion() : findVersion(device, ios.get<std::string>());
  if (!stock.isNull()) options.stock = stock.get<bool>();
  if (place == Place::second) {
    at(place).end();
    if (!secondRoot) secondRoot.emplace();
    options.root = secondRoot->path();
    options.again = true;
    copyRoot(*at(Place::first).options.root, *options.root);
  }
  at(place).options = options;
  start(place, false);
}

void Homes::startAnew() {
  for (const Place place : all)
    if (at(place).isRunning()) start(place, false);
}

void Homes::end() {
  for (ServedHome& home : homes) home.end();
}

// SpringBoard has ended by itself. Unless it was asked to, it comes back without libraries, as on a phone.
void Homes::ended(Place place) {
  const std::optional<Fault> fault = at(place).whyItEnded();
  if (!fault) return start(place, false);
  const bool again = at(place).mayComeBack();
  pages.tellAll(place,
                {{"type", "ended"}, {"reason", fault->reason}, {"trace", fault->trace}, {"safe", again}});
  std::cerr << program.name << ": SpringBoard has ended: " << fault->reason
            << (again ? "; it starts again without libraries" : "") << std::endl;
  at(place).end();
  if (again) start(place, true);
}

bool Homes::readMessages(Place place) {
  const bool alive = at(place).read();
  while (const auto envelope = at(place).next()) pages.pass(place, *envelope);
  if (!alive) ended(place);
  return alive;
}

bool Homes::read(const lws* adopted) {
  for (const Place place : all) {
    if (at(place).hasMessagesAt(adopted)) return readMessages(place);
    if (at(place).hasErrorsAt(adopted)) return at(place).readErrors();
  }
  return false;
}

void Homes::write(const lws* adopted) {
  for (ServedHome& home : homes)
    if (home.hasMessagesAt(adopted)) home.write();
}

void Homes::goOn() {
  for (ServedHome& home : homes) home.goOnWriting();
}

void Homes::lostHold(const lws* adopted) {
  for (ServedHome& home : homes) home.lostHold(adopted);
}

}  // namespace sim::serve

// Has the library send what the system answers by raising, and catches it above: the exception passes through
// the library's frames.
//
//   raise-through [LIBRARY]
//
// Exit status 1 when nothing came by; one that nobody caught ends the process.

#include <vector>

#include "bridge/method.hpp"
#include "platform/uikit/view.hpp"
#include "simulator/app/simulation.hpp"
#include "simulator/product/product.hpp"

int main(int count, char** words) {
  std::vector<const char*> arguments{"tilo-sim"};
  if (count > 1) arguments.insert(arguments.end(), {"--library", words[1]});
  const sim::Program& program = sim::product::program();
  sim::Simulation simulation(
      sim::parseOptions(static_cast<int>(arguments.size()), arguments.data(), program.options), program);
  simulation.start();
  using Make = bridge::ClassMethod<"RQProgressHUD", "showHUDAddedTo:animated:", NSObject(UIView, BOOL)>;
  const bridge::Pool pool;
  try {
    Make()(UIView(), false);
  } catch (...) {
    return 0;
  }
  return 1;
}

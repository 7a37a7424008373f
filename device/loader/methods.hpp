// Which of the runtime's methods a slice answers, and by what.
#pragma once

#include <string>
#include <vector>

#include "device/loader/names.hpp"
#include "device/loader/trail.hpp"

namespace device::loader {

class Methods {
 public:
  // All that lead into the image, by now.
  Methods(const Place& image, const Names& names);

  // The method that the function is there for, as "-[Class selector]"; empty when it is there for none. What
  // the runtime calls is the function itself, or one that does nothing but call it and has it in its name.
  std::string answeredBy(const NamedFunction& function) const;

 private:
  struct Answer {
    std::string method;
    NamedFunction function;
  };
  std::vector<Answer> answers;
};

}  // namespace device::loader

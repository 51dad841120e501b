#include "platform/system/computer_name.h"

#include <array>

#include <unistd.h>

namespace vorlane::platform {

std::string ComputerName() {
  std::array<char, 256> name{};
  // One byte is left alone: a name that was cut need not end in a zero.
  if (::gethostname(name.data(), name.size() - 1) != 0) return {};
  return name.data();
}

}  // namespace vorlane::platform

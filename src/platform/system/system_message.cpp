#include "platform/system/system_message.h"

#include <cstring>

namespace vorlane::platform {

std::string SystemMessage(int systemError) {
  // strerror would translate it by the locale.
  const char* text = ::strerrordesc_np(systemError);
  return text != nullptr ? text : "Unknown error " + std::to_string(systemError);
}

}  // namespace vorlane::platform

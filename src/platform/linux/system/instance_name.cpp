#include "platform/linux/system/instance_name.h"

namespace nerolith::system {
namespace {

bool plain(char sign) {
  return (sign >= 'a' && sign <= 'z') || (sign >= 'A' && sign <= 'Z') ||
         (sign >= '0' && sign <= '9') || sign == ':' || sign == '-' || sign == '_' || sign == '.';
}

std::string_view withoutScreen(std::string_view display) {
  const auto colon = display.rfind(':');
  return colon == display.npos ? display : display.substr(0, display.find('.', colon));
}

}  // namespace

std::string instanceName(std::string_view waylandDisplay, std::string_view display) {
  std::string name = "on-";
  for (const char sign : waylandDisplay.empty() ? withoutScreen(display) : waylandDisplay)
    name += plain(sign) ? sign : '_';
  return name;
}

}  // namespace nerolith::system

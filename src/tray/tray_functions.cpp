#include "tray/tray_functions.h"

#include <algorithm>

#include "base/failure_policy.h"

namespace nerolith::tray {
namespace {

constexpr std::uint32_t kRecordSize = 88;
constexpr std::uint32_t kIconId = 100;
constexpr std::uint32_t kMessageIconAndTip = 7;
constexpr std::uint32_t kMouseMove = 512;  // so that the picture box hears the icon's mouse

}  // namespace

void Tray_Functions::add(controls::PictureBox& picture, const std::string& tip,
                         const controls::Form& form) {
  record_.size = kRecordSize;
  record_.window = &picture;
  record_.id = kIconId;
  record_.flags = kMessageIconAndTip;
  record_.callbackMessage = kMouseMove;
  record_.icon = &form;
  record_.tip.fill('\0');
  std::copy_n(tip.begin(), std::min(tip.size(), record_.tip.size() - 1), record_.tip.begin());
  base::goOn([this] { area_.notify(platform::NotifyMessage::Add, record_); });
}

void Tray_Functions::remove(controls::PictureBox& picture) {
  record_.size = kRecordSize;
  record_.id = kIconId;
  record_.callbackMessage = kMouseMove;
  record_.window = &picture;
  base::goOn([this] { area_.notify(platform::NotifyMessage::Delete, record_); });
}

}  // namespace nerolith::tray

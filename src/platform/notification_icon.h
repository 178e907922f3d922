// The player's icon in the desktop's notification area.
#pragma once

#include <array>
#include <cstdint>

#include "base/signal.h"
#include "controls/form.h"
#include "controls/menu.h"
#include "controls/picture_box.h"

namespace nerolith::platform {

enum class NotifyMessage { Add = 0, Delete = 2 };

/// What the area is told of the icon, field by field as the shell of Windows takes it; handles are
/// references to models here.
struct NotifyRecord {
  std::uint32_t size = 0;                  // of the record
  controls::PictureBox* window = nullptr;  // hears what the mouse does over the icon
  std::uint32_t id = 0;
  std::uint32_t flags = 0;  // which of the following fields count: 1 message, 2 icon, 4 tip
  std::uint32_t callbackMessage = 0;
  const controls::Form* icon = nullptr;  // the form whose icon is shown
  std::array<char, 64> tip{};            // ends with a zero
};

/// One icon. What the mouse does over it arrives at the record's picture box as a move of the
/// mouse, the number of the message its place across (see PictureBox). All on the user-interface
/// thread; form, picture box and menu outlive the icon.
class NotificationIcon {
 public:
  virtual ~NotificationIcon() = default;

  /// False where nothing came of it: an icon that is there is not added once more. Never throws
  /// but in a test.
  virtual bool notify(NotifyMessage message, const NotifyRecord& record) = 0;

  /// For desktops that show an icon's menu by themselves: what is chosen there is raised as the
  /// click of the item. Told once, before the icon is added.
  virtual void offerMenu(const controls::MenuItem& menu) = 0;

  /// Whether the user can reach the icon: it was added, and there is something that shows it.
  virtual bool shown() const = 0;
  /// `shown` may have changed.
  base::Signal<> shownChanged;
};

}  // namespace nerolith::platform

#include "platform/linux/widgets/descriptor_watch.h"

#include <utility>

#include "platform/linux/widgets/quietly.h"

namespace nerolith::widgets {

void DescriptorWatch::add(int descriptor, std::function<void()> readable) {
  auto notifier = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
  QObject::connect(notifier.get(), &QSocketNotifier::activated, notifier.get(),
                   [readable = std::move(readable)] { quietly(readable); });
  notifiers_.push_back(std::move(notifier));
}

}  // namespace nerolith::widgets

#include "platform/linux/widgets/qt_notification_icon.h"

#include <QIcon>
#include <utility>

#include "platform/linux/widgets/pop_up_menu.h"
#include "platform/linux/widgets/product_icon.h"
#include "platform/linux/widgets/quietly.h"

namespace nerolith::widgets {
namespace {

// As the shell of Windows numbers what a mouse does.
constexpr int kLeftButtonDown = 513;
constexpr int kLeftDoubleClick = 515;
constexpr int kRightButtonDown = 516;
constexpr int kMiddleButtonDown = 519;

int messageOf(QSystemTrayIcon::ActivationReason reason) {
  switch (reason) {
    case QSystemTrayIcon::Trigger:
      return kLeftButtonDown;
    case QSystemTrayIcon::DoubleClick:
      return kLeftDoubleClick;
    case QSystemTrayIcon::Context:
      return kRightButtonDown;
    case QSystemTrayIcon::MiddleClick:
      return kMiddleButtonDown;
    default:
      return 0;
  }
}

QIcon trayIcon() {
  QIcon icon;
  for (const int side : {16, 22, 24, 32, 48, 64}) icon.addPixmap(productIcon(side));
  return icon;
}

}  // namespace

bool QtNotificationIcon::notify(platform::NotifyMessage message,
                                const platform::NotifyRecord& record) {
  return message == platform::NotifyMessage::Add ? add(record) : remove();
}

bool QtNotificationIcon::add(const platform::NotifyRecord& record) {
  if (record_) return false;
  record_ = record;
  if (!items_) {
    items_ = std::make_unique<StatusNotifierWatch>([this] { trayChanged(); });
    embedding_ = std::make_unique<EmbeddingTrayWatch>([this] { trayChanged(); });
  }
  trayChanged();
  return true;
}

bool QtNotificationIcon::remove() {
  const bool was = record_.has_value();
  record_.reset();
  if (icon_) icon_->hide();
  icon_.reset();
  exported_.reset();
  if (was) shownChanged.raise();
  return was;
}

bool QtNotificationIcon::trayThere() const {
  if (asItem_) return *asItem_ ? items_->hostPresent() : embedding_->trayPresent();
  // While the bus has not answered, an item may still be possible.
  return items_ && items_->known() && (items_->hostPresent() || embedding_->trayPresent());
}

bool QtNotificationIcon::shown() const { return icon_ && trayThere(); }

// An item has to tell a new host of itself. The toolkit does so, but as soon as the watcher has its
// name, which is too early for some of them.
void QtNotificationIcon::trayChanged() {
  const bool was = std::exchange(there_, embedding_ && trayThere());
  const bool newHost = there_ && !was && asItem_ && *asItem_;
  if (record_ && there_ && (!icon_ || newHost)) showIcon();
  shownChanged.raise();
}

void QtNotificationIcon::showIcon() {
  if (!asItem_) asItem_ = items_->hostPresent();
  if (icon_) icon_->hide();
  icon_.reset(new QSystemTrayIcon(trayIcon()));
  icon_->setToolTip(QString::fromUtf8(record_->tip.data()));
  QObject::connect(icon_.get(), &QSystemTrayIcon::activated, icon_.get(),
                   [this](QSystemTrayIcon::ActivationReason reason) { pressed(reason); });
  if (*asItem_ && menu_) {
    exported_.reset(new QMenu);
    fillMenu(*exported_, *menu_, *exported_);
    icon_->setContextMenu(exported_.get());
  }
  icon_->show();
}

void QtNotificationIcon::pressed(QSystemTrayIcon::ActivationReason reason) {
  if (record_) quietly([&] { record_->window->userMouseMove(messageOf(reason), 0); });
}

}  // namespace nerolith::widgets

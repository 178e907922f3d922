#include "platform/linux/widgets/pop_up_menu.h"

#include <QMenu>

#include "platform/linux/widgets/quietly.h"
#include "platform/linux/widgets/theme.h"

namespace nerolith::widgets {
namespace {

QPalette raisedPalette() {
  constexpr QColor kRaised(0x2b, 0x31, 0x38);
  QPalette palette = theme::palette();
  palette.setColor(QPalette::Window, kRaised);
  palette.setColor(QPalette::Base, kRaised);
  return palette;
}

}  // namespace

// An item acts once the menu's own event is over: it may let waiting events run, and those delete
// the closed menu.
void fillMenu(QMenu& menu, const controls::MenuItem& items, const QObject& context) {
  menu.setFont(theme::fontFor(controls::Look::Plain));
  menu.setPalette(raisedPalette());
  for (controls::MenuItem* item : items.items()) {
    const QString caption = QString::fromStdString(item->caption());
    if (item->separator()) {
      menu.addSeparator();
    } else if (!item->items().empty()) {
      QMenu* inner = menu.addMenu(caption);
      inner->setEnabled(item->enabled());
      inner->menuAction()->setVisible(item->visible());
      fillMenu(*inner, *item, context);
    } else {
      QAction* action = menu.addAction(caption);
      action->setEnabled(item->enabled());
      action->setVisible(item->visible());
      QObject::connect(
          action, &QAction::triggered, &context, [item] { quietly([item] { item->userClick(); }); },
          Qt::QueuedConnection);
    }
  }
}

QMenu* makePopUpMenu(const controls::MenuItem& menu, QWidget* parent) {
  auto* popUp = new QMenu(parent);
  popUp->setAttribute(Qt::WA_DeleteOnClose);
  fillMenu(*popUp, menu, *parent);
  return popUp;
}

}  // namespace nerolith::widgets

#include "platform/linux/widgets/label_key.h"

#include "platform/linux/widgets/control_binding.h"
#include "platform/linux/widgets/plain_buttons.h"
#include "platform/linux/widgets/quietly.h"

namespace nerolith::widgets {

QWidget* makeLabelKey(controls::Label& label, QWidget* parent) {
  auto* key = new PlainKey({}, parent);
  key->setAutoDefault(false);
  QObject::connect(key, &QPushButton::clicked, key,
                   [&label] { quietly([&label] { label.userClick(); }); });
  new ControlBinding(*key, label, [key, &label] {
    // An "&" in a label is a sign like any other.
    const QString caption = QString::fromStdString(label.caption()).replace("&", "&&");
    if (key->text() != caption) {
      key->setText(caption);
      key->updateGeometry();
    }
    key->setAccessibleDescription(label.accessibleName().empty() ? QString() : key->text());
  });
  return key;
}

}  // namespace nerolith::widgets

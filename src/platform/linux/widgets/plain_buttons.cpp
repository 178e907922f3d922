#include "platform/linux/widgets/plain_buttons.h"

#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>

#include "platform/linux/widgets/control_binding.h"
#include "platform/linux/widgets/quietly.h"
#include "platform/linux/widgets/theme.h"

namespace nerolith::widgets {
namespace {

/// Setting a text anew takes the access key away for a moment.
void setCaption(QAbstractButton& widget, const std::string& caption) {
  const QString text = QString::fromStdString(caption);
  if (widget.text() != text) widget.setText(text);
}

template <typename Widget, typename Model, typename Show>
Widget* bind(Model& model, QWidget* parent, Show show) {
  auto* widget = new Widget(parent);
  widget->setFont(theme::fontFor(controls::Look::Plain));
  const auto refresh = [widget, &model, show] {
    setCaption(*widget, model.caption());
    show(*widget);
  };
  QObject::connect(widget, &QAbstractButton::clicked, widget, [&model, refresh] {
    quietly([&model] { model.userClick(); });
    refresh();
  });
  new ControlBinding(*widget, model, refresh);
  return widget;
}

}  // namespace

QWidget* makePushButton(controls::CommandButton& button, QWidget* parent) {
  return bind<QPushButton>(button, parent, [](QPushButton&) {});
}

QWidget* makeOptionButton(controls::OptionButton& button, QWidget* parent) {
  return bind<QRadioButton>(button, parent, [&button](QRadioButton& widget) {
    widget.setAutoExclusive(false);
    widget.setChecked(button.value());
  });
}

QWidget* makeCheckBox(controls::CheckBox& box, QWidget* parent) {
  return bind<QCheckBox>(box, parent, [&box](QCheckBox& widget) {
    widget.setTristate(box.value() == 2);
    widget.setCheckState(box.value() == 2   ? Qt::PartiallyChecked
                         : box.value() == 1 ? Qt::Checked
                                            : Qt::Unchecked);
  });
}

}  // namespace nerolith::widgets

#include "platform/linux/widgets/accessible_roles.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QCheckBox>
#include <QRadioButton>

#include "platform/linux/widgets/bar_view.h"
#include "platform/linux/widgets/drive_combo.h"
#include "platform/linux/widgets/form_window.h"
#include "platform/linux/widgets/lamp.h"
#include "platform/linux/widgets/picture_view.h"

namespace nerolith::widgets {
namespace {

class DriveBox : public QAccessibleWidget {
 public:
  explicit DriveBox(DriveCombo& drives)
      : QAccessibleWidget(&drives, QAccessible::ComboBox), drives_(drives) {}

  QString text(QAccessible::Text kind) const override {
    const bool value = kind == QAccessible::Description || kind == QAccessible::Value;
    return value ? drives_.currentText() : QAccessibleWidget::text(kind);
  }
  QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
  void doAction(const QString& action) override {
    if (action != pressAction()) return QAccessibleWidget::doAction(action);
    drives_.setFocus(Qt::OtherFocusReason);
    drives_.showPopup();
  }

 private:
  DriveCombo& drives_;
};

/// A box or a lamp with a word that can be switched.
class Switch : public QAccessibleWidget {
 public:
  Switch(QAbstractButton& button, QAccessible::Role role)
      : QAccessibleWidget(&button, role), button_(button) {}

  QString text(QAccessible::Text kind) const override {
    if (kind != QAccessible::Name || !button_.accessibleName().isEmpty())
      return QAccessibleWidget::text(kind);
    return QString(button_.text()).remove(QLatin1Char('&'));
  }
  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    const auto* box = qobject_cast<const QCheckBox*>(&button_);
    state.checkable = true;
    state.checked = button_.isChecked();
    state.checkStateMixed = box && box->checkState() == Qt::PartiallyChecked;
    return state;
  }
  QStringList actionNames() const override {
    return {toggleAction(), pressAction(), setFocusAction()};
  }
  void doAction(const QString& action) override {
    if (action != toggleAction() && action != pressAction())
      QAccessibleWidget::doAction(action);
    else if (button_.isEnabled())
      button_.click();
  }

 private:
  QAbstractButton& button_;
};

/// A bar that only shows how far it is filled.
class Reading : public QAccessibleWidget, public QAccessibleValueInterface {
 public:
  explicit Reading(BarView& bar) : QAccessibleWidget(&bar, QAccessible::ProgressBar), bar_(bar) {}

  void* interface_cast(QAccessible::InterfaceType kind) override {
    if (kind == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
    return QAccessibleWidget::interface_cast(kind);
  }
  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Value ? QString::number(bar_.value())
                                      : QAccessibleWidget::text(kind);
  }
  QVariant currentValue() const override { return bar_.value(); }
  QVariant minimumValue() const override { return 0; }
  QVariant maximumValue() const override { return 100; }
  QVariant minimumStepSize() const override { return 1; }
  void setCurrentValue(const QVariant&) override {}

 private:
  BarView& bar_;
};

/// In the toolkit's words, and only for what is ours: the rest it knows itself.
QAccessibleInterface* interfaceOf(const QString&, QObject* object) {
  if (auto* drives = dynamic_cast<DriveCombo*>(object)) return new DriveBox(*drives);
  if (auto* bar = dynamic_cast<BarView*>(object)) return new Reading(*bar);
  if (auto* lamp = dynamic_cast<LampView*>(object))
    return new QAccessibleWidget(lamp, QAccessible::StaticText);
  if (auto* picture = dynamic_cast<PictureView*>(object))
    return new QAccessibleWidget(picture, QAccessible::Graphic);
  if (auto* box = qobject_cast<QCheckBox*>(object)) return new Switch(*box, QAccessible::CheckBox);
  if (auto* option = qobject_cast<QRadioButton*>(object))
    return new Switch(*option, QAccessible::RadioButton);
  if (auto* window = dynamic_cast<FormWindow*>(object)) {
    const bool owned = window->windowType() == Qt::Dialog;
    return new QAccessibleWidget(window, owned ? QAccessible::Dialog : QAccessible::Window);
  }
  return nullptr;
}

}  // namespace

void tellRolesToScreenReaders() { QAccessible::installFactory(interfaceOf); }

}  // namespace nerolith::widgets

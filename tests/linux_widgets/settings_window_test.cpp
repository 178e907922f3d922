// The settings window itself, with keys and mouse.
#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QLineEdit>
#include <QPushButton>

#include "platform/linux/widgets/form_window.h"
#include "platform/linux/widgets/qt_window_host.h"
#include "platform/simulated/simulated_machine.h"
#include "settings/settings_window.h"
#include "shown_form.h"

namespace nerolith::widgets {
namespace {

class ShownSettings : public testing::Test {
 protected:
  void SetUp() override {
    live.fadeLength = 5;
    live.keyTexts = {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"};
    host.add(main.form);
    main.form.setVisible(true);
    form.form.setOwner(main.form);
    host.add(form.form);
    form2aan.userClick();
    window = host.windowOf(form.form);
    ASSERT_NE(window, nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowActive(window, 2000));
    QCoreApplication::processEvents();
  }
  void TearDown() override {
    host.remove(form.form);
    host.remove(main.form);
  }

  QLineEdit& box(const QString& name) {
    auto* found = findNamed<QLineEdit>(*window, name);
    EXPECT_NE(found, nullptr) << name.toStdString();
    return *found;
  }
  template <typename Widget>
  Widget& button(const QString& words) {
    return *findWidget<Widget>(*window, [&](Widget& w) { return w.text() == words; });
  }
  void type(QLineEdit& into, const QString& text) {
    into.setFocus(Qt::TabFocusReason);
    into.selectAll();
    QTest::keyClicks(&into, text);
  }
  /// The toolkit counts a window as active while one that belongs to it is.
  static void activate(FormWindow& which) {
    which.activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &which; }, 2000));
  }
  std::string stored(const char* application, const char* key) {
    return machine.settings.stored(application, "Setting", key).value_or("(absent)");
  }

  platform::simulated::SimulatedMachine machine{'/'};
  settings::LiveSettings live;
  settings::StoredSettings store{machine.settings, live};
  controls::MenuItem form2aan{"Settings"};
  forms::MainForm main;
  forms::SettingsForm form;
  settings::SettingsWindow settings{form, form2aan, live, store, [] { return "/music/"; }};
  QtWindowHost host;
  FormWindow* window = nullptr;
};

const QString kLength = "Mix length in seconds", kLead = "Seconds before end to start Mix";

TEST_F(ShownSettings, ItOpensWithTheKeyboardInTheFirstBoxAndBelongsToTheMainWindow) {
  EXPECT_EQ(window->windowTitle(), "Settings");
  EXPECT_EQ(window->focusWidget(), &box(kLength));
  EXPECT_EQ(window->minimumSize(), window->maximumSize());
}

TEST_F(ShownSettings, TabVisitsEveryControlAsItIsRead) {
  QStringList order;
  for (int stop = 0; stop < 17; ++stop) {
    const QWidget* here = window->focusWidget();
    const auto* named = dynamic_cast<const QAbstractButton*>(here);
    order << (named ? named->text() : here->accessibleName());
    QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(order.join('|').toStdString(),
            "Mix length in seconds|Seconds before end to start Mix|Enable|"
            "After ... Numbers, play a file not older|Numbers, play a file not older ... day's|"
            "Key 'F1'|Key 'F2'|Key 'F3'|Key 'F4|Key 'F5'|Key 'F6'|Key 'F7'|Key 'F8'|Key 'F9'|"
            "Key 'F10'|Enable -  Mark file for deletion.|Save Settings");
  EXPECT_EQ(window->focusWidget(), &box(kLength));
}

TEST_F(ShownSettings, WhatIsTypedIsLive) {
  type(box("After ... Numbers, play a file not older"), "12");
  type(box("Key 'F4"), "Blue");
  EXPECT_EQ(live.recentAfter, 12);
  EXPECT_EQ(live.keyTexts[3], "Blue");
}

TEST_F(ShownSettings, EnterValidatesAndTheKeyboardStays) {
  type(box(kLength), "12");
  EXPECT_EQ(live.fadeLength, 5);
  QTest::keyClick(&box(kLength), Qt::Key_Return);
  EXPECT_EQ(box(kLength).text(), "10");
  EXPECT_EQ(live.fadeLength, 10);
  EXPECT_TRUE(box(kLength).hasFocus());
}

TEST_F(ShownSettings, LeavingByTabValidates) {
  type(box(kLead), "70");
  QTest::keyClick(&box(kLead), Qt::Key_Tab);
  EXPECT_EQ(box(kLead).text(), "5");
  EXPECT_EQ(live.mixLead, 5);
}

TEST_F(ShownSettings, LeavingForAnotherWindowValidatesAndComingBackShowsTheValue) {
  type(box(kLength), "7 seconds");
  activate(*host.windowOf(main.form));
  EXPECT_EQ(live.fadeLength, 7);
  activate(*window);
  EXPECT_EQ(box(kLength).text(), "7");
}

TEST_F(ShownSettings, AClickOnSaveTakesTheTypedMixOverFirst) {
  type(box(kLead), "20");
  QTest::mouseClick(&button<QPushButton>("Save Settings"), Qt::LeftButton);
  EXPECT_EQ(stored("Microsoft Visual Basic AddIns", "fadem"), "20");
  EXPECT_FALSE(window->isVisible());
}

TEST_F(ShownSettings, EnterOnTheButtonSaves) {
  button<QPushButton>("Save Settings").setFocus();
  QTest::keyClick(&button<QPushButton>("Save Settings"), Qt::Key_Return);
  EXPECT_EQ(stored("Nerolith", "key9"), "9");
  EXPECT_FALSE(window->isVisible());
}

TEST_F(ShownSettings, EscClosesDropsTheHalfTypedMixAndStoresNothing) {
  type(box(kLength), "9");
  QTest::keyClick(&box(kLength), Qt::Key_Escape);
  QCoreApplication::processEvents();
  EXPECT_FALSE(window->isVisible());
  EXPECT_EQ(live.fadeLength, 5);
  EXPECT_EQ(machine.settings.size(), 0U);
}

TEST_F(ShownSettings, TheDeletionSwitchIsStoredAtOnceByMouseAndBySpace) {
  auto& marking = button<QCheckBox>("Enable -  Mark file for deletion.");
  QTest::mouseClick(&marking, Qt::LeftButton, {}, QPoint(8, marking.height() / 2));
  EXPECT_EQ(stored("Nerolith", "mark_for_deletion"), "True");
  EXPECT_TRUE(marking.isChecked());
  QTest::keyClick(&marking, Qt::Key_Space);
  EXPECT_EQ(stored("Nerolith", "mark_for_deletion"), "False");
  EXPECT_EQ(machine.settings.size(), 1U);
}

TEST_F(ShownSettings, AScreenReaderHearsWhatEachBoxIsAndWhatStandsInIt) {
  QAccessibleInterface* length = QAccessible::queryAccessibleInterface(&box(kLength));
  ASSERT_NE(length, nullptr);
  EXPECT_EQ(length->role(), QAccessible::EditableText);
  EXPECT_EQ(length->text(QAccessible::Name), kLength);
  EXPECT_EQ(length->text(QAccessible::Value), "5");
  QAccessibleInterface* rule = QAccessible::queryAccessibleInterface(&button<QCheckBox>("Enable"));
  EXPECT_EQ(rule->text(QAccessible::Name), "Enable");
  EXPECT_EQ(rule->role(), QAccessible::CheckBox);
}

TEST_F(ShownSettings, ASwitchByAScreenReaderIsTheUsersClick) {
  auto& marking = button<QCheckBox>("Enable -  Mark file for deletion.");
  QAccessibleInterface* told = QAccessible::queryAccessibleInterface(&marking);
  EXPECT_FALSE(told->state().checked);
  for (const QString& action :
       {QAccessibleActionInterface::toggleAction(), QAccessibleActionInterface::pressAction()}) {
    ASSERT_TRUE(told->actionInterface()->actionNames().contains(action));
    const bool before = told->state().checked;
    told->actionInterface()->doAction(action);
    EXPECT_NE(told->state().checked, before);
    EXPECT_EQ(stored("Nerolith", "mark_for_deletion"), before ? "False" : "True");
  }
  EXPECT_EQ(QAccessible::queryAccessibleInterface(window)->role(), QAccessible::Dialog);
}

TEST_F(ShownSettings, NoWordIsCutOff) {
  for (QWidget* child : window->findChildren<QWidget*>())
    EXPECT_GE(child->width(), child->minimumSizeHint().width())
        << child->accessibleName().toStdString();
}

TEST_F(ShownSettings, Picture) {
  button<QCheckBox>("Enable").click();
  QCoreApplication::processEvents();
  const QString asked = qEnvironmentVariable("NEROLITH_SCREENSHOTS");
  const QDir folder(asked.isEmpty() ? QStringLiteral(NEROLITH_SOURCE_DIR "/out/screenshots")
                                    : asked);
  ASSERT_TRUE(folder.mkpath("."));
  EXPECT_TRUE(window->grab().save(folder.filePath("settings.png")));
}

}  // namespace
}  // namespace nerolith::widgets

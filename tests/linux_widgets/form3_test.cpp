// The tray icon's host on a window: its panel, its picture box and its menu.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QDir>
#include <QMenu>
#include <QPushButton>
#include <QTest>

#include "forms/form3.h"
#include "platform/linux/widgets/form_window.h"
#include "platform/linux/widgets/label_view.h"
#include "platform/linux/widgets/picture_view.h"
#include "platform/linux/widgets/qt_notification_icon.h"
#include "platform/linux/widgets/qt_window_host.h"
#include "shown_form.h"

namespace nerolith::widgets {
namespace {

class Form3Window : public testing::Test {
 protected:
  void SetUp() override {
    form.lblMessage.setCaption("Uninitialized...");
    host.add(form.form);
    form.form.load();
    window = host.windowOf(form.form);
    ASSERT_NE(window, nullptr);
  }
  void TearDown() override { host.remove(form.form); }

  void save(const QString& name) {
    const QString asked = qEnvironmentVariable("NEROLITH_SCREENSHOTS");
    const QString folder = asked.isEmpty() ? QDir::tempPath() : asked;
    QDir().mkpath(folder);
    EXPECT_TRUE(window->grab().save(folder + "/" + name));
  }

  forms::Form3 form;
  QtWindowHost host;
  FormWindow* window = nullptr;
};

TEST_F(Form3Window, IsMadeHiddenWhenItIsLoaded) { EXPECT_FALSE(window->isVisible()); }

TEST_F(Form3Window, ShowsItsPanel) {
  form.form.setVisible(true);
  QTest::qWait(50);
  save("tray panel.png");
  for (const char* words : {"&Add Icon", "&Delete Icon", "&Close"})
    EXPECT_NE(findWidget<QPushButton>(*window,
                                      [&](const QPushButton& key) { return key.text() == words; }),
              nullptr)
        << words;
}

TEST_F(Form3Window, EveryControlHasItsRoleAndNameForAScreenReader) {
  QMap<QString, QAccessible::Role> told;
  for (QWidget* child : window->findChildren<QWidget*>()) {
    const QAccessibleInterface* words = QAccessible::queryAccessibleInterface(child);
    if (!words || words->childCount() > 0) continue;
    EXPECT_FALSE(words->text(QAccessible::Name).isEmpty()) << child->metaObject()->className();
    told[words->text(QAccessible::Name)] = words->role();
  }
  EXPECT_EQ(told["Add Icon"], QAccessible::Button);
  EXPECT_EQ(told["Delete Icon"], QAccessible::Button);
  EXPECT_EQ(told["Close"], QAccessible::Button);
  EXPECT_EQ(told["Tray icon"], QAccessible::Graphic);
  const QAccessibleInterface* message = QAccessible::queryAccessibleInterface(findWidget<LabelView>(
      *window,
      [](const LabelView& label) { return label.accessibleDescription() == "Uninitialized..."; }));
  ASSERT_NE(message, nullptr);
  EXPECT_EQ(message->role(), QAccessible::StaticText);
}

TEST_F(Form3Window, TheMouseOverThePictureIsToldInTwips) {
  form.form.setVisible(true);
  QTest::qWait(20);
  float across = 0, down = 0;
  const auto hearing = form.picTray.mouseMove.subscribe([&](float x, float y) {
    across = x;
    down = y;
  });
  auto* picture = findWidget<PictureView>(*window);
  ASSERT_NE(picture, nullptr);
  QTest::mouseMove(picture, QPoint(10, 20));
  QTest::qWait(20);
  EXPECT_EQ(across, 150);
  EXPECT_EQ(down, 300);
}

TEST_F(Form3Window, ItsMenuPopsUpWhileItIsHiddenAndItsItemActs) {
  int clicks = 0;
  const auto hearing = form.mnuPlayNext.click.subscribe([&] { ++clicks; });
  form.form.popUpMenu(form.mnuFile);
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  ASSERT_EQ(menu->actions().size(), 4);
  EXPECT_EQ(menu->actions()[1]->text(), "Maximize");
  EXPECT_TRUE(menu->actions()[2]->isSeparator());
  QTest::keyClick(menu, Qt::Key_Down);
  QTest::keyClick(menu, Qt::Key_Return);
  QCoreApplication::processEvents();
  EXPECT_EQ(clicks, 1);
  EXPECT_FALSE(window->isVisible());
}

// What tells that an icon is to be seen is tried with real trays, on the whole program.
TEST(QtNotificationIcon, WithoutATrayTheIconIsNotShown) {
  QtNotificationIcon icon;
  controls::PictureBox picture;
  const platform::NotifyRecord record{.window = &picture};
  EXPECT_FALSE(icon.shown());
  EXPECT_TRUE(icon.notify(platform::NotifyMessage::Add, record));
  EXPECT_FALSE(icon.notify(platform::NotifyMessage::Add, record));
  QTest::qWait(50);
  EXPECT_FALSE(icon.shown());
  EXPECT_TRUE(icon.notify(platform::NotifyMessage::Delete, record));
  EXPECT_FALSE(icon.notify(platform::NotifyMessage::Delete, record));
}

}  // namespace
}  // namespace nerolith::widgets

#include "platform/linux/widgets/face_button.h"

#include <QAccessible>

#include "shown_form.h"

namespace nerolith::widgets {
namespace {

class Face : public ShownForm {
 protected:
  FaceButtonView& face(const QString& text) {
    auto* found = findWidget<FaceButtonView>(
        *window, [&](const FaceButtonView& button) { return button.text() == text; });
    EXPECT_NE(found, nullptr) << text.toStdString();
    return *found;
  }
};

TEST_F(Face, RaisesPressReleaseAndClickInThisOrder) {
  heard.on(form.Label8[0].mouseDown, "down");
  heard.on(form.Label8[0].mouseUp, "up");
  heard.on(form.Label8[0].click, "click");
  QTest::mouseClick(&face("P&lay"), Qt::LeftButton);
  EXPECT_EQ(heard.all(), "down up click");
}

TEST_F(Face, ReleasedOutsideIsNoClick) {
  heard.on(form.Label8[0].mouseUp, "up");
  heard.on(form.Label8[0].click, "click");
  FaceButtonView& play = face("P&lay");
  QTest::mousePress(&play, Qt::LeftButton);
  QTest::mouseRelease(&play, Qt::LeftButton, {}, QPoint(-20, -20));
  EXPECT_EQ(heard.all(), "up");
}

TEST_F(Face, PressedByMouseLeavesTheFocusWithTheSongs) {
  form.List1.setFocus();
  FaceButtonView& play = face("P&lay");
  QTest::mouseClick(&play, Qt::LeftButton);
  EXPECT_FALSE(play.hasFocus());
}

TEST_F(Face, IsClickedBySpaceBarAndByScreenReader) {
  heard.on(form.Label8[3].click, "click");
  FaceButtonView& stop = face("&Stop");
  QTest::keyClick(&stop, Qt::Key_Space);
  QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&stop);
  ASSERT_NE(accessible->actionInterface(), nullptr);
  accessible->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_TRUE(QTest::qWaitFor([&] { return heard.count() == 2; }, 2000));
}

TEST_F(Face, IsAButtonNamedByItsCaptionWithoutTheAccessKey) {
  QAccessibleInterface* next = QAccessible::queryAccessibleInterface(&face("Play &Next"));
  EXPECT_EQ(next->role(), QAccessible::PushButton);
  EXPECT_EQ(next->text(QAccessible::Name), "Play Next");
}

TEST_F(Face, AccessKeyClicksAtOnce) {
  heard.on(form.Label8[1].click, "click");
  const QKeySequence key = QKeySequence::mnemonic(QStringLiteral("Play &Next"));
  QShortcutEvent event(key, 0);
  QCoreApplication::sendEvent(&face("Play &Next"), &event);
  EXPECT_EQ(heard.all(), "click");
}

TEST_F(Face, IsDeadWhileItsButtonIsDisabled) {
  heard.on(form.Label8[1].mouseDown, "down");
  heard.on(form.Label8[1].click, "click");
  form.Command3.setEnabled(false);
  FaceButtonView& next = face("Play &Next");
  EXPECT_FALSE(next.isEnabled());
  QTest::mouseClick(&next, Qt::LeftButton);
  EXPECT_EQ(heard.all(), "");
  form.Command3.setEnabled(true);
  EXPECT_TRUE(next.isEnabled());
}

TEST_F(Face, FollowsTheCaption) {
  FaceButtonView& pause = face("&Pause");
  form.Command4.setCaption("&Resume");
  EXPECT_EQ(pause.text(), "&Resume");
}

TEST_F(Face, SaysTheLampInWords) {
  FaceButtonView& play = face("P&lay");
  EXPECT_EQ(play.accessibleDescription(), "off");
  form.Label10[0].setBackColour(controls::kGreen);
  EXPECT_EQ(play.accessibleDescription(), "on");
  form.Label10[0].setBackColour(controls::kYellow);
  EXPECT_EQ(play.accessibleDescription(), "waiting");
}

TEST_F(Face, LampColoursWhatIsDrawn) {
  FaceButtonView& play = face("P&lay");
  const QImage off = play.grab().toImage();
  form.Label10[0].setBackColour(controls::kGreen);
  const QColor bulb = play.grab().toImage().pixelColor(play.width() / 2, play.height() * 3 / 10);
  EXPECT_NE(off, play.grab().toImage());
  EXPECT_GT(bulb.green(), bulb.red() + 50);
}

TEST_F(Face, FailureOfAHandlerStaysInside) {
  auto failing = form.Label8[0].click.subscribe([] { throw base::Failure("no card"); });
  EXPECT_NO_THROW(QTest::mouseClick(&face("P&lay"), Qt::LeftButton));
}

}  // namespace
}  // namespace nerolith::widgets

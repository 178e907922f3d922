// The smaller bindings: lamps with words, caption keys, the time, drives, folders, texts.
#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>
#include <QScrollBar>

#include "platform/linux/widgets/caption_key.h"
#include "platform/linux/widgets/digital_display.h"
#include "platform/linux/widgets/drive_combo.h"
#include "platform/linux/widgets/folder_popup.h"
#include "platform/linux/widgets/glass_colour.h"
#include "platform/linux/widgets/label_view.h"
#include "platform/linux/widgets/lamp.h"
#include "platform/linux/widgets/level_bar.h"
#include "platform/linux/widgets/plain_buttons.h"
#include "platform/linux/widgets/text_line.h"
#include "platform/linux/widgets/theme.h"
#include "shown_form.h"

namespace nerolith::widgets {
namespace {

using Bindings = ShownForm;

TEST_F(Bindings, LampSwitchClicksItsWordsAndFollowsItsLamp) {
  auto* random = findWidget<LampSwitchView>(*window, [](auto& w) { return w.text() == "Random"; });
  ASSERT_NE(random, nullptr);
  heard.on(form.Label7[2].click, "click");
  QTest::mouseClick(random, Qt::LeftButton, {}, QPoint(8, 8));
  QTest::keyClick(random, Qt::Key_Space);
  EXPECT_EQ(heard.all(), "click click");
  EXPECT_FALSE(random->isChecked());
  form.Label6[2].setBackColour(controls::kRed);
  EXPECT_TRUE(random->isChecked());
  EXPECT_EQ(random->accessibleDescription(), "on");
  EXPECT_EQ(heard.count(), 2);
}

TEST_F(Bindings, LampSwitchPressedByMouseLeavesTheFocusWithTheSongs) {
  form.List1.setFocus();
  auto* loop = findWidget<LampSwitchView>(*window, [](auto& w) { return w.text() == "loop"; });
  ASSERT_NE(loop, nullptr);
  QTest::mouseClick(loop, Qt::LeftButton, {}, QPoint(8, 8));
  EXPECT_FALSE(loop->hasFocus());
}

TEST_F(Bindings, ALampSwitchedByAScreenReaderIsClickedOnceAndFollowsItsLamp) {
  auto* random = findWidget<LampSwitchView>(*window, [](auto& w) { return w.text() == "Random"; });
  ASSERT_NE(random, nullptr);
  heard.on(form.Label7[2].click, "click");
  QAccessibleInterface* told = QAccessible::queryAccessibleInterface(random);
  EXPECT_EQ(told->text(QAccessible::Name), "Random");
  told->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
  EXPECT_EQ(heard.all(), "click");
  EXPECT_FALSE(told->state().checked);
  form.Label6[2].setBackColour(controls::kRed);
  EXPECT_TRUE(told->state().checked);
}

TEST_F(Bindings, TheDriveBoxKeepsItsNameBesideTheDrive) {
  auto* drives = findWidget<DriveCombo>(*window, [](auto&) { return true; });
  ASSERT_NE(drives, nullptr);
  form.Drive1.setDrives({{"/", "Computer"}, {"/stick", "Stick"}});
  form.Drive1.setDrive("/stick");
  QAccessibleInterface* told = QAccessible::queryAccessibleInterface(drives);
  EXPECT_EQ(told->role(), QAccessible::ComboBox);
  EXPECT_EQ(told->text(QAccessible::Name), "Drive");
  EXPECT_EQ(told->text(QAccessible::Description), "Stick");
}

TEST_F(Bindings, ANoticeThatSaysNothingIsNotReadByItsTip) {
  auto& notice = widget<LabelView>("Trouble with the sound");
  QAccessibleInterface* told = QAccessible::queryAccessibleInterface(&notice);
  EXPECT_EQ(told->text(QAccessible::Description), "");
  form.notice.setCaption("The sound server does not answer.");
  EXPECT_EQ(told->text(QAccessible::Description), "The sound server does not answer.");
}

TEST_F(Bindings, CaptionKeysAreNamedButtons) {
  heard.on(form.Label5[0].click, "close");
  QTest::mouseClick(&widget<CaptionKey>("Close"), Qt::LeftButton);
  QTest::keyClick(&widget<CaptionKey>("Close"), Qt::Key_Space);
  EXPECT_EQ(heard.all(), "close close");
}

TEST_F(Bindings, TimeHearsBothMouseButtonsAndTheirKeys) {
  auto& time = widget<DigitalDisplay>("Time");
  std::string buttons;
  auto down = form.Label1.mouseDown.subscribe(
      [&](controls::MouseButton b) { buttons += b == controls::MouseButton::Left ? 'L' : 'R'; });
  QTest::mouseClick(&time, Qt::LeftButton);
  QTest::mouseClick(&time, Qt::RightButton);
  QTest::keyClick(&time, Qt::Key_Space);
  QTest::keyClick(&time, Qt::Key_Menu);
  EXPECT_EQ(buttons, "LRLR");
  form.Label1.setCaption("01:07");
  EXPECT_EQ(time.accessibleDescription(), "01:07");
}

TEST_F(Bindings, TimeIsReadableInEveryColourAsPainted) {
  auto& time = widget<DigitalDisplay>("Time");
  form.Label1.setCaption("88:88");
  const QRect place(time.mapTo(window, QPoint()), time.size());
  for (const controls::Colour colour : controls::kBasicPalette) {
    form.Label1.setForeColour(colour);
    const QImage seen = window->grab(place).toImage();
    const QColor ink = toQColor(colour);
    const QColor glass = seen.pixelColor(seen.width() - 6, seen.height() / 2);
    EXPECT_GE(contrastRatio(ink, glass), 3.0) << std::hex << colour;
    int painted = 0;
    for (int y = 0; y < seen.height(); ++y)
      for (int x = 0; x < seen.width(); ++x) painted += seen.pixel(x, y) == ink.rgb();
    EXPECT_GT(painted, 1000) << std::hex << colour;
  }
}

TEST_F(Bindings, OnlyTheTimeIsPaintedWhenItChanges) {
  struct Painted : QObject {
    bool eventFilter(QObject* watched, QEvent* event) override {
      if (event->type() == QEvent::Paint) ++counts[watched];
      return false;
    }
    std::map<QObject*, int> counts;
  } painted;
  window->repaint();
  QTest::qWait(30);
  for (QWidget* child : window->findChildren<QWidget*>()) child->installEventFilter(&painted);
  form.Label1.setCaption("01:08");
  QTest::qWait(30);
  EXPECT_EQ(painted.counts[&widget<DigitalDisplay>("Time")], 1);
  EXPECT_EQ(painted.counts[&widget<QWidget>("Songs")], 0);
  painted.counts.clear();
  form.Label1.setCaption("01:08");
  QTest::qWait(30);
  EXPECT_TRUE(painted.counts.empty());
}

TEST_F(Bindings, LongSongNameIsShortenedAndDoesNotWidenTheWindow) {
  const int before = window->minimumSizeHint().width();
  form.Label9.setCaption(std::string(400, 'W'));
  QCoreApplication::processEvents();
  EXPECT_EQ(window->minimumSizeHint().width(), before);
  EXPECT_EQ(widget<LabelView>("Song").accessibleDescription().size(), 400);
}

TEST_F(Bindings, DriveChosenByTheUserIsSetAndCodeIsNotEchoed) {
  auto& combo = widget<DriveCombo>("Drive");
  heard.on(form.Drive1.change, "change");
  form.Drive1.setDrives({{"/", "System"}, {"/media/usb", "Stick"}});
  EXPECT_EQ(heard.all(), "");
  form.Drive1.setDrive("/media/usb");
  EXPECT_EQ(combo.currentText(), "Stick");
  EXPECT_EQ(heard.all(), "change");
  combo.setCurrentIndex(0);
  EXPECT_EQ(form.Drive1.drive(), "/");
  EXPECT_EQ(heard.all(), "change change");
}

TEST_F(Bindings, PressOnTheDriveBringsTheFocusOnceEachTime) {
  auto& combo = widget<DriveCombo>("Drive");
  heard.on(form.Drive1.gotFocus, "focus");
  QTest::mouseClick(&combo, Qt::LeftButton, {}, QPoint(20, 14));
  const int first = heard.count();
  QTest::mouseClick(&combo, Qt::LeftButton, {}, QPoint(20, 14));
  EXPECT_EQ(first, 1);
  EXPECT_EQ(heard.count(), 2);
}

class Folders : public ShownForm {
 protected:
  void SetUp() override {
    ShownForm::SetUp();
    form.Dir1.setPath("/home/anna");
    form.Dir1.setContents({"/", "/home", "/home/anna"}, {"Music", "Sounds"});
    form.Dir1.setVisible(true);
    QCoreApplication::processEvents();
    popUp = &widget<FolderPopup>("Folders");
    heard.on(form.Dir1.click, "click");
    heard.on(form.Dir1.change, "change");
  }
  QPoint middleOf(int row) const {
    return popUp->visualRect(popUp->model()->index(row, 0)).center();
  }
  /// Without its shadow.
  QRect frame() const {
    const int shadow = popUp->frameWidth();
    return popUp->geometry().adjusted(shadow, shadow, -shadow, -shadow);
  }
  FolderPopup* popUp = nullptr;
};

TEST_F(Folders, ShowTheWayAndWhatLiesThere) {
  ASSERT_EQ(popUp->rows(), 5);
  EXPECT_EQ(popUp->nameAt(0), "/");
  EXPECT_EQ(popUp->nameAt(2), "anna");
  EXPECT_EQ(popUp->pathAt(1), "/home");
  EXPECT_EQ(popUp->pathAt(4), "/home/anna/Sounds");
}

TEST_F(Folders, LieDirectlyBelowTheDrive) {
  auto& combo = widget<DriveCombo>("Drive");
  EXPECT_TRUE(popUp->isVisible());
  const QPoint corner = combo.mapTo(window, QPoint(0, combo.height()));
  EXPECT_EQ(frame().left(), corner.x());
  EXPECT_GT(frame().top(), corner.y());
  EXPECT_LT(frame().top(), corner.y() + 8);
}

TEST_F(Folders, StayWithinTheListHoweverSmallTheWindowAndManyTheFolders) {
  form.Dir1.setContents({"/", "/home", "/home/anna"}, std::vector<std::string>(200, "Music"));
  window->resize(window->minimumSizeHint());
  QCoreApplication::processEvents();
  const QRect list = widget<QListView>("Songs").geometry();
  EXPECT_LT(frame().bottom(), list.bottom());
  EXPECT_LT(frame().right(), list.right());
  EXPECT_GT(popUp->verticalScrollBar()->maximum(), 0);
}

TEST_F(Folders, EscapeHidesThemFromTheDriveToo) {
  auto& combo = widget<DriveCombo>("Drive");
  combo.setFocus();
  QTest::keyClick(&combo, Qt::Key_Escape);
  EXPECT_FALSE(form.Dir1.visible());
  EXPECT_EQ(window->focusWidget(), &combo);
}

TEST_F(Folders, OpenFromTheArrowTooWhereThereIsNoOtherDrive) {
  form.Drive1.setDrives({{"/", "System"}});
  auto& combo = widget<DriveCombo>("Drive");
  heard.on(form.Drive1.gotFocus, "drive");
  QTest::mouseClick(&combo, Qt::LeftButton, {}, QPoint(combo.width() - 8, 14));
  QTest::mouseClick(&combo, Qt::LeftButton, {}, QPoint(combo.width() - 8, 14));
  EXPECT_EQ(heard.all(), "drive drive");
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(Folders, DrivesDropBelowTheBoxWhichStaysAsItIs) {
  form.Drive1.setDrives({{"/", "System"}, {"/home", "Home"}});
  auto& combo = widget<DriveCombo>("Drive");
  combo.setFocus();
  const QImage before = combo.grab().toImage();
  combo.showPopup();
  EXPECT_GE(combo.view()->mapToGlobal(QPoint()).y(),
            combo.mapToGlobal(QPoint(0, combo.height())).y());
  EXPECT_EQ(combo.grab().toImage(), before);
  combo.hidePopup();
}

TEST_F(Folders, ClickOnlyTellsDoubleClickOpens) {
  QTest::mouseClick(popUp->viewport(), Qt::LeftButton, {}, middleOf(3));
  EXPECT_EQ(heard.all(), "click");
  QTest::mouseDClick(popUp->viewport(), Qt::LeftButton, {}, middleOf(3));
  EXPECT_EQ(form.Dir1.path(), "/home/anna/Music");
}

TEST_F(Folders, EnterOpensAndEscapeHides) {
  popUp->setCurrentIndex(popUp->model()->index(1, 0));
  QTest::keyClick(popUp, Qt::Key_Return);
  EXPECT_EQ(form.Dir1.path(), "/home");
  QTest::keyClick(popUp, Qt::Key_Escape);
  EXPECT_FALSE(popUp->isVisible());
  EXPECT_FALSE(form.Dir1.visible());
}

TEST_F(Folders, MouseOverThemIsNotTheMouseOverTheWindow) {
  heard.on(form.form.mouseMoved, "window");
  QTest::mouseMove(popUp->viewport(), middleOf(2));
  QTest::mouseMove(&widget<DriveCombo>("Drive"), QPoint(5, 5));
  EXPECT_EQ(heard.all(), "");
  QMouseEvent move(QEvent::MouseMove, QPointF(3, 3), QPointF(3, 3), Qt::NoButton, {}, {});
  QCoreApplication::sendEvent(window, &move);
  EXPECT_EQ(heard.all(), "window");
}

TEST(TextLineBinding, UserTypesAndCodeSetsWithoutEcho) {
  controls::TextBox box;
  TextLine line(box, controls::Look::Plain, nullptr);
  Heard heard;
  heard.on(box.change, "change");
  QTest::keyClicks(&line, "ab");
  EXPECT_EQ(box.text(), "ab");
  EXPECT_EQ(heard.all(), "change change");
  box.setText("code");
  EXPECT_EQ(line.text(), "code");
  EXPECT_EQ(heard.count(), 3);
}

TEST(LevelBarBinding, FollowsItsValueHeldToTheBar) {
  controls::ProgressBar bar;
  LevelBar view(bar, controls::Look::Plain, nullptr);
  bar.setValue(47.6F);
  EXPECT_EQ(view.value(), 48);
  bar.setValue(120);
  EXPECT_EQ(view.value(), 100);
}

TEST(LevelBarBinding, OnlyALevelIsAmberBelowTheMiddle) {
  controls::ProgressBar bar;
  bar.setValue(30);
  LevelBar level(bar, controls::Look::Plain, nullptr);
  LevelBar progress(bar, controls::Look::Progress, nullptr);
  level.resize(100, 6);
  progress.resize(100, 6);
  const auto colour = [](QWidget& view) { return view.grab().toImage().pixelColor(15, 3); };
  EXPECT_EQ(colour(level), theme::kAmber);
  EXPECT_EQ(colour(progress), theme::kAccent);
}

TEST(PlainButtons, ShowWhatTheModelSaysAfterAClick) {
  QWidget parent;
  controls::OptionButton one, two;
  controls::OptionButton::group({&one, &two});
  auto* first = static_cast<QAbstractButton*>(makeOptionButton(one, &parent));
  auto* second = static_cast<QAbstractButton*>(makeOptionButton(two, &parent));
  first->click();
  EXPECT_TRUE(one.value());
  second->click();
  EXPECT_FALSE(first->isChecked());
  second->click();
  EXPECT_TRUE(second->isChecked());
  controls::CheckBox box;
  auto* check = static_cast<QAbstractButton*>(makeCheckBox(box, &parent));
  check->click();
  EXPECT_EQ(box.value(), 1);
  box.setValue(0);
  EXPECT_FALSE(check->isChecked());
}

}  // namespace
}  // namespace nerolith::widgets

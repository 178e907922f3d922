#include "platform/linux/widgets/position_slider.h"

#include <QAccessible>

#include "shown_form.h"

namespace nerolith::widgets {
namespace {

class Slider : public ShownForm {
 protected:
  void SetUp() override {
    ShownForm::SetUp();
    form.HScroll1.setMin(1);
    form.HScroll1.setMax(201);
    form.HScroll1.setLargeChange(9);
    form.HScroll1.setSmallChange(9);
    form.HScroll1.setValue(101);
    slider = &widget<PositionSlider>("Position");
    heard.on(form.HScroll1.scroll, "scroll");
    heard.on(form.HScroll1.change, "change");
  }
  QPoint placeOf(double share) const {
    return QPoint(static_cast<int>(10 + share * (slider->width() - 20)), slider->height() / 2 + 2);
  }
  PositionSlider* slider = nullptr;
};

TEST_F(Slider, FollowsTheBarWithoutEcho) {
  EXPECT_EQ(slider->value(), 101);
  form.HScroll1.setValue(150);
  EXPECT_EQ(slider->value(), 150);
  EXPECT_EQ(heard.all(), "change");
}

TEST_F(Slider, DragScrollsAndLettingGoChangesOnce) {
  QTest::mousePress(slider, Qt::LeftButton, {}, placeOf(0.5));
  QTest::mouseMove(slider, placeOf(0.6));
  QTest::mouseMove(slider, placeOf(0.75));
  QTest::mouseRelease(slider, Qt::LeftButton, {}, placeOf(0.75));
  EXPECT_EQ(heard.all(), "scroll scroll change");
  EXPECT_NEAR(form.HScroll1.value(), 151, 1);
}

TEST_F(Slider, ClickOnTheTrackMovesThere) {
  QTest::mouseClick(slider, Qt::LeftButton, {}, placeOf(0.25));
  EXPECT_EQ(heard.all(), "change");
  EXPECT_NEAR(form.HScroll1.value(), 51, 1);
}

TEST_F(Slider, KeysMoveByTheBarsSteps) {
  QTest::keyClick(slider, Qt::Key_Right);
  EXPECT_EQ(form.HScroll1.value(), 110);
  QTest::keyClick(slider, Qt::Key_Home);
  EXPECT_EQ(form.HScroll1.value(), 1);
  EXPECT_EQ(heard.all(), "change change");
}

TEST_F(Slider, NewRangeBehindTheThumbIsNoActOfTheUsers) {
  form.HScroll1.setMax(50);
  EXPECT_EQ(slider->value(), 50);
  EXPECT_EQ(slider->maximum(), 50);
  EXPECT_EQ(heard.all(), "change");
}

TEST_F(Slider, IsASliderWithAValueToScreenReaders) {
  QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(slider);
  EXPECT_EQ(accessible->role(), QAccessible::Slider);
  EXPECT_EQ(accessible->text(QAccessible::Name), "Position");
  EXPECT_EQ(accessible->valueInterface()->currentValue().toInt(), 101);
}

TEST_F(Slider, MarksItsEnd) {
  const QImage before = slider->grab().toImage();
  form.HScroll1.setEndMark("mix");
  EXPECT_NE(slider->grab().toImage(), before);
}

}  // namespace
}  // namespace nerolith::widgets

// The recording section's form on a window: what is seen and done there.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QBackingStore>
#include <QDir>
#include <QLineEdit>
#include <QPaintEvent>
#include <QPushButton>
#include <QTest>

#include "forms/main_form.h"
#include "forms/recording_form.h"
#include "platform/linux/widgets/form_window.h"
#include "platform/linux/widgets/glass_colour.h"
#include "platform/linux/widgets/meter_bar.h"
#include "platform/linux/widgets/qt_window_host.h"
#include "platform/linux/widgets/straight_paint.h"
#include "shown_form.h"

namespace nerolith::widgets {
namespace {

class RecordingForm : public testing::Test {
 protected:
  void SetUp() override {
    host.add(main.form);
    main.form.setVisible(true);
    form.form.setOwner(main.form);
    form.form.setBesideOwner(true);
    form.form.setResizable(false);
    host.add(form.form);
    form.form.setVisible(true);
    window = host.windowOf(form.form);
    ASSERT_NE(window, nullptr);
    form.Label4.setCaption("Volume adjust |");
    form.Label8.setCaption("disabled");
    QCoreApplication::processEvents();
  }
  void TearDown() override {
    host.remove(form.form);
    host.remove(main.form);
  }

  QPushButton& key(const controls::Label& label) {
    auto* found = findWidget<QPushButton>(*window, [&](const QPushButton& button) {
      return button.text() == QString::fromStdString(label.caption());
    });
    EXPECT_NE(found, nullptr) << label.caption();
    return *found;
  }
  void save(const QString& name) {
    QTest::qWait(30);
    const QString asked = qEnvironmentVariable("NEROLITH_SCREENSHOTS");
    const QDir folder(asked.isEmpty() ? QStringLiteral(NEROLITH_SOURCE_DIR "/out/screenshots")
                                      : asked);
    ASSERT_TRUE(folder.mkpath("."));
    EXPECT_TRUE(window->grab().toImage().save(folder.filePath(name + ".png")));
  }
  void record() {
    form.chosenFile.setText("/home/anna/Music/Recordings/evening.wav");
    form.Timer2.setEnabled(true);
    form.Label7.setVisible(false);
    form.Label3.setVisible(true);
    form.Label3.setCaption("Filesize: 128.4 MB");
    for (auto& box : form.Text1) box.setBackColour(forms::kLimitArmed);
    form.Text1[0].setText("650");
    form.Text1[1].setText("64");
    form.Label2[0].setEnabled(false);
    form.Label2[2].setEnabled(false);
    form.ProgressBar1.setValue(72);
    form.Label5.setBackColour(33023);
  }

  forms::MainForm main;
  forms::RecordingForm form;
  QtWindowHost host;
  FormWindow* window = nullptr;
  Heard heard;
};

TEST_F(RecordingForm, EveryActionIsAKeyForMouseAndKeyboard) {
  const std::vector<controls::Label*> actions = {&form.Label1,    &form.Label2[0], &form.Label2[1],
                                                 &form.Label2[2], &form.Label2[3], &form.Label2[4],
                                                 &form.Label7,    &form.Label8};
  for (controls::Label* action : actions) heard.on(action->click, action->caption());
  std::string expected;
  for (controls::Label* action : actions) {
    QTest::mouseClick(&key(*action), Qt::LeftButton);
    QTest::keyClick(&key(*action), Qt::Key_Space);
    expected += (expected.empty() ? "" : " ") + action->caption() + " " + action->caption();
  }
  EXPECT_EQ(heard.all(), expected);
}

TEST_F(RecordingForm, ADisabledActionCannotBePressed) {
  heard.on(form.Label2[2].click, "start");
  form.Label2[2].setEnabled(false);
  QTest::mouseClick(&key(form.Label2[2]), Qt::LeftButton);
  EXPECT_EQ(heard.all(), "");
}

TEST_F(RecordingForm, ALimitIsTypedIntoItsBoxAndStandsOnItsColour) {
  auto* box = findNamed<QLineEdit>(*window, "Stop recording at MB");
  ASSERT_NE(box, nullptr);
  QTest::keyClicks(box, "650");
  EXPECT_EQ(form.Text1[0].text(), "650");
  form.Text1[0].setBackColour(forms::kLimitArmed);
  QCoreApplication::processEvents();
  const QColor ground = box->grab().toImage().pixelColor(box->width() - 12, box->height() / 2);
  EXPECT_EQ(ground, toQColor(forms::kLimitArmed));
}

TEST_F(RecordingForm, TheMeterLightsUpToThePeakInTheColoursOfTheIndicator) {
  auto* meter = findNamed<MeterBar>(*window, "Peak level");
  ASSERT_NE(meter, nullptr);
  form.ProgressBar1.setValue(80);
  QCoreApplication::processEvents();
  const QImage seen = meter->grab().toImage();
  const auto lit = [&seen](double share, QColor colour) {
    for (int x = static_cast<int>(share * seen.width()); x < seen.width(); ++x)
      if (seen.pixelColor(x, seen.height() / 2) == colour) return true;
    return false;
  };
  EXPECT_TRUE(lit(0.0, QColor(0, 192, 0)));
  EXPECT_TRUE(lit(0.7, QColor(255, 128, 0)));
  EXPECT_FALSE(lit(0.0, QColor(255, 0, 0)));
  EXPECT_FALSE(lit(0.82, QColor(255, 128, 0)));
}

/// What of a widget is painted anew.
class PaintWatch : public QObject {
 public:
  explicit PaintWatch(QWidget& widget) { widget.installEventFilter(this); }
  std::vector<QRect> areas;

 private:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) areas.push_back(static_cast<QPaintEvent*>(event)->rect());
    return false;
  }
};

/// Works on the pixels that the window shows.
template <typename Work>
void onScreen(const QWidget& window, Work work) {
  window.backingStore()->beginPaint(QRegion());
  work(*dynamic_cast<QImage*>(window.backingStore()->paintDevice()));
  window.backingStore()->endPaint();
}

QImage screenOf(const QWidget& window) {
  QImage copy;
  onScreen(window, [&copy](const QImage& screen) { copy = screen.copy(); });
  return copy;
}

/// Marks each of the meter's lights on the screen, and tells which have lost their mark.
std::vector<int> unmarkedLights(const QWidget& meter) {
  std::vector<int> unmarked;
  onScreen(*meter.window(), [&](QImage& screen) {
    for (int light = 0; light < 65; ++light) {
      const QPoint mark = meter.mapTo(meter.window(), QPoint(6 * light + 2, 3));
      if (screen.pixelColor(mark) != Qt::magenta) unmarked.push_back(light);
      screen.setPixelColor(mark, Qt::magenta);
    }
  });
  return unmarked;
}

TEST_F(RecordingForm, TheMeterPaintsOnlyTheLightsThatChangeAndSendsNobodyToPaint) {
  auto* meter = findNamed<MeterBar>(*window, "Peak level");
  ASSERT_NE(meter, nullptr);
  const auto show = [this](float percent) {
    form.ProgressBar1.setValue(percent);
    QCoreApplication::processEvents();
  };
  ASSERT_TRUE(QTest::qWaitForWindowExposed(window));
  show(50);  // 33 of its 65 lights
  PaintWatch painted(*meter);
  unmarkedLights(*meter);
  show(50.5F);
  EXPECT_EQ(unmarkedLights(*meter), std::vector<int>());
  show(53);
  EXPECT_EQ(unmarkedLights(*meter), (std::vector<int>{33, 34}));
  show(51);
  EXPECT_EQ(unmarkedLights(*meter), std::vector<int>{34});
  for (const float percent : {80.0F, 20.0F, 100.0F, 0.0F, 3.0F, 66.0F}) show(percent);
  EXPECT_TRUE(painted.areas.empty());
  const auto plain = [](const QPixmap& picture) {
    return picture.toImage().convertToFormat(QImage::Format_RGB32);
  };
  const QImage seen = plain(window->screen()->grabWindow(window->winId()));
  EXPECT_EQ(seen, plain(window->grab()));
  // Between the lights lies the same glass as beside them.
  const QRect place(meter->mapTo(window, QPoint(0, 0)), meter->size());
  for (int y = place.top(); y <= place.bottom(); ++y)
    for (const int gap : {4, 5, 382, 383})
      EXPECT_EQ(seen.pixel(place.left() + gap, y), seen.pixel(place.left() - 1, y));
}

TEST_F(RecordingForm, APictureThatDoesNotFitTheScreenIsLeftToThePainter) {
  auto* meter = findNamed<MeterBar>(*window, "Peak level");
  ASSERT_NE(meter, nullptr);
  ASSERT_TRUE(QTest::qWaitForWindowExposed(window));
  const QImage before = screenOf(*window);
  QImage picture(meter->size(), kStraightFormat);
  picture.fill(Qt::magenta);
  const QRect light(0, 0, 4, 18);
  QImage wide = picture;
  wide.setDevicePixelRatio(1.5);
  EXPECT_FALSE(putStraight(*meter, light, wide)) << "another scale";
  EXPECT_FALSE(putStraight(*meter, light, picture.convertToFormat(QImage::Format_RGB32)));
  EXPECT_FALSE(putStraight(*meter, light.translated(meter->width(), 0), picture)) << "beside it";
  EXPECT_EQ(screenOf(*window), before);
  EXPECT_TRUE(putStraight(*meter, light, picture));
  EXPECT_NE(screenOf(*window), before);
  window->hide();
  EXPECT_FALSE(putStraight(*meter, light, picture)) << "nobody sees it";
}

TEST_F(RecordingForm, TheMeterTellsAScreenReaderItsPercent) {
  form.ProgressBar1.setValue(65.6F);
  QAccessibleInterface* told =
      QAccessible::queryAccessibleInterface(findNamed<MeterBar>(*window, "Peak level"));
  ASSERT_NE(told, nullptr);
  EXPECT_EQ(told->role(), QAccessible::ProgressBar);
  EXPECT_EQ(told->text(QAccessible::Name), "Peak level");
  ASSERT_NE(told->valueInterface(), nullptr);
  EXPECT_EQ(told->valueInterface()->currentValue().toInt(), 66);
  EXPECT_EQ(told->valueInterface()->maximumValue().toInt(), 100);
}

TEST_F(RecordingForm, CalibrationAndSizeTakeTurnsInOnePlace) {
  record();
  QTest::qWait(30);
  EXPECT_FALSE(key(form.Label7).isVisible());
  EXPECT_NE(findNamed<QWidget>(*window, "Filesize: 128.4 MB"), nullptr);
}

TEST_F(RecordingForm, StandsBesideTheMainWindowAndFollowsItsMoves) {
  const QWidget* owner = host.windowOf(main.form);
  const auto apart = [&] {
    return !window->frameGeometry().intersects(owner->frameGeometry()) ||
           window->frameGeometry().right() >= owner->screen()->availableGeometry().right() - 1;
  };
  EXPECT_TRUE(apart());
  const QPoint before = window->pos();
  host.windowOf(main.form)->move(owner->pos() + QPoint(0, 40));
  QTest::qWait(30);
  form.form.placeBesideOwner();
  EXPECT_NE(window->pos(), before);
  EXPECT_TRUE(apart());
}

TEST_F(RecordingForm, WhatTheUserMovedStaysUntilTheMainWindowMoves) {
  form.form.placeBesideOwner();
  window->move(7, 9);
  QTest::qWait(30);
  form.form.placeBesideOwner();
  EXPECT_EQ(window->pos(), QPoint(7, 9));
}

TEST_F(RecordingForm, NothingIsCutOff) {
  for (QPushButton* button : window->findChildren<QPushButton*>()) {
    if (!button->isVisible()) continue;
    EXPECT_GE(button->width(), button->fontMetrics().horizontalAdvance(button->text()) + 8)
        << button->text().toStdString();
  }
}

TEST_F(RecordingForm, PictureIdle) { save("recording-idle"); }

TEST_F(RecordingForm, PictureRecording) {
  record();
  save("recording-running");
}

TEST_F(RecordingForm, PictureCalibrating) {
  form.Label7.setCaption("Stop Calibrate");
  form.ProgressBar1.setValue(52);
  save("recording-calibrating");
}

TEST_F(RecordingForm, PictureAfterTheStopWithTrouble) {
  form.chosenFile.setText("/home/anna/Music/Recordings/evening.wav");
  form.outcome.setCaption("Recorded 128.4 MB");
  form.standardCopy.setVisible(true);
  form.notice.setCaption("The machine was too busy: 4 seconds of sound are missing");
  save("recording-stopped");
}

}  // namespace
}  // namespace nerolith::widgets

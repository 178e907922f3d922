#include "platform/linux/widgets/form_window.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QMenu>
#include <QProcess>
#include <QTemporaryDir>
#include <set>

#include "platform/failure.h"
#include "platform/linux/widgets/digital_display.h"
#include "platform/linux/widgets/face_button.h"
#include "platform/linux/widgets/qt_event_queue.h"
#include "platform/linux/widgets/qt_picture_loader.h"
#include "platform/linux/widgets/song_list_view.h"
#include "shown_form.h"

namespace nerolith::widgets {
namespace {

using Window = ShownForm;

TEST_F(Window, IsMadeWhenTheFormIsShownFirst) {
  controls::Form other;
  other.setVisible(false);
  host.add(other);
  EXPECT_EQ(host.windowOf(other), nullptr);
  other.setVisible(true);
  ASSERT_NE(host.windowOf(other), nullptr);
  EXPECT_TRUE(host.windowOf(other)->isVisible());
  other.setVisible(false);
  EXPECT_FALSE(host.windowOf(other)->isVisible());
  host.remove(other);
  EXPECT_EQ(host.windowOf(other), nullptr);
}

TEST_F(Window, ClosingByTheUserUnloadsTheFormAndHidesIt) {
  heard.on(form.form.unload, "unload");
  window->close();
  EXPECT_EQ(heard.all(), "unload");
  EXPECT_FALSE(form.form.visible());
  EXPECT_FALSE(window->isVisible());
}

TEST_F(Window, SeesKeysBeforeTheControlAndOnce) {
  heard.on(form.form.keyDown, "window");
  heard.on(form.List1.keyPress, "list");
  auto& list = widget<SongListView>("Songs");
  list.setFocus();
  QTest::keyClick(&list, Qt::Key_Space);
  EXPECT_EQ(heard.all(), "window list");
  QTest::keyClick(&list, Qt::Key_F5);
  EXPECT_EQ(heard.all(), "window list window");
}

TEST_F(Window, NamesKeysAndModifiers) {
  controls::KeyPress pressed;
  auto keys = form.form.keyDown.subscribe([&](controls::KeyPress key) { pressed = key; });
  auto& list = widget<SongListView>("Songs");
  list.setFocus();
  QTest::keyClick(&list, Qt::Key_U, Qt::AltModifier);
  EXPECT_EQ(pressed.key, controls::letterKey('U'));
  EXPECT_TRUE(pressed.alt);
  QTest::keyClick(&list, Qt::Key_Delete, Qt::ShiftModifier);
  EXPECT_EQ(pressed.key, controls::Key::Delete);
  EXPECT_TRUE(pressed.shift);
  QTest::keyClick(&list, Qt::Key_F10);
  EXPECT_EQ(pressed.key, controls::Key::F10);
}

TEST_F(Window, ShiftF10IsTheMenuKey) {
  controls::KeyPress pressed;
  auto keys = form.form.keyDown.subscribe([&](controls::KeyPress key) { pressed = key; });
  auto& list = widget<SongListView>("Songs");
  list.setFocus();
  QTest::keyClick(&list, Qt::Key_F10, Qt::ShiftModifier);
  EXPECT_EQ(pressed.key, controls::Key::Menu);
}

TEST_F(Window, MenuOpenedByAKeyLiesAtTheFocusedControl) {
  controls::MenuItem menu, settings("Settings");
  menu.setItems({&settings});
  auto keys = form.form.keyDown.subscribe([&](controls::KeyPress) { form.form.popUpMenu(menu); });
  auto& list = widget<SongListView>("Songs");
  list.setFocus();
  form.List1.setListIndex(2);
  QTest::keyClick(&list, Qt::Key_F10, Qt::ShiftModifier);
  auto* shown = findWidget<QMenu>(*window, [](const QMenu& m) { return m.isVisible(); });
  ASSERT_NE(shown, nullptr);
  const QRect lines(list.mapToGlobal(QPoint()), list.size());
  EXPECT_TRUE(lines.contains(shown->pos())) << shown->y() << " of " << lines.bottom();
  shown->close();
}

TEST_F(Window, SaysSongForOneAndSongsForAnyOtherNumber) {
  EXPECT_EQ(form.listWord.caption(), "songs");
  form.Label3.setCaption("1");
  EXPECT_EQ(form.listWord.caption(), "song");
  form.Label3.setCaption("21");
  EXPECT_EQ(form.listWord.caption(), "songs");
}

TEST_F(Window, AnEmptyListSaysSo) {
  auto& list = widget<SongListView>("Songs");
  const auto inks = [&list] {
    const QImage seen = list.viewport()->grab().toImage();
    std::set<QRgb> colours;
    for (int x = 0; x < seen.width(); ++x)
      for (int y = -8; y < 8; ++y) colours.insert(seen.pixel(x, seen.height() / 2 + y));
    return colours.size();
  };
  const auto beside = inks();
  form.List1.setItems({});
  EXPECT_GT(inks(), beside);
}

TEST_F(Window, TheProductsIconComesAfterTheFirstPicture) {
  EXPECT_TRUE(QTest::qWaitFor([] { return !QApplication::windowIcon().isNull(); }, 2000));
}

TEST_F(Window, FocusAskedForByAControlArrives) {
  widget<DigitalDisplay>("Time").setFocus();
  heard.on(form.List1.gotFocus, "focus");
  form.List1.setFocus();
  EXPECT_EQ(window->focusWidget(), &widget<SongListView>("Songs"));
  EXPECT_EQ(heard.all(), "focus");
}

TEST_F(Window, EverythingIsReachedByTabInTheOrderOfTheDeclaration) {
  std::vector<QString> reached;
  QWidget* start = &widget<QWidget>("Hide");
  QWidget* at = start;
  do {
    const auto* button = dynamic_cast<QAbstractButton*>(at);
    if (at->focusPolicy() & Qt::TabFocus && at->isVisibleTo(window) && at->isEnabled())
      reached.push_back(button && at->accessibleName().isEmpty()
                            ? QString(button->text()).remove(QLatin1Char('&'))
                            : at->accessibleName());
    at = at->nextInFocusChain();
  } while (at != start);
  std::erase(reached, QString());
  const std::vector<QString> wanted = {
      "Hide",      "Close", "Time", "Single",  "Auto next", "Random", "loop",   "Position", "Play",
      "Play Next", "Pause", "Stop", "Refresh", "Options",   "Drive",  "Folder", "Songs"};
  EXPECT_EQ(reached, wanted);
}

TEST_F(Window, FocusIsSeenOnEveryControl) {
  for (QWidget* child : window->findChildren<QWidget*>()) {
    if (!(child->focusPolicy() & Qt::TabFocus) || !child->isVisible()) continue;
    if (child->accessibleName().isEmpty() && !dynamic_cast<QAbstractButton*>(child)) continue;
    form.List1.setListIndex(0);
    window->setFocus();
    child->clearFocus();
    const QImage without = child->grab().toImage();
    child->setFocus(Qt::TabFocusReason);
    EXPECT_NE(child->grab().toImage(), without) << child->accessibleName().toStdString();
  }
}

TEST_F(Window, PopsUpAMenuThatIsMadeForTheMoment) {
  controls::MenuItem menu, settings("Settings"), line("-"), more("More"), inner("Inner");
  inner.setEnabled(false);
  more.setItems({&inner});
  menu.setItems({&settings, &line, &more});
  heard.on(settings.click, "settings");
  form.form.popUpMenu(menu);
  auto* shown = findWidget<QMenu>(*window, [](const QMenu& m) { return m.isVisible(); });
  ASSERT_NE(shown, nullptr);
  ASSERT_EQ(shown->actions().size(), 3);
  EXPECT_TRUE(shown->actions()[1]->isSeparator());
  EXPECT_FALSE(shown->actions()[2]->menu()->actions()[0]->isEnabled());
  shown->actions()[0]->trigger();
  QApplication::processEvents();  // it acts once the menu has closed
  EXPECT_EQ(heard.all(), "settings");
  shown->close();
}

TEST_F(Window, TimerTicksWhileEnabledAndNeverInsideItself) {
  controls::Form other;
  controls::Timer timer(std::chrono::milliseconds(5));
  other.setVisible(false);
  other.addTimer(timer);
  int ticks = 0;
  int depth = 0;
  int deepest = 0;
  auto ticking = timer.tick.subscribe([&] {
    deepest = std::max(deepest, ++depth);
    ++ticks;
    QTest::qWait(15);
    --depth;
  });
  host.add(other);
  EXPECT_TRUE(QTest::qWaitFor([&] { return ticks >= 3; }, 3000));
  EXPECT_EQ(deepest, 1);
  timer.setEnabled(false);
  const int before = ticks;
  QTest::qWait(40);
  EXPECT_EQ(ticks, before);
  host.remove(other);
}

TEST_F(Window, ShowsThePictureBehindItsPanels) {
  controls::Picture red{2, 2, {0xFFC01020, 0xFFC01020, 0xFFC01020, 0xFFC01020}};
  form.form.setPicture(red);
  EXPECT_EQ(window->grab().toImage().pixelColor(3, 3).rgb(), 0xFFC01020);
  form.form.setPicture({});
  EXPECT_NE(window->grab().toImage().pixelColor(3, 3).rgb(), 0xFFC01020);
}

TEST_F(Window, KeepsEveryControlInsideAtItsSmallestSize) {
  window->resize(window->minimumSizeHint());
  QCoreApplication::processEvents();
  EXPECT_LE(window->width(), 660);
  EXPECT_LE(window->height(), 520);
  for (const QWidget* child : window->findChildren<QWidget*>()) {
    if (!child->isVisible() || child->parentWidget() != window) continue;
    EXPECT_TRUE(window->rect().contains(child->geometry()))
        << child->metaObject()->className() << child->accessibleName().toStdString();
  }
}

TEST_F(Window, FaceCaptionsFitAtTheSmallestSize) {
  window->resize(window->minimumSizeHint());
  QCoreApplication::processEvents();
  for (QWidget* child : window->findChildren<QWidget*>()) {
    const auto* face = dynamic_cast<FaceButtonView*>(child);
    if (!face) continue;
    EXPECT_GE(face->width(), face->fontMetrics().horizontalAdvance(face->text()) + 4);
  }
}

TEST(HighResolution, TwiceTheDotsShowTheSameLayout) {
  QTemporaryDir folder;
  const auto pictureAt = [&](const QString& scale) {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_SCALE_FACTOR", scale);
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    environment.insert("NEROLITH_SCREENSHOTS", folder.filePath(scale));
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(), {"--gtest_filter=Gallery.Playing"});
    EXPECT_TRUE(process.waitForFinished(30000));
    return QImage(folder.filePath(scale + "/window-playing.png"));
  };
  const QImage one = pictureAt("1");
  const QImage two = pictureAt("2");
  ASSERT_FALSE(one.isNull());
  EXPECT_EQ(two.size(), one.size() * 2);
  // Shrunk again, the two differ by no more than the smoother edges of the letters.
  const QImage shrunk = two.scaled(one.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  qint64 difference = 0;
  for (int y = 0; y < one.height(); ++y)
    for (int x = 0; x < one.width(); ++x)
      difference += std::abs(qGray(one.pixel(x, y)) - qGray(shrunk.pixel(x, y)));
  EXPECT_LT(static_cast<double>(difference) / (one.width() * one.height()), 6.0);
}

TEST(EventQueue, RunsPostedCallsInOrderOnceIdle) {
  QtEventQueue queue;
  std::string order;
  queue.post([&] { order += 'a'; });
  queue.post([&] {
    order += 'b';
    queue.post([&] { order += 'd'; });
  });
  queue.post([&] { throw base::Failure("stays inside"); });
  queue.post([&] { order += 'c'; });
  EXPECT_EQ(order, "");
  EXPECT_TRUE(QTest::qWaitFor([&] { return order.size() == 4; }, 2000));
  EXPECT_EQ(order, "abcd");
}

TEST(PictureLoader, ReadsTheSkinThatShips) {
  const controls::Picture skin =
      QtPictureLoader().load(std::string(NEROLITH_SOURCE_DIR) + "/assets/skin.jpg");
  EXPECT_EQ(skin.width, 960);
  EXPECT_EQ(skin.pixels.size(), 960U * 720U);
}

TEST(PictureLoader, FailsForWhatIsMissingOrNoPicture) {
  EXPECT_THROW(QtPictureLoader().load("/nowhere/skin.jpg"), base::Failure);
  EXPECT_THROW(QtPictureLoader().load(std::string(NEROLITH_SOURCE_DIR) + "/CMakeLists.txt"),
               base::Failure);
}

}  // namespace
}  // namespace nerolith::widgets

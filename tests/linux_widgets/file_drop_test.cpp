#include "platform/linux/widgets/file_drop.h"

#include <QDragEnterEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QUrl>

#include "shown_form.h"

namespace nerolith::widgets {
namespace {

class FileDropped : public ShownForm {
 protected:
  void SetUp() override {
    ShownForm::SetUp();
    form.form.takesFiles = [this](const std::vector<std::string>& paths) {
      asked = paths;
      ++questions;
      return paths.size() == 1 && paths[0].ends_with(".m3u");
    };
    drops = form.form.filesDropped.subscribe(
        [this](const std::vector<std::string>& paths) { dropped.push_back(paths); });
  }
  void TearDown() override { leave(); }
  /// The toolkit remembers the window that a drag is over.
  void leave() {
    QDragLeaveEvent event;
    QCoreApplication::sendEvent(window, &event);
  }
  /// What the mouse shows while `addresses` are dragged over the window.
  Qt::DropAction drag(const QList<QUrl>& addresses, Qt::DropActions offered = Qt::CopyAction) {
    leave();
    data.setUrls(addresses);
    QDragEnterEvent enter(QPoint(60, 60), offered, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &enter);
    if (!enter.isAccepted()) return Qt::IgnoreAction;
    QDragMoveEvent move(QPoint(61, 60), offered, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &move);
    EXPECT_TRUE(move.isAccepted());
    return enter.dropAction();
  }
  bool drop(Qt::DropActions offered = Qt::CopyAction) {
    QDropEvent event(QPointF(61, 60), offered, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &event);
    return event.isAccepted();
  }
  static QUrl file(const char* path) { return QUrl::fromLocalFile(QString::fromUtf8(path)); }

  QMimeData data;
  std::vector<std::string> asked;
  int questions = 0;
  std::vector<std::vector<std::string>> dropped;
  base::Subscription drops;
};

TEST_F(FileDropped, WhatTheFormTakesIsHandedOverOnceTheDragIsOver) {
  EXPECT_EQ(drag({file("/home/anna/Music/évening 100%.m3u")}), Qt::CopyAction);
  EXPECT_TRUE(drop());
  EXPECT_TRUE(dropped.empty());
  QCoreApplication::processEvents();
  EXPECT_EQ(dropped,
            (std::vector<std::vector<std::string>>{{"/home/anna/Music/évening 100%.m3u"}}));
  EXPECT_EQ(questions, 1);
}

TEST_F(FileDropped, WhatTheFormRefusesIsRefusedAtTheMouse) {
  EXPECT_EQ(drag({file("/home/anna/cover.png")}), Qt::IgnoreAction);
  EXPECT_EQ(drag({file("/a.m3u"), file("/b.m3u")}), Qt::IgnoreAction);
  EXPECT_EQ(asked, (std::vector<std::string>{"/a.m3u", "/b.m3u"}));
  EXPECT_FALSE(drop());
  QCoreApplication::processEvents();
  EXPECT_TRUE(dropped.empty());
}

TEST_F(FileDropped, ANameThatIsNoUtf8ArrivesByteForByte) {
  EXPECT_EQ(drag({QUrl::fromEncoded("file:///music/caf%E9%0A.m3u")}), Qt::CopyAction);
  EXPECT_EQ(asked, (std::vector<std::string>{"/music/caf\xE9\n.m3u"}));
}

TEST_F(FileDropped, AnAddressElsewhereOrATextIsNoFile) {
  EXPECT_EQ(drag({QUrl(QStringLiteral("https://example.org/a.m3u"))}), Qt::IgnoreAction);
  data.clear();
  data.setText(QStringLiteral("/a.m3u"));
  EXPECT_TRUE(draggedFiles(data).empty());
  EXPECT_EQ(questions, 0);
}

TEST_F(FileDropped, AFileIsNeverTakenAsMoved) {
  EXPECT_EQ(drag({file("/a.m3u")}, Qt::MoveAction), Qt::IgnoreAction);
  EXPECT_FALSE(drop(Qt::MoveAction));
  EXPECT_EQ(drag({file("/a.m3u")}, Qt::MoveAction | Qt::LinkAction), Qt::LinkAction);
  EXPECT_EQ(drag({file("/a.m3u")}, Qt::MoveAction | Qt::CopyAction), Qt::CopyAction);
}

TEST_F(FileDropped, AFormThatTakesNothingRefusesEverything) {
  form.form.takesFiles = nullptr;
  EXPECT_EQ(drag({file("/a.m3u")}), Qt::IgnoreAction);
}

TEST_F(FileDropped, NoControlOfTheMainWindowKeepsFilesForItself) {
  for (const QWidget* child : window->findChildren<QWidget*>())
    EXPECT_FALSE(child->acceptDrops()) << child->accessibleName().toStdString();
}

TEST_F(FileDropped, AFailureWhileAskingIsARefusal) {
  form.form.takesFiles = [](const std::vector<std::string>&) -> bool {
    throw base::Failure("the disk does not answer");
  };
  EXPECT_EQ(drag({file("/a.m3u")}), Qt::IgnoreAction);
}

}  // namespace
}  // namespace nerolith::widgets

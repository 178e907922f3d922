// drag_source FILE...: a small window in the corner of the screen from which these files can be
// dragged, as from a file manager. Runs until it is ended.
#include <QApplication>
#include <QDrag>
#include <QFile>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

namespace {

class Source : public QWidget {
 public:
  explicit Source(QList<QUrl> files)
      : QWidget(nullptr, Qt::BypassWindowManagerHint | Qt::WindowStaysOnTopHint),
        files_(std::move(files)) {
    setWindowTitle("drag source");
    setGeometry(0, 0, 60, 60);
  }

 protected:
  void mouseMoveEvent(QMouseEvent*) override {
    auto* drag = new QDrag(this);
    auto* data = new QMimeData;
    data->setUrls(files_);
    drag->setMimeData(data);
    drag->exec(Qt::CopyAction | Qt::MoveAction | Qt::LinkAction, Qt::MoveAction);
  }

 private:
  QList<QUrl> files_;
};

}  // namespace

int main(int count, char** words) {
  const QApplication application(count, words);
  QList<QUrl> files;
  for (int i = 1; i < count; ++i) files << QUrl::fromLocalFile(QFile::decodeName(words[i]));
  Source source(files);
  source.show();
  return QApplication::exec();
}

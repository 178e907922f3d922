#include "platform/linux/widgets/file_drop.h"

#include <QDropEvent>
#include <QMimeData>
#include <QTimer>
#include <QUrl>
#include <QWidget>

#include "platform/linux/widgets/quietly.h"

namespace nerolith::widgets {
namespace {

/// The toolkit's own way from address to path goes by way of characters, and loses names that are
/// no UTF-8.
std::string pathOf(const QUrl& address) {
  return QByteArray::fromPercentEncoding(address.path(QUrl::FullyEncoded).toLatin1()).toStdString();
}

}  // namespace

std::vector<std::string> draggedFiles(const QMimeData& data) {
  std::vector<std::string> files;
  for (const QUrl& address : data.urls()) {
    if (!address.isLocalFile()) return {};
    files.push_back(pathOf(address));
  }
  return files;
}

FileDrop::FileDrop(QWidget& window, controls::Form& form) : QObject(&window), form_(form) {
  window.setAcceptDrops(true);
  window.installEventFilter(this);
}

void FileDrop::answer(QDropEvent& event) const {
  const Qt::DropAction action =
      event.possibleActions() & Qt::CopyAction ? Qt::CopyAction : Qt::LinkAction;
  const bool possible = event.possibleActions() & action;
  if (taken_ && possible) event.setDropAction(action);
  event.setAccepted(taken_ && possible);
}

void FileDrop::dropped(QDropEvent& event) {
  answer(event);
  if (!event.isAccepted()) return;
  QTimer::singleShot(0, this, [this, files = std::move(files_)] {
    quietly([&] {
      form_.bringForward();
      form_.filesDropped.raise(files);
    });
  });
}

bool FileDrop::eventFilter(QObject*, QEvent* event) {
  switch (event->type()) {
    case QEvent::DragEnter:
      files_ = draggedFiles(*static_cast<QDropEvent*>(event)->mimeData());
      taken_ = false;
      quietly([this] { taken_ = form_.wouldTake(files_); });
      [[fallthrough]];
    case QEvent::DragMove:
      answer(*static_cast<QDropEvent*>(event));
      return true;
    case QEvent::Drop:
      dropped(*static_cast<QDropEvent*>(event));
      return true;
    default:
      return false;
  }
}

}  // namespace nerolith::widgets

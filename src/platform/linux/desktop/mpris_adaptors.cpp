#include "platform/linux/desktop/mpris_adaptors.h"

#include <QTimer>

#include "platform/linux/desktop/file_url.h"

namespace nerolith::desktop {

MprisRoot::MprisRoot(QObject& onBus, platform::MediaCommands& commands)
    : QDBusAbstractAdaptor(&onBus), commands_(commands) {}

QString MprisRoot::identity() const { return QStringLiteral("Nerolith"); }

QString MprisRoot::desktopEntry() const { return QStringLiteral("velmarion"); }

QStringList MprisRoot::supportedUriSchemes() const { return {QStringLiteral("file")}; }

/// Those of the desktop entry: what the folder browser's file pattern lets through by their usual
/// names, playlists, and folders.
QStringList MprisRoot::supportedMimeTypes() const {
  return QStringLiteral(
             "audio/mpeg audio/mp2 audio/x-wav audio/wav audio/vnd.wave audio/x-ms-wma "
             "application/vnd.ms-asf video/x-ms-asf audio/x-aiff audio/aiff audio/midi "
             "audio/x-midi video/mpeg audio/x-mpegurl inode/directory")
      .split(QLatin1Char(' '));
}

void MprisRoot::Raise() { commands_.raise(); }

/// Once the caller has its answer.
void MprisRoot::Quit() {
  QTimer::singleShot(0, this, [this] { commands_.quit(); });
}

MprisPlayer::MprisPlayer(QObject& onBus, platform::MediaCommands& commands,
                         const platform::MediaStatus& status)
    : QDBusAbstractAdaptor(&onBus), commands_(commands), status_(status) {}

void MprisPlayer::setLoopStatus(const QString& word) {
  if (const auto repeat = repeatNamed(word)) commands_.setRepeat(*repeat);
}

void MprisPlayer::setRate(double rate) {
  if (rate == 0) commands_.pause();
}

void MprisPlayer::setShuffle(bool shuffle) { commands_.setShuffle(shuffle); }

void MprisPlayer::Next() { commands_.next(); }
void MprisPlayer::Pause() { commands_.pause(); }
void MprisPlayer::PlayPause() { commands_.playOrPause(); }
void MprisPlayer::Stop() { commands_.stop(); }
void MprisPlayer::Play() { commands_.play(); }
void MprisPlayer::Seek(qlonglong Offset) { commands_.seekBy(static_cast<double>(Offset) / 1e6); }

void MprisPlayer::SetPosition(const QDBusObjectPath& TrackId, qlonglong Position) {
  if (status_.song != 0 && TrackId == trackId(status_))
    commands_.seekTo(static_cast<double>(Position) / 1e6);
}

void MprisPlayer::OpenUri(const QString& Uri) {
  if (const auto path = pathOfUrl(Uri.toStdString())) commands_.openFile(*path);
}

}  // namespace nerolith::desktop

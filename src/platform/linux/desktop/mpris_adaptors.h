// The two interfaces of MPRIS 2.2 on the bus.
#pragma once

#include <QDBusAbstractAdaptor>
#include <QDBusObjectPath>
#include <QString>
#include <QStringList>
#include <QVariantMap>

#include "platform/linux/desktop/mpris_properties.h"

namespace nerolith::desktop {

/// org.mpris.MediaPlayer2: the program. Lives as a child of the object that is on the bus.
class MprisRoot : public QDBusAbstractAdaptor {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2")
  Q_PROPERTY(bool CanQuit READ canQuit)
  Q_PROPERTY(bool CanRaise READ canRaise)
  Q_PROPERTY(bool HasTrackList READ hasTrackList)
  Q_PROPERTY(QString Identity READ identity)
  Q_PROPERTY(QString DesktopEntry READ desktopEntry)
  Q_PROPERTY(QStringList SupportedUriSchemes READ supportedUriSchemes)
  Q_PROPERTY(QStringList SupportedMimeTypes READ supportedMimeTypes)

 public:
  MprisRoot(QObject& onBus, platform::MediaCommands& commands);

  bool canQuit() const { return true; }
  bool canRaise() const { return true; }
  bool hasTrackList() const { return false; }
  QString identity() const;
  QString desktopEntry() const;
  QStringList supportedUriSchemes() const;
  QStringList supportedMimeTypes() const;

 public Q_SLOTS:  // NOLINT(readability-redundant-access-specifiers): the toolkit's own
  void Raise();
  void Quit();

 private:
  platform::MediaCommands& commands_;
};

/// org.mpris.MediaPlayer2.Player. Going back is not possible, the speed is always 1 (one of 0 is a
/// pause, as the standard has it), and the volume is only told: fades and volume correction own it.
class MprisPlayer : public QDBusAbstractAdaptor {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2.Player")
  Q_PROPERTY(QString PlaybackStatus READ playbackStatus)
  Q_PROPERTY(QString LoopStatus READ loopStatus WRITE setLoopStatus)
  Q_PROPERTY(double Rate READ rate WRITE setRate)
  Q_PROPERTY(bool Shuffle READ shuffle WRITE setShuffle)
  Q_PROPERTY(QVariantMap Metadata READ metadata)
  Q_PROPERTY(double Volume READ volume)
  Q_PROPERTY(qlonglong Position READ position)
  Q_PROPERTY(double MinimumRate READ rate)
  Q_PROPERTY(double MaximumRate READ rate)
  Q_PROPERTY(bool CanGoNext READ canGoNext)
  Q_PROPERTY(bool CanGoPrevious READ canGoPrevious)
  Q_PROPERTY(bool CanPlay READ canPlay)
  Q_PROPERTY(bool CanPause READ canPause)
  Q_PROPERTY(bool CanSeek READ canSeek)
  Q_PROPERTY(bool CanControl READ canControl)

 public:
  /// Tells what `status` holds at the time.
  MprisPlayer(QObject& onBus, platform::MediaCommands& commands,
              const platform::MediaStatus& status);

  QString playbackStatus() const { return desktop::playbackStatus(status_.state); }
  QString loopStatus() const { return desktop::loopStatus(status_.repeat); }
  void setLoopStatus(const QString& word);
  double rate() const { return 1; }
  void setRate(double rate);
  bool shuffle() const { return status_.shuffle; }
  void setShuffle(bool shuffle);
  QVariantMap metadata() const { return desktop::metadata(status_); }
  double volume() const { return status_.volume; }
  qlonglong position() const { return microseconds(status_.position); }
  bool canGoNext() const { return status_.canGoNext; }
  bool canGoPrevious() const { return false; }
  bool canPlay() const { return status_.canPlay; }
  bool canPause() const { return status_.canPause; }
  bool canSeek() const { return status_.canSeek; }
  bool canControl() const { return true; }

 public Q_SLOTS:  // NOLINT(readability-redundant-access-specifiers): the toolkit's own
  void Next();
  void Previous() {}
  void Pause();
  void PlayPause();
  void Stop();
  void Play();
  void Seek(qlonglong Offset);
  /// Does nothing when another song plays by now than the one that was meant.
  void SetPosition(const QDBusObjectPath& TrackId, qlonglong Position);
  void OpenUri(const QString& Uri);

 Q_SIGNALS:
  void Seeked(qlonglong Position);

 private:
  platform::MediaCommands& commands_;
  const platform::MediaStatus& status_;
};

}  // namespace nerolith::desktop

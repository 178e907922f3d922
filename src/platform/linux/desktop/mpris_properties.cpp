#include "platform/linux/desktop/mpris_properties.h"

#include <array>
#include <cmath>
#include <utility>

#include "platform/linux/desktop/file_url.h"

namespace nerolith::desktop {

using platform::MediaStatus;
using platform::PlayState;
using platform::Repeat;

namespace {

constexpr std::array<std::pair<Repeat, const char*>, 3> kLoops = {
    {{Repeat::Off, "None"}, {Repeat::Song, "Track"}, {Repeat::List, "Playlist"}}};

}  // namespace

QString playbackStatus(PlayState state) {
  if (state == PlayState::Playing) return QStringLiteral("Playing");
  return state == PlayState::Paused ? QStringLiteral("Paused") : QStringLiteral("Stopped");
}

QString loopStatus(Repeat repeat) {
  for (const auto& [meaning, word] : kLoops)
    if (meaning == repeat) return QString::fromLatin1(word);
  return {};
}

std::optional<Repeat> repeatNamed(const QString& loopStatus) {
  for (const auto& [meaning, word] : kLoops)
    if (loopStatus == QLatin1String(word)) return meaning;
  return std::nullopt;
}

qlonglong microseconds(double seconds) { return std::llround(seconds * 1e6); }

QDBusObjectPath trackId(const MediaStatus& status) {
  if (status.song == 0)
    return QDBusObjectPath(QStringLiteral("/org/mpris/MediaPlayer2/TrackList/NoTrack"));
  return QDBusObjectPath(QStringLiteral("/velmarion/song/%1").arg(status.song));
}

QVariantMap metadata(const MediaStatus& status) {
  QVariantMap data{{QStringLiteral("mpris:trackid"), QVariant::fromValue(trackId(status))}};
  if (status.song == 0) return data;
  data[QStringLiteral("mpris:length")] = microseconds(status.length);
  // What is no UTF-8 in a name may not pass the bus; the URL has every byte of it.
  data[QStringLiteral("xesam:title")] = QString::fromStdString(status.title);
  data[QStringLiteral("xesam:url")] = QString::fromStdString(fileUrl(status.path));
  return data;
}

QVariantMap playerProperties(const MediaStatus& status) {
  return {{QStringLiteral("PlaybackStatus"), playbackStatus(status.state)},
          {QStringLiteral("LoopStatus"), loopStatus(status.repeat)},
          {QStringLiteral("Shuffle"), status.shuffle},
          {QStringLiteral("Metadata"), metadata(status)},
          {QStringLiteral("Volume"), status.volume},
          {QStringLiteral("CanGoNext"), status.canGoNext},
          {QStringLiteral("CanPlay"), status.canPlay},
          {QStringLiteral("CanPause"), status.canPause},
          {QStringLiteral("CanSeek"), status.canSeek}};
}

QVariantMap changedProperties(const MediaStatus& before, const MediaStatus& after) {
  QVariantMap changed;
  const QVariantMap old = playerProperties(before);
  const QVariantMap now = playerProperties(after);
  for (auto property = now.begin(); property != now.end(); ++property)
    if (property.key() != QLatin1String("Metadata") && old.value(property.key()) != *property)
      changed[property.key()] = *property;
  const bool sameSong = before.song == after.song && before.title == after.title &&
                        before.path == after.path && before.length == after.length;
  if (!sameSong) changed[QStringLiteral("Metadata")] = metadata(after);
  return changed;
}

}  // namespace nerolith::desktop

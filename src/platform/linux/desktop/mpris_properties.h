// The player in the terms of MPRIS 2.2.
#pragma once

#include <QDBusObjectPath>
#include <QString>
#include <QVariantMap>
#include <optional>

#include "platform/media_controls.h"

namespace nerolith::desktop {

/// "Playing", "Paused", "Stopped".
QString playbackStatus(platform::PlayState state);

/// "None", "Track", "Playlist".
QString loopStatus(platform::Repeat repeat);
/// Nothing for a word that is none of the three.
std::optional<platform::Repeat> repeatNamed(const QString& loopStatus);

/// Microseconds.
qlonglong microseconds(double seconds);

/// Another path for each start of a song; the one that stands for "none" where there is none.
QDBusObjectPath trackId(const platform::MediaStatus& status);

/// mpris:trackid, mpris:length, xesam:title, xesam:url. Without a song only the first.
QVariantMap metadata(const platform::MediaStatus& status);

/// Every property of org.mpris.MediaPlayer2.Player that is told by PropertiesChanged, as it is.
QVariantMap playerProperties(const platform::MediaStatus& status);

/// Those that are not what they were.
QVariantMap changedProperties(const platform::MediaStatus& before,
                              const platform::MediaStatus& after);

}  // namespace nerolith::desktop

#include "platform/linux/desktop/mpris_properties.h"

#include <gtest/gtest.h>

namespace nerolith::desktop {
namespace {

using platform::MediaStatus;
using platform::PlayState;
using platform::Repeat;

MediaStatus playing() {
  MediaStatus status;
  status.state = PlayState::Playing;
  status.song = 7;
  status.title = "Evening";
  status.path = "/m/Evening star.mp3";
  status.length = 185.5;
  status.position = 12;
  status.canPlay = status.canPause = status.canSeek = true;
  return status;
}

TEST(MprisProperties, StatesAreWords) {
  EXPECT_EQ(playbackStatus(PlayState::Playing), "Playing");
  EXPECT_EQ(playbackStatus(PlayState::Paused), "Paused");
  EXPECT_EQ(playbackStatus(PlayState::Stopped), "Stopped");
}

TEST(MprisProperties, LoopsAreWordsBothWays) {
  for (const Repeat repeat : {Repeat::Off, Repeat::Song, Repeat::List})
    EXPECT_EQ(repeatNamed(loopStatus(repeat)), repeat);
  EXPECT_EQ(loopStatus(Repeat::Song), "Track");
  EXPECT_EQ(loopStatus(Repeat::List), "Playlist");
  EXPECT_EQ(repeatNamed("track"), std::nullopt);
}

TEST(MprisProperties, TimesAreMicroseconds) {
  EXPECT_EQ(microseconds(185.5), 185'500'000);
  EXPECT_EQ(microseconds(0.0000004), 0);
}

TEST(MprisProperties, TheMetadataNameTheSong) {
  const QVariantMap data = metadata(playing());
  EXPECT_EQ(data.value("xesam:title").toString(), "Evening");
  EXPECT_EQ(data.value("xesam:url").toString(), "file:///m/Evening%20star.mp3");
  EXPECT_EQ(data.value("mpris:length").toLongLong(), 185'500'000);
  EXPECT_EQ(data.value("mpris:length").userType(), QMetaType::LongLong);
  EXPECT_EQ(data.value("mpris:trackid").value<QDBusObjectPath>().path(), "/velmarion/song/7");
}

TEST(MprisProperties, WithoutASongThereIsOnlyTheTrackThatIsNone) {
  const QVariantMap data = metadata({});
  EXPECT_EQ(data.size(), 1);
  EXPECT_EQ(data.value("mpris:trackid").value<QDBusObjectPath>().path(),
            "/org/mpris/MediaPlayer2/TrackList/NoTrack");
}

TEST(MprisProperties, OnlyWhatChangedIsTold) {
  const MediaStatus before = playing();
  MediaStatus after = before;
  EXPECT_TRUE(changedProperties(before, after).isEmpty());
  after.position = 13;
  EXPECT_TRUE(changedProperties(before, after).isEmpty());
  after.state = PlayState::Paused;
  EXPECT_EQ(changedProperties(before, after), (QVariantMap{{"PlaybackStatus", "Paused"}}));
  after = before;
  after.shuffle = true;
  after.repeat = Repeat::List;
  EXPECT_EQ(changedProperties(before, after).keys(), (QStringList{"LoopStatus", "Shuffle"}));
}

TEST(MprisProperties, AnotherStartOfTheSameSongIsAnotherTrack) {
  const MediaStatus before = playing();
  MediaStatus after = before;
  after.song = 8;
  EXPECT_EQ(changedProperties(before, after).keys(), QStringList{"Metadata"});
}

TEST(MprisProperties, PropertiesThatNeverChangeAreNotTold) {
  const QStringList told = playerProperties(playing()).keys();
  for (const char* never : {"Position", "Rate", "CanControl", "CanGoPrevious"})
    EXPECT_FALSE(told.contains(never)) << never;
}

}  // namespace
}  // namespace nerolith::desktop

// Every setting that outlives a run: where its text lies and what stands in for an absent one.
#pragma once

#include <array>
#include <string_view>

namespace nerolith::settings {

/// Texts under application / section / name. The names are older than the player's own and shared
/// with its earlier settings, so they stay as they are.
struct SettingsKey {
  std::string_view application;
  std::string_view section;
  std::string_view name;
  /// Read when the value is absent. The folder's is the process's current directory, which only
  /// the reader knows.
  std::string_view fallback;
};

inline constexpr std::string_view kPlaces = "Velmarion";
inline constexpr std::string_view kPlacesSection = "Path";
inline constexpr std::string_view kDisplay = "Microsoft Visual Basic AddIns";
inline constexpr std::string_view kOwn = "Nerolith";
inline constexpr std::string_view kSection = "Setting";

/// The folder shown last, and the playlist file opened last.
inline constexpr SettingsKey kPath{kPlaces, kPlacesSection, "path", ""};
inline constexpr SettingsKey kPlaylist{kPlaces, kPlacesSection, "plname", ""};

/// Play mode: "1" Single, "2" Auto next, "3" Random.
inline constexpr SettingsKey kMode{kDisplay, kSection, "setting", "3"};
/// Palette index of the time display; -1 tells that nothing was ever stored.
inline constexpr SettingsKey kColour{kDisplay, kSection, "color", "-1"};
inline constexpr SettingsKey kTimeInverted{kDisplay, kSection, "ti", "0"};
inline constexpr SettingsKey kLoop{kDisplay, kSection, "lo", "0"};
/// Seconds before a song's end at which the mix starts; seconds that the mix lasts.
inline constexpr SettingsKey kMixLead{kDisplay, kSection, "fadem", "10"};
inline constexpr SettingsKey kFadeLength{kDisplay, kSection, "fadelen", "5"};

/// Fast keys F1 ("key0") to F10 ("key9").
inline constexpr std::array<SettingsKey, 10> kKeyTexts{{{kOwn, kSection, "key0", "0"},
                                                        {kOwn, kSection, "key1", "1"},
                                                        {kOwn, kSection, "key2", "2"},
                                                        {kOwn, kSection, "key3", "3"},
                                                        {kOwn, kSection, "key4", "4"},
                                                        {kOwn, kSection, "key5", "5"},
                                                        {kOwn, kSection, "key6", "6"},
                                                        {kOwn, kSection, "key7", "7"},
                                                        {kOwn, kSection, "key8", "8"},
                                                        {kOwn, kSection, "key9", "9"}}};
/// The recent-file rule: age limit in days, older songs in a row at most, on or off.
inline constexpr SettingsKey kRecentDays{kOwn, kSection, "frmday", "30"};
inline constexpr SettingsKey kRecentAfter{kOwn, kSection, "frmaant", "5"};
inline constexpr SettingsKey kRecentRule{kOwn, kSection, "enabl", "0"};
/// Removing songs may mark their files for deletion at close.
inline constexpr SettingsKey kMarkForDeletion{kOwn, kSection, "mark_for_deletion", "0"};
/// The recording section corrects the volume by itself.
inline constexpr SettingsKey kAdjust{kOwn, kSection, "adjust", "0"};

}  // namespace nerolith::settings

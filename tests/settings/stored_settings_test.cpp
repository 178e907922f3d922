#include "settings/stored_settings.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "platform/failure.h"
#include "platform/simulated/simulated_settings.h"

namespace nerolith::settings {
namespace {

using platform::simulated::Door;
using platform::simulated::Doorway;
using platform::simulated::SimulatedSettings;

struct StoredSettingsTest : testing::Test {
  Doorway doorway;
  SimulatedSettings store{doorway};
  LiveSettings live;
  StoredSettings settings{store, live};

  void set(const SettingsKey& key, const std::string& text) {
    store.set(std::string(key.application), std::string(key.section), std::string(key.name), text);
  }
  std::string stored(const SettingsKey& key) const {
    return store
        .stored(std::string(key.application), std::string(key.section), std::string(key.name))
        .value_or("(absent)");
  }
  bool readAll() {
    const bool absent = settings.readColour();
    settings.readTimeInvertedAndLoop();
    settings.readMix();
    settings.readKeyTexts();
    settings.readRecentRule();
    settings.readMode();
    return absent;
  }
};

TEST_F(StoredSettingsTest, AnEmptyStoreYieldsTheFirstRunsValues) {
  EXPECT_TRUE(readAll());
  EXPECT_EQ(live.colour, 2.0F);
  EXPECT_EQ(live.modeCode, "3");
  EXPECT_EQ(live.mixLead, 10.0F);
  EXPECT_EQ(live.fadeLength, 5.0F);
  for (std::size_t i = 0; i < 10; ++i) EXPECT_EQ(live.keyTexts[i], std::to_string(i));
  EXPECT_EQ(live.recentDays, 30);
  EXPECT_EQ(live.recentAfter, 5);
  EXPECT_EQ(live.recentRule, base::kFalse);
  EXPECT_EQ(live.loop, base::kFalse);
  EXPECT_EQ(live.timeInverted, base::kFalse);
  EXPECT_EQ(settings.readPath("/home"), "/home");
  EXPECT_EQ(settings.readPlaylist(), "");
  EXPECT_FALSE(settings.readMarkForDeletion());
  EXPECT_FALSE(settings.readAdjust());
}

TEST_F(StoredSettingsTest, SaveAllWritesSevenTextsInTheirOrder) {
  EXPECT_TRUE(readAll());
  settings.saveAll("C:\\Music");
  EXPECT_EQ(doorway.trace({Door::Settings}),
            "settings.write Velmarion/Path/path=C:\\Music | "
            "settings.write Microsoft Visual Basic AddIns/Setting/setting=3 | "
            "settings.write Microsoft Visual Basic AddIns/Setting/fadelen=5 | "
            "settings.write Microsoft Visual Basic AddIns/Setting/fadem=10 | "
            "settings.write Microsoft Visual Basic AddIns/Setting/ti=False | "
            "settings.write Microsoft Visual Basic AddIns/Setting/color=2 | "
            "settings.write Microsoft Visual Basic AddIns/Setting/lo=False");
  EXPECT_EQ(store.size(), 7U);
}

TEST_F(StoredSettingsTest, AStoredColourIsNoFirstRunEvenOutsideThePalette) {
  set(kColour, "99");
  EXPECT_FALSE(settings.readColour());
  EXPECT_EQ(live.colour, 99.0F);
  set(kColour, "-2");
  EXPECT_FALSE(settings.readColour());
  EXPECT_EQ(live.colour, -2.0F);
}

TEST_F(StoredSettingsTest, AStoredMinusOneCountsAsAFirstRun) {
  set(kColour, "-1");
  EXPECT_TRUE(settings.readColour());
  EXPECT_EQ(live.colour, 2.0F);
}

TEST_F(StoredSettingsTest, AnAbsentFastKeyIsItsOwnDigit) {
  set(kKeyTexts[4], "Queen");
  set(kKeyTexts[5], "");
  settings.readKeyTexts();
  EXPECT_EQ(live.keyTexts[3], "3");
  EXPECT_EQ(live.keyTexts[4], "Queen");
  EXPECT_EQ(live.keyTexts[5], "");
}

TEST_F(StoredSettingsTest, WhatWasSavedIsReadBackTheSame) {
  live.modeCode = "2";
  live.colour = 14;
  live.timeInverted = live.loop = live.recentRule = base::kTrue;
  live.mixLead = 2.5F;
  live.fadeLength = 0.1F;
  live.keyTexts[9] = " a=b;\xC3\xBC\n";
  live.recentAfter = -32768;
  live.recentDays = 32767;
  settings.saveAll("/music");
  settings.writeKeyTexts();
  settings.writeRecentRule();
  const LiveSettings saved = live;

  live = LiveSettings();
  EXPECT_FALSE(readAll());
  EXPECT_EQ(live.modeCode, saved.modeCode);
  EXPECT_EQ(live.colour, saved.colour);
  EXPECT_EQ(live.timeInverted, base::kTrue);
  EXPECT_EQ(live.loop, base::kTrue);
  EXPECT_EQ(live.mixLead, 2.5F);
  EXPECT_EQ(live.fadeLength, 0.1F);
  EXPECT_EQ(live.keyTexts, saved.keyTexts);
  EXPECT_EQ(live.recentAfter, -32768);
  EXPECT_EQ(live.recentDays, 32767);
  EXPECT_EQ(live.recentRule, base::kTrue);
  EXPECT_EQ(settings.readPath("/"), "/music");
}

TEST_F(StoredSettingsTest, TheTimeDisplayIsReadBeforeTheLoopAndTheMixLeadBeforeTheLength) {
  set(kTimeInverted, "True");
  set(kMixLead, "12");
  set(kFadeLength, "3.5");
  settings.readTimeInvertedAndLoop();
  settings.readMix();
  EXPECT_EQ(live.timeInverted, base::kTrue);
  EXPECT_EQ(live.loop, base::kFalse);
  EXPECT_EQ(live.mixLead, 12.0F);
  EXPECT_EQ(live.fadeLength, 3.5F);
}

TEST_F(StoredSettingsTest, NumbersAreTakenAsFarAsTheyRead) {
  set(kMixLead, "7.5 seconds");
  set(kFadeLength, "long");
  set(kRecentDays, "14,5");
  set(kRecentAfter, "");
  readAll();
  EXPECT_EQ(live.mixLead, 7.5F);
  EXPECT_EQ(live.fadeLength, 0.0F);
  EXPECT_EQ(live.recentDays, 14);
  EXPECT_EQ(live.recentAfter, 0);
}

TEST_F(StoredSettingsTest, HugeNumbersAreHeldToTheirType) {
  set(kMixLead, "1e999");
  set(kFadeLength, "-1e300");
  set(kRecentDays, "99999");
  set(kRecentAfter, "-1e300");
  set(kColour, std::string(4000, '9'));
  readAll();
  EXPECT_EQ(live.mixLead, std::numeric_limits<float>::max());
  EXPECT_EQ(live.fadeLength, std::numeric_limits<float>::lowest());
  EXPECT_EQ(live.recentDays, 32767);
  EXPECT_EQ(live.recentAfter, -32768);
  EXPECT_TRUE(std::isfinite(live.colour));
  EXPECT_NO_THROW(settings.saveAll("/"));
}

TEST_F(StoredSettingsTest, BooleansAreWordsOrNumbers) {
  set(kLoop, "1");
  set(kTimeInverted, "nonsense");
  set(kRecentRule, "true");
  readAll();
  EXPECT_EQ(live.loop, base::kTrue);
  EXPECT_EQ(live.timeInverted, base::kFalse);
  EXPECT_EQ(live.recentRule, base::kTrue);
}

TEST_F(StoredSettingsTest, ATextThatIsNoModeLeavesTheModeThatIsSet) {
  for (const char* text : {"", "0", "4", "22", "Random", " 2"}) {
    set(kMode, text);
    live.modeCode = "1";
    settings.readMode();
    EXPECT_EQ(live.modeCode, "1") << text;
  }
}

TEST_F(StoredSettingsTest, TheColourIsWrittenAsItsWholePart) {
  live.colour = 3.9F;
  settings.saveAll("/");
  EXPECT_EQ(stored(kColour), "3");
  live.colour = -0.5F;
  settings.saveAll("/");
  EXPECT_EQ(stored(kColour), "0");
}

TEST_F(StoredSettingsTest, SingleWritesTouchTheirOwnKeyOnly) {
  live.modeCode = "2";
  live.loop = base::kTrue;
  settings.writePlaylist("/a.m3u");
  settings.writeMode();
  settings.writeLoop();
  settings.writeMarkForDeletion(true);
  settings.writeAdjust(false);
  EXPECT_EQ(stored(kPlaylist), "/a.m3u");
  EXPECT_EQ(stored(kMode), "2");
  EXPECT_EQ(stored(kLoop), "True");
  EXPECT_EQ(store.stored("Nerolith", "Setting", "mark_for_deletion"), "True");
  EXPECT_EQ(store.stored("Nerolith", "Setting", "adjust"), "False");
  EXPECT_EQ(store.size(), 5U);
}

TEST_F(StoredSettingsTest, AReadingThatFailsIsItsDefaultWhicheverItIs) {
  set(kColour, "9");
  set(kMixLead, "20");
  set(kRecentDays, "7");
  set(kPath, "/music");
  for (std::uint64_t n = 1; n <= 20; ++n) {
    live = LiveSettings();
    const std::uint64_t faults = doorway.faults();
    doorway.failCall(n);
    const bool absent = readAll();
    const std::string path = settings.readPath("/home");
    ASSERT_EQ(doorway.faults(), faults + 1) << n;
    EXPECT_EQ(absent, n == 1) << n;
    EXPECT_EQ(live.mixLead, n == 4 ? 10.0F : 20.0F) << n;
    EXPECT_EQ(live.recentDays, n == 17 ? 30 : 7) << n;
    EXPECT_EQ(path, n == 20 ? "/home" : "/music") << n;
  }
}

TEST_F(StoredSettingsTest, AFailedWriteEndsSaveAllAndKeepsWhatWasWritten) {
  for (std::uint64_t n = 1; n <= 7; ++n) {
    store.clear();
    doorway.failCall(n);
    EXPECT_THROW(settings.saveAll("/"), platform::Failure) << n;
    EXPECT_EQ(store.size(), n - 1) << n;
  }
}

}  // namespace
}  // namespace nerolith::settings

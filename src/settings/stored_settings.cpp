#include "settings/stored_settings.h"

#include <cmath>

#include "base/failure_policy.h"
#include "base/lenient_number.h"
#include "settings/setting_numbers.h"

namespace nerolith::settings {
namespace {

constexpr float kFirstRunColour = 2;

base::Flag16 toFlag(const std::string& text) { return base::toFlag(base::toBoolean(text)); }

std::string flagText(base::Flag16 flag) { return base::booleanText(base::isSet(flag)); }

}  // namespace

std::string StoredSettings::readOr(const SettingsKey& key, const std::string& fallback) const {
  std::string text = fallback;
  // A store that cannot be read must not keep the player from starting.
  base::goOn([&] {
    if (auto stored = store_.read(std::string(key.application), std::string(key.section),
                                  std::string(key.name)))
      text = std::move(*stored);
  });
  return text;
}

std::string StoredSettings::read(const SettingsKey& key) const {
  return readOr(key, std::string(key.fallback));
}

void StoredSettings::write(const SettingsKey& key, const std::string& text) {
  store_.write(std::string(key.application), std::string(key.section), std::string(key.name), text);
}

bool StoredSettings::readColour() {
  live_.colour = singleOf(read(kColour));
  const bool absent = live_.colour == -1;
  if (absent) live_.colour = kFirstRunColour;
  return absent;
}

void StoredSettings::readTimeInvertedAndLoop() {
  live_.timeInverted = toFlag(read(kTimeInverted));
  live_.loop = toFlag(read(kLoop));
}

void StoredSettings::readMix() {
  live_.mixLead = singleOf(read(kMixLead));
  live_.fadeLength = singleOf(read(kFadeLength));
}

void StoredSettings::readKeyTexts() {
  for (std::size_t i = 0; i < kKeyTexts.size(); ++i) live_.keyTexts[i] = read(kKeyTexts[i]);
}

void StoredSettings::readRecentRule() {
  live_.recentAfter = integer16Of(read(kRecentAfter));
  live_.recentDays = integer16Of(read(kRecentDays));
  live_.recentRule = toFlag(read(kRecentRule));
}

std::string StoredSettings::readPath(const std::string& fallback) const {
  return readOr(kPath, fallback);
}

void StoredSettings::readMode() {
  const std::string text = read(kMode);
  if (text == "1" || text == "2" || text == "3") live_.modeCode = text;
}

std::string StoredSettings::readPlaylist() const { return read(kPlaylist); }

void StoredSettings::writePath(const std::string& path) { write(kPath, path); }

void StoredSettings::writePlaylist(const std::string& path) { write(kPlaylist, path); }

void StoredSettings::writeMode() { write(kMode, live_.modeCode); }

void StoredSettings::writeLoop() { write(kLoop, flagText(live_.loop)); }

void StoredSettings::saveAll(const std::string& path) {
  writePath(path);
  writeMode();
  write(kFadeLength, base::shortestDecimal(live_.fadeLength));
  write(kMixLead, base::shortestDecimal(live_.mixLead));
  write(kTimeInverted, flagText(live_.timeInverted));
  // Adding 0 keeps a colour between -1 and 0 from being written as "-0".
  write(kColour, base::shortestDecimal(std::trunc(live_.colour) + 0.0F));
  writeLoop();
}

void StoredSettings::writeKeyTexts() {
  for (std::size_t i = 0; i < kKeyTexts.size(); ++i) write(kKeyTexts[i], live_.keyTexts[i]);
}

void StoredSettings::writeRecentRule() {
  write(kRecentAfter, std::to_string(live_.recentAfter));
  write(kRecentDays, std::to_string(live_.recentDays));
  write(kRecentRule, flagText(live_.recentRule));
}

bool StoredSettings::readMarkForDeletion() const { return base::toBoolean(read(kMarkForDeletion)); }

void StoredSettings::writeMarkForDeletion(bool marking) {
  write(kMarkForDeletion, base::booleanText(marking));
}

bool StoredSettings::readAdjust() const { return base::toBoolean(read(kAdjust)); }

void StoredSettings::writeAdjust(bool adjusting) { write(kAdjust, base::booleanText(adjusting)); }

}  // namespace nerolith::settings

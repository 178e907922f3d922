#include "settings/settings_window.h"

#include "base/failure_policy.h"
#include "base/lenient_number.h"
#include "settings/mix_limits.h"
#include "settings/setting_numbers.h"

namespace nerolith::settings {
namespace {

using base::endQuietly;

constexpr int kEnter = 13;

}  // namespace

SettingsWindow::SettingsWindow(forms::SettingsForm& form, controls::MenuItem& form2aan,
                               LiveSettings& live, StoredSettings& stored,
                               std::function<std::string()> folder)
    : form_(form), live_(live), stored_(stored), folder_(std::move(folder)) {
  on(form2aan.click, [this] { endQuietly([this] { open(); }); });
  subscribeWindow();
  subscribeMix();
  subscribeLiveValues();
}

void SettingsWindow::subscribeWindow() {
  on(form_.form.activate, [this] { fill(); });
  on(form_.form.keyDown, [this](controls::KeyPress press) {
    if (press.key == controls::Key::Escape) closeIfOpen();
  });
  on(form_.Command1.click, [this] { endQuietly([this] { save(); }); });
}

void SettingsWindow::subscribeMix() {
  on(form_.Text3.lostFocus, [this] { leaveLength(); });
  on(form_.Text4.lostFocus, [this] { leaveLead(); });
  on(form_.Text3.keyPress, [this](int character) {
    if (character == kEnter) leaveLength();
  });
  on(form_.Text4.keyPress, [this](int character) {
    if (character == kEnter) leaveLead();
  });
}

void SettingsWindow::subscribeLiveValues() {
  on(form_.Text1.change, [this] {
    if (!filling_) live_.recentAfter = integer16Of(form_.Text1.text());
  });
  on(form_.Text2.change, [this] {
    if (!filling_) live_.recentDays = integer16Of(form_.Text2.text());
  });
  on(form_.Check1.click, [this] {
    if (!filling_) live_.recentRule = base::toFlag(form_.Check1.value() == 1);
  });
  on(form_.Check2.click, [this] {
    if (!filling_) markingClicked();
  });
  const auto boxes = form_.keyBoxes();
  for (std::size_t key = 0; key < boxes.size(); ++key)
    on(boxes[key]->change, [this, key, box = boxes[key]] {
      if (!filling_) live_.keyTexts[key] = box->text();
    });
}

void SettingsWindow::open() {
  if (!isOpen()) fill();
  form_.form.setVisible(true);
  form_.form.bringForward();
  form_.Text3.setFocus();
}

void SettingsWindow::closeIfOpen() {
  if (isOpen()) form_.form.close();
}

void SettingsWindow::fill() {
  filling_ = true;
  base::goOn([this] { showLiveValues(); });
  filling_ = false;
}

void SettingsWindow::showLiveValues() {
  form_.Text4.setText(base::shortestDecimal(live_.mixLead));
  form_.Text3.setText(base::shortestDecimal(live_.fadeLength));
  const auto boxes = form_.keyBoxes();
  for (std::size_t key = 0; key < boxes.size(); ++key) boxes[key]->setText(live_.keyTexts[key]);
  form_.Text1.setText(std::to_string(live_.recentAfter));
  form_.Text2.setText(std::to_string(live_.recentDays));
  form_.Check1.setValue(base::isSet(live_.recentRule) ? 1 : 0);
  form_.Check2.setValue(stored_.readMarkForDeletion() ? 1 : 0);
}

// A window that is going away takes the keyboard from its boxes: that is no leaving of the user's.
void SettingsWindow::leaveLength() {
  if (!isOpen()) return;
  form_.Text3.setText(validLength(form_.Text3.text(), form_.Text4.text()));
  live_.fadeLength = singleOf(form_.Text3.text());
}

void SettingsWindow::leaveLead() {
  if (!isOpen()) return;
  form_.Text4.setText(validLead(form_.Text3.text(), form_.Text4.text()));
  live_.mixLead = singleOf(form_.Text4.text());
}

// A switch over files must not claim what is not stored.
void SettingsWindow::markingClicked() {
  if (!endQuietly([this] { stored_.writeMarkForDeletion(form_.Check2.value() == 1); })) fill();
}

void SettingsWindow::save() {
  stored_.saveAll(folder_());
  stored_.writeKeyTexts();
  stored_.writeRecentRule();
  closeIfOpen();
}

}  // namespace nerolith::settings

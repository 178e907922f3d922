#include "player/play_modes.h"

#include "base/failure_policy.h"
#include "player/crossfade.h"

namespace nerolith::player {

PlayModes::PlayModes(forms::MainForm& form, settings::LiveSettings& live, PlayerState& state,
                     Decks& decks)
    : form_(form), live_(live), state_(state), decks_(decks) {
  subscriptions_.push_back(form_.Option1.click.subscribe([this] { Option1_Click(); }));
  subscriptions_.push_back(form_.Option2.click.subscribe([this] { Option2_Click(); }));
  subscriptions_.push_back(form_.Option3.click.subscribe([this] { Option3_Click(); }));
  subscriptions_.push_back(form_.Check1.click.subscribe([this] { Check1_Click(); }));
  subscriptions_.push_back(
      form_.Check1.mouseUp.subscribe([this](controls::MouseButton) { form_.List1.setFocus(); }));
  for (std::size_t i = 0; i < form_.Label7.size(); ++i)
    subscriptions_.push_back(form_.Label7[i].click.subscribe([this, i] { Label7_Click(i); }));
}

void PlayModes::Option1_Click() {
  base::endQuietly([this] {
    live_.modeCode = "1";
    if (const Deck* deck = decks_.current()) form_.HScroll1.setMax(sliderEnd(deck->duration));
    state_.rememberedRandomIndex = static_cast<float>(form_.List1.listIndex());
    state_.manualStartFirst = base::kFalse;
    state_.manualStartSecond = base::kFalse;
    form_.List1.setFocus();
  });
}

void PlayModes::mixInMode(const char* code) {
  base::endQuietly([this, code] {
    live_.modeCode = code;
    decks_.setMixLatches();
    form_.List1.setFocus();
  });
}

void PlayModes::Option2_Click() { mixInMode("2"); }
void PlayModes::Option3_Click() { mixInMode("3"); }

void PlayModes::Check1_Click() {
  base::endQuietly([this] {
    const bool loop = form_.Check1.value() != 0;
    live_.loop = base::toFlag(loop);
    form_.Label4.setEnabled(!loop);
  });
}

void PlayModes::Label7_Click(std::size_t index) {
  base::endQuietly([this, index] {
    if (index == 0) form_.Option1.setValue(true);
    if (index == 1) form_.Option2.setValue(true);
    if (index == 2) form_.Option3.setValue(true);
    if (index == 3) form_.Check1.setValue(form_.Check1.value() == 0 ? 1 : 0);
  });
}

}  // namespace nerolith::player

#include "forms/settings_form.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace nerolith::forms {
namespace {

using controls::Box;

/// The words of the layout, and "[]" for each text box, in the order of the declaration.
void read(const Box& box, std::string& text) {
  if (!box.words.empty()) text += box.words + " ";
  if (std::holds_alternative<controls::TextBox*>(box.control)) text += "[] ";
  if (auto* const* check = std::get_if<controls::CheckBox*>(&box.control))
    text += "v " + (*check)->caption() + " ";
  if (auto* const* button = std::get_if<controls::CommandButton*>(&box.control))
    text += "(" + (*button)->caption() + ") ";
  for (const Box& child : box.children) read(child, text);
}

TEST(SettingsForm, EveryCaptionStandsToTheLetterBesideItsControl) {
  const SettingsForm form;
  EXPECT_EQ(form.form.caption(), "Settings");
  std::string text;
  read(form.form.layout(), text);
  EXPECT_EQ(text,
            "Mix length in seconds [] Seconds before end to start Mix [] "
            "v Enable Only working when Random is active "
            "After [] Numbers, play a file not older [] day's "
            "Fast Key's for file select. Selects every file beginning with .... "
            "Key 'F1' [] Key 'F2' [] Key 'F3' [] Key 'F4 [] Key 'F5' [] "
            "Key 'F6' [] Key 'F7' [] Key 'F8' [] Key 'F9' [] Key 'F10' [] "
            "v Enable -  Mark file for deletion. (Save Settings) ");
}

void collect(const Box& box, std::vector<controls::TextBox*>& boxes) {
  if (auto* const* text = std::get_if<controls::TextBox*>(&box.control)) boxes.push_back(*text);
  for (const Box& child : box.children) collect(child, boxes);
}

TEST(SettingsForm, BoxesFollowOneAnotherAsTheyAreRead) {
  SettingsForm form;
  std::vector<controls::TextBox*> boxes;
  collect(form.form.layout(), boxes);
  EXPECT_EQ(boxes, (std::vector<controls::TextBox*>{
                       &form.Text3, &form.Text4, &form.Text1, &form.Text2, &form.Text6, &form.Text7,
                       &form.Text8, &form.Text9, &form.Text10, &form.Text11, &form.Text12,
                       &form.Text13, &form.Text14, &form.Text15}));
}

TEST(SettingsForm, EveryBoxIsCalledByTheWordsBesideIt) {
  const SettingsForm form;
  EXPECT_EQ(form.Text3.accessibleName(), "Mix length in seconds");
  EXPECT_EQ(form.Text4.accessibleName(), "Seconds before end to start Mix");
  EXPECT_EQ(form.Text1.accessibleName(), "After ... Numbers, play a file not older");
  EXPECT_EQ(form.Text2.accessibleName(), "Numbers, play a file not older ... day's");
  EXPECT_EQ(form.Text6.accessibleName(), "Key 'F1'");
  EXPECT_EQ(form.Text9.accessibleName(), "Key 'F4");
  EXPECT_EQ(form.Text15.accessibleName(), "Key 'F10'");
}

}  // namespace
}  // namespace nerolith::forms

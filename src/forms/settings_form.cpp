#include "forms/settings_form.h"

namespace nerolith::forms {
namespace {

using controls::Box;
using controls::column;
using controls::leaf;
using controls::Look;
using controls::row;
using controls::space;
using controls::words;

constexpr int kNumberWidth = 64;
constexpr int kLineHeight = 28;
constexpr int kKeyWordWidth = 56;

// The fourth lacks its closing quotation mark; it has always been shown so.
constexpr std::array<const char*, 10> kKeyWords = {"Key 'F1'", "Key 'F2'", "Key 'F3'", "Key 'F4",
                                                   "Key 'F5'", "Key 'F6'", "Key 'F7'", "Key 'F8'",
                                                   "Key 'F9'", "Key 'F10'"};

Box number(controls::TextBox& box) { return leaf(&box).sized(kNumberWidth, kLineHeight); }

Box mixGroup(SettingsForm& f) {
  return column({row({words("Mix length in seconds"), space(), number(f.Text3)}),
                 row({words("Seconds before end to start Mix"), space(), number(f.Text4)})})
      .with(Look::Group)
      .spaced(8, 12);
}

Box recentGroup(SettingsForm& f) {
  return column({row({leaf(&f.Check1), space(),
                      words("Only working when Random is active", Look::Dim)}),
                 row({words("After"), number(f.Text1), words("Numbers, play a file not older"),
                      number(f.Text2), words("day's"), space()})})
      .with(Look::Group)
      .spaced(10, 12);
}

Box keyColumn(const std::array<controls::TextBox*, 10>& boxes, std::size_t first) {
  std::vector<Box> lines;
  for (std::size_t key = first; key < first + 5; ++key)
    lines.push_back(row({words(kKeyWords[key]).sized(kKeyWordWidth, 0),
                         leaf(boxes[key]).sized(0, kLineHeight).stretched(1)}));
  return column(std::move(lines)).spaced(6, 0).stretched(1);
}

Box keyGroup(SettingsForm& f) {
  return column({column({words("Fast Key's for file select. Selects every file"),
                         words("beginning with ....")})
                     .spaced(2, 0),
                 row({keyColumn(f.keyBoxes(), 0), keyColumn(f.keyBoxes(), 5)}).spaced(20, 0)})
      .with(Look::Group)
      .spaced(10, 12);
}

Box foot(SettingsForm& f) {
  return row({leaf(&f.Check2), space(), leaf(&f.Command1).sized(0, 32)}).spaced(16, 0);
}

void setCaptions(SettingsForm& f) {
  f.form.setCaption("Settings");
  f.Check1.setCaption("Enable");
  f.Check2.setCaption("Enable -  Mark file for deletion.");
  f.Command1.setCaption("Save Settings");
}

void setAccessibleNames(SettingsForm& f) {
  f.Text3.setAccessibleName("Mix length in seconds");
  f.Text4.setAccessibleName("Seconds before end to start Mix");
  f.Text1.setAccessibleName("After ... Numbers, play a file not older");
  f.Text2.setAccessibleName("Numbers, play a file not older ... day's");
  const auto boxes = f.keyBoxes();
  for (std::size_t key = 0; key < boxes.size(); ++key)
    boxes[key]->setAccessibleName(kKeyWords[key]);
}

}  // namespace

SettingsForm::SettingsForm() {
  setCaptions(*this);
  setAccessibleNames(*this);
  form.setVisible(false);
  form.setResizable(false);
  form.setLayout(
      column({mixGroup(*this), recentGroup(*this), keyGroup(*this), foot(*this)}).spaced(10, 14));
}

std::array<controls::TextBox*, 10> SettingsForm::keyBoxes() {
  return {&Text6, &Text7, &Text8, &Text9, &Text10, &Text11, &Text12, &Text13, &Text14, &Text15};
}

}  // namespace nerolith::forms

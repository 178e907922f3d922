// What every settings store promises.
//
// A backend for the suite is a default-constructible struct with
//   platform::SettingsStore& store();  // empty at first
//   void restart();                    // the program ends and starts again
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "platform/settings_store.h"

namespace nerolith::contracts {

template <typename Backend>
class SettingsStoreContract : public ::testing::Test {
 protected:
  platform::SettingsStore& store() { return backend.store(); }

  Backend backend;
};

TYPED_TEST_SUITE_P(SettingsStoreContract);

TYPED_TEST_P(SettingsStoreContract, AnAbsentTextIsNothing) {
  EXPECT_EQ(this->store().read("Velmarion", "Path", "path"), std::nullopt);
  this->store().write("Velmarion", "Path", "path", "C:\\Music");
  EXPECT_EQ(this->store().read("Velmarion", "Path", "plname"), std::nullopt);
  EXPECT_EQ(this->store().read("Nerolith", "Path", "path"), std::nullopt);
}

TYPED_TEST_P(SettingsStoreContract, ATextIsReadAsItWasWritten) {
  for (const std::string text :
       {"", " ", "  both ends  ", "True", "-1", "99999999999999999999999999", "C:\\new\\table\\x41",
        "two\nlines\r\nand\ttabs", "a=b;c#d[e]", "\xC3\xA9t\xC3\xA9 \xE2\x98\x83", "%41", "\\"}) {
    this->store().write("Nerolith", "Setting", "key0", text);
    EXPECT_EQ(this->store().read("Nerolith", "Setting", "key0"), text);
  }
}

TYPED_TEST_P(SettingsStoreContract, KeepsKeysSectionsAndApplicationsApart) {
  this->store().write("A", "S", "k", "1");
  this->store().write("A", "S", "l", "2");
  this->store().write("A", "T", "k", "3");
  this->store().write("Microsoft Visual Basic AddIns", "S", "k", "4");
  EXPECT_EQ(this->store().read("A", "S", "k"), "1");
  EXPECT_EQ(this->store().read("A", "S", "l"), "2");
  EXPECT_EQ(this->store().read("A", "T", "k"), "3");
  EXPECT_EQ(this->store().read("Microsoft Visual Basic AddIns", "S", "k"), "4");
}

TYPED_TEST_P(SettingsStoreContract, TheLastTextWrittenSurvivesARestart) {
  this->store().write("Nerolith", "Setting", "mark_for_deletion", "False");
  this->store().write("Nerolith", "Setting", "mark_for_deletion", "True");
  this->backend.restart();
  EXPECT_EQ(this->store().read("Nerolith", "Setting", "mark_for_deletion"), "True");
}

TYPED_TEST_P(SettingsStoreContract, HoldsLongTexts) {
  const std::string text(4000, 'x');
  this->store().write("Velmarion", "Path", "plname", text);
  this->backend.restart();
  EXPECT_EQ(this->store().read("Velmarion", "Path", "plname"), text);
}

REGISTER_TYPED_TEST_SUITE_P(SettingsStoreContract, AnAbsentTextIsNothing, ATextIsReadAsItWasWritten,
                            KeepsKeysSectionsAndApplicationsApart,
                            TheLastTextWrittenSurvivesARestart, HoldsLongTexts);

}  // namespace nerolith::contracts

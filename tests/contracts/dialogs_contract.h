// What every dialog door promises.
//
// A backend for the suite is a default-constructible struct with
//   platform::Dialogs& dialogs();
//   void userAnswers(platform::Answer answer);  // presses that button of the next message box
//   void userChooses(std::string path);         // ends the next file dialog with this path
//   void userCancels();                         // cancels the next file dialog
//   std::string somePath();                     // a path that a file dialog can end with
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "platform/dialogs.h"

namespace nerolith::contracts {

template <typename Backend>
class DialogsContract : public ::testing::Test {
 protected:
  Backend backend;
};

TYPED_TEST_SUITE_P(DialogsContract);

TYPED_TEST_P(DialogsContract, AMessageIsAnsweredByItsButton) {
  using platform::Answer;
  platform::Message message;
  message.text = "Error playing selected file";
  this->backend.userAnswers(Answer::Ok);
  EXPECT_EQ(this->backend.dialogs().showMessage(message), Answer::Ok);
  message.buttons = platform::MessageButtons::YesNo;
  message.preset = Answer::No;
  this->backend.userAnswers(Answer::Yes);
  EXPECT_EQ(this->backend.dialogs().showMessage(message), Answer::Yes);
  this->backend.userAnswers(Answer::No);
  EXPECT_EQ(this->backend.dialogs().showMessage(message), Answer::No);
}

TYPED_TEST_P(DialogsContract, AFileQuestionEndsWithThePathOrWithNothing) {
  const platform::FileQuestion question{"Open playlist", "*.m3u|*.m3u", ""};
  this->backend.userChooses(this->backend.somePath());
  EXPECT_EQ(this->backend.dialogs().openFile(question), this->backend.somePath());
  this->backend.userCancels();
  EXPECT_EQ(this->backend.dialogs().openFile(question), std::nullopt);
  this->backend.userChooses(this->backend.somePath());
  EXPECT_EQ(this->backend.dialogs().saveFile(question), this->backend.somePath());
  this->backend.userCancels();
  EXPECT_EQ(this->backend.dialogs().saveFile(question), std::nullopt);
}

REGISTER_TYPED_TEST_SUITE_P(DialogsContract, AMessageIsAnsweredByItsButton,
                            AFileQuestionEndsWithThePathOrWithNothing);

}  // namespace nerolith::contracts

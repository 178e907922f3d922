// Questions to a user who has made up his mind beforehand.
#pragma once

#include <chrono>
#include <deque>
#include <functional>
#include <string>
#include <variant>

#include "platform/dialogs.h"
#include "platform/simulated/doorway.h"
#include "platform/simulated/timeline.h"

namespace nerolith::platform::simulated {

/// Answers come from a script, one for each question, in order. A question without an answer, or
/// with one of the wrong kind, throws std::logic_error, which no failure policy swallows: the test
/// fails and reads why.
///
/// Trace: "dialogs.message TEXT", "dialogs.open TITLE", "dialogs.save TITLE" when the question is
/// put.
class SimulatedDialogs : public Dialogs {
 public:
  SimulatedDialogs(Timeline& timeline, Doorway& doorway) : timeline_(timeline), doorway_(doorway) {}

  /// The next message box is answered so, after the user has thought for `thinking` (timers and
  /// decks go on meanwhile).
  void answer(Answer answer, std::chrono::nanoseconds thinking = {});
  /// The next file dialog ends with this path.
  void chooseFile(std::string path, std::chrono::nanoseconds thinking = {});
  /// The next file dialog is cancelled.
  void cancelFile(std::chrono::nanoseconds thinking = {});
  /// Answers that no question has taken yet; a test that scripts some checks for 0 at its end.
  std::size_t unusedAnswers() const { return script_.size(); }

  /// The last message box and the last file question, as they were put.
  const Message& lastMessage() const { return lastMessage_; }
  const FileQuestion& lastFileQuestion() const { return lastFileQuestion_; }

  Answer showMessage(const Message& message) override;
  std::optional<std::string> openFile(const FileQuestion& question) override;
  std::optional<std::string> saveFile(const FileQuestion& question) override;

 private:
  using Path = std::optional<std::string>;
  struct Scripted {
    std::variant<Answer, Path> answer;
    std::chrono::nanoseconds thinking;
  };

  template <typename T>
  T take(const std::string& question);
  Path askForFile(std::string_view verb, const FileQuestion& question);

  Timeline& timeline_;
  Doorway& doorway_;
  std::deque<Scripted> script_;
  Message lastMessage_;
  FileQuestion lastFileQuestion_;
};

}  // namespace nerolith::platform::simulated

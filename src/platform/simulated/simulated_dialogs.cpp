#include "platform/simulated/simulated_dialogs.h"

#include <stdexcept>

namespace nerolith::platform::simulated {

void SimulatedDialogs::answer(Answer answer, std::chrono::nanoseconds thinking) {
  script_.push_back({answer, thinking});
}

void SimulatedDialogs::chooseFile(std::string path, std::chrono::nanoseconds thinking) {
  script_.push_back({Path(std::move(path)), thinking});
}

void SimulatedDialogs::cancelFile(std::chrono::nanoseconds thinking) {
  script_.push_back({Path(), thinking});
}

Answer SimulatedDialogs::showMessage(const Message& message) {
  doorway_.note({Door::Dialogs, "dialogs", "message", message.text});
  lastMessage_ = message;
  const Answer answer = take<Answer>("message \"" + message.text + "\"");
  const bool hasButton = (message.buttons == MessageButtons::Ok) == (answer == Answer::Ok);
  if (!hasButton)
    throw std::logic_error("message \"" + message.text + "\": it has no button for the answer");
  return answer;
}

std::optional<std::string> SimulatedDialogs::openFile(const FileQuestion& question) {
  return askForFile("open", question);
}

std::optional<std::string> SimulatedDialogs::saveFile(const FileQuestion& question) {
  return askForFile("save", question);
}

template <typename T>
T SimulatedDialogs::take(const std::string& question) {
  if (script_.empty()) throw std::logic_error(question + ": no answer was scripted");
  const Scripted next = std::move(script_.front());
  script_.pop_front();
  const T* answer = std::get_if<T>(&next.answer);
  if (!answer) throw std::logic_error(question + ": the scripted answer is of another kind");
  if (next.thinking.count() > 0) timeline_.advance(next.thinking);
  return *answer;
}

SimulatedDialogs::Path SimulatedDialogs::askForFile(std::string_view verb,
                                                    const FileQuestion& question) {
  doorway_.note({Door::Dialogs, "dialogs", verb, question.title});
  lastFileQuestion_ = question;
  return take<Path>("file question \"" + question.title + "\"");
}

}  // namespace nerolith::platform::simulated

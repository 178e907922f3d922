// Questions to the user that wait for their answer.
#pragma once

#include <optional>
#include <string>

namespace nerolith::platform {

enum class MessageIcon { None, Information, Critical };
enum class MessageButtons { Ok, YesNo };
enum class Answer { Ok, Yes, No };

struct Message {
  std::string text;
  MessageIcon icon = MessageIcon::None;
  MessageButtons buttons = MessageButtons::Ok;
  /// The button that Enter presses; Escape answers No where there is one.
  Answer preset = Answer::Ok;
};

struct FileQuestion {
  std::string title;
  /// "description|pattern" pairs, as in "*.m3u|*.m3u".
  std::string filter;
  /// The file name shown at first.
  std::string fileName;
  /// For saving: whether the user is asked once more before choosing a file that is there.
  bool askBeforeReplacing = true;
  /// For saving: the ending that a name without one gets; empty: none.
  std::string ending = {};
};

/// Each call returns when the user has answered; timers and playing go on meanwhile.
class Dialogs {
 public:
  virtual ~Dialogs() = default;

  /// The title is the application's.
  virtual Answer showMessage(const Message& message) = 0;
  /// The chosen path; nothing when the user cancelled.
  virtual std::optional<std::string> openFile(const FileQuestion& question) = 0;
  virtual std::optional<std::string> saveFile(const FileQuestion& question) = 0;
};

}  // namespace nerolith::platform

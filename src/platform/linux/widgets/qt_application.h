// The toolkit's application, set up for the player.
#pragma once

#include <QApplication>

namespace nerolith::widgets {

/// Exactly one, made before anything else of this folder and outliving it. Closing the last window
/// does not end the program: the event queue's quit does.
class QtApplication {
 public:
  /// `argc` and `argv` must outlive the application.
  QtApplication(int& argc, char** argv);

  /// Runs until the event queue's quit; returns the program's exit code.
  int run();

 private:
  /// Settings that have to stand before the toolkit starts.
  struct Beforehand {
    Beforehand();
  };

  Beforehand beforehand_;
  QApplication application_;
};

}  // namespace nerolith::widgets

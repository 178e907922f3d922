// What the main window does with its own events.
#pragma once

#include <functional>
#include <vector>

#include "app/neighbours.h"
#include "base/signal.h"
#include "forms/main_form.h"
#include "forms/main_menu.h"

namespace nerolith::app {

/// Subscribes the events that belong to the frame: activation, keys, the faces of the skin and the
/// menu. A face's action is that of the button behind it. Each handler skips
/// what fails.
class MainWindow {
 public:
  /// `startSelected` starts the song list's current entry.
  MainWindow(forms::MainForm& form, forms::MainMenu& menu, Neighbours neighbours,
             std::function<void()> startSelected);
  MainWindow(const MainWindow&) = delete;
  MainWindow& operator=(const MainWindow&) = delete;

 private:
  void subscribeWindow();
  void subscribeFaces();
  void subscribeListAndMenu();

  void activated();
  void keyDown(const controls::KeyPress& press);
  void facePressed(std::size_t face, bool down);
  void faceClicked(std::size_t face);
  void playFaceClicked();
  void hide();
  void iconLost();
  void popUpMenu();

  template <typename Signal, typename Handler>
  void on(Signal& signal, Handler handler) {
    subscriptions_.push_back(signal.subscribe(std::move(handler)));
  }

  forms::MainForm& form_;
  forms::MainMenu& menu_;
  Neighbours neighbours_;
  std::function<void()> startSelected_;
  bool hiddenByUser_ = false;
  std::vector<base::Subscription> subscriptions_;
};

}  // namespace nerolith::app

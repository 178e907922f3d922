// The recording section's window, driven from outside as a person would.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "endtoend/player_window.h"
#include "endtoend/private_desktop.h"

namespace nerolith::endtoend {

class SectionWindow {
 public:
  /// Opens it from the main window's menu. Throws std::runtime_error when it does not come.
  SectionWindow(const PrivateDesktop& desktop, const PlayerWindow& player);

  /// Through the dialog; throws when that does not come or does not go.
  void chooseFile(const std::filesystem::path& file) const;
  void limitTo(const std::string& megabytes) const;
  void start() const;
  void fadeOutAndStop() const;
  void exit() const;
  void howTo() const;
  void aboutVolumes() const;
  void calibrate() const;
  /// Whether it is on the screen.
  bool shown() const;
  /// How well the line stands out in which it says what is wrong; see `contrastRatio`.
  double noticeContrast() const;
  /// Whether the meter is lit at its beginning.
  bool showsLevel() const;

 private:
  /// The contrast of a part of the window.
  double contrastOf(Place part) const;
  /// Throws when the window cannot be brought to the front, and says what is there instead.
  void click(int x, int y) const;
  bool active() const;
  /// The window that has the keyboard, its place, and how many are on the screen.
  std::string front() const;
  void tool(std::vector<std::string> words) const;

  const PrivateDesktop& desktop_;
  const PlayerWindow& player_;
};

/// Contrasts of `noticeContrast`: more than the one while something is said, less than the other
/// while nothing is.
inline constexpr double kNoticeLegible = 4.5, kNoticeEmpty = 1.5;

/// Waits until the recorder has finished the file: its header tells the size. False: it never does.
bool waitForFinishedFile(const std::filesystem::path& file, double longest);

}  // namespace nerolith::endtoend

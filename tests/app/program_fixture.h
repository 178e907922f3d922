// A whole player on the simulated machine.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "app/program.h"
#include "platform/simulated/simulated_machine.h"

namespace nerolith::app {

using platform::simulated::Door;
using platform::simulated::SimulatedMachine;
using namespace std::chrono_literals;

inline const std::string kDisplay = "Microsoft Visual Basic AddIns";

/// Neighbours that write down what was asked of them, into the machine's trace.
class TracedPlaylists final : public PlaylistActions {
 public:
  explicit TracedPlaylists(SimulatedMachine& machine) : machine_(machine) {}
  void importPlaylist() override { note("import"); }
  void addSelection() override { note("add"); }
  void quickAdd() override { note("quickAdd"); }
  void clearPlaylist() override { note("clear"); }
  void updatePlaylist() override { note("update"); }
  void openPlaylist(const std::string& path) override {
    remembered = path;
    note("reopen");
  }
  std::string rememberedPlaylist() const override { return remembered; }

  std::string remembered;

 private:
  void note(const char* what) { machine_.doorway.note({Door::Events, "playlists", what}); }
  SimulatedMachine& machine_;
};

class TracedIcon final : public NotificationIcon {
 public:
  explicit TracedIcon(SimulatedMachine& machine) : machine_(machine) {}
  void add(const std::string& tip) override {
    shown = true;
    machine_.doorway.note({Door::Events, "icon", "add", tip});
  }
  void remove() override {
    shown = false;
    machine_.doorway.note({Door::Events, "icon", "remove"});
  }
  bool present() const override { return shown; }

  bool shown = false;

 private:
  SimulatedMachine& machine_;
};

/// Start with the scripted machine, then `start`.
class ProgramTest : public testing::Test {
 protected:
  ProgramTest() {
    machine.files.addFolder("C:\\Music");
    machine.files.setCurrentDirectory("C:\\Music");
  }

  void addSongs(const std::string& folder, int count, double duration = 30) {
    for (int i = 0; i < count; ++i)
      machine.files.addFile(folder + "\\" + static_cast<char>('a' + i) + ".mp3",
                            {.duration = duration});
  }

  void storeDisplay(const std::string& key, const std::string& text) {
    machine.settings.set(kDisplay, "Setting", key, text);
  }

  /// Stored settings of an earlier run, so that this is not the first one.
  void storeEarlierRun(const std::string& mode, const std::string& folder = "C:\\Music") {
    storeDisplay("color", "10");
    storeDisplay("setting", mode);
    machine.settings.set("Velmarion", "Path", "path", folder);
  }

  void start(const std::string& commandLine = {}) {
    program = std::make_unique<Program>(machine.doors(), StandIns{&playlists, &icon, &recording});
    program->start(commandLine);
    machine.advance(0ms);
  }

  forms::MainForm& form() { return program->mainForm(); }
  const std::string& playing() { return form().Text1.text(); }

  SimulatedMachine machine;
  TracedPlaylists playlists{machine};
  TracedIcon icon{machine};
  player::NoRecording recording;
  std::unique_ptr<Program> program;
};

}  // namespace nerolith::app

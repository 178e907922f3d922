// A main window with its song list and folder browser on a simulated machine.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "forms/main_form.h"
#include "library/folder_browser.h"
#include "library/song_list.h"
#include "platform/simulated/simulated_machine.h"

namespace nerolith::library {

struct BrowserWindow : testing::Test {
  platform::simulated::SimulatedMachine machine;
  forms::MainForm form;
  SongList songs{form.List1, form.Text1, form.Text2};
  std::string remembered;
  std::vector<std::string> notices;
  FolderBrowser browser{
      {form.form, form.Drive1, form.Dir1, form.File1, form.Command5, form.Label9},
      songs,
      machine.files,
      [this](const std::string& fallback) { return remembered.empty() ? fallback : remembered; },
      [this](std::string text) { notices.push_back(std::move(text)); }};

  void SetUp() override {
    for (const char* name : {"a.mp3", "b.mp3", "c.mp3"})
      machine.files.addFile(std::string("C:\\Music\\") + name);
    machine.files.addFile("C:\\Music\\notes.txt");
    machine.files.addFile("C:\\Music\\Jazz\\j.mp3");
    machine.files.addDrive("D:\\", "D:");
    machine.files.addFile("D:\\d.wav");
    machine.files.addFile("D:\\Empty\\cover.jpg");
    browser.readDrives();
    ASSERT_TRUE(browser.setFolder("C:\\Music"));
    machine.clearTrace();
  }

  /// What the import of a playlist leaves behind.
  void importPlaylist(std::vector<std::string> lines) {
    songs.refill(std::move(lines));
    songs.setMode(ListMode::Playlist);
  }

  using Names = std::vector<std::string>;
  const Names& names() const { return form.List1.items(); }
};

}  // namespace nerolith::library

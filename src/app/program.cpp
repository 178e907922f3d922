#include "app/program.h"

#include "app/dropped_files.h"
#include "base/failure_policy.h"

namespace nerolith::app {
namespace {

library::BrowserControls browserControls(forms::MainForm& form) {
  return {form.form, form.Drive1, form.Dir1, form.File1, form.Command5, form.Label9};
}

recording::RecordingDoors recordingDoors(const platform::Machine& machine,
                                         settings::StoredSettings& stored) {
  return {machine.capture,
          machine.tone,
          machine.output,
          machine.files,
          machine.dialogs,
          machine.clock,
          machine.settings,
          machine.bytes,
          machine.events,
          machine.windows,
          [&stored] { return stored.readAdjust(); },
          [&stored](bool adjusting) { stored.writeAdjust(adjusting); }};
}

template <typename Part>
Part& chosen(Part* standIn, Part& own) {
  return standIn ? *standIn : own;
}

}  // namespace

Program::Program(const platform::Machine& machine, const StandIns& standIns)
    : machine_(machine),
      standIns_(standIns),
      stored_(machine.settings, live_),
      songs_(form_.List1, form_.Text1, form_.Text2),
      browser_(
          browserControls(form_), songs_, machine.files,
          [this](const std::string& fallback) { return stored_.readPath(fallback); },
          [this](std::string text) { form_.folderNotice.setCaption(std::move(text)); }),
      recentScan_(songs_, machine.files, machine.clock, live_),
      playing_(form_, player_, live_),
      recording_(recordingDoors(machine, stored_), playing_, form_.form),
      player_(form_, songs_, live_, chosen<player::RecordingLink>(standIns_.recording, recording_),
              {machine.graphs, machine.dialogs, machine.events, machine.files.separator(),
               [this] { recentScan_.scanIfDue(); }}),
      editor_(machine, form_.form, songs_, browser_,
              [this] { neighbours().playlists.addSelection(); }),
      playlists_({machine.files, machine.bytes, machine.encoding, machine.dialogs, form_.form,
                  songs_, browser_, stored_},
                 editor_.editor(), menu_),
      tray_(machine, form_, player_, settingsWindow_),
      listWork_(machine, form_, menu_, songs_, live_, stored_),
      settingsWindow_(settingsForm_, menu_.form2aan, live_, stored_,
                      [this] { return browser_.folder(); }),
      mainWindow_(form_, menu_, neighbours(), [this] { player_.list1_DblClick(); }),
      startUp_(machine, {form_, live_, stored_, songs_, browser_, player_, neighbours()}),
      shutDown_(stored_, browser_, neighbours()),
      remote_(
          machine.media, form_, player_, machine.files.separator(),
          {[this] { comeForward(); }, [this](const std::string& path) { startUp_.open(path); }}),
      awake_(machine.power, form_.Timer1, player_,
             chosen<player::RecordingLink>(standIns_.recording, recording_)) {
  record_ = menu_.mnuRecord.click.subscribe([this] { recording_.open(); });
  form_.Command7.setEnabled(menu_.showWhatWorks());
  unload_ = form_.form.unload.subscribe([this] { unload(); });
  takeDroppedFiles();
  machine_.windows.add(form_.form);
  settingsForm_.form.setOwner(form_.form);
  machine_.windows.add(settingsForm_.form);
}

void Program::takeDroppedFiles() {
  form_.form.takesFiles = [this](const std::vector<std::string>& paths) {
    return planDrop(paths, machine_.files, base::FilePattern(form_.File1.pattern())).does !=
           DropPlan::Does::Nothing;
  };
  drops_ = form_.form.filesDropped.subscribe(
      [this](const std::vector<std::string>& paths) { dropped(paths); });
}

void Program::dropped(const std::vector<std::string>& paths) {
  const DropPlan plan = planDrop(paths, machine_.files, base::FilePattern(form_.File1.pattern()));
  if (plan.does == DropPlan::Does::ImportsPlaylist)
    return neighbours().playlists.openPlaylist(plan.path);
  if (plan.does == DropPlan::Does::PlaysSong) return startUp_.open(plan.path);
  if (plan.does == DropPlan::Does::OpensFolder && browser_.setFolder(plan.path))
    form_.List1.setFocus();
}

Neighbours Program::neighbours() {
  return {chosen<PlaylistActions>(standIns_.playlists, playlists_), listWork_,
          chosen<NotificationIcon>(standIns_.icon, tray_)};
}

Program::~Program() {
  recording_.end();  // its window belongs to the main one
  machine_.windows.remove(settingsForm_.form);
  machine_.windows.remove(form_.form);
}

void Program::start(const std::string& commandLine) {
  startUp_.load();
  form_.form.setVisible(true);
  machine_.events.post([this] { base::goOn([this] { tray_.load(); }); });
  machine_.events.post([this, commandLine] { startUp_.begin(commandLine); });
  machine_.events.post([this] { base::endQuietly([this] { recording_.offerRepair(); }); });
  machine_.events.post([this] {
    if (!ended_) remote_.begin();
  });
}

void Program::takeOver(const platform::StartRequest& later) {
  machine_.events.post([this, later] {
    if (ended_) return;
    comeForward();
    base::goOn([&] { startUp_.beginAgain(later); });
  });
}

/// While the playlist editor is open it stands in the main window's place.
void Program::comeForward() {
  controls::Form& editor = editor_.form().form_4;
  controls::Form& window = editor.visible() ? editor : form_.form;
  window.setVisible(true);
  window.bringForward();
}

void Program::unload() {
  if (ended_) return;
  ended_ = true;
  editor_.end();
  settingsWindow_.closeIfOpen();
  form_.Timer1.setEnabled(false);
  remote_.end();
  recording_.close();
  player_.decks().releaseA();
  player_.decks().releaseB();
  awake_.end();
  shutDown_.run(startUp_.fileGiven());
  tray_.end();
  machine_.events.quit();
}

}  // namespace nerolith::app

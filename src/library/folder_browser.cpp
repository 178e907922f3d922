#include "library/folder_browser.h"

#include <utility>

#include "base/failure_policy.h"

namespace nerolith::library {
namespace {

/// Sets a flag for as long as it lives.
class Raised {
 public:
  explicit Raised(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
  ~Raised() { flag_ = before_; }
  Raised(const Raised&) = delete;
  Raised& operator=(const Raised&) = delete;

 private:
  bool& flag_;
  bool before_;
};

/// Folders are compared as texts: "/music/" is "/music". A drive's root keeps its separator.
std::string withoutSeparator(std::string folder, char separator) {
  const auto isRoot = [&] {
    return folder.size() == 1 || (separator == '\\' && folder[folder.size() - 2] == ':');
  };
  while (!folder.empty() && folder.back() == separator && !isRoot()) folder.pop_back();
  return folder;
}

}  // namespace

FolderBrowser::FolderBrowser(BrowserControls controls, SongList& songs, platform::FileSystem& files,
                             RememberedFolder rememberedFolder, Notice notice)
    : c_(controls),
      songs_(songs),
      files_(files),
      rememberedFolder_(std::move(rememberedFolder)),
      notice_(std::move(notice)) {
  subscribe();
}

void FolderBrowser::subscribe() {
  const auto focusSongs = [this](controls::MouseButton) { songs_.list1().setFocus(); };
  const auto hide = [this] { hideFolders(); };
  const auto add = [this](base::Subscription s) { subscriptions_.push_back(std::move(s)); };
  add(c_.Drive1.change.subscribe([this] { driveChanged(); }));
  add(c_.Drive1.gotFocus.subscribe([this] { driveGotFocus(); }));
  add(c_.Dir1.click.subscribe([this] { fillSongList(); }));
  add(c_.Dir1.change.subscribe([this] { folderChanged(); }));
  add(c_.Dir1.mouseUp.subscribe(focusSongs));
  add(c_.window.mouseMoved.subscribe(hide));
  add(c_.window.activate.subscribe(hide));
  add(songs_.list1().mouseMoved.subscribe(hide));
  add(c_.File1.pathChange.subscribe([this] { enterFileListFolder(); }));
  add(c_.Command5.click.subscribe([this] { refresh(); }));
}

void FolderBrowser::readDrives() {
  base::goOn([&] { c_.Drive1.setDrives(files_.drives()); });
}

bool FolderBrowser::setFolder(const std::string& folder) {
  return show(withoutSeparator(folder, files_.separator()));
}

void FolderBrowser::setDriveOf(const std::string& path) {
  base::endQuietly([&] { c_.Drive1.setDrive(files_.driveOf(path)); });
}

void FolderBrowser::driveChanged() {
  if (following_) return;
  const std::string root = c_.Drive1.drive();
  std::string folder = root;
  base::goOn([&] { folder = files_.currentFolderOf(root); });
  // The folder last shown on a drive may be gone while the drive is well.
  if (!show(folder) && folder != root) show(root);
  songs_.list1().setFocus();
}

void FolderBrowser::driveGotFocus() {
  c_.Dir1.setVisible(true);
  // A stick may have been put in since the list was filled.
  readDrives();
  if (songs_.mode() == ListMode::Playlist) returnToRememberedFolder();
}

void FolderBrowser::returnToRememberedFolder() {
  std::string current = folder();
  base::goOn([&] { current = files_.currentDirectory(); });
  setFolder(rememberedFolder_(current));
}

void FolderBrowser::folderChanged() {
  if (!following_) setFolder(c_.Dir1.path());
}

void FolderBrowser::enterFileListFolder() {
  base::endQuietly([&] { files_.setCurrentDirectory(c_.File1.path()); });
}

FolderBrowser::Listing FolderBrowser::listingOf(const std::string& folder) const {
  Listing listing;
  listing.folders = files_.folders(folder);
  listing.ancestors = files_.ancestors(folder);
  listing.files = files_.files(folder, c_.File1.pattern());
  return listing;
}

bool FolderBrowser::show(const std::string& folder) {
  // Setting the path that is shown raises nothing, so the played tags outlive it. A playlist's
  // entries have taken the folder's place, so then it is listed again.
  if (folder == c_.File1.path() && songs_.mode() == ListMode::Folder) {
    followDrive(folder);
    return true;
  }
  try {
    take(folder, listingOf(folder));
  } catch (const base::Failure& failure) {
    goBackToShownFolder();
    tellTrouble(failure.what());
    return false;
  }
  followDrive(folder);
  tellTrouble("");
  return true;
}

void FolderBrowser::take(const std::string& folder, Listing listing) {
  {
    const Raised following(following_);
    c_.Dir1.setPath(folder);
  }
  c_.Dir1.setContents(std::move(listing.ancestors), std::move(listing.folders));
  c_.File1.setNames(std::move(listing.files));
  c_.File1.setPath(folder);
  fillSongList();
}

void FolderBrowser::fillSongList() {
  // Names without a folder are no full paths, whoever asked for them.
  songs_.text2().setText(withSeparator(c_.Dir1.path()));
  songs_.setMode(ListMode::Folder);
  songs_.refill(c_.File1.names());
}

void FolderBrowser::followDrive(const std::string& folder) {
  const Raised following(following_);
  c_.Dir1.setPath(folder);
  base::goOn([&] { c_.Drive1.setDrive(files_.driveOf(folder)); });
  shownDrive_ = c_.Drive1.drive();
}

void FolderBrowser::goBackToShownFolder() {
  const Raised following(following_);
  c_.Dir1.setPath(c_.File1.path());
  c_.Drive1.setDrive(shownDrive_);
}

bool FolderBrowser::reread() {
  if (folder().empty()) return false;
  try {
    Listing listing = listingOf(folder());
    c_.Dir1.setContents(std::move(listing.ancestors), std::move(listing.folders));
    c_.File1.setNames(std::move(listing.files));
  } catch (const base::Failure& failure) {
    tellTrouble(failure.what());
    return false;
  }
  tellTrouble("");
  return true;
}

void FolderBrowser::refresh() {
  controls::ListBox& list = songs_.list1();
  const int position = list.listIndex();
  const bool ofFolder = songs_.mode() == ListMode::Folder;
  if (ofFolder) {
    if (!reread()) return;
    list.setFocus();
  }
  songs_.listExhausted = false;
  songs_.clearPlayedTags();
  songs_.clearRecentFlags();
  const std::string entry = position < 0 ? std::string() : list.item(position);
  songs_.text1().setText(entry);
  c_.Label9.setCaption(displayName(entry, files_.separator()));
  if (ofFolder) fillSongList();
  // The folder may have lost files: then what the refill made current stays.
  base::endQuietly([&] {
    list.setListIndex(position);
    list.setSelected(position, true);
  });
  list.setFocus();
}

void FolderBrowser::tellTrouble(const std::string& text) {
  const bool told = std::exchange(troubleTold_, !text.empty());
  if (notice_ && (troubleTold_ || told)) notice_(text);
}

std::string FolderBrowser::withSeparator(std::string folder) const {
  if (!folder.empty() && folder.back() != files_.separator()) folder += files_.separator();
  return folder;
}

}  // namespace nerolith::library

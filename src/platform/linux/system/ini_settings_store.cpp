#include "platform/linux/system/ini_settings_store.h"

#include <glib.h>
#include <sys/stat.h>

#include <cerrno>
#include <utility>

#include "platform/failure.h"
#include "platform/linux/system/key_file_text.h"
#include "platform/linux/system/system_failure.h"
#include "platform/linux/system/user_folders.h"
#include "platform/linux/system/whole_file.h"

namespace nerolith::system {
namespace {

constexpr std::size_t kLargestFile = 1 << 20;

struct FreeText {
  void operator()(char* text) const { g_free(text); }
};
using Text = std::unique_ptr<char, FreeText>;

std::string groupOf(const std::string& application, const std::string& section) {
  return escapedName(application) + "/" + escapedName(section);
}

}  // namespace

/// A key file in memory.
struct IniSettingsStore::Contents {
  Contents() : file(g_key_file_new()) {}
  ~Contents() { g_key_file_unref(file); }
  Contents(const Contents&) = delete;
  Contents& operator=(const Contents&) = delete;

  /// False when the bytes are no key file.
  bool load(const std::string& bytes) {
    if (bytes.find('\0') != std::string::npos) return false;
    if (bytes.empty()) return true;
    return g_key_file_load_from_data(file, bytes.data(), bytes.size(), G_KEY_FILE_KEEP_COMMENTS,
                                     nullptr);
  }

  std::string bytes() const {
    gsize length = 0;
    const Text text(g_key_file_to_data(file, &length, nullptr));
    return {text.get(), length};
  }

  std::optional<std::string> get(const std::string& group, const std::string& key) const {
    const Text value(g_key_file_get_value(file, group.c_str(), key.c_str(), nullptr));
    if (!value) return std::nullopt;
    return unescapedValue(value.get());
  }

  void set(const std::string& group, const std::string& key, const std::string& text) {
    g_key_file_set_value(file, group.c_str(), key.c_str(), escapedValue(text).c_str());
  }

  GKeyFile* file;
};

IniSettingsStore::IniSettingsStore(std::string path)
    : path_(std::move(path)), contents_(std::make_unique<Contents>()) {}

IniSettingsStore::~IniSettingsStore() = default;

std::string IniSettingsStore::defaultPath() { return configFolder() + "/settings.ini"; }

std::optional<std::string> IniSettingsStore::read(const std::string& application,
                                                  const std::string& section,
                                                  const std::string& key) const {
  refresh();
  return contents_->get(groupOf(application, section), escapedName(key));
}

void IniSettingsStore::write(const std::string& application, const std::string& section,
                             const std::string& key, const std::string& text) {
  refresh();
  const std::string group = groupOf(application, section);
  if (contents_->get(group, escapedName(key)) == text) return;
  // On a copy, so that a text that could not be saved is not taken for stored.
  auto changed = std::make_unique<Contents>();
  changed->load(contents_->bytes());
  changed->set(group, escapedName(key), text);
  const std::string bytes = changed->bytes();
  if (bytes.size() > kLargestFile)
    throw platform::Failure(path_ + ": the settings would outgrow their file", EFBIG);
  replaceWhole(path_, bytes);
  contents_ = std::move(changed);
  stamp_ = stampOfFile();
}

std::string IniSettingsStore::trouble() { return std::exchange(trouble_, {}); }

IniSettingsStore::Stamp IniSettingsStore::stampOfFile() const {
  struct stat status;
  if (stat(path_.c_str(), &status) != 0) {
    if (errno == ENOENT || errno == ENOTDIR) return {};
    throwSystemFailure(path_);
  }
  return {status.st_dev, status.st_ino, static_cast<std::uint64_t>(status.st_size),
          status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

/// Reads the file again when it is not the one that was read or written last.
void IniSettingsStore::refresh() const {
  const Stamp stamp = stampOfFile();
  if (stamp == stamp_) return;
  auto fresh = std::make_unique<Contents>();
  if (stamp != Stamp()) {
    const std::optional<std::string> bytes = readWhole(path_, kLargestFile);
    if (!bytes || !fresh->load(*bytes)) {
      setAside();
      fresh = std::make_unique<Contents>();
    }
  }
  contents_ = std::move(fresh);
  stamp_ = stampOfFile();
}

void IniSettingsStore::setAside() const {
  try {
    const std::string aside = setFileAside(path_, "damaged");
    trouble_ = "The settings in " + path_ + " could not be read. They were set aside as " + aside +
               "; the player starts with its own.";
  } catch (const platform::Failure& failure) {
    throw platform::Failure("The settings in " + path_ +
                                " cannot be read, and not be set aside either: " + failure.what(),
                            failure.code());
  }
}

}  // namespace nerolith::system

#include "platform/simulated/simulated_output.h"

#include <stdexcept>
#include <utility>

#include "platform/failure.h"

namespace nerolith::platform::simulated {
namespace {

constexpr const char* kInTheMaking = ".part";

std::string textOf(std::span<const std::byte> bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

}  // namespace

class SimulatedOutput::File : public OutputFile {
 public:
  /// `path` is where its bytes are, `target` what it becomes.
  File(SimulatedOutput& output, std::string path, std::string target)
      : output_(output), path_(std::move(path)), target_(std::move(target)) {
    output_.open_.insert(path_);
  }
  ~File() override {
    if (!open_) return;
    release();
    if (path_ != target_) output_.files_.remove(path_);
  }

  std::int64_t size() const override { return static_cast<std::int64_t>(now().size()); }

  void append(std::span<const std::byte> bytes) override {
    act("append", std::to_string(bytes.size()));
    output_.checkWritable(path_);
    const auto count = static_cast<std::int64_t>(bytes.size());
    if (output_.space_ && *output_.space_ < count)
      output_.doorway_.refuse(target_ + ": the disk is full");
    if (output_.space_) *output_.space_ -= count;
    output_.store(path_, now() + textOf(bytes));
  }

  void writeAt(std::int64_t offset, std::span<const std::byte> bytes) override {
    act("write", std::to_string(offset) + " " + std::to_string(bytes.size()));
    output_.checkWritable(path_);
    std::string all = now();
    if (offset < 0 || offset + static_cast<std::int64_t>(bytes.size()) > size())
      output_.doorway_.refuse(target_ + ": has no such place");
    all.replace(static_cast<std::size_t>(offset), bytes.size(), textOf(bytes));
    output_.store(path_, std::move(all));
  }

  void close() override {
    if (!open_) return;
    release();
    output_.doorway_.act({Door::Output, "output", "close"});
    if (path_ == target_) return;
    output_.store(target_, now());
    output_.files_.remove(path_);
  }

 private:
  void act(std::string_view verb, const std::string& argument) const {
    if (!open_) throw Failure(target_ + ": is closed");
    output_.doorway_.act({Door::Output, "output", verb, argument});
  }
  const std::string& now() const {
    const SimulatedFile* file = output_.files_.find(path_);
    if (!file) output_.doorway_.refuse(target_ + ": was removed");
    return file->bytes;
  }
  void release() {
    open_ = false;
    output_.open_.erase(output_.open_.find(path_));
  }

  SimulatedOutput& output_;
  std::string path_;
  std::string target_;
  bool open_ = true;
};

const std::string& SimulatedOutput::bytes(const std::string& path) const {
  const SimulatedFile* file = files_.find(path);
  if (!file) throw std::out_of_range(path + ": no such file");
  return file->bytes;
}

std::unique_ptr<OutputFile> SimulatedOutput::create(const std::string& path) {
  doorway_.act({Door::Output, "output", "create", path});
  checkPlace(path);
  store(path, {});
  return std::make_unique<File>(*this, path, path);
}

std::unique_ptr<OutputFile> SimulatedOutput::reopen(const std::string& path) {
  doorway_.act({Door::Output, "output", "reopen", path});
  checkWritable(path);
  if (isOpen(path)) doorway_.refuse(path + ": is in use");
  return std::make_unique<File>(*this, path, path);
}

std::unique_ptr<OutputFile> SimulatedOutput::replace(const std::string& path) {
  doorway_.act({Door::Output, "output", "replace", path});
  checkPlace(path);
  store(path + kInTheMaking, {});
  return std::make_unique<File>(*this, path + kInTheMaking, path);
}

/// Whether a new file can be made there.
void SimulatedOutput::checkPlace(const std::string& path) const {
  const std::size_t end = path.rfind(files_.separator());
  if (end == std::string::npos || !files_.folderExists(path.substr(0, end + 1)))
    doorway_.refuse(path + ": no such folder");
  if (files_.folderExists(path)) doorway_.refuse(path + ": is a folder");
  if (files_.find(path)) checkWritable(path);
  if (isOpen(path)) doorway_.refuse(path + ": is in use");
}

void SimulatedOutput::checkWritable(const std::string& path) const {
  const SimulatedFile* file = files_.find(path);
  if (!file) doorway_.refuse(path + ": no such file");
  if (file->readOnly) doorway_.refuse(path + ": is read-only");
  if (locked_.contains(path)) doorway_.refuse(path + ": is held by another program");
}

void SimulatedOutput::store(const std::string& path, std::string bytes) {
  const SimulatedFile* before = files_.find(path);
  SimulatedFile file = before ? *before : SimulatedFile{.playable = false};
  file.size = static_cast<std::int64_t>(bytes.size());
  file.bytes = std::move(bytes);
  files_.addFile(path, file);
}

}  // namespace nerolith::platform::simulated

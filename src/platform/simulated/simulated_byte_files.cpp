#include "platform/simulated/simulated_byte_files.h"

#include <stdexcept>
#include <utility>

namespace nerolith::platform::simulated {
namespace {

/// Small, so that what a reader keeps from one block to the next is put to the test.
constexpr std::size_t kBlock = 7;

}  // namespace

const SimulatedFile& SimulatedByteFiles::fileAt(const std::string& path) const {
  const SimulatedFile* file = files_.find(path);
  if (!file) doorway_.refuse(path + ": no such file");
  return *file;
}

void SimulatedByteFiles::read(const std::string& path, const TakeBlock& take) const {
  doorway_.act({Door::Files, "bytes", "read", path});
  const std::string bytes = fileAt(path).bytes;
  for (std::size_t done = 0; done < bytes.size(); done += kBlock)
    take(std::string_view(bytes).substr(done, kBlock));
}

std::uint64_t SimulatedByteFiles::size(const std::string& path) const {
  doorway_.look({Door::Files, "bytes", "size", path});
  return fileAt(path).bytes.size();
}

bool SimulatedByteFiles::same(const std::string& path, const std::string& other) const {
  const SimulatedFile* file = files_.find(path);
  return file && file == files_.find(other);
}

std::string SimulatedByteFiles::readEnd(const std::string& path, std::size_t most) const {
  doorway_.look({Door::Files, "bytes", "readEnd", path});
  const std::string& bytes = fileAt(path).bytes;
  return bytes.size() <= most ? bytes : bytes.substr(bytes.size() - most);
}

void SimulatedByteFiles::create(const std::string& path) {
  doorway_.act({Door::Files, "bytes", "create", path});
  if (files_.find(path)) return;
  checkPlace(path);
  store(path, {});
}

void SimulatedByteFiles::replace(const std::string& path, const std::string& bytes) {
  doorway_.act({Door::Files, "bytes", "replace", path});
  checkPlace(path);
  store(path, bytes);
}

void SimulatedByteFiles::append(const std::string& path, const std::string& bytes) {
  doorway_.act({Door::Files, "bytes", "append", path});
  const std::string before = fileAt(path).bytes;
  checkPlace(path);
  store(path, before + bytes);
}

void SimulatedByteFiles::put(const std::string& path, std::string bytes) {
  store(path, std::move(bytes));
}

const std::string& SimulatedByteFiles::at(const std::string& path) const {
  const SimulatedFile* file = files_.find(path);
  if (!file) throw std::out_of_range(path + ": no such file");
  return file->bytes;
}

/// Whether something can be written there.
void SimulatedByteFiles::checkPlace(const std::string& path) const {
  const std::size_t end = path.rfind(files_.separator());
  if (end == std::string::npos || !files_.folderExists(path.substr(0, end + 1)))
    doorway_.refuse(path + ": no such folder");
  if (files_.folderExists(path)) doorway_.refuse(path + ": is a folder");
  const SimulatedFile* file = files_.find(path);
  if (file && file->readOnly) doorway_.refuse(path + ": is read-only");
}

void SimulatedByteFiles::store(const std::string& path, std::string bytes) {
  const SimulatedFile* before = files_.find(path);
  SimulatedFile file = before ? *before : SimulatedFile{.playable = false};
  file.size = static_cast<std::int64_t>(bytes.size());
  file.bytes = std::move(bytes);
  files_.addFile(path, file);
}

}  // namespace nerolith::platform::simulated

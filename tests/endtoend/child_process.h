// A program started by a test, ended with it.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace nerolith::endtoend {

using Environment = std::map<std::string, std::string>;

/// The test's own environment without what would lead a program to the user's screen, sound or
/// settings.
Environment neutralEnvironment();

struct Command {
  std::vector<std::string> words;  // the program, looked up in PATH, and its arguments
  Environment environment = neutralEnvironment();
  std::filesystem::path folder;  // working folder; empty: the test's own
  std::filesystem::path log;     // receives both outputs; empty: they are dropped
};

/// Starts in the constructor, in a process group of its own. The destructor ends the whole group:
/// politely first, after two seconds by force. Should the test itself die, the kernel ends it.
class ChildProcess {
 public:
  /// Throws std::runtime_error when no process can be made. A program that is not there ends at
  /// once with 127.
  explicit ChildProcess(const Command& command);
  ~ChildProcess();
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  pid_t pid() const { return pid_; }
  bool running();
  /// The exit code, 128 + signal for one that was killed, nothing when it runs longer than that.
  std::optional<int> wait(std::chrono::milliseconds longest);
  /// Ends it now, as the destructor would.
  void end();
  /// Ends it at once, without a chance to say goodbye.
  void kill();
  void signal(int number);

 private:
  void reap(bool block);

  pid_t pid_ = -1;
  std::optional<int> result_;
};

/// Runs it to its end; the exit code, or 124 when it took longer and was ended.
int runToEnd(const Command& command, std::chrono::milliseconds longest = std::chrono::seconds(20));

/// What a program prints. Throws std::runtime_error when it fails.
std::string outputOf(Command command, const std::filesystem::path& scratch);

std::string contentsOf(const std::filesystem::path& file);

/// Makes the file where there is none and takes it until this process ends. False while another
/// process has it. What this process starts does not keep it.
bool takeForThisProcess(const std::filesystem::path& file);

/// A folder under the system's temporary one, removed with everything in it; unless ENDTOEND_KEEP
/// is set, for those who want to look at a recording.
class ScratchFolder {
 public:
  ScratchFolder();
  ~ScratchFolder();
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace nerolith::endtoend

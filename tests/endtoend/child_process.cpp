#include "endtoend/child_process.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <thread>

namespace nerolith::endtoend {
namespace {

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

struct Prepared {
  explicit Prepared(const Command& command)
      : words(command.words),
        folder(command.folder.string()),
        log(command.log.empty() ? "/dev/null" : command.log.string()) {
    for (const auto& [name, value] : command.environment) settings.push_back(name + "=" + value);
    arguments = pointersTo(words);
    variables = pointersTo(settings);
  }
  std::vector<std::string> words, settings;
  std::string folder, log;
  std::vector<char*> arguments, variables;
};

// Between fork and exec only what a signal handler may call: the test has threads.
[[noreturn]] void becomeTheProgram(Prepared& prepared) {
  setpgid(0, 0);
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (!prepared.folder.empty() && chdir(prepared.folder.c_str()) != 0) _exit(126);
  const int nothing = open("/dev/null", O_RDONLY);
  const int log = open(prepared.log.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
  dup2(nothing, 0);
  dup2(log, 1);
  dup2(log, 2);
  for (int descriptor = 3; descriptor < 64; ++descriptor) close(descriptor);
  execvpe(prepared.arguments[0], prepared.arguments.data(), prepared.variables.data());
  _exit(127);
}

}  // namespace

Environment neutralEnvironment() {
  Environment environment;
  for (char** entry = environ; *entry != nullptr; ++entry) {
    const std::string text = *entry;
    const auto equals = text.find('=');
    environment[text.substr(0, equals)] = text.substr(equals + 1);
  }
  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "PULSE_SERVER", "PULSE_SINK",
                           "XDG_RUNTIME_DIR", "QT_QPA_PLATFORM", "XDG_SESSION_TYPE"})
    environment.erase(name);
  environment["DBUS_SESSION_BUS_ADDRESS"] = "disabled:";
  environment["DBUS_SYSTEM_BUS_ADDRESS"] = "disabled:";
  environment["LC_ALL"] = "C.UTF-8";
  return environment;
}

ChildProcess::ChildProcess(const Command& command) {
  Prepared prepared(command);
  pid_ = fork();
  if (pid_ < 0) throw std::runtime_error("cannot start " + command.words.front());
  if (pid_ == 0) becomeTheProgram(prepared);
  setpgid(pid_, pid_);
}

ChildProcess::~ChildProcess() { end(); }

void ChildProcess::reap(bool block) {
  if (result_) return;
  int status = 0;
  if (waitpid(pid_, &status, block ? 0 : WNOHANG) != pid_) return;
  result_ = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

bool ChildProcess::running() {
  reap(false);
  return !result_;
}

std::optional<int> ChildProcess::wait(std::chrono::milliseconds longest) {
  const auto until = std::chrono::steady_clock::now() + longest;
  while (running() && std::chrono::steady_clock::now() < until)
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  return result_;
}

void ChildProcess::end() {
  if (!running()) return;
  ::kill(-pid_, SIGTERM);
  if (!wait(std::chrono::seconds(2))) kill();
}

void ChildProcess::kill() {
  if (!running()) return;
  ::kill(-pid_, SIGKILL);
  reap(true);
}

void ChildProcess::signal(int number) {
  if (running()) ::kill(pid_, number);
}

int runToEnd(const Command& command, std::chrono::milliseconds longest) {
  ChildProcess process(command);
  return process.wait(longest).value_or(124);
}

std::string outputOf(Command command, const std::filesystem::path& scratch) {
  command.log = scratch / "output";
  std::filesystem::remove(command.log);
  const int result = runToEnd(command);
  std::string text = contentsOf(command.log);
  if (result != 0)
    throw std::runtime_error(command.words.front() + " ended with " + std::to_string(result) +
                             ": " + text);
  return text;
}

std::string contentsOf(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  std::ostringstream text;
  text << stream.rdbuf();
  return text.str();
}

bool takeForThisProcess(const std::filesystem::path& file) {
  const int opened = open(file.c_str(), O_CREAT | O_RDWR | O_CLOEXEC, 0600);
  if (opened < 0) return false;
  if (flock(opened, LOCK_EX | LOCK_NB) == 0) return true;
  close(opened);
  return false;
}

ScratchFolder::ScratchFolder() {
  std::string name = (std::filesystem::temp_directory_path() / "endtoend-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("cannot make " + name);
  path_ = name;
}

ScratchFolder::~ScratchFolder() {
  if (std::getenv("ENDTOEND_KEEP") != nullptr) return;
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

}  // namespace nerolith::endtoend

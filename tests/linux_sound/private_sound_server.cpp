#include "linux_sound/private_sound_server.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstring>
#include <filesystem>
#include <stdexcept>

#include "linux_sound/sound_files.h"

namespace nerolith::sound_tests {
namespace {

pid_t spawn(const std::vector<std::string>& words, int output = -1) {
  std::vector<char*> arguments;
  for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
  if (output >= 0) {
    posix_spawn_file_actions_adddup2(&actions, output, 1);
  } else {
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
  }
  pid_t process = 0;
  const int error =
      ::posix_spawnp(&process, arguments[0], &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) throw std::runtime_error(words[0] + ": " + std::strerror(error));
  return process;
}

void end(pid_t& process) {
  if (process <= 0) return;
  ::kill(process, SIGKILL);
  ::waitpid(process, nullptr, 0);
  process = 0;
}

}  // namespace

bool PrivateSoundServer::available() {
  return haveTool("pulseaudio") && haveTool("parec") && haveTool("pactl");
}

PrivateSoundServer::PrivateSoundServer(Begin begin) {
  ::setenv("XDG_RUNTIME_DIR", scratch_.path().c_str(), 1);
  ::setenv("HOME", scratch_.path().c_str(), 1);
  ::setenv("DBUS_SESSION_BUS_ADDRESS", "disabled:", 1);
  for (const char* name : {"PULSE_SERVER", "PULSE_SINK", "PULSE_RUNTIME_PATH"}) ::unsetenv(name);
  if (begin == Begin::Started) start();
}

PrivateSoundServer::~PrivateSoundServer() { kill(); }

void PrivateSoundServer::start() {
  const std::string card =
      "module-null-sink sink_name=card format=float32le rate=44100 channels=2 norewinds=1";
  process_ = spawn({"pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--disable-shm=no",
                    "--load=module-native-protocol-unix", "--load=" + card});
  for (int i = 0; i < 250; ++i) {
    if (runTool("pactl info")) return;
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  throw std::runtime_error("the sound server does not answer");
}

void PrivateSoundServer::kill() {
  end(process_);
  std::error_code ignored;
  std::filesystem::remove_all(scratch_.path() / "pulse", ignored);
}

void PrivateSoundServer::freeze() { ::kill(process_, SIGSTOP); }
void PrivateSoundServer::thaw() { ::kill(process_, SIGCONT); }

CardRecording::CardRecording() {
  int ends[2] = {-1, -1};
  if (::pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  process_ = spawn({"parec", "--raw", "--device=card.monitor", "--format=float32le", "--rate=44100",
                    "--channels=2", "--latency-msec=10"},
                   ends[1]);
  ::close(ends[1]);
  pipe_ = ends[0];
  reader_ = std::thread([this] { read(); });
  if (!waitFor([](const auto& frames) { return !frames.empty(); })) {
    throw std::runtime_error("nothing is recorded");
  }
}

CardRecording::~CardRecording() {
  end(process_);
  reader_.join();
  ::close(pipe_);
}

void CardRecording::read() {
  std::vector<unsigned char> waiting;
  unsigned char piece[16384];
  for (;;) {
    const ssize_t got = ::read(pipe_, piece, sizeof piece);
    if (got <= 0) return;
    waiting.insert(waiting.end(), piece, piece + got);
    const std::size_t whole = waiting.size() / sizeof(sound::Frame);
    const std::lock_guard lock(mutex_);
    const std::size_t before = frames_.size();
    frames_.resize(before + whole);
    std::memcpy(frames_.data() + before, waiting.data(), whole * sizeof(sound::Frame));
    waiting.erase(waiting.begin(),
                  waiting.begin() + static_cast<std::ptrdiff_t>(whole * sizeof(sound::Frame)));
  }
}

std::vector<sound::Frame> CardRecording::frames() const {
  const std::lock_guard lock(mutex_);
  return frames_;
}

std::size_t CardRecording::size() const {
  const std::lock_guard lock(mutex_);
  return frames_.size();
}

}  // namespace nerolith::sound_tests

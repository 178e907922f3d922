#include "endtoend/private_desktop.h"

#include <chrono>
#include <fstream>
#include <functional>
#include <stdexcept>
#include <thread>

namespace nerolith::endtoend {
namespace {

using std::chrono::milliseconds;

void waitFor(const char* what, const std::function<bool()>& ready) {
  const auto until = std::chrono::steady_clock::now() + std::chrono::seconds(15);
  while (!ready()) {
    if (std::chrono::steady_clock::now() > until)
      throw std::runtime_error(std::string(what) + " does not come up");
    std::this_thread::sleep_for(milliseconds(20));
  }
}

}  // namespace

PrivateDesktop::PrivateDesktop(SoundServer sound) {
  for (const char* name : {"home", "config", "data", "cache", "runtime", "music"})
    std::filesystem::create_directory(scratch() / name);
  std::filesystem::permissions(scratch() / "runtime", std::filesystem::perms::owner_all);
  startScreen();
  if (sound == SoundServer::Present) startSoundServer();
}

PrivateDesktop::~PrivateDesktop() = default;

std::filesystem::path PrivateDesktop::settingsFile() const {
  return scratch() / "config/velmarion/settings.ini";
}

Environment PrivateDesktop::environment() const {
  Environment environment = neutralEnvironment();
  environment["HOME"] = scratch() / "home";
  environment["XDG_CONFIG_HOME"] = scratch() / "config";
  environment["XDG_DATA_HOME"] = scratch() / "data";
  environment["XDG_CACHE_HOME"] = scratch() / "cache";
  environment["XDG_RUNTIME_DIR"] = scratch() / "runtime";
  if (!display_.empty()) environment["DISPLAY"] = display_;
  if (!systemBusAddress_.empty()) environment["DBUS_SYSTEM_BUS_ADDRESS"] = systemBusAddress_;
  if (!loginBusAddress_.empty()) environment["DBUS_SESSION_BUS_ADDRESS"] = loginBusAddress_;
  return environment;
}

Command PrivateDesktop::command(std::vector<std::string> words) const {
  return {std::move(words), environment(), scratch(), {}};
}

void PrivateDesktop::startScreen() {
  // The server picks a free number itself and writes it to its output.
  const auto number = scratch() / "display";
  Command server = command(
      {"Xvfb", "-displayfd", "1", "-screen", "0", "1280x800x24", "-nolisten", "tcp", "-noreset"});
  server.log = number;
  screen_ = std::make_unique<ChildProcess>(server);
  waitFor("Xvfb", [&] {
    std::ifstream lines(number);
    for (std::string line; std::getline(lines, line) && !lines.eof();)
      if (!line.empty() && line.find_first_not_of("0123456789") == std::string::npos)
        display_ = ":" + line;
    return !display_.empty();
  });
  windowManager_ = std::make_unique<ChildProcess>(command({"openbox"}));
  waitFor("openbox", [&] { return runToEnd(command({"xdotool", "get_desktop"})) == 0; });
}

void PrivateDesktop::startMessageBuses() {
  systemBusAddress_ = startBus("system-bus", systemBus_);
  loginBusAddress_ = startBus("login-bus", loginBus_);
}

/// The usual configuration of neither fits: the one wants a user of its own, the other starts
/// services of the machine. Here everybody may say everything, and nobody is started.
std::string PrivateDesktop::startBus(const std::string& name, std::unique_ptr<ChildProcess>& bus) {
  const auto socket = scratch() / name;
  const std::string address = "unix:path=" + socket.string();
  const auto configuration = scratch() / (name + ".conf");
  std::ofstream(configuration)
      << "<!DOCTYPE busconfig PUBLIC \"-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN\"\n"
      << " \"http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd\">\n"
      << "<busconfig><listen>" << address << "</listen><auth>EXTERNAL</auth>\n"
      << "<policy context=\"default\"><allow send_destination=\"*\" eavesdrop=\"true\"/>"
      << "<allow eavesdrop=\"true\"/><allow own=\"*\"/></policy></busconfig>\n";
  bus = std::make_unique<ChildProcess>(command(
      {"dbus-daemon", "--nofork", "--nopidfile", "--config-file=" + configuration.string()}));
  waitFor("the message bus", [&] { return std::filesystem::exists(socket); });
  return address;
}

void PrivateDesktop::startSoundServer() {
  const std::string card =
      "module-null-sink sink_name=card norewinds=1 format=float32le rate=44100 channels=2";
  Command server = command({"pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1",
                            "--load=module-native-protocol-unix", "--load=" + card});
  server.log = scratch() / "pulseaudio.log";
  soundServer_ = std::make_unique<ChildProcess>(server);
  waitFor("the sound server", [&] { return runToEnd(command({"pactl", "info"})) == 0; });
}

void PrivateDesktop::killSoundServer() {
  if (soundServer_) soundServer_->kill();
  soundServer_.reset();
  std::filesystem::remove_all(scratch() / "runtime/pulse");
}

void PrivateDesktop::screenshot(const std::filesystem::path& file) const {
  std::filesystem::create_directories(file.parent_path());
  if (runToEnd(command({"import", "-window", "root", file.string()})) != 0)
    throw std::runtime_error("no screenshot " + file.string());
}

}  // namespace nerolith::endtoend

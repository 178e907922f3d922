// The Linux program: its machine, and the player on it.

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include "app/command_line.h"
#include "app/program.h"
#include "base/failure_policy.h"
#include "platform/linux/command_words.h"
#include "platform/linux/desktop/mpris_controls.h"
#include "platform/linux/desktop/sleep_inhibitor.h"
#include "platform/linux/system/ini_settings_store.h"
#include "platform/linux/system/instance_socket.h"
#include "platform/linux/system/lazy_capture.h"
#include "platform/linux/system/posix_byte_files.h"
#include "platform/linux/system/posix_file_system.h"
#include "platform/linux/system/posix_output_files.h"
#include "platform/linux/system/posix_text_encoding.h"
#include "platform/linux/system/sound_module.h"
#include "platform/linux/system/start_up_pages.h"
#include "platform/linux/system/system_clock.h"
#include "platform/linux/widgets/descriptor_watch.h"
#include "platform/linux/widgets/qt_application.h"
#include "platform/linux/widgets/qt_dialogs.h"
#include "platform/linux/widgets/qt_event_queue.h"
#include "platform/linux/widgets/qt_notification_icon.h"
#include "platform/linux/widgets/qt_picture_loader.h"
#include "platform/linux/widgets/qt_window_host.h"
#include "recording/wave_command.h"

namespace {

using namespace nerolith;

/// Ticks of the main timer until start and first song have settled: three seconds.
constexpr int kSettledTicks = 30;

/// The whole command line as one text, as the player reads it.
std::string commandLineOf(int argc, char** argv) {
  std::string text;
  for (int i = 1; i < argc; ++i) {
    if (i > 1) text += ' ';
    text += argv[i];
  }
  return text;
}

/// What needs no window. True when it was all that was asked for.
bool answeredInTheShell(const std::string& commandLine) {
  if (commandLine == "--help" || commandLine == "-h") {
    std::fputs(platform::linux_desktop::kHelp, stdout);
    return true;
  }
  if (commandLine != "--version") return false;
  std::puts("Nerolith " NEROLITH_VERSION);
  return true;
}

/// Recordings that were cut off, and copies of recordings. Nothing when the words are about
/// neither.
std::optional<int> answeredWithoutAPlayer(int argc, char** argv) {
  const std::vector<std::string> words(argv + std::min(argc, 1), argv + argc);
  if (words.empty() || !recording::isWaveCommand(words[0])) return std::nullopt;
  const system::PosixByteFiles bytes;
  system::PosixOutputFiles output;
  system::IniSettingsStore settings;
  const auto answer = recording::answerWaveCommand(words, bytes, output, settings);
  std::fprintf(answer->exitCode == 0 ? stdout : stderr, "%s\n", answer->text.c_str());
  return answer->exitCode;
}

/// Whether this run is the player. If not, the one that runs has taken what this one was asked for.
/// A question about the usage is answered by whoever was asked.
bool isThePlayer(platform::FirstInstance& instance, const platform::FileSystem& files,
                 const std::string& commandLine) {
  if (app::parseCommandLine(commandLine).asksForUsage()) return true;
  platform::StartRequest request{"/", commandLine};
  base::goOn([&] { request.directory = files.currentDirectory(); });
  return instance.claim(request);
}

int play(widgets::QtApplication& application, system::PosixFileSystem& files,
         platform::FirstInstance& instance, const std::string& commandLine) {
  widgets::QtEventQueue events;
  widgets::QtWindowHost windows;
  widgets::QtDialogs dialogs;
  widgets::QtPictureLoader pictures;
  system::PosixByteFiles bytes;
  system::PosixTextEncoding encoding;
  system::IniSettingsStore settings;
  system::SystemClock clock;
  system::LazySoundEngine sound;
  system::LazyCapture capture(sound);
  system::LazyTone tone(sound);
  system::PosixOutputFiles output;
  widgets::QtNotificationIcon icon;
  desktop::MprisControls media;
  desktop::SleepInhibitor power;
  const platform::Machine machine{sound,  files,   settings, dialogs,  pictures, clock,
                                  events, windows, bytes,    encoding, capture,  tone,
                                  output, media,   power,    icon};

  app::Program program(machine);
  program.start(commandLine);
  instance.listen([&program](const platform::StartRequest& later) { program.takeOver(later); });
  events.post([&] { sound.warmUp(); });
  events.post([&] {
    const std::string trouble = settings.trouble();
    if (!trouble.empty()) dialogs.showMessage({trouble, platform::MessageIcon::Information});
  });
  int ticks = 0;
  const auto settled = program.mainForm().Timer1.tick.subscribe([&ticks] {
    if (++ticks == kSettledTicks) system::giveBackStartUpPages();
  });
  return application.run();
}

int runPlayer(int argc, char** argv) {
  widgets::QtApplication application(argc, argv);
  // Read again: the toolkit has taken out the options that are its own.
  const std::string commandLine = commandLineOf(argc, argv);
  system::PosixFileSystem files;
  widgets::DescriptorWatch watch;
  system::InstanceSocket instance(
      system::InstanceSocket::usualPlace(),
      [&watch](int descriptor, auto readable) { watch.add(descriptor, std::move(readable)); });
  return isThePlayer(instance, files, commandLine) ? play(application, files, instance, commandLine)
                                                   : 0;
}

}  // namespace

int main(int argc, char** argv) {
  // A limit on the size of files is a full disk, not the end of the program.
  std::signal(SIGXFSZ, SIG_IGN);
  const std::string commandLine = commandLineOf(argc, argv);
  if (answeredInTheShell(commandLine)) return 0;
  if (const auto exitCode = answeredWithoutAPlayer(argc, argv)) return *exitCode;
  return runPlayer(argc, argv);
}

// The Windows program: its machine, and the player on it.

#include <windows.h>
// After windows.h, which it needs.
#include <shellapi.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/command_line.h"
#include "app/program.h"
#include "base/failure_policy.h"
#include "platform/windows/com_apartment.h"
#include "platform/windows/directshow_graphs.h"
#include "platform/windows/directsound_capture.h"
#include "platform/windows/directsound_tone.h"
#include "platform/windows/forms/task_bar_watch.h"
#include "platform/windows/forms/win32_event_queue.h"
#include "platform/windows/forms/win32_window_host.h"
#include "platform/windows/registry_store.h"
#include "platform/windows/shell_notification_icon.h"
#include "platform/windows/system_clock.h"
#include "platform/windows/wic_picture_loader.h"
#include "platform/windows/wide_text.h"
#include "platform/windows/windows_byte_files.h"
#include "platform/windows/windows_dialogs.h"
#include "platform/windows/windows_file_system.h"
#include "platform/windows/windows_first_instance.h"
#include "platform/windows/windows_media_controls.h"
#include "platform/windows/windows_output_files.h"
#include "platform/windows/windows_power_request.h"
#include "platform/windows/windows_text_encoding.h"
#include "recording/wave_command.h"

namespace {

using namespace nerolith;

constexpr const wchar_t* kHelp =
    L"velmarion [FILE|FOLDER][,MODE]\n"
    L"velmarion MODE\n"
    L"velmarion --repair FILE.wav\n"
    L"velmarion --standard FILE.wav OUT.wav\n\n"
    L"Plays the music of a folder; each song starts while the one before fades away.\n\n"
    L"FILE\topens its folder and plays it\n"
    L"FOLDER\topens it; with mode 2 or 3 the first song starts\n"
    L"FILE.m3u\timports it; with mode 2 or 3 the first song starts\n"
    L"MODE\t1 Single, 2 Auto next, 3 Random\n\n"
    L"--repair\tgives back the sound of a recording that was cut off\n"
    L"--standard\tcopies a recording for programs that are strict about WAV files\n"
    L"--help\tshows this text\n"
    L"--version\tshows the version\n\n"
    L"Examples:\nvelmarion D:\\Music,3\nvelmarion 2\nvelmarion song.mp3";

/// Everything behind the program's own name, as one text. The quotation marks that Windows puts
/// around names with blanks are no part of a name.
std::string commandLineText() {
  std::wstring_view line = GetCommandLineW();
  const bool quoted = !line.empty() && line.front() == L'"';
  const std::size_t end = quoted ? line.find(L'"', 1) : line.find_first_of(L" \t");
  line = end == std::wstring_view::npos ? std::wstring_view() : line.substr(end + (quoted ? 1 : 0));
  std::wstring text;
  for (const wchar_t sign : line)
    if (sign != L'"') text += sign;
  const std::size_t first = text.find_first_not_of(L" \t");
  if (first == std::wstring::npos) return {};
  const std::size_t last = text.find_last_not_of(L" \t");
  return windows::utf8Text(std::wstring_view(text).substr(first, last - first + 1));
}

/// Into the console or the file that the program was started with, else into a message box.
void tell(const std::wstring& text) {
  const bool console = AttachConsole(ATTACH_PARENT_PROCESS) != FALSE;
  const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
  const std::string bytes = windows::utf8Text(text) + "\r\n";
  DWORD written = 0;
  const bool told =
      output && output != INVALID_HANDLE_VALUE &&
      WriteFile(output, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) != FALSE;
  if (!told) MessageBoxW(nullptr, text.c_str(), L"Nerolith", MB_OK);
  if (console) FreeConsole();
}

/// What needs no window. True when it was all that was asked for.
bool answeredAtOnce(const std::string& commandLine) {
  if (commandLine == "--help" || commandLine == "-h" || commandLine == "/?") {
    tell(kHelp);
    return true;
  }
  if (commandLine != "--version") return false;
  tell(L"Nerolith " + windows::wideText(NEROLITH_VERSION));
  return true;
}

std::vector<std::string> commandWords() {
  int count = 0;
  wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> texts;
  for (int i = 1; words && i < count; ++i) texts.push_back(windows::utf8Text(words[i]));
  LocalFree(words);
  return texts;
}

/// Recordings that were cut off, and copies of recordings. Nothing when the words are about
/// neither.
std::optional<int> answeredWithoutAPlayer() {
  const std::vector<std::string> words = commandWords();
  if (words.empty() || !recording::isWaveCommand(words[0])) return std::nullopt;
  const windows::WindowsFileSystem files;
  const windows::WindowsByteFiles bytes(files);
  windows::WindowsOutputFiles output(files);
  windows::RegistryStore settings;
  const auto answer = recording::answerWaveCommand(words, bytes, output, settings);
  tell(windows::wideText(answer->text));
  return answer->exitCode;
}

/// The window that a dialog belongs to: the one in front of ours.
HWND windowInFront() {
  const HWND active = GetActiveWindow();
  return active ? GetAncestor(active, GA_ROOT) : nullptr;
}

/// Whether this run is the player. If not, the one that runs has taken what this one was asked for.
/// A question about the usage is answered by whoever was asked.
bool isThePlayer(platform::FirstInstance& instance, const platform::FileSystem& files,
                 const std::string& commandLine) {
  if (app::parseCommandLine(commandLine).asksForUsage()) return true;
  platform::StartRequest request{"C:\\", commandLine};
  base::goOn([&] { request.directory = files.currentDirectory(); });
  return instance.claim(request);
}

int play(windows::WindowsFileSystem& files, platform::FirstInstance& instance,
         const std::string& commandLine) {
  const windows::ComApartment com;
  windows_forms::Win32EventQueue events;
  windows_forms::Win32WindowHost forms(events);
  windows::WindowsDialogs dialogs(windowInFront, [&files] { return files.currentDirectory(); });
  windows::WindowsByteFiles bytes(files);
  windows::WindowsTextEncoding encoding;
  windows::WicPictureLoader pictures;
  windows::RegistryStore settings;
  windows::SystemClock clock;
  windows::DirectShowGraphs sound;
  windows::DirectSoundCapture capture;
  windows::DirectSoundTone tone;
  windows::WindowsOutputFiles output(files);
  windows::ShellNotificationIcon icon(
      [&forms](controls::PictureBox& picture) { return forms.windowOf(picture); },
      [&forms](const controls::Form& form) { return forms.iconOf(form); });
  const windows_forms::TaskBarWatch taskBar([&icon] { icon.taskBarCreated(); },
                                            [&icon] { icon.look(); });
  windows::WindowsMediaControls media;
  windows::WindowsPowerRequest power;
  const platform::Machine machine{sound,  files, settings, dialogs,  pictures, clock,
                                  events, forms, bytes,    encoding, capture,  tone,
                                  output, media, power,    icon};

  app::Program program(machine);
  forms.listen(program.mainForm().form,
               [&media](HWND window, UINT message, WPARAM first, LPARAM second) {
                 return media.onMessage(window, message, first, second);
               });
  program.start(commandLine);
  instance.listen([&program](const platform::StartRequest& later) { program.takeOver(later); });
  return events.run();
}

int runPlayer(const std::string& commandLine) {
  windows::WindowsFileSystem files;
  windows::WindowsFirstInstance instance;
  return isThePlayer(instance, files, commandLine) ? play(files, instance, commandLine) : 0;
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
  try {
    const std::string commandLine = commandLineText();
    if (answeredAtOnce(commandLine)) return 0;
    if (const auto exitCode = answeredWithoutAPlayer()) return *exitCode;
    return runPlayer(commandLine);
  } catch (const std::exception& fault) {
    MessageBoxW(nullptr, windows::wideText(fault.what()).c_str(), L"Nerolith",
                MB_OK | MB_ICONERROR);
    return 1;
  }
}

// How long long lists take in the real window: real widgets, real files, no screen needed. Prints
// one line for each figure: its name and the milliseconds, best and median of several tries.

#include <QApplication>
#include <QListView>
#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "app/program.h"
#include "platform/linux/system/posix_byte_files.h"
#include "platform/linux/system/posix_file_system.h"
#include "platform/linux/system/posix_text_encoding.h"
#include "platform/linux/widgets/form_window.h"
#include "platform/linux/widgets/qt_application.h"
#include "platform/linux/widgets/qt_window_host.h"
#include "platform/simulated/simulated_machine.h"

namespace {

using namespace nerolith;
namespace fs = std::filesystem;

constexpr int kTries = 7;

/// The real window and the real disk; decks, clock and settings are not what is measured.
struct Window {
  Window() : program(doors()) {
    simulated.recordTrace(false);
    program.start(",1");
    simulated.advance(std::chrono::seconds(1));
    paint();
  }
  platform::Machine doors() {
    platform::Machine mixed = simulated.doors();
    return {mixed.graphs, files,       mixed.settings, mixed.dialogs, mixed.pictures, mixed.clock,
            mixed.events, windows,     bytes,          encoding,      mixed.capture,  mixed.tone,
            mixed.output, mixed.media, mixed.power,    mixed.icon};
  }
  void paint() {
    QApplication::processEvents();
    windows.windowOf(program.mainForm().form)->repaint();
    QApplication::processEvents();
  }

  platform::simulated::SimulatedMachine simulated{'/'};
  system::PosixFileSystem files;
  system::PosixByteFiles bytes;
  system::PosixTextEncoding encoding;
  widgets::QtWindowHost windows;
  app::Program program;
};

void measure(const char* name, const std::function<void()>& before,
             const std::function<void()>& act) {
  std::vector<double> taken;
  for (int i = 0; i < kTries; ++i) {
    before();
    const auto start = std::chrono::steady_clock::now();
    act();
    taken.push_back(
        std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
            .count());
  }
  std::sort(taken.begin(), taken.end());
  std::printf("%s %.3f %.3f\n", name, taken.front(), taken[taken.size() / 2]);
}

void require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "lists: %s\n", what);
  std::exit(1);
}

void makeFiles(const fs::path& folder, int count) {
  fs::create_directories(folder);
  for (int i = 0; i < count; ++i)
    std::ofstream(folder / ("A song of some length, number " + std::to_string(i) + ".mp3"));
}

void measureFolder(Window& window, const fs::path& scratch, int count, const char* name) {
  const fs::path full = scratch / std::to_string(count);
  makeFiles(full, count);
  forms::MainForm& form = window.program.mainForm();
  const auto open = [&](const fs::path& folder) {
    form.Dir1.userOpen(folder.string());
    form.Dir1.userClick();
    window.paint();
  };
  measure(
      name, [&] { open(scratch); }, [&] { open(full); });
  require(form.List1.count() == count, "the folder was not listed");
}

void measureList(Window& window) {
  forms::MainForm& form = window.program.mainForm();
  std::vector<std::string> entries;
  measure(
      "entries_100000",
      [&] {
        form.List1.clear();
        window.paint();
        entries.clear();
        for (int i = 0; i < 100000; ++i)
          entries.push_back("A song of some length, number " + std::to_string(i) + ".mp3");
      },
      [&] {
        window.program.songs().refill(std::move(entries));
        window.paint();
      });
  require(form.List1.count() == 100000, "the list was not filled");
  const auto select = [&] {
    form.List1.selectAll();
    window.paint();
  };
  const auto deselect = [&] {
    form.List1.deselectAll();
    window.paint();
  };
  measure("select_all_100000", deselect, select);
  require(form.List1.selectedCount() == 100000, "not all was selected");
  measure("deselect_all_100000", select, deselect);
  measure(
      "paint_only", [] {}, [&] { window.paint(); });
  measure("tick_100000", select, [&] { form.Timer1.tick.raise(); });
}

void measureEditor(Window& window, const fs::path& scratch) {
  const std::string path = (scratch / "editor.m3u").string();
  std::ofstream list(path, std::ios::binary);
  for (int i = 0; i < 100000; ++i)
    list << "/music/some folder/A song of some length, number " << i << ".mp3\r\n";
  list.close();
  forms::EditorForm& form = window.program.editorForm();
  const auto close = [&] {
    form.form_4.close();
    window.paint();
    window.program.songs().list1().deselectAll();
    window.simulated.dialogs.chooseFile(path);
  };
  measure("editor_100000", close, [&] {
    window.program.mainForm().form.keyDown.raise({.key = controls::letterKey('A'), .alt = true});
    QApplication::processEvents();
    window.windows.windowOf(form.form_4)->repaint();
  });
  require(form.List1.count() == 100000 && form.form_4.visible(), "the editor was not opened");
  form.form_4.close();
}

/// "/music/Artist 0123/Album 04/07 - A song, number 012345.mp3"
std::string pathOf(int i) {
  char path[80];
  std::snprintf(path, sizeof path, "/music/Artist %04d/Album %02d/%02d - A song %07d.mp3",
                i / 100 % 10000, i / 10 % 10, i % 10, i);
  return path;
}

void writePlaylist(const fs::path& file, int count) {
  std::ofstream out(file, std::ios::binary);
  for (int i = 0; i < count; ++i) out << pathOf(i) << "\r\n";
}

/// What this process has of the memory, in MB.
double proportionalMegabytes() {
  std::ifstream in("/proc/self/smaps_rollup");
  for (std::string line; std::getline(in, line);)
    if (line.starts_with("Pss:")) return std::stod(line.substr(4)) / 1024;
  return 0;
}

void pressAlt(Window& window, char letter) {
  window.program.mainForm().form.keyDown.raise({.key = controls::letterKey(letter), .alt = true});
}

void measureImport(Window& window, const fs::path& scratch, int count, const char* name) {
  const fs::path file = scratch / (std::to_string(count) + ".m3u");
  writePlaylist(file, count);
  controls::ListBox& list = window.program.mainForm().List1;
  measure(
      name,
      [&] {
        list.clear();
        window.paint();
      },
      [&] {
        window.simulated.dialogs.chooseFile(file.string());
        pressAlt(window, 'I');
        window.paint();
      });
  require(list.count() == count && list.item(count - 1) == pathOf(count - 1),
          "the playlist was not imported");
}

void measurePlaylists(Window& window, const fs::path& scratch) {
  measureImport(window, scratch, 1000000, "import_1000000");
  std::printf("memory_with_1000000 %.1f %.1f\n", proportionalMegabytes(), proportionalMegabytes());
  measureImport(window, scratch, 100000, "import_100000");
  controls::ListBox& list = window.program.mainForm().List1;
  measure(
      "update_100000", [] {}, [&] { pressAlt(window, 'U'); });
  require(fs::file_size(scratch / "100000.m3u") > 4000000, "the playlist was not updated");
  for (int i = 0; i < 10000; ++i) list.setSelected(i * 10, true);
  const auto before = fs::file_size(scratch / "100000.m3u");
  measure(
      "quick_add_10000", [] {}, [&] { pressAlt(window, 'Q'); });
  require(fs::file_size(scratch / "100000.m3u") > before + std::uintmax_t{kTries} * 400000,
          "nothing was added");
}

/// Every other entry is selected and removed by Del, the rest is painted.
void measureRemoval(Window& window) {
  forms::MainForm& form = window.program.mainForm();
  measure(
      "remove_50000_of_100000",
      [&] {
        std::vector<std::string> entries;
        entries.reserve(100000);
        for (int i = 0; i < 100000; ++i)
          entries.push_back("A song of some length, number " + std::to_string(i) + ".mp3");
        window.program.songs().refill(std::move(entries));
        for (int i = 0; i < 100000; i += 2) form.List1.setSelected(i, true);
        window.paint();
      },
      [&] {
        form.form.keyDown.raise({.key = controls::Key::Delete});
        window.paint();
      });
  require(form.List1.count() == 50000, "the entries were not removed");
}

/// The clock of the simulated machine stands in: the wait for a tenth of a second takes none.
void measureSelectUnplayed(Window& window) {
  library::SongList& songs = window.program.songs();
  library::SelectionFunctions functions(songs, window.simulated.clock);
  window.simulated.clock.setReadingTime(std::chrono::milliseconds(1));
  measure(
      "select_unplayed_10000",
      [&] {
        songs.refill(std::vector<std::string>(10000, "A song of some length.mp3"));
        for (int i = 0; i < 10000; i += 3) songs.setPlayed(i, true);
        window.paint();
      },
      [&] {
        functions.selectUnplayed();
        window.paint();
      });
  require(songs.list1().selectedCount() == 6666, "not the unplayed ones were selected");
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("lists SCRATCH_FOLDER\n", stderr);
    return 2;
  }
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  widgets::QtApplication application(argc, argv);
  Window window;
  const fs::path scratch = fs::absolute(argv[1]);
  fs::create_directories(scratch);
  measurePlaylists(window, scratch);
  measureFolder(window, scratch, 10000, "folder_10000");
  measureFolder(window, scratch, 50000, "folder_50000");
  measureList(window);
  measureEditor(window, scratch);
  measureRemoval(window);
  measureSelectUnplayed(window);
}

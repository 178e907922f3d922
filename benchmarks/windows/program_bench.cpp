// Measures the Windows program from a second process. Run by ./bench windows under Wine:
//   program_bench start ROUNDS | list FOLDER COUNT | import FOLDER COUNT | leaks FOLDER STARTS |
//                 playtime FOLDER FILES TIMES
// Prints "name<TAB>value" lines.
#include <windows.h>

#include <commctrl.h>
#include <dshow.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/windows/directshow_graphs.h"
#include "platform/windows/handles.h"
#include "platform/windows/wide_text.h"
#include "windows_program/object_count.h"
#include "windows_program/running_player.h"

namespace {

using namespace nerolith;
using windows_program::RunningPlayer;
using windows_program::within;

double now() {
  LARGE_INTEGER rate, count;
  QueryPerformanceFrequency(&rate);
  QueryPerformanceCounter(&count);
  return 1000.0 * static_cast<double>(count.QuadPart) / static_cast<double>(rate.QuadPart);
}

void say(const char* name, double value) { std::printf("%s\t%.3f\n", name, value); }

double median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

void start(int rounds) {
  std::vector<double> taken;
  for (int round = 0; round <= rounds; ++round) {
    const double before = now();
    RunningPlayer player(L"1");
    if (round > 0) taken.push_back(now() - before);
    player.close();
  }
  say("start median ms", median(taken));
  say("start best ms", *std::min_element(taken.begin(), taken.end()));
}

void list(const std::wstring& folder, int count) {
  const double before = now();
  RunningPlayer player(folder + L",1");
  if (!within(120000, [&] { return player.songs() == count; }))
    throw std::runtime_error("the list has " + std::to_string(player.songs()) + " entries");
  RedrawWindow(player.list(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
  say("start with the folder ms", now() - before);
  Sleep(500);
  std::vector<double> taken;
  for (int round = 0; round < 5; ++round) {
    const double pressed = now();
    SendMessageW(player.child(L"BUTTON", L"Refresh"), BM_CLICK, 0, 0);
    RedrawWindow(player.list(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    taken.push_back(now() - pressed);
    if (player.songs() != count) throw std::runtime_error("Refresh lost entries");
  }
  say("refresh median ms", median(taken));
  std::vector<double> painted;
  for (int round = 0; round < 20; ++round) {
    SendMessageW(player.list(), LVM_ENSUREVISIBLE, static_cast<WPARAM>(round % 2 ? count - 1 : 0),
                 FALSE);
    const double began = now();
    RedrawWindow(player.list(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    painted.push_back(now() - began);
  }
  say("paint median ms", median(painted));
}

/// Until the list has this many entries, and they are painted. Asked without a pause: the question
/// waits in the program while that is busy.
void waitForSongs(const RunningPlayer& player, int count) {
  for (const double until = now() + 120000; player.songs() != count; Sleep(1))
    if (now() > until)
      throw std::runtime_error("the list has " + std::to_string(player.songs()) + " entries");
  RedrawWindow(player.list(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
}

/// Alt+I, the path typed into the dialog; the time from its OK to the list.
double importThroughDialog(const RunningPlayer& player, const std::wstring& playlist, int count) {
  constexpr int kNameList = 0x47C, kNameField = 0x480;
  PostMessageW(player.list(), WM_SYSKEYDOWN, 'I', 1 | 1 << 29);
  const HWND dialog = player.message(20000);
  if (!dialog) throw std::runtime_error("no dialog comes up");
  HWND field = nullptr;
  within(5000, [&] {
    field = GetDlgItem(dialog, kNameList);
    if (!field) field = GetDlgItem(dialog, kNameField);
    return field != nullptr;
  });
  if (!field) throw std::runtime_error("the dialog has no field for the name");
  SendMessageW(field, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(playlist.c_str()));
  const double pressed = now();
  PostMessageW(dialog, WM_COMMAND, IDOK, 0);
  waitForSongs(player, count);
  return now() - pressed;
}

/// The folder has two playlists; the other one is shorter by an entry.
void importPlaylist(const std::wstring& folder, int count) {
  const std::wstring playlist = folder + L"all.m3u", shorter = folder + L"less.m3u";
  const double before = now();
  RunningPlayer player(playlist + L",1");
  waitForSongs(player, count);
  say("start with the playlist ms", now() - before);
  std::vector<double> taken;
  for (int round = 0; round < 5; ++round) {
    importThroughDialog(player, shorter, count - 1);
    taken.push_back(importThroughDialog(player, playlist, count));
  }
  say("import median ms", median(taken));
  say("import best ms", *std::min_element(taken.begin(), taken.end()));
  if (player.close() != 0) throw std::runtime_error("it does not close");
}

/// Handles that stay behind one song of the system's own objects, without the player.
double bareLeak(const std::wstring& song, int rounds) {
  const HANDLE self = GetCurrentProcess();
  long before = 0;
  for (int round = -5; round < rounds; ++round) {
    if (round == 0) before = windows_program::objectsOf(self).handles;
    windows::ComPointer<IGraphBuilder> graph;
    windows::ComPointer<IMediaControl> control;
    CoCreateInstance(CLSID_FilterGraph, nullptr, CLSCTX_INPROC_SERVER, IID_IGraphBuilder,
                     graph.outVoid());
    graph->QueryInterface(IID_IMediaControl, control.outVoid());
    const BSTR name = SysAllocString(song.c_str());
    if (FAILED(control->RenderFile(name)) || FAILED(control->Run()))
      throw std::runtime_error("the bare graph does not play");
    SysFreeString(name);
    control->Stop();
  }
  return static_cast<double>(windows_program::objectsOf(self).handles - before) / rounds;
}

void leaks(const std::wstring& folder, int starts) {
  RunningPlayer player(folder + L",2");
  const HWND next = player.child(L"BUTTON", L"Play &Next");
  SendMessageW(player.child(L"BUTTON", L"loop"), BM_CLICK, 0, 0);
  const auto playSome = [&](int count) {
    for (int i = 0; i < count; ++i) {
      SendMessageW(next, BM_CLICK, 0, 0);
      if (!within(20000, [&] { return IsWindowEnabled(next) != FALSE; }))
        throw std::runtime_error("a start does not end");
    }
    Sleep(3000);  // the last deck fades and is given back
  };
  playSome(20);
  const windows_program::ObjectCount before = windows_program::objectsOf(player.process());
  const double began = now();
  playSome(starts);
  const windows_program::ObjectCount after = windows_program::objectsOf(player.process());
  say("starts", starts);
  say("ms a start", (now() - began - 3000) / starts);
  say("handles before", static_cast<double>(before.handles));
  say("handles a start", static_cast<double>(after.handles - before.handles) / starts);
  say("drawing objects before", static_cast<double>(before.drawing));
  say("drawing objects more", static_cast<double>(after.drawing - before.drawing));
  player.close();
  say("handles a bare song", bareLeak(folder + L"a.wav", 100));
}

double playtimes(windows::DirectShowGraphs& graphs, const std::vector<std::string>& songs) {
  const double began = now();
  std::size_t done = 0;
  for (const auto reader = graphs.readDurations(songs); done < songs.size();)
    done += reader->take().size();
  return now() - began;
}

/// Of the files 0.wav, 1.wav, ...: for the first time, and then of a list that has each of them so
/// many times.
void playtime(const std::wstring& folder, int files, int times) {
  std::vector<std::string> songs;
  for (int i = 0; i < files; ++i)
    songs.push_back(windows::utf8Text(folder) + std::to_string(i) + ".wav");
  windows::DirectShowGraphs graphs;
  say("first ms", playtimes(graphs, songs));
  songs.reserve(songs.size() * static_cast<std::size_t>(times));
  for (int i = files; i < files * times; ++i)
    songs.push_back(songs[static_cast<std::size_t>(i - files)]);
  std::vector<double> taken;
  for (int round = 0; round < 15; ++round) taken.push_back(playtimes(graphs, songs));
  say("again median ms", median(taken));
  say("again best ms", *std::min_element(taken.begin(), taken.end()));
  taken.clear();
  for (int round = 0; round < 15; ++round) {
    const double began = now();
    WIN32_FILE_ATTRIBUTE_DATA data;
    for (const std::string& song : songs)
      GetFileAttributesExW(windows::wideText(song).c_str(), GetFileExInfoStandard, &data);
    taken.push_back(now() - began);
  }
  say("bare questions median ms", median(taken));
}

int measure(const std::vector<std::wstring>& words) {
  const auto number = [](const std::wstring& word) { return std::stoi(word); };
  if (words.at(0) == L"start")
    start(number(words.at(1)));
  else if (words.at(0) == L"list")
    list(words.at(1), number(words.at(2)));
  else if (words.at(0) == L"import")
    importPlaylist(words.at(1), number(words.at(2)));
  else if (words.at(0) == L"leaks")
    leaks(words.at(1), number(words.at(2)));
  else if (words.at(0) == L"playtime")
    playtime(words.at(1), number(words.at(2)), number(words.at(3)));
  else
    throw std::runtime_error("no such figure");
  return 0;
}

}  // namespace

int wmain(int count, wchar_t** words) {
  CoInitialize(nullptr);
  try {
    const windows_program::FreshSettings settings;
    return measure({words + 1, words + count});
  } catch (const std::exception& fault) {
    std::printf("failed\t%s\n", fault.what());
    return 1;
  }
}

#include "platform/windows/directshow_graph.h"

#include <dshow.h>

#include <algorithm>
#include <utility>

#include "platform/failure.h"
#include "platform/windows/failure_text.h"
#include "platform/windows/file_path.h"
#include "platform/windows/handles.h"

namespace nerolith::windows {
namespace {

/// DirectShow's own codes, which the system has no words for.
std::string renderWords(HRESULT result) {
  switch (result) {
    case VFW_E_CANNOT_RENDER:
    case VFW_E_UNSUPPORTED_STREAM:
    case VFW_E_UNKNOWN_FILE_TYPE:
    case VFW_E_INVALID_FILE_FORMAT:
    case VFW_E_INVALID_FILE_VERSION:
    case VFW_E_CANNOT_LOAD_SOURCE_FILTER:
      return "is no sound file that this Windows can play";
    case VFW_E_NO_AUDIO_HARDWARE:
    case VFW_S_AUDIO_NOT_RENDERED:
      return "cannot be heard: Windows has no sound output for it";
    default:
      return systemWords(static_cast<DWORD>(result));
  }
}

/// COM for the thread that opens files, as long as that thread lives: the graphs it made need it.
struct OpenerApartment {
  OpenerApartment() { require(CoInitializeEx(nullptr, COINIT_MULTITHREADED), "The sound system"); }
  ~OpenerApartment() { CoUninitialize(); }
};

}  // namespace

/// A file that can be played. Its objects may be used from any thread, one at a time.
struct DirectShowGraph::Rendered {
  std::string path;
  double length = 0;
  ComPointer<IGraphBuilder> builder;
  ComPointer<IMediaControl> control;
  ComPointer<IMediaPosition> position;
  ComPointer<IBasicAudio> audio;

  explicit Rendered(const std::string& file) : path(file) {
    create();
    render();
    measure();
  }
  ~Rendered() {
    // Released while it runs, a graph may be heard a little longer.
    if (control) control->Stop();
  }
  Rendered(const Rendered&) = delete;
  Rendered& operator=(const Rendered&) = delete;

  void check(HRESULT result) const { require(result, path); }

  void create() {
    check(CoCreateInstance(CLSID_FilterGraph, nullptr, CLSCTX_INPROC_SERVER, IID_IGraphBuilder,
                           builder.outVoid()));
    check(builder->QueryInterface(IID_IMediaControl, control.outVoid()));
    check(builder->QueryInterface(IID_IMediaPosition, position.outVoid()));
    check(builder->QueryInterface(IID_IBasicAudio, audio.outVoid()));
  }

  void render() {
    const BasicText name(SysAllocString(systemPath(tidyPath(path, {})).c_str()));
    if (!name) throwFailure(path, ERROR_NOT_ENOUGH_MEMORY);
    const HRESULT result = control->RenderFile(name.get());
    if (FAILED(result) || result == VFW_S_AUDIO_NOT_RENDERED)
      throw platform::Failure(path + ": " + renderWords(result), result);
    ComPointer<IVideoWindow> film;
    if (SUCCEEDED(builder->QueryInterface(IID_IVideoWindow, film.outVoid())))
      film->put_AutoShow(OAFALSE);  // fails, and need not do anything, without a film
  }

  void measure() {
    long level = 0;
    if (FAILED(audio->get_Volume(&level)))
      throw platform::Failure(path + ": holds no sound", VFW_E_UNSUPPORTED_STREAM);
    check(position->get_Duration(&length));
    if (!(length > 0)) throw platform::Failure(path + ": has no length", VFW_E_INVALIDMEDIATYPE);
  }

  double now() const {
    double seconds = 0;
    check(position->get_CurrentPosition(&seconds));
    return std::clamp(seconds, 0.0, length);
  }
};

DirectShowGraph::DirectShowGraph(base::PatientCaller& opener) : opener_(opener) {}

DirectShowGraph::~DirectShowGraph() = default;

const DirectShowGraph::Rendered& DirectShowGraph::rendered() const {
  if (!rendered_) throw platform::Failure("The deck holds no file", VFW_E_WRONG_STATE);
  return *rendered_;
}

double DirectShowGraph::durationOf(const std::string& path) {
  thread_local const OpenerApartment apartment;
  return Rendered(path).length;
}

void DirectShowGraph::renderFile(const std::string& path) {
  rendered_.reset();
  rendered_ = opener_.wait(path, [path] {
    thread_local const OpenerApartment apartment;
    return std::make_unique<Rendered>(path);
  });
}

void DirectShowGraph::run() {
  const Rendered& file = rendered();
  if (file.now() < file.length) file.check(file.control->Run());
}

void DirectShowGraph::pause() { rendered().check(rendered().control->Pause()); }

void DirectShowGraph::stop() {
  if (!rendered_) return;
  const Rendered& file = rendered();
  const double where = file.now();
  file.check(file.control->Stop());
  // Not every system keeps it: some fall back to where the last run began.
  if (file.now() != where) file.check(file.position->put_CurrentPosition(where));
}

double DirectShowGraph::duration() const { return rendered().length; }

double DirectShowGraph::currentPosition() const { return rendered_ ? rendered_->now() : 0; }

void DirectShowGraph::setCurrentPosition(double seconds) {
  const Rendered& file = rendered();
  if (!(seconds >= 0 && seconds <= file.length)) throwFailure(file.path, ERROR_SEEK);
  file.check(file.position->put_CurrentPosition(seconds));
}

std::int32_t DirectShowGraph::volume() const {
  long level = 0;
  rendered().check(rendered().audio->get_Volume(&level));
  return level;
}

void DirectShowGraph::setVolume(std::int32_t hundredthsOfDecibel) {
  const Rendered& file = rendered();
  if (hundredthsOfDecibel < -10000 || hundredthsOfDecibel > 0)
    throwFailure(file.path, ERROR_INVALID_PARAMETER);
  file.check(file.audio->put_Volume(hundredthsOfDecibel));
}

}  // namespace nerolith::windows

// The one stream to the sound server.
#pragma once

#include <pulse/pulseaudio.h>

#include <cstdint>
#include <memory>
#include <mutex>
#include <span>
#include <string>

#include "platform/linux/sound/deck_mixer.h"
#include "platform/linux/sound/sound_output.h"

namespace nerolith::sound {

/// Speaks the PulseAudio protocol, which PipeWire serves too. One connection and one stream for the
/// life of the program, made at the first `prepare`; the stream stands still (and costs nothing)
/// while no deck plays. It follows the user's default device, and its volume on the server is the
/// user's own: it is never touched.
///
/// When the server goes away, the mix stands still where it is; a new connection is tried once a
/// second, and the mix goes on when there is one.
///
/// Everything below `private` runs under the main loop's lock: in its thread, or locked out of it.
class PulseOutput : public SoundOutput {
 public:
  explicit PulseOutput(DeckMixer& mixer);
  ~PulseOutput() override;
  PulseOutput(const PulseOutput&) = delete;
  PulseOutput& operator=(const PulseOutput&) = delete;

  void prepare() override;
  void wake() override;
  std::int64_t heardFrames() const override;
  std::string trouble() const override;
  std::uint64_t underRuns() const override;

 private:
  void connect();
  void contextChanged();
  void openStream();
  void streamChanged();
  void lose(const std::string& reason);
  void dropConnection();

  void play();
  void standStill();
  void pull(std::size_t bytes);
  void ranDry();
  void look();

  bool ready() const;
  void lookAgainIn(std::uint64_t microseconds);
  void sayTrouble(const std::string& sentence);
  pa_buffer_attr bufferWish() const;

  DeckMixer& mixer_;
  pa_threaded_mainloop* loop_ = nullptr;
  pa_time_event* timer_ = nullptr;
  pa_context* context_ = nullptr;
  pa_stream* stream_ = nullptr;

  bool playing_ = false;         // the stream is not corked
  std::uint32_t latencyMs_ = 0;  // what is asked of the server; grows when it runs dry
  std::int64_t pulled_ = 0;      // frames taken from the mixer
  std::int64_t pulledAtLastLook_ = 0;
  int idleLooks_ = 0;
  std::int64_t silentFrames_ = 0;  // since the last sound
  std::uint64_t underRuns_ = 0;

  mutable std::mutex troubleMutex_;
  std::string trouble_;
};

}  // namespace nerolith::sound

// What the user hears, as the sound server hands it back.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>

#include "platform/linux/sound/server_link.h"

namespace nerolith::sound {

/// Records the monitor of the server's default output device: 44.1 kHz, 16-bit, stereo, whatever
/// the device itself runs at. The monitor is asked for by its own name, and the server may not move
/// the stream: it would take a microphone where the monitor went away. When the user chooses
/// another default device, the recording goes on from that one's monitor.
///
/// While the server is away, or has no output device, nothing arrives: the player's songs stand
/// still then too, and both go on together when it is back.
///
/// Lifecycle: made -> `connect` -> `run` <-> `rest`. Used by one thread. It has none of its own:
/// what the server has sent waits until the owner asks for it, which costs nothing meanwhile. The
/// server keeps what is asked for late, for some twenty seconds; who asks rarely hears late of a
/// server that came back, too.
class MonitorStream : private ServerLink::Owner {
 public:
  /// Where the sound goes: bytes as they arrived, or the length of a hole in them. Called from
  /// within `deliver`, `trouble`, `connect` and `run`; never while the stream rests.
  class Listener {
   public:
    virtual ~Listener() = default;
    virtual void soundArrived(std::span<const std::byte> sound) = 0;
    virtual void holeArrived(std::size_t bytes) = 0;
  };

  MonitorStream(Listener& listener, const pa_sample_spec& format);
  ~MonitorStream() override;
  MonitorStream(const MonitorStream&) = delete;
  MonitorStream& operator=(const MonitorStream&) = delete;

  /// Returns once the server has the stream ready. Fails when there is no server, when it has no
  /// output device, or when it does not answer in time.
  void connect(std::chrono::milliseconds patience);

  /// From now on what is heard is delivered; returns when the server knows it, or soon if it does
  /// not answer.
  void run();
  /// Nothing is delivered any more.
  void rest();

  /// Hands over all that has arrived by now.
  void deliver();

  /// Why there is no monitor to hear, a few words; empty while there is one.
  std::string trouble();

 private:
  void linkReady() override;
  void linkLost() override;

  void look();
  void deviceTold(const pa_server_info* server);
  void monitorTold(const char* name);
  void giveUpLooking(const char* reason);
  void openStream(const std::string& monitor);
  void streamChanged();
  void dropStream();
  void fetch();
  bool streamReady() const;
  std::string reason() const;
  void stopLooking();

  Listener& listener_;
  const pa_sample_spec format_;
  bool running_ = false;
  std::string trouble_;
  std::string monitor_;
  pa_stream* stream_ = nullptr;
  pa_operation* question_ = nullptr;  // the one under way about the default device
  ServerLink link_;
};

}  // namespace nerolith::sound

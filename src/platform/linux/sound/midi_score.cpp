#include "platform/linux/sound/midi_score.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "platform/linux/sound/audio_source.h"

namespace nerolith::sound {
namespace {

using Bytes = std::span<const std::uint8_t>;

/// Reads forward and gives zeros behind the end, so that damage ends a track and nothing else.
class Cursor {
 public:
  explicit Cursor(Bytes bytes) : bytes_(bytes) {}

  bool atEnd() const { return at_ >= bytes_.size(); }
  std::uint8_t peek() const { return atEnd() ? 0 : bytes_[at_]; }
  std::uint8_t byte() { return atEnd() ? 0 : bytes_[at_++]; }
  std::uint32_t number(int size) {
    std::uint32_t value = 0;
    for (int i = 0; i < size; ++i) value = value << 8 | byte();
    return value;
  }
  std::uint32_t variable() {
    std::uint32_t value = 0;
    for (int i = 0; i < 4; ++i) {
      const std::uint8_t next = byte();
      value = value << 7 | (next & 0x7FU);
      if (next < 0x80) break;
    }
    return value;
  }
  Bytes take(std::size_t count) {
    const std::size_t have = std::min(count, bytes_.size() - std::min(at_, bytes_.size()));
    const Bytes taken = bytes_.subspan(std::min(at_, bytes_.size()), have);
    at_ += have;
    return taken;
  }

 private:
  Bytes bytes_;
  std::size_t at_ = 0;
};

struct TickEvent {
  std::int64_t tick = 0;
  MidiEvent event;
};

struct TempoChange {
  std::int64_t tick = 0;
  std::uint32_t microsecondsPerQuarter = 500000;
};

struct Tracks {
  std::vector<TickEvent> events;
  std::vector<TempoChange> tempos;
  std::int64_t lastTick = 0;
};

/// Returns whether the track goes on behind this meta event.
bool readMeta(Cursor& cursor, std::int64_t tick, Tracks& tracks) {
  const std::uint8_t kind = cursor.byte();
  const Bytes data = cursor.take(cursor.variable());
  if (kind == 0x51 && data.size() == 3) {
    const std::uint32_t tempo = static_cast<std::uint32_t>(data[0] << 16 | data[1] << 8 | data[2]);
    tracks.tempos.push_back({tick, std::max(tempo, 1U)});
  }
  return kind != 0x2F;
}

void readChannelMessage(Cursor& cursor, std::uint8_t status, std::int64_t tick, Tracks& tracks) {
  MidiEvent event;
  event.status = status;
  event.first = cursor.byte() & 0x7F;
  const bool oneByte = (status & 0xF0) == 0xC0 || (status & 0xF0) == 0xD0;
  event.second = oneByte ? 0 : cursor.byte() & 0x7F;
  tracks.events.push_back({tick, event});
}

void readTrack(Bytes bytes, Tracks& tracks) {
  Cursor cursor(bytes);
  std::int64_t tick = 0;
  std::uint8_t running = 0;
  while (!cursor.atEnd()) {
    tick += cursor.variable();
    std::uint8_t status = running;
    if (cursor.peek() >= 0x80) status = cursor.byte();
    if (status == 0xFF) {
      if (!readMeta(cursor, tick, tracks)) break;
    } else if (status >= 0xF0) {
      cursor.take(cursor.variable());
    } else if (status >= 0x80) {
      running = status;
      readChannelMessage(cursor, status, tick, tracks);
    } else {
      break;  // data without a status: nothing behind it can be understood
    }
  }
  tracks.lastTick = std::max(tracks.lastTick, tick);
}

/// Ticks to frames, through the tempo changes. `tick` must not fall from call to call.
class TickClock {
 public:
  TickClock(std::vector<TempoChange> tempos, std::uint16_t division) : tempos_(std::move(tempos)) {
    std::stable_sort(tempos_.begin(), tempos_.end(),
                     [](const auto& a, const auto& b) { return a.tick < b.tick; });
    const bool filmTime = (division & 0x8000U) != 0;
    if (filmTime) {
      // Frames of film a second (as a negative byte) times ticks in each: the tempo is moot.
      const int filmFrames = -static_cast<std::int8_t>(division >> 8);
      const double filmRate = filmFrames == 29 ? 29.97 : std::max(filmFrames, 1);
      secondsPerTick_ = 1 / (filmRate * std::max(1, division & 0xFF));
      tempos_.clear();
    } else {
      division_ = std::max<int>(division, 1);
      secondsPerTick_ = 0.5 / division_;
    }
  }

  std::int64_t frameOf(std::int64_t tick) {
    while (next_ < tempos_.size() && tempos_[next_].tick <= tick) {
      const TempoChange& change = tempos_[next_++];
      seconds_ += static_cast<double>(change.tick - tick_) * secondsPerTick_;
      tick_ = change.tick;
      secondsPerTick_ = change.microsecondsPerQuarter / 1e6 / division_;
    }
    const double seconds = seconds_ + static_cast<double>(tick - tick_) * secondsPerTick_;
    return std::llround(seconds * kSampleRate);
  }

 private:
  std::vector<TempoChange> tempos_;
  std::size_t next_ = 0;
  int division_ = 1;
  double secondsPerTick_ = 0;
  double seconds_ = 0;
  std::int64_t tick_ = 0;
};

MidiScore timed(Tracks tracks, std::uint16_t division) {
  std::stable_sort(tracks.events.begin(), tracks.events.end(),
                   [](const auto& a, const auto& b) { return a.tick < b.tick; });
  TickClock clock(std::move(tracks.tempos), division);
  MidiScore score;
  score.events.reserve(tracks.events.size());
  for (TickEvent& timed : tracks.events) {
    timed.event.frame = clock.frameOf(timed.tick);
    score.events.push_back(timed.event);
  }
  score.frames = clock.frameOf(tracks.lastTick);
  return score;
}

Bytes unwrapped(Bytes bytes) {
  constexpr std::size_t kRiffHead = 20;
  const bool wrapped = bytes.size() > kRiffHead && std::memcmp(bytes.data(), "RIFF", 4) == 0 &&
                       std::memcmp(bytes.data() + 8, "RMID", 4) == 0;
  return wrapped ? bytes.subspan(kRiffHead) : bytes;
}

}  // namespace

bool looksLikeMidi(std::span<const std::uint8_t> head) {
  if (head.size() < 12) return false;
  return std::memcmp(head.data(), "MThd", 4) == 0 ||
         (std::memcmp(head.data(), "RIFF", 4) == 0 && std::memcmp(head.data() + 8, "RMID", 4) == 0);
}

std::optional<MidiScore> parseMidi(std::span<const std::uint8_t> bytes) {
  if (!looksLikeMidi(bytes)) return std::nullopt;
  Cursor cursor(unwrapped(bytes));
  cursor.take(4);
  Cursor head(cursor.take(cursor.number(4)));
  head.take(4);  // the format and the number of tracks: the tracks themselves tell better
  const auto division = static_cast<std::uint16_t>(head.number(2));
  Tracks tracks;
  while (!cursor.atEnd()) {
    const Bytes kind = cursor.take(4);
    const Bytes data = cursor.take(cursor.number(4));
    if (kind.size() == 4 && std::memcmp(kind.data(), "MTrk", 4) == 0) readTrack(data, tracks);
  }
  if (tracks.events.empty()) return std::nullopt;
  return timed(std::move(tracks), division);
}

}  // namespace nerolith::sound

// Every file format but MPEG audio and MIDI: taken apart and decoded by libav.
#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "platform/linux/sound/audio_source.h"
#include "platform/linux/sound/av_handles.h"
#include "platform/linux/sound/file_reader.h"
#include "platform/linux/sound/stereo_shaper.h"

namespace nerolith::sound {

/// Plays the first (or default) sound of the file; pictures and films are not decoded. libav reads
/// through our own reader only and may open nothing else: no address, no file named in a file.
class LibavSource : public AudioSource {
 public:
  /// Fails (`platform::Failure`) for what libav does not know, or what holds no sound.
  explicit LibavSource(std::unique_ptr<FileReader> file);
  ~LibavSource() override;

  std::int64_t totalFrames() const override { return total_; }
  std::size_t read(std::span<Frame> out) override;
  void seek(std::int64_t frame) override;

 private:
  void openContainer();
  void openDecoder();
  std::int64_t measure();
  void findBeginning();
  bool readPacket();
  bool decodeNext();
  void pushDecoded(const AVFrame& decoded);
  std::int64_t sampleOf(std::int64_t timestamp) const;
  bool moveBefore(std::int64_t sample);
  bool landedBefore(std::int64_t sample);

  static int readBytes(void* self, std::uint8_t* out, int count);
  static std::int64_t moveBytes(void* self, std::int64_t offset, int whence);

  std::unique_ptr<FileReader> file_;
  std::int64_t offset_ = 0;  // of the next byte libav reads
  AVIOContext* bytes_ = nullptr;
  FormatContextHandle container_;
  AVStream* stream_ = nullptr;
  CodecContextHandle decoder_;
  PacketHandle packet_;
  FrameHandle decoded_;
  StereoShaper shaper_;
  int rate_ = 0;
  std::int64_t start_ = 0;  // the time stamp of the first sound, in the stream's units
  // In samples of the file, counted from its first.
  std::int64_t next_ = 0;
  std::int64_t from_ = 0;
  bool placeKnown_ = true;  // next_ holds; else the next decoded frame's time tells it
  bool heldBack_ = false;   // decoded_ waits: it was decoded to see where a seek landed
  bool flushing_ = false;   // the file's end was given to the decoder
  std::int64_t total_ = 0;
};

}  // namespace nerolith::sound

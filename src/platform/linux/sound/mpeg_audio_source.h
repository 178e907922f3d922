// mp1, mp2 and mp3: frames found by ourselves, decoded by libavcodec.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>

#include "platform/linux/sound/audio_source.h"
#include "platform/linux/sound/av_handles.h"
#include "platform/linux/sound/file_reader.h"
#include "platform/linux/sound/packet_scan.h"
#include "platform/linux/sound/stereo_shaper.h"

namespace nerolith::sound {

/// Length in frames of the mix, as an `MpegAudioSource` would tell it, without a decoder. 0 where
/// that would fail.
std::int64_t mpegFramesOfMix(const FileReader& file, const MpegSong& song);

/// These files are a bare row of frames, and most of a music library. Walking the frames ourselves
/// makes the length exact also without a song header, every seek sample-exact, and opening quick.
/// The file is read through once when it has no trustworthy song header, else at the first seek.
class MpegAudioSource : public AudioSource {
 public:
  /// Fails (`platform::Failure`) if the decoder cannot be had or the file holds no whole frame.
  MpegAudioSource(std::unique_ptr<FileReader> file, const MpegSong& song);

  std::int64_t totalFrames() const override { return total_; }
  std::size_t read(std::span<Frame> out) override;
  void seek(std::int64_t frame) override;

 private:
  void openDecoder();
  void measure();
  const MpegFrameIndex& index();
  bool decodeNext();
  void pushDecoded(const AVFrame& decoded);
  void pushSilence();
  void moveToFrame(std::int64_t number);

  std::unique_ptr<FileReader> file_;
  MpegSong song_;
  std::optional<MpegFrameIndex> index_;
  MpegFrameWalk walk_;
  CodecContextHandle decoder_;
  PacketHandle packet_;
  FrameHandle decoded_;
  StereoShaper shaper_;
  // In samples of the file, counted from its first frame of sound.
  std::int64_t begin_ = 0;  // where the song begins behind the encoder's delay
  std::int64_t end_ = 0;    // where it ends before the encoder's padding
  std::int64_t next_ = 0;   // of the frame to be decoded next
  std::int64_t from_ = 0;   // what comes before this is decoded, but not given out
  std::int64_t total_ = 0;
};

}  // namespace nerolith::sound

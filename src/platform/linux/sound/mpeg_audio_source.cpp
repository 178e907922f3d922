#include "platform/linux/sound/mpeg_audio_source.h"

#include <algorithm>
#include <cstring>

#include "platform/failure.h"
#include "platform/linux/sound/seek_grid.h"

namespace nerolith::sound {
namespace {

/// What a decoder needs of the past: mp3 frames borrow up to 511 bytes from those before them.
constexpr std::int64_t kRunUpFrames = 12;

AVCodecID codecOfLayer(int layer) {
  return layer == 3 ? AV_CODEC_ID_MP3 : layer == 2 ? AV_CODEC_ID_MP2 : AV_CODEC_ID_MP1;
}

}  // namespace

std::int64_t mpegFramesOfMix(const FileReader& file, const MpegSong& song) {
  if (avcodec_find_decoder(codecOfLayer(song.header.layer)) == nullptr) return 0;
  const std::int64_t frames = song.told ? song.told->frames : indexMpegFrames(file, song).frames;
  const MpegSpan span = mpegSpan(song, frames);
  return framesOfSamples(span.end - span.begin, song.header.sampleRate);
}

MpegAudioSource::MpegAudioSource(std::unique_ptr<FileReader> file, const MpegSong& song)
    : file_(std::move(file)),
      song_(song),
      walk_(*file_, song.firstSound, song.header),
      packet_(av_packet_alloc()),
      decoded_(av_frame_alloc()) {
  openDecoder();
  measure();
  from_ = begin_;
}

void MpegAudioSource::openDecoder() {
  const AVCodec* codec = avcodec_find_decoder(codecOfLayer(song_.header.layer));
  if (codec != nullptr) decoder_.reset(avcodec_alloc_context3(codec));
  if (decoder_) {
    decoder_->thread_count = 1;
    decoder_->sample_rate = song_.header.sampleRate;
    av_channel_layout_default(&decoder_->ch_layout, song_.header.channels);
  }
  if (!decoder_ || avcodec_open2(decoder_.get(), codec, nullptr) < 0) {
    throw platform::Failure("Cannot play " + quotedName(file_->path()) +
                            ": there is no decoder for MPEG audio on this machine.");
  }
}

void MpegAudioSource::measure() {
  const std::int64_t frames = song_.told ? song_.told->frames : index().frames;
  const MpegSpan span = mpegSpan(song_, frames);
  begin_ = span.begin;
  end_ = span.end;
  total_ = framesOfSamples(end_ - begin_, song_.header.sampleRate);
  if (total_ <= 0) {
    throw platform::Failure("Cannot play " + quotedName(file_->path()) + ": it holds no sound.");
  }
}

const MpegFrameIndex& MpegAudioSource::index() {
  if (!index_) index_ = indexMpegFrames(*file_, song_);
  return *index_;
}

std::size_t MpegAudioSource::read(std::span<Frame> out) {
  std::size_t done = 0;
  while (done < out.size()) {
    done += shaper_.pull(out.subspan(done));
    if (done < out.size() && !decodeNext()) {
      shaper_.finish();
      if (shaper_.empty()) break;
    }
  }
  return done;
}

bool MpegAudioSource::decodeNext() {
  if (next_ >= end_) return false;
  const auto frame = walk_.next();
  if (!frame) return false;
  // The decoder may read a little past the end of what it is given.
  if (av_new_packet(packet_.get(), static_cast<int>(frame->bytes.size())) < 0) return false;
  std::memcpy(packet_->data, frame->bytes.data(), frame->bytes.size());
  avcodec_send_packet(decoder_.get(), packet_.get());
  av_packet_unref(packet_.get());
  if (avcodec_receive_frame(decoder_.get(), decoded_.get()) == 0) {
    pushDecoded(*decoded_);
    av_frame_unref(decoded_.get());
  } else {
    // A damaged frame lasts as long as any other: what follows keeps its place.
    pushSilence();
  }
  next_ += song_.header.samples;
  return true;
}

void MpegAudioSource::pushDecoded(const AVFrame& decoded) {
  const std::int64_t first = std::max<std::int64_t>(0, from_ - next_);
  const std::int64_t last = std::min<std::int64_t>(decoded.nb_samples, end_ - next_);
  shaper_.push(decoded, static_cast<int>(first), static_cast<int>(last - first));
}

void MpegAudioSource::pushSilence() {
  decoded_->format = AV_SAMPLE_FMT_FLTP;
  decoded_->sample_rate = song_.header.sampleRate;
  decoded_->nb_samples = song_.header.samples;
  av_channel_layout_default(&decoded_->ch_layout, song_.header.channels);
  if (av_frame_get_buffer(decoded_.get(), 0) == 0) {
    av_samples_set_silence(decoded_->extended_data, 0, decoded_->nb_samples, song_.header.channels,
                           AV_SAMPLE_FMT_FLTP);
    pushDecoded(*decoded_);
  }
  av_frame_unref(decoded_.get());
}

void MpegAudioSource::seek(std::int64_t frame) {
  const SeekStart start = seekStart(frame, song_.header.sampleRate);
  from_ = begin_ + start.sample;
  moveToFrame(std::max<std::int64_t>(0, from_ / song_.header.samples - kRunUpFrames));
  shaper_.restart(start.discard);
}

void MpegAudioSource::moveToFrame(std::int64_t number) {
  const auto& offsets = index().offsets;
  const auto slot = std::min(static_cast<std::size_t>(number / MpegFrameIndex::kStride),
                             offsets.empty() ? 0 : offsets.size() - 1);
  std::int64_t at = static_cast<std::int64_t>(slot) * MpegFrameIndex::kStride;
  walk_.moveTo(offsets.empty() ? song_.firstSound : offsets[slot]);
  while (at < number && walk_.next()) ++at;
  avcodec_flush_buffers(decoder_.get());
  next_ = at * song_.header.samples;
}

}  // namespace nerolith::sound

#include "platform/linux/sound/libav_source.h"

#include <algorithm>
#include <cmath>

#include "platform/failure.h"
#include "platform/linux/sound/packet_length.h"
#include "platform/linux/sound/seek_grid.h"

namespace nerolith::sound {
namespace {

constexpr int kReadBlock = 32 * 1024;

[[noreturn]] void fail(const FileReader& file, const char* reason, int code = 0) {
  throw platform::Failure("Cannot play " + quotedName(file.path()) + ": " + reason + ".", code);
}

int refuseToOpen(AVFormatContext*, AVIOContext**, const char*, int, AVDictionary**) {
  return AVERROR(EPERM);
}

int isAborted(void* reader) { return static_cast<const FileReader*>(reader)->aborted() ? 1 : 0; }

}  // namespace

LibavSource::LibavSource(std::unique_ptr<FileReader> file)
    : file_(std::move(file)), packet_(av_packet_alloc()), decoded_(av_frame_alloc()) {
  try {
    openContainer();
    openDecoder();
    total_ = measure();
    if (total_ <= 0) fail(*file_, "it holds no sound");
    findBeginning();
  } catch (...) {
    container_.reset();
    if (bytes_ != nullptr) av_freep(&bytes_->buffer);
    avio_context_free(&bytes_);
    throw;
  }
}

LibavSource::~LibavSource() {
  container_.reset();
  av_freep(&bytes_->buffer);
  avio_context_free(&bytes_);
}

int LibavSource::readBytes(void* self, std::uint8_t* out, int count) {
  auto& source = *static_cast<LibavSource*>(self);
  const std::int64_t got =
      source.file_->readAt(source.offset_, {out, static_cast<std::size_t>(count)});
  if (got < 0) return AVERROR(EIO);
  if (got == 0) return AVERROR_EOF;
  source.offset_ += got;
  return static_cast<int>(got);
}

std::int64_t LibavSource::moveBytes(void* self, std::int64_t offset, int whence) {
  auto& source = *static_cast<LibavSource*>(self);
  switch (whence & ~AVSEEK_FORCE) {
    case AVSEEK_SIZE:
      return source.file_->size();
    case SEEK_SET:
      break;
    case SEEK_CUR:
      offset += source.offset_;
      break;
    case SEEK_END:
      offset += source.file_->size();
      break;
    default:
      return AVERROR(EINVAL);
  }
  if (offset < 0) return AVERROR(EINVAL);
  return source.offset_ = offset;
}

void LibavSource::openContainer() {
  auto* buffer = static_cast<unsigned char*>(av_malloc(kReadBlock));
  bytes_ = avio_alloc_context(buffer, kReadBlock, 0, this, &readBytes, nullptr, &moveBytes);
  AVFormatContext* context = avformat_alloc_context();
  context->pb = bytes_;
  context->flags |= AVFMT_FLAG_CUSTOM_IO;
  context->io_open = &refuseToOpen;
  // Lists of other files open them behind io_open's back; no protocol of theirs has this name.
  context->protocol_whitelist = av_strdup("none");
  context->interrupt_callback = {&isAborted, file_.get()};
  // The name only helps to guess the format. On failure libav has freed the context.
  const int opened = avformat_open_input(&context, file_->path().c_str(), nullptr, nullptr);
  if (opened < 0) fail(*file_, "it is no sound file that can be played here", opened);
  container_.reset(context);
  if (avformat_find_stream_info(context, nullptr) < 0) fail(*file_, "it is damaged");
}

void LibavSource::openDecoder() {
  const AVCodec* codec = nullptr;
  const int index = av_find_best_stream(container_.get(), AVMEDIA_TYPE_AUDIO, -1, -1, &codec, 0);
  if (index < 0 || codec == nullptr) {
    fail(*file_, index == AVERROR_DECODER_NOT_FOUND ? "there is no decoder for its kind of sound"
                                                    : "it holds no sound");
  }
  for (unsigned i = 0; i < container_->nb_streams; ++i) {
    container_->streams[i]->discard = AVDISCARD_ALL;
  }
  stream_ = container_->streams[index];
  stream_->discard = AVDISCARD_DEFAULT;
  decoder_.reset(avcodec_alloc_context3(codec));
  if (!decoder_ || avcodec_parameters_to_context(decoder_.get(), stream_->codecpar) < 0) {
    fail(*file_, "it is damaged");
  }
  decoder_->thread_count = 1;
  decoder_->pkt_timebase = stream_->time_base;
  if (avcodec_open2(decoder_.get(), codec, nullptr) < 0) fail(*file_, "it is damaged");
  rate_ = decoder_->sample_rate;
  if (rate_ <= 0 || decoder_->ch_layout.nb_channels <= 0) fail(*file_, "it is damaged");
}

void LibavSource::findBeginning() {
  // Some decoders swallow their first packets: the time of the first sound that really comes out is
  // the song's zero, for playing on from the beginning and for seeking alike.
  if (!decodeNext()) fail(*file_, "it holds no sound");
  heldBack_ = true;
  const std::int64_t time = decoded_->best_effort_timestamp;
  start_ = time == AV_NOPTS_VALUE ? 0 : time;
}

std::int64_t LibavSource::measure() {
  const double seconds = soundLength(*container_, *stream_);
  return std::llround(seconds * kSampleRate);
}

std::int64_t LibavSource::sampleOf(std::int64_t timestamp) const {
  return av_rescale_q(timestamp - start_, stream_->time_base, {1, rate_});
}

bool LibavSource::readPacket() {
  while (av_read_frame(container_.get(), packet_.get()) >= 0) {
    if (packet_->stream_index == stream_->index) return true;
    av_packet_unref(packet_.get());
  }
  return false;
}

bool LibavSource::decodeNext() {
  if (heldBack_) {
    heldBack_ = false;
    return true;
  }
  for (;;) {
    const int got = avcodec_receive_frame(decoder_.get(), decoded_.get());
    if (got == 0) return true;
    // Any other failure is one damaged piece: what follows it may be well.
    if (got == AVERROR_EOF || flushing_) return false;
    if (readPacket()) {
      avcodec_send_packet(decoder_.get(), packet_.get());
      av_packet_unref(packet_.get());
    } else {
      flushing_ = true;
      avcodec_send_packet(decoder_.get(), nullptr);
    }
  }
}

std::size_t LibavSource::read(std::span<Frame> out) {
  std::size_t done = 0;
  while (done < out.size()) {
    done += shaper_.pull(out.subspan(done));
    if (done == out.size()) break;
    if (decodeNext()) {
      pushDecoded(*decoded_);
      av_frame_unref(decoded_.get());
    } else {
      shaper_.finish();
      if (shaper_.empty()) break;
    }
  }
  return done;
}

void LibavSource::pushDecoded(const AVFrame& decoded) {
  if (!placeKnown_ && decoded.best_effort_timestamp != AV_NOPTS_VALUE) {
    next_ = sampleOf(decoded.best_effort_timestamp);
  }
  placeKnown_ = true;
  const std::int64_t first = std::max<std::int64_t>(0, from_ - next_);
  shaper_.push(
      decoded, static_cast<int>(std::min<std::int64_t>(first, decoded.nb_samples)),
      static_cast<int>(decoded.nb_samples - std::min<std::int64_t>(first, decoded.nb_samples)));
  next_ += decoded.nb_samples;
}

void LibavSource::seek(std::int64_t frame) {
  const SeekStart start = seekStart(frame, rate_);
  from_ = start.sample;
  shaper_.restart(start.discard);
  // Decoders need some past before they are right; a container may land late, then further back.
  for (const std::int64_t runUp : {rate_ / 5, rate_ * 2, rate_ * 10}) {
    if (from_ <= runUp) break;
    if (moveBefore(from_ - runUp) && landedBefore(from_)) return;
  }
  moveBefore(0);
  landedBefore(from_);
}

bool LibavSource::moveBefore(std::int64_t sample) {
  const std::int64_t time = start_ + av_rescale_q(sample, {1, rate_}, stream_->time_base);
  const int moved =
      sample > 0 ? av_seek_frame(container_.get(), stream_->index, time, AVSEEK_FLAG_BACKWARD)
                 : avformat_seek_file(container_.get(), stream_->index, INT64_MIN, time, time, 0);
  avcodec_flush_buffers(decoder_.get());
  av_frame_unref(decoded_.get());
  heldBack_ = false;
  flushing_ = false;
  placeKnown_ = false;
  return moved >= 0;
}

bool LibavSource::landedBefore(std::int64_t sample) {
  if (!decodeNext()) return false;
  heldBack_ = true;
  const bool told = decoded_->best_effort_timestamp != AV_NOPTS_VALUE;
  next_ = told ? sampleOf(decoded_->best_effort_timestamp) : 0;
  placeKnown_ = true;
  return told && next_ <= sample;
}

}  // namespace nerolith::sound

#include "platform/linux/sound/stereo_shaper.h"

#include <algorithm>
#include <array>

namespace nerolith::sound {
namespace {

constexpr int kMostChannels = 64;

float toFloat(float sample) { return sample; }
float toFloat(std::int16_t sample) { return static_cast<float>(sample) * (1.0F / 32768.0F); }

template <typename Sample>
void copyPlanar(const AVFrame& decoded, int first, std::span<Frame> out) {
  const auto* left = reinterpret_cast<const Sample*>(decoded.extended_data[0]) + first;
  const auto* right = decoded.ch_layout.nb_channels == 1
                          ? left
                          : reinterpret_cast<const Sample*>(decoded.extended_data[1]) + first;
  for (std::size_t i = 0; i < out.size(); ++i) out[i] = {toFloat(left[i]), toFloat(right[i])};
}

template <typename Sample>
void copyInterleaved(const AVFrame& decoded, int first, std::span<Frame> out) {
  const auto channels = static_cast<std::size_t>(decoded.ch_layout.nb_channels);
  const auto* in = reinterpret_cast<const Sample*>(decoded.extended_data[0]) +
                   static_cast<std::size_t>(first) * channels;
  for (std::size_t i = 0; i < out.size(); ++i, in += channels) {
    out[i] = {toFloat(in[0]), toFloat(in[channels - 1])};
  }
}

bool copyDirectly(const AVFrame& decoded, int first, std::span<Frame> out) {
  switch (decoded.format) {
    case AV_SAMPLE_FMT_FLTP:
      copyPlanar<float>(decoded, first, out);
      return true;
    case AV_SAMPLE_FMT_S16P:
      copyPlanar<std::int16_t>(decoded, first, out);
      return true;
    case AV_SAMPLE_FMT_FLT:
      copyInterleaved<float>(decoded, first, out);
      return true;
    case AV_SAMPLE_FMT_S16:
      copyInterleaved<std::int16_t>(decoded, first, out);
      return true;
    default:
      return false;
  }
}

bool copyable(const AVFrame& decoded) {
  return decoded.sample_rate == kSampleRate && decoded.ch_layout.nb_channels <= 2 &&
         (decoded.format == AV_SAMPLE_FMT_FLTP || decoded.format == AV_SAMPLE_FMT_FLT ||
          decoded.format == AV_SAMPLE_FMT_S16P || decoded.format == AV_SAMPLE_FMT_S16);
}

}  // namespace

void StereoShaper::push(const AVFrame& decoded, int first, int count) {
  if (count <= 0) return;
  if (copyable(decoded)) {
    finish();  // what a stream that changes its rate in mid-song left behind comes first
    copyDirectly(decoded, first, grow(static_cast<std::size_t>(count)));
  } else {
    resample(decoded, first, count);
  }
  dropDiscarded();
}

void StereoShaper::finish() {
  if (!resampler_) return;
  const int room = swr_get_out_samples(resampler_.get(), 0);
  if (room > 0) {
    const std::span<Frame> out = grow(static_cast<std::size_t>(room));
    auto* bytes = reinterpret_cast<std::uint8_t*>(out.data());
    const int made = swr_convert(resampler_.get(), &bytes, room, nullptr, 0);
    waiting_.resize(waiting_.size() - out.size() + static_cast<std::size_t>(std::max(made, 0)));
  }
  resampler_.reset();
  dropDiscarded();
}

void StereoShaper::restart(std::int64_t discard) {
  waiting_.clear();
  read_ = 0;
  discard_ = discard;
  resampler_.reset();
}

std::size_t StereoShaper::pull(std::span<Frame> out) {
  const std::size_t count = std::min(out.size(), waiting_.size() - read_);
  std::copy_n(waiting_.begin() + static_cast<std::ptrdiff_t>(read_), count, out.begin());
  read_ += count;
  if (empty()) {
    waiting_.clear();
    read_ = 0;
  }
  return count;
}

bool StereoShaper::prepareResampler(const AVFrame& decoded) {
  const int channels = decoded.ch_layout.nb_channels;
  if (resampler_ && rate_ == decoded.sample_rate && format_ == decoded.format &&
      channels_ == channels) {
    return true;
  }
  finish();
  AVChannelLayout layout{};
  if (decoded.ch_layout.order == AV_CHANNEL_ORDER_UNSPEC) {
    av_channel_layout_default(&layout, channels);
  } else if (av_channel_layout_copy(&layout, &decoded.ch_layout) < 0) {
    return false;
  }
  AVChannelLayout stereo = AV_CHANNEL_LAYOUT_STEREO;
  SwrContext* made = nullptr;
  swr_alloc_set_opts2(&made, &stereo, AV_SAMPLE_FMT_FLT, kSampleRate, &layout,
                      static_cast<AVSampleFormat>(decoded.format), decoded.sample_rate, 0, nullptr);
  av_channel_layout_uninit(&layout);
  resampler_.reset(made);
  if (!resampler_ || swr_init(resampler_.get()) < 0) {
    resampler_.reset();
    return false;
  }
  rate_ = decoded.sample_rate;
  format_ = decoded.format;
  channels_ = channels;
  return true;
}

void StereoShaper::resample(const AVFrame& decoded, int first, int count) {
  if (!prepareResampler(decoded)) return;
  const auto format = static_cast<AVSampleFormat>(decoded.format);
  const bool planar = av_sample_fmt_is_planar(format) != 0;
  const int channels = decoded.ch_layout.nb_channels;
  const int step = av_get_bytes_per_sample(format) * (planar ? 1 : channels);
  std::array<const std::uint8_t*, kMostChannels> in{};
  const int planes = std::min(planar ? channels : 1, kMostChannels);
  for (int i = 0; i < planes; ++i) {
    in[static_cast<std::size_t>(i)] =
        decoded.extended_data[i] + static_cast<std::ptrdiff_t>(first) * step;
  }
  const int room = swr_get_out_samples(resampler_.get(), count);
  const std::span<Frame> out = grow(static_cast<std::size_t>(std::max(room, 0)));
  auto* bytes = reinterpret_cast<std::uint8_t*>(out.data());
  const int made = swr_convert(resampler_.get(), &bytes, room, in.data(), count);
  waiting_.resize(waiting_.size() - out.size() + static_cast<std::size_t>(std::max(made, 0)));
}

std::span<Frame> StereoShaper::grow(std::size_t count) {
  waiting_.resize(waiting_.size() + count);
  return std::span<Frame>(waiting_).last(count);
}

void StereoShaper::dropDiscarded() {
  const std::int64_t count =
      std::min<std::int64_t>(discard_, static_cast<std::int64_t>(waiting_.size() - read_));
  read_ += static_cast<std::size_t>(count);
  discard_ -= count;
  if (empty()) {
    waiting_.clear();
    read_ = 0;
  }
}

}  // namespace nerolith::sound

#include "platform/linux/sound/packet_length.h"

#include <algorithm>

namespace nerolith::sound {
namespace {

/// A film may be many gigabytes; its last sound stands in the last part of it.
constexpr std::int64_t kFilmTail = std::int64_t{4} * 1024 * 1024;

struct Reach {
  std::int64_t end = AV_NOPTS_VALUE;  // the latest end of a packet, in time stamps
  std::int64_t sum = 0;               // of all packets' durations
};

Reach readAllPackets(AVFormatContext& container, const AVStream& stream) {
  Reach reach;
  const PacketHandle packet(av_packet_alloc());
  while (av_read_frame(&container, packet.get()) >= 0) {
    if (packet->stream_index == stream.index) {
      reach.sum += packet->duration;
      if (packet->pts != AV_NOPTS_VALUE) {
        reach.end = std::max(reach.end, packet->pts + packet->duration);
      }
    }
    av_packet_unref(packet.get());
  }
  return reach;
}

void rewind(AVFormatContext& container, const AVStream& stream) {
  const std::int64_t start = stream.start_time == AV_NOPTS_VALUE ? 0 : stream.start_time;
  if (avformat_seek_file(&container, stream.index, INT64_MIN, start, start, 0) < 0) {
    av_seek_frame(&container, stream.index, 0, AVSEEK_FLAG_BYTE);
  }
}

}  // namespace

double soundLength(AVFormatContext& container, AVStream& stream) {
  const double unit = av_q2d(stream.time_base);
  const auto method = container.duration_estimation_method;
  const std::int64_t start = stream.start_time == AV_NOPTS_VALUE ? 0 : stream.start_time;
  if (method == AVFMT_DURATION_FROM_STREAM && stream.duration > 0) {
    return static_cast<double>(stream.duration) * unit;
  }
  if (method == AVFMT_DURATION_FROM_STREAM && container.duration > 0) {
    return static_cast<double>(container.duration) / AV_TIME_BASE;
  }
  const std::int64_t size = avio_size(container.pb);
  const bool film = method == AVFMT_DURATION_FROM_PTS;
  if (film && size > kFilmTail) {
    av_seek_frame(&container, stream.index, size - kFilmTail, AVSEEK_FLAG_BYTE);
  }
  const Reach reach = readAllPackets(container, stream);
  rewind(container, stream);
  const std::int64_t counted = film && reach.end != AV_NOPTS_VALUE ? reach.end - start : reach.sum;
  return static_cast<double>(counted) * unit;
}

}  // namespace nerolith::sound

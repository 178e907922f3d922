// Owning handles for libav's objects, and its headers in one place.
#pragma once

#include <memory>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/channel_layout.h>
#include <libavutil/mem.h>
#include <libswresample/swresample.h>
}

namespace nerolith::sound {

template <auto Free>
struct FreeByAddress {
  template <typename T>
  void operator()(T* object) const {
    Free(&object);
  }
};

using CodecContextHandle = std::unique_ptr<AVCodecContext, FreeByAddress<avcodec_free_context>>;
using FormatContextHandle = std::unique_ptr<AVFormatContext, FreeByAddress<avformat_close_input>>;
using PacketHandle = std::unique_ptr<AVPacket, FreeByAddress<av_packet_free>>;
using FrameHandle = std::unique_ptr<AVFrame, FreeByAddress<av_frame_free>>;
using ResamplerHandle = std::unique_ptr<SwrContext, FreeByAddress<swr_free>>;

}  // namespace nerolith::sound

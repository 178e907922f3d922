#include "platform/linux/sound/sample_format.h"

#include "platform/failure.h"

namespace nerolith::sound {

pa_sample_spec pcmFormat(const platform::WaveFormat& format, std::int32_t bytes) {
  const pa_sample_spec wish{PA_SAMPLE_S16LE, static_cast<std::uint32_t>(format.samplesPerSecond),
                            static_cast<std::uint8_t>(format.channels)};
  const bool known = format.formatTag == 1 && format.bitsPerSample == 16 &&
                     format.channels == wish.channels && pa_sample_spec_valid(&wish) != 0;
  if (!known || bytes <= 0 || static_cast<std::size_t>(bytes) % pa_frame_size(&wish) != 0) {
    throw platform::Failure("The sound server does not know this sound format.");
  }
  return wish;
}

}  // namespace nerolith::sound

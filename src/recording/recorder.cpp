#include "recording/recorder.h"

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <limits>
#include <span>
#include <utility>

#include "base/failure_policy.h"
#include "base/rounding.h"
#include "platform/failure.h"
#include "recording/wave_format.h"

namespace nerolith::recording {
namespace {

static_assert(std::endian::native == std::endian::little, "samples are written as they lie");

constexpr std::int32_t kSamplesPerSecond = 44100;
constexpr std::int16_t kChannels = 2;
constexpr std::int16_t kBitsPerSample = 16;
constexpr std::int32_t kBufferSeconds = 4;

constexpr std::int64_t kRiffSizeAt = 4;
constexpr std::int64_t kDataAt = 36;

/// Sizes in the file are the recorder's own 32-bit numbers.
constexpr std::int64_t kMostDataBytes = std::numeric_limits<std::int32_t>::max() - kHeaderBytes;

std::int32_t halved(std::int32_t bytes) { return base::toInt32Clamped(bytes / 2.0); }

/// Rounded to the nearest, ties to even: a sum that is odd goes up where the half below it is odd.
/// Without a branch, which would be guessed wrong at every second sample.
std::uint32_t meanHalfEven(std::uint32_t a, std::uint32_t b) {
  const std::uint32_t sum = a + b;
  return (sum + (sum / 2) % 2) / 2;
}

/// Indices 0..upperBound, all zero. A bound below zero changes nothing and fails.
void resize(std::vector<std::int16_t>& samples, std::int32_t upperBound) {
  if (upperBound < 0) throw platform::Failure("A block of sound cannot be shorter than nothing.");
  samples.assign(static_cast<std::size_t>(upperBound) + 1, 0);
}

/// Every third sample, so that left and right take turns; each is averaged with what came before.
std::int32_t runningPeak(std::span<const std::int16_t> samples) {
  std::uint32_t peak = 0;
  std::uint32_t running = 0;
  for (std::size_t i = 0; i < samples.size(); i += 3) {
    const int level = std::min(std::abs(int{samples[i]}), 32767);
    running = meanHalfEven(running, static_cast<std::uint32_t>(level));
    peak = std::max(peak, running);
  }
  return static_cast<std::int32_t>(peak);
}

/// Who reads it sees the file's name beside it.
std::string withoutName(const std::string& reason, const std::string& name) {
  const std::string front = name + ": ";
  return reason.starts_with(front) ? reason.substr(front.size()) : reason;
}

}  // namespace

recordsound2file::recordsound2file(const Doors& doors) : doors_(doors) { InitDevices(); }

recordsound2file::~recordsound2file() {
  FinishWaveFile();
  forgetNote();
}

void recordsound2file::InitDevices() {
  captureDevice_ = doors_.capture.openDefaultDevice();
  waveFormat_ = MakeWaveFormat(kSamplesPerSecond, kChannels, kBitsPerSample);
}

void recordsound2file::MakeCaptureBuffer() {
  bufferBytes_ = waveFormat_.averageBytesPerSecond * kBufferSeconds;
  resize(block_, bufferBytes_ / 4);
  captureBuffer_ = captureDevice_->createBuffer(waveFormat_, bufferBytes_);
}

void recordsound2file::StartSoundCapture() {
  captureBuffer_.reset();
  MakeCaptureBuffer();
  captureBuffer_->startLooping();
}

void recordsound2file::StopSoundCapture() { buffer().stop(); }

void recordsound2file::Start_Recording() {
  if (writing_) abandon();
  captureBuffer_.reset();
  half_ = 0;
  writing_ = false;
  dataBytes_ = 0;
  fileTrouble_.clear();
  captureFault_.clear();
  endedByTrouble_ = false;
  halves_ = HalfCount();
  MakeCaptureBuffer();
  try {
    OpenWaveFile(fileName_);
    captureBuffer_->startLooping();
  } catch (const platform::Failure&) {
    file_.reset();  // nothing may tick into it
    throw;
  }
  doors_.unfinished.remember(fileName_);
  noted_ = true;
  halves_ = HalfCount(bufferBytes_, waveFormat_.averageBytesPerSecond,
                      doors_.clock.secondsSinceMidnight());
}

void recordsound2file::OpenWaveFile(const std::string& name) {
  file_.reset();  // one that was stopped before its first half; it may have this very name
  file_ = doors_.files.create(name);
  header_.riffSize = 0;
  header_.format = waveFormat_;
  const HeaderBytes bytes = headerBytes(header_);
  const std::span<const std::byte> all(bytes);
  file_->append(all.first(20));
  file_->append(all.subspan(20, kFormatBytes));
  file_->append(all.subspan(20 + kFormatBytes));
}

void recordsound2file::timer_Event500ms() {
  if (endedByTrouble_ || !file_) return;
  const bool wasWell = captureFault_.empty();
  captureFault_ = doors_.capture.captureTrouble();
  try {
    transfer();
  } catch (const platform::Failure& failure) {
    if (captureFault_.empty()) captureFault_ = failure.what();
  }
  // Nobody knows how long the sound stays away: until then the file is whole as it is.
  if (wasWell && !captureFault_.empty() && writing_) base::goOn([this] { patchSizes(); });
}

void recordsound2file::transfer() {
  const std::int16_t before = half_;
  const double now = doors_.clock.secondsSinceMidnight();
  readCursors();
  half_ = cursors_.read >= bufferBytes_ / 2 ? 2 : 1;
  const bool due = half_ != before && (half_ == 2 || writing_);
  if (captureFault_.empty())
    halves_.tick(cursors_.read, now, due);
  else
    halves_.standStill(now);
  if (!due) return;
  buffer().read(half_ == 2 ? 0 : bufferBytes_ / 2, bufferBytes_ / 2, block_);
  writing_ = true;
  try {
    AppendBlock();
  } catch (const platform::Failure& failure) {
    endInTrouble(failure.what());
  }
}

void recordsound2file::AppendBlock() {
  const auto counted = static_cast<std::int64_t>(block_.size() - 1) * 2;
  if (!file_) throw platform::Failure(fileName_ + ": is not open");
  if (dataBytes_ + counted > kMostDataBytes)
    throw platform::Failure(fileName_ + ": has reached 2 GB, the most that a recording holds");
  file_->append(std::as_bytes(std::span(block_)));
  dataBytes_ += static_cast<std::int32_t>(counted);
}

void recordsound2file::Stop_Recording() {
  FinishWaveFile();
  forgetNote();
  StartSoundCapture();
}

void recordsound2file::FinishWaveFile() {
  if (!writing_) return;
  base::goOn([this] { buffer().stop(); });
  writing_ = false;
  base::goOn([this] { readCursors(); });
  base::goOn([this] { readRest(); });
  const bool appended = tried([this] { AppendBlock(); });
  const bool patched = tried([this] { patchSizes(); });
  const bool closed = tried([this] { file_->close(); });
  finishedFile_ = std::exchange(fileName_, {});
  file_.reset();
  if (!patched || !closed) noted_ = false;  // the note stays for the next start
  if (!patched || !closed)
    fileTrouble_ = "The recording was stopped, but not finished: " + fileTrouble_;
  else if (!appended)
    fileTrouble_ = "The end of the recording is missing: " + fileTrouble_;
}

/// What arrived since the last half was moved.
void recordsound2file::readRest() {
  const std::int32_t half = bufferBytes_ / 2;
  if (half_ == 1) {
    resize(block_, halved(cursors_.read));
    buffer().read(0, cursors_.read, block_);
  } else {
    resize(block_, halved(cursors_.read) - bufferBytes_ / 4);
    buffer().read(half, cursors_.read - half, block_);
  }
}

void recordsound2file::patchSizes() {
  header_.riffSize = static_cast<std::uint32_t>(recordersRiffSize(dataBytes_));
  header_.dataSize = static_cast<std::uint32_t>(dataBytes_);
  const HeaderBytes bytes = headerBytes(header_);
  const std::span<const std::byte> all(bytes);
  if (!file_) throw platform::Failure(fileName_ + ": is not open");
  file_->writeAt(kRiffSizeAt, all.subspan(kRiffSizeAt, 4));
  file_->writeAt(kDataAt, all.subspan(kDataAt, 8));
}

/// The file takes no more. What it holds is finished, the capture goes on for the meter.
void recordsound2file::endInTrouble(const std::string& reason) {
  writing_ = false;
  endedByTrouble_ = true;
  fileTrouble_ = withoutName(reason, fileName_);
  const bool whole = base::goOn([this] {
    patchSizes();
    file_->close();
  });
  file_.reset();
  finishedFile_ = std::exchange(fileName_, {});
  if (whole) forgetNote();
  noted_ = false;
  fileTrouble_ = (whole ? "The recording has ended: " : "The recording has ended, unfinished: ") +
                 fileTrouble_;
}

void recordsound2file::letGoOfFile() {
  if (!writing_) file_.reset();
}

/// A start in the middle of a recording: its file stays behind as it is, but whole.
void recordsound2file::abandon() {
  base::goOn([this] {
    patchSizes();
    file_->close();
  });
}

void recordsound2file::forgetNote() {
  if (std::exchange(noted_, false)) doors_.unfinished.forget();
}

template <typename Step>
bool recordsound2file::tried(Step&& step) {
  try {
    step();
    return true;
  } catch (const platform::Failure& failure) {
    if (fileTrouble_.empty()) fileTrouble_ = withoutName(failure.what(), fileName_);
    return false;
  }
}

std::string recordsound2file::trouble() const {
  if (!fileTrouble_.empty()) return fileTrouble_;
  return noted_ ? captureFault_ : std::string();
}

void recordsound2file::probesound() {
  average_ = 0;
  if (!base::goOn([this] { measure(); })) peak_ = 0;
}

void recordsound2file::measure() {
  readCursors();
  const std::int32_t place = halved(cursors_.read) * 2;
  const std::int32_t count =
      place < lastProbePos_ ? bufferBytes_ - lastProbePos_ + place : place - lastProbePos_;
  resize(probe_, count);
  buffer().read(lastProbePos_, count, probe_);
  // Twice as long as what was read: the zeros behind that could only pull the mean down.
  peak_ = runningPeak(std::span(probe_).first(static_cast<std::size_t>(count + 1) / 2));
  lastProbePos_ = place;
}

void recordsound2file::readCursors() { cursors_ = buffer().cursors(); }

platform::CaptureBuffer& recordsound2file::buffer() const {
  if (!captureBuffer_) throw platform::Failure("No sound is being captured.");
  return *captureBuffer_;
}

}  // namespace nerolith::recording

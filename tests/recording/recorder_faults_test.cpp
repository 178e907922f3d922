// Every call into the machine fails once, and a recording that grows too long for its numbers.
#include <gtest/gtest.h>

#include <limits>

#include "base/failure_policy.h"
#include "recording/recorder_rig.h"

namespace nerolith::recording {
namespace {

using platform::simulated::SimulatedMachine;

/// Records six seconds while call number `n` fails; what the owner has to expect is caught.
void recordWithFault(SimulatedMachine& machine, UnfinishedRecording& note, std::uint64_t n) {
  base::goOn([&] {
    recordsound2file recorder({machine.capture, machine.output, machine.clock, note});
    machine.failDoorCall(n);
    base::goOn([&] { recorder.StartSoundCapture(); });
    recorder.probesound();
    recorder.filename(kTake);
    const bool started = base::goOn([&] { recorder.Start_Recording(); });
    for (int tick = 0; tick < 13; ++tick) {
      machine.advance(milliseconds(500));
      recorder.probesound();
      recorder.timer_Event500ms();
    }
    EXPECT_TRUE(started || !recorder.writingtofile());
    base::goOn([&] { recorder.Stop_Recording(); });
    EXPECT_FALSE(recorder.writingtofile());
  });
}

TEST(RecorderFaults, WhicheverCallFailsTheSoundThatWasWrittenIsNotLost) {
  std::uint64_t calls = 0;
  {
    SimulatedMachine machine;
    machine.files.addFolder("C:\\Takes");
    UnfinishedRecording note(machine.settings);
    recordWithFault(machine, note, 0);
    calls = machine.doorCalls();
  }
  ASSERT_GT(calls, 50u);
  int whole = 0;
  for (std::uint64_t n = 1; n < calls; ++n) {
    SimulatedMachine machine;
    machine.files.addFolder("C:\\Takes");
    UnfinishedRecording note(machine.settings);
    recordWithFault(machine, note, n);
    EXPECT_EQ(machine.doorway.faults(), 1u) << n;
    EXPECT_FALSE(machine.output.isOpen(kTake)) << n;
    if (!machine.files.find(kTake)) continue;
    const std::string& bytes = machine.output.bytes(kTake);
    if (bytes.size() <= 44) continue;
    EXPECT_TRUE(model::isWhole(bytes) || note.path() == kTake) << n << ": " << bytes.size();
    whole += model::isWhole(bytes);
  }
  EXPECT_GT(whole, 40);
}

/// A capture whose cursor is at the start of one half or the other, as the test says.
class TurningCapture : public platform::SoundCapture {
 public:
  std::int32_t place = 0;

  std::unique_ptr<platform::CaptureDevice> openDefaultDevice() override {
    return std::make_unique<Device>(*this);
  }

 private:
  struct Buffer : platform::CaptureBuffer {
    explicit Buffer(const TurningCapture& capture) : capture(capture) {}
    void startLooping() override {}
    void stop() override {}
    platform::CaptureCursors cursors() const override { return {capture.place, capture.place}; }
    void read(std::int32_t, std::int32_t, std::span<std::int16_t>) const override {}
    const TurningCapture& capture;
  };
  struct Device : platform::CaptureDevice {
    explicit Device(const TurningCapture& capture) : capture(capture) {}
    std::unique_ptr<platform::CaptureBuffer> createBuffer(const platform::WaveFormat&,
                                                          std::int32_t) override {
      return std::make_unique<Buffer>(capture);
    }
    const TurningCapture& capture;
  };
};

/// Keeps the first 44 bytes and counts the others.
class CountedFiles : public platform::OutputFiles {
 public:
  std::string front;
  std::int64_t length = 0;

  std::unique_ptr<platform::OutputFile> create(const std::string&) override {
    return std::make_unique<File>(*this);
  }
  std::unique_ptr<platform::OutputFile> reopen(const std::string&) override { return {}; }
  std::unique_ptr<platform::OutputFile> replace(const std::string&) override { return {}; }

 private:
  struct File : platform::OutputFile {
    explicit File(CountedFiles& files) : files(files) {}
    std::int64_t size() const override { return files.length; }
    void append(std::span<const std::byte> bytes) override {
      if (files.length < 44) files.front += std::string(text(bytes), bytes.size());
      files.length += static_cast<std::int64_t>(bytes.size());
    }
    void writeAt(std::int64_t offset, std::span<const std::byte> bytes) override {
      files.front.replace(static_cast<std::size_t>(offset), bytes.size(), text(bytes),
                          bytes.size());
    }
    void close() override {}
    static const char* text(std::span<const std::byte> bytes) {
      return reinterpret_cast<const char*>(bytes.data());
    }
    CountedFiles& files;
  };
};

TEST(RecorderFaults, ARecordingEndsWholeBeforeItsSizesOverflow) {
  SimulatedMachine machine;
  TurningCapture capture;
  CountedFiles files;
  UnfinishedRecording note(machine.settings);
  recordsound2file recorder({capture, files, machine.clock, note});
  recorder.filename(kTake);
  recorder.Start_Recording();
  constexpr int kMost = (std::numeric_limits<std::int32_t>::max() - 44) / 352800;
  for (int half = 1; half <= kMost; ++half) {
    capture.place = half % 2 == 0 ? 0 : 352800;
    recorder.timer_Event500ms();
  }
  EXPECT_EQ(recorder.Filesize(), kMost * 352800);
  EXPECT_TRUE(recorder.writingtofile());
  capture.place = kMost % 2 == 0 ? 352800 : 0;
  recorder.timer_Event500ms();
  EXPECT_FALSE(recorder.writingtofile());
  EXPECT_NE(recorder.trouble().find("2 GB"), std::string::npos) << recorder.trouble();
  EXPECT_EQ(files.front, model::header(kMost * 352800u + 44, kMost * 352800u));
  EXPECT_EQ(files.length, 44 + kMost * 352802LL);
}

}  // namespace
}  // namespace nerolith::recording

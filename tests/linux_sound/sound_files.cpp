#include "linux_sound/sound_files.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <ostream>

#include "linux_sound/wave_file.h"

namespace nerolith::sound_tests {
namespace {

constexpr const char* kFfmpeg = "ffmpeg -nostdin -v error -y -i {in} ";

std::string replaced(std::string text, const std::string& from, const std::string& to) {
  for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
  return text;
}

}  // namespace

bool haveTool(const std::string& name) { return runTool("command -v " + name); }

bool runTool(const std::string& command) {
  return std::system(("{ " + command + "; } </dev/null >/dev/null 2>&1").c_str()) == 0;
}

void writeBytes(const std::string& path, const std::vector<std::uint8_t>& bytes) {
  std::ofstream(path, std::ios::binary)
      .write(reinterpret_cast<const char*>(bytes.data()),
             static_cast<std::streamsize>(bytes.size()));
}

std::ostream& operator<<(std::ostream& out, const SoundKind& kind) { return out << kind.name; }

const std::vector<SoundKind>& soundKinds() {
  static const std::vector<SoundKind> kinds = {
      {"cbr.mp3", "lame --quiet -b 192 {in} {out}", 0},
      {"cbr_bare.mp3", "lame --quiet -t -b 128 {in} {out}", 0},
      {"vbr.mp3", "lame --quiet -V 2 {in} {out}", 0},
      {"vbr_bare.mp3", "lame --quiet -t -V 2 {in} {out}", 0},
      {"tagged.mp3", "lame --quiet -b 128 --tt Title --add-id3v2 {in} {out}", 0},
      {"mono.mp3", "lame --quiet -m m -b 64 {in} {out}", 0},
      {"low_rate.mp3", "lame --quiet --resample 22.05 -b 32 {in} {out}", 0},
      {"48000.mp3", "lame --quiet --resample 48 -b 160 {in} {out}", 0},
      {"song.mp2", "{ffmpeg} -c:a mp2 -b:a 192k {out}", 0},
      {"32000.mp2", "{ffmpeg} -ar 32000 -c:a mp2 -b:a 128k {out}", 0},
      {"8bit.wav", "{ffmpeg} -c:a pcm_u8 {out}", 0},
      {"16bit.wav", "{ffmpeg} -c:a pcm_s16le {out}", 0},
      {"24bit_48000.wav", "{ffmpeg} -ar 48000 -c:a pcm_s24le {out}", 0},
      {"float_96000.wav", "{ffmpeg} -ar 96000 -c:a pcm_f32le {out}", 0},
      {"mono_8000.wav", "{ffmpeg} -ac 1 -ar 8000 -c:a pcm_s16le {out}", 0},
      {"mono_11025.wav", "{ffmpeg} -ac 1 -ar 11025 -c:a pcm_s16le {out}", 0},
      {"surround.wav", "{ffmpeg} -ac 6 -c:a pcm_s16le {out}", 0},
      // Its time stamps are whole milliseconds.
      {"song.wma", "{ffmpeg} -c:a wmav2 -b:a 128k {out}", 0.002},
      {"song.asf", "{ffmpeg} -c:a wmav2 -b:a 128k -f asf {out}", 0.002},
      {"song.aif", "{ffmpeg} -f aiff {out}", 0},
      {"song.aiff", "{ffmpeg} -ar 48000 {out}", 0},
      {"film.mpg",
       "ffmpeg -nostdin -v error -y -f lavfi -i testsrc=s=160x120:r=25 -i {in} -shortest "
       "-c:v mpeg1video -c:a mp2 {out}",
       0},
      {"sound_only.mpg", "{ffmpeg} -c:a mp2 -f mpeg {out}", 0},
      {"song.flac", "{ffmpeg} {out}", 0},
      {"song.ogg", "{ffmpeg} -c:a libvorbis {out}", 0},
      {"song.opus", "{ffmpeg} -c:a libopus {out}", 0},
      {"song.m4a", "{ffmpeg} -c:a aac {out}", 0},
      {"song.aac", "{ffmpeg} -c:a aac -f adts {out}", 0},
  };
  return kinds;
}

std::string makeSound(const Scratch& scratch, const SoundKind& kind, double seconds) {
  const std::string in = scratch / "chirp.wav";
  const std::string out = scratch / kind.name;
  const std::string plain = scratch / "plain.wav";
  writeWave(in, chirp(seconds));
  // lame reads no float.
  if (!runTool("ffmpeg -nostdin -v error -y -i " + in + " -c:a pcm_s16le " + plain)) return {};
  std::string command = replaced(kind.command, "{ffmpeg}", kFfmpeg);
  command = replaced(replaced(command, "{in}", plain), "{out}", out);
  return runTool(command) && std::filesystem::exists(out) ? out : std::string();
}

}  // namespace nerolith::sound_tests

"""Songs to measure with, and the moment at which the card plays something."""

import array
import os
import subprocess
import threading
import time

RATE = 44100


def make_song(path, seconds, kind="mp3"):
    """A tone over soft noise, loud from its first sample; mp3 at 192 kbit/s, or wav."""
    rates = ["-b:a", "192k"] if kind == "mp3" else []
    subprocess.run(["ffmpeg", "-y", "-loglevel", "error",
                    "-f", "lavfi", "-i", f"sine=440:duration={seconds}",
                    "-f", "lavfi", "-i", f"anoisesrc=duration={seconds}:color=pink:amplitude=0.2",
                    "-filter_complex", "amix=2", "-ac", "2", "-ar", str(RATE), *rates, path],
                   check=True)
    return path


class CardWatch:
    """Listens to what the card plays from construction to `close`."""

    LEVEL = 300  # of 32767: below every tone played here, above nothing at all

    def __init__(self, desktop):
        self._listener = desktop.start(
            ["parec", "-d", "card.monitor", "--raw", "--format=s16le", f"--rate={RATE}",
             "--channels=2", "--latency-msec=5"], stdout=subprocess.PIPE, bufsize=0)
        self._lock = threading.Condition()
        self._last_loud = 0.0
        self._first_loud = None
        self._armed = False
        self._thread = threading.Thread(target=self._listen, daemon=True)
        self._thread.start()

    def close(self):
        self._listener.end()
        self._thread.join(5)

    def _listen(self):
        rest = b""
        while True:
            piece = self._listener.popen.stdout.read(16384)
            if not piece:
                return
            now = time.monotonic()
            rest += piece
            samples = array.array("h", rest[:len(rest) // 4 * 4])
            rest = rest[len(rest) // 4 * 4:]
            loud = next((i for i, s in enumerate(samples) if abs(s) > self.LEVEL), None)
            if loud is None:
                continue
            with self._lock:
                self._last_loud = now
                if self._armed:
                    self._armed = False
                    self._first_loud = now - (len(samples) - loud) / 2 / RATE
                    self._lock.notify()

    def wait_for_silence(self, quiet=0.4):
        while time.monotonic() - self._last_loud < quiet:
            time.sleep(0.02)

    def arm(self):
        with self._lock:
            self._first_loud = None
            self._armed = True

    def first_sound(self, longest=5):
        """When the first sound after `arm` was played; None if there was none."""
        with self._lock:
            self._lock.wait_for(lambda: self._first_loud is not None, longest)
            return self._first_loud


def stream_latency(desktop, watch, milliseconds=90):
    """Seconds from the moment sound is handed to an open stream like the player's to the card."""
    tone = array.array("f", [0.5 if (i // 2) % 100 < 50 else -0.5 for i in range(2 * RATE // 2)])
    stream = desktop.start(
        ["pacat", "--raw", "--format=float32le", f"--rate={RATE}", "--channels=2",
         f"--latency-msec={milliseconds}", "--process-time-msec=30"],
        stdin=subprocess.PIPE, bufsize=0)
    time.sleep(0.5)
    watch.wait_for_silence()
    watch.arm()
    handed = time.monotonic()
    os.write(stream.popen.stdin.fileno(), tone.tobytes()[:60000])
    heard = watch.first_sound()
    stream.end()
    return None if heard is None else heard - handed

"""What recording costs in the real window, as the user sees it."""

import array
import math
import os
import random
import statistics
import subprocess
import time
import wave

from desktop import Desktop, wait_until

TITLE = "Nerolith recording section"
DIALOG = "Select Filename to record to"
SECTION_X, RECORD_Y, FADE_STOP_Y = 236, 203, 244
TO_SECTION = ("alt+o", "Up", "Up", "Return")  # the last but one of the menu's entries


def make_noise(path, seconds=30, rate=44100):
    """Noise that swells and falls, so that the meter moves at each of its ticks."""
    dice = random.Random(7)
    some = [dice.uniform(-1, 1) for _ in range(rate)]
    sound = array.array("h")
    for piece in range(seconds * 10):
        level = 9000 + 5000 * math.sin(piece * 1.3) + 4000 * math.sin(piece * 0.37)
        start = piece * rate // 10 % rate
        for one in some[start:start + rate // 10]:
            sound.extend([int(level * one)] * 2)
    with wave.open(path, "wb") as out:
        out.setparams((2, 2, rate, 0, "NONE", ""))
        out.writeframes(sound.tobytes())
    return path


def start_window_manager(desktop):
    """A window that comes up while it is starting would be missed by it."""
    manager = desktop.start(["openbox"])
    wait_until(lambda: subprocess.run(["xdotool", "get_desktop"], env=desktop.environment,
                                      capture_output=True).returncode == 0, "openbox")
    return manager


class Section:
    """The player with its recording section, worked by mouse and keyboard."""

    def __init__(self, desktop, player):
        self._desktop = desktop
        self.player = desktop.start([player])
        self._wait_for("Nerolith")
        self._tool("search", "--onlyvisible", "--name", "^Nerolith$", "windowactivate", "--sync")
        for key in TO_SECTION:
            self._tool("key", "--clearmodifiers", key)
            time.sleep(0.2)
        self._wait_for(TITLE)
        time.sleep(0.5)

    def _tool(self, *words):
        return subprocess.run(["xdotool", *words], env=self._desktop.environment, timeout=10,
                              capture_output=True, text=True)

    def _shows(self, title):
        return self._tool("search", "--onlyvisible", "--name", title).returncode == 0

    def _wait_for(self, title):
        wait_until(lambda: self._shows(title), title, 10)

    def _in_front(self):
        return TITLE in self._tool("getactivewindow", "getwindowname").stdout

    def _click(self, y):
        for _ in range(50):
            if self._in_front():
                break
            self._tool("search", "--onlyvisible", "--name", TITLE, "windowactivate")
            time.sleep(0.1)
        self._tool("search", "--onlyvisible", "--name", TITLE, "mousemove", "--window", "%1",
                   str(SECTION_X), str(y), "click", "1")

    def record(self, path):
        """Returns once the first half is in the file."""
        self._click(RECORD_Y)  # asks for the file, as none is chosen yet
        self._wait_for(DIALOG)
        time.sleep(0.5)
        self._tool("key", "--clearmodifiers", "ctrl+a")
        self._tool("type", "--delay", "10", path)
        self._tool("key", "Return")
        wait_until(lambda: os.path.exists(path) and os.path.getsize(path) > 1000, path, 10)
        time.sleep(0.5)

    def stop(self, path):
        """Returns once the file is finished: its first size is 0 until then."""
        def finished():
            with open(path, "rb") as wav:
                return wav.read(8)[4:] != bytes(4)
        self._click(FADE_STOP_Y)
        wait_until(finished, "the end of " + path, 10)
        time.sleep(0.5)


def _costs(seconds, *programs):
    """Processor milliseconds for each second, of several programs at once."""
    spent, began = [one.cpu_seconds() for one in programs], time.monotonic()
    time.sleep(seconds)
    lasted = time.monotonic() - began
    return [(one.cpu_seconds() - before) / lasted * 1000
            for one, before in zip(programs, spent)]


def measure(player, rounds=3, seconds=6):
    """(open section, recording, parec) in processor milliseconds a second, medians of the rounds.

    The section is open and idle, and records, in turn; parec records all the time. A whole number
    of halves, of two seconds each, falls into what is measured.
    """
    opened, recorded = [], []
    with Desktop() as desktop:
        desktop.write_settings(mode=1, length=1, folder=desktop.environment["HOME"])
        noise = make_noise(os.path.join(desktop.folder, "noise.wav"))
        helpers = [start_window_manager(desktop),
                   desktop.start(["sh", "-c", f"while paplay '{noise}'; do :; done & "
                                              "trap 'kill $!' TERM; wait"]),
                   desktop.start(["parec", "--file-format=wav", "--device=card.monitor",
                                  os.path.join(desktop.folder, "peer.wav")])]
        peer = helpers[-1]
        section = Section(desktop, player)
        for turn in range(rounds):
            path = os.path.join(desktop.folder, f"take{turn}.wav")
            opened.append(_costs(seconds, section.player, peer))
            section.record(path)
            recorded.append(_costs(seconds, section.player, peer))
            if os.path.getsize(path) < (seconds - 2) * 176400:
                raise RuntimeError("nothing was recorded in the window")
            section.stop(path)
        for one in [section.player, *reversed(helpers)]:
            one.end()
    peers = [peer for _, peer in opened + recorded]
    return [statistics.median(values) for values in
            ([own for own, _ in opened], [own for own, _ in recorded], peers)]

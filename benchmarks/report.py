"""What was measured, held against what it should be, on the screen and in the history."""

import os
import platform
import re
import subprocess
import time

RESULTS = os.path.join(os.path.dirname(os.path.abspath(__file__)), "results")


def load():
    return os.getloadavg()[0]


def _first_line(words):
    try:
        done = subprocess.run(words, capture_output=True, text=True, timeout=10)
        return (done.stdout + done.stderr).strip().splitlines()[0]
    except (OSError, IndexError, subprocess.TimeoutExpired):
        return ""


def _version_of(package):
    words = ["dpkg-query", "-W", "-f", "${Version}", package]
    try:
        return subprocess.run(words, capture_output=True, text=True).stdout.strip()
    except OSError:
        return ""


def machine():
    """One line each, without a name of host, user or folder."""
    with open("/proc/cpuinfo", encoding="ascii", errors="replace") as text:
        model = re.search(r"model name\s*: (.*)", text.read())
    with open("/proc/meminfo", encoding="ascii") as text:
        memory = int(re.search(r"MemTotal:\s*(\d+)", text.read())[1]) / 1024 / 1024
    packages = ("libqt6widgets6", "libavcodec59", "pulseaudio", "libfluidsynth3", "audacious",
                "mpg123")
    versions = [f"{name} {_version_of(name)}" for name in packages if _version_of(name)]
    return [f"{os.cpu_count()} x {model[1] if model else platform.machine()}, "
            f"{memory:.0f} GB, {platform.system()} {platform.release()}",
            ", ".join(versions)]


class Report:
    def __init__(self):
        self.missed = 0
        self._lines = []
        revision = _first_line(["git", "rev-parse", "--short", "HEAD"])
        changed = _first_line(["git", "status", "--porcelain", "--", "src"])
        self.say(time.strftime("== %Y-%m-%d %H:%M") + f", revision {revision}" +
                 (" and changes" if changed else ""))
        for line in machine():
            self.say(line)

    def say(self, line):
        print(line, flush=True)
        self._lines.append(line)

    def figure(self, name, value, unit="", limit=None, note=""):
        """One line; with a limit it says whether the value keeps within it."""
        verdict = ""
        if limit is not None:
            kept = value <= limit
            self.missed += not kept
            verdict = f"  (at most {limit:g}: {'kept' if kept else 'MISSED'})"
        self.say(f"{name:<46} {value:9.3f} {unit:<7}{verdict}{'  ' + note if note else ''}".rstrip())

    def unmeasured(self, name, why):
        self.say(f"{name:<46} not measured: {why}")

    def save(self):
        os.makedirs(RESULTS, exist_ok=True)
        path = os.path.join(RESULTS, time.strftime("%Y-%m.txt"))
        with open(path, "a", encoding="utf-8") as out:
            out.write("\n".join(self._lines) + "\n\n")

"""The figures of the Windows program, under Wine. Started by ./bench windows."""

import argparse
import math
import os
import shutil
import struct
import subprocess
import sys
import tempfile
import time

from report import Report, load

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
PROGRAM = os.path.join(ROOT, "out", "windows", "velmarion.exe")
DRIVER = os.path.join(ROOT, "out", "build", "windows", "benchmarks", "nerolith_program_bench.exe")
WINE = os.path.join(ROOT, "out", "build", "windows", "wine-bench")
MEGABYTE = 1024 * 1024
ALL = ("size", "start", "list", "import", "leaks", "playtime")


def script(name, *words):
    return [os.path.join(ROOT, "scripts", name), *words]


def measured(*words, longest=600):
    """The driver's lines as {name: number}."""
    done = subprocess.run(script("wine_test.sh", WINE, DRIVER, *map(str, words)), text=True,
                          stdin=subprocess.DEVNULL, capture_output=True, timeout=longest,
                          check=False)
    pairs = [line.split("\t", 1) for line in done.stdout.splitlines() if "\t" in line]
    told = dict(pairs)
    if done.returncode or "failed" in told:
        raise RuntimeError(told.get("failed", f"the driver ended with {done.returncode}"))
    return {name: float(value) for name, value in pairs}


def windows_folder(path):
    return "Z:" + path.replace("/", "\\") + "\\"


def write_tone(path, seconds):
    rate = 44100
    samples = [int(3000 * math.sin(i * 0.0627)) for i in range(rate * seconds)]
    data = struct.pack(f"<{len(samples)}h", *samples)
    with open(path, "wb") as out:
        out.write(b"RIFF" + struct.pack("<I", 36 + len(data)) + b"WAVEfmt " +
                  struct.pack("<IHHIIHH", 16, 1, 1, rate, 2 * rate, 2, 16) + b"data" +
                  struct.pack("<I", len(data)) + data)


def size(report):
    report.figure("executable", os.path.getsize(PROGRAM) / MEGABYTE, "MB", 3)


def start(report):
    told = measured("start", 15)
    report.figure("start to window under Wine", told["start median ms"], "ms", None,
                  f"best {told['start best ms']:.0f}")


def list_(report, count=100000):
    with tempfile.TemporaryDirectory() as folder:
        for number in range(count):
            with open(os.path.join(folder, f"Song {number:06}.mp3"), "wb"):
                pass
        told = measured("list", windows_folder(folder), count)
    report.figure(f"start with a folder of {count} songs", told["start with the folder ms"], "ms")
    report.figure("Refresh of it, read and shown", told["refresh median ms"], "ms")
    report.figure("paint with that many", told["paint median ms"], "ms")


def import_(report, count=100000):
    with tempfile.TemporaryDirectory() as folder:
        lines = [f"Z:\\Music\\An artist of some name\\Song number {number:06}.mp3\r\n"
                 for number in range(count)]
        for name, entries in (("all.m3u", lines), ("less.m3u", lines[:-1])):
            with open(os.path.join(folder, name), "w", encoding="ascii", newline="") as out:
                out.writelines(entries)
        told = measured("import", windows_folder(folder), count)
    report.figure(f"import of {count} entries, OK to shown list", told["import median ms"], "ms",
                  None, f"best {told['import best ms']:.0f}")
    report.figure("start with such a playlist, all shown", told["start with the playlist ms"], "ms")


def leaks(report, starts=1000):
    with tempfile.TemporaryDirectory() as folder:
        for name in ("a.wav", "b.wav"):
            write_tone(os.path.join(folder, name), 60)
        told = measured("leaks", windows_folder(folder), starts, longest=3000)
    report.figure(f"drawing objects more after {starts} starts", told["drawing objects more"], "",
                  2, f"{told['drawing objects before']:.0f} before")
    report.figure("handles more for each start", told["handles a start"], "", None,
                  f"{told['handles before']:.0f} before")
    report.figure("the same for the system's bare objects", told["handles a bare song"])
    report.figure("handles that the player leaks a start",
                  max(0.0, told["handles a start"] - told["handles a bare song"]), "", 0.01)
    report.figure("a start", told["ms a start"], "ms")


def playtime(report, files=100, times=10):
    """The files themselves are in memory, and old enough for what is found to be kept. To measure a
    thousand of them for the first time would take minutes."""
    with tempfile.TemporaryDirectory() as folder:
        first = os.path.join(folder, "0.wav")
        write_tone(first, 1)
        os.utime(first, (time.time() - 3600,) * 2)
        for number in range(1, files):
            shutil.copy2(first, os.path.join(folder, f"{number}.wav"))
        told = measured("playtime", windows_folder(folder), files, times)
    report.figure("durations of wav by DirectShow, each", told["first ms"] / files, "ms")
    report.figure(f"durations of {files * times} again", told["again median ms"], "ms", 5,
                  f"best {told['again best ms']:.1f}; to ask for their times alone, one after "
                  f"another, {told['bare questions median ms']:.1f}")


def main():
    options = argparse.ArgumentParser(prog="bench windows")
    options.add_argument("--only", default=",".join(ALL))
    wanted = options.parse_args().only.split(",")
    unknown = [name for name in wanted if name not in ALL]
    if unknown:
        options.error(f"no figure is called {', '.join(unknown)}; there are {', '.join(ALL)}")
    report = Report()
    failed = 0
    subprocess.run(script("wine_desktop.sh", "up", WINE), check=True)
    try:
        for name in wanted:
            report.say(f"-- windows {name} (load {load():.1f})")
            try:
                {"size": size, "start": start, "list": list_, "import": import_,
                 "leaks": leaks, "playtime": playtime}[name](report)
            except Exception as trouble:  # one that cannot be measured must not hide the others
                failed += 1
                report.unmeasured(name, str(trouble))
        report.say(f"-- {report.missed} missed, {failed} not measured (load {load():.1f})")
        report.save()
    finally:
        subprocess.run(script("wine_desktop.sh", "down", WINE), check=False)
    sys.exit(1 if failed else 0)


if __name__ == "__main__":
    main()

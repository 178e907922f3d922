"""The figures. Each takes the report and what was built, and measures on a desktop of its own."""

import contextlib
import json
import os
import shutil
import statistics
import subprocess
import time

import recording_window
from desktop import Desktop
from sound import CardWatch, make_song, stream_latency
from x_client import XClient


class Built:
    """Where the programs are."""

    def __init__(self, build, binaries):
        self.player = os.path.abspath(os.path.join(binaries, "velmarion"))
        self.rules = os.path.abspath(os.path.join(build, "benchmarks", "nerolith_bench"))
        self.lists = os.path.abspath(os.path.join(build, "benchmarks", "nerolith_lists"))
        self.playtime = os.path.abspath(os.path.join(build, "benchmarks", "nerolith_playtime"))
        self.record = os.path.abspath(os.path.join(build, "benchmarks", "nerolith_recording"))
        self.steady = os.path.abspath(os.path.join(build, "benchmarks", "nerolith_steady_play"))


def median(values):
    return statistics.median(values)


def _one_start(desktop, screen, words):
    """(milliseconds to the mapped window, processor milliseconds until then)."""
    screen.forget()
    program = desktop.start(words)
    mapped = screen.wait_for_window()
    spent = program.cpu_seconds()
    time.sleep(0.3)
    program.end()
    time.sleep(0.1)
    if mapped is None:
        raise RuntimeError(f"{words[0]} shows no window")
    return (mapped[0] - program.started) * 1000, spent * 1000


def start(report, built, rounds=15):
    """Start to mapped window, in turn with the peers; the first round only warms up."""
    programs = {"player": [built.player]}
    if shutil.which("audacious"):
        programs["audacious -G"] = ["audacious", "-G"]
        programs["audacious -Q"] = ["audacious", "-Q"]
    taken = {name: [] for name in programs}
    with Desktop() as desktop:
        desktop.write_settings(mode=1, folder=desktop.environment["HOME"])
        with contextlib.closing(XClient(desktop.environment["DISPLAY"])) as screen:
            screen.watch_root()
            for turn in range(rounds + 1):
                for name, words in programs.items():
                    once = _one_start(desktop, screen, words)
                    if turn:
                        taken[name].append(once)
    for name, values in taken.items():
        wall, spent = zip(*values)
        report.figure(f"start to window, {name}", median(wall), "ms", None,
                      f"best {min(wall):.1f}, processor {median(spent):.1f}")
    if len(programs) == 1:
        report.unmeasured("start, player / audacious -G", "audacious is missing (--peers)")
        return
    ratio = median([a[0] / b[0] for a, b in zip(taken["player"], taken["audacious -G"])])
    report.figure("start, player / audacious -G", ratio, "x", 1.0)


def _cost(program, seconds):
    """Processor milliseconds for each second."""
    spent, began = program.cpu_seconds(), time.monotonic()
    time.sleep(seconds)
    return (program.cpu_seconds() - spent) / (time.monotonic() - began) * 1000


def _run(desktop, words, settle, seconds):
    """(cost, share of memory, private memory) of a program that has settled."""
    program = desktop.start(words)
    try:
        time.sleep(settle)
        cost = _cost(program, seconds)
        return (cost, *program.memory_megabytes())
    finally:
        program.end()


def play(report, built, rounds=3, seconds=10):
    """What a second of music costs, one song and two in the mix; memory; and doing nothing."""
    with Desktop() as desktop:
        manager = desktop.start(["openbox"])
        folder = os.path.join(desktop.folder, "music")
        os.mkdir(folder)
        song = make_song(os.path.join(folder, "a.mp3"), 60)
        shutil.copy(song, os.path.join(folder, "b.mp3"))
        one, two, peer, idle = [], [], [], []
        for _ in range(rounds):
            desktop.write_settings(folder=folder)
            one.append(_run(desktop, [built.player, f"{song},1"], 3, seconds))
            if shutil.which("mpg123"):
                peer.append(_run(desktop, ["mpg123", "-q", "-o", "pulse", song], 2, seconds))
            # Mixes from 4 s on, for longer than is measured here.
            desktop.write_settings(lead=56, length=50, folder=folder)
            two.append(_run(desktop, [built.player, f"{song},2"], 6, seconds))
            desktop.write_settings(mode=1, folder=folder)
            idle.append(_run(desktop, [built.player], 3, seconds))
        manager.end()
    _tell_costs(report, one, two, peer, idle)


def _tell_costs(report, one, two, peer, idle):
    costs = {name: median([run[0] for run in runs])
             for name, runs in (("one", one), ("two", two), ("idle", idle))}
    report.figure("one song, processor for a second", costs["one"], "ms")
    report.figure("two songs in the mix, the same", costs["two"], "ms")
    if peer:
        base = median([run[0] for run in peer])
        report.figure("mpg123 -o pulse, the same", base, "ms")
        report.figure("one song, player / mpg123", costs["one"] / base, "x", 1.5)
        report.figure("two songs, player / mpg123", costs["two"] / base, "x", 2.0)
    else:
        report.unmeasured("player / mpg123", "mpg123 is missing (--peers)")
    report.figure("nothing playing, share of a core", costs["idle"] / 10, "%", 0.3)
    report.figure("memory while playing (PSS)", median([run[1] for run in one]), "MB", 30,
                  f"private {median([run[2] for run in one]):.1f}")
    report.figure("memory while two mix (PSS)", median([run[1] for run in two]), "MB", None,
                  f"private {median([run[2] for run in two]):.1f}")


LIST_X, FIRST_ROW_Y, ROW = 200, 320, 23
STOP_X, STOP_Y = 475, 238


def click(report, built, rounds=10):
    """Double click to the first sound, less what a stream like the player's takes by itself."""
    with Desktop() as desktop:
        folder = os.path.join(desktop.folder, "music")
        os.mkdir(folder)
        for name in ("a.wav", "b.mp3", "c.wav"):
            make_song(os.path.join(folder, name), 20, name[-3:])
        desktop.write_settings(mode=1, folder=folder)
        watch = CardWatch(desktop)
        with contextlib.closing(XClient(desktop.environment["DISPLAY"])) as screen:
            screen.watch_root()
            player = desktop.start([built.player])
            corner = screen.size_of(screen.wait_for_window()[1])[:2]
            time.sleep(1.5)
            clicks, streams = [], []
            for turn in range(rounds):
                clicks.append(_one_click(screen, watch, corner, turn % 3))
                streams.append(stream_latency(desktop, watch))
            player.end()
        watch.close()
    heard = [value for value in clicks if value is not None]
    if len(heard) < rounds or None in streams:
        raise RuntimeError(f"only {len(heard)} of {rounds} double clicks were heard")
    _tell_clicks(report, clicks, streams)


def _one_click(screen, watch, corner, row):
    watch.wait_for_silence()
    watch.arm()
    screen.move_pointer(corner[0] + LIST_X, corner[1] + FIRST_ROW_Y + ROW * row)
    pressed = screen.click(times=2)
    heard = watch.first_sound()
    screen.move_pointer(corner[0] + STOP_X, corner[1] + STOP_Y)
    time.sleep(0.6)
    screen.click()
    return None if heard is None else heard - pressed


def _tell_clicks(report, clicks, streams):
    stream = median(streams) * 1000
    later = median(clicks[1:]) * 1000
    report.figure("a stream's own latency", stream, "ms")
    report.figure("double click to sound, first of a run", clicks[0] * 1000, "ms")
    report.figure("double click to sound", later, "ms", None,
                  f"worst {max(clicks[1:]) * 1000:.0f}")
    report.figure("double click to sound, less the stream's own", later - stream, "ms", 60)
    report.figure("first of a run, less the stream's own", clicks[0] * 1000 - stream, "ms", 60)


LIST_LIMITS = {"folder_10000": 60, "folder_50000": 300, "entries_100000": 60,
               "select_all_100000": 5, "deselect_all_100000": 5, "tick_100000": 5,
               "remove_50000_of_100000": 60, "select_unplayed_10000": 5,
               "editor_100000": 150,
               "import_100000": 100, "import_1000000": 1000, "memory_with_1000000": 150,
               "update_100000": 150, "quick_add_10000": 50}


def lists(report, built):
    """Long folders and lists in the real window."""
    with Desktop() as desktop:
        scratch = os.path.join(desktop.folder, "lists")
        os.mkdir(scratch)
        done = subprocess.run([built.lists, scratch], env=desktop.environment, check=True,
                              capture_output=True, text=True)
    for line in done.stdout.splitlines():
        name, best, middle = line.split()
        unit = "MB" if name.startswith("memory") else "ms"
        report.figure(name.replace("_", " "), float(middle), unit, LIST_LIMITS.get(name),
                      f"best {float(best):.2f}")


RULE_LIMITS = {"randomDrawOfTheOnlyUnplayed": ("random draw, one of 10,001 unplayed", 1),
               "dayOfRandomOverTenThousandSongs": ("a day of Random over 10,000 songs", 10000),
               "tickWithHundredThousandEntries": ("tick with 100,000 entries, rules only", 5)}


def rules(report, built):
    """What the rules cost on a machine in memory."""
    done = subprocess.run([built.rules, "--benchmark_format=json"], check=True,
                          capture_output=True, text=True)
    for run in json.loads(done.stdout)["benchmarks"]:
        name, limit = RULE_LIMITS[run["name"].split("/")[0]]
        if run.get("error_occurred"):
            raise RuntimeError(f"{name}: {run['error_message']}")
        factor = {"ns": 1e-6, "us": 1e-3, "ms": 1}[run["time_unit"]]
        report.figure(name, run["real_time"] * factor, "ms", limit)


BUSY = "while True: pass"


def steady(report, built, seconds=60):
    """Two decks at once while as many programs as there are cores want all of the processor."""
    with Desktop() as desktop:
        songs = [make_song(os.path.join(desktop.folder, name), 30) for name in ("a.mp3", "b.mp3")]
        load = [desktop.start(["python3", "-c", BUSY]) for _ in range(os.cpu_count())]
        done = subprocess.run([built.steady, str(seconds), *songs], env=desktop.environment,
                              check=True, capture_output=True, text=True)
        for program in load:
            program.end()
    words = done.stdout.split()
    counts = dict(zip(words[::2], map(int, words[1::2])))
    report.figure(f"under-runs in {seconds} s, all cores busy", counts["underruns"], "", 0)
    report.figure("late decoders in that time", counts["starvations"], "", 0)


def _record(desktop, built, seconds):
    """What the recorder tells of itself; the card plays a tone that the server makes itself."""
    done = subprocess.run([built.record, str(seconds), os.path.join(desktop.folder, "take.wav")],
                          env=desktop.environment, check=True, capture_output=True, text=True)
    words = done.stdout.split()
    return dict(zip(words[::2], map(int, words[1::2])))


def record(report, built, busy_seconds=60, rounds=3, seconds=20):
    """A recording's cost beside parec's, in turn; then one while all cores are busy."""
    ours, peers = [], []
    with Desktop() as desktop:
        subprocess.run(["pactl", "load-module", "module-sine", "sink=card", "frequency=441"],
                       env=desktop.environment, check=True, capture_output=True)
        for turn in range(rounds):
            wave = os.path.join(desktop.folder, f"peer{turn}.wav")
            peers.append(_run(desktop, ["parec", "--file-format=wav", "--device=card.monitor",
                                        wave], 2, seconds)[0])
            ours.append(_record(desktop, built, seconds))
        load = [desktop.start(["python3", "-c", BUSY]) for _ in range(os.cpu_count())]
        hard = _record(desktop, built, busy_seconds)
        for program in load:
            program.end()
    _tell_recordings(report, ours, peers, hard, busy_seconds)


def _tell_recordings(report, ours, peers, hard, busy_seconds):
    cost = median([run["cpu_us_a_second"] / 1000 for run in ours])
    report.figure("a recording, processor for a second", cost, "ms")
    report.figure("parec --file-format=wav, the same", median(peers), "ms")
    report.figure("a recording, player / parec", cost / median(peers), "x", 1.5)
    for name, limit in (("tick", 5), ("probe", 0.2)):
        what = "transfer of a half" if name == "tick" else "probe of the level"
        report.figure(what, median([run[f"{name}_us"] for run in ours]) / 1000, "ms", limit,
                      f"worst {max(run[f'worst_{name}_us'] for run in ours) / 1000:.2f}, "
                      f"with all cores busy {hard[f'worst_{name}_us'] / 1000:.2f}")
    report.figure("breaks in the recorded tone", sum(run["breaks"] for run in ours), "", 0)
    report.figure(f"the same in {busy_seconds} s, all cores busy", hard["breaks"], "", 0,
                  f"{hard['milliseconds'] / 1000:.1f} s recorded")
    report.figure("halves fetched too late in that time", hard["missed"], "", 0)


def window(report, built):
    """What recording adds to the open recording section, its meter moving, beside parec."""
    opened, recorded, peer = recording_window.measure(built.player)
    report.figure("recording section open, processor for a second", opened, "ms")
    report.figure("recording in it, the same", recorded, "ms")
    report.figure("parec --file-format=wav, the same", peer, "ms")
    report.figure("recording over the open section / parec", (recorded - opened) / peer, "x", 1.5)


def _encode(desktop, name, seconds, *options):
    """A song by lame, written long enough ago to be trusted as unchanged."""
    wave, song = (os.path.join(desktop.folder, end) for end in ("song.wav", name))
    make_song(wave, seconds, "wav")
    subprocess.run(["lame", "--quiet", *options, wave, song], check=True)
    os.utime(song, (time.time() - 3600,) * 2)
    return song


def _durations(desktop, built, *words):
    done = subprocess.run([built.playtime, *words], env=desktop.environment, check=True,
                          capture_output=True, text=True)
    parts = done.stdout.split()
    return dict(zip(parts[::2], map(float, parts[1::2])))


def playtime(report, built, rounds=7, files=1000):
    """Durations of files never measured before, and again; the files themselves are in memory."""
    if not shutil.which("lame"):
        raise RuntimeError("lame is missing")
    with Desktop() as desktop:
        short = _encode(desktop, "short.mp3", 10, "-V", "2", "--add-id3v2", "--tt", "Song")
        told = _encode(desktop, "told.mp3", 240, "-V", "2")
        bare = _encode(desktop, "bare.mp3", 240, "-t", "-V", "2")
        copies = [os.path.join(desktop.folder, f"{number}.mp3") for number in range(files)]
        for copy in copies:
            shutil.copy2(short, copy)
        many = [_durations(desktop, built, *copies) for _ in range(rounds)]
        alone = [_durations(desktop, built, told) for _ in range(rounds)]
        without = [_durations(desktop, built, bare) for _ in range(rounds)]
        graphs = _durations(desktop, built, "--graphs", told, bare)
        a_graph_each = _durations(desktop, built, "--graphs", *copies[:100])
    report.figure(f"durations of {files} mp3 with header, each",
                  median([run["first"] for run in many]) / files, "ms", 0.1,
                  f"with a graph each {a_graph_each['graphs'] / 100:.2f}")
    report.figure("duration of one such song alone", median([run["first"] for run in alone]), "ms")
    report.figure("duration of a 4-minute VBR without header",
                  median([run["first"] for run in without]), "ms", 5)
    report.figure(f"durations of {files} again", median([run["again"] for run in many]), "ms", 5)
    sums = [alone[0]["sum"], without[0]["sum"]]
    report.figure("furthest from the true 240 s", max(abs(one - 240) for one in sums), "s", 0.1)
    report.figure("apart from what graphs tell", abs(sum(sums) - graphs["sum"]), "s", 0)

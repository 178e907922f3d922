"""A screen and a sound card of the benchmark's own, and what a program on them costs."""

import os
import shutil
import subprocess
import tempfile
import time


def wait_until(ready, what, longest=20.0):
    until = time.monotonic() + longest
    while not ready():
        if time.monotonic() > until:
            raise RuntimeError(f"{what} does not come up")
        time.sleep(0.01)


class Process:
    """A program that runs; ended with `end`. Its cost is that of all its threads."""

    def __init__(self, words, environment, **options):
        options.setdefault("stdin", subprocess.DEVNULL)
        options.setdefault("stdout", subprocess.DEVNULL)
        self.started = time.monotonic()
        self.popen = subprocess.Popen(words, env=environment, stderr=subprocess.DEVNULL, **options)
        self.pid = self.popen.pid

    def running(self):
        return self.popen.poll() is None

    def cpu_seconds(self):
        """Processor time so far, to the nanosecond, ended threads included."""
        return time.clock_gettime((~self.pid << 3) | 2)

    def memory_megabytes(self):
        """(proportional share, private) as the kernel counts them."""
        values = {}
        with open(f"/proc/{self.pid}/smaps_rollup", encoding="ascii") as lines:
            for line in lines:
                name, _, rest = line.partition(":")
                if rest.strip().endswith("kB"):
                    values[name] = int(rest.split()[0]) / 1024
        return values["Pss"], values["Private_Clean"] + values["Private_Dirty"]

    def end(self):
        """Politely, then by force."""
        if self.running():
            self.popen.terminate()
        try:
            self.popen.wait(3)
        except subprocess.TimeoutExpired:
            self.popen.kill()
            self.popen.wait()


class Desktop:
    """Xvfb, PulseAudio with a card that swallows the sound, and an empty home; a context manager."""

    def __init__(self, message_bus=True):
        self.folder = tempfile.mkdtemp(prefix="velmarion-bench-")
        self._processes = []
        self.environment = {key: value for key, value in os.environ.items()
                            if key in ("PATH", "LANG", "TZ", "LD_LIBRARY_PATH")}
        for key, name in (("HOME", "home"), ("XDG_CONFIG_HOME", "config"),
                          ("XDG_DATA_HOME", "data"), ("XDG_CACHE_HOME", "cache"),
                          ("XDG_RUNTIME_DIR", "runtime")):
            self.environment[key] = os.path.join(self.folder, name)
            os.mkdir(self.environment[key], 0o700)
        self.environment["LANG"] = self.environment.get("LANG", "C.UTF-8")
        self._start_screen()
        self._start_bus(message_bus)
        self._start_sound()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        for process in reversed(self._processes):
            process.end()
        shutil.rmtree(self.folder, ignore_errors=True)

    def start(self, words, **options):
        return Process(words, self.environment, **options)

    def _start_screen(self):
        number = os.path.join(self.folder, "display")
        with open(number, "wb") as output:
            self._processes.append(self.start(
                ["Xvfb", "-displayfd", "1", "-screen", "0", "1280x800x24", "-nolisten", "tcp",
                 "-noreset"], stdout=output))
        wait_until(lambda: open(number, encoding="ascii").read().endswith("\n"), "Xvfb")
        self.environment["DISPLAY"] = ":" + open(number, encoding="ascii").read().strip()

    def _start_bus(self, wanted):
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = "disabled:"
        if not wanted or not shutil.which("dbus-daemon"):
            return
        path = os.path.join(self.folder, "bus")
        self._processes.append(self.start(
            ["dbus-daemon", "--session", "--nofork", "--nosyslog", f"--address=unix:path={path}"]))
        wait_until(lambda: os.path.exists(path), "the message bus")
        self._bus = f"unix:path={path}"

    def _start_sound(self):
        self._processes.append(self.start(
            ["pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1",
             "--load=module-native-protocol-unix",
             "--load=module-null-sink sink_name=card norewinds=1 format=float32le rate=44100 "
             "channels=2"]))
        wait_until(lambda: subprocess.run(["pactl", "info"], env=self.environment,
                                          capture_output=True).returncode == 0,
                   "the sound server")
        # Only now: a sound server that is told of a bus would look for its own kind there.
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = getattr(self, "_bus", "disabled:")

    def write_settings(self, mode=2, lead=10, length=5, folder=""):
        """What the player finds as its stored settings."""
        place = os.path.join(self.environment["XDG_CONFIG_HOME"], "velmarion")
        os.makedirs(place, exist_ok=True)
        with open(os.path.join(place, "settings.ini"), "w", encoding="utf-8") as out:
            out.write("[Microsoft Visual Basic AddIns/Setting]\n"
                      f"setting={mode}\nfadem={lead}\nfadelen={length}\nlo=False\ncolor=10\n"
                      "ti=False\n\n[Nerolith/Setting]\nenabl=False\n")
            if folder:
                out.write(f"\n[Velmarion/Path]\npath={folder}\n")

"""A small client of the X protocol: sees windows appear, and presses buttons, to the microsecond.

Tools that look for a window every now and then would be coarser than what is measured.
"""

import socket
import struct
import time

MAP_NOTIFY = 19
BUTTON_PRESS, BUTTON_RELEASE, MOTION_NOTIFY = 4, 5, 6
SUBSTRUCTURE_NOTIFY = 1 << 19
EVENT_MASK_VALUE = 1 << 11


class XClient:
    """One connection to a display such as ":7". Close it when done."""

    def __init__(self, display):
        self._socket = socket.socket(socket.AF_UNIX)
        self._socket.connect(f"/tmp/.X11-unix/X{display.lstrip(':').split('.')[0]}")
        self._socket.sendall(struct.pack("<BxHHHHxx", ord("l"), 11, 0, 0, 0))
        status, _, _, length = struct.unpack("<BBHxxH", self._take(8))
        setup = self._take(length * 4)
        if status != 1:
            raise OSError("the display refuses the connection")
        vendor = struct.unpack_from("<H", setup, 16)[0]
        formats = setup[21]
        screen = 32 + (vendor + 3) // 4 * 4 + formats * 8
        self.root = struct.unpack_from("<I", setup, screen)[0]
        self._waiting = []

    def close(self):
        self._socket.close()

    def _take(self, count):
        data = b""
        while len(data) < count:
            piece = self._socket.recv(count - len(data))
            if not piece:
                raise OSError("the display has gone")
            data += piece
        return data

    def _request(self, opcode, data, body=b""):
        padded = body + b"\0" * (-len(body) % 4)
        self._socket.sendall(struct.pack("<BBH", opcode, data, 1 + len(padded) // 4) + padded)

    def _reply(self):
        """The next reply; events that come first are kept for later."""
        while True:
            packet = self._take(32)
            if packet[0] == 1:
                return packet + self._take(struct.unpack_from("<I", packet, 4)[0] * 4)
            if packet[0] == 0:
                raise OSError(f"the display reports error {packet[1]}")
            self._waiting.append(packet)

    def watch_root(self):
        """From now on windows that appear on the screen are told."""
        self._request(2, 0, struct.pack("<III", self.root, EVENT_MASK_VALUE, SUBSTRUCTURE_NOTIFY))
        self.sync()

    def forget(self):
        """Drops what was told so far."""
        self.sync()
        self._waiting.clear()

    def sync(self):
        self._request(43, 0)  # GetInputFocus: answered when all before it is done
        self._reply()

    def size_of(self, window):
        self._request(14, 0, struct.pack("<I", window))
        return struct.unpack_from("<hhHH", self._reply(), 12)

    def wait_for_window(self, longest=20.0, least_width=100):
        """(monotonic time, window) of the first one of some size that is mapped; None if none is."""
        until = time.monotonic() + longest
        while True:
            if not self._waiting:
                self._socket.settimeout(max(until - time.monotonic(), 0.001))
                try:
                    self._waiting.append(self._take(32))
                except TimeoutError:
                    return None
                finally:
                    self._socket.settimeout(None)
            now = time.monotonic()
            event = self._waiting.pop(0)
            if event[0] & 0x7F != MAP_NOTIFY:
                continue
            window = struct.unpack_from("<I", event, 8)[0]
            try:
                if self.size_of(window)[2] >= least_width:
                    return now, window
            except OSError:
                continue  # gone again

    def _extension(self, name):
        self._request(98, 0, struct.pack("<Hxx", len(name)) + name)
        reply = self._reply()
        if not reply[8]:
            raise OSError(f"the display has no {name.decode()}")
        return reply[9]

    def fake_input(self, kind, detail=0, x=0, y=0):
        if not hasattr(self, "_xtest"):
            self._xtest = self._extension(b"XTEST")
        body = struct.pack("<BBxxII8xhh8x", kind, detail, 0, self.root, x, y)
        self._request(self._xtest, 2, body)

    def move_pointer(self, x, y):
        self.fake_input(MOTION_NOTIFY, 0, x, y)
        self.sync()

    def click(self, button=1, times=1):
        """The time of the last press."""
        pressed = 0.0
        for _ in range(times):
            pressed = time.monotonic()
            self.fake_input(BUTTON_PRESS, button)
            self.fake_input(BUTTON_RELEASE, button)
        self.sync()
        return pressed



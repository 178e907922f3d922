#!/usr/bin/python3
"""media_client.py: what the player on the login's message bus says of itself to media controls, one
property a line as "name signature value", sorted; and a line "wrong: ..." for each thing in its
introspection that MPRIS 2.2 has otherwise."""

import xml.etree.ElementTree as xml

import dbus

NAME, PATH = "org.mpris.MediaPlayer2.velmarion", "/org/mpris/MediaPlayer2"
# As the standard has them: methods with what goes in, signals with what they carry, properties with
# r or rw. The standard lets the volume be read only.
STANDARD = {
    "org.mpris.MediaPlayer2": (
        {"Raise": "", "Quit": ""},
        {},
        {"CanQuit": "b r", "CanRaise": "b r", "HasTrackList": "b r", "Identity": "s r",
         "DesktopEntry": "s r", "SupportedUriSchemes": "as r", "SupportedMimeTypes": "as r"},
    ),
    "org.mpris.MediaPlayer2.Player": (
        {"Next": "", "Previous": "", "Pause": "", "PlayPause": "", "Stop": "", "Play": "",
         "Seek": "x", "SetPosition": "ox", "OpenUri": "s"},
        {"Seeked": "x"},
        {"PlaybackStatus": "s r", "LoopStatus": "s rw", "Rate": "d rw", "Shuffle": "b rw",
         "Metadata": "a{sv} r", "Volume": "d r", "Position": "x r", "MinimumRate": "d r",
         "MaximumRate": "d r", "CanGoNext": "b r", "CanGoPrevious": "b r", "CanPlay": "b r",
         "CanPause": "b r", "CanSeek": "b r", "CanControl": "b r"},
    ),
}
SIGNATURES = ((dbus.Boolean, "b"), (dbus.ObjectPath, "o"), (dbus.String, "s"), (dbus.Double, "d"),
              (dbus.Int64, "x"))


def signature_of(value):
    if isinstance(value, dbus.Array):
        return f"a{value.signature}"
    if isinstance(value, dbus.Dictionary):
        return f"a{{{value.signature}}}"
    return next((word for kind, word in SIGNATURES if isinstance(value, kind)), type(value).__name__)


def text_of(value):
    if isinstance(value, dbus.Boolean):
        return str(bool(value)).lower()
    if isinstance(value, dbus.Array):
        return " ".join(value)
    return f"{value:g}" if isinstance(value, dbus.Double) else str(value)


def lines_of(properties):
    for name, value in properties.items():
        told = text_of(value) if not isinstance(value, dbus.Dictionary) else ""
        yield f"{name} {signature_of(value)} {told}".rstrip()
        if isinstance(value, dbus.Dictionary):
            yield from lines_of(value)


def carried(member, direction):
    return "".join(arg.get("type") for arg in member.findall("arg")
                   if arg.get("direction", "in") == direction)


def members_of(interface):
    """As in STANDARD."""
    access = {"read": "r", "readwrite": "rw"}
    return (
        {method.get("name"): carried(method, "in") for method in interface.findall("method")},
        {signal.get("name"): carried(signal, "out") or carried(signal, "in")
         for signal in interface.findall("signal")},
        {each.get("name"): f'{each.get("type")} {access.get(each.get("access"))}'
         for each in interface.findall("property")},
    )


def complaints(introspection):
    interfaces = {each.get("name"): each for each in introspection.findall("interface")}
    for name, standard in STANDARD.items():
        if name not in interfaces:
            yield f"{name} is missing"
            continue
        for wanted, told in zip(standard, members_of(interfaces[name])):
            for member in sorted(set(wanted) | set(told)):
                if wanted.get(member) != told.get(member):
                    yield f"{name}.{member}: {told.get(member)}, not {wanted.get(member)}"


def main():
    player = dbus.SessionBus().get_object(NAME, PATH)
    lines = []
    for interface in STANDARD:
        lines += lines_of(player.GetAll(interface, dbus_interface="org.freedesktop.DBus.Properties"))
    print("\n".join(sorted(lines)))
    text = player.Introspect(dbus_interface="org.freedesktop.DBus.Introspectable")
    for complaint in complaints(xml.fromstring(str(text))):
        print(f"wrong: {complaint}")


main()

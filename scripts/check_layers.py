#!/usr/bin/env python3
"""check_layers.py [ROOT]: holds the tree to its own rules. Prints every breach, exits 1 on any.

The rules, in the order of the functions below:
  * a layer of src/ includes only what lies beneath it (LAYERS, DIRECT_INCLUDES);
  * the core includes nothing but the C++ standard library, and the header of a toolkit or of a
    system appears only in its home folder (HOMES);
  * no preprocessor condition asks for the platform: CMake picks the folder;
  * sources, headers and functions stay short;
  * file names say what is in them;
  * words that have no business in a product do not appear (forbidden_words).
"""

import os
import re
import sys

PARTS = ("player", "library", "playlist", "settings", "recording", "tray")
BENEATH_PARTS = ("base", "controls", "forms", "platform")

# What each folder of src/ may include, beside itself. "platform" is its interfaces only: a backend
# is a layer of its own, named by its folder.
LAYERS = {
    "base": (),
    "controls": ("base",),
    "forms": ("base", "controls"),
    "platform": ("base", "controls"),
    "app": BENEATH_PARTS + PARTS,
    **{part: BENEATH_PARTS for part in PARTS},
}
BACKEND_SEES = ("base", "controls", "platform")

# The few includes from one part straight into another: (including part, header).
DIRECT_INCLUDES = {
    ("library", "settings/live_settings.h"),
    ("player", "settings/live_settings.h"),
    ("player", "library/song_list.h"),
    ("recording", "player/recording_link.h"),
    ("playlist", "library/song_list.h"),
    ("playlist", "library/folder_browser.h"),
    ("playlist", "settings/stored_settings.h"),
}

# Where the headers of a toolkit or a system are at home: (pattern, folders of src/, of tests/).
HOMES = (
    (r"Q[A-Z]\w*(/\w+)?|Qt\w+/.*", ("platform/linux/widgets", "platform/linux/desktop",
                                       "platform/linux/main.cpp"),
     ("linux_widgets", "linux_desktop", "drag_source")),
    (r"(libav\w+|libsw\w+|pulse)/.*|fluidsynth(/.*)?\.h", ("platform/linux/sound",),
     ("linux_sound", "endtoend")),
    (r"(glib|gio|gobject)(/.*)?\.h|glib(-unix|/gstdio)?\.h", ("platform/linux/system",),
     ("linux_system",)),
    (r"(windows|windowsx|dshow|dsound|shellapi|shlobj|commctrl|commdlg|mmsystem|ole2|olectl|"
     r"objbase|oleacc|initguid|oleidl|oleauto|wincodec|uuids|control|strmif|winreg|winuser)\.h",
     ("platform/windows",),
     ("windows_system", "windows_forms", "windows_program")),
    (r"(unistd|fcntl|dlfcn|dirent|poll|pthread|signal|spawn|mntent|fnmatch|glob|langinfo|iconv|"
     r"pwd|utime|locale)\.h|(sys|linux|netinet|arpa)/.*\.h", ("platform/linux",),
     ("linux_sound", "linux_system", "linux_widgets", "linux_desktop", "endtoend")),
    (r"(gtest|gmock)/.*", (), None),
    (r"benchmark/.*", (), ()),
)

STANDARD = set("""algorithm any array atomic barrier bit bitset cassert cctype cerrno cfenv cfloat
charconv chrono cinttypes climits clocale cmath compare complex concepts condition_variable
coroutine csetjmp csignal cstdarg cstddef cstdint cstdio cstdlib cstring ctime cuchar cwchar
cwctype deque exception execution filesystem forward_list fstream functional future
initializer_list iomanip ios iosfwd iostream istream iterator latch limits list locale map memory
memory_resource mutex new numbers numeric optional ostream queue random ranges ratio regex
scoped_allocator semaphore set shared_mutex source_location span sstream stack stdexcept stop_token
streambuf string string_view strstream syncstream system_error thread tuple type_traits typeindex
typeinfo unordered_map unordered_set utility valarray variant vector version""".split())

PLATFORM_MACRO = re.compile(
    r"^\s*#\s*(if|ifdef|ifndef|elif)\b.*\b(_?WIN32|_WIN64|__linux(__)?|linux|__unix(__)?|unix|"
    r"__APPLE__|__MINGW\w+|__CYGWIN__|_MSC_VER|Q_OS_\w+)\b")
INCLUDE = re.compile(r'^\s*#\s*include\s*(<([^>]+)>|"([^"]+)")')

LONGEST_SOURCE = 400
LONGEST_HEADER = 200
LONGEST_FUNCTION = 40

VAGUE_NAME = re.compile(r"(^|_)(utils?|helpers?|managers?|common|misc)$")
SKIPPED_FOLDERS = {".git", "out", ".cache", "__pycache__", ".vscode", ".idea"}
TEXT = (".h", ".cpp", ".py", ".sh", ".cmake", ".txt", ".md", ".json", ".yml", ".in", ".desktop",
        ".xml", ".rc", ".supp", ".manifest", ".nsi", "")


def forbidden_words():
    """(pattern, what is left out before looking). Put together from pieces, or this file would
    be the first to break its own rule."""
    work_talk = "|".join(("ses" + "sion", "ses" + "sions", "(sub)?ag" + "ents?"))
    technical = (r"d-?bus[ -](run-)?{0}s?|{0} bus|(dbus-daemon|--){0}|--{0}|dbus-run-{0}|"
                 r"user {1}").format("ses" + "sion", "ag" + "ent")
    return (
        (re.compile(r"\bpart\s+[0-9]\.[0-9]", re.I), None),
        (re.compile(r"\bthe " + "specif" + r"ication\b|\bspec\." + r"md\b", re.I), None),
        (re.compile(rf"\b({work_talk})\b", re.I), re.compile(technical, re.I)),
        (re.compile("/wo" + "rk/|/fa" + r"rm/|(?<![\w\])])\.lib" + r"rary\b"), None),
        (re.compile(r"\b(TO" + "DO|FIX" + r"ME)\b"), None),
    )


FORBIDDEN = forbidden_words()


def all_files(root):
    """Paths of the text files below root, relative to it, with forward slashes."""
    for folder, folders, names in os.walk(root):
        folders[:] = sorted(name for name in folders if name not in SKIPPED_FOLDERS)
        for name in sorted(set(names) - SKIPPED_FOLDERS):  # .git is a file in a linked checkout
            if os.path.splitext(name)[1].lower() in TEXT:
                yield os.path.relpath(os.path.join(folder, name), root).replace(os.sep, "/")


def layer_of(path):
    """The layer of a file or of an include, given relative to src/; None for the main program."""
    pieces = path.split("/")
    if pieces[0] != "platform" or len(pieces) == 2:
        return pieces[0]
    if pieces[-1] == "main.cpp" and len(pieces) == 3:
        return None
    return "/".join(pieces[:-1])


def check_include(path, header):
    """Why src/`path` may not include the project's own `header`, or None."""
    if header.endswith(".moc"):
        return None
    if "/" not in header:
        return f'includes "{header}" without its folder'
    here, there = layer_of(path), layer_of(header)
    if here is None:
        return "includes the simulated machine" if "/simulated/" in header else None
    if here == there:
        return None
    allowed = BACKEND_SEES if here.startswith("platform/") else LAYERS.get(here)
    if allowed is None:
        return f"lies in a folder that no layer is known for ({here})"
    if there in allowed or (here, header) in DIRECT_INCLUDES:
        return None
    return f'{here} must not include "{header}"'


def check_library_header(path, header):
    """Why the file `path` (relative to the root) may not include <header>, or None."""
    top, _, rest = path.partition("/")
    if header in STANDARD:
        return None
    for pattern, source_homes, test_homes in HOMES:
        if not re.fullmatch(pattern, header):
            continue
        if top == "src":
            at_home = any(rest == home or rest.startswith(home + "/") for home in source_homes)
        elif top == "tests":
            at_home = test_homes is None or rest.split("/")[0] in test_homes
        else:
            at_home = True
        return None if at_home else f"<{header}> is not at home here"
    backend = re.match(r"platform/(linux|windows)/", rest) if top == "src" else None
    if top == "src" and not backend:
        return f"<{header}> is not the C++ standard library"
    return None


def check_code(path, lines):
    """The breaches of one C++ file that show line by line."""
    for number, line in enumerate(lines, 1):
        if PLATFORM_MACRO.match(line):
            yield number, "asks for the platform; put the code into that platform's folder"
        include = INCLUDE.match(line)
        if not include:
            continue
        if include.group(2):
            reason = check_library_header(path, include.group(2))
        elif path.startswith("src/"):
            reason = check_include(path[len("src/"):], include.group(3))
        else:
            reason = None
        if reason:
            yield number, reason


def check_length(path, lines):
    limit = LONGEST_HEADER if path.endswith(".h") else LONGEST_SOURCE
    if len(lines) > limit:
        yield limit + 1, f"has {len(lines)} lines, more than {limit}"
    for number, length in long_functions(lines):
        yield number, f"has a function of {length} lines, more than {LONGEST_FUNCTION}"


NO_FUNCTION = re.compile(r"\s*(namespace|class|struct|enum|union|if|for|while|switch|catch|else|do|"
                         r"return|static_assert|\}|extern \")|.*=\s*(\[.*)?\{$|.*[^=!<>]=[^=]")


def long_functions(lines):
    """(first line, length) of each overlong function. Relies on the formatter: a function's body
    opens at the end of a line and is closed by a lone brace at the indentation it began with."""
    for number, line in enumerate(lines):
        if not line.endswith("{"):
            continue
        first = number
        while first > 0 and lines[first - 1].strip() and lines[first - 1].rstrip()[-1] not in ";{}:":
            if lines[first - 1].lstrip().startswith(("//", "#", "template")):
                break
            first -= 1
        start = lines[first]
        if len(start) - len(start.lstrip()) > 2:
            continue
        statement = " ".join(part.strip() for part in lines[first:number + 1])
        if "(" not in statement or NO_FUNCTION.match(statement.split("(")[0]) \
                or NO_FUNCTION.match(start):
            continue
        margin = start[:len(start) - len(start.lstrip())]
        closing = margin + "}"
        for end in range(number + 1, len(lines)):
            if lines[end].strip() and not lines[end].startswith(margin):
                break
            if lines[end].startswith(closing):
                if lines[end] == closing and end - first + 1 > LONGEST_FUNCTION:
                    yield first + 1, end - first + 1
                break


def check_words(lines):
    for number, line in enumerate(lines, 1):
        for pattern, left_out in FORBIDDEN:
            found = pattern.search(left_out.sub("", line) if left_out else line)
            if found:
                yield number, f'has the word "{found.group(0).strip()}"'


def check_file(root, path):
    with open(os.path.join(root, path), "rb") as file:
        data = file.read()
    if b"\0" in data:
        return
    lines = data.decode("utf-8", "replace").splitlines()
    stem, ending = os.path.splitext(os.path.basename(path))
    if ending in (".h", ".cpp"):
        yield from check_code(path, lines)
        yield from check_length(path, lines)
        if VAGUE_NAME.search(stem):
            yield 1, "has a name that does not say what is in it"
    yield from check_words([path])
    yield from check_words(lines)


def check_tree(root):
    """Every breach below root as "path:line: reason"."""
    return [f"{path}:{number}: {reason}"
            for path in all_files(root) for number, reason in check_file(root, path)]


def main(arguments):
    root = arguments[0] if arguments else os.path.join(os.path.dirname(__file__), "..")
    breaches = check_tree(root)
    for breach in breaches:
        print(breach)
    print(f"{len(breaches)} breaches")
    return 1 if breaches else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))

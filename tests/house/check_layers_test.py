"""What check_layers.py must catch, and what it must let pass, each on a small tree of its own."""

import os
import sys
import tempfile
import unittest

sys.dont_write_bytecode = True
sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "..", "scripts"))
import check_layers


def check(files):
    """The breaches of a tree that consists of `files` (path -> text)."""
    with tempfile.TemporaryDirectory() as root:
        for path, text in files.items():
            place = os.path.join(root, path)
            os.makedirs(os.path.dirname(place), exist_ok=True)
            with open(place, "w", encoding="utf-8") as file:
                file.write(text)
        return check_layers.check_tree(root)


def include(path, header):
    return check({path: f"#include {header}\n"})


class Layers(unittest.TestCase):
    def test_what_lies_beneath_may_be_included(self):
        for path, header in (
                ("src/controls/form.h", '"base/signal.h"'),
                ("src/platform/dialogs.h", '"controls/form.h"'),
                ("src/player/deck.cpp", '"platform/filter_graph.h"'),
                ("src/player/deck.cpp", '"forms/main_form.h"'),
                ("src/player/deck.cpp", '"player/deck.h"'),
                ("src/app/start.cpp", '"player/deck.h"'),
                ("src/platform/simulated/clock.cpp", '"platform/clock.h"'),
                ("src/platform/linux/main.cpp", '"app/start.h"'),
                ("src/platform/linux/main.cpp", '"platform/linux/system/files.h"')):
            with self.subTest(path=path, header=header):
                self.assertEqual(include(path, header), [])

    def test_what_lies_above_or_beside_may_not(self):
        for path, header in (
                ("src/base/signal.h", '"controls/form.h"'),
                ("src/controls/form.h", '"platform/dialogs.h"'),
                ("src/controls/form.h", '"forms/main_form.h"'),
                ("src/platform/dialogs.h", '"player/deck.h"'),
                ("src/player/deck.cpp", '"app/start.h"'),
                ("src/tray/icon.cpp", '"playlist/editor.h"'),
                ("src/player/deck.cpp", '"platform/simulated/clock.h"'),
                ("src/player/deck.cpp", '"platform/linux/sound/graph.h"'),
                ("src/app/start.cpp", '"platform/linux/system/files.h"'),
                ("src/platform/linux/widgets/window.cpp", '"player/deck.h"'),
                ("src/platform/linux/widgets/window.cpp", '"platform/linux/sound/graph.h"'),
                ("src/platform/linux/main.cpp", '"platform/simulated/clock.h"'),
                ("src/elsewhere/x.cpp", '"base/signal.h"'),
                ("src/player/deck.cpp", '"deck.h"')):
            with self.subTest(path=path, header=header):
                self.assertEqual(len(include(path, header)), 1)

    def test_a_listed_include_from_part_to_part_passes(self):
        check_layers.DIRECT_INCLUDES.add(("player", "library/fixture.h"))
        try:
            self.assertEqual(include("src/player/deck.cpp", '"library/fixture.h"'), [])
            self.assertEqual(len(include("src/tray/icon.cpp", '"library/fixture.h"')), 1)
        finally:
            check_layers.DIRECT_INCLUDES.remove(("player", "library/fixture.h"))


class LibraryHeaders(unittest.TestCase):
    def test_the_core_sees_the_standard_library_only(self):
        self.assertEqual(include("src/player/deck.cpp", "<vector>"), [])
        for header in ("<unistd.h>", "<QString>", "<format>", "<boost/any.hpp>", "<windows.h>",
                       "<gtest/gtest.h>"):
            with self.subTest(header=header):
                self.assertEqual(len(include("src/player/deck.cpp", header)), 1)

    def test_a_toolkit_stays_in_its_home_folder(self):
        for header, home in (("<QWidget>", "src/platform/linux/widgets/a.cpp"),
                             ("<QtWidgets/QLabel>", "src/platform/linux/main.cpp"),
                             ("<libavcodec/avcodec.h>", "src/platform/linux/sound/a.cpp"),
                             ("<pulse/pulseaudio.h>", "src/platform/linux/sound/a.cpp"),
                             ("<glib.h>", "src/platform/linux/system/a.cpp"),
                             ("<sys/stat.h>", "src/platform/linux/system/a.cpp"),
                             ("<dshow.h>", "src/platform/windows/a.cpp")):
            with self.subTest(header=header):
                self.assertEqual(include(home, header), [])
                self.assertEqual(len(include("src/app/a.cpp", header)), 1)
                self.assertEqual(len(include("tests/app/a_test.cpp", header)), 1)
                self.assertEqual(len(include("src/platform/simulated/a.cpp", header)), 1)

    def test_a_test_of_a_backend_may_use_its_toolkit(self):
        self.assertEqual(include("tests/linux_widgets/a_test.cpp", "<QTest>"), [])
        self.assertEqual(include("tests/player/a_test.cpp", "<gtest/gtest.h>"), [])


class Platform(unittest.TestCase):
    def test_a_condition_on_the_platform_is_a_breach(self):
        for line in ("#ifdef _WIN32", "#if defined(__linux__)", "  # if !defined(Q_OS_WIN)",
                     "#elif __APPLE__"):
            with self.subTest(line=line):
                self.assertEqual(len(check({"src/base/a.h": line + "\n"})), 1)

    def test_other_conditions_pass(self):
        self.assertEqual(check({"src/base/a.h": "#ifdef NDEBUG\n#if __cplusplus > 1\n"}), [])


class Length(unittest.TestCase):
    def test_sources_and_headers_have_their_limits(self):
        self.assertEqual(check({"src/base/a.h": "//\n" * 200, "src/base/a.cpp": "//\n" * 400}), [])
        self.assertEqual(len(check({"src/base/a.h": "//\n" * 201})), 1)
        self.assertEqual(len(check({"tests/base/a_test.cpp": "//\n" * 401})), 1)

    def test_a_function_has_forty_lines_at_most(self):
        for opening, closing in (("int f() {", "}"), ("void A::f(int a,\n          int b) const {", "}"),
                                 ("TEST(A, B) {", "}"), ("class A {\n  void g() {", "  }\n};"),
                                 ("A::A(int b)\n    : b_(b) {", "}")):
            with self.subTest(opening=opening):
                head = opening.count("\n") + (0 if "class" in opening else 1)
                fits = "\n".join([opening] + ["    x();"] * (39 - head) + [closing]) + "\n"
                over = "\n".join([opening] + ["    x();"] * (40 - head) + [closing]) + "\n"
                self.assertEqual(check({"src/base/a.cpp": fits}), [])
                self.assertEqual(len(check({"src/base/a.cpp": over})), 1, over)

    def test_a_block_handed_to_a_call_does_not_swallow_what_follows(self):
        text = "void f() {\n  EXPECT(\n      {\n        x();\n      },\n      y);\n}\n"
        text += "void g() {\n  x();\n}\n" * 20 + "class A {\n  void h() {\n  }\n};\n"
        self.assertEqual(check({"src/base/a.cpp": text}), [])
        text = "  on(click, [this](int a) {\n    x();\n  });\n" + "}\n\nvoid f() {\n}\n" * 20 + "  }\n"
        self.assertEqual(check({"src/base/a.cpp": text}), [])

    def test_tables_and_classes_are_no_functions(self):
        for opening, closing in (("const std::array<int, 3> kTable = {", "};"), ("class A {", "};"),
                                 ("namespace a {", "}"), ("struct A : B<int(int)> {", "};")):
            with self.subTest(opening=opening):
                text = "\n".join([opening] + ["  1,"] * 100 + [closing]) + "\n"
                self.assertEqual(check({"src/base/a.cpp": text}), [])


class Words(unittest.TestCase):
    def breaks(self, text):
        return len(check({"docs/a.md": text + "\n"}))

    def test_words_that_do_not_belong_here(self):
        for pieces in (("Pa", "rt 1.2"), ("the specif", "ication"), ("spec", ".md"),
                       ("a ses", "sion"), ("some subag", "ents"), ("an Ag", "ent"), ("/wo", "rk/a"),
                       ("/fa", "rm/a"), ("ls .lib", "rary"), ("TO", "DO"), ("FIX", "ME later")):
            with self.subTest(text="".join(pieces)):
                self.assertEqual(self.breaks("".join(pieces)), 1)

    def test_technical_uses_pass(self):
        for text in ("a D-Bus {}", "dbus-run-{} sh", "the {} bus", "DBUS_{}_BUS_ADDRESS"):
            word = "ses" + "sion"
            with self.subTest(text=text):
                self.assertEqual(self.breaks(text.format(word)), 0)
                self.assertEqual(self.breaks(text.format(word.upper())), 0)
        for text in ("working/a", "TODOS los dias", "part 2 of 3", "a reagent"):
            with self.subTest(text=text):
                self.assertEqual(self.breaks(text), 0)

    def test_file_names_count_too(self):
        self.assertEqual(len(check({"docs/ses" + "sion.md": "x\n"})), 1)
        self.assertEqual(len(check({"src/base/string_utils.h": "\n"})), 1)
        self.assertEqual(len(check({"src/base/manager.cpp": "\n"})), 1)

    def test_build_output_is_not_looked_at(self):
        self.assertEqual(check({"out/a.md": "TO" + "DO\n", ".git/x": "TO" + "DO\n"}), [])


if __name__ == "__main__":
    unittest.main()

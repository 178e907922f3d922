"""Runs the figures asked for, one after the other. Started by ./bench."""

import argparse
import sys

import figures
from report import Report, load

ALL = ("lists", "rules", "start", "play", "click", "steady", "record", "window",
       "playtime")


def main():
    options = argparse.ArgumentParser()
    options.add_argument("--build", required=True)
    options.add_argument("--bin", required=True)
    options.add_argument("--only", default=",".join(ALL))
    options.add_argument("--long", action="store_true")
    given = options.parse_args()
    wanted = given.only.split(",")
    unknown = [name for name in wanted if name not in ALL]
    if unknown:
        options.error(f"no figure is called {', '.join(unknown)}; there are {', '.join(ALL)}")

    built = figures.Built(given.build, given.bin)
    report = Report()
    failed = 0
    for name in wanted:
        report.say(f"-- {name} (load {load():.1f})")
        try:
            if name in ("steady", "record") and given.long:
                getattr(figures, name)(report, built, 600)
            else:
                getattr(figures, name)(report, built)
        except Exception as trouble:  # one that cannot be measured must not hide the others
            failed += 1
            report.unmeasured(name, str(trouble))
    report.say(f"-- {report.missed} missed, {failed} not measured (load {load():.1f})")
    report.save()
    sys.exit(1 if failed else 0)


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""Makes tables of what the benchmarks measured: report.py RESULTS DOCUMENT.

RESULTS is a folder of JSON files. In DOCUMENT the lines between "<!-- NAME -->" and "<!-- /NAME -->"
are replaced; a table without results is left as it is.
"""

import datetime
import json
import os
import platform
import re
import statistics
import subprocess
import sys

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "Core"))
import growth

MANAGERS = {"openbox": "openbox", "xfwm4": "xfwm4", "kwin_x11": "kwin"}


class Series:
    """Every sample of one measure, keyed by scenario, manager, windows, way and measure."""

    def __init__(self, folder):
        self.samples = {}
        for name in sorted(os.listdir(folder)):
            if not name.endswith(".json") or name.startswith("core"):
                continue
            with open(os.path.join(folder, name), encoding="utf-8") as file:
                for one in json.load(file):
                    key = (one["scenario"], one["manager"], one["windows"], one["way"],
                           one["measure"])
                    self.samples[key] = one["samples"]

    def get(self, *key):
        return self.samples.get(key, [])

    def cases(self, scenario):
        """The managers, in the order of this file, and numbers of windows that were measured."""
        found = {(key[1], key[2]) for key in self.samples if key[0] == scenario}
        return [(manager, windows) for manager in MANAGERS
                for windows in sorted(size for name, size in found if name == manager)]


def number(value):
    if value == 0:
        return "0"
    return f"{value:.0f}" if abs(value) >= 100 else f"{value:.1f}" if abs(value) >= 1 \
        else f"{value:.2f}"


def spread(samples):
    """Median, lowest and highest."""
    if not samples:
        return "never"
    if min(samples) == max(samples):
        return number(samples[0])
    return f"{number(statistics.median(samples))} ({number(min(samples))} to " \
           f"{number(max(samples))})"


def ratio(ours, theirs):
    """The median of the rounds' ratios: what was measured side by side is compared."""
    if not ours or len(ours) != len(theirs):
        return None
    return statistics.median(a / b for a, b in zip(ours, theirs))


def times(value):
    return "" if value is None else f"{value:.2f}" if value < 10 else f"{value:.0f}"


def table(head, rows):
    if not rows:
        return None
    lines = ["| " + " | ".join(head) + " |", "|" + "---|" * len(head)]
    return "\n".join(lines + ["| " + " | ".join(row) + " |" for row in rows])


def restore(series):
    rows = []
    for manager, windows in series.cases("restore"):
        def get(way, measure="frames ms"):
            return series.get("restore", manager, windows, way, measure)
        ours, floor = get("panorel"), get("floor")
        row = [MANAGERS[manager], str(windows), spread(ours), spread(floor),
               times(ratio(ours, floor)), number(statistics.median(ours) / windows)]
        for tool in ("wmctrl", "xdotool"):
            off = get(tool, "off")
            missed = f" in {sum(one > 0 for one in off)} of {len(off)} rounds, " \
                f"{number(statistics.median(off))} windows off" if any(off) else ""
            missed = f"; never{missed}" if missed and get(tool) else missed
            faster = ratio(get(tool), ours)
            row.append(spread(get(tool)) + missed
                       + (f", {times(faster)} times ours" if faster else ""))
        rows.append(row)
    return table(["window manager", "windows", "Panorel, ms", "floor, ms", "ratio",
                  "ms a window", "wmctrl, ms", "xdotool, ms"], rows)


def stacking(series):
    rows = []
    for manager, windows in series.cases("restore"):
        def get(way):
            return series.get("restore", manager, windows, way, "all ms")
        ours, floor = get("panorel"), get("floor")
        wrong = series.get("restore", manager, windows, "panorel", "misstacked")
        rows.append([MANAGERS[manager], str(windows), spread(ours), spread(floor),
                     times(ratio(ours, floor)), f"{int(sum(wrong))} of {len(wrong)}"])
    return table(["window manager", "windows", "Panorel, ms", "floor, ms", "ratio",
                  "rounds with a wrong stacking"], rows)


def traffic(series):
    rows = []
    for manager, windows in series.cases("restore"):
        def both(measure):
            return " / ".join(spread(series.get("restore", manager, windows, way, measure))
                              for way in ("panorel", "floor"))
        work = [spread(series.get("restore", manager, windows, "floor", f"{who}'s processor ms"))
                for who in ("manager", "server")]
        rows.append([MANAGERS[manager], str(windows), both("messages"), both("requests"),
                     both("round trips"), *work])
    return table(["window manager", "windows", "messages, ours / floor", "requests",
                  "round trips", "the manager's work for the floor, ms",
                  "the display server's, ms"], rows)


def settle(series):
    rows = []
    for manager, windows in series.cases("settle"):
        frames, everything = (series.get("settle", manager, windows, "panorel", measure)
                              for measure in ("frames ms", "all ms"))
        # Before the delay is over the program does nothing.
        placed = "by the window manager itself" if max(frames) < 0 else spread(frames)
        rows.append([MANAGERS[manager], str(windows), placed, spread(everything)])
    return table(["window manager", "windows", "last window in place, ms",
                  "stacked as well, ms"], rows)


def learn(series):
    rows = []
    for manager, windows in series.cases("learn"):
        def get(way, measure):
            return series.get("learn", manager, windows, way, measure)
        ours, floor = get("panorel", "pass ms"), get("floor", "pass ms")
        rows.append([MANAGERS[manager], str(windows), spread(ours), spread(floor),
                     times(ratio(ours, floor))]
                    + [f"{spread(get('panorel', one))} / {spread(get('floor', one))}"
                       for one in ("requests", "round trips")]
                    + [spread(get("panorel", "bytes written"))])
    return table(["window manager", "windows", "Panorel, ms", "floor, ms", "ratio",
                  "requests, ours / floor", "round trips", "bytes written"], rows)


def start(series):
    names = {"icon ms": "from the start to the icon in the tray, ms",
             "resident MB": "resident memory, MB",
             "proportional MB": "proportional memory, MB",
             "processor ms a minute": "processor time of an idle minute, ms",
             "wake-ups a minute": "wake-ups of an idle minute"}
    rows = [[text, spread(series.get("start", "openbox", 8, "panorel", measure))]
            for measure, text in names.items()
            if series.get("start", "openbox", 8, "panorel", measure)]
    return table(["", ""], rows)


def core(folder):
    path = os.path.join(folder, "core.json")
    if not os.path.exists(path):
        return None
    with open(path, encoding="utf-8") as file:
        return growth.markdown(json.load(file))


def version(package):
    """Of an installed package, absent where it is not."""
    done = subprocess.run(["dpkg-query", "-W", "-f", "${Version}", package],
                          capture_output=True, text=True, check=False)
    found = re.search(r"\d+(\.\d+)+", done.stdout)
    return found.group(0) if found else None


def machine():
    with open("/proc/cpuinfo", encoding="utf-8") as file:
        model = re.search(r"^model name\s*: (.*)$", file.read(), re.MULTILINE)
    with open("/proc/meminfo", encoding="utf-8") as file:
        memory = int(re.search(r"MemTotal:\s+(\d+)", file.read()).group(1)) / 1024 / 1024
    packages = {"Xorg": "xserver-xorg-core", "openbox": "openbox", "xfwm4": "xfwm4",
                "kwin": "kwin-x11"}
    versions = {name: version(package) for name, package in packages.items()}
    return "\n".join([
        f"{model.group(1) if model else platform.machine()}, {os.cpu_count()} cores, "
        f"{memory:.0f} GB of memory; Linux {platform.release()}; "
        + ", ".join(f"{name} {found}" for name, found in versions.items() if found) + ".",
        f"Measured on {datetime.date.today().isoformat()}."])


def main():
    folder, document = sys.argv[1:3]
    series = Series(folder)
    tables = {"machine": machine(), "restore": restore(series), "stacking": stacking(series),
              "traffic": traffic(series),
              "settle": settle(series), "learn": learn(series), "start": start(series),
              "core": core(folder)}
    with open(document, encoding="utf-8") as file:
        text = file.read()
    for name, lines in tables.items():
        if not lines:
            continue
        pattern = rf"(<!-- {name} -->\n).*?(<!-- /{name} -->)"
        text, count = re.subn(pattern, lambda match: f"{match[1]}\n{lines}\n\n{match[2]}", text,
                              flags=re.DOTALL)
        if not count:
            print(f"\n{name}\n\n{lines}")
    with open(document, "w", encoding="utf-8") as file:
        file.write(text)


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""Prints as Markdown how what was measured grows: growth.py [--check] RESULTS.

RESULTS is what `panorel-bench-core --benchmark_out=RESULTS --benchmark_out_format=json` wrote.
With --check also says what grows faster than it should, and ends with 1 if anything does.
"""

import json
import math
import sys

NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}
# The exponent of n log n, over one decade of sizes like these, and what measuring adds to it.
FASTEST = 1.25
# Too short for its growth to be felt, whatever it is.
UNNOTICEABLE = 2e6
ALONE = ", QJsonDocument alone"


def duration(nanoseconds):
    for unit, size in reversed(NANOSECONDS.items()):
        if nanoseconds >= size or unit == "ns":
            value = nanoseconds / size
            return f"{value:.0f} {unit}" if value >= 100 else f"{value:.3g} {unit}"
    return ""


def table(head, rows):
    lines = ["| " + " | ".join(head) + " |", "|" + "---|" * len(head)]
    return "\n".join(lines + ["| " + " | ".join(row) + " |" for row in rows])


def families(benchmarks):
    """For each name the times in nanoseconds by size: the median where rounds were repeated."""
    found = {}
    for one in benchmarks:
        if one.get("run_type") == "aggregate" and one["aggregate_name"] != "median":
            continue
        parts = one["run_name"].split("/")
        sizes = [part for part in parts if part.isdigit()]
        if len(sizes) != 1 or "real_time" not in one:
            continue
        name = "/".join(parts[:parts.index(sizes[0])])
        time = one["real_time"] * NANOSECONDS[one["time_unit"]]
        found.setdefault(name, {})[int(sizes[0])] = time
    return found


def exponent(times):
    """The slope over the last decade, both ends on logarithmic scales."""
    last = max(times)
    first = max((size for size in times if size * 10 <= last), default=None)
    if first is None:
        return None
    return math.log(times[last] / times[first]) / math.log(last / first)


def growth(found):
    sections = []
    for group in dict.fromkeys(name.split("/")[0] for name in found):
        of_group = {name: times for name, times in found.items() if name.split("/")[0] == group}
        sizes = sorted({size for times in of_group.values() for size in times})
        rows = []
        for name, times in of_group.items():
            slope = exponent(times)
            rows.append([name.split("/", 1)[1]]
                        + [duration(times[size]) if size in times else "" for size in sizes]
                        + ["" if slope is None else f"{slope:.2f}"])
        sections.append(table([group] + [f"{size:,}" for size in sizes] + ["exponent"], rows))
    return "\n\n".join(sections)


def ratios(found):
    """What the project's own coding takes, measured by QJsonDocument's share of it."""
    rows = []
    for name, alone in found.items():
        ours = found.get(name.removesuffix(ALONE))
        if name.endswith(ALONE) and ours:
            rows.append([name.removesuffix(ALONE).split("/", 1)[1]]
                        + [f"{ours[size] / alone[size]:.2f}" for size in sorted(alone)])
    sizes = sorted(next((times for name, times in found.items() if name.endswith(ALONE)), {}))
    head = ["times what QJsonDocument alone takes"] + [f"{size:,} windows" for size in sizes]
    return table(head, rows) if rows else ""


def delays(benchmarks):
    """How long a caller of the log waits."""
    rows = [[one["run_name"].split("/")[1], one["run_name"].split("/")[2],
             f"{one['items_per_second']:,.0f}"]
            + [f"{one[key]:.3g} µs" for key in ("p50_us", "p99_us", "p99.9_us", "max_us")]
            for one in benchmarks if "p50_us" in one and one.get("run_type") != "aggregate"]
    return table(["log", "lines", "lines a second", "median delay", "99 %", "99.9 %", "longest"],
                 rows) if rows else ""


def too_fast(found):
    for name, times in found.items():
        slope = exponent(times)
        if slope is not None and slope > FASTEST and times[max(times)] > UNNOTICEABLE:
            yield f"{name} grows with exponent {slope:.2f}"


def markdown(results):
    """All tables, from what Google Benchmark wrote."""
    found = families(results["benchmarks"])
    parts = [growth(found), ratios(found), delays(results["benchmarks"])]
    return "\n\n".join(part for part in parts if part)


def main():
    arguments = [word for word in sys.argv[1:] if word != "--check"]
    if len(arguments) != 1:
        sys.exit(__doc__)
    with open(arguments[0], encoding="utf-8") as file:
        results = json.load(file)
    print(markdown(results))
    if "--check" in sys.argv:
        complaints = list(too_fast(families(results["benchmarks"])))
        print("", *complaints, sep="\n", file=sys.stderr)
        sys.exit(1 if complaints else 0)


if __name__ == "__main__":
    main()

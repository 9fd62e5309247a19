#!/usr/bin/env python3
"""Makes docs/performance.md and docs/performance.svg of what the benchmarks print (harness.h tells the form).

    report.py folder library file...
"""
import math
import os
import platform
import re
import statistics
import subprocess
import sys

import plot

SETS = ["SSE2", "AVX2", "AVX-512", "NEON"]
PEERS = ["plain loops", "Eigen", "Eigen native", "OpenBLAS", "dpotrf+dpotri", "dpptrf+dpptri"]
WITH_WORK_SPACE = ["MAtB", "SMatrProductAQAt", "SMATRopRt_S_R", "SMATRopABti"]
NOISE = 1.1  # a ratio of two times is not told from 1 below this


class Figures:
    """All times: works[work, size][variant] = (flops, seconds by round)."""

    def __init__(self, paths):
        self.works, self.memory, self.about = {}, {}, {}
        for path in paths:
            with open(path, encoding="utf-8") as lines:
                for line in lines:
                    work, size, variant, flops, seconds = line.rstrip("\n").split("|")
                    if work == "about":
                        self.about[size] = (variant, flops)
                    elif work.startswith("memory of "):
                        self.memory[work[10:], int(size), variant] = int(flops)
                    else:
                        times = [float(s) for s in seconds.split()]
                        self.works.setdefault((work, str(size)), {})[variant] = (float(flops), times)
        self.sets = [s for s in SETS if any("limit " + s in row for row in self.works.values())]
        self.best = self.sets[-1]

    def row(self, work, size):
        return self.works[work, str(size)]

    def seconds(self, work, size, variant):
        return statistics.median(self.row(work, size)[variant][1])

    def ratio(self, work, size, slow, fast):
        """Median over the rounds of the time of one variant by that of another."""
        row = self.row(work, size)
        return statistics.median(x / y for x, y in zip(row[slow][1], row[fast][1]))

    def of_limit(self, work, size, name):
        """Speed by that of the limit of the same instruction set, in per cent."""
        row = self.row(work, size)
        flops, times = row[name]
        limit_flops, limit_times = row["limit " + name]
        return 100 * flops / limit_flops * statistics.median(y / x for x, y in zip(times, limit_times))

    def limit(self, name):
        """Gflop/s, the median over all rounds of all works."""
        return statistics.median(row["limit " + name][0] / t * 1e-9
                                 for row in self.works.values() if "limit " + name in row
                                 for t in row["limit " + name][1])

    def sizes(self, work):
        return [size for name, size in self.works if name == work]


def table(out, head, rows):
    out += ["| " + " | ".join(head) + " |", "|---" * len(head) + "|"]
    out += ["| " + " | ".join(row) + " |" for row in rows] + [""]


def code(work):
    return f"`{work}`" if re.fullmatch(r"\w+", work) else re.sub(r"^RareInversion", "`RareInversion`", work)


def time_of(seconds):
    for unit, factor in (("ns", 1e9), ("µs", 1e6), ("ms", 1e3)):
        if seconds * factor < 1000:
            return f"{seconds * factor:.3g} {unit}"
    return f"{seconds:.3g} s"


def bytes_of(count):
    return "0" if count < 512 else f"{count / 1024:.0f} KB"


# ---- The goals, each with what it compares and what limits it where it is not reached.

PACKING = "packing, loads and stores between the arithmetic"
LIMITS = {
    "products": "from 512 x 512 on the operands come from the second cache level and memory, and each element of the "
                "result is loaded and stored once for every 128 terms",
    "congruence": "the product on the way is formed in stack tiles of 48 lanes and read back; rows that cross the "
                  "diagonal compute lanes that are dropped",
    "operators": "packed operands are copied into stack tiles; where a triangle is asked for, tiles on the diagonal "
                 "compute lanes that are dropped",
    "inversion": "the work inside the diagonal blocks, where each row waits for a root and a division of the row before",
    "inversion peers": "a fused multiplication and addition, which changes bits, does twice the work of the limit; "
                       "inside the diagonal blocks see the row above",
    "sparse": "the account of the nonzeros is kept by blocks, so that zeros inside them are multiplied",
    "small inversion": "each row waits for a root and a division of the row before",
    "order three": "the call through the shared library and through the table of the instruction set; Eigen's is inline",
    "never slower": "the fixed cost of a tile, which the choice by size does not match exactly",
}


class Goal:
    def __init__(self, work, goal, reached, met, why):
        self.work, self.goal, self.reached, self.met, self.why = work, goal, reached, met, why


def of_limit_goal(figures, works, sizes, least, sets, why):
    parts, met = [], True
    for work in works:
        for size in sizes:
            values = [figures.of_limit(work, size, s) for s in sets]
            met = met and all(round(v) >= least for v in values)
            parts.append(f"{'' if len(works) == 1 else code(work) + ' '}{size}: " +
                         " / ".join(f"{v:.0f}" for v in values))
    name = ", ".join(code(w) for w in works) + (f" {', '.join(sizes)}" if len(works) == 1 else "")
    return Goal(name, f"{least} % of the limit ({', '.join(sets)})", "; ".join(parts) + " %", met, why)


def faster_goal(figures, work, size, goals, why, what=None):
    best, parts, met = figures.best, [], True
    for peer, least in goals.items():
        value = figures.ratio(work, size, peer, best)
        met = met and round(value, 2) >= least
        parts.append(f"{peer} {value:.2f}")
    goal = ", ".join(f"{least:g} times {peer}" for peer, least in goals.items())
    return Goal(what or f"{code(work)} n = {size}", goal, ", ".join(parts), met, why)


def slower_shapes(figures):
    """By product: how many shapes, and those slower than the plain loops: (ratio, size, set)."""
    found = {}
    for (work, size), row in figures.works.items():
        if work.startswith("small "):
            count, slow = found.setdefault(work[6:], [0, []])
            found[work[6:]][0] = count + 1
            for name in figures.sets:
                slow.append((figures.ratio(work, size, name, "plain loops"), size, name))
    return {work: (count, sorted(slow, reverse=True)) for work, (count, slow) in found.items()}


def goals_of(figures):
    every, best = figures.sets, [figures.best]
    goals = [of_limit_goal(figures, ["MatrixProduct", "MAtB"], ["100", "300", "1000"], 75, every, "products"),
             of_limit_goal(figures, ["SMatrProductAQAt", "SMATRopRt_S_R"], ["300x100"], 75, best, "congruence"),
             of_limit_goal(figures, ["SMATRopRt_R"], ["300x100", "1000x300"], 70, best, "congruence")]
    family = [w for w, s in figures.works if s == "300" and w.startswith(("SMATR", "MATR"))]
    goals.append(of_limit_goal(figures, family, ["300"], 60, best, "operators"))
    for n, least, times in (("100", 42, 2.1), ("300", 62, 1.9), ("1000", 66, 0.95), ("2000", 65, 0.65)):
        goals.append(of_limit_goal(figures, ["RareInversion"], [n], least, best, "inversion"))
        goals.append(faster_goal(figures, "RareInversion", n, {"dpotrf+dpotri": times, "dpptrf+dpptri": 3.0},
                                 "inversion peers"))
    for work in [w for w, _ in figures.works if w.startswith("RareInversion, ")]:
        goals.append(faster_goal(figures, work, "2000", {"dpotrf+dpotri": 1.7 if "band" in work else 7.5}, "sparse"))
    for n in ("3", "6", "10", "30"):
        goals.append(faster_goal(figures, "RareInversion", n,
                                 {"Eigen": 1.0, "Eigen native": 1.0, "dpotrf+dpotri": 1.0, "dpptrf+dpptri": 1.0},
                                 "small inversion"))
    for work in ("`matr3_3 & covar`", "`matr3_3 * matr3_3`"):
        value = figures.ratio("order three", work, "alidade", "Eigen")
        goals.append(Goal(work, "at most 1.15 times the time of Eigen", f"{value:.2f}", round(value, 2) <= 1.15,
                          "order three"))
    shapes = slower_shapes(figures)
    count = sum(c for c, _ in shapes.values())
    slow = sorted((s for _, worst in shapes.values() for s in worst if s[0] > NOISE), reverse=True)
    reached = f"{count} shapes of {len(shapes)} functions on {len(every)} sets: {len(slow)} slower by more than 10 %"
    goals.append(Goal("every function, 1 to 24 rows, 1, 2, 4 columns", "never slower than the plain loops",
                      reached + (f", the worst {slow[0][0]:.2f} times" if slow else ""), not slow, "never slower"))
    return goals


# ---- The chapters.

def chapter_goals(out, figures):
    goals = goals_of(figures)
    out += ["## Goals", "",
            f"{sum(g.met for g in goals)} of {len(goals)} are met. Percentages are of the limit of the same "
            "instruction set; a number of times is the peer's time by ours.", ""]
    table(out, ["work", "goal", "reached", "met", "what limits it"],
          [[g.work, g.goal, g.reached, "yes" if g.met else "**no**", "" if g.met else LIMITS[g.why]] for g in goals])
    out += ["Machines without vectors of doubles (soft-float ARM) and compilers without vector extensions get the plain "
            "loops when the library is built; these are measured above as one of the variants. "
            "ARM without floating-point unit adds by a routine of the library, see docs/reproducibility.md.", ""]


def chapter_family(out, figures, works):
    peers = [p for p in PEERS if any(p in figures.row(w, s) for w in works for s in figures.sizes(w))]
    rows = []
    for work in works:
        for size in figures.sizes(work):
            row = figures.row(work, size)
            rows.append([code(work), size, time_of(figures.seconds(work, size, figures.best))] +
                        [f"{figures.of_limit(work, size, s):.0f}" for s in figures.sets] +
                        [f"{figures.ratio(work, size, p, figures.best):.2f}" if p in row else "" for p in peers])
    table(out, ["work", "size", "time"] + [f"{s}, % of limit" for s in figures.sets] + peers, rows)


def chapter_direct(out, figures, work, name):
    rows = []
    for size in figures.sizes(work):
        row = figures.row(work, size)
        peers = [v for v in row if v != "alidade"]
        batch = int(re.search(r"\d+", work).group()) if re.search(r"\d+", work) else 64 if work == "order three" else 1
        rows.append([size, time_of(figures.seconds(work, size, "alidade") / batch),
                     ", ".join(f"{p} {figures.ratio(work, size, p, 'alidade'):.2f}" for p in peers)])
    table(out, [name, "time of one call", "times of the peers by ours"], rows)


def chapter_small(out, figures):
    rows = []
    for work, (count, slow) in slower_shapes(figures).items():
        worst = slow[0]
        rows.append([work, str(count), str(sum(s[0] > NOISE for s in slow)), f"{worst[0]:.2f}: {worst[1]}, {worst[2]}"])
    table(out, ["function", "shapes", "slower by more than 10 %", "worst time by that of the plain loops"], rows)
    dispatch = "; ".join(
        f"{size} x {size}: {time_of(figures.seconds('dispatch', size, figures.best))}, the loops alone "
        f"{time_of(figures.seconds('dispatch', size, 'plain loops, called directly'))}"
        for size in figures.sizes("dispatch"))
    out += [f"`MatrixProduct` with the choice of the kernels, beside the plain loops called directly: {dispatch}.", ""]


def exponent(points):
    xs, ys = [math.log(n) for n, _ in points], [math.log(t) for _, t in points]
    mx, my = statistics.mean(xs), statistics.mean(ys)
    return sum((x - mx) * (y - my) for x, y in zip(xs, ys)) / sum((x - mx) ** 2 for x in xs)


def chapter_scaling(out, figures):
    structures = [s for s in dict.fromkeys(work for work, _, _ in figures.memory) if s not in WITH_WORK_SPACE]
    sizes = sorted({n for work, n, _ in figures.memory if work in structures})
    rows = []
    for structure in structures:
        points = [(n, figures.seconds(structure, n, figures.best)) for n in sizes if (structure, n, "heap") in
                  figures.memory]
        times = dict(points)
        rows.append([structure] + [time_of(times[n]) if n in times else "" for n in sizes] +
                    [f"{exponent([p for p in points if p[0] >= 100]):.2f}",
                     f"{exponent([p for p in points if p[0] >= 1000]):.2f}"])
    table(out, ["matrix"] + [str(n) for n in sizes] + ["exponent from 100 on", "from 1000 on"], rows)


def chapter_memory(out, figures, library):
    code = subprocess.run(["size", library], capture_output=True, text=True, check=True).stdout.split("\n")[1].split()[0]
    out += [f"The stripped shared library has {os.path.getsize(library):,} bytes, of which {int(code):,} are code and "
            "constants.", ""]
    works = [*WITH_WORK_SPACE, "dense"]
    sizes = sorted({n for work, n, _ in figures.memory if work in works})
    rows = []
    for work in works:
        for kind in ("heap", "stack"):
            name = "`RareInversion`, dense" if work == "dense" else f"`{work}`, n x n"
            cells = [figures.memory.get((work, n, kind)) for n in sizes]
            rows.append([f"{name}: {kind}"] + ["" if c is None else bytes_of(c) for c in cells])
    table(out, ["one call"] + [str(n) for n in sizes], rows)


def machine():
    try:
        with open("/proc/cpuinfo", encoding="utf-8") as lines:
            cpu = next(line.split(":")[1].strip() for line in lines if line.startswith("model name"))
    except (OSError, StopIteration):
        cpu = "unknown"
    compiler = subprocess.run(["c++", "--version"], capture_output=True, text=True, check=False).stdout.split("\n")[0]
    return f"{cpu} ({platform.machine()})", compiler


def main():
    folder, library, figures = sys.argv[1], sys.argv[2], Figures(sys.argv[3:])
    cpu, compiler = machine()
    core, config = figures.about["OpenBLAS"]
    out = ["# Performance", "",
           "Written by `scripts/bench`. All variants of a work take turns in one run; a ratio is the median of the ratios "
           "within a round, in processor time of one thread. Compare ratios: times belong to one machine on one day. The "
           "benchmark itself sees that every instruction set gives the bits of the plain loops, and every peer the same "
           "numbers but for rounding.", "",
           f"- Processor: {cpu}; compiler: {compiler}",
           "- Flags: `-O3 -ffp-contract=off`, and for one source each `-msse2`; `-mavx2 -mno-fma`; `-mavx512f -mavx512dq "
           "-mavx512vl -mprefer-vector-width=512`",
           f"- Peers: Eigen with `-O3` and with `-O3 -march=native`; {config.strip()}, one thread, kernels of {core}; "
           "`dpotrf+dpotri` and `dpptrf+dpptri` are OpenBLAS's, on dense and on packed storage",
           "- Limit, multiplications and additions of doubles in registers alone, rounded separately: " +
           ", ".join(f"{s} {figures.limit(s):.1f}" for s in figures.sets) + " Gflop/s", "",
           "A peer may fuse a multiplication with an addition, which changes bits and halves the work: a perfect fused "
           "product is twice the limit. In the columns of the plain loops and of the peers stand their times by that of "
           f"the library's own choice here, {figures.best}: above 1 the library is faster.", "",
           "![Speed over n](performance.svg)", ""]
    chapter_goals(out, figures)
    out += ["## Products", ""]
    chapter_family(out, figures, ["MatrixProduct", "MAtB"])
    out += ["## Congruences and the operator family", "",
            "Eigen and OpenBLAS work on dense storage, the library on packed symmetric operands and results. OpenBLAS has "
            "no product of which only one triangle is formed, and Eigen none of the sum of two products.", ""]
    chapter_family(out, figures, list(dict.fromkeys(
        w for w, _ in figures.works if w.startswith(("SMatrProductAQAt", "SMATR", "MATR")))))
    out += ["## Inversion", "",
            "Flops are counted as n³ whatever the structure, so that a sparse matrix can pass the limit.", ""]
    chapter_family(out, figures, list(dict.fromkeys(w for w, _ in figures.works if w.startswith("RareInversion"))))
    out += ["## Growth with the order", "",
            "`RareInversion` on the library's own choice.", ""]
    chapter_scaling(out, figures)
    out += ["## Code, stack and heap", "",
            "What a call takes beside its operands. No public function takes more than 16 KB of stack; a test runs them all in "
            "threads of 32 KB. A product that gets no heap goes on with a smaller panel on the stack.", ""]
    chapter_memory(out, figures, library)
    out += ["## Small and thin shapes", "",
            "Every function on n x n with n from 1 to 24, and on n x 1, n x 2, n x 4 and so on up to n = 300, on every "
            "instruction set beside the plain loops.", ""]
    chapter_small(out, figures)
    out += ["## Order three", "", "Called through the shared library; Eigen's fixed sizes are inline, with `-O3`.", ""]
    chapter_direct(out, figures, "order three", "operation")
    out += ["## Conversions", "",
            "`relatCoord` gives north, east, up and the polar form from two geocentric positions. GeographicLib's side takes "
            "the target's geodetic position as given; PROJ's frame belongs to one station and is prepared beforehand, "
            "without the polar form.", ""]
    chapter_direct(out, figures, "conversions, 256 points", "function")
    out += ["## Quantiles", "",
            "Boost.Math computes the chi-square quantile to the last digits, the library reads a table or takes Wilson and "
            "Hilferty's approximation. For tau both are exact to 1e-8.", ""]
    chapter_direct(out, figures, "quantiles", "function")
    with open(os.path.join(os.path.dirname(os.path.abspath(__file__)), "notes.md"), encoding="utf-8") as notes:
        out.append(notes.read())
    with open(os.path.join(folder, "performance.md"), "w", encoding="utf-8") as file:
        file.write("\n".join(out).rstrip() + "\n")
    with open(os.path.join(folder, "performance.svg"), "w", encoding="utf-8") as file:
        file.write(plot.speeds_over_n(figures, [("MatrixProduct", "Product n x n"), ("RareInversion", "Inversion, dense")]))


main()

#!/usr/bin/env python3
"""Makes docs/performance.md and docs/performance.svg of the lines that kernels_benchmark prints."""
import csv
import math
import os
import platform
import subprocess
import sys

SETS = ["SSE2", "AVX2", "AVX-512", "NEON"]
COLOURS = {"SSE2": "#9ecae1", "AVX2": "#4292c6", "AVX-512": "#08306b", "NEON": "#08306b", "plain loops": "#999999",
           "Eigen": "#fdae6b", "Eigen native": "#e6550d", "OpenBLAS": "#31a354", "dpotrf+dpotri": "#31a354",
           "dpptrf+dpptri": "#a1d99b"}


def read(path):
    limits, figures, core, config = {}, {}, "", ""
    with open(path, newline="") as lines:
        for work, *rest in csv.reader(lines):
            if work == "core":
                core = rest[0]
            elif work == "config":
                config = rest[0]
            elif work == "limit":
                limits[rest[1]] = max(float(rest[3]), limits.get(rest[1], 0.0))
            else:
                size, variant, micros, speed = rest[-4:]
                name = ",".join([work] + rest[:-4])
                figures.setdefault((name, size), {})[variant] = (float(micros), float(speed))
    return limits, figures, core, config


def best_of(row):
    return [s for s in SETS if s in row][-1]


def table(out, head, rows):
    out.append("| " + " | ".join(head) + " |")
    out.append("|---" * len(head) + "|")
    out.extend("| " + " | ".join(row) + " |" for row in rows)
    out.append("")


def percent(row, name, limits):
    return f"{100 * row[name][1] / limits[name]:.0f}" if name in row else ""


def ratio(row, peer, ours):
    return f"{row[peer][0] / row[ours][0]:.2f}" if peer in row else ""


def time_of(micros):
    return f"{micros:.3g} µs" if micros < 1000 else f"{micros / 1000:.3g} ms" if micros < 1e6 else f"{micros / 1e6:.3g} s"


def family(out, figures, limits, works, peers):
    sets = [s for s in SETS if s in limits]
    rows = []
    for (work, size), row in figures.items():
        if work in works:
            best = best_of(row)
            rows.append([f"`{work}`" if "," not in work else work, size, time_of(row[best][0])] +
                        [percent(row, s, limits) for s in sets] + [ratio(row, p, best) for p in ["plain loops"] + peers])
    table(out, ["work", "size", "time"] + [f"{s}, % of limit" for s in sets] + ["plain loops"] + peers, rows)


def plot(path, figures, limits):
    panels = [("MatrixProduct", "Product, n x n by n x n"), ("RareInversion", "Inversion, dense")]
    width, height, left, top, w, h = 980, 430, 60, 50, 390, 280
    svg = [f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width} {height}" font-family="sans-serif" '
           f'font-size="12"><rect width="{width}" height="{height}" fill="white"/>']
    for index, (work, title) in enumerate(panels):
        x0 = left + index * (w + 90)
        rows = [(int(size), row) for (name, size), row in figures.items() if name == work and size.isdigit()]
        top_speed = 1.1 * max([speed for _, row in rows for _, speed in row.values()] + list(limits.values()))
        low, high = math.log(min(n for n, _ in rows)), math.log(max(n for n, _ in rows))
        px = lambda n: x0 + w * (math.log(n) - low) / (high - low)
        py = lambda s: top + h - h * s / top_speed
        svg.append(f'<text x="{x0}" y="{top - 22}" font-size="15">{title}: Gflop/s over n</text>')
        svg.append(f'<rect x="{x0}" y="{top}" width="{w}" height="{h}" fill="none" stroke="#666"/>')
        for n, _ in rows:
            svg.append(f'<text x="{px(n):.0f}" y="{top + h + 16}" text-anchor="middle">{n}</text>')
        for tick in range(0, int(top_speed) + 1, 10):
            svg.append(f'<text x="{x0 - 6}" y="{py(tick) + 4:.0f}" text-anchor="end">{tick}</text>'
                       f'<line x1="{x0}" x2="{x0 + w}" y1="{py(tick):.0f}" y2="{py(tick):.0f}" stroke="#eee"/>')
        for name, speed in limits.items():
            svg.append(f'<line x1="{x0}" x2="{x0 + w}" y1="{py(speed):.1f}" y2="{py(speed):.1f}" '
                       f'stroke="{COLOURS[name]}" stroke-dasharray="5 4"/>')
        names = list(dict.fromkeys(v for _, row in rows for v in row))
        for k, name in enumerate(names):
            points = " ".join(f"{px(n):.1f},{py(row[name][1]):.1f}" for n, row in rows if name in row)
            svg.append(f'<polyline points="{points}" fill="none" stroke="{COLOURS[name]}" stroke-width="2"/>')
            y = top + h + 40 + 18 * (k // 3)
            x = x0 + 135 * (k % 3)
            svg.append(f'<line x1="{x}" x2="{x + 22}" y1="{y - 4}" y2="{y - 4}" stroke="{COLOURS[name]}" '
                       f'stroke-width="3"/><text x="{x + 28}" y="{y}">{name}</text>')
    svg.append(f'<text x="{left}" y="{height - 8}">Dashed: what multiplications and additions in registers alone '
               'reach. Peers may fuse them.</text></svg>')
    with open(path, "w") as file:
        file.write("\n".join(svg) + "\n")


def exponent(points):
    xs, ys = [math.log(n) for n, _ in points], [math.log(t) for _, t in points]
    mx, my = sum(xs) / len(xs), sum(ys) / len(ys)
    return sum((x - mx) * (y - my) for x, y in zip(xs, ys)) / sum((x - mx) ** 2 for x in xs)


def main():
    limits, figures, core, config = read(sys.argv[1])
    folder = sys.argv[2]
    cpu = next((l.split(":")[1].strip() for l in open("/proc/cpuinfo") if l.startswith("model name")), "unknown")
    compiler = subprocess.run(["c++", "--version"], capture_output=True, text=True, check=False).stdout.split("\n")[0]
    out = ["# Performance", "",
           "Written by `scripts/bench`. Processor time of one core; every figure is the median over rounds in which all "
           "variants of a work take turns. Compare ratios: the times belong to one machine on one day. All instruction "
           "sets give the same bits as the plain loops, which `kernels_test` checks.", "",
           f"- Processor: {cpu} ({platform.machine()}), compiler: {compiler}, flags: `-O3 -ffp-contract=off` and per "
           "source `-msse2`, `-mavx2`, `-mavx512f -mavx512dq -mavx512vl -mprefer-vector-width=512`",
           f"- Eigen: `-O3`, and `-O3 -march=native`; {config.strip()}, running its kernels for {core}",
           "- Limit, separate multiplications and additions in registers alone: " +
           ", ".join(f"{name} {speed:.1f}" for name, speed in limits.items()) + " Gflop/s", "",
           "The peers may fuse a multiplication with an addition, which changes bits and halves the work: a perfect "
           "fused product is twice the limit. `plain loops` and the columns right of it are times relative to the best "
           "instruction set here; above 1 the library is faster.", "", "![Speed over n](performance.svg)", "",
           "## Products", ""]
    family(out, figures, limits, ["MatrixProduct", "MAtB"], ["Eigen", "Eigen native", "OpenBLAS"])
    out += ["## Congruences and the operator family", ""]
    works = dict.fromkeys(w for w, _ in figures if w.startswith(("SMatrProductAQAt", "SMATR", "MATR")))
    family(out, figures, limits, works, [])
    out += ["## Inversion", "", "Flops are counted as n³ for every structure, so a sparse matrix can pass the limit. "
            "`dpotrf+dpotri` and `dpptrf+dpptri` are OpenBLAS's, on dense and on packed storage.", ""]
    works = dict.fromkeys(w for w, _ in figures if w.startswith("RareInversion"))
    family(out, figures, limits, works, ["dpotrf+dpotri", "dpptrf+dpptri", "Eigen native"])
    out += ["## Scaling", "", "`RareInversion` on the best instruction set. Beside the matrix a call needs "
            "n doubles on the heap above n = 256 and about 100 KB of stack; the plain loops, which serve small and "
            "unusual matrices, 16 bytes for each row.", ""]
    shapes = dict.fromkeys(w for w, _ in figures if w.startswith("scaling"))
    rows = []
    for shape in shapes:
        points = [(int(s), r[best_of(r)][0]) for (w, s), r in figures.items() if w == shape]
        rows.append([shape[8:]] + [time_of(t) for _, t in points] + [f"{exponent(points):.2f}"])
    sizes = [s for (w, s) in figures if w == next(iter(shapes))]
    table(out, ["matrix"] + [f"n = {s}" for s in sizes] + ["exponent"], rows)
    with open(os.path.join(os.path.dirname(os.path.abspath(__file__)), "notes.md")) as notes:
        out.append(notes.read())
    with open(os.path.join(folder, "performance.md"), "w") as file:
        file.write("\n".join(out).rstrip() + "\n")
    plot(os.path.join(folder, "performance.svg"), figures, limits)


main()

"""Draws speeds over the order n as SVG."""
import math
import statistics

COLOURS = {"SSE2": "#74a9cf", "AVX2": "#2b8cbe", "AVX-512": "#023858", "NEON": "#023858", "plain loops": "#969696",
           "Eigen": "#fdae6b", "Eigen native": "#e6550d", "OpenBLAS": "#31a354", "dpotrf+dpotri": "#31a354",
           "dpptrf+dpptri": "#a1d99b"}
WIDTH, HEIGHT, LEFT, TOP, PANEL_WIDTH, PANEL_HEIGHT = 1000, 470, 60, 56, 410, 290


def nice_step(top):
    step = 10 ** math.floor(math.log10(top))
    return next(step * f for f in (0.1, 0.2, 0.25, 0.5, 1) if top / (step * f) <= 10)


def panel(svg, figures, x0, work, title):
    sizes = [s for s in figures.sizes(work) if s.isdigit()]
    orders = [int(s) for s in sizes]
    speeds = {}
    for size in sizes:
        for variant, (flops, times) in figures.row(work, size).items():
            if not variant.startswith("limit "):
                speeds.setdefault(variant, []).append((int(size), flops / statistics.median(times) * 1e-9))
    limits = {name: figures.limit(name) for name in figures.sets}
    top = 1.05 * max([s for points in speeds.values() for _, s in points] + list(limits.values()))
    low, high = math.log(orders[0]), math.log(orders[-1])

    def px(n):
        return x0 + PANEL_WIDTH * (math.log(n) - low) / (high - low)

    def py(speed):
        return TOP + PANEL_HEIGHT * (1 - speed / top)

    svg.append(f'<text x="{x0}" y="{TOP - 14}" font-size="16">{title}: Gflop/s over n</text>')
    step, tick = nice_step(top), 0.0
    while tick <= top:
        svg.append(f'<line x1="{x0}" x2="{x0 + PANEL_WIDTH}" y1="{py(tick):.1f}" y2="{py(tick):.1f}" stroke="#e5e5e5"/>'
                   f'<text x="{x0 - 6}" y="{py(tick) + 4:.1f}" text-anchor="end">{tick:g}</text>')
        tick += step
    for n in orders:
        svg.append(f'<line x1="{px(n):.1f}" x2="{px(n):.1f}" y1="{TOP + PANEL_HEIGHT}" y2="{TOP + PANEL_HEIGHT + 4}" '
                   f'stroke="#666"/><text x="{px(n):.1f}" y="{TOP + PANEL_HEIGHT + 17}" text-anchor="middle">{n}</text>')
    for name, limit in limits.items():
        svg.append(f'<line x1="{x0}" x2="{x0 + PANEL_WIDTH}" y1="{py(limit):.1f}" y2="{py(limit):.1f}" '
                   f'stroke="{COLOURS[name]}" stroke-width="1.5" stroke-dasharray="6 5"/>'
                   f'<text x="{x0 + 4}" y="{py(limit) - 4:.1f}" font-size="11" fill="{COLOURS[name]}">limit {name}</text>')
    svg.append(f'<rect x="{x0}" y="{TOP}" width="{PANEL_WIDTH}" height="{PANEL_HEIGHT}" fill="none" stroke="#666"/>')
    for k, (name, points) in enumerate(speeds.items()):
        colour = COLOURS[name]
        line = " ".join(f"{px(n):.1f},{py(s):.1f}" for n, s in points)
        svg.append(f'<polyline points="{line}" fill="none" stroke="{colour}" stroke-width="2"/>')
        svg.extend(f'<circle cx="{px(n):.1f}" cy="{py(s):.1f}" r="2.6" fill="{colour}"/>' for n, s in points)
        x, y = x0 + 140 * (k % 3), TOP + PANEL_HEIGHT + 44 + 20 * (k // 3)
        svg.append(f'<line x1="{x}" x2="{x + 24}" y1="{y - 4}" y2="{y - 4}" stroke="{colour}" stroke-width="3"/>'
                   f'<text x="{x + 30}" y="{y}">{name}</text>')


def speeds_over_n(figures, panels):
    svg = [f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {WIDTH} {HEIGHT}" font-family="sans-serif" '
           f'font-size="12"><rect width="{WIDTH}" height="{HEIGHT}" fill="white"/>']
    for k, (work, title) in enumerate(panels):
        panel(svg, figures, LEFT + k * (PANEL_WIDTH + 80), work, title)
    svg.append(f'<text x="{LEFT}" y="{HEIGHT - 10}">Dashed: multiplications and additions in registers alone, rounded '
               'separately. The peers may fuse them.</text></svg>')
    return "\n".join(svg) + "\n"

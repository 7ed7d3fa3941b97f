#!/usr/bin/env python3
"""Turns the JSON of the benchmark programs into the comparison table (printed, and written as
Markdown), bench.csv and an SVG chart. Standard library only.

Usage: report.py RAW_DIR OUT_DIR [cpu|real]
RAW_DIR holds <program>-<rows>.json as Google Benchmark writes them with --benchmark_out.
"""

import csv
import glob
import json
import math
import os
import re
import sys

PROGRAMS = [("bench_kwgrid", "kwPropertyControl"), ("bench_qtform", "Qt form"),
            ("bench_wxpropgrid", "wxPropertyGrid")]
OURS, PEERS = PROGRAMS[0][0], [p for p, _ in PROGRAMS[1:]]
OPERATIONS = [
    ("build", "build from definition", "ms"),
    ("layout", "full layout", "ms"),
    ("set_by_name", "set every value by name", "ms"),
    ("read_all", "read every value", "ms"),
    ("save", "save all values", "ms"),
    ("restore", "restore all values", "ms"),
    ("scroll_step", "one scroll step", "ms"),
    ("memory", "memory per row", "KiB"),
]
UNIT_TO_MS = {"ns": 1e-6, "us": 1e-3, "ms": 1.0, "s": 1e3}
# 100,000 rows may take about ten times what 10,000 take; past this factor a figure is flagged.
# BENCH_STRICT=1 makes such a figure of kwPropertyControl fail the run.
LINEAR_LIMIT = 12.0


def load(raw_dir, clock):
    """{(program, operation, rows): figure} and the wall and CPU times for the CSV."""
    figures, detail = {}, {}
    for path in sorted(glob.glob(os.path.join(raw_dir, "*.json"))):
        program = re.sub(r"-\d+\.json$", "", os.path.basename(path))
        data = read_json(path)
        for b in data.get("benchmarks", []):
            if b.get("error_occurred"):
                print(f"{program} {b['name']}: {b.get('error_message')}", file=sys.stderr)
                continue
            operation, rows = b["name"].split("/")[:2]
            rows = int(rows)
            scale = UNIT_TO_MS[b.get("time_unit", "ns")]
            real, cpu = b["real_time"] * scale, b["cpu_time"] * scale
            if operation == "memory":
                figures[(program, operation, rows)] = b["bytes_per_row"] / 1024.0
            else:
                figures[(program, operation, rows)] = cpu if clock == "cpu" else real
            detail[(program, operation, rows)] = (real, cpu, b.get("bytes_per_row"),
                                                  b.get("iterations"))
    return figures, detail


def read_json(path):
    """The results of a run, also of one that was stopped before it closed its file: each
    benchmark is written whole as it finishes, so the list is closed after the last one."""
    with open(path, encoding="utf-8") as f:
        text = f.read()
    try:
        return json.loads(text)
    except json.JSONDecodeError:
        end = text.rfind("}")
        for candidate in (text[:end + 1] + "]}", text[:end + 1] + "}]}"):
            try:
                return json.loads(candidate)
            except json.JSONDecodeError:
                continue
    return {}


def fmt(value):
    if value is None:
        return "-"
    if value >= 100:
        return f"{value:,.0f}"
    if value >= 10:
        return f"{value:.1f}"
    return f"{value:.3g}"


def ratio(ours, peer):
    if ours is None or peer is None or peer == 0:
        return "-"
    return f"{ours / peer:.2f}x"


def growth_flags(figures, rows_list, small, large):
    """Figures of any program that grow faster than linearly from one row count to another."""
    flags = []
    for program, name in PROGRAMS:
        for op, label, _ in OPERATIONS:
            a, b = figures.get((program, op, small)), figures.get((program, op, large))
            if not a or not b:
                continue
            factor = b / a
            if op == "memory":
                if factor > 1.5:
                    flags.append(f"{name}: {label} {fmt(a)} -> {fmt(b)} KiB per row")
            elif factor > LINEAR_LIMIT * large / small / 10:
                flags.append(f"{name}: {label} x{factor:.1f} (linear would be x{large / small:.0f})")
    return flags


def growth_text(figures, rows_list):
    text = ""
    steps = list(zip(rows_list, rows_list[1:]))
    for small, large in reversed(steps):
        flags = growth_flags(figures, rows_list, small, large)
        text += f"\nGrowth faster than linear from {small:,} to {large:,} rows: "
        text += "none.\n" if not flags else "\n" + "\n".join(f"- {f}" for f in flags) + "\n"
    if len(steps) > 1:
        text += ("\nBelow 10,000 rows a sub-millisecond operation also grows with the grid's "
                 "data outgrowing the processor's caches, so the largest step is the check.\n")
    missing = [f"{name} at {rows:,} rows" for program, name in PROGRAMS for rows in rows_list
               if not any((program, op, rows) in figures for op, _, _ in OPERATIONS)]
    if missing:
        text += "\nNo figures for " + ", ".join(missing) + " (see the note below).\n"
    return text


def table(figures, rows_list, clock):
    head = ["operation", "rows"] + [name for _, name in PROGRAMS] + \
        [f"ours / {name}" for _, name in PROGRAMS[1:]]
    lines = ["| " + " | ".join(head) + " |", "|" + "---|" * len(head)]
    for op, label, unit in OPERATIONS:
        for rows in rows_list:
            values = [figures.get((p, op, rows)) for p, _ in PROGRAMS]
            cells = [f"{label} ({unit})", f"{rows:,}"] + [fmt(v) for v in values] + \
                [ratio(values[0], v) for v in values[1:]]
            lines.append("| " + " | ".join(cells) + " |")
    note = ("Times are the benchmark process's CPU time in milliseconds per operation on the "
            "whole grid" if clock == "cpu" else
            "Times are wall-clock milliseconds per operation on the whole grid")
    return "\n".join(lines) + f"\n\n{note}; memory is resident growth per row. " \
        "A ratio below 1 means kwPropertyControl is faster or smaller.\n"


def write_csv(path, figures, detail, rows_list):
    with open(path, "w", newline="", encoding="utf-8") as f:
        out = csv.writer(f)
        out.writerow(["program", "operation", "rows", "figure", "unit", "real_ms", "cpu_ms",
                      "iterations", "ratio_to_qtform", "ratio_to_wxpropgrid"])
        for program, _ in PROGRAMS:
            for op, _, unit in OPERATIONS:
                for rows in rows_list:
                    value = figures.get((program, op, rows))
                    if value is None:
                        continue
                    real, cpu, _, iterations = detail[(program, op, rows)]
                    ratios = []
                    for peer in PEERS:
                        peer_value = figures.get((peer, op, rows))
                        ratios.append(f"{value / peer_value:.4g}" if peer_value else "")
                    out.writerow([program, op, rows, f"{value:.6g}", unit, f"{real:.6g}",
                                  f"{cpu:.6g}", iterations] + ratios)


def svg_chart(path, figures, rows_list, title):
    """Small multiples: one log-log panel per operation, a line per program, and a grey line of
    slope one through kwPropertyControl's smallest figure to show what linear growth looks like."""
    colours = {"bench_kwgrid": "#1f6fb4", "bench_qtform": "#e07b00", "bench_wxpropgrid": "#2a9d3a"}
    cols, pw, ph, margin = 4, 260, 200, 50
    rows_n = math.ceil(len(OPERATIONS) / cols)
    width, height = cols * pw + 20, rows_n * ph + 90
    out = [f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" '
           f'font-family="DejaVu Sans, sans-serif" font-size="11">',
           f'<rect width="{width}" height="{height}" fill="white"/>',
           f'<text x="10" y="20" font-size="14" font-weight="bold">{esc(title)}</text>']
    for i, (program, name) in enumerate(PROGRAMS):
        x = 10 + i * 190
        out.append(f'<line x1="{x}" y1="38" x2="{x + 24}" y2="38" stroke="{colours[program]}" '
                   f'stroke-width="2.5"/><text x="{x + 30}" y="42">{esc(name)}</text>')
    out.append(f'<line x1="{10 + 3 * 190}" y1="38" x2="{10 + 3 * 190 + 24}" y2="38" '
               f'stroke="#aaa" stroke-dasharray="4 3"/><text x="{10 + 3 * 190 + 30}" y="42">'
               f'linear growth</text>')
    lx0, lx1 = math.log10(rows_list[0]), math.log10(rows_list[-1]) if len(rows_list) > 1 else 1
    for k, (op, label, unit) in enumerate(OPERATIONS):
        ox, oy = 10 + (k % cols) * pw, 60 + (k // cols) * ph
        left, top, right, bottom = ox + margin, oy + 22, ox + pw - 12, oy + ph - 30
        values = [figures.get((p, op, n)) for p, _ in PROGRAMS for n in rows_list]
        values = [v for v in values if v and v > 0]
        out.append(f'<text x="{ox + margin}" y="{oy + 14}" font-weight="bold">'
                   f'{esc(label)} ({unit})</text>')
        out.append(f'<rect x="{left}" y="{top}" width="{right - left}" height="{bottom - top}" '
                   f'fill="none" stroke="#ccc"/>')
        if not values:
            continue
        lo, hi = math.floor(math.log10(min(values))), math.ceil(math.log10(max(values)))
        if hi == lo:
            hi += 1

        def px(n):
            return left + (right - left) * ((math.log10(n) - lx0) / ((lx1 - lx0) or 1))

        def py(v):
            return bottom - (bottom - top) * ((math.log10(v) - lo) / (hi - lo))

        for e in range(lo, hi + 1):
            y = py(10 ** e)
            out.append(f'<line x1="{left}" y1="{y:.1f}" x2="{right}" y2="{y:.1f}" '
                       f'stroke="#eee"/><text x="{left - 4}" y="{y + 4:.1f}" '
                       f'text-anchor="end">{esc(tick(10 ** e))}</text>')
        for n in rows_list:
            out.append(f'<text x="{px(n):.1f}" y="{bottom + 14}" text-anchor="middle">'
                       f'{n:,}</text>')
        first = figures.get((OURS, op, rows_list[0]))
        if first and op != "memory":
            clip = [(n, first * n / rows_list[0]) for n in rows_list]
            clip = [(n, v) for n, v in clip if 10 ** lo <= v <= 10 ** hi]
            if len(clip) > 1:
                out.append(polyline(clip, px, py, "#aaa", 'stroke-dasharray="4 3"'))
        for program, _ in PROGRAMS:
            points = [(n, figures.get((program, op, n))) for n in rows_list]
            points = [(n, v) for n, v in points if v and v > 0]
            if points:
                out.append(polyline(points, px, py, colours[program], 'stroke-width="2.5"'))
                for n, v in points:
                    out.append(f'<circle cx="{px(n):.1f}" cy="{py(v):.1f}" r="3" '
                               f'fill="{colours[program]}"/>')
    out.append(f'<text x="10" y="{height - 10}" fill="#555">rows (log scale) across, '
               f'figure (log scale) up</text></svg>')
    with open(path, "w", encoding="utf-8") as f:
        f.write("\n".join(out) + "\n")


def polyline(points, px, py, colour, extra):
    coords = " ".join(f"{px(n):.1f},{py(v):.1f}" for n, v in points)
    return f'<polyline points="{coords}" fill="none" stroke="{colour}" {extra}/>'


def tick(value):
    if value >= 1:
        return f"{value:,.0f}"
    return f"{value:g}"


def esc(text):
    return text.replace("&", "&amp;").replace("<", "&lt;").replace(">", "&gt;")


def main():
    raw_dir, out_dir = sys.argv[1], sys.argv[2]
    clock = sys.argv[3] if len(sys.argv) > 3 else "cpu"
    figures, detail = load(raw_dir, clock)
    if not figures:
        sys.exit(f"no benchmark results in {raw_dir}")
    rows_list = sorted({rows for _, _, rows in figures})
    os.makedirs(out_dir, exist_ok=True)
    text = table(figures, rows_list, clock)
    text += growth_text(figures, rows_list)
    print(text)
    with open(os.path.join(out_dir, "bench.md"), "w", encoding="utf-8") as f:
        f.write(text)
    write_csv(os.path.join(out_dir, "bench.csv"), figures, detail, rows_list)
    svg_chart(os.path.join(out_dir, "bench.svg"), figures, rows_list,
              "kwPropertyControl against wxPropertyGrid and a plain Qt form"
              + (" (CPU time)" if clock == "cpu" else " (wall time)"))
    flagged = growth_flags(figures, rows_list, rows_list[-2], rows_list[-1]) \
        if len(rows_list) > 1 else []
    ours_flagged = [f for f in flagged if f.startswith(PROGRAMS[0][1])]
    sys.exit(1 if ours_flagged and os.environ.get("BENCH_STRICT") == "1" else 0)


if __name__ == "__main__":
    main()

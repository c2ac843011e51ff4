#!/usr/bin/env python3
"""Turns qtzq-bench's JSON output into the tables of BENCHMARKS.md.

    bench/report.py RESULTS.json [-o BENCHMARKS.md]

Every row is the median of the run's repetitions. Throughput is megapixels
per second of the bench photo; "x memcpy" is how many copies of the photo
fit in the time of one pass; "x OpenCV" compares with the OpenCV benchmark
named as the row's anchor, when the run had one. "scratch" is the peak extra
memory of one call, in images of the photo's size. "speed-up" stands on the
row of every case X that has a twin X/scalar (the same pass with the vector
kernels and fast paths off): time(X/scalar) / time(X).
"""

import argparse
import json
import sys

# Families in report order: name prefix, heading, one line of explanation.
FAMILIES = [
    ("baseline/", "Baselines",
     "A copy of the photo (the one-pass limit of this machine) and a plain "
     "scalar pass through three byte tables."),
    ("effect/", "Effects through the facade",
     "Every effect id, with the generated default materials and blend table set."),
    ("blend/", "Blend modes",
     "One call of the single-pixel blend per pixel, with a layer of the photo's size, opacity 0.7."),
    ("colour/", "Colour-space round trips",
     "Every pixel converted to the space and back through the single-colour conversions."),
    ("tone/", "Tone and saturation", ""),
    ("levels/", "Colour balance and automatic levels", ""),
    ("curve/", "Tone curves", "Five-point S curve drawn and applied to blue, green and red."),
    ("blur/", "Blur and sharpening",
     "Radii in pixels; the recursive Gaussian and the blur brush cost the same at every radius."),
    ("file/", "Photo files",
     "Decoding the bytes of a file of the photo, and writing one, per format "
     "(PNG at the default level 1 and at 6, JPEG and lossy WebP at quality 92)."),
    ("opencv/", "OpenCV anchors",
     "The same photo through OpenCV, single-threaded, as a reference."),
]

SCRATCH_LIMIT = 1.0  # images: a preset should not need more than one extra
SCALAR_TWIN = "/scalar"  # suffix of a case's twin on the scalar reference path


def load_medians(path):
    with open(path, encoding="utf-8") as f:
        data = json.load(f)
    rows = {}
    for bench in data["benchmarks"]:
        if bench.get("aggregate_name", "median") != "median":
            continue
        name = bench.get("run_name", bench["name"])
        if name.endswith("/real_time"):  # every benchmark of the suite times wall time
            name = name[:-len("/real_time")]
        rows[name] = bench
    return data["context"], rows


def milliseconds(bench):
    scale = {"ns": 1e-6, "us": 1e-3, "ms": 1.0, "s": 1e3}[bench.get("time_unit", "ns")]
    return bench["real_time"] * scale


def ratio(x):
    """Two significant figures or so, without scientific notation."""
    if x >= 10:
        return "{:.0f}".format(x)
    return "{:.1f}".format(x) if x >= 1 else "{:.2f}".format(x)


def speed_up(rows, name):
    """time(NAME/scalar) / time(NAME) when NAME has a scalar twin, else None."""
    twin = rows.get(name + SCALAR_TWIN)
    ms = milliseconds(rows[name])
    return milliseconds(twin) / ms if twin and ms > 0 else None


def anchor_of(bench):
    label = bench.get("label", "")
    return label[len("anchor="):] if label.startswith("anchor=") else ""


def machine_section(context):
    caches = ", ".join(
        "L{} {} {} KiB".format(c["level"], c["type"].lower(), c["size"] // 1024)
        for c in context.get("caches", []))
    width, height = context.get("image_width", "?"), context.get("image_height", "?")
    lines = [
        "| | |",
        "|---|---|",
        "| CPU | {} |".format(context.get("cpu_model", "unknown")),
        "| cores | {} at {} MHz |".format(context.get("num_cpus", "?"), context.get("mhz_per_cpu", "?")),
        "| caches | {} |".format(caches or "unknown"),
        "| compiler | {} |".format(context.get("compiler", "unknown")),
        "| build type | {} |".format(context.get("build_type", "unknown")),
        "| OpenCV | {} |".format(context.get("opencv", "not built in")),
        "| photo | {} x {} ({}) |".format(width, height, context.get("photo", "?")),
        "| date | {} |".format(context.get("date", "?")),
        "| load average at start | {} |".format(
            ", ".join("{:.2f}".format(x) for x in context.get("load_avg", [])) or "?"),
    ]
    return lines


def family_table(rows, prefix, pixels, memcpy_ms, tables_ms):
    names = [n for n in rows if n.startswith(prefix)]
    if not names:
        return []
    show_scratch = any("scratch" in rows[n] for n in names)
    show_anchor = any(anchor_of(rows[n]) in rows for n in names)
    show_speed_up = any(speed_up(rows, n) is not None for n in names)
    header = ["benchmark", "ms", "MP/s", "x memcpy", "x tables"]
    if show_anchor:
        header.append("x OpenCV")
    if show_speed_up:
        header.append("speed-up")
    if show_scratch:
        header.append("scratch")
    lines = ["| " + " | ".join(header) + " |", "|" + "---|" * len(header)]
    for name in names:
        bench = rows[name]
        ms = milliseconds(bench)
        cells = [
            "`{}`".format(name[len(prefix):]),
            "{:.2f}".format(ms),
            "{:.1f}".format(pixels / 1e6 / (ms / 1e3)) if ms > 0 else "-",
            ratio(ms / memcpy_ms) if memcpy_ms else "-",
            ratio(ms / tables_ms) if tables_ms else "-",
        ]
        if show_anchor:
            anchor = anchor_of(bench)
            cells.append("{} ({})".format(ratio(ms / milliseconds(rows[anchor])), anchor[len("opencv/"):])
                         if anchor in rows else "")
        if show_speed_up:
            gain = speed_up(rows, name)
            cells.append("" if gain is None else ratio(gain))
        if show_scratch:
            scratch = bench.get("scratch")
            flag = " !" if scratch is not None and scratch > SCRATCH_LIMIT + 0.05 else ""
            cells.append("" if scratch is None else "{:.2f}{}".format(scratch, flag))
        lines.append("| " + " | ".join(cells) + " |")
    return lines


def effects_total(rows, tables_ms):
    """One line: every effect id (scalar twins aside) run once, together."""
    names = [n for n in rows if n.startswith("effect/") and not n.endswith(SCALAR_TWIN)]
    if not names or not tables_ms:
        return []
    total = sum(milliseconds(rows[n]) for n in names)
    return ["", "All {} effects together: {:.0f} ms, {} x tables.".format(
        len(names), total, ratio(total / tables_ms))]


def render(context, rows):
    pixels = int(context.get("image_width", 0)) * int(context.get("image_height", 0))
    memcpy = rows.get("baseline/memcpy")
    memcpy_ms = milliseconds(memcpy) if memcpy else 0.0
    tables = rows.get("baseline/three_tables")
    tables_ms = milliseconds(tables) if tables else 0.0
    out = [
        "# Benchmarks",
        "",
        "Written by `scripts/bench.sh` from one run of `qtzq-bench`; do not edit by hand.",
        "Single-threaded, wall time, median of the repetitions. `MP/s`: megapixels of",
        "the photo per second. `x memcpy`: the pass's time in copies of the photo.",
        "`x tables`: the pass's time over `baseline/three_tables` (a plain scalar",
        "pass through three byte tables), the yardstick of the speed targets.",
        "`x OpenCV`: the pass's time over that of the named OpenCV benchmark on the",
        "same photo. `scratch`: peak extra memory of one call, in images of the",
        "photo's size (`!` marks more than one extra image). `speed-up`: on the row",
        "of a case with a twin `NAME/scalar` (the same pass with the vector kernels",
        "and fast paths off), the twin's time over the case's.",
        "",
        "## Machine",
        "",
    ]
    out += machine_section(context)
    for prefix, heading, note in FAMILIES:
        table = family_table(rows, prefix, pixels, memcpy_ms, tables_ms)
        if not table:
            continue
        out += ["", "## " + heading, ""]
        if note:
            out += [note, ""]
        out += table
        if prefix == "effect/":
            out += effects_total(rows, tables_ms)
    return "\n".join(out) + "\n"


# A section that another tool writes into the report (bench/wasm_bench.mjs);
# it is carried over when the report is rewritten.
KEPT_HEADING = "## WebAssembly build"


def kept_section(path):
    try:
        with open(path, encoding="utf-8") as f:
            old = f.read()
    except FileNotFoundError:
        return ""
    at = old.find("\n" + KEPT_HEADING + "\n")
    return "" if at < 0 else old[at:]


def main(argv):
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("results", help="JSON written by qtzq-bench --benchmark_out")
    parser.add_argument("-o", "--output", help="Markdown file to write (default: standard output)")
    args = parser.parse_args(argv)
    context, rows = load_medians(args.results)
    if not rows:
        sys.exit("{}: no median results (run with --benchmark_repetitions=2 or more)".format(args.results))
    text = render(context, rows)
    if args.output:
        text += kept_section(args.output)
        with open(args.output, "w", encoding="utf-8") as f:
            f.write(text)
    else:
        sys.stdout.write(text)


if __name__ == "__main__":
    main(sys.argv[1:])

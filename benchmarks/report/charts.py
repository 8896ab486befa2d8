"""The charts of the report, as SVG that can be read on a light and on a dark ground."""

import re

import matplotlib

matplotlib.use("svg")
import matplotlib.pyplot as plt  # noqa: E402
import matplotlib.ticker  # noqa: E402

INK = "#6e7781"
GRID = "#d0d7de"
LIBRARY = "#d1242f"
COLOURS = {
    "std": "#0969da",
    "Boost": "#1f9e89",
    "Poco": "#8250df",
    "LLVM": "#bf8700",
    "Qt": "#2da44e",
    "APR": "#b35900",
    "GLib": "#d6559d",
    "libc": "#8b949e",
}
MARKERS = dict(zip(COLOURS, "os^Dvp*X"))
# A viewer with a dark ground finds lighter colours for text and grid by the ones that stand in the file.
DARK = f"""<style>:root {{ color-scheme: light dark }}
@media (prefers-color-scheme: dark) {{
[style*="fill: {INK}"] {{ fill: #c9d1d9 !important }}
[style*="stroke: {INK}"] {{ stroke: #c9d1d9 !important }}
[style*="stroke: {GRID}"] {{ stroke: #30363d !important }}
}}</style>"""

matplotlib.rcParams.update({
    "svg.fonttype": "none",
    "svg.hashsalt": "fio",
    "font.family": "sans-serif",
    "font.sans-serif": ["DejaVu Sans"],
    "font.size": 10,
    "text.color": INK,
    "axes.labelcolor": INK,
    "axes.edgecolor": INK,
    "axes.facecolor": "none",
    "xtick.color": INK,
    "ytick.color": INK,
    "grid.color": GRID,
    "figure.facecolor": "none",
    "legend.frameon": False,
})


def save(figure, file):
    figure.savefig(file, format="svg", metadata={"Date": None, "Creator": None}, bbox_inches="tight")
    plt.close(figure)
    with open(file) as source:
        text = source.read()
    text = re.sub(r"(<svg [^>]*>)", lambda start: start[1] + "\n" + DARK, text, count=1)
    text = re.sub(r"[ \t]+$", "", text, flags=re.MULTILINE)
    with open(file, "w") as target:
        target.write(text)


def plain_number(axis):
    axis.set_major_formatter(matplotlib.ticker.FuncFormatter(lambda value, _: f"{value:g}"))
    axis.set_minor_formatter(matplotlib.ticker.NullFormatter())


def ratios(file, workloads, ratio_of, peers):
    """A line for each workload: the library, and each peer, in multiples of the floor."""
    figure, axes = plt.subplots(figsize=(9.5, 0.29 * len(workloads) + 1.2))
    rows = list(range(len(workloads)))
    shown = [row for row in rows if ratio_of(workloads[row], "fio") is not None]
    axes.barh(shown, [ratio_of(workloads[row], "fio") - 1 for row in shown], left=1, height=0.62, color=LIBRARY,
              alpha=0.45, label="fio")
    axes.plot([ratio_of(workloads[row], "fio") for row in shown], shown, "|", color=LIBRARY, markersize=11,
              markeredgewidth=2.5)
    for peer in peers:
        points = [(ratio_of(workloads[row], peer), row) for row in rows if ratio_of(workloads[row], peer) is not None]
        if points:
            axes.plot(*zip(*points), MARKERS[peer], color=COLOURS[peer], markersize=5, label=peer, linestyle="none")
    axes.axvline(1, color=INK, linewidth=1)
    axes.set_xscale("log")
    axes.set_xlim(0.1, 100)
    plain_number(axes.xaxis)
    axes.set_yticks(rows, workloads)
    axes.set_ylim(len(workloads) - 0.4, -0.6)
    axes.grid(axis="x", linewidth=0.6)
    axes.set_axisbelow(True)
    axes.set_xlabel("processor time in multiples of the floor (logarithmic; beyond 100 is not shown)")
    figure.legend(loc="lower center", bbox_to_anchor=(0.5, 1), ncols=9, columnspacing=1, handletextpad=0.3)
    figure.tight_layout()
    save(figure, file)


def growth(file, operations, sizes, cost_of, peers):
    """A panel for each operation: instructions by the number of levels, both logarithmic."""
    figure, panels = plt.subplots(2, 2, figsize=(9.5, 7), sharex=True)
    for (operation, title), axes in zip(operations.items(), panels.flat):
        for name in ["fio", "floor", *peers]:
            costs = [cost_of(operation, size, name) for size in sizes]
            if None in costs:
                continue
            style = {
                "fio": {"color": LIBRARY, "linewidth": 2.6, "zorder": 5},
                "floor": {"color": INK, "linewidth": 2, "linestyle": "--", "zorder": 4},
            }.get(name) or {"color": COLOURS[name], "linewidth": 1.1, "marker": MARKERS[name], "markersize": 4}
            axes.plot(sizes, costs, label=name, **style)
        axes.set_title(title, fontsize=10)
        axes.set_xscale("log")
        axes.set_yscale("log")
        plain_number(axes.xaxis)
        axes.set_xticks(sizes)
        axes.grid(linewidth=0.6)
        axes.set_axisbelow(True)
    for axes in panels[1]:
        axes.set_xlabel("levels")
    for axes in panels[:, 0]:
        axes.set_ylabel("instructions")
    by_label = {label: line for axes in panels.flat for line, label in zip(*axes.get_legend_handles_labels())}
    figure.legend(by_label.values(), by_label.keys(), loc="lower center", bbox_to_anchor=(0.5, 1), ncols=len(by_label))
    figure.tight_layout()
    save(figure, file)

"""The rows of the table: what is measured, against what, and how much more it may take."""

from dataclasses import dataclass


@dataclass(frozen=True)
class Row:
    name: str
    group: str
    work: str
    floor: str
    goal: float | None  # the work is at most so many times the floor
    # Nothing may be allocated beside what the floor allocates.
    allocates_nothing: bool = False
    # Where the goal against the floor alone is out of reach: what the work must do beside it, counted in the same run.
    # The goal then holds against both together.
    also: str = ""
    # What the figure is held to instead, where there is no goal of that kind or it is out of reach by its nature.
    most: int | None = None


ROWS = [
    Row("hook-own", "library", "a hooked method that passes through, 1000 calls", "the same method unhooked", 2.5),
    Row("hook-inherited", "library", "the same, hooked where it is inherited", "the same method unhooked", 2.5),
    Row("send-douyin", "sends", "a comment in Douyin, log off", "the app's calls that the path must make", 3),
    Row("send-xhs", "sends", "a comment in Xiaohongshu, log off", "the app's calls that the path must make", 3),
    Row("send-kuaishou", "sends", "a comment in Kuaishou, log off", "the app's calls that the path must make", 3),
    Row("send-finder", "sends", "a comment in WeChat, log off", "the app's calls that the path must make", 3),
    Row("log-off", "library", "a line of the debug log, switched off", "its two store lookups", 1.2,
        allocates_nothing=True),
    Row("log-on", "library", "a line of the debug log, 40,000 units full", "one append, cut and store", 1.2),
    Row("layout-short", "library", "first layout of 144 cells, texts of 8 units",
        "the view calls and one measurement a cell", 1.5),
    Row("layout-long", "library", "first layout of 144 cells, texts of 1,000 units",
        "the view calls and one measurement a cell", 12),
    Row("layout-again", "library", "layout of 144 cells again, nothing changed", "the view calls", 1.3,
        also="the look-up of each cell's text"),
    Row("slider", "library", "slider over the scale, 100 steps, 48 cells", "100 first layouts by bare calls", 2),
    Row("tap-12", "library", "tap on the float button, 12 cells", "the same views made and set by bare calls", 1.5),
    Row("tap-144", "library", "tap on the float button, 144 cells", "the same views made and set by bare calls", 1.5),
    Row("settings-open", "library", "opening the settings panel", "the same controls made by bare calls", 1.5),
    Row("settings-rebuild", "library", "rebuilding it, a section unfolded", "the same controls made by bare calls",
        1.5),
    Row("export", "library", "export of 144 slots of 200 units", "JSON and zlib on the same bytes", 1.2),
    Row("import", "library", "import of 144 slots of 200 units", "JSON and zlib on the same bytes", 1.2,
        also="storing each value, and writing the store"),
    Row("drag-button", "library", "a movement of the float button", "the view calls", 1.3, allocates_nothing=True),
    Row("drag-panel", "library", "a movement of a panel", "the view calls", 1.3, allocates_nothing=True),
    Row("load-all", "phone", "load to last initialiser, all apps' classes there",
        "the platform's calls that registration, scheduling and hooks must make", 1.5),
    Row("load-none", "phone", "the same, none of those classes there", "the same", 1.5),
    Row("size", "phone", "the phone's library, bytes", "the smallest with the same segments", 2, most=140_000),
    Row("idle-timers", "idle", "what runs in a quiet year", "nothing", 1),
    Row("idle-observers", "idle", "observers of notifications in an idle app", "those that must be", 1),
    Row("idle-bytes", "idle", "bytes held in an idle app", "nothing", None, most=64 * 1024),
    Row("scenario", "simulator", "a scenario of 100 commands, the whole process", "an empty program with Foundation", 2,
        also="the libraries that draw, each text measured once, the preferences stored"),
    Row("frame-resting", "simulator", "a frame of the grid over a live room, nothing changed",
        "cairo's copy of the ready picture", 1.1),
    Row("frame-resting-2x", "simulator", "the same with two pixels a point", "cairo's copy of the ready picture", 1.1),
    Row("frame-moving", "simulator", "a frame in which the grid moves", "cairo's copies of ready pixels", 3),
    Row("frame-moving-2x", "simulator", "the same with two pixels a point", "cairo's copies of ready pixels", 3),
]

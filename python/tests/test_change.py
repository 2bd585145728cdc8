"""Changes of a build, and what write() makes of the file."""
import errno
import gc
import itertools
import os
import pathlib
import signal
import subprocess
import sys
import threading
import time

import pytest

import hdlbuildfile as hb
from conftest import BUILD


def names(sources):
    return [source.path.name for source in sources]


def changed_lines(build):
    """The lines that a diff takes and puts."""
    lines = build.diff().splitlines()
    return [line for line in lines if line[0] in "+-" and line[:3] not in ("+++", "---")]


def test_writes_what_was_changed_and_keeps_all_other_bytes(folder):
    build = hb.Build.read("build.xml")
    assert not build.write()
    assert pathlib.Path("build.xml").read_text() == BUILD
    build.add("rtl/new.vhd", library="util").depends_on("rtl/pkg.vhd", build["rtl/cell.v"])
    assert build.changed
    build["rtl/top.vhd"].library = "top"
    expected = BUILD.replace(
        "<SourceFile>rtl/top.vhd", '<SourceFile PrecompiledLibrary="top">rtl/top.vhd'
    ).replace(
        "<SourceFile>tb/tb.vhd<Dependency>rtl/top.vhd</Dependency></SourceFile>\n",
        "<SourceFile>tb/tb.vhd<Dependency>rtl/top.vhd</Dependency></SourceFile>\n"
        '    <SourceFile Library="false" PrecompiledLibrary="util">rtl/new.vhd'
        "<Dependency>rtl/pkg.vhd</Dependency>\n"
        "      <Dependency>rtl/cell.v</Dependency>\n"
        "    </SourceFile>\n",
    )
    assert pathlib.Path("build.xml").read_text() == BUILD
    assert build.write()
    assert pathlib.Path("build.xml").read_text() == expected
    assert not build.changed and not build.write()
    # Further on from there.
    build["rtl/top.vhd"].own_library = None
    assert build.write()
    assert pathlib.Path("build.xml").read_text() == expected.replace(
        'PrecompiledLibrary="top"', 'PrecompiledLibrary=""'
    )


def test_makes_a_build(folder):
    build = hb.Build.new("made.xml", "Verilog")
    build.add("rtl/cell.v", is_library_file=True)
    assert build.changed and not pathlib.Path("made.xml").exists()
    assert build.write()
    read = hb.Build.read("made.xml")
    assert read.top_language is hb.Language.VERILOG
    assert [(s.filename, s.library, s.is_library_file) for s in read] == [(f"{folder}/rtl/cell.v", "work", True)]
    with pytest.raises(hb.WriteError, match="made.xml: the file exists already") as error:
        hb.Build.new("made.xml")
    assert error.value.file == folder / "made.xml" and error.value.reason == "the file exists already"


def test_sets_what_a_build_says(folder):
    build = hb.Build.read("build.xml")
    build.top_language = build.hvl_language = "Verilog"
    build.hdl_language = hb.Language.VHDL
    build.library = "lib"
    build.snapshot = "snap"
    assert build.add_top("work.cell", language="Verilog") and not build.add_top("cell", "work", language="Verilog")
    assert build.remove_top("tb", "core", "sim") and not build.remove_top("tb", "core", "sim")
    assert build.write()
    read = hb.Build.read("build.xml")
    assert (read.top_language, read.hvl_language, read.hdl_language) == ("Verilog", "Verilog", "VHDL")
    assert (read.library, read.snapshot) == ("lib", "snap")
    assert read.tops == [hb.Top(hb.Language.VERILOG, "work", "cell")]
    with pytest.raises(ValueError):
        build.top_language = "None"
    for value in (3, None):
        with pytest.raises(TypeError, match="a str is wanted, not"):
            build.library = value
    with pytest.raises(ValueError, match="embedded null character"):
        build.library = "a\0b"


def test_changes_dependencies_all_or_none(folder):
    build = hb.Build.read("build.xml")
    tb = build["tb/tb.vhd"]
    assert tb.depends_on("rtl/pkg.vhd", build["rtl/cell.v"]) is tb
    assert names(tb.dependencies) == ["top.vhd", "pkg.vhd", "cell.v"]
    with pytest.raises(ValueError, match="nothing.vhd is no source of the build"):
        tb.depends_on("rtl/cell.v", "rtl/nothing.vhd")
    with pytest.raises(ValueError, match="tb.vhd cannot depend on itself"):
        tb.depends_on(tb)
    with pytest.raises(ValueError, match="one of another build"):
        tb.depends_on(hb.Build.read("build.xml")["rtl/pkg.vhd"])
    with pytest.raises(ValueError, match="tb.vhd does not depend on .*nothing.vhd"):
        tb.depends_not_on("rtl/pkg.vhd", "rtl/nothing.vhd")
    assert names(tb.dependencies) == ["top.vhd", "pkg.vhd", "cell.v"]
    assert tb.depends_not_on("rtl/pkg.vhd", build["rtl/top.vhd"]) is tb
    assert names(tb.dependencies) == ["cell.v"]
    assert tb.clear_dependencies() is tb
    assert names(tb.dependencies) == []


def test_moves_sources_in_their_group(folder):
    build = hb.Build.read("build.xml")
    top = build["rtl/top.vhd"]
    orders = []
    for move in (
        top.move_last,
        top.move_first,
        lambda: top.move_behind("rtl/pkg.vhd"),
        lambda: top.move_before(build["rtl/pkg.vhd"]),
        lambda: top.move_before(top),
    ):
        move()
        orders.append(" ".join(names(build.group("VHDL"))))
    assert orders == [
        "pkg.vhd tb.vhd top.vhd",
        "top.vhd pkg.vhd tb.vhd",
        "pkg.vhd top.vhd tb.vhd",
        "top.vhd pkg.vhd tb.vhd",
        "top.vhd pkg.vhd tb.vhd",
    ]
    with pytest.raises(ValueError, match="different groups"):
        top.move_before("rtl/cell.v")


def test_renames_and_removes(folder):
    build = hb.Build.read("build.xml")
    top, same = build["rtl/top.vhd"], build["rtl/top.vhd"]
    top.rename("rtl/core.vhd")
    assert top.path == folder / "rtl" / "core.vhd"
    with pytest.raises(hb.SourceGone, match="rtl/top.vhd is no source of the build any more"):
        same.library
    assert names(build["tb/tb.vhd"].dependencies) == ["core.vhd"]
    with pytest.raises(ValueError, match="PKG.vhd is in the build already"):
        top.rename("rtl/PKG.vhd")
    with pytest.raises(ValueError, match="nothing.vhd is no source of the build"):
        build.remove(top, "nothing.vhd")
    assert top in build
    build.remove(top, "rtl/cell.v")
    assert names(build) == ["pkg.vhd", "tb.vhd"] and names(build["tb/tb.vhd"].dependencies) == []
    assert changed_lines(build) == [
        "-    <SourceFile>rtl/top.vhd<Dependency>rtl/pkg.vhd</Dependency></SourceFile> <!-- the top -->",
        "+     <!-- the top -->",
        "-    <SourceFile>tb/tb.vhd<Dependency>rtl/top.vhd</Dependency></SourceFile>",
        "+    <SourceFile>tb/tb.vhd</SourceFile>",
        '-    <SourceFile Library="true">rtl/cell.v</SourceFile>',
    ]


def test_refuses_what_it_cannot_add(folder):
    build = hb.Build.read("build.xml")
    with pytest.raises(ValueError, match="TOP.vhd is in the build already"):
        build.add("rtl/TOP.vhd")
    with pytest.raises(ValueError, match="the extension is that of no language"):
        build.add("rtl/readme.txt")
    assert build.add("rtl/readme.txt", language="VHDL").language == "VHDL"


def gone(source):
    try:
        source.library
    except hb.SourceGone:
        return True
    return False


def test_sources_are_gone_when_they_are_removed_and_come_back_by_a_reload(folder):
    build = hb.Build.read("build.xml")
    sources = build.sources
    held = list(sources)
    pkg = build["rtl/pkg.vhd"]
    build.remove(pkg)
    assert [gone(source) for source in held] == [False, False, True, False]
    assert [gone(source) for source in sources] == [False, False, True, False]
    assert repr(pkg) == f"<hdlbuildfile.Source '{folder}/rtl/pkg.vhd', gone>"
    for use in (
        lambda: pkg.path,
        lambda: pkg.filename,
        lambda: pkg.dependencies,
        lambda: pkg.depends_on("rtl/top.vhd"),
        lambda: build["rtl/top.vhd"].depends_on(pkg),
        lambda: build.remove(pkg),
        lambda: pkg.rename("x.vhd"),
        lambda: setattr(pkg, "library", "x"),
    ):
        with pytest.raises(hb.SourceGone):
            use()
    assert pkg not in build and hash(pkg) == hash(held[2])
    added = build.add("rtl/pkg.vhd")
    assert not gone(added) and gone(pkg)
    build.reload()
    assert not any(gone(source) for source in (pkg, added, *held, *sources))
    assert not build.changed and pkg.library == "util"
    pathlib.Path("build.xml").write_text("<HdlBuildFile/>")
    build.reload()
    assert all(gone(source) for source in (pkg, added, *held, *sources))
    pathlib.Path("build.xml").write_text("<HdlBuild")
    with pytest.raises(hb.ReadError):
        build.reload()
    assert len(build) == 0


THINGS = ("build", "sources", "iterator", "source", "dependencies", "dependency")


def check_the_living(things):
    if "source" in things:
        assert things["source"].library == "core" and len(things["source"].build) == 4
    if "dependency" in things:
        assert things["dependency"].path.name == "top.vhd"
    if "sources" in things:
        assert names(things["sources"]) == ["cell.v", "top.vhd", "pkg.vhd", "tb.vhd"]
    if "dependencies" in things:
        assert names(things["dependencies"]) == ["top.vhd"]


@pytest.mark.parametrize("lock", [False, True])
def test_nothing_dangles_whatever_dies_first(folder, lock):
    orders = list(itertools.permutations(("build", "sources", "iterator", "source", "dependencies", "dependency")))
    assert len(orders) == 720
    for order in orders:
        things = {"build": hb.Build.read("build.xml", lock=lock)}
        things["sources"] = things["build"].sources
        things["iterator"] = iter(things["build"].order("VHDL"))
        things["source"] = things["build"]["tb/tb.vhd"]
        things["dependencies"] = things["source"].dependencies
        things["dependency"] = things["dependencies"][0]
        next(things["iterator"])
        for dying in order:
            del things[dying]
            check_the_living(things)
    gc.collect()


def test_keeps_what_others_have_changed(folder):
    build = hb.Build.read("build.xml")
    other = hb.Build.read("build.xml")
    other.library = "other"
    assert other.write()
    written = pathlib.Path("build.xml").read_text()
    build.library = "mine"
    with pytest.raises(hb.WriteError) as error:
        build.write()
    assert error.value.reason == "the file has changed since it was read"
    assert pathlib.Path("build.xml").read_text() == written
    assert build.library == "mine" and build.changed
    pathlib.Path("build.xml").write_text(BUILD)
    assert build.write()
    assert pathlib.Path("build.xml").read_text() == BUILD.replace('"core">\n  <Top', '"mine">\n  <Top')


def test_a_block_writes_at_its_end(folder):
    with hb.Build.read("build.xml", lock=True) as build:
        build.library = "lib"
        assert pathlib.Path("build.xml").read_text() == BUILD
    assert 'DestinationLibrary="lib"' in pathlib.Path("build.xml").read_text()
    with pytest.raises(KeyError):
        with hb.Build.read("build.xml") as build:
            build.library = "other"
            build["nothing.vhd"]
    assert hb.Build.read("build.xml").library == "lib"


LOCKING = """
import hdlbuildfile as hb, time
with hb.Build.read("build.xml", lock=True) as build:
    print("locked", flush=True)
    time.sleep(0.4)
    build.library = "first"
"""


def test_a_lock_has_others_wait(folder):
    with subprocess.Popen([sys.executable, "-c", LOCKING], stdout=subprocess.PIPE, text=True) as process:
        assert process.stdout.readline() == "locked\n"
        with hb.Build.read("build.xml", lock=True) as build:
            assert build.library == "first"
            build.library = "second"
        assert process.wait() == 0
    assert hb.Build.read("build.xml").library == "second"


def on_another_thread(act):
    """What it returns, or the exception that it raises."""
    results = []

    def run():
        try:
            results.append(act())
        except Exception as error:
            results.append(error)

    thread = threading.Thread(target=run)
    thread.start()
    thread.join()
    return results[0]


def test_a_lock_belongs_to_its_build(folder):
    build = on_another_thread(lambda: hb.Build.read("build.xml", lock=True))
    build.library = "first"
    assert build.write() and 'DestinationLibrary="first"' in pathlib.Path("build.xml").read_text()
    build.library = "second"
    assert on_another_thread(build.write) is True
    assert on_another_thread(build.close) is None
    other = hb.Build.read("build.xml", lock=True)
    assert other.library == "second"
    held = [other]
    del other
    assert on_another_thread(held.clear) is None
    hb.Build.read("build.xml", lock=True).close()
    assert [path.name for path in folder.iterdir() if path.name.endswith(".lock")] == []


WAITING = """
import hdlbuildfile as hb, sys
build = hb.Build.read("build.xml")
build.library = "other"
print("waits", flush=True)
try:
    hb.Build.read("build.xml", lock=True) if sys.argv[1] == "read" else build.write()
except KeyboardInterrupt:
    print("interrupted")
"""


@pytest.mark.parametrize("act", ["read", "write"])
def test_who_waits_for_a_lock_can_be_interrupted(folder, act):
    command = [sys.executable, "-c", WAITING, act]
    with hb.Build.read("build.xml", lock=True):
        with subprocess.Popen(command, stdout=subprocess.PIPE, text=True) as process:
            assert process.stdout.readline() == "waits\n"
            time.sleep(0.3)
            begin = time.monotonic()
            process.send_signal(signal.SIGINT)
            assert process.stdout.read() == "interrupted\n" and process.wait() == 0
            assert time.monotonic() - begin < 3
    assert pathlib.Path("build.xml").read_text() == BUILD


def test_a_fork_leaves_the_lock_to_its_parent(folder):
    build = hb.Build.read("build.xml", lock=True)
    child = os.fork()
    if child == 0:
        build.close()
        os._exit(7)
    assert os.waitstatus_to_exitcode(os.waitpid(child, 0)[1]) == 7
    build.library = "lib"
    assert build.write()
    build.close()


def test_errors_tell_what_they_are_by_their_class(folder):
    with pytest.raises(FileNotFoundError) as missing:
        hb.Build.read("nothing.xml")
    error = missing.value
    assert isinstance(error, hb.MissingError) and isinstance(error, hb.ReadError)
    assert (error.errno, error.filename, error.strerror) == (errno.ENOENT, f"{folder}/nothing.xml", error.reason)
    assert str(error) == f"{folder}/nothing.xml: No such file or directory"
    with pytest.raises(hb.MissingError):
        hb.check_file("nothing.xml")
    with pytest.raises(FileExistsError) as exists:
        hb.Build.new("build.xml")
    assert isinstance(exists.value, hb.ExistsError) and isinstance(exists.value, hb.WriteError)
    assert (exists.value.errno, exists.value.file) == (errno.EEXIST, folder / "build.xml")
    pathlib.Path("list.f").write_text("rtl/cell.v\n")
    with pytest.raises(hb.ExistsError):
        hb.import_build("filelist", "list.f", "build.xml")
    build = hb.Build.read("build.xml")
    build.library = "lib"
    os.remove("build.xml")
    with pytest.raises(hb.ChangedError):
        build.write()
    os.mkdir("locked")
    pathlib.Path("locked/build.xml").write_text(BUILD)
    held = hb.Build.read("locked/build.xml", lock=True)
    lock = next(path for path in pathlib.Path("locked").iterdir() if path.name.endswith(".lock"))
    held.close()
    lock.mkdir()
    with pytest.raises(hb.LockError, match="is in the way"):
        hb.Build.read("locked/build.xml", lock=True)


def test_refuses_texts_that_are_none(folder):
    build = hb.Build.read("build.xml")
    with pytest.raises(UnicodeEncodeError):
        build["rtl/pkg.vhd"].library = "a\ud800b"


@pytest.mark.parametrize(
    "name, reason",
    [
        ("caf\udce9", "it is no UTF-8"),
        ("a\x01control", "it has the character U+0001"),
        ("no\ufffecharacter", "it has the character U+FFFE"),
        (" in front", "it begins or ends with a blank"),
        ("behind ", "it begins or ends with a blank"),
    ],
)
def test_refuses_at_once_what_no_build_file_can_hold(folder, name, reason):
    build = hb.Build.read("build.xml")
    top = build["rtl/top.vhd"]
    path = os.fsencode(name) if name[0] == " " else os.fsencode("rtl/" + name)
    whole = os.fsdecode(os.fsencode(folder) + b"/" + path)

    def is_refused(act, text):
        with pytest.raises(ValueError) as error:
            act()
        return str(error.value) == text + reason

    assert is_refused(lambda: build.add(path, language="VHDL"), f"{whole}: no build file can hold the name: ")
    assert is_refused(lambda: top.rename(path), f"{whole}: no build file can hold the name: ")
    library = f"no build file can hold '{name}' as the library of {folder}/rtl/"
    assert is_refused(lambda: build.add("rtl/x.vhd", library=name), library + "x.vhd: ")
    assert is_refused(lambda: setattr(top, "library", name), library + "top.vhd: ")
    assert is_refused(lambda: setattr(top, "own_library", name), library + "top.vhd: ")
    own = f"no build file can hold '{name}' as the name of the build's library or snapshot: "
    assert is_refused(lambda: setattr(build, "library", name), own)
    assert is_refused(lambda: setattr(build, "snapshot", name), own)
    assert not build.changed
    top.library = "good <&>\t\n\x7f caf\u00e9"
    build.add("rtl/caf\u00e9 <&>\t\n\x7f x.vhd")
    assert build.write()
    again = hb.Build.read("build.xml")
    assert again["rtl/top.vhd"].library == "good <&>\t\n\x7f caf\u00e9" and "rtl/caf\u00e9 <&>\t\n\x7f x.vhd" in again


def test_other_threads_go_on_while_a_build_works(folder):
    for number in range(20000):
        if number == 0:
            build = hb.Build.new("large.xml")
        build.add(f"rtl/s{number}.vhd")
    counts = []
    stop = threading.Event()

    def count():
        while not stop.is_set():
            counts.append(len(build))
            time.sleep(0.0005)

    def others():
        while not stop.is_set():
            beats.append(time.perf_counter())
            time.sleep(0.0005)

    beats = []
    threads = [threading.Thread(target=target) for target in (count, others)]
    for thread in threads:
        thread.start()
    begin = time.perf_counter()
    build.write()
    end = time.perf_counter()
    stop.set()
    for thread in threads:
        thread.join()
    assert len([beat for beat in beats if begin < beat < end]) > 3
    assert set(counts) == {20000}


def test_a_source_keeps_its_hash_when_it_is_renamed(folder):
    build = hb.Build.read("build.xml")
    pkg, other = build["rtl/pkg.vhd"], build["rtl/top.vhd"]
    held, before = {pkg: "pkg", other: "top"}, hash(pkg)
    pkg.rename("rtl/types.vhd")
    assert hash(pkg) == before and held[pkg] == "pkg"
    found = build["rtl/types.vhd"]
    assert found == pkg and hash(found) == before and held[found] == "pkg"
    added = build.add("rtl/pkg.vhd")
    assert added != pkg and added not in held
    pkg.rename("rtl/last.vhd")
    assert hash(pkg) == before and held[build["rtl/last.vhd"]] == "pkg"
    build.write()
    build.reload()
    assert held[build["rtl/last.vhd"]] == "pkg" and held[other] == "top"


TOP_WANTED = ": LIBRARY.ENTITY or LIBRARY.ENTITY(ARCHITECTURE) is wanted"


def test_tops_are_named_as_on_the_command_line(folder):
    build = hb.Build.read("build.xml")
    assert [str(top) for top in build.tops] == ["core.tb(sim)"]
    assert build.add_top("sim.filter_tb(sim)") and not build.add_top("filter_tb", "sim", "sim")
    assert build.add_top("cell", language="Verilog") and build.add_top("top")
    assert [str(top) for top in build.tops] == ["core.cell", "core.tb(sim)", "sim.filter_tb(sim)", "core.top"]
    other = hb.Build.new("other.xml")
    for top in build.tops:
        assert other.add_top(top) and not other.add_top(top)
    assert other.tops == build.tops
    assert other.remove_top(build.tops[0]) and not other.remove_top(build.tops[0])
    assert other.remove_top("sim.filter_tb(sim)") and other.remove_top("tb", "core", "sim")
    assert not other.remove_top("top") and other.remove_top("core.top") and other.tops == []
    assert other.add_top("nobody") and other.tops == [hb.Top(hb.Language.VHDL, "work", "nobody")]


@pytest.mark.parametrize(
    "arguments, reason",
    [
        (("",), "''" + TOP_WANTED),
        (("tb", ""), "'.tb': a library is wanted in front of the point"),
        (("a.b", "lib"), "'lib.a.b'" + TOP_WANTED),
        (("tb", None, ""), "'tb()'" + TOP_WANTED),
        (("a+b",), "'a+b' is no simple name of VHDL: as an escaped one it is written '\\a+b\\'"),
        (("caf\udce9",), "no build file can hold 'caf\udce9' as the top-level component: it is no UTF-8"),
        (("tb", None, None, "Lisp"), "unknown language 'Lisp'; known: Verilog, VHDL"),
    ],
)
def test_refuses_tops_as_the_command_line_does(folder, arguments, reason):
    build = hb.Build.read("build.xml")
    with pytest.raises(ValueError) as error:
        build.add_top(*arguments)
    assert str(error.value).startswith(reason)
    assert not build.changed


def test_a_top_comes_alone(folder):
    build = hb.Build.read("build.xml")
    for act in (build.add_top, build.remove_top):
        with pytest.raises(TypeError, match="a Top has its library"):
            act(build.tops[0], "lib")
        with pytest.raises(TypeError):
            act(3)

"""What a build that was read tells."""
import collections.abc
import copy
import os
import pathlib
import pickle
import subprocess
import sys

import pytest

import hdlbuildfile as hb


def names(sources):
    return [source.path.name for source in sources]


def test_tells_what_the_file_says(folder):
    build = hb.Build.read("build.xml")
    assert repr(build) == f"<hdlbuildfile.Build '{folder}/build.xml', sources: 4>"
    assert build.path == folder / "build.xml"
    assert (build.top_language, build.hvl_language, build.hdl_language) == ("VHDL", "None", "None")
    assert build.library == "core"
    assert build.languages == [hb.Language.VERILOG, hb.Language.VHDL]
    assert build.tops == [hb.Top(hb.Language.VHDL, "core", "tb", "sim")]
    assert str(build.tops[0]) == "core.tb(sim)"
    assert [(s.language, s.library, s.own_library, s.relative, s.is_library_file) for s in build] == [
        ("Verilog", "core", None, pathlib.Path("rtl/cell.v"), True),
        ("VHDL", "core", None, pathlib.Path("rtl/top.vhd"), False),
        ("VHDL", "util", "util", pathlib.Path("rtl/pkg.vhd"), False),
        ("VHDL", "core", None, pathlib.Path("tb/tb.vhd"), False),
    ]
    assert not build.changed


def test_orders_by_dependencies(folder):
    build = hb.Build.read("build.xml")
    assert names(build.order("VHDL")) == ["pkg.vhd", "top.vhd", "tb.vhd"]
    assert names(build.order(hb.Language.VERILOG)) == ["cell.v"]
    assert names(build.order()) == ["cell.v", "pkg.vhd", "top.vhd", "tb.vhd"]
    assert names(build.group("VHDL")) == ["top.vhd", "pkg.vhd", "tb.vhd"]
    assert build.order_table() == [
        (hb.Language.VERILOG, "core", f"{folder}/rtl/cell.v"),
        (hb.Language.VHDL, "util", f"{folder}/rtl/pkg.vhd"),
        (hb.Language.VHDL, "core", f"{folder}/rtl/top.vhd"),
        (hb.Language.VHDL, "core", f"{folder}/tb/tb.vhd"),
    ]
    assert build.order_table("verilog") == [(hb.Language.VERILOG, "core", f"{folder}/rtl/cell.v")]
    with pytest.raises(ValueError, match="unknown language 'Pascal'"):
        build.order("Pascal")


def test_finds_sources_by_their_paths(folder):
    build = hb.Build.read(folder / "build.xml")
    top = build["rtl/top.vhd"]
    assert top.path == folder / "rtl" / "top.vhd"
    assert top.filename == os.fspath(top) == f"{folder}/rtl/top.vhd"
    assert top.exists
    assert top.build is build
    assert repr(top) == f"<hdlbuildfile.Source '{folder}/rtl/top.vhd' in 'core'>"
    assert names(top.dependencies) == ["pkg.vhd"]
    assert build.find(pathlib.Path("rtl/PKG.vhd")) == build["rtl/pkg.vhd"]
    assert build.find(b"rtl/nothing.vhd") is None
    assert top in build and "tb/tb.vhd" in build and "tb/nothing.vhd" not in build
    assert top not in hb.Build.read("build.xml")
    with pytest.raises(KeyError) as error:
        build["rtl/nothing.vhd"]
    assert error.value.args == ("rtl/nothing.vhd",)


def test_takes_paths_against_the_working_directory_of_the_moment(folder, monkeypatch):
    build = hb.Build.read("build.xml")
    monkeypatch.chdir(folder / "rtl")
    assert build["top.vhd"].path == folder / "rtl" / "top.vhd"


def test_lists_are_sequences(folder):
    build = hb.Build.read("build.xml")
    sources = build.sources
    assert isinstance(sources, collections.abc.Sequence)
    assert repr(sources) == "<hdlbuildfile.SourceList of 4>"
    assert len(sources) == len(build) == 4
    assert names(sources[1:]) == ["top.vhd", "pkg.vhd", "tb.vhd"]
    assert names(sources[::-2]) == ["tb.vhd", "top.vhd"]
    assert sources[-1] == sources[3] and sources[0] != sources[1]
    assert len({*sources, *build.sources}) == 4
    assert names(reversed(sources)) == ["tb.vhd", "pkg.vhd", "top.vhd", "cell.v"]
    assert sources.index(build["rtl/pkg.vhd"]) == 2 and sources.count(build["rtl/pkg.vhd"]) == 1
    for number in (4, -5):
        with pytest.raises(IndexError, match="source index out of range"):
            sources[number]
    with pytest.raises(TypeError):
        sources["rtl/top.vhd"]


def test_a_build_without_sources_is_true(folder):
    build = hb.Build.new("empty.xml")
    assert len(build) == 0 and build


def test_lists_missing_sources(folder):
    os.remove("rtl/pkg.vhd")
    build = hb.Build.read("build.xml")
    assert names(build.missing) == ["pkg.vhd"]
    assert not build["rtl/pkg.vhd"].exists


@pytest.mark.parametrize(
    "text, line, column, reason",
    [
        (None, None, None, "No such file or directory"),
        ("<HdlBuildFile>\n  <a>\n  </b>\n</HdlBuildFile>\n", 3, 5, 'mismatched tag: element "a" of line 2 is still open'),
        ("<Other/>\n", None, None, "no HdlBuildFile element: the document describes no build"),
    ],
)
def test_tells_why_a_file_cannot_be_read(folder, text, line, column, reason):
    if text is not None:
        pathlib.Path("bad.xml").write_text(text)
    with pytest.raises(hb.ReadError) as error:
        hb.Build.read("bad.xml")
    assert isinstance(error.value, hb.Error)
    assert (error.value.file, error.value.line, error.value.column) == (folder / "bad.xml", line, column)
    assert error.value.reason == reason
    place = f":{line}:{column}" if line else ""
    assert str(error.value) == f"{folder}/bad.xml{place}: {reason}"


def test_refuses_what_is_no_path(folder):
    for path in (3, None):
        with pytest.raises(TypeError):
            hb.Build.read(path)
    with pytest.raises(ValueError):
        hb.Build.read("a\0b")
    with pytest.raises(ValueError, match="the path is empty"):
        hb.Build.read("")


def test_keeps_names_that_are_no_utf8(folder):
    """Those of folders; a build file cannot hold them."""
    place = os.path.join(os.fsencode(folder), b"caf\xe9")
    os.makedirs(place + b"/rtl")
    build = hb.Build.new(place + b"/\xff.xml")
    source = build.add(place + b"/rtl/pkg.vhd", library="caf\u00e9")
    assert build.write()
    name = os.fsdecode(place) + "/rtl/pkg.vhd"
    assert source.filename == name and os.fsencode(source.path) == place + b"/rtl/pkg.vhd"
    assert os.fsencode(build.path) == place + b"/\xff.xml"
    assert hb.Build.read(build.path).order_table() == [(hb.Language.VHDL, "caf\u00e9", name)]
    assert ascii(source) == f"<hdlbuildfile.Source '{folder}/caf\\udce9/rtl/pkg.vhd' in 'caf\\xe9'>"


def test_everything_tells_what_it_is():
    for name in hb.__all__:
        thing = getattr(hb, name)
        if name != "__version__":
            assert thing.__module__.startswith("hdlbuildfile"), name
            assert thing.__doc__, name
    for kind in (hb.Build, hb.Source):
        for name, member in vars(kind).items():
            if not name.startswith("_"):
                assert getattr(kind, name).__doc__, f"{kind.__name__}.{name}"
    assert "hdlbuildfile" in sys.modules


OBJECTS = (hb.Build, hb.Source, hb.SourceList, hb.SourceIterator)

# In a process of its own: what goes wrong here is a crash.
MAKING = """
import copy, sys, hdlbuildfile as hb
kind = getattr(hb, sys.argv[1])
for make in (kind, lambda: kind("x.xml"), lambda: kind.__new__(kind), lambda: kind.__base__.__new__(kind),
             lambda: object.__new__(kind), lambda: type("Own", (kind,), {"__new__": lambda c: object.__new__(c)})()):
    try:
        print(repr(make()))
    except TypeError as error:
        print("TypeError", "cannot be called" in str(error))
"""


@pytest.mark.parametrize("kind", OBJECTS)
def test_objects_come_from_functions_alone(folder, kind):
    program = [sys.executable, "-c", MAKING, kind.__name__]
    result = subprocess.run(program, capture_output=True, text=True, timeout=60)
    said = ["TypeError True"] * 2 + ["TypeError False"] * 4
    assert (result.stdout.splitlines(), result.stderr, result.returncode) == (said, "", 0)
    with pytest.raises(TypeError, match=r"hdlbuildfile.Build cannot be called: use Build.read\(\) or Build.new\(\)"):
        hb.Build("x.xml")


def test_builds_and_sources_are_not_copied(folder):
    build = hb.Build.read("build.xml")
    for thing in (build, build.sources, build["rtl/pkg.vhd"]):
        for act in (copy.copy, copy.deepcopy, pickle.dumps):
            with pytest.raises(TypeError):
                act(thing)


def test_lists_are_sequences(folder):
    build = hb.Build.read("build.xml")
    sources = build.sources
    pkg = build["rtl/pkg.vhd"]
    assert sources == build.sources == list(build) and sources != build.group("VHDL")
    assert sources != list(build)[::-1] and sources != ["a", "b", "c", "d"] and sources != tuple(build)
    assert sources.index(pkg) == sources.index("rtl/pkg.vhd") == sources.index(pkg, 1, -1) == 2
    for place in ((3,), (0, 2), (-1,)):
        with pytest.raises(ValueError):
            sources.index(pkg, *place)
    assert sources.count("rtl/PKG.vhd") == 1 and sources.count("rtl/none.vhd") == 0
    assert pkg in sources and "rtl/pkg.vhd" in sources and b"rtl/pkg.vhd" in sources
    for none in (3, "", None, "a\0b", "rtl/none.vhd", hb.Build.read("build.xml")["rtl/pkg.vhd"]):
        assert none not in sources and none not in build
    with pytest.raises(TypeError):
        hash(sources)


def test_severities_have_an_order():
    note, warning, error = hb.Severity.NOTE, hb.Severity.WARNING, hb.Severity.ERROR
    assert note < warning < error and error > warning > note and error >= warning >= note and note <= warning <= error
    assert not (error < warning or warning < note or error <= note or note > error or note >= warning)
    assert sorted([error, note, warning]) == [note, warning, error] and max(note, error, warning) is error
    assert error >= "warning" and "error" >= warning and error == "error" and str(error) == "error"
    with pytest.raises(TypeError, match="'bad' is no severity"):
        error < "bad"


def test_names_are_those_of_the_package():
    assert [name for name in dir(hb) if name[0] != "_"] == sorted(name for name in hb.__all__ if name[0] != "_")
    for name in hb.__all__:
        if name != "__version__":
            assert getattr(hb, name).__module__ in ("hdlbuildfile", "hdlbuildfile._core"), name
    assert hb.ReadError.__module__ == hb.Finding.__module__ == "hdlbuildfile"
    assert pickle.loads(pickle.dumps(hb.Severity.NOTE)) is hb.Severity.NOTE
    error = pickle.loads(pickle.dumps(hb.ReadError("a", 1, 2, "why")))
    assert (error.line, str(error)) == (1, "a:1:2: why")


def test_tells_the_known_languages(folder):
    with pytest.raises(ValueError, match="^unknown language 'VHD'; nearest: VHDL; known: Verilog, VHDL, "):
        hb.Build.read("build.xml").order("VHD")

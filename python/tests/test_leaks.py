"""Nothing is lost, as the leak sanitizer tells; its own check at the end would count what the interpreter leaves."""
import os
import pathlib
import subprocess
import sys

import pytest

import hdlbuildfile as hb

pytestmark = pytest.mark.skipif("libclang_rt.asan" not in os.environ.get("LD_PRELOAD", ""), reason="no sanitizer")

WORK = """
import ctypes, gc, pathlib, sys
import hdlbuildfile as hb

def fails(kind, call, *arguments, **named):
    try:
        call(*arguments, **named)
    except kind:
        return
    raise AssertionError(call)

def work():
    with hb.Build.read("build.xml", lock=True) as build:
        build.add("rtl/new.vhd", library="util").depends_on("rtl/pkg.vhd")
        build["rtl/new.vhd"].rename("rtl/newer.vhd")
        gone = build["rtl/cell.v"]
        build.remove(gone)
        held = [*build.order(), *build.sources, build.order_table(), build.plan(), build.diff()]
        build.check(sources=True)
        build.scan(exact=True, sort=True, tops=True)
        fails(hb.SourceGone, gone.depends_on)
        fails(ValueError, build.add, "x.y")
        fails(KeyError, build.__getitem__, "x.vhd")
    build.reload()
    build.export("vunit", "run.py")
    fails(ValueError, build.export, "nothing", "x")
    fails(hb.ReadError, hb.Build.read, "nothing.xml")
    fails(hb.WriteError, hb.Build.new, "build.xml")
    pathlib.Path("bad.xml").write_text("<HdlBuildFile>")
    fails(hb.ReadError, hb.check_file, "bad.xml")
    hb.check_file("build.xml", sources=True)
    build.export("filelist", "a.f", absolute=True)
    pathlib.Path("b.f").write_text("$NOPE/a.v\\nrtl/cell.v\\n")
    fails(hb.ConversionError, hb.import_build, "filelist", "b.f", "made.xml")
    hb.import_build("filelist", ["b.f"], "made.xml", lossy=True).build.write()
    pathlib.Path("made.xml").unlink()

for turn in range(3):
    pathlib.Path("build.xml").write_text(sys.argv[1])
    work()
gc.collect()
process = ctypes.CDLL(None)
if len(sys.argv) > 2:
    process.malloc.restype = ctypes.c_void_p
    lost = process.malloc(1234)
    del lost
    gc.collect()
print("leaks:", process.__lsan_do_recoverable_leak_check())
"""


def leaks(*arguments):
    build = pathlib.Path("build.xml").read_text()
    # The program that names the lines of a stack would run under the sanitizer, too.
    environment = dict(os.environ, ASAN_OPTIONS=os.environ.get("ASAN_OPTIONS", "") + ":symbolize=0")
    command = [sys.executable, "-c", WORK, build, *arguments]
    return subprocess.run(command, capture_output=True, text=True, env=environment, timeout=120)


def test_nothing_is_lost(folder):
    result = leaks()
    assert (result.stdout, result.stderr) == ("leaks: 0\n", "")


def test_what_is_lost_is_found(folder):
    assert "1234 byte(s)" in leaks("lose").stderr

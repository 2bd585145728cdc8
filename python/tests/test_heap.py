"""The heap of the process stays the one that all modules use."""
import ctypes
import os
import pathlib
import shutil
import subprocess
import sys

import pytest

import hdlbuildfile as hb
from conftest import outside
from hdlbuildfile import _core

# Frees by the operation without a size what libstdc++ has allocated.
OTHER = """
#include <sstream>
extern "C" int grow() {
    std::ostringstream out;
    for (int i = 0; i < 1000; ++i) out << "some text " << i;
    std::string text = out.str();
    text.reserve(100000);
    return static_cast<int>(text.size());
}
"""

PROGRAM = """
import ctypes, sys
def read():
    import hdlbuildfile as hb
    hb.Build.read(sys.argv[1]).order()
def grow():
    assert ctypes.CDLL(sys.argv[2]).grow() == 12890
for step in sys.argv[3:]:
    {"read": read, "grow": grow}[step]()
print("done")
"""


@pytest.mark.skipif("LD_PRELOAD" in os.environ, reason="the sanitizer has a heap of its own")
@pytest.mark.skipif(shutil.which("g++") is None, reason="no compiler")
@pytest.mark.parametrize("steps", ["read grow", "grow read", "read grow read grow"])
def test_other_modules_keep_their_heap(folder, steps):
    pathlib.Path("other.cpp").write_text(OTHER)
    command = "g++ -O1 -fno-sized-deallocation -fPIC -shared other.cpp -o other.so"
    subprocess.run(command.split(), check=True)
    run = subprocess.run(
        [sys.executable, "-c", PROGRAM, "build.xml", "./other.so", *steps.split()],
        capture_output=True,
        text=True,
    )
    assert (run.returncode, run.stdout, run.stderr) == (0, "done\n", "")


def test_the_module_exports_its_entry_point_alone():
    module = ctypes.CDLL(_core.__file__)
    assert module.PyInit__core
    table = subprocess.run(["nm", "-D", "--defined-only", _core.__file__], capture_output=True, text=True, check=True, env=outside())
    assert [line.split()[-1] for line in table.stdout.splitlines()] == ["PyInit__core"]
    needed = subprocess.run(["readelf", "-d", _core.__file__], capture_output=True, text=True, check=True, env=outside()).stdout
    assert "libhdlbuildfile" not in needed and "tbbmalloc" not in needed
    assert hb.__version__

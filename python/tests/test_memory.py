"""Where memory runs out, Python says so."""
import os
import pathlib
import subprocess
import sys

import pytest

PROGRAM = """
import pathlib, resource
import hdlbuildfile as hb
pages = int(pathlib.Path("/proc/self/statm").read_text().split()[0])
limit = pages * resource.getpagesize() + (24 << 20)
resource.setrlimit(resource.RLIMIT_AS, (limit, limit))
small = hb.Build.read("build.xml")
try:
    hb.Build.read("large.xml")
except MemoryError:
    print("MemoryError")
print(len(small), small.order("VHDL")[0].path.name)
small.library = "lib"
print(small.write())
"""


@pytest.mark.skipif("LD_PRELOAD" in os.environ, reason="the sanitizer needs memory of its own")
def test_a_build_that_is_too_large_is_a_memory_error(folder):
    sources = "".join(f"<SourceFile>rtl/block{n // 32}/source{n}.vhd</SourceFile>\n" for n in range(400_000))
    pathlib.Path("large.xml").write_text(
        f"<HdlBuildFile><SourceFileGroup Language='VHDL'>{sources}</SourceFileGroup></HdlBuildFile>\n"
    )
    result = subprocess.run([sys.executable, "-c", PROGRAM], capture_output=True, text=True)
    assert (result.stdout, result.stderr) == ("MemoryError\n4 pkg.vhd\nTrue\n", "")

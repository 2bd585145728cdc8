"""What a type checker has to take."""
import os
import pathlib
from typing import List, Optional, Sequence, Tuple, assert_type

import hdlbuildfile as hb


def use(path: pathlib.Path) -> None:
    with hb.Build.read(path, lock=True) as build:
        assert_type(build, hb.Build)
        for source in build.order("VHDL"):
            assert_type(source, hb.Source)
            assert_type(source.path, pathlib.Path)
            assert_type(source.library, str)
            assert_type(os.fspath(source), str)
            source.own_library = None
            source.library = "core"
        sources: Sequence[hb.Source] = build.sources
        assert_type(build.sources[0], hb.Source)
        assert_type(build.sources[1:], List[hb.Source])
        added = build.add(b"a.vhd", "core", hb.Language.VHDL, is_library_file=True)
        assert_type(added.depends_on(sources[0], "b.vhd"), hb.Source)
        assert_type(build.find("a.vhd"), Optional[hb.Source])
        assert_type(build.order_table(), List[Tuple[hb.Language, str, str]])
        assert_type(build.top_language, hb.Language)
        build.top_language = hb.Language.VHDL
        for finding in build.check(sources=True, external=["ieee"]) + build.scan(exact=True):
            assert_type(finding, hb.Finding)
            assert_type(finding.severity, hb.Severity)
            if finding.place:
                assert_type(finding.place.line, Optional[int])
        build.export("vunit", "run.py", top=build.tops[0])
        assert_type(build.plan().sources[0].needs, Tuple[int, ...])
        assert_type(build.write(), bool)
    imported = hb.import_build("filelist", ["a.f", pathlib.Path("b.f")], path, lossy=True)
    assert_type(imported.build, hb.Build)
    try:
        imported.build.reload()
    except hb.ReadError as error:
        assert_type(error.line, Optional[int])
        assert_type(error.file, pathlib.Path)

"""Findings, scans, plans, exports and imports."""
import os
import pathlib

import pytest

import hdlbuildfile as hb
from conftest import BUILD


def lines(findings):
    return [str(finding) for finding in findings]


def codes(findings):
    return [finding.code for finding in findings]


def test_checks_a_build(folder):
    findings = hb.Build.read("build.xml").check()
    assert findings == [
        hb.Finding(
            "HB103",
            "unknown-element",
            hb.Severity.WARNING,
            "unknown element Notes",
            hb.Place(pathlib.Path("build.xml"), 9, 3),
            (),
            "Take the element out, or correct its name. Readers pass over it, and a save drops it.",
        )
    ]
    assert lines(findings) == ["build.xml:9:3: warning: unknown element Notes [HB103]"]


def test_checks_the_sources(folder):
    build = hb.Build.read("build.xml")
    assert lines(build.check(sources=True)) == [
        "build.xml:9:3: warning: unknown element Notes [HB103]",
        "rtl/top.vhd:1:5: warning: no file holds core.pkg; rtl/pkg.vhd holds the unit in library util, "
        "but is needed in core here [HB504]",
        "rtl/top.vhd: warning: nothing in it needs rtl/pkg.vhd, on which it depends [HB506]",
        "rtl/pkg.vhd:1:9: note: nobody needs package util.pkg [HB508]",
        "tb/tb.vhd:1:8: note: nobody instantiates entity core.tb [HB509]",
    ]
    pathlib.Path("rtl/top.vhd").write_text("library ext;\nuse ext.p.all;\nentity top is\nend;\n")
    assert "HB503" in codes(build.check(sources=True))
    assert "HB503" not in codes(build.check(sources=True, external="ext"))
    assert "HB503" not in codes(build.check(sources=True, external=["other", "ext"]))


def test_tells_the_details_of_a_cycle(folder):
    build = hb.Build.read("build.xml")
    build["rtl/pkg.vhd"].depends_on("tb/tb.vhd")
    cycle = build.check()[0]
    assert str(cycle) == (
        "build.xml:11:5: error: dependency cycle of 3 files: "
        "rtl/top.vhd -> rtl/pkg.vhd -> tb/tb.vhd -> rtl/top.vhd [HB301]"
    )
    assert cycle.details == ("rtl/top.vhd", "rtl/pkg.vhd", "tb/tb.vhd")


def test_checks_a_file_that_is_no_build(folder):
    pathlib.Path("other.xml").write_text("<Other/>\n")
    assert lines(hb.check_file("other.xml")) == [
        "error: no HdlBuildFile element: the document describes no build [HB101]"
    ]
    with pytest.raises(hb.ReadError, match="nothing.xml: No such file or directory"):
        hb.check_file("nothing.xml")
    os.remove("tb/tb.vhd")
    assert codes(hb.check_file("build.xml")) == ["HB102", "HB201", "HB103"]


def test_paths_are_told_from_the_working_directory_of_the_moment(folder, monkeypatch):
    build = hb.Build.read("build.xml")
    monkeypatch.chdir(folder / "rtl")
    assert lines(build.check()) == ["../build.xml:9:3: warning: unknown element Notes [HB103]"]


def test_scans_what_is_lacking(folder):
    build = hb.Build.read("build.xml")
    build["rtl/pkg.vhd"].own_library = None
    for source in build.group("VHDL"):
        source.clear_dependencies()
    build["rtl/pkg.vhd"].depends_on("rtl/cell.v")
    assert lines(build.scan()) == [
        "rtl/pkg.vhd: warning: nothing in it needs rtl/cell.v, on which it depends [HB506]",
        "tb/tb.vhd:1:8: note: nobody instantiates entity core.tb [HB509]",
    ]
    assert [[d.path.name for d in source.dependencies] for source in build.group("VHDL")] == [
        ["pkg.vhd"],
        ["cell.v"],
        ["top.vhd"],
    ]
    build.remove_top("tb", "core", "sim")
    assert codes(build.scan(exact=True, tops=True)) == ["HB509"]
    assert list(build["rtl/pkg.vhd"].dependencies) == []
    assert lines(build.tops) == ["core.tb(sim)"]


def test_scan_sorts_verilog(folder):
    pathlib.Path("rtl/a.sv").write_text("module a;\nimport p::*;\nendmodule\n")
    pathlib.Path("rtl/p.sv").write_text("package p;\nendpackage\n")
    build = hb.Build.new("made.xml", "Verilog")
    build.add("rtl/a.sv")
    build.add("rtl/p.sv")
    assert codes(build.scan()) == ["HB512", "HB509"]
    assert codes(build.scan(sort=True)) == ["HB509"]
    assert [source.path.name for source in build] == ["p.sv", "a.sv"]


def test_plans(folder):
    build = hb.Build.read("build.xml")
    vhdl, verilog = hb.Language.VHDL, hb.Language.VERILOG
    assert build.plan() == hb.Plan(
        "build",
        folder,
        [
            hb.PlanSource(folder / "rtl/cell.v", verilog, "core", True, ()),
            hb.PlanSource(folder / "rtl/pkg.vhd", vhdl, "util", False, ()),
            hb.PlanSource(folder / "rtl/top.vhd", vhdl, "core", False, (1,)),
            hb.PlanSource(folder / "tb/tb.vhd", vhdl, "core", False, (2,)),
        ],
        [hb.Top(vhdl, "core", "tb", "sim")],
        [
            hb.PlanSettings(verilog, None, (), (), (), {}, (), (), ()),
            hb.PlanSettings(vhdl, None, (), (), (), {}, (), (), ()),
        ],
        [],
    )


def test_exports(folder):
    build = hb.Build.read("build.xml")
    expected = "// Verilog sources, one item a line\n-v rtl/cell.v\n"
    assert build.export_text("filelist") == expected
    assert lines(build.export("filelist", "run.f")) == [
        "warning: filelist has no words for sources in VHDL [HB602]"
    ]
    assert pathlib.Path("run.f").read_text() == expected
    assert build.export_text("filelist", folder="rtl") == expected.replace("rtl/", "")
    assert build.export_text("filelist", absolute=True) == expected.replace("rtl/", f"{folder}/rtl/")
    build.export("filelist", pathlib.Path("rtl/run.f"))
    assert pathlib.Path("rtl/run.f").read_text() == expected.replace("rtl/", "")


def test_exports_what_a_top_needs(folder):
    build = hb.Build.read("build.xml")
    build["rtl/pkg.vhd"].own_library = None
    pathlib.Path("rtl/lone.vhd").write_text("entity lone is\nend;\n")
    build.add("rtl/lone.vhd")
    for top in (build.tops[0], "core.tb(sim)", "tb"):
        text = build.export_text("vunit-csv", top=top)
        assert "top.vhd" in text and "lone.vhd" not in text
    assert "lone.vhd" in build.export_text("vunit-csv")
    with pytest.raises(ValueError, match="unknown top-level component 'core.tb\\(sin\\)'; nearest: core.tb"):
        build.export_text("vunit-csv", top="core.tb(sin)")


def test_refuses_exports(folder):
    build = hb.Build.read("build.xml")
    with pytest.raises(ValueError, match="unknown format 'vunitt'; nearest: vunit"):
        build.export("vunitt", "x")
    with pytest.raises(ValueError, match="the output would replace the build file"):
        build.export("vunit", "build.xml")
    with pytest.raises(ValueError, match="the output would replace a source"):
        build.export("vunit", "rtl/top.vhd")
    with pytest.raises(hb.WriteError, match="No such file or directory"):
        build.export("vunit", "nowhere/x.py")
    build.add("rtl/new\nline.vhd")
    with pytest.raises(hb.ConversionError) as error:
        build.export("depfile", "x")
    assert "HB603" in codes(error.value.findings) and str(error.value) == "\n".join(lines(error.value.findings))
    assert not pathlib.Path("x").exists()


def test_imports(folder):
    pathlib.Path("sim.f").write_text("+define+W=8\n-v rtl/cell.v\nrtl/a.sv\n")
    pathlib.Path("rtl/a.sv").write_text("module a;\nendmodule\n")
    imported = hb.import_build("filelist", "sim.f", "made.xml")
    assert lines(imported.findings) == []
    assert [(s.relative.as_posix(), s.is_library_file) for s in imported.build] == [("rtl/cell.v", True), ("rtl/a.sv", False)]
    assert imported.build.plan().settings[0].defines == {"W": "8"}
    assert imported.build.write()
    assert hb.Build.read("made.xml").check() == []
    with pytest.raises(hb.WriteError, match="the file exists already"):
        hb.import_build("filelist", "sim.f", "made.xml")


def test_refuses_imports(folder):
    with pytest.raises(ValueError, match="unknown format 'filelistt'; nearest: filelist"):
        hb.import_build("filelistt", "sim.f", "made.xml")
    with pytest.raises(hb.ConversionError, match="HB709"):
        hb.import_build("filelist", ["nothing.f"], "made.xml")
    pathlib.Path("empty.f").write_text("")
    with pytest.raises(ValueError, match="there are no sources in the files"):
        hb.import_build("filelist", "empty.f", "made.xml")


def test_tells_what_is_lost(folder):
    pathlib.Path("sim.f").write_text("$NOPE/a.v\nrtl/cell.v\n")
    with pytest.raises(hb.ConversionError) as error:
        hb.import_build("filelist", "sim.f", "made.xml")
    imported = hb.import_build("filelist", "sim.f", "made.xml", lossy=True)
    assert imported.findings == error.value.findings
    assert lines(imported.findings) == [
        "sim.f:1:1: warning: the variable NOPE is not set [HB704]",
        "sim.f:1:1: note: does not exist: $NOPE/a.v [HB707]",
    ]


def test_tells_the_formats():
    formats = hb.export_formats()
    assert formats["vunit"] == hb.Format("vunit", formats["vunit"].description, formats["vunit"].holds)
    assert {"filelist", "verilator"} <= set(hb.import_formats()) and list(formats) == sorted(formats)


EXAMPLE = '''
import hdlbuildfile as hb
build = hb.Build.read("build.xml")            # raises hb.ReadError with file, line, column, reason
for source in build.order("VHDL"):
    print(source.library, source.path)        # pathlib paths
build.add("rtl/new.vhd", library="core").depends_on("rtl/pkg.vhd")
for finding in build.check(): print(finding.code, finding.place, finding.text)
build.scan(); build.export("vunit", "run.py"); build.write()
'''


def test_a_program_from_end_to_end(folder, capsys):
    pathlib.Path("rtl/new.vhd").write_text("architecture other of top is\nbegin\nend;\n")
    exec(EXAMPLE, {})
    assert capsys.readouterr().out == (
        f"util {folder}/rtl/pkg.vhd\n"
        f"core {folder}/rtl/top.vhd\n"
        f"core {folder}/tb/tb.vhd\n"
        "HB103 build.xml:9:3 unknown element Notes\n"
    )
    assert "rtl/new.vhd" in pathlib.Path("run.py").read_text()
    assert pathlib.Path("build.xml").read_text() == BUILD.replace(
        "<SourceFile>tb/tb.vhd<Dependency>rtl/top.vhd</Dependency></SourceFile>\n",
        "<SourceFile>tb/tb.vhd<Dependency>rtl/top.vhd</Dependency></SourceFile>\n"
        '    <SourceFile Library="false" PrecompiledLibrary="core">rtl/new.vhd<Dependency>rtl/pkg.vhd</Dependency>\n'
        "      <Dependency>rtl/top.vhd</Dependency>\n"
        "    </SourceFile>\n",
    )


def as_read_again(build, **options):
    """What check() tells, which has to be what a fresh read tells."""
    findings = lines(build.check(**options))
    assert findings == lines(hb.Build.read(build.path).check(**options)) == lines(hb.check_file(build.path, **options))
    return findings


def test_checks_what_was_written_as_a_fresh_read_does(folder):
    made = hb.Build.new("made.xml")
    made.add("rtl/pkg.vhd")
    assert lines(made.check()) == []
    assert made.write()
    assert as_read_again(made) == []
    note = "rtl/pkg.vhd:1:9: note: nobody needs package work.pkg [HB508]"
    assert as_read_again(made, sources=True) == [note]
    pathlib.Path("list.f").write_text("rtl/cell.v\n")
    imported = hb.import_build("filelist", "list.f", "imported.xml").build
    imported.write()
    assert as_read_again(imported) == []

    build = hb.Build.read("build.xml")
    notes = "build.xml:9:3: warning: unknown element Notes [HB103]"
    missing = [
        "error: read result 9: Build File: Missing file(s) on load. [HB102]",
        "build.xml:14:5: error: missing file: rtl/missing.vhd (VHDL) [HB201]",
        notes,
    ]
    build.add("rtl/missing.vhd")
    assert lines(build.check()) == missing and [source.path.name for source in build.missing] == ["missing.vhd"]
    build.write()
    assert as_read_again(build) == missing
    build.remove("rtl/missing.vhd")
    build.write()
    assert as_read_again(build) == [notes] and list(build.missing) == []


def test_check_asks_the_disk_anew(folder):
    build = hb.Build.read("build.xml")
    cell = build["rtl/cell.v"]
    os.remove("rtl/cell.v")
    assert codes(build.check()) == ["HB102", "HB201", "HB103"] and list(build.missing) == [cell]
    os.mkdir("rtl/cell.v")
    assert codes(build.check()) == codes(hb.check_file("build.xml")) == ["HB204", "HB103"]
    os.rmdir("rtl/cell.v")
    pathlib.Path("rtl/cell.v").write_text("module cell;\nendmodule\n")
    assert codes(build.check()) == ["HB103"] and list(build.missing) == []
    assert build["rtl/cell.v"] == cell


def test_check_tells_of_the_build_and_not_of_what_others_wrote(folder):
    build = hb.Build.read("build.xml")
    pathlib.Path("build.xml").write_text("<Other/>\n")
    assert codes(build.check()) == ["HB103"]
    pathlib.Path("build.xml").write_text(BUILD.replace('<Notes of="nobody">kept as it is</Notes>', ""))
    build.reload()
    assert codes(build.check()) == []

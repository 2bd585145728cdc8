"""A small project that every test has for itself."""
import os
import pathlib

import pytest

BUILD = """<?xml version="1.0"?>
<!-- made by hand -->
<HdlBuildFile TopLevelLanguage='VHDL' DestinationLibrary="core">
  <TopLevelComponents>
    <ComponentList Language="VHDL">
      <Component Library="core" Architecture="sim">tb</Component>
    </ComponentList>
  </TopLevelComponents>
  <Notes of="nobody">kept as it is</Notes>
  <SourceFileGroup Language='VHDL'>
    <SourceFile>rtl/top.vhd<Dependency>rtl/pkg.vhd</Dependency></SourceFile> <!-- the top -->
    <SourceFile PrecompiledLibrary='util'>rtl/pkg.vhd</SourceFile>
    <SourceFile>tb/tb.vhd<Dependency>rtl/top.vhd</Dependency></SourceFile>
  </SourceFileGroup>
  <SourceFileGroup Language='Verilog'>
    <SourceFile Library="true">rtl/cell.v</SourceFile>
  </SourceFileGroup>
</HdlBuildFile>
"""

SOURCES = {
    "rtl/pkg.vhd": "package pkg is\nend package;\n",
    "rtl/top.vhd": "use work.pkg.all;\nentity top is\nend;\narchitecture rtl of top is\nbegin\nend;\n",
    "tb/tb.vhd": "entity tb is\nend;\narchitecture sim of tb is\nbegin\n  uut : entity work.top;\nend;\n",
    "rtl/cell.v": "module cell;\nendmodule\n",
}


def outside() -> "dict[str, str]":
    """The environment of other programs: the sanitizer of the module is not theirs."""
    return {name: value for name, value in os.environ.items() if name != "LD_PRELOAD"}


@pytest.fixture
def folder(tmp_path: pathlib.Path, monkeypatch: pytest.MonkeyPatch) -> pathlib.Path:
    """The folder of the project, which is the working directory."""
    for name, text in {"build.xml": BUILD, **SOURCES}.items():
        path = tmp_path / name
        path.parent.mkdir(exist_ok=True)
        path.write_text(text)
    monkeypatch.chdir(tmp_path)
    return tmp_path

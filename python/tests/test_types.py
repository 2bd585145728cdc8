"""The types that the module tells, by mypy and by the module itself."""
import ast
import inspect
import os
import pathlib
import re
import subprocess
import sys

import pytest

import hdlbuildfile as hb
from conftest import outside

TESTS = pathlib.Path(__file__).parent
PACKAGE = pathlib.Path(hb.__file__).parent

pytest.importorskip("mypy", reason="no mypy")


def run(tmp_path, *command):
    """What a tool prints; it starts elsewhere, as it would take the folder's files for modules."""
    environment = dict(outside(), MYPYPATH=str(PACKAGE.parent))
    return subprocess.run(
        [sys.executable, "-m", *map(str, command)], cwd=tmp_path, capture_output=True, text=True, env=environment
    )


def mypy(tmp_path, *arguments):
    return run(tmp_path, "mypy", "--strict", f"--cache-dir={tmp_path}/cache", *arguments)


def test_mypy_takes_a_right_program(tmp_path):
    result = mypy(tmp_path, TESTS / "types" / "right.py", PACKAGE / "_records.py", PACKAGE / "__init__.py")
    assert (result.stdout, result.returncode) == ("Success: no issues found in 3 source files\n", 0)


def test_mypy_refuses_a_wrong_program(tmp_path):
    wrong = TESTS / "types" / "wrong.py"
    result = mypy(tmp_path, wrong)
    found = re.findall(r"wrong\.py:(\d+): error: .*\[([\w-]+)\]$", result.stdout, re.MULTILINE)
    lines = wrong.read_text().splitlines()
    expected = [(str(number), line.split("# E: ")[1]) for number, line in enumerate(lines, 1) if "# E: " in line]
    assert (found, result.returncode) == (expected, 1)


def test_the_stubs_name_what_the_module_has(tmp_path):
    if "LD_PRELOAD" in os.environ:
        pytest.skip("under a sanitizer that has to be loaded first")
    result = run(tmp_path, "mypy.stubtest", "hdlbuildfile", "--allowlist", TESTS / "types" / "allowed.txt")
    assert (result.stdout, result.returncode) == ("Success: no issues found in 3 modules\n", 0)


def parameters_of(docstring):
    """The parameters in the first line, as pybind11 writes it: name, ('default' or '', where)."""
    text = re.match(r"\w+\((.*)\) -> ", docstring).group(1)
    parts, depth, part = [], 0, ""
    for character in text:
        depth += (character in "([{") - (character in ")]}")
        if character == "," and depth == 0:
            parts.append(part)
            part = ""
        else:
            part += character
    names, is_keyword = [], False
    for part in filter(None, (part.strip() for part in [*parts, part])):
        if part == "*":
            is_keyword = True
        elif part.startswith("*"):
            names.append("*")
        else:
            names.append((part.split(":")[0], " = " in part, is_keyword))
    return names


def parameters_in(function):
    """The same of a function in the stubs."""
    arguments = function.args
    without = len(arguments.args) - len(arguments.defaults)
    names = [(one.arg, number >= without, False) for number, one in enumerate(arguments.args)]
    if arguments.vararg:
        names.append("*")
    return names + [
        (one.arg, default is not None, True) for one, default in zip(arguments.kwonlyargs, arguments.kw_defaults)
    ]


def functions_of_stubs():
    tree = ast.parse((PACKAGE / "_core.pyi").read_text())
    for node in tree.body:
        if isinstance(node, ast.FunctionDef):
            yield node.name, getattr(hb, node.name), node
        elif isinstance(node, ast.ClassDef):
            for member in node.body:
                if isinstance(member, ast.FunctionDef) and not member.decorator_list and member.name[:2] != "__":
                    yield f"{node.name}.{member.name}", getattr(getattr(hb, node.name), member.name), member
                elif isinstance(member, ast.FunctionDef) and [
                    one for one in member.decorator_list if getattr(one, "id", "") == "staticmethod"
                ]:
                    yield f"{node.name}.{member.name}", getattr(getattr(hb, node.name), member.name), member


def test_the_stubs_have_the_parameters_of_the_module():
    checked = []
    for name, function, stub in functions_of_stubs():
        assert parameters_of(function.__doc__) == parameters_in(stub), name
        checked.append(name)
    assert len(checked) == 33


def test_every_member_has_a_stub():
    stubs = {name for name, _, _ in functions_of_stubs()}
    for kind in (hb.Build, hb.Source, hb.SourceList):
        for name, member in vars(kind).items():
            if not name.startswith("_") and not isinstance(member, property):
                assert f"{kind.__name__}.{name}" in stubs
    assert inspect.isclass(hb.Build)

"""The examples of exported classes in examples/classes: NAME.cpp is a program, NAME.txt what it prints. The comment in
front of it names the classes that it shows: "// TFirst, TSecond: what it does"."""
import pathlib
import re

FOLDER = pathlib.Path(__file__).resolve().parent.parent / "examples" / "classes"
NAMES = re.compile(r"(\w+(?:, \w+)*): ")


def classes_shown(example):
    """The classes that the text of an example says that it shows."""
    comment = re.match(r"(?:// .*\n)*", example).group(0)
    match = NAMES.match(" ".join(line.removeprefix("// ") for line in comment.splitlines()))
    return match.group(1).split(", ") if match else []


def example_by_class():
    """The name of the example for each class that one shows; of classes in a namespace, the last name."""
    found = {}
    for path in sorted(FOLDER.glob("*.cpp")):
        for name in classes_shown(path.read_text(encoding="utf-8")):
            found.setdefault(name, path.stem)
    return found

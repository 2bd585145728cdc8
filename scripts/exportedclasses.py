"""What the headers below src mark for export, and how tests/packages/classes.txt has its objects made."""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
TABLE = "tests/packages/classes.txt"
ROW_FORMAT = "class | copies | constructor arguments | statement that changes the object | claim"

# What the rows of the table call.
SUPPORT = """\
const TV2VCommandLineOption kSwitches[] = {
    {"-ncc", "-No_Component_Check, -ncc", "No check", V2V_PLAIN_OPTION, true},
    {"-p", "-p, packages", "Packages", V2V_FILE_OPTION, false},
    {"-rip", "-rip, prefix", "Prefix", V2V_STRING_OPTION, true},
};

const ISFileName* FileOf(const char* name) { return ISFileName::NewISFileName(name); }

TProjectSimSettings& SettingsToRead() {
    static TProjectSimSettings settings;
    return settings;
}

TProjectSimConfig* NamedConfiguration(const char* name) {
    auto* configuration = new TProjectSimConfig(true);
    configuration->SetName(name);
    return configuration;
}
"""


def fail(message):
    sys.exit(f"{pathlib.Path(sys.argv[0]).name}: {message}")


def closing(text, opening):
    """Where the bracket at `opening` closes."""
    depth = 0
    for at in range(opening, len(text)):
        depth += (text[at] in "({[") - (text[at] in ")}]")
        if depth == 0:
            return at
    return len(text)


def members_of(body):
    """Each member of a class with its access: declarations, and definitions without their bodies."""
    access, begin, at = "private", 0, 0
    while at < len(body):
        label = re.match(r"\s*(public|protected|private):", body[at:]) if at == begin else None
        if label:
            access = label.group(1)
            at += label.end()
            begin = at
        elif body[at] in "([":
            at = closing(body, at) + 1
        elif body[at] in "{;":
            yield access, " ".join(body[begin:at].split())
            at = closing(body, at) + 1 if body[at] == "{" else at + 1
            begin = at
        else:
            at += 1


def parameters_of(text):
    """The parameters in the text of a list; commas between angles are not between parameters."""
    parameters, depth, begin = [], 0, 0
    for at, character in enumerate(text + ","):
        depth += (character in "(<{[") - (character in ")>}]")
        if character == "," and depth == 0:
            parameters.append(text[begin:at].strip())
            begin = at + 1
    return [each for each in parameters if each]


def operation_of(text):
    """An operation as both a declaration and a symbol show it: name, number of parameters, constness. None
    for what is no operation."""
    match = re.match(r"(?:[^(=]*?[\s*&])?(operator\s*(?:\(\)|[^\s(]+|[\w*& ]+?)|~?\w+)\s*\(", text)
    if not match:
        return None
    end = closing(text, match.end() - 1)
    name = match.group(1) if not match.group(1).startswith("operator ") else "operator"
    return name, len(parameters_of(text[match.end():end])), bool(re.match(r"\s*const\b", text[end + 1:]))


class ScannedClass:
    """What a header declares of a class."""

    def __init__(self, name, bases, body):
        members = list(members_of(body))
        self.public = {operation_of(text) for access, text in members if access == "public"}
        self.hidden = {operation_of(text) for access, text in members if access != "public"} - self.public
        body = re.sub(r"\b(?:public|protected|private):", "", body)
        self.name = name
        self.bases = bases
        # Pieces of function bodies are among these; they look like no virtual operation.
        members = [" ".join(member.split()) for member in re.split(r"[;{}]", body)]
        self.pure = [m[: m.rindex("= 0")].strip() for m in members if re.search(r"\)( const)? = 0$", m)]
        self.overridden = {key_of(m[: m.rindex("override")]) for m in members if m.endswith("override")}


def key_of(declaration):
    """Tells operations apart: by name, types of parameters and constness."""
    name, parameters, rest = re.match(r".*?(~?\w+)\((.*)\)(.*)$", declaration.strip()).groups()
    # Without a parameter's name, which an override may leave out.
    types = [re.sub(r"(?<=[*& ])(?!bool|int)\w+$", "", each.strip()).strip() for each in parameters.split(",")]
    return name, tuple(types), "const" in rest


def namespace_around(text, at):
    """The namespace that is open at a place, with "::"; namespaces begin and end in the first column."""
    opened = re.findall(r"^namespace (\w+) \{|^\}\s*$", text[:at], re.M)
    return opened[-1] + "::" if opened and opened[-1] else ""


def scan_headers():
    """The marked classes by full name."""
    classes = {}
    for path in sorted((ROOT / "src").rglob("*.h")):
        text = re.sub(r"//.*", "", path.read_text(encoding="utf-8"))
        for match in re.finditer(
                r"^class HDLBUILDFILE_(?:API|SHARED_TYPE) (\w+)([^;{]*)\{(.*?)^\};", text, re.M | re.S):
            bases = re.findall(r"public (?:virtual )?([\w:]+)", match.group(2))
            name = namespace_around(text, match.start()) + match.group(1)
            classes[name] = ScannedClass(name, bases, match.group(3))
    if not classes:
        fail("no header marks a class for export")
    return classes


def find_class(classes, name, user):
    """A base as the derived class names it."""
    return classes.get(name) or classes.get(user.name.rpartition("::")[0] + "::" + name)


def pure_operations(classes, scanned):
    """The declarations that a class derived from `scanned` has to override, by key."""
    pending = {}
    for base in scanned.bases:
        found = find_class(classes, base, scanned)
        if found:
            pending.update(pure_operations(classes, found))
    pending = {key: text for key, text in pending.items() if key not in scanned.overridden}
    pending.update((key_of(text), text) for text in scanned.pure)
    return pending


def read_rows():
    rows = {}
    for number, line in enumerate((ROOT / TABLE).read_text(encoding="utf-8").splitlines(), 1):
        if line.startswith("#"):
            continue
        cells = [cell.strip() for cell in line.split(" |")]
        if len(cells) != 5 or not all((cells[0], cells[1], cells[3], cells[4])):
            fail(f"{TABLE}:{number}: not of the form {ROW_FORMAT}")
        rows[cells[0]] = cells[1:]
    return rows


def derived_class(scanned, argument, pure):
    """The text of a class that overrides what is pure, and its name. `argument` is a template's."""
    outer, _, bare = scanned.name.rpartition("::")
    own = "Own" + bare
    lines = [f"class {own} : public {bare}{f'<{argument}>' if argument else ''} {{", "public:",
             f"    using {bare}{f'<{argument}>' if argument else ''}::{bare};"]
    for text in pure.values():
        declaration = re.sub(r"\bT\b", argument, text) if argument else text
        body = "{}" if declaration.startswith("virtual void ") else "{ return {}; }"
        lines.append(f"    {declaration.removeprefix('virtual ')} override {body}")
    lines.append("};\n")
    if not outer:
        return "\n".join(lines), own
    return "\n".join([f"namespace {outer} {{", *lines, "}\n"]), f"{outer}::{own}"

"""What is mutated, and where it is tested."""
from pathlib import Path
import fnmatch
import json


class Project:
    """Read from a JSON file with these keys:
    root: the project's folder, from the file's own folder on
    sources: the folder of the sources; the tests of <sources>/<folder> are tests/<folder>/test_*
    include: the folders where the sources' includes are searched
    left_out: patterns of sources that are not mutated, each with the reason
    programs_left_out: names of test programs that are not run, each with the reason
    equivalents: the reviewed list of mutants that cannot show
    preset: the CMake preset that is built
    build: where
    """

    def __init__(self, file):
        settings = json.loads(Path(file).read_text())
        home = Path(file).resolve().parent
        self.root = (home / settings["root"]).resolve()
        self.sources = settings["sources"]
        self.include = settings["include"]
        self.left_out = settings["left_out"]
        self.programs_left_out = settings["programs_left_out"]
        self.equivalents = home / settings["equivalents"]
        self.preset = settings["preset"]
        self.build = self.root / settings["build"]

    def files(self):
        """The sources to mutate, from the root on."""
        found = [path.relative_to(self.root).as_posix()
                 for path in (self.root / self.sources).rglob("*") if path.suffix in (".h", ".cpp")]
        return sorted(file for file in found
                      if not any(fnmatch.fnmatch(file, pattern) for pattern in self.left_out))

    def folder_of(self, file):
        return Path(file).parent.relative_to(self.sources).as_posix()

    def compiler_arguments(self):
        folders = [str(self.root / folder) for folder in self.include]
        return ["-x", "c++", "-std=c++20"] + [part for folder in folders for part in ("-I", folder)]

#!/usr/bin/env python3
"""Sees to it that no command of the manual stays unrun.

  blocks_test.py TOOL RUN_PAGE...

RUN_PAGE are the pages that scripts/run-pages runs. Each block of code in README.md, CONTRIBUTING.md and docs is run with
its page, or is a row of blocks.txt, which says why not. In text and in the blocks of these rows each command of
hdlbuild and of scripts is looked up: the command, the script and their options have to exist. Usage lines are those of
the help. A message in a sentence is one that a block prints. Each page is in the tree of the site.
"""
import functools
import itertools
import pathlib
import re
import subprocess
import sys
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
TABLE = pathlib.Path(__file__).with_name("blocks.txt")
BLOCK = re.compile(r"^```(\w*)(?: file=\S+)?\n(.*?)^```$", re.MULTILINE | re.DOTALL)
SPAN = re.compile(r"`([^`\n]+(?:\n[^`\n]+)?)`")
# What hdlbuild prints, shown inside of a sentence.
MESSAGE = re.compile(r"error: |nearest: |^\[\d+/\d+\] |^\S+:\d+:\d+: ")
OPTION = re.compile(r"(?<=\s)(--?[a-zA-Z][\w-]*)")


@functools.cache
def pages():
    """The text of each page by its name."""
    files = [ROOT / "README.md", ROOT / "CONTRIBUTING.md", *sorted((ROOT / "docs").rglob("*.md"))]
    return {str(file.relative_to(ROOT)): file.read_text(encoding="utf-8") for file in files}


@functools.cache
def help_of_tool(*words):
    """What `hdlbuild help` tells of a command; "" for no command."""
    done = subprocess.run([TOOL, "help", *words], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True,
                          check=False)
    return done.stdout if done.returncode == 0 else ""


def is_usage(body):
    """Whether all lines are usage lines, as the help of their commands begins with."""
    for line in body.splitlines():
        words = re.findall(r"(?<= )[a-z][\w-]*(?= )", line.partition(" [OPTIONS]")[0] + " ")
        if " [OPTIONS]" not in line or f"\nUsage: {line}\n" not in help_of_tool(*words):
            return False
    return True


def is_run(page, block, run_pages):
    """Whether scripts/run-pages runs all of the block, or writes it to a file that commands read."""
    if page not in run_pages:
        return False
    language, body = block.groups()
    if language == "console" or " file=" in block.group(0).partition("\n")[0]:
        return True
    if not language:
        return is_usage(body)
    lines = [line for line in body.splitlines() if line.strip()]
    return "<!-- setup\n" in pages()[page] and language == "sh" and all(line.startswith("hdlbuild ") for line in lines)


def unrun_blocks(run_pages):
    """The page, the language and the text of each block that is not run."""
    return [(page, *block.groups()) for page, text in pages().items() for block in BLOCK.finditer(text)
            if not is_run(page, block, run_pages)]


def rows():
    """The reason for each page and first line."""
    table = {}
    for line in TABLE.read_text(encoding="utf-8").splitlines():
        if not line.startswith("#"):
            page, first, reason = line.split(" | ", 2)
            table[page, first] = reason
    return table


def commands_in(line):
    """The commands of hdlbuild and of scripts in a line, each with its words."""
    return [part.strip() for part in re.split(r"&&|\||;", line.removeprefix("- run: ").partition(" # ")[0])
            if re.match(r"\s*(hdlbuild |(\./)?scripts/)", part)]


class Blocks(unittest.TestCase):
    maxDiff = None

    def test_each_is_run_or_has_a_reason(self):
        known = rows()
        found = {(page, f"all of {language}") if (page, f"all of {language}") in known else (page, body.splitlines()[0])
                 for page, language, body in unrun_blocks(RUN_PAGES)}
        self.assertEqual(sorted(found - known.keys()), [], "blocks that are not run, and are not in blocks.txt")
        self.assertEqual(sorted(known.keys() - found), [], "rows of blocks.txt without a block")

    def test_what_looks_like_a_block_is_one(self):
        for page, text in pages().items():
            fences = len(re.findall(r"^\s*(```|~~~)", text, re.MULTILINE))
            self.assertEqual(fences, 2 * len(BLOCK.findall(text)), page)

    def test_run_pages_are_all_pages_with_commands(self):
        with_commands = {page for page, text in pages().items()
                         if "\n```console\n" in text or "<!-- setup\n" in text}
        self.assertEqual(sorted(with_commands), sorted(RUN_PAGES))

    def test_commands_in_text_exist(self):
        met = 0
        for page, text in pages().items():
            lines = [" ".join(span.split()) for span in SPAN.findall(BLOCK.sub("", text))]
            lines += [line for of, _, body in unrun_blocks(RUN_PAGES) if of == page for line in body.splitlines()]
            for command in itertools.chain.from_iterable(commands_in(line) for line in lines):
                met += 1
                self.assertEqual(self.missing_in(command), [], f"{page}: {command}")
        self.assertGreater(met, 40)

    def test_messages_in_sentences_are_printed_by_blocks(self):
        met = 0
        for page in RUN_PAGES:
            text = pages()[page]
            printed = "".join(body for language, body in BLOCK.findall(text) if language == "console")
            for span in SPAN.findall(BLOCK.sub("", text)):
                if MESSAGE.search(span):
                    met += 1
                    self.assertIn(" ".join(span.split()).removesuffix(" ..."), printed, page)
        self.assertGreater(met, 3)

    def test_each_page_is_in_the_tree_of_the_site(self):
        layout = (ROOT / "scripts" / "site" / "layout.xml").read_text(encoding="utf-8")
        labels = {re.sub(r"\W", "_", re.sub(r"/README$", "", name.removesuffix(".md").removeprefix("docs/"))).lower()
                  for name in pages()}
        self.assertEqual(sorted(label for label in labels if f'url="@ref {label}"' not in layout), [])

    def missing_in(self, command):
        """What of the words of a command does not exist."""
        words = command.split()
        known = self.help_of(words[1:]) if words[0] == "hdlbuild" else self.text_of(ROOT / words[0])
        missing = [] if known else [" ".join(words[:2])]
        return missing + [option for option in OPTION.findall(command.partition(" -- ")[0])
                          if known and not re.search(r"(?<![\w-])" + re.escape(option) + r"(?![\w-])", known)]

    def text_of(self, script):
        """A script with what may take its arguments for it: the Python files or sources of the folder of its name."""
        if not script.is_file():
            return ""
        folders = {"mutate": ROOT / "scripts" / "mutation", "bench": ROOT / "bench" / "runner"}
        files = [script, *folders[script.name].iterdir()] if script.name in folders else [script]
        return "".join(file.read_text(encoding="utf-8") for file in files if file.is_file())

    def help_of(self, words):
        """The help of a command with that of its verbs; "" for no command. COMMAND and options alone are the tool's."""
        if not re.fullmatch(r"[a-z-]+", words[0]) or words[0].startswith("-"):
            return help_of_tool()
        text = help_of_tool(words[0])
        return text + "".join(help_of_tool(words[0], verb) for verb in re.findall(r"^  ([a-z-]+) ", text, re.MULTILINE))


if __name__ == "__main__":
    TOOL, *RUN_PAGES = sys.argv[1:]
    unittest.main(argv=sys.argv[:1])

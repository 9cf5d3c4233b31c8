#!/usr/bin/python3
"""Man page and completions against the program: what `wbimport --help` has, they have, and no more. Links of the pages."""
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

HERE = pathlib.Path(__file__).resolve().parent
BUILD = pathlib.Path(sys.argv.pop(1)).resolve()
DOCUMENTS = BUILD / "host/documents"
WBIMPORT = BUILD / "host/wbimport"

def run(*words, **options):
    options.setdefault("env", os.environ)
    return subprocess.run([str(word) for word in words], capture_output=True, text=True, **options)

def help_of(*command):
    return run(WBIMPORT, *command, "--help").stdout

def options_in(text):
    return set(re.findall(r"^ +(?:-\w,)?(--[a-z][a-z-]*)", text, re.M))

COMMANDS = re.findall(r"^  (\w[\w-]*) ", help_of().split("Subcommands:")[1].split("Examples:")[0], re.M)
OPTIONS = {command: options_in(help_of(command)) for command in COMMANDS}
OF_PROGRAM = options_in(help_of())

class ManPage(unittest.TestCase):
    def setUp(self):
        result = run("groff", "-man", "-ww", "-Tutf8", "-P-cbou", "-rLL=200n", DOCUMENTS / "wbimport.1")
        self.assertEqual(result.stderr, "", "groff warns")
        self.text = result.stdout.replace("\u2010\n", "-").replace("\u2212", "-")

    def test_has_every_option_of_every_command_and_no_other(self):
        self.assertEqual(set(re.findall(r"^ +(?:-\w(?: \S+)?, )?(--[a-z][a-z-]*)", self.text, re.M)),
                         OF_PROGRAM.union(*OPTIONS.values()))
        for command in COMMANDS:
            self.assertIn(f"wbimport {command} ", self.text)
        self.assertNotRegex(self.text, r'NAME"|@[A-Z]')

    def test_configuration_that_it_shows_is_taken(self):
        shown = self.text.split("FILES")[1].split("The keys are")[0].split("before both:")[1]
        with tempfile.TemporaryDirectory() as folder:
            file = pathlib.Path(folder, "config.toml")
            file.write_text("\n".join(line.strip() for line in shown.splitlines()))
            result = run(WBIMPORT, "import", "--sample", "sqlite", "--config", file)
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertIn("branch\n", result.stdout)

class Pages(unittest.TestCase):
    def test_name_every_function_of_the_practice_servers(self):
        source = HERE.parent.parent
        functions = re.findall(r'^    \{"(\w+)", -?\d', (source / "simulator/helper_functions.cpp").read_text(), re.M)
        self.assertGreater(len(functions), 5)
        for function in functions:
            self.assertIn(f"`{function}(", (source / "docs/simulator.md").read_text())

    def test_link_to_what_is_there(self):
        source = HERE.parent.parent
        pages = [page for page in source.rglob("*.md") if not {"build", "node_modules"} & set(page.relative_to(source).parts)]
        self.assertGreater(len(pages), 20)
        for page in pages:
            for link in re.findall(r"\]\((?!https?:)([^)#\s]+)", page.read_text()):
                self.assertTrue((page.parent / link).exists(), f"{page.name}: {link}")

class Completion:
    """What each shell has to do; `offers(line)` gives the words that it offers."""

    @classmethod
    def setUpClass(cls):
        if shutil.which(cls.shell) is None:
            raise unittest.SkipTest(f"{cls.shell} is not installed")
        cls.folder = tempfile.TemporaryDirectory()
        folder = pathlib.Path(cls.folder.name)
        for name in ("shop.db", "a b.db"):
            (folder / name).touch()
        (folder / "messages").mkdir()
        (folder / "odbc.ini").write_text("[stock]\nDriver=SQLite3\n[two words]\nDriver=SQLite3\n")
        shutil.copy(DOCUMENTS / "wbimport.zsh", folder / "_wbimport")
        cls.env = dict(os.environ, PATH=f"{BUILD}/host:{os.environ['PATH']}", WB_TEST_VARIABLE="x",
                       ODBCINI=str(folder / "odbc.ini"), ODBCSYSINI=str(folder))

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    def words(self, *command):
        result = run(*command, cwd=self.folder.name, env=self.env)
        return sorted({line.split("\t")[0].rstrip("= ") for line in result.stdout.splitlines()} - {""})

    def test_offers_every_command_and_option(self):
        self.assertEqual(self.offers("wbimport "), sorted(COMMANDS))
        for command in COMMANDS:
            self.assertEqual(self.offers(f"wbimport {command} --"), sorted(OPTIONS[command] | OF_PROGRAM),
                             command)

    def test_offers_the_values_of_an_option(self):
        formats = re.search(r"there are ([\w, ]*)", run(WBIMPORT, "render", "x", "--format", "?").stderr)[1]
        for line, words in {
            "wbimport import --format ": formats.split(", "),
            "wbimport list --format ": ["json", "text"],
            "wbimport import --progress p": ["plain"],
            "wbimport list ow": ["owners"],
            "wbimport import --dsn ": ["stock", "two\\ words"],
            "wbimport import --sqlite sh": ["shop.db"],
            "wbimport render sh": ["shop.db"],
            "wbimport import --password-env WB_TEST_V": ["WB_TEST_VARIABLE"],
            "wbimport import --messages me": ["messages"],
            "wbimport import --user ": [],
        }.items():
            offered = [word.rstrip("/") for word in self.offers(line)]
            self.assertEqual(offered, sorted(self.quoted(word) for word in words), line)
        self.assertTrue([word for word in self.offers("wbimport import --items tables,vi") if "views" in word])
        self.assertTrue([word for word in self.offers("wbimport import --format=ht") if "html" in word])

    def quoted(self, word):
        return word

class Bash(Completion, unittest.TestCase):
    shell = "bash"

    def offers(self, line):
        return self.words("bash", HERE / "complete.bash", DOCUMENTS / "wbimport.bash", line)

class Zsh(Completion, unittest.TestCase):
    shell = "zsh"

    def offers(self, line):
        return self.words("zsh", HERE / "complete.zsh", self.folder.name, line)

class Fish(Completion, unittest.TestCase):
    shell = "fish"

    def offers(self, line):
        return self.words("fish", "--no-config", "-c", 'source $argv[1]; complete -C "$argv[2]"',
                          DOCUMENTS / "wbimport.fish", line)

    def quoted(self, word):
        return word.replace("\\", "")  # fish adds them when it inserts the word

if __name__ == "__main__":
    unittest.main()

"""Runs the program for the tests of this folder: no configuration of the user's, a folder of its own a test."""
import os
import pathlib
import sqlite3
import subprocess
import sys
import tempfile
import unittest

BUILD = pathlib.Path(sys.argv.pop(1)).resolve()
WBIMPORT = BUILD / "host/wbimport"
SIMULATOR = BUILD / "lib/libcatalogsim.so"

def server(keywords):
    return f"Driver={SIMULATOR};{keywords}"

class Case(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="wb-trust-")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        # unixODBC leaks where a data source's name is none, and a traced program looks for leaks in vain.
        self.environment = {**os.environ, "ASAN_OPTIONS": "detect_leaks=0", "XDG_CONFIG_HOME": folder.name, "XDG_CONFIG_DIRS": folder.name}

    @staticmethod
    def is_sanitized():
        return b"__asan_init" in WBIMPORT.read_bytes()

    def file(self, name, text):
        path = self.folder / name
        path.write_text(text)
        return path

    def opened(self, name, text):
        file = self.file(name, text).open()
        self.addCleanup(file.close)
        return file

    def database(self, name="shop.db", sql="create table a(id integer primary key, n text)"):
        path = self.folder / name
        with sqlite3.connect(path) as connection:
            connection.executescript(sql)
        connection.close()
        return path

    def start(self, *words, **options):
        options = {"stdin": subprocess.DEVNULL, "stdout": subprocess.PIPE, "stderr": subprocess.PIPE, "text": True,
                   "env": self.environment, "cwd": self.folder, **options}
        return subprocess.Popen([str(word) for word in (WBIMPORT, *words)], **options)

    def run_program(self, *words, timeout=60, **options):
        process = self.start(*words, **options)
        try:
            out, err = process.communicate(timeout=timeout)
        except subprocess.TimeoutExpired:
            process.kill()
            process.communicate()
            raise
        return subprocess.CompletedProcess(words, process.returncode, out, err)

def main():
    unittest.main(verbosity=1)

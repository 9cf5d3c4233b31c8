#!/usr/bin/python3
"""The JSON schemas and docs/formats.md against what wbimport writes and takes."""
import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

try:
    import jsonschema
except ImportError:
    print("SKIPPED: no python3-jsonschema")
    sys.exit(77)

SOURCE = pathlib.Path(__file__).resolve().parent.parent.parent
WBIMPORT = pathlib.Path(sys.argv.pop(1)).resolve() / "host/wbimport"
PAGE = (SOURCE / "docs/formats.md").read_text()

def load(name):
    schema = json.loads((SOURCE / "docs/schemas" / name).read_text())
    jsonschema.Draft202012Validator.check_schema(schema)
    return schema

def strict(schema):
    """The same without room for members that it does not name: what is written must be described."""
    if isinstance(schema, list):
        return [strict(each) for each in schema]
    if not isinstance(schema, dict):
        return schema
    copy = {key: strict(value) for key, value in schema.items()}
    if isinstance(copy.get("properties"), dict):
        copy.setdefault("additionalProperties", False)
    return copy

def names_in(schema):
    if isinstance(schema, list):
        return set().union(*map(names_in, schema)) if schema else set()
    if not isinstance(schema, dict):
        return set()
    properties = schema.get("properties", {})
    return set(properties).union(*map(names_in, schema.values()))

WORKBOOK, REQUEST = load("workbook.schema.json"), load("request.schema.json")

def faults(document, schema):
    return [f"{error.message[:200]} at {list(error.absolute_path)}"
            for error in jsonschema.Draft202012Validator(schema).iter_errors(document)]

def wbimport(*words, text=""):
    return subprocess.run([WBIMPORT, *words], input=text, capture_output=True, text=True)

class Workbook(unittest.TestCase):
    def test_is_as_the_schema_says_for_every_server_and_every_member(self):
        for sample in re.search(r"there are ([\w, -]*)", wbimport("info", "--sample", "?").stderr)[1].split(", "):
            self.check(wbimport("import", "--sample", sample).stdout, sample)
        self.check(wbimport("import", "--items", "owner-names,table-names,column-names", "--table", "loan").stdout, "names")
        for golden in (SOURCE / "tests/export/golden").glob("every_*.json"):
            self.check(golden.read_text(), golden.name)
            self.check(wbimport("render", str(golden), "--format", "json", "--compact").stdout, golden.name)

    def check(self, text, name):
        document = json.loads(text)
        self.assertEqual(faults(document, strict(WORKBOOK)), [], name)
        self.assertEqual(faults(document["source"].get("choices", {}), REQUEST), [], name)

    def test_bears_the_title_and_the_time_that_it_is_given(self):
        def source(*options, **environment):
            result = subprocess.run([WBIMPORT, "import", "-q", "--format", "json", *options], capture_output=True, text=True,
                                    env={**os.environ, **environment})
            return json.loads(result.stdout)["source"] if result.returncode == 0 else result.returncode
        self.assertNotIn("importedAt", source())
        marked = source("--title", "City \"library\"", "--stamp", "--compact", SOURCE_DATE_EPOCH="1709208000")
        self.assertEqual((marked["title"], marked["importedAt"]), ("City \"library\"", "2024-02-29T12:00:00Z"))
        self.assertRegex(source("--stamp", SOURCE_DATE_EPOCH="")["importedAt"], r"^20\d\d-\d\d-\d\dT\d\d:\d\d:\d\dZ$")
        for wrong in ("-1", "1.5", "now", "99999999999999"):
            self.assertEqual(source("--stamp", SOURCE_DATE_EPOCH=wrong), 2, wrong)
        self.assertEqual(wbimport("import", "--format", "text", "--compact").returncode, 2)

    def test_that_the_schema_refuses_is_no_workbook_file(self):
        self.assertTrue(faults({"format": "workbook", "version": 1}, WORKBOOK))

class Request(unittest.TestCase):
    def test_has_the_members_that_the_program_knows(self):
        def known(request):
            said = wbimport("import", "--request", "-", text=json.dumps(request)).stderr
            return sorted(re.search(r"there are ([\w -]*)", said)[1].split())
        properties = REQUEST["properties"]
        self.assertEqual(known({"?": 1}), sorted(properties))
        self.assertEqual(known({"items": ["?"]}), sorted(properties["items"]["items"]["enum"]))
        for member in ("selectedTables", "selectedSynonyms"):
            self.assertEqual(known({member: [{"?": 1}]}), sorted(properties[member]["items"]["properties"]))
        self.assertEqual(known({"settings": {"?": 1}}), sorted(properties["settings"]["properties"]))

    def test_is_refused_by_both_or_taken_by_both(self):
        for request in (
            {}, [], {"items": []}, {"items": ["aggregates"]}, {"items": ["index"]}, {"items": "tables"},
            {"keys": 1}, {"dbmsType": 8}, {"dbmsType": 9}, {"dbmsType": -1}, {"dbmsType": "5"}, {"singleTable": None},
            {"selectedTables": [{"owner": "joe"}]}, {"selectedTables": [{"name": "t", "type": "synonym"}]},
            {"selectedSynonyms": [{"name": "o", "synonymId": 2147483648}]}, {"settings": {"GenericWorkbookImport": -1}},
            {"settings": {"GenericWorkbookImport": "1", "GenericDB2WorkbookImport": 4294967295}},
            {"settings": {"GenericWorkbookImport": 1.5}}, {"catalog": "main", "includeSystem": False},
        ):
            with self.subTest(request=request):
                text = json.dumps(request)
                refused = wbimport("import", "--items", "aggregates", "--request", "-", text=text).returncode == 2
                self.assertEqual(refused, bool(faults(request, REQUEST)))

class Page(unittest.TestCase):
    def test_names_every_member(self):
        named = set(re.findall(r"`(\w+)`", PAGE))
        self.assertEqual((names_in(WORKBOOK) | names_in(REQUEST)) - named, set())

    def test_shows_what_is_so(self):
        shown = [json.loads(block) for block in re.findall(r"```json\n(.*?)```", PAGE, re.S)]
        self.assertEqual(len(shown), 2)
        self.assertEqual(faults(shown[0], REQUEST), [])
        self.assertEqual(faults(shown[1], strict(WORKBOOK)), [])
        with tempfile.NamedTemporaryFile("w", suffix=".json") as file:
            json.dump(shown[1], file)
            file.flush()
            again = wbimport("render", file.name, "--format", "json")
        self.assertEqual(json.loads(again.stdout), shown[1], again.stderr)

if __name__ == "__main__":
    unittest.main()

"""What is written against a schema of docs/schemas, without room for members that it does not name."""
import json
import pathlib

SCHEMAS = pathlib.Path(__file__).resolve().parent.parent.parent / "docs/schemas"


def strict(part):
    if isinstance(part, list):
        return [strict(each) for each in part]
    if not isinstance(part, dict):
        return part
    closed = {key: strict(value) for key, value in part.items()}
    # A condition names a member too, and forbids no other.
    return dict(closed, additionalProperties=False) if closed.get("type") == "object" and "properties" in closed else closed


def faults(name, written):
    """Sentences on what is wrong, none where all is well; None without the library that can tell."""
    try:
        import jsonschema
    except ImportError:
        return None
    schema = json.loads((SCHEMAS / name).read_text())
    jsonschema.Draft202012Validator.check_schema(schema)
    return [error.message for error in jsonschema.Draft202012Validator(strict(schema)).iter_errors(written)]

"""What the results in JSON look like: the schemas of docs/schemas, as far as they are used there."""

import json
import re
from pathlib import Path

FOLDER = Path(__file__).resolve().parents[2] / "docs/schemas"
KINDS = {"object": dict, "array": list, "string": str, "integer": int, "boolean": bool, "null": type(None)}
KNOWN_WORDS = {"$schema", "$ref", "title", "type", "enum", "pattern", "properties", "required", "additionalProperties",
               "items"}


def schema(name):
    return json.loads((FOLDER / f"{name}.json").read_text(encoding="utf-8"))


def is_of_kind(value, kind):
    return isinstance(value, KINDS[kind]) and not (kind == "integer" and isinstance(value, bool))


def faults(value, wanted, place="result"):
    """Each place where a value is not what its schema says."""
    unknown = set(wanted) - KNOWN_WORDS
    if unknown:
        return [f"{place}: the schema says {sorted(unknown)}"]
    if "$ref" in wanted:
        return faults(value, schema(Path(wanted["$ref"]).stem), place)
    if "enum" in wanted and value not in wanted["enum"]:
        return [f"{place}: {value!r} is none of {wanted['enum']}"]
    kinds = wanted.get("type", [])
    kinds = [kinds] if isinstance(kinds, str) else kinds
    if kinds and not any(is_of_kind(value, kind) for kind in kinds):
        return [f"{place}: {value!r} is no {kinds}"]
    if isinstance(value, str) and not re.search(wanted.get("pattern", ""), value):
        return [f"{place}: {value!r} is not like {wanted['pattern']}"]
    if isinstance(value, list):
        return [fault for i, item in enumerate(value) for fault in faults(item, wanted["items"], f"{place}[{i}]")]
    return faults_of_members(value, wanted, place) if isinstance(value, dict) else []


def faults_of_members(value, wanted, place):
    missing = set(wanted["required"]) - set(value)
    found = [f"{place}: without {name}" for name in sorted(missing)]
    for name, member in value.items():
        if name not in wanted["properties"]:
            found.append(f"{place}: has {name}")
        else:
            found += faults(member, wanted["properties"][name], f"{place}.{name}")
    return found

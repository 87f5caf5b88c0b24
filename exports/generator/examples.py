"""Examples and rows: the first rows of an entry stand in the table and are its examples; a family's further rows are in
tests/rows. Together they are what tests run and what the programs of other languages run, too (rows/script.h tells the form).
"""
from table import TableError


def block_text(setup, examples):
    return "".join(line + "\n" for line in setup + examples) if examples else ""


def line_numbers(path, entry):
    """Where each example stands in its table, so that a wrong one is found at once."""
    lines = path.read_text(encoding="utf-8").splitlines()
    at = entry.line - 1
    for example in entry.examples:
        written = ("'" + example + "'", '"' + example.replace("\\", "\\\\").replace('"', '\\"') + '"')
        at = next((i for i in range(at, len(lines)) if any(w in lines[i] for w in written)), at)
        yield at + 1


def rows(family, root):
    """All rows of a family in one file, each with the place where people find it."""
    table = family.path.relative_to(root).as_posix()
    text = [f"# Made from {table} and tests/rows/{family.stem}.rows."]
    seen = set()
    for entry in family.entries:
        if entry.line in seen or not entry.examples:
            continue
        seen.add(entry.line)
        text += ["", f"@ {table} {entry.line}", *family.setup]
        for example, line in zip(entry.examples, line_numbers(family.path, entry)):
            text += [f"@ {table} {line}", example]
    further = root / "tests" / "rows" / f"{family.stem}.rows"
    if further.exists():
        text += ["", f"@ {further.relative_to(root).as_posix()} 1", further.read_text(encoding="utf-8").rstrip("\n")]
    return "\n".join(text) + "\n"


def check_rows(families, root):
    """Every entry has one to three examples of its own; and rows for a family that there is not would never be run."""
    for family in families:
        forms = {}
        for entry in family.entries:
            forms.setdefault(entry.line, []).append(entry)
        for line, entries in forms.items():
            names = {name for entry in entries for name in entry.names}
            count = sum(example.split(" ")[0] in names for example in entries[0].examples)
            if not 1 <= count <= 3:
                raise TableError(family.path.relative_to(root), line,
                                 f"{entries[0].main}: {count} examples: write one to three rows that call it (examples = ['{entries[0].main} ...'])")
    stems = {f.stem for f in families}
    for path in sorted((root / "tests" / "rows").glob("*.rows")):
        if path.stem not in stems:
            raise TableError(path.relative_to(root), 1, f"there is no family {path.stem}")

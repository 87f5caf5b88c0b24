"""The reference pages: a family's handwritten introduction, then each entry's synopsis from the table."""
from library import parameters
from wording import argument_words, result_words, summary


def other_forms(entry, family):
    forms = []
    for e in family.entries:
        if e is entry or e.line != entry.line:
            continue
        label = "Length form" if e.making == "length" or e.symbol.endswith("_length") else f"{e.base}-based"
        if label == "Length form" and e.base == 0:
            label = "0-based length form"
        forms.append(f"{label}: {', '.join(f'`{n}`' for n in e.names)}")
    return forms


def section(entry, family):
    gap = "" if entry.result_type.endswith("*") else " "
    lines = [f"## {entry.main}", "", summary(entry), "", "```c", f"{entry.result_type}{gap}{entry.main}({parameters(entry)});", "```", ""]
    if entry.arguments:
        lines += ["| Argument | Meaning |", "|---|---|"]
        lines += [f"| `{a.name}` | {argument_words(entry, a)} |".replace("||", "\\|\\|") for a in entry.arguments]
        lines.append("")
    lines += [f"Returns {result_words(entry)}.", ""]
    if entry.notes:
        lines += [entry.notes, ""]
    names = [f"`{n}`" for n in entry.names[1:]]
    forms = ([f"Also called {', '.join(names)}"] if names else []) + other_forms(entry, family)
    if forms:
        lines += [". ".join(forms) + ".", ""]
    return lines


def page(family):
    lines = [f"# {family.title}", "", family.prose, ""]
    seen = set()
    for entry in family.entries:
        if entry.line not in seen:
            seen.add(entry.line)
            lines += section(entry, family)
    return "\n".join(lines).rstrip() + "\n"


def index(families):
    lines = ["# Reference", "", "One page a family; made from the tables under `exports/` and the introductions beside them.", "",
             "| Family | Functions |", "|---|---|"]
    for family in families:
        mains = list(dict.fromkeys((e.line, e.main) for e in family.entries))
        first = {}
        for line, main in mains:
            first.setdefault(line, main)
        lines.append(f"| [{family.title}]({family.stem}.md) | {', '.join(first.values())} |")
    return "\n".join(lines) + "\n"

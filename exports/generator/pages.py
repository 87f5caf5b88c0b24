"""The reference pages: a family's handwritten introduction, then each entry's synopsis from the table."""
from constants import in_markdown
from library import prototype
from wording import argument_words, is_length, result_words, summary


def other_forms(entry, family):
    forms = []
    for e in family.entries:
        if e is entry or e.line != entry.line:
            continue
        label = "Length form" if is_length(e) else f"{e.base}-based"
        if label == "Length form" and e.base == 0:
            label = "0-based length form"
        forms.append(f"{label}: {', '.join(f'`{n}`' for n in e.names)}" + (f", returning {e.length_returns}" if e.length_returns else ""))
    return forms


def section(entry, family):
    lines = [f"## {entry.main}", "", summary(entry), "", "```c", f"{prototype(entry, entry.main)};", "```", ""]
    if entry.arguments:
        lines += ["| Argument | Meaning |", "|---|---|"]
        lines += [f"| `{a.name}` | {argument_words(entry, a)} |".replace("||", "\\|\\|") for a in entry.arguments]
        lines.append("")
    lines += [f"Returns {result_words(entry)}.", ""]
    if entry.notes:
        lines += [entry.notes, ""]
    if entry.examples:
        lines += ["```", *family.setup, *entry.examples, "```", ""]
    names = [f"`{n}`" for n in entry.names[1:]]
    forms = ([f"Also called {', '.join(names)}"] if names else []) + other_forms(entry, family)
    if forms:
        lines += [". ".join(forms) + ".", ""]
    return [in_markdown(line) for line in lines]


def page(family):
    lines = [f"# {family.title}", "", family.prose, ""]
    seen = set()
    for entry in family.entries:
        if entry.line not in seen:
            seen.add(entry.line)
            lines += section(entry, family)
    return "\n".join(lines).rstrip() + "\n"


def constants_page(groups):
    lines = ["# Constants", "", "Numbers that functions take and give, by the names that `vexlor32.h` has for them.", ""]
    for group in groups:
        lines += [f"## {group.title}", "", in_markdown(f"{group.does[0].upper()}{group.does[1:]}."), "", "| Name | Value | Meaning |", "|---|---|---|"]
        lines += [f"| `{c.name}` | {c.value} | {in_markdown(c.meaning)} |" for c in group.constants] + [""]
    return "\n".join(lines).rstrip() + "\n"


def index(families):
    lines = ["# Reference", "", "One page a family; made from the tables under `exports/` and the introductions beside them.",
             "[Constants](constants.md) has the names of modes, flags, masks and error numbers.", "",
             "| Family | Functions |", "|---|---|"]
    for family in families:
        mains = list(dict.fromkeys((e.line, e.main) for e in family.entries))
        first = {}
        for line, main in mains:
            first.setdefault(line, main)
        lines.append(f"| [{family.title}]({family.stem}.md) | {', '.join(first.values())} |")
    return "\n".join(lines) + "\n"

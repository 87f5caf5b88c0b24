"""Named constants for modes, flags, masks and error numbers (exports/constants.toml), and their use in the table's texts."""
import dataclasses
import re
import tomllib

MENTION = re.compile(r"\bVX_[A-Z0-9_]*[A-Z0-9](_\.\.\.)?(?![A-Za-z0-9_])")
VALUE = re.compile(r"(?P<name>VX_[A-Z0-9_]*[A-Z0-9]) = (?P<value>-?(?:0x[0-9A-F]+|\d+)) - (?P<meaning>\S.*)\Z")


class ConstantError(Exception):
    def __init__(self, line, text):
        super().__init__(text)
        self.line = line


@dataclasses.dataclass
class Constant:
    name: str
    value: str
    meaning: str

    @property
    def expression(self):
        return f"({self.value})" if self.value.startswith("-") else self.value


@dataclasses.dataclass
class Group:
    title: str
    does: str
    constants: list


def read_constants(path):
    if not path.exists():
        return []
    text = path.read_text(encoding="utf-8")
    lines = text.splitlines()
    try:
        data = tomllib.loads(text)
    except tomllib.TOMLDecodeError as error:
        found = re.search(r"line (\d+)", str(error))
        raise ConstantError(int(found[1]) if found else len(lines), str(error)) from error

    def line_of(piece):
        return next((i + 1 for i, l in enumerate(lines) if piece in l), 1)

    groups, known = [], set()
    for key, fields in data.items():
        if set(fields) != {"title", "does", "values"}:
            raise ConstantError(line_of(f"[{key}]"), f"{key}: a group has `title`, `does` and `values`")
        constants = []
        for value in fields["values"]:
            match = VALUE.match(value)
            if not match or match["name"] in known:
                raise ConstantError(line_of(value), f"{key}: `{value}` " + ("is named twice" if match else "is not of the form VX_NAME = number - meaning"))
            known.add(match["name"])
            constants.append(Constant(match["name"], match["value"], match["meaning"]))
        groups.append(Group(fields["title"], fields["does"], constants))
    return groups


class Mentions:
    """Texts name constants; people read their values behind the names. VX_GROUP_... stands for all that begin so."""

    def __init__(self, groups):
        self.values = {c.name: c.value for g in groups for c in g.constants}

    def unknown(self, text):
        for match in MENTION.finditer(text):
            start = match[0].removesuffix("...")
            if not (match[0] in self.values or match[1] and any(n.startswith(start) for n in self.values)):
                return match[0]
        return ""

    def with_values(self, text):
        return MENTION.sub(lambda m: m[0] if m[1] else f"{m[0]} ({self.values[m[0]]})", text)


def in_markdown(text):
    return MENTION.sub(lambda m: f"`{m[0]}`", text)

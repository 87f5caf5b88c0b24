"""Reads the export table (exports/*.toml) into families and entries, and refuses what is wrong in it.

Every complaint is a TableError that carries file and line, so that whoever edits a table sees at once where to look.
"""
import dataclasses
import pathlib
import re
import tomllib

from constants import ConstantError, Mentions, read_constants
from kinds import ARGUMENTS, RESULTS
from rooms import RoomError, parse_room

ONE_CASE = re.compile(r"-?\d+ (on|if|when|without|too)\b[^,;:]*\Z")
CONSTANTS = "constants.toml"
ENTRY_KEYS = {"names", "length", "zero", "zero-length", "args", "returns", "does", "notes",
              "unavailable", "unimplemented", "value", "length-by-hand", "length-returns", "remembers", "examples"}
FAMILY_KEYS = {"title", "area"}
OPTIONAL_FAMILY_KEYS = {"setup"}
NAME = re.compile(r"[A-Za-z_][A-Za-z0-9_]*\Z")
ARGUMENT = re.compile(r"(?P<name>[a-z][A-Za-z0-9]*)\s*:\s*(?P<kind>[a-z]+)\s*(?:\[(?P<room>.*)\])?(?P<flags>(\s+[a-z0-9=A-Z-]+)*)\Z")


class TableError(Exception):
    def __init__(self, path, line, text):
        super().__init__(f"{path}:{line}: {text}")


@dataclasses.dataclass
class Argument:
    name: str
    kind: str
    room: object = None        # parsed room expression, or None
    in_place: str = ""         # name of the text that is edited when this destination is NULL
    terminated: bool = False   # the destination must already hold a terminator at its end
    without: str = ""          # text without which (NULL) the destination is left as it is
    below: str = ""            # number below `limit` of which the destination is left as it is
    limit: int = 0
    before: str = ""           # number that, below 0, says how many bytes in front of the pointer are used
    constant: bool = False     # without the destination (NULL) the result is a constant empty text
    apart: bool = False        # the destination may not be the text itself
    meaning: str = ""

    @property
    def of_kind(self):
        return ARGUMENTS[self.kind]

    @property
    def ctype(self):
        return self.of_kind.c_type


@dataclasses.dataclass
class Entry:
    """One exported entry point: a handwritten one, or one that is made mechanically from another."""
    symbol: str                # suffix of the C symbol vx_...
    names: list
    arguments: list
    returns: str
    does: str
    notes: str
    family: str
    line: int
    making: str = "hand"       # hand, length, one, stub
    base: int = -1             # 0, 1, or -1 where no position is adjusted
    source: "Entry" = None     # the entry that a mechanical one calls
    stub: tuple = ()
    result_meaning: str = ""
    remembers: bool = False    # keeps something from call to call that a result shows
    length_returns: str = ""   # a length form's result, where it is not the length of the pointer form's text
    examples: list = dataclasses.field(default_factory=list)  # rows, and the set-up lines before them

    @property
    def main(self):
        return self.names[0]

    @property
    def result_type(self):
        return RESULTS[self.returns].c_type

    def argument(self, name):
        return next((a for a in self.arguments if a.name == name), None)


@dataclasses.dataclass
class Family:
    stem: str
    title: str
    area: str
    path: pathlib.Path
    entries: list
    prose: str
    setup: list                # set-up lines of all of its examples


def split_meaning(text):
    """`name: kind[room] flags - meaning`; a minus inside the brackets belongs to the room."""
    depth = 0
    for i, c in enumerate(text):
        depth += (c == "[") - (c == "]")
        if depth == 0 and text.startswith(" - ", i):
            return text[:i], text[i + 3:]
    return text, ""


class FamilyReader:
    def __init__(self, path, shown_path, mentions):
        self.path = path
        self.mentions = mentions
        self.shown = shown_path
        self.text = path.read_text(encoding="utf-8")
        self.lines = self.text.splitlines()

    def line_of(self, entry, key=None):
        """Line of an entry's heading, or of one of its keys."""
        heading = next((i for i, l in enumerate(self.lines) if l.strip() == f"[{entry}]"), 0)
        if key:
            for i in range(heading + 1, len(self.lines)):
                if self.lines[i].startswith("["):
                    break
                if re.match(rf"{re.escape(key)}\s*=", self.lines[i]):
                    return i + 1
        return heading + 1

    def fail(self, entry, key, text):
        raise TableError(self.shown, self.line_of(entry, key), f"{entry}: {text}")

    def said(self, entry, key, text):
        """A text of the table, with the values of the constants that it names."""
        if name := self.mentions.unknown(text):
            self.fail(entry, key, f"no constant is called `{name}` (exports/{CONSTANTS} has them)")
        return self.mentions.with_values(text.strip())

    def read(self):
        try:
            data = tomllib.loads(self.text)
        except tomllib.TOMLDecodeError as error:
            line = re.search(r"line (\d+)", str(error))
            raise TableError(self.shown, line.group(1) if line else len(self.lines), str(error)) from error
        head = {k: v for k, v in data.items() if not isinstance(v, dict)}
        for key in FAMILY_KEYS - head.keys():
            raise TableError(self.shown, 1, f"the family's `{key}` is missing")
        for key in head.keys() - FAMILY_KEYS - OPTIONAL_FAMILY_KEYS:
            raise TableError(self.shown, 1, f"unknown key `{key}` before the first entry")
        entries = []
        for name, fields in data.items():
            if isinstance(fields, dict):
                entries += self.entries_of(name, fields)
        prose = self.path.with_suffix(".md")
        if not prose.exists():
            raise TableError(self.shown, 1, f"the family's introduction {prose.name} is missing beside its table")
        return Family(self.path.stem, head["title"], head["area"], self.path, entries, prose.read_text(encoding="utf-8").strip(),
                      head.get("setup", []))

    def names_of(self, entry, key, fields):
        names = fields.get(key, "").split()
        for name in names:
            if not NAME.match(name):
                self.fail(entry, key, f"`{name}` is no name that a program could call")
        return names

    def argument_of(self, entry, text, known):
        declared, meaning = split_meaning(text)
        match = ARGUMENT.match(declared.strip())
        if not match:
            self.fail(entry, "args", f"cannot read the argument `{text}` (form: name: kind[room] flags - meaning)")
        name, kind = match["name"], match["kind"]
        if kind not in ARGUMENTS:
            self.fail(entry, "args", f"unknown kind `{kind}` of argument `{name}` (known: {', '.join(ARGUMENTS)})")
        if name in known:
            self.fail(entry, "args", f"two arguments are called `{name}`")
        if ARGUMENTS[kind].room == "needed" and match["room"] is None:
            self.fail(entry, "args", f"`{name}` is a {kind} and needs its room in brackets")
        if not ARGUMENTS[kind].room and match["room"] is not None:
            self.fail(entry, "args", f"`{name}` is a {kind}, which has no room")
        if ARGUMENTS[kind].needs_meaning and not meaning.strip():
            self.fail(entry, "args", f"`{name}` is a number without a meaning: say what it counts or selects, and from where (name: kind - meaning)")
        argument = Argument(name, kind, meaning=self.said(entry, "args", meaning))
        for flag in match["flags"].split():
            if flag == "terminated":
                argument.terminated = True
            elif flag == "null-gives-constant":
                argument.constant = True
            elif flag == "apart":
                argument.apart = True
            elif flag.startswith("in-place=") and kind == "dest":
                argument.in_place = flag.partition("=")[2]
            elif flag.startswith("untouched-without="):
                argument.without = flag.partition("=")[2]
            elif flag.startswith("before=") and kind in {"bytes", "block"}:
                argument.before = flag.partition("=")[2]
            elif below := re.fullmatch(r"untouched-below-(\d)=(\w+)", flag):
                argument.limit, argument.below = int(below[1]), below[2]
            else:
                self.fail(entry, "args", f"unknown flag `{flag}` of argument `{name}`")
        return argument, match["room"]

    def arguments_of(self, entry, fields):
        arguments, rooms = [], []
        for text in fields.get("args", []):
            argument, room = self.argument_of(entry, text, {a.name for a in arguments})
            arguments.append(argument)
            rooms.append(room)
        kinds = {a.name: a.kind for a in arguments}
        for argument, room in zip(arguments, rooms):
            if room is not None:
                try:
                    argument.room = parse_room(room, kinds)
                except RoomError as error:
                    self.fail(entry, "args", f"room of `{argument.name}`: {error}")
            if argument.in_place and kinds.get(argument.in_place) != "str":
                self.fail(entry, "args", f"`{argument.name}` is in place of `{argument.in_place}`, which is no str argument")
            if argument.without and kinds.get(argument.without) not in {"str", "bytes"}:
                self.fail(entry, "args", f"`{argument.name}` is untouched without `{argument.without}`, which is no str argument and no bytes")
            if argument.before and kinds.get(argument.before) != "int":
                self.fail(entry, "args", f"`{argument.name}` is used before `{argument.before}`, which is no int")
            if argument.below and kinds.get(argument.below) not in {"int", "uint"}:
                self.fail(entry, "args", f"`{argument.name}` is untouched below {argument.limit} of `{argument.below}`, which is no number")
        return arguments

    def entries_of(self, key, fields):
        for unknown in fields.keys() - ENTRY_KEYS:
            self.fail(key, unknown, f"unknown key `{unknown}` (known: {', '.join(sorted(ENTRY_KEYS))})")
        if not fields.get("does"):
            self.fail(key, "does", "`does` is missing: say in a line what the function does")
        returns, _, result_meaning = (part.strip() for part in fields.get("returns", "").partition(" - "))
        if returns not in RESULTS:
            self.fail(key, "returns", f"unknown result `{returns}` (known: {', '.join(RESULTS)})")
        if RESULTS[returns].needs_meaning and (not result_meaning or ONE_CASE.match(result_meaning)):
            self.fail(key, "returns", f"`returns` says no more than {result_meaning or returns}: say what the number is, and what it is on failure")
        result_meaning = self.said(key, "returns", result_meaning)
        arguments = self.arguments_of(key, fields)
        names = list(dict.fromkeys([key] + self.names_of(key, "names", fields)))
        zero, length, zero_length = (self.names_of(key, k, fields) for k in ("zero", "length", "zero-length"))
        if length and not RESULTS[returns].is_text:
            self.fail(key, "length", f"a length form needs a text result, and this one returns {returns}")
        if zero and returns != "pos" and not any(a.kind == "pos" for a in arguments):
            self.fail(key, "zero", "a 0-based twin needs a position, as an argument or as the result")
        if zero_length and not (zero and length):
            self.fail(key, "zero-length", "needs both `zero` and `length`")
        length_returns = self.said(key, "length-returns", fields.get("length-returns", ""))
        if length and not length_returns and (fields.get("length-by-hand") or returns == "inside"):
            self.fail(key, "length", "`length-returns` is missing: say what the length form returns, which is not the length of what this one returns")
        if length_returns and not length:
            self.fail(key, "length-returns", "there is no length form that could return it")
        stub = self.stub_of(key, fields)
        does, notes = (self.said(key, k, fields.get(k, "")) for k in ("does", "notes"))

        def make(symbol, names, returns, making, base, source=None):
            is_length = symbol.endswith("_length")
            return Entry(symbol, names, arguments, returns, does, notes, self.path.stem, self.line_of(key), making, base, source, stub,
                         "" if is_length else result_meaning, fields.get("remembers", False), length_returns if is_length else "",
                         fields.get("examples", []))

        hand = make(key, zero or names, returns, "stub" if stub else "hand", 0 if zero else -1)
        length_making = "hand" if fields.get("length-by-hand") else "length"
        entries = [hand]
        pointer = hand
        if zero:
            pointer = make(f"{key}_one", names, returns, "one", 1, hand)
            entries.insert(0, pointer)
        if length:
            entries.append(make(f"{pointer.symbol}_length", length, "uint", length_making, pointer.base, pointer))
        if zero_length:
            entries.append(make(f"{key}_length", zero_length, "uint", length_making, 0, hand))
        return entries

    def stub_of(self, key, fields):
        kinds = [k for k in ("unavailable", "unimplemented") if k in fields]
        if len(kinds) == 2:
            self.fail(key, "unavailable", "a stub shows one notice, not two")
        if kinds:
            return (kinds[0], fields[kinds[0]], fields.get("value", 0))
        return ("value", "", fields["value"]) if "value" in fields else ()


def check_names(families, root):
    owner = {}
    for family in families:
        for entry in family.entries:
            for name in entry.names:
                if name in owner:
                    other = owner[name]
                    raise TableError(family.path.relative_to(root), entry.line,
                                     f"{entry.main}: the name `{name}` is already used by {other.main} (exports/{other.family}.toml:{other.line})")
                owner[name] = entry


def read_table(root):
    path = root / "exports" / CONSTANTS
    try:
        groups = read_constants(path)
    except ConstantError as error:
        raise TableError(path.relative_to(root), error.line, str(error)) from error
    families = []
    for path in sorted((root / "exports").glob("*.toml")):
        if path.name != CONSTANTS:
            families.append(FamilyReader(path, path.relative_to(root), Mentions(groups)).read())
    check_names(families, root)
    return families, groups

"""What the declarations of all languages are made from: for each entry the friendly function, in no language's style yet.

A friendly function takes what the caller has to say and gives everything else back. Destinations are made by the room rule;
what lies in them, in edited texts and behind output pointers is returned, together with the result. Length forms and 0-based
twins have none: texts know their lengths, and positions count as the language does.
"""
import ast
import dataclasses
import re

from kinds import ARGUMENTS
from rooms import HOST
from wording import argument_words, is_length, result_words, summary

OBJECTS = {"table": "Table", "handle": "File"}
PREFIXES = {"Table": "Dbf", "File": "F"}
# What closing gives where it is done.
CLOSED = {"Table": "result == 0", "File": "result != 0"}


@dataclasses.dataclass
class Parameter:
    name: str
    kind: str            # of the export table
    words: str           # for people
    argument: object     # of the export table

    @property
    def is_text(self):
        return self.kind in ("str", "edit")

    @property
    def is_memory(self):
        """Bytes: those of `block` are the caller's to be changed."""
        return self.kind in ("bytes", "block")

    @property
    def type_name(self):
        """Table or File, of an object."""
        return OBJECTS.get(self.kind)


@dataclasses.dataclass
class Output:
    name: str   # `result`, or the argument's
    kind: str   # number, unsigned, bool, char, pos, text, offset, Table, File
    words: str = ""
    place: str = ""   # of an offset: the argument in which it counts


@dataclasses.dataclass
class Function:
    entry: object
    owner: str           # Table or File where it is a method of one, else ""
    parameters: list
    outputs: list

    @property
    def name(self):
        """The main name without underscores in front, and, of a method, without its object's prefix."""
        return without_prefix(self.entry.main.lstrip("_"), PREFIXES.get(self.owner, ""))

    @property
    def words(self):
        """The parts of the name in lower case: ["all", "trim"]."""
        return name_words(self.name)

    def is_self(self, argument):
        """Whether the argument is the object whose method this is."""
        return bool(self.owner) and argument.name == self.parameters[0].name

    @property
    def summary(self):
        return summary(self.entry)

    @property
    def nullable(self):
        """The output that there is none of where the result is NULL: the text that is the result itself."""
        names = [a.name for a in self.entry.arguments if a.kind in ("dest", "edit")]
        return names[0] if names and self.entry.returns == "dest" else ""


def without_prefix(name, prefix):
    """FileAttr does not begin with the prefix F."""
    rest = name.removeprefix(prefix)
    return rest if rest[:1].isupper() else name


def name_words(name):
    """FSeekLine -> f seek line; str2blob -> str2blob; IsChrAlpha -> is chr alpha."""
    words = re.findall(r"[A-Z]+(?![a-z])[0-9]*|[A-Z]?[a-z0-9]+", name)
    assert "".join(words) == name.replace("_", ""), name
    return [w.lower() for w in words]


def result_output(entry, base):
    """The result as an output of its own, or None where it is the text of an argument, or nothing."""
    kind = {"int": "number", "uint": "unsigned", "bool": "bool", "char": "char", "pos": "pos", "const": "text",
            "inside": "offset", "end": "offset", "handle": "File", "table": "Table"}.get(entry.returns)
    if kind != "offset":
        return Output("result", kind, result_words(entry, base)) if kind else None
    written = [a.name for a in entry.arguments if a.kind in ("dest", "edit", "block")]
    return Output("result", kind, result_words(entry), (written or [a.name for a in entry.arguments if a.kind == "str"][-1:])[0])


def output_words(argument):
    """What comes back; the room and NULL are no concern of who does not give a destination."""
    return argument.meaning or {"dest": "the resulting text", "edit": "the changed text"}.get(argument.kind, argument.name)


def function(entry, first):
    base = first if entry.base == 1 else entry.base
    parameters = [Parameter(a.name, a.kind, argument_words(entry, a, base), a) for a in entry.arguments
                  if a.kind not in ("dest", "out") and not ARGUMENTS[a.kind].ignored]
    outputs = [o for o in [result_output(entry, base)] if o]
    for a in entry.arguments:
        if a.kind in ("dest", "edit"):
            outputs.append(Output(a.name, "text", output_words(a)))
        if a.kind == "out":
            outputs.append(Output(a.name, "number", output_words(a)))
    owner = OBJECTS.get(parameters[0].kind, "") if parameters else ""
    return Function(entry, owner, parameters, outputs)


def is_friendly(entry):
    """Whether the entry has a friendly function of its own."""
    return not is_length(entry) and entry.base != 0


def functions(families, first=0):
    """`first`: the position of a text's first character in the language."""
    return [(family, [function(e, first) for e in family.entries if is_friendly(e)]) for family in families]


def fold_case(names):
    """Names for languages that do not tell letter case apart: those that differ in nothing else get a number."""
    seen, folded = {}, []
    for name in names:
        key = name.lower()
        seen[key] = seen.get(key, 0) + 1
        folded.append(name if seen[key] == 1 else f"{name}_{seen[key]}")
    return folded


@dataclasses.dataclass
class Formulas:
    """How a language writes the formula of a room. `{0}` and `{1}` stand for operands, `{name}` for an argument's name."""
    number: str = "{name}"
    length: str = "len({name})"
    host: str = "host_room()"
    divide: str = "{0} // {1}"
    call: str = "{function}({0}, {1})"    # of max and min
    literal: str = "{0}"

    def write(self, node):
        if isinstance(node, ast.Constant):
            return self.literal.format(node.value)
        if isinstance(node, ast.Name):
            return self.host if node.id == HOST else self.number.format(name=node.id)
        if isinstance(node, ast.BinOp):
            left, right = self.write(node.left), self.write(node.right)
            if isinstance(node.op, ast.FloorDiv):
                return "(" + self.divide.format(left, right) + ")"
            return f"({left} {({ast.Add: '+', ast.Sub: '-', ast.Mult: '*'})[type(node.op)]} {right})"
        if node.func.id == "len":
            return self.length.format(name=node.args[0].id)
        folded = self.write(node.args[0])
        for more in node.args[1:]:
            folded = self.call.format(folded, self.write(more), function=node.func.id)
        return folded

    def room(self, room):
        text = self.write(room.tree)
        return text[1:-1] if text.startswith("(") and text.endswith(")") and isinstance(room.tree, ast.BinOp) else text


def one_line(text):
    return re.sub(r"\s+", " ", text).strip()

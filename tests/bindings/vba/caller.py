"""Makes the friendly calls of the conformance library through the Visual Basic modules, which it interprets: as much of the language as they
use, on Latin-1 and with the Linux library in the DLL's place."""
import ctypes
import operator
import os
import sys

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "python"))
import core  # noqa: E402
from core import give, given, opened  # noqa: E402
from test_vba import ROOT, TOKEN, declarations, parameters, procedures

from languages import model, vba  # by the path that test_vba sets
from table import read_table

LIBRARY = ctypes.CDLL(os.environ["VEXLOR32_LIBRARY"])
DEFAULTS = {"Long": 0, "Double": 0.0, "Boolean": False, "LongPtr": 0}
ORDER = [{"Or": operator.or_}, {"And": operator.and_},
         {"=": operator.eq, "<>": operator.ne, "<": operator.lt, ">": operator.gt, "<=": operator.le, ">=": operator.ge},
         {"&": lambda a, b: (a or "") + (b or "")}, {"+": operator.add, "-": operator.sub}, {"*": operator.mul, "/": operator.truediv}]


class Cell:
    def __init__(self, value=None):
        self.value = value


class Object:
    def __init__(self, module):
        self.module, self.cells = module, {"opened": Cell(0)}
        run(CLASSES[module]["class_initialize"], [], self)


def long(value):
    if not -(1 << 31) <= value < 1 << 31:
        raise OverflowError(f"6: {value} is no Long")
    return int(value)


def array(content):
    return (ctypes.c_ubyte * len(content)).from_buffer_copy(content)


def converted(text, how):
    return bytes(text).decode("latin-1") if how == "vbUnicode" else array((text or "").encode("latin-1", "replace"))


OWN = {
    "instr": lambda _, a, b, __: (a or "").find(b) + 1, "strcomp": lambda a, b, _: (a or "") != (b or ""), "strconv": converted,
    "lenb": len, "len": lambda t: len(t or ""), "clng": lambda v: long(round(v)), "cdbl": float, "fix": int, "asc": ord,
    "cstr": lambda v: v if isinstance(v, str) else str(v), "string$": lambda n, c: c * n, "left$": lambda t, n: t[:n],
    "strptr": lambda t: 0 if t is None else 1, "lbound": lambda a: 0, "ubound": lambda a: len(a) - 1,
    "vartype": lambda v: "vbString" if isinstance(v, str) else "",
}
CONSTANTS = {"vbnullstring": None, "vbnullchar": "\0", "least_host_room": 262144.0, "largest_room": 2147483647.0, "unsigned_range": 4294967296.0}


class Statement:
    """The tokens of a statement, evaluated while they are read."""

    def __init__(self, line, cells, me):
        self.tokens, self.at, self.cells, self.me = TOKEN.findall(line), 0, cells, me

    def peek(self):
        return self.tokens[self.at] if self.at < len(self.tokens) else ""

    def take(self, *wanted):
        if not wanted or self.peek() in wanted:
            self.at += 1
            return self.tokens[self.at - 1]
        return ""

    def expression(self, level=0):
        return self.operand(level).value

    def operand(self, level=0):
        """A cell, the variable's own where it is one."""
        if level == len(ORDER):
            return self.single()
        cell = self.operand(level + 1)
        while token := self.take(*ORDER[level]):
            cell = Cell(ORDER[level][token](cell.value, self.operand(level + 1).value))
        return cell

    def single(self, is_statement=False):
        token = self.take()
        name = token.lower()
        if token == "-":
            return Cell(-self.single().value)
        if token == "(":
            cell = Cell(self.expression())
            assert self.take(")")
            return cell
        if token == "New":
            return Cell(Object(self.take()))
        if token == "Me":
            return Cell(self.me)
        if token[0] == '"':
            return Cell(token[1:-1])
        if token[0].isdigit():
            return Cell(float(token[:-1]) if token.endswith("#") else int(token.rstrip("&")))
        if name in CONSTANTS or name.startswith("vb"):
            return Cell(CONSTANTS.get(name, token))
        if name in self.cells:
            return self.member(self.element(self.cells[name]), is_statement)
        return Cell(self.call(name))

    def element(self, cell):
        if not isinstance(cell.value, ctypes.Array) or not self.take("("):
            return cell
        place = Cell()
        place.address = ctypes.addressof(cell.value) + self.expression()
        assert self.take(")") and place.address < ctypes.addressof(cell.value) + len(cell.value), "9: index"
        return place

    def member(self, cell, is_statement):
        while self.take("."):
            procedure = CLASSES[cell.value.module][self.take().lower()]
            cell = Cell(run(procedure, self.arguments() if is_statement or self.peek() == "(" else [], cell.value))
        return cell

    def arguments(self):
        """In brackets, or up to the statement's end."""
        brackets, cells = self.take("("), []
        while self.peek() not in (")", "", "Else", "="):
            cells.append(Cell() if self.peek() == "," else self.operand())
            if not self.take(","):
                break
        assert not brackets or self.take(")")
        return cells

    def call(self, name):
        if name == "err":
            self.take("."), self.take()
            number, *words = self.arguments()
            raise RuntimeError(f"{number.value}: {words[-1].value if words else ''}")
        given = self.arguments()
        if name == "varptr":
            return given[0].address
        if name in OWN:
            return OWN[name](*(c.value for c in given))
        return declared(*DECLARED[name], given) if name in DECLARED else run(PROCEDURES[name], given)

    def perform(self):
        self.take("Set")
        name = self.peek().lower()
        if self.tokens[self.at + 1:self.at + 2] == ["="]:
            self.at += 2
            self.cells[name].value = self.expression()
        else:
            self.single(is_statement=True)


def declared(name, wanted, result, given):
    passed, back = [], []
    for (how, _, _, kind), cell in zip(wanted, given, strict=True):
        if kind == "String":
            memory = None if cell.value is None else ctypes.create_string_buffer(cell.value.encode("latin-1", "replace"))
            passed.append(memory)
            if memory:
                back.append((cell, lambda m=memory: m.raw[:-1].decode("latin-1")))
        elif kind == "Any" or kind == "LongPtr":
            passed.append(ctypes.c_void_p(cell.address if kind == "Any" else cell.value))
        elif how == "ByRef":
            number = ctypes.c_int32(cell.value)
            passed.append(ctypes.byref(number))
            back.append((cell, lambda n=number: n.value))
        else:
            passed.append(ctypes.c_int32(long(cell.value)))
    function = {"lstrlenA": ctypes.CDLL(None).strlen, "RtlMoveMemory": ctypes.CDLL(None).memmove}.get(name) or LIBRARY[name]
    function.restype = {"Long": ctypes.c_int32, "LongPtr": ctypes.c_void_p}.get(result)
    value = function(*passed)
    for cell, read in back:
        cell.value = read()
    return value or 0


def run(procedure, given, me=None):
    name, wanted, result, body = procedure
    cells = dict(me.cells) if me else {}
    cells[name.lower()] = Cell(DEFAULTS.get(result))
    for (how, n, _, kind), cell in zip(wanted, given, strict=True):
        cells[n.lower()] = cell if how == "ByRef" else Cell(float(cell.value) if kind == "Double" else cell.value)
    lines, i = [line for _, line in body], 0
    while i < len(lines):
        statement, i = Statement(lines[i], cells, me), i + 1
        if statement.take("Dim"):
            cells[statement.take().lower()] = Cell(DEFAULTS.get(statement.tokens[-1]))
        elif statement.take("If"):
            holds = statement.expression()
            assert statement.take("Then")
            if statement.peek():
                if not holds:
                    statement.at = statement.tokens.index("Else") + 1 if "Else" in statement.tokens else len(statement.tokens)
                if statement.peek():
                    statement.perform()
            elif not holds:
                i = next(k for k in range(i, len(lines)) if lines[k] in ("Else", "End If")) + 1
        elif lines[i - 1] != "End If":
            statement.perform()
    return cells[name.lower()].value


def module(name):
    return {n.lower(): (n, given, result, body) for _, n, given, result, body in procedures(name)}


PROCEDURES = module("Vexlor32.bas")
CLASSES = {name: module(name + ".cls") for name in ("VexlorTable", "VexlorFile")}
DECLARED = {d[3].lower(): (d[5] or d[3], parameters(d[6]), d[7]) for m in ("Vexlor32Exact.bas", "Vexlor32.bas") for _, d in declarations(m)}
FUNCTIONS = {f.entry.main: f for _, functions in model.functions(read_table(ROOT)[0]) for f in functions}


def shown(value, kind):
    """As the other languages give it."""
    if isinstance(value, Object):
        number = value.cells["opened"].value
        opened[value.module[len("Vexlor")], number] = value
        return number
    return value if kind != "offset" else value - 1 if value else None


def friendly_call(main, count):
    function = FUNCTIONS[main]
    cells = [Cell(given(i, array, array)) for i in range(count)]
    outputs = {o.name: Cell(DEFAULTS.get(vba.VALUES[o.kind])) for o in vba.others(function)}
    if function.owner:
        owner = cells[0].value
        value = run(CLASSES[owner.module][vba.method_name(function).lower()], cells[1:] + list(outputs.values()), owner)
    else:
        value = run(PROCEDURES[vba.function_name(function).lower()], cells + list(outputs.values()))
    for o in function.outputs:
        give(shown(outputs[o.name].value if o.name in outputs else value, o.kind))
    for p, cell in zip(function.parameters, cells):
        if p.kind == "block" and cell.value is not None:
            give(cell.value)


if __name__ == "__main__":
    core.run(core.FROM_ONE | core.UNICODE | core.WIDE, "Error: (5|6|9|14|52):", friendly_call)

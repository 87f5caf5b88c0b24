"""The small language of rooms: how many bytes a destination needs, as a formula over the other arguments.

    len(text) + 1        max(width, 0) + 1        len(text) * (count + 1) + 1

Numbers, argument names, + - * //, len(text argument), max(...), min(...). A NULL text has length 0. `host` is the size
of the longest text that the host program's command line and environment hold: who makes the call knows it.

What stands behind a colon is told to people instead of the formula:

    host: the value's length + 1
"""
import ast

from kinds import ARGUMENTS

HOST = "host"
FUNCTIONS = {"len", "max", "min"}
OPERATORS = {ast.Add: "+", ast.Sub: "-", ast.Mult: "*", ast.FloorDiv: "/"}


class RoomError(Exception):
    pass


class Room:
    def __init__(self, text, tree, order):
        self.text = text
        self.tree = tree
        self.order = order

    def cpp(self):
        """The formula over `const Value* a`, in 64-bit arithmetic that saturates."""
        return self._cpp(self.tree)

    def _cpp(self, node):
        if isinstance(node, ast.Constant):
            return f"Size{{{node.value}}}"
        if isinstance(node, ast.Name) and node.id == HOST and HOST not in self.order:
            return "hostRoom()"
        if isinstance(node, ast.Name):
            return f"Size{{a[{self.order[node.id]}].number}}"
        if isinstance(node, ast.BinOp):
            return f"({self._cpp(node.left)} {OPERATORS[type(node.op)]} {self._cpp(node.right)})"
        name = node.func.id
        if name == "len":
            return f"textLength(a[{self.order[node.args[0].id]}])"
        folded = self._cpp(node.args[0])
        for more in node.args[1:]:
            folded = f"std::{name}({folded}, {self._cpp(more)})"
        return folded


def parse_room(text, kinds):
    formula, _, words = text.partition(":")
    try:
        tree = ast.parse(formula.strip(), mode="eval").body
    except SyntaxError as error:
        raise RoomError(f"cannot read `{text}`") from error
    check(tree, kinds)
    return Room((words or formula).strip(), tree, {name: i for i, name in enumerate(kinds)})


def check(node, kinds):
    if isinstance(node, ast.Constant) and isinstance(node.value, int):
        return
    if isinstance(node, ast.Name) and node.id == HOST and HOST not in kinds:
        return
    if isinstance(node, ast.Name):
        if node.id not in kinds or not ARGUMENTS[kinds[node.id]].is_countable:
            raise RoomError(f"`{node.id}` is no number argument")
        return
    if isinstance(node, ast.BinOp) and type(node.op) in OPERATORS:
        check(node.left, kinds)
        check(node.right, kinds)
        return
    if isinstance(node, ast.Call) and isinstance(node.func, ast.Name) and node.func.id in FUNCTIONS and node.args:
        if node.func.id == "len":
            named = node.args[0].id if len(node.args) == 1 and isinstance(node.args[0], ast.Name) else ""
            if named not in kinds or not ARGUMENTS[kinds[named]].is_text:
                raise RoomError("len() takes one text argument")
            return
        for argument in node.args:
            check(argument, kinds)
        return
    raise RoomError("only numbers, arguments, host, + - * //, len(), max() and min() are understood")

"""No Visual Basic is at hand, so its modules are parsed again: declarations are held against the export table, and procedures for what a
compiler would say: names that are not declared, or hide another in any letter case, wrong numbers of arguments, blocks that do not end.
caller.py interprets the procedures."""
import os
import pathlib
import re
import sys
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[3]
sys.path.insert(0, str(ROOT / "exports" / "generator"))
from languages.model import is_friendly  # noqa: E402
from languages.vba import RESERVED  # noqa: E402
from table import read_table  # noqa: E402

MODULES = pathlib.Path(os.environ.get("VEXLOR_BUILD", ROOT / "build" / "native")) / "generated" / "bindings" / "vba"
LONGEST_LINE = 1023
NAME = re.compile(r"[A-Za-z][A-Za-z0-9_]{0,254}")
DECLARE = re.compile(r'(Public|Private) Declare (PtrSafe )?(Function|Sub) (\w+) Lib "([\w.]+)"(?: Alias "(\w+)")? \((.*)\)(?: As (\w+))?')
HEAD = re.compile(r"(?:Public|Private) (Function|Sub|Property Get) (\w+)\((.*)\)(?: As (\w+))?")
PARAMETER = re.compile(r"(ByVal|ByRef) (\w+)(\(\))? As (\w+)")
CODE = re.compile(r'(?:"[^"]*"|[^"\'])*')
TOKEN = re.compile(r'"[^"]*"|&H[0-9A-F]+&|\d+[#&]?|[A-Za-z_]\w*\$?|<>|<=|>=|[-+*/&=<>().,:]')
# What a C type is to a Declare.
ARGUMENTS = {"int32_t": ("ByVal", "Long"), "uint32_t": ("ByVal", "Long"), "const char *": ("ByVal", "String"), "char *": ("ByVal", "String"),
             "int32_t *": ("ByRef", "Long"), "const void *": ("ByRef", "Any"), "void *": ("ByRef", "Any")}
RESULTS = {"int32_t": "Long", "uint32_t": "Long", "void": None}
SECTIONS = {"#If VBA7 And Win64 Then": ("PtrSafe ", "Vexlor64.dll"), "#ElseIf VBA7 Then": ("PtrSafe ", "Vexlor32.dll"), "#Else": (None, "Vexlor32.dll")}
# Of Visual Basic itself, with how many arguments.
OWN = {"instr": 4, "strcomp": 3, "strconv": 2, "lenb": 1, "len": 1, "clng": 1, "cdbl": 1, "cstr": 1, "string$": 2, "left$": 2, "strptr": 1, "varptr": 1,
       "lbound": 1, "ubound": 1, "environ$": 1, "vartype": 1, "asc": 1, "fix": 1}
WORDS = {"if", "then", "else", "end", "function", "sub", "property", "dim", "as", "set", "new", "me", "and", "or", "do", "while", "loop", "exit", "redim", "to",
         "vbnullstring", "vbnullchar", "vbfromunicode", "vbunicode", "vbbinarycompare", "vbstring", "err", "long", "string", "double", "byte", "longptr",
         "vexlortable", "vexlorfile"}


def code_lines(name):
    """Lines without comments, numbered."""
    for number, line in enumerate((MODULES / name).read_bytes().decode("ascii").split("\r\n"), 1):
        yield number, CODE.match(line)[0].strip()


def parameters(text):
    found = [PARAMETER.fullmatch(p) for p in text.split(", ")] if text else []
    assert all(found), text
    return [m.groups() for m in found]


def declarations(name):
    section = None
    for number, line in code_lines(name):
        if line.startswith("#"):
            assert line in (*SECTIONS, "#If VBA7 = 0 Then", "#If VBA7 Then", "#End If"), f"{name}:{number}: {line}"
            section = SECTIONS.get(line)
        elif " Declare " in line:
            match = DECLARE.fullmatch(line)
            assert match, f"{name}:{number}: {line}"
            yield section, match.groups()


def procedures(name):
    """(line, name, parameters, result, lines of the body)"""
    head, body = None, []
    for number, line in code_lines(name):
        match = HEAD.fullmatch(line)
        if match:
            assert not head, f"{name}:{number}: {head} has no end"
            head, body = (number, match), []
        elif head and line == f"End {head[1][1].split()[0]}":
            yield head[0], head[1][2], parameters(head[1][3]), head[1][4], body
            head = None
        elif head and line:
            body.append((number, line))
        else:
            assert not re.match(r"End (Function|Sub|Property)", line), f"{name}:{number}: {line}"
    assert head is None, head


def argument_count(tokens, at):
    """How many arguments begin at that token, behind a bracket or up to the statement's end."""
    depth, count, empty = 0, 1, True
    for token in tokens[at:]:
        if depth == 0 and token in (")", "Else", ":"):
            break
        depth += (token == "(") - (token == ")")
        count += depth == 0 and token == ","
        empty = False
    return 0 if empty else count


class Modules(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        families, _ = read_table(ROOT)
        cls.entries = [e for f in families for e in f.entries]
        cls.by_name = {n: e for e in cls.entries for n in e.names}

    def test_files_are_as_the_editor_imports_them(self):
        names = sorted(p.name for p in MODULES.iterdir() if p.suffix in (".bas", ".cls"))
        self.assertEqual(names, ["Vexlor32.bas", "Vexlor32Exact.bas", "VexlorFile.cls", "VexlorTable.cls"])
        for name in names:
            content = (MODULES / name).read_bytes()
            self.assertEqual(content.count(b"\n"), content.count(b"\r\n"), name)
            lines = content.decode("ascii").split("\r\n")
            self.assertLessEqual(max(map(len, lines)), LONGEST_LINE, name)
            self.assertIn(f'Attribute VB_Name = "{name[:-4]}"', lines)
            self.assertIn("Option Explicit", lines)
            if name.endswith(".cls"):
                self.assertEqual(lines[:2], ["VERSION 1.0 CLASS", "BEGIN"])

    def check_declaration(self, section, declared, by_address=False):
        _, safe, what, name, library, alias, arguments, result = declared
        entry = self.by_name[alias]
        self.assertEqual((safe, library), section, name)
        wanted = [ARGUMENTS[a.ctype] for a in entry.arguments]
        if by_address:
            wanted = [("ByVal", "LongPtr") if a.ctype.endswith("*") else w for a, w in zip(entry.arguments, wanted)]
        given = parameters(arguments)
        self.assertEqual([(how, kind) for how, _, _, kind in given], wanted, name)
        self.assertEqual(len({n.lower() for _, n, _, _ in given}), len(given), name)
        self.assertEqual(result, RESULTS.get(entry.result_type, "LongPtr"), name)
        self.assertEqual(what, "Function" if result else "Sub", name)
        for n in [name] + [n for _, n, _, _ in given]:
            self.assertTrue(NAME.fullmatch(n) and n.lower() not in RESERVED, f"{name}: {n}")

    def test_every_name_is_declared_for_each_system(self):
        sections = {}
        for section, declared in declarations("Vexlor32Exact.bas"):
            self.check_declaration(section, declared)
            sections.setdefault(section, []).append(declared)
        self.assertEqual(set(sections), set(SECTIONS.values()))
        for found in sections.values():
            self.assertEqual(sorted(d[5] for d in found), sorted(self.by_name))
            self.assertEqual(len({d[3].lower() for d in found}), len(found), "names that only letter case tells apart")
            for d in found:
                self.assertRegex(d[3], rf"Vexlor_{d[5]}(_\d)?\Z")

    def test_private_declarations_take_addresses(self):
        own = [(s, d) for s, d in declarations("Vexlor32.bas") if d[5]]
        for section, declared in own:
            self.check_declaration(section, declared, by_address=True)
        self.assertEqual(len(own) % len(SECTIONS), 0)

    def test_every_friendly_entry_has_its_function_and_objects_have_methods(self):
        functions = {name.lower(): given for _, name, given, _, _ in procedures("Vexlor32.bas")}
        methods = {"table": list(procedures("VexlorTable.cls")), "handle": list(procedures("VexlorFile.cls"))}
        self.assertEqual(len(functions), sum(1 for _ in procedures("Vexlor32.bas")), "functions that only letter case tells apart")
        for entry in filter(is_friendly, self.entries):
            name = "Vx" + entry.main.lstrip("_")
            self.assertTrue(name.lower() in functions, name)
            taken = [a for a in entry.arguments if a.kind not in ("dest", "out", "any")]
            self.assertEqual([p[1].rstrip("_") for p in functions[name.lower()][:len(taken)]], [a.name for a in taken], name)
            if taken and taken[0].kind in methods:
                calls = [line for *_, body in methods[taken[0].kind] for _, line in body if re.search(rf"\b{name}[( ]", line, re.I)]
                self.assertEqual(len(calls), 1, name)

    def test_procedures_use_what_is_declared(self):
        known = dict(OWN)
        for module in ("Vexlor32Exact.bas", "Vexlor32.bas"):
            known |= {d[3].lower(): len(parameters(d[6])) for _, d in declarations(module)}
        known |= {name.lower(): len(given) for _, name, given, _, _ in procedures("Vexlor32.bas")}
        for module in ("Vexlor32.bas", "VexlorTable.cls", "VexlorFile.cls"):
            text = "\n".join(line for _, line in code_lines(module))
            variables = {n.lower() for n in re.findall(r"^Private (?:Const )?(\w+) As", text, re.M)}
            names = [name.lower() for _, name, *_ in procedures(module)]
            self.assertEqual(len(set(names)), len(names), f"{module}: names that only letter case tells apart")
            for number, name, given, result, body in procedures(module):
                with self.subTest(f"{module}:{number}: {name}"):
                    self.check_procedure(name, given, result, body, known, variables)

    def check_procedure(self, name, given, result, body, known, variables):
        local = [n.lower() for _, n, _, _ in given] + [re.match(r"Dim (\w+)", line)[1].lower() for _, line in body if line.startswith("Dim ")]
        self.assertEqual(len(set(local)), len(local), "two of a name")
        self.assertFalse(set(local) & set(known), "hides what it may need")
        for n in [name.lower(), *local]:
            self.assertTrue(NAME.fullmatch(n) and n not in RESERVED, n)
        arrays = {n.lower() for _, n, brackets, _ in given if brackets} | {n.lower() for _, line in body for n in re.findall(r"Dim (\w+)\(\) As", line)}
        used, depth, assigned = set(), [], False
        for number, line in body:
            line = re.sub(r'"[^"]*"', '""', line)
            tokens = TOKEN.findall(line)
            self.assertEqual("".join(tokens), line.replace(" ", ""), f"line {number}")
            self.assertEqual(tokens.count("("), tokens.count(")"), f"line {number}")
            if line.startswith("If ") and line.endswith(" Then"):
                depth.append("If")
            elif line.startswith("Do While "):
                depth.append("Do")
            elif line == "End If" or line == "Loop":
                self.assertEqual(depth.pop(), {"End If": "If", "Loop": "Do"}[line], f"line {number}")
            assigned = assigned or re.search(rf"\b{name}\b = ", line, re.I) is not None
            for at, token in enumerate(tokens):
                word = token.lower()
                if not NAME.match(token) or (at and tokens[at - 1] == ".") or word in WORDS:
                    continue
                used.add(word)
                if word in local or word in variables or (word == name.lower() and tokens[at + 1:at + 2] != ["("]):
                    self.assertTrue(word in arrays or tokens[at + 1:at + 2] != ["("], f"line {number}: {token} is no function here")
                    continue
                self.assertTrue(word in known, f"line {number}: {token} is not declared")
                opens = tokens[at + 1:at + 2] == ["("]
                self.assertEqual(argument_count(tokens, at + (2 if opens else 1)), known[word], f"line {number}: arguments of {token}")
        self.assertEqual(depth, [])
        self.assertTrue(assigned or not result, "gives nothing")
        self.assertFalse(set(local) - used, "not used")


if __name__ == "__main__":
    unittest.main()

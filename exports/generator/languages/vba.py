"""Visual Basic and VBA: Vexlor32Exact.bas declares every exported name, Vexlor32.bas has the functions with String, two classes the objects.

Lines end as the editor of Visual Basic has them, which reads a class as a module otherwise.
"""
import pathlib
import re
import textwrap

from kinds import ARGUMENTS
from languages import model

# The part of the module that is written by hand.
RUNTIME = pathlib.Path(__file__).resolve().parents[3] / "bindings" / "vba" / "Vexlor32.bas"
# What Visual Basic does not take as a name of ours.
RESERVED = set("""abs addressof and any array as attribute boolean byref byte byval call case cbool cbyte ccur cdate cdbl cdec cdecl cint
circle clng clnglng clngptr close const csng cstr currency cvar cverr date debug decimal declare defbool defbyte defcur defdate defdbl defdec
defint deflng deflnglng deflngptr defobj defsng defstr defvar dim do doevents double each else elseif empty end endif enum eqv erase event
exit false fix for friend function get global gosub goto if imp implements in input inputb int integer is lbound len lenb let like long longlong
longptr loop lock lset me mod new next not nothing null on open option optional or paramarray preserve print private pset public put
raiseevent redim rem resume return rset scale seek select set sgn shared single spc static stop string sub tab then to true type typeof ubound
unlock until variant wend while with withevents write xor""".split())
TYPES = {"int32_t": "ByVal {} As Long", "uint32_t": "ByVal {} As Long", "const char *": "ByVal {} As String", "char *": "ByVal {} As String",
         "int32_t *": "ByRef {} As Long", "const void *": "ByRef {} As Any", "void *": "ByRef {} As Any"}
VALUES = {"number": "Long", "unsigned": "Double", "bool": "Boolean", "char": "Long", "pos": "Long", "offset": "Long", "text": "String",
          "Table": "VexlorTable", "File": "VexlorFile"}
FORMULAS = model.Formulas(number="{{{name}}}", length="TextSize({{{name}}})", host="HostRoom()", divide="Fix({0} / {1})",
                          call="{function}Of({0}, {1})", literal="{0}#")
SYSTEMS = [("#If VBA7 And Win64 Then", "PtrSafe ", "Vexlor64.dll"), ("#ElseIf VBA7 Then", "PtrSafe ", "Vexlor32.dll"), ("#Else", "", "Vexlor32.dll")]


def identifier(name):
    return name + "_" if name.lower() in RESERVED else name


def declaration(entry, name, called, safe, library, by_address=False):
    def declared(a):
        return (f"ByVal {identifier(a.name)} As LongPtr" if by_address and ARGUMENTS[a.kind].is_pointer else TYPES[a.ctype].format(identifier(a.name)))

    result = {"void": "", "int32_t": " As Long", "uint32_t": " As Long"}.get(entry.result_type, " As LongPtr")
    what = "Function" if result else "Sub"
    arguments = ", ".join(declared(a) for a in entry.arguments)
    return f'{safe}{what} {called} Lib "{library}" Alias "{name}" ({arguments}){result}'


def exact_names(families):
    """(entry, exported name, name here): those that differ in letter case only are told apart."""
    entries = [(e, n) for f in families for e in f.entries for n in e.names]
    return [(e, n, folded) for (e, n), folded in zip(entries, model.fold_case([f"Vexlor_{n}" for _, n in entries]))]


def exact(families, groups):
    lines = ['Attribute VB_Name = "Vexlor32Exact"', "' Made from the export table: every exported name, behind Vexlor_. A number behind one tells it from another",
             "' that differs in letter case. NULL is vbNullString; destinations are Strings of the room that the reference says, full of Chr$(0);",
             "' of a block the first byte is given. An address that comes back is no longer valid: read the String.", "Option Explicit", "",
             "#If VBA7 = 0 Then", "Public Enum LongPtr", "    [_]", "End Enum", "#End If", ""]
    for group in groups:
        lines += [f"' {line}" for line in textwrap.wrap(f"{group.title}: {model.one_line(group.does)}", 120)]
        lines += [f"Public Const {c.name} As Long = {number(c.value)} ' {c.meaning}" for c in group.constants]
    names = exact_names(families)
    for start, safe, library in SYSTEMS:
        lines += ["", start] + ["Public Declare " + declaration(e, n, called, safe, library) for e, n, called in names]
    return lines + ["#End If"]


def number(value):
    return f"&H{value[2:]}&" if value.startswith("0x") else value


def function_name(function):
    name = function.entry.main.lstrip("_")
    return "Vx" + name[0].upper() + name[1:]


def method_name(function):
    """Without the prefix, unless Visual Basic has the word itself: FClose, DbfLock."""
    short = function.name
    return function.entry.main.lstrip("_") if short.lower() in RESERVED | {"handle", "forget", "attach"} else short[0].upper() + short[1:]


def needs_addresses(function):
    return any(o.kind == "offset" for o in function.outputs) or any(p.argument.before for p in function.parameters)


def value_of(function):
    """The output that is the function's value, or None; the others are given ByRef."""
    named = {o.name: o for o in function.outputs}
    if "result" in named or len(named) == 1:
        return named.get("result") or function.outputs[0]
    return named.get(function.nullable)


def others(function):
    return [o for o in function.outputs if o is not value_of(function)]


def parameters(function):
    declared = []
    for p in function.parameters:
        name = identifier(p.name)
        if p.type_name:
            declared.append(f"ByVal {name} As {VALUES[p.type_name]}")
        elif p.is_memory:
            declared.append(f"ByRef {name}() As Byte")
        else:
            kind = "String" if p.is_text else {"char": "Variant", "uint": "Double"}.get(p.kind, "Long")
            declared.append(f"ByVal {name} As {kind}")
    return declared + [f"ByRef {identifier(o.name)} As {VALUES[o.kind]}" for o in others(function)]


def comment(function):
    lines = textwrap.wrap(function.summary, 120)
    for p in function.parameters:
        lines += textwrap.wrap(f"{identifier(p.name)}: {p.words}", 120, initial_indent="  ", subsequent_indent="    ")
    if function.outputs:
        lines += textwrap.wrap("gives " + "; ".join(o.words for o in function.outputs), 120, initial_indent="  ", subsequent_indent="    ")
    return [f"' {line}" for line in lines + ["  " + e for e in function.entry.examples]]


def room(function, argument):
    if not argument.room:
        return "0#"
    kinds = {a.name: a.kind for a in function.entry.arguments}
    formula = FORMULAS.room(argument.room)
    return re.sub(r"\{(\w+)\}", lambda m: identifier(m[1]) if kinds[m[1]] in ("str", "edit", "uint") else f"CDbl({identifier(m[1])})", formula)


def definition(function, exact_name):
    entry, addresses = function.entry, needs_addresses(function)
    name, value = function_name(function), value_of(function)
    local, first, passed = [], [], []
    for a in entry.arguments:
        n = identifier(a.name)
        if a.kind in ("dest", "edit") or (addresses and a.kind == "str"):
            # By address, NULL counts as empty.
            made = {"dest": f"TextRoom({room(function, a)})", "str": f"{n} & vbNullChar"}.get(a.kind) or f"TextIn({n}, {room(function, a)})"
            if a.kind != "dest":
                first.insert(0, f"CheckText {n}")
            local.append(f"Dim {a.name}Buffer() As Byte" if addresses else f"Dim {a.name}Buffer As String")
            first.append(f"{a.name}Buffer = " + (f"StrConv({made}, vbFromUnicode)" if addresses else made))
            passed.append(f"VarPtr({a.name}Buffer(0))" if addresses else f"{a.name}Buffer")
        elif a.kind == "str":
            first.insert(0, f"CheckText {n}")
            passed.append(n)
        elif a.kind in ("bytes", "block"):
            local.append(f"Dim {a.name}Start As Long")
            first.append(f"{a.name}Start = StartIn({n}, {room(function, a)}, {identifier(a.before) if a.before else '0'})")
            passed.append(f"VarPtr({n}(LBound({n}))) + {a.name}Start" if addresses else f"{n}(LBound({n}) + {a.name}Start)")
        elif a.kind == "out":
            passed.append(n)
        elif ARGUMENTS[a.kind].ignored:
            passed.append("0")
        elif a.kind in model.OBJECTS:
            passed.append(f"{n}.Handle")
        else:
            passed.append({"char": f"CodeOf({n})", "uint": f"BitsOf({n})"}.get(a.kind, n))
    body, uses = [], False
    for o in function.outputs:
        target = name if o is value else identifier(o.name)
        given = {"bool": "result <> 0", "unsigned": "UnsignedOf(result)", "text": "TextAt(result)"}.get(o.kind, "result")
        if o.name != "result":
            if entry.argument(o.name).kind == "out":
                continue
            given = f"TextOf(StrConv({o.name}Buffer, vbUnicode))" if addresses else f"TextOf({o.name}Buffer)"
            if o.name == function.nullable:
                uses = True
                body.append(f"If result <> 0 Then {target} = {given} Else {target} = vbNullString")
                continue
        elif o.kind == "offset":
            kind = entry.argument(o.place).kind
            start = f"VarPtr({identifier(o.place)}(LBound({identifier(o.place)})))" if kind == "block" else f"VarPtr({o.place}Buffer(0))"
            given = f"CLng(result - {start}) + 1"
            body.append(f"If result <> 0 Then {target} = {given}")
            uses = True
            continue
        elif o.kind in ("Table", "File"):
            none = {"Table": 0, "File": -1}[o.kind]
            body += [f"If result <> {none} Then", f"    Set {target} = New {VALUES[o.kind]}", f"    {target}.Attach result", "End If"]
            uses = True
            continue
        uses = uses or "result" in given
        body.append(f"{target} = {given}")
    if uses:
        local.append(f"Dim result As {'Long' if entry.result_type in ('int32_t', 'uint32_t') else 'LongPtr'}")
    call = f"result = {exact_name}({', '.join(passed)})" if uses else " ".join([exact_name, ", ".join(passed)]).rstrip()
    closes = [f"{identifier(entry.arguments[0].name)}.Forget"] if entry.main in ("DbfClose", "FClose") else []
    what, result = ("Function", f" As {VALUES[value.kind]}") if value else ("Sub", "")
    return [*comment(function), f"Public {what} {name}({', '.join(parameters(function))}){result}",
            *("    " + line for line in local + first + [call] + closes + body), f"End {what}", ""]


def method(function):
    name, value = method_name(function), value_of(function)
    declared = parameters(function)[1:]
    given = ", ".join(["Me"] + [identifier(p.name) for p in function.parameters[1:]] + [identifier(o.name) for o in others(function)])
    what, result = ("Function", f" As {VALUES[value.kind]}") if value else ("Sub", "")
    assigned = f"{'Set ' if value.kind in model.OBJECTS.values() else ''}{name} = {function_name(function)}({given})" if value else f"{function_name(function)} {given}"
    return [f"' {line}" for line in textwrap.wrap(function.summary, 120)] + [f"Public {what} {name}({', '.join(declared)}){result}", f"    {assigned}", f"End {what}", ""]


def class_module(owner, functions):
    name, none, close = {"Table": ("VexlorTable", 0, "DbfClose"), "File": ("VexlorFile", -1, "FClose")}[owner]
    lines = ["VERSION 1.0 CLASS", "BEGIN", "  MultiUse = -1  'True", "END", f'Attribute VB_Name = "{name}"', "Attribute VB_GlobalNameSpace = False",
             "Attribute VB_Creatable = False", "Attribute VB_PredeclaredId = False", "Attribute VB_Exposed = False",
             f"' Made from the export table: a {owner.lower()} that is open, until it is closed or nothing refers to it.", "Option Explicit", "",
             "Private opened As Long", "", "Private Sub Class_Initialize()", f"    opened = {none}", "End Sub", "", "Private Sub Class_Terminate()",
             f"    If opened <> {none} Then Vexlor_{close} opened", "End Sub", "", "Public Sub Attach(ByVal given As Long)", "    opened = given", "End Sub", "",
             "Public Sub Forget()", f"    opened = {none}", "End Sub", "", "' The number by which the library knows it.", "Public Property Get Handle() As Long",
             f'    If opened = {none} Then Err.Raise 52, , "the {owner.lower()} is closed"', "    Handle = opened", "End Property", ""]
    return lines + [line for f in functions for line in method(f)][:-1]


def friendly(families):
    called = {n: c for _, n, c in exact_names(families)}
    body, private, owned = [], [], {"Table": [], "File": []}
    for _, functions in model.functions(families, 1):
        for f in functions:
            by_address = needs_addresses(f)
            body += definition(f, f"At_{f.entry.main.lstrip('_')}" if by_address else called[f.entry.main])
            private += [f.entry] if by_address else []
            if f.owner:
                owned[f.owner].append(f)
    declares = []
    for start, safe, library in SYSTEMS:
        declares += [start] + ["Private Declare " + declaration(e, e.main, f"At_{e.main.lstrip('_')}", safe, library, by_address=True) for e in private]
    head, helpers = RUNTIME.read_text(encoding="utf-8").split("' --- declarations\n")
    return head.splitlines() + declares + ["#End If"] + helpers.splitlines() + [""] + body[:-1], owned


def products(families, groups, clashes):
    module, owned = friendly(families)
    files = {"Vexlor32Exact.bas": exact(families, groups), "Vexlor32.bas": module, "VexlorTable.cls": class_module("Table", owned["Table"]),
             "VexlorFile.cls": class_module("File", owned["File"])}
    return {f"vba/{name}": "\r\n".join(lines) + "\r\n" for name, lines in files.items()}

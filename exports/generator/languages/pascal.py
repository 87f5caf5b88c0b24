"""Free Pascal and Delphi: unit Vexlor32 with every export as a procedure variable, unit Vexlor with the friendly functions."""
import re
import textwrap
from xml.sax.saxutils import escape

from kinds import ARGUMENTS, RESULTS
from languages import model

KEYWORDS = set("""and array as asm begin case class const constructor destructor dispinterface div do downto else end except exports file
finalization finally for function goto if implementation in inherited initialization inline interface is label library mod nil not object of on
operator or out packed procedure program property raise record repeat resourcestring result self set shl shr string then threadvar to try type
unit until uses var while with xor""".split())
EXACT = {"int32_t": "LongInt", "uint32_t": "LongWord", "const char *": "PAnsiChar", "char *": "PAnsiChar", "int32_t *": "PLongInt",
         "const void *": "Pointer", "void *": "Pointer"}
TYPES = {"number": "LongInt", "unsigned": "LongWord", "bool": "Boolean", "char": "AnsiChar", "pos": "LongInt", "offset": "LongInt",
         "text": "AnsiString", "Table": "TVexlorTable", "File": "TVexlorFile"}
NO_HANDLE = {"File": "-1", "Table": "0"}
FORMULAS = model.Formulas(number="Int64({name})", length="VexlorBase.Len({name})", host="VexlorBase.HostRoom", divide="{0} div {1}",
                          call="Math.{function}({0}, {1})", literal="Int64({0})")
OPENING = """\
// SPDX-License-Identifier: MIT
// Made from the export table. {words}
unit {name};

{{$IFDEF FPC}}{{$MODE DELPHI}}{{$H+}}{{$ENDIF}}

interface
"""
EXACT_WORDS = """Every exported name, with its exact types.
//
// Pascal does not tell letter case apart, so one variable serves all names of an entry that differ in nothing else; where they are those of
// two entries, the second is called Name_2. Names that are words of the language end with an underscore. The variables are set when
// the program starts; an exception says where the library was looked for if it is not there."""
FRIENDLY_WORDS = """The functions of the library with AnsiString.
//
// A failure shows in the result, as in the library's own functions, and FError gives the reason of the last one; where there is no table or
// file it is nil, where there is no text ''. Positions begin with 1, and 0 is none. Texts are single-byte and are handed over as they are.
// What would hand the library a wrong length or something closed is an exception instead.
//
// Texts and blocks are passed by value, and further texts come in `var` parameters: a `const` or `out` one would be gone where the caller has
// the result put in the same variable."""


def identifier(name):
    return name + "_" if name.lower() in KEYWORDS else name


def parameter_name(name):
    return identifier(name[0].upper() + name[1:])


def exact_names(families):
    """Exported name -> identifier of its variable."""
    keys = list(dict.fromkeys((e.symbol, n.lower()) for f in families for e in f.entries for n in e.names))
    spelled = {}
    for f in families:
        for e in f.entries:
            for n in e.names:
                spelled.setdefault((e.symbol, n.lower()), n)
    variables = dict(zip(keys, map(identifier, model.fold_case([spelled[k] for k in keys]))))
    assert len({v.lower() for v in variables.values()}) == len(variables)
    return {n: variables[e.symbol, n.lower()] for f in families for e in f.entries for n in e.names}


def routine(name, parameters, result):
    """Head of a function, or of a procedure where there is no result."""
    listed = f"({'; '.join(parameters)})" if parameters else ""
    return f"{'function' if result else 'procedure'}{' ' + name if name else ''}{listed}{': ' + result if result else ''}"


def exact(families):
    names = exact_names(families)
    lines = [OPENING.format(name="Vexlor32", words=EXACT_WORDS), "var"]
    setting = []
    for family in families:
        lines.append(f"  // {family.title}")
        for e in family.entries:
            variables = list(dict.fromkeys(names[n] for n in e.names))
            parameters = [f"{parameter_name(a.name)}: {EXACT[a.ctype.strip()]}" for a in e.arguments]
            lines.append(f"  {', '.join(variables)}: {routine('', parameters, EXACT.get(e.result_type.strip()))}; {{$I vexlor32call.inc}};")
            for v in variables:
                setting.append(f"  @{v} := VexlorBase.Address('{next(n for n in e.names if names[n] == v)}');")
    return "\n".join(lines + ["", "implementation", "", "uses", "  VexlorBase;", "", "initialization", *setting, "end.", ""])


def constants(groups):
    lines = [OPENING.format(name="VexlorConsts", words="Modes, flags and error numbers, by name."), "const"]
    for group in groups:
        lines.append(f"  // {group.title}: {model.one_line(group.does)}")
        lines += [f"  {c.name} = {c.value.replace('0x', '$')}; // {c.meaning}" for c in group.constants]
    return "\n".join(lines + ["", "implementation", "", "end.", ""])


def function_name(function):
    name = function.name
    return parameter_name(name)


def returned(function):
    """The output that the function gives as its result, and those that it gives through parameters."""
    outputs = function.outputs
    chosen = next((o for o in outputs if o.name == "result"), None) or next((o for o in outputs if o.name == function.nullable), None)
    if not chosen and len(outputs) == 1:
        chosen = outputs[0]
    return chosen, [o for o in outputs if o is not chosen]


def parameter(p):
    name = parameter_name(p.name)
    if p.type_name:
        return f"{name}: TVexlor{p.type_name}"
    if p.is_memory:
        return f"var {name}: TBytes" if p.kind == "block" else f"{name}: TBytes"
    return f"{name}: {'AnsiString' if p.is_text else {'char': 'AnsiChar', 'uint': 'LongWord'}.get(p.kind, 'LongInt')}"


def asked(function):
    return function.parameters[1 if function.owner else 0:]


def head(function, owner=""):
    result, outs = returned(function)
    parameters = [parameter(p) for p in asked(function)] + [f"{'var' if o.kind == 'text' else 'out'} {parameter_name(o.name)}: {TYPES[o.kind]}" for o in outs]
    return routine(owner + function_name(function), parameters, result and TYPES[result.kind]) + ";"


def without_null(words):
    """Pascal's texts are empty, never NULL."""
    return re.sub(r"; NULL (counts as empty|is skipped)\b", "", words).replace("NULL or empty", "empty")


def in_pascal(output, entry):
    """Its words; a place is a position here, and nobody makes room."""
    argument = entry.argument(output.name)
    if argument and argument.kind in ("dest", "edit"):
        return argument.meaning if argument.meaning and "NULL" not in argument.meaning else "the resulting text"
    if output.kind == "offset":
        return f"where that is in {parameter_name(output.place)}: {output.words}"
    return {"File": f"the file, nil if there is none; {output.words}", "Table": f"the table, nil if there is none; {output.words}"}.get(output.kind, without_null(output.words))


def comment(function, indent):
    result, outs = returned(function)
    lines = textwrap.wrap(f"<summary>{escape(function.summary)}</summary>", 120)
    for name, words in [(p.name, without_null(p.words)) for p in asked(function)] + [(o.name, in_pascal(o, function.entry)) for o in outs]:
        lines += textwrap.wrap(f'<param name="{parameter_name(name)}">{escape(words)}</param>', 120, subsequent_indent="  ")
    if result:
        lines += textwrap.wrap(f"<returns>{escape(in_pascal(result, function.entry))}</returns>", 120, subsequent_indent="  ")
    if function.entry.examples:
        lines += ["<example>As vexlor writes calls:<code>", *(escape(e) for e in function.entry.examples), "</code></example>"]
    return [f"{indent}/// {line}" for line in lines]


def room(argument):
    if not argument.room:
        return "0"
    return re.sub(r"(Int64|Len)\(([A-Za-z]\w*)\)", lambda m: f"{m[1]}({parameter_name(m[2])})", FORMULAS.room(argument.room))


def passed(function, a, target):
    """How the argument is handed over; `target` names the text or number of an output."""
    name = parameter_name(a.name)
    if a.kind in ("dest", "edit"):
        return f"PAnsiChar({target[a.name]})"
    if a.kind == "out":
        return f"@{target[a.name]}"
    if a.kind == "str":
        return f"PAnsiChar({name})"
    if a.kind in ("bytes", "block"):
        before = f", {parameter_name(a.before)}" if a.before else ""
        return f"VexlorBase.Within({name}, {room(a)}{before})"
    if ARGUMENTS[a.kind].ignored:
        return "0"
    if a.kind in model.OBJECTS:
        own = function.is_self(a)
        return f"{'' if own else name + '.'}Handle"
    return f"Ord({name})" if a.kind == "char" else name


def body(function, variables):
    """Local variables, and the statements."""
    entry = function.entry
    result, outs = returned(function)
    target = {o.name: parameter_name(o.name) for o in outs}
    if result:
        target[result.name] = "Result"
    lines = [f"VexlorBase.NeedText({parameter_name(p.name)});" for p in function.parameters if p.is_text]
    texts = []
    for a in entry.arguments:
        if a.kind == "dest":
            lines.append(f"{target[a.name]} := VexlorBase.Destination({room(a)});")
        elif a.kind == "edit":
            lines.append(f"{target[a.name]} := VexlorBase.Editable({parameter_name(a.name)}, {room(a)});")
        elif a.kind == "out":
            lines.append(f"{target[a.name]} := 0;")
        if a.kind in ("dest", "edit"):
            texts.append(f"VexlorBase.CutAtEnd({target[a.name]});")
    arguments = ", ".join(passed(function, a, target) for a in entry.arguments)
    call = f"Vexlor32.{variables[entry.main]}({arguments})"
    local = []
    if not result or result.name != "result":
        lines.append(call + ";")
    elif result.kind in NO_HANDLE:
        local = [f"  Raw: {EXACT[entry.result_type.strip()]};"]
        lines += [f"Raw := {call};", "Result := nil;", f"if Raw <> {NO_HANDLE[result.kind]} then Result := TVexlor{result.kind}.Create(Raw);"]
    elif result.kind == "offset":
        place = next(a for a in entry.arguments if a.name == result.place)
        start = f"Pointer({target.get(place.name, parameter_name(place.name))})"
        lines.append(f"Result := VexlorBase.Place({start}, {call}){'' if place.kind == 'block' else ' + 1'};")
    else:
        value = {"bool": f"{call} <> 0", "char": f"AnsiChar({call} and $FF)", "text": f"AnsiString({call})"}.get(result.kind, call)
        lines.append(f"Result := {value};")
    if function.owner and function_name(function) == "Close":
        # A table that could not be written stays open, so that closing it can be tried again.
        lines.append(f"if Result{'' if result.kind == 'bool' else ' = 0'} then Forget;")
    return local, lines + texts


def definition(function, variables):
    local, lines = body(function, variables)
    owner = f"TVexlor{function.owner}." if function.owner else ""
    return [head(function, owner), *(["var", *local] if local else []), "begin", *("  " + line for line in lines), "end;", ""]


def friendly(families):
    variables = exact_names(families)
    declared, bodies = {"": [], "Table": [], "File": []}, []
    for family, functions in model.functions(families, first=1):
        for f in functions:
            indent = "    " if f.owner else ""
            declared[f.owner] += comment(f, indent) + [indent + head(f)] + ([""] if not f.owner else [])
            bodies += definition(f, variables)
    lines = [OPENING.format(name="Vexlor", words=FRIENDLY_WORDS), "uses", "  SysUtils, VexlorBase;", "", "type", "  TVexlorFile = class;", ""]
    for owner, what in (("Table", "A dBASE-format table"), ("File", "A file")):
        lines += [f"  /// <summary>{what} that is open; closed when this is destroyed.</summary>", f"  TVexlor{owner} = class(TVexlorHandle)", "  public",
                  "    destructor Destroy; override;", *declared[owner], "  end;", ""]
    lines += [*declared[""], "implementation", "", "uses", "  Math, Vexlor32;", ""]
    for owner in NO_HANDLE:
        lines += [f"destructor TVexlor{owner}.Destroy;", "begin", "  if IsOpen then Close;", "  inherited;", "end;", ""]
    return "\n".join(lines + bodies + ["end.", ""])


def value_type(typed):
    """The type of what a test passes, not taken from the declarations: other ones do not compile, or fail with their values."""
    if typed.is_number:
        return "LongWord" if typed.is_unsigned else "LongInt"
    return {"numbers": "PLongInt", "block": "Pointer"}.get(typed.field, "PAnsiChar")


def exact_dispatch(families):
    variables = exact_names(families)
    names, calls = [], []
    for family in families:
        for e in family.entries:
            arguments = ", ".join(f"{value_type(a.of_kind)}({'vxc_number' if a.of_kind.is_number else 'vxc_pointer'}({i}))" for i, a in enumerate(e.arguments))
            result = RESULTS[e.returns]
            gave = "{};" if not result.field else "vxc_gave_number({});" if result.is_number else "vxc_gave_place({});"
            for v in dict.fromkeys(variables[n] for n in e.names):
                names += [f"(Name: '{n}'; Index: {len(calls)})" for n in e.names if variables[n] == v]
                calls.append(f"    {len(calls)}: {gave.format(f'Vexlor32.{v}({arguments})')}")
    lines = [f"const ExactNames: array[0..{len(names) - 1}] of TCallName = (", ",\n".join("  " + n for n in names), ");", "",
             "procedure ExactCall(Index: LongInt);", "begin", "  case Index of", *calls, "  end;", "end;", ""]
    return lines


READERS = {"str": "InText({0})", "edit": "InText({0})", "bytes": "InBytes({0})", "char": "AnsiChar(vxc_number({0}) and $FF)",
           "table": "TVexlorTable(InOpened({0}))", "handle": "TVexlorFile(InOpened({0}))", "uint": "LongWord(vxc_number({0}))"}
GIVERS = {"text": "GiveText({0})", "bool": "vxc_gave_number(Ord({0}))", "char": "vxc_gave_number(Ord({0}))", "Table": "GiveOpened('T', {0})",
          "File": "GiveOpened('F', {0})"}
NUMBER_READER, NUMBER_GIVER = "LongInt(vxc_number({0}))", "vxc_gave_number({0})"


def friendly_dispatch(families):
    names, calls = [], []
    for family, functions in model.functions(families, first=1):
        for f in functions:
            result, outs = returned(f)
            given, before, after, blocks = [], [], [], []
            for i, p in enumerate(f.parameters):
                if p.kind == "block":
                    before.append(f"B[{i}] := InBytes({i});")
                    blocks.append(f"GiveBlock({i}, B[{i}]);")
                    given.append(f"B[{i}]")
                else:
                    given.append(READERS.get(p.kind, NUMBER_READER).format(i))
            places = {o.name: f"{'T' if o.kind == 'text' else 'N'}[{i}]" for i, o in enumerate(f.outputs)}
            given += [places[o.name] for o in outs]
            after += [GIVERS.get(o.kind, NUMBER_GIVER).format(places[o.name]) + ";" for o in f.outputs[0 if result not in f.outputs[:1] else 1:]]
            name = function_name(f)
            target = f"{given.pop(0)}.{name}" if f.owner else f"Vexlor.{name}"
            call = f"{target}({', '.join(given)})" if given else target
            if result and result.kind == "offset":
                is_block = next(a.kind for a in f.entry.arguments if a.name == result.place) == "block"
                call = f"GivePlace({call}{'' if is_block else ' - 1'})"
            elif result in f.outputs[1:]:
                call = f"{places[result.name]} := {call}"
            elif result:
                call = GIVERS.get(result.kind, NUMBER_GIVER).format(call)
            names.append(f"  (Name: '{f.entry.main}'; Index: {len(calls)})")
            calls.append(f"    {len(calls)}: begin {' '.join([*before, call + ';', *after, *blocks])} end;")
    return [f"const FriendlyNames: array[0..{len(names) - 1}] of TCallName = (", ",\n".join(names), ");", "",
            "procedure FriendlyCall(Index: LongInt);", "var", "  T: array[0..3] of AnsiString;", "  N: array[0..3] of LongInt;",
            "  B: array[0..7] of TBytes;", "begin", "  case Index of", *calls, "  end;", "end;", ""]


def products(families, groups, clashes):
    return {"pascal/vexlor32.pas": exact(families), "pascal/vexlor.pas": friendly(families), "pascal/vexlorconsts.pas": constants(groups),
            "tests/pascal_dispatch.inc": "\n".join(["// Made from the export table.", *exact_dispatch(families), *friendly_dispatch(families)])}

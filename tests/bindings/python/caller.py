"""Makes the calls of vexlor_conformance through the Python package; caller_process.h has the protocol."""
import ctypes
import os
import sys

import vexlor32
from vexlor32 import exact
from vexlor32._functions import _ENTRIES

opened = {}  # handles of friendly objects


def exact_call(name, words):
    arguments, memories = [], []
    for word in words:
        kind, rest = word[0], word[1:]
        if kind == "n":
            arguments.append(int(rest))
        elif kind == "z":
            arguments.append(None)
        elif kind == "=":
            arguments.append(arguments[int(rest.split("@")[0])])
        else:
            digits, offset = rest.split("@")
            content = bytes.fromhex(digits)
            memory = ctypes.create_string_buffer(content, len(content))
            memories.append((len(arguments), memory))
            arguments.append(ctypes.c_void_p(ctypes.addressof(memory) + int(offset)) if int(offset) else memory)
    function = getattr(exact, name)
    for i, (given, wanted) in enumerate(zip(arguments, function.argtypes)):
        if wanted.__name__ == "Number" and given is not None:
            arguments[i] = ctypes.c_int32.from_buffer(given)
    result = function(*arguments)
    return " ".join([shown(result, function.restype, memories)] + ["m" + memory.raw.hex() for _, memory in memories])


def shown(result, kind, memories):
    if kind is None:
        return "v"
    if kind is not ctypes.c_void_p:
        return f"n{result}"
    if result is None:
        return "z"
    for beyond in (0, 1):  # the end of one may be the beginning of another
        for i, memory in memories:
            offset = result - ctypes.addressof(memory)
            if 0 <= offset < len(memory) + beyond:
                return f"p{i}@{offset}"
    return "t" + ctypes.string_at(result).hex()


def friendly_argument(word, kind, base):
    if kind in ("table", "handle"):
        return opened[kind, int(word[1:])]
    if word[0] == "n":
        return int(word[1:]) - (1 if kind == "pos" and base == 1 else 0)
    if word == "z":
        return None
    content = bytes.fromhex(word[1:])
    return {"bytes": bytes, "block": bytearray}.get(kind, lambda c: c.decode("latin-1"))(content)


def friendly_output(value, kind, place, base):
    if kind in ("Table", "File"):
        if value is None:
            return {"Table": "n0", "File": "n-1"}[kind]
        opened[{"Table": "table", "File": "handle"}[kind], value.handle] = value
        return f"n{value.handle}"
    if value is None:
        return "z"
    if kind == "text":
        return "t" + value.encode("latin-1").hex()
    if kind == "offset":
        return f"p{place}@{value}"
    return f"n{int(value) + (1 if kind == 'pos' and base == 1 else 0)}"


def friendly_call(name, words):
    function, base, parameters, outputs = _ENTRIES[name]
    arguments = [friendly_argument(w, kind, base) for w, (_, kind) in zip(words, parameters, strict=True)]
    values = function(*arguments)
    values = values if len(outputs) > 1 else (values,)
    shown_outputs = {name: friendly_output(v, kind, place, base) for v, (name, kind, place) in zip(values, outputs)}
    blocks = [f"{n}=t{a.hex()}" for a, (n, _) in zip(arguments, parameters) if isinstance(a, bytearray)]
    texts = [n for n, kind, _ in outputs if n != "result" and kind == "text"]
    result = shown_outputs.pop("result", None)
    if result is None:
        written = texts or [n for n, kind in parameters if kind == "block"]
        result = "v" if not written else "z" if shown_outputs.get(written[0]) == "z" else f"p{written[0]}@0"
    if name == "DbfClose" or name == "FClose":
        opened.pop((parameters[0][1], int(words[0][1:])), None)
    return " ".join([result] + [f"{n}={v}" for n, v in shown_outputs.items() if v != "z"] + blocks)


for line in sys.stdin:
    what, *words = line.split()
    try:
        if what == "enter":
            os.chdir(bytes.fromhex(words[0]).decode())
            answer = "ok"
        else:
            answer = (exact_call if what == "call" else friendly_call)(words[0], words[1:])
    except Exception as error:  # whatever it is, the row shows it
        answer = f"!{type(error).__name__}: {error}".replace("\n", " ")
    print(answer, flush=True)

"""Makes the calls of the conformance library through the Python package."""
import ctypes

import vexlor32
from core import ARRAYS, UNICODE, WIDE, core, give, given, opened, run
from vexlor32 import exact
from vexlor32._functions import _ENTRIES


def exact_argument(i, wanted):
    kind = chr(core.vxc_kind(i))
    if kind in "n=":
        return core.vxc_number(i) if kind == "n" else exact_argument(core.vxc_number(i), wanted)
    if kind == "z":
        return None
    if wanted.__name__ == "Number":
        return ctypes.c_int32.from_address(core.vxc_memory(i))
    if core.vxc_offset(i):
        return ctypes.c_void_p(core.vxc_pointer(i))
    return (ctypes.c_char * core.vxc_size(i)).from_address(core.vxc_memory(i))


def exact_call(name, count):
    function = getattr(exact, name)
    result = function(*(exact_argument(i, wanted) for i, wanted in zip(range(count), function.argtypes, strict=True)))
    if function.restype is ctypes.c_void_p:
        core.vxc_gave_place(ctypes.c_void_p(result))
    elif function.restype:
        give(result)


def friendly_call(name, count):
    function, outputs = _ENTRIES[name]
    arguments = [given(i) for i in range(count)]
    values = function(*arguments)
    for value in values if outputs > 1 else [values] * outputs:
        if isinstance(value, (vexlor32.Table, vexlor32.File)):
            opened["T" if isinstance(value, vexlor32.Table) else "F", value.handle] = value
        give(getattr(value, "handle", value))
    for argument in arguments:
        if isinstance(argument, bytearray):
            give(argument)


run(ARRAYS | UNICODE | WIDE, "TypeError|ValueError|UnicodeEncodeError|OverflowError", friendly_call if core.vxc_is_friendly() else exact_call)

"""The conformance library (conformance.h), for callers that are written in Python."""
import ctypes
import sys

FROM_ONE, ARRAYS, UNICODE, WIDE = 1, 2, 4, 8
core = ctypes.CDLL("libvexlor_conformance.so")
for asked in (core.vxc_number, core.vxc_memory, core.vxc_size, core.vxc_offset, core.vxc_pointer):
    asked.restype = ctypes.c_int64
opened = {}  # friendly objects by their kinds and numbers


def given(i, block=bytearray, constant=bytes):
    """Argument i of a friendly call."""
    kind = chr(core.vxc_kind(i))
    if kind in "nTF":
        return core.vxc_number(i) if kind == "n" else opened[kind, core.vxc_number(i)]
    if kind == "z":
        return None
    content = ctypes.string_at(core.vxc_memory(i), core.vxc_size(i))
    return content.decode({"t": "latin-1", "u": "utf-8"}[kind]) if kind in "tu" else (block if kind == "B" else constant)(content)


def give(value):
    if value is None:
        core.vxc_gave_null()
    elif isinstance(value, (int, float)):
        core.vxc_gave_number(ctypes.c_int64(int(value)))
    else:
        content = value.encode("latin-1") if isinstance(value, str) else bytes(value)
        core.vxc_gave_text(content, ctypes.c_int64(len(content)))


def run(traits, errors, make):
    @ctypes.CFUNCTYPE(None, ctypes.c_char_p, ctypes.c_int)
    def call(name, count):
        try:
            make(name.decode(), count)
        except Exception as error:  # whatever it is, the row shows it
            core.vxc_refused(f"{type(error).__name__}: {error}".encode())

    sys.exit(core.vxc_run(traits, errors.encode(), call))

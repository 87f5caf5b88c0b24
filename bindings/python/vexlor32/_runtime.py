"""Loads the library, and turns Python's values into what it takes and back."""
import ctypes
import os
import pathlib
import struct
import sys
from ctypes import c_char, c_int32, c_uint32, c_void_p

WINDOWS = sys.platform == "win32"
LARGEST_ROOM = 1 << 31
LEAST_HOST_ROOM = 1 << 18  # no program is started with a longer text in its command line or environment


def library_path():
    """The library beside this package, or else the one that the loader finds; VEXLOR32_LIBRARY names another."""
    if "VEXLOR32_LIBRARY" in os.environ:
        return os.environ["VEXLOR32_LIBRARY"]
    bits = 8 * struct.calcsize("P")
    if WINDOWS:
        name = f"Vexlor{bits}.dll"
    elif bits == 64:
        name = "libvexlor32.so.5"
    else:
        raise ImportError("On Linux the library is for 64-bit programs; this Python has 32 bits.")
    beside = pathlib.Path(__file__).with_name(name)
    return str(beside) if beside.exists() else name


def load():
    path = library_path()
    try:
        return (ctypes.WinDLL if WINDOWS else ctypes.CDLL)(path)
    except OSError as error:
        raise ImportError(f"cannot load {path}: {error}; VEXLOR32_LIBRARY may name the file") from error


_library = load()
_encoding = "mbcs" if WINDOWS else "latin-1"


def set_encoding(name):
    """The code page of texts from now on; "cp437", for instance. It must be one of single bytes."""
    global _encoding
    if len("a".encode(name)) != 1 or bytes([97]).decode(name) != "a":
        raise LookupError(f"{name} is no code page of single bytes")
    _encoding = name


def bind(names, result, *types):
    """The exported functions of these names, which are one entry."""
    functions = []
    for name in names.split():
        function = _library[name]
        function.restype = result
        function.argtypes = types
        functions.append(function)
    return functions


# Types of arguments: they refuse what ctypes would cut or misread.

class Int32:
    @staticmethod
    def from_param(value):
        if not -(1 << 31) <= value < 1 << 31:
            raise OverflowError(f"{value} is no signed number of 32 bits")
        return c_int32(value)


class Uint32:
    @staticmethod
    def from_param(value):
        if not 0 <= value < 1 << 32:
            raise OverflowError(f"{value} is no unsigned number of 32 bits")
        return c_uint32(value)


def is_array(value):
    return isinstance(value, ctypes.Array) and value._type_ is c_char


class Text:
    """bytes, a buffer that ends with NUL, or None."""
    @staticmethod
    def from_param(value):
        if value is None or isinstance(value, bytes):
            return ctypes.c_char_p(value)
        if is_array(value) and b"\0" in value.raw:
            return value
        raise TypeError(f"bytes or a create_string_buffer that ends with NUL, not {type(value).__name__}")


class Bytes:
    @staticmethod
    def from_param(value):
        if value is None or isinstance(value, bytes):
            return ctypes.c_char_p(value)
        if is_array(value) or isinstance(value, c_void_p):
            return value
        raise TypeError(f"bytes or a create_string_buffer, not {type(value).__name__}")


class Buffer:
    """A create_string_buffer, an address in one, or None."""
    @staticmethod
    def from_param(value):
        if value is None or isinstance(value, c_void_p) or is_array(value):
            return value
        raise TypeError(f"a create_string_buffer, not {type(value).__name__}")


class Number:
    @staticmethod
    def from_param(value):
        if value is None:
            return None
        if isinstance(value, c_int32):
            return ctypes.byref(value)
        raise TypeError(f"a c_int32, not {type(value).__name__}")


# What the friendly functions are made of.

def encoded(text):
    if text is None:
        return None
    if not isinstance(text, str):
        raise TypeError(f"a text or None, not {type(text).__name__}")
    if "\0" in text:
        raise ValueError("the text has a NUL in it")
    return text.encode(_encoding)


def code(character):
    """The code of a character, which may be given as a text of one."""
    if isinstance(character, int):
        return character
    byte = encoded(character)
    if byte is None or len(byte) != 1:
        raise ValueError("a character or its code")
    return byte[0]


def size(text):
    return len(text) if text else 0


def host_room():
    return max(LEAST_HOST_ROOM, 1 + max((len(name) + len(value) + 1 for name, value in os.environ.items()), default=0) * 4)


def destination(room):
    if room > LARGEST_ROOM:
        raise OverflowError(f"the result could need {room} bytes")
    return ctypes.create_string_buffer(max(room, 1))  # zeros, so one that has to end at its last byte does


def editable(text, room):
    content = encoded(text)
    return None if content is None else ctypes.create_string_buffer(content, max(len(content) + 1, room))


def checked(block, needed, before):
    front = max(-before, 0)
    if len(block) < needed + front:
        raise ValueError(f"{len(block)} bytes, where the call needs {needed + front}")
    return front


def readable(block, needed, before=0):
    if block is None:
        return None
    checked(block, needed, before)
    content = bytes(block)
    return content if before >= 0 else pointer_into(ctypes.create_string_buffer(content, len(content)), -before)


def writable(block, needed, before=0):
    if block is None:
        return None
    if not isinstance(block, bytearray):
        raise TypeError(f"a bytearray, not {type(block).__name__}")
    front = checked(block, needed, before)
    buffer = (c_char * len(block)).from_buffer(block)
    return buffer if front == 0 else pointer_into(buffer, front)


def pointer_into(buffer, offset):
    pointer = c_void_p(ctypes.addressof(buffer) + offset)
    pointer.keeps = buffer
    return pointer


def decoded(buffer):
    return None if buffer is None else buffer.value.decode(_encoding)


def text_at(address):
    return None if address is None else ctypes.string_at(address).decode(_encoding)


def offset_in(place, address):
    if address is None or place is None:
        return None
    if isinstance(place, bytes):
        return address - ctypes.cast(place, c_void_p).value
    return address - (place.value if isinstance(place, c_void_p) else ctypes.addressof(place))


class Handle:
    """What is open until it is closed."""
    NONE = 0

    def __init__(self, handle):
        self._handle = handle

    @classmethod
    def of(cls, handle):
        """The object of a handle that a function gave, None for the one that says it failed."""
        return None if handle == cls.NONE else cls(handle)

    @property
    def handle(self):
        if self._handle == self.NONE:
            raise ValueError(f"the {type(self).__name__.lower()} is closed")
        return self._handle

    def forget(self):
        self._handle = self.NONE

    def __enter__(self):
        return self

    def __exit__(self, *_):
        if self._handle != self.NONE:
            self.close()

    def __del__(self):
        if getattr(self, "_handle", self.NONE) != self.NONE:
            self.close()

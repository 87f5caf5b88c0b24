"""A general-purpose function library: strings, tokens, numbers, dates, files and tables.

    >>> import vexlor32
    >>> vexlor32.str_center("PAID", 20, "*")
    '********PAID********'

    >>> with vexlor32.dbf_open("cheques.dbf", vexlor32.constants.VX_OPEN_READ) as table: ...

Functions take and give `str` and `int`; positions begin with 0, and one that does not exist is -1. A failure shows in the
result, None where there is no table, file or text; `f_error()` gives the reason of the last one. Texts are single-byte:
`set_encoding` says in which code page (Latin-1 at first; on Windows that of the system).

`vexlor32._exact` has all exported names as they are, with ctypes' types and destinations of your own.
"""
from . import _exact as exact
from . import constants
from ._functions import *  # noqa: F401,F403
from ._functions import __all__ as _names
from ._runtime import set_encoding

__all__ = ["constants", "exact", "set_encoding", *_names]

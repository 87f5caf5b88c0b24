"""The kinds of arguments and results: a row each, from which everything else that knows kinds is made.

A language that gets bindings of its own adds a column here, or goes by the C type.
"""
import dataclasses

# C type -> field of the call value (catalog/catalog.h) that carries it.
FIELDS = {
    "int32_t": "number",
    "uint32_t": "number",
    "const char *": "constant",
    "char *": "text",
    "int32_t *": "numbers",
    "const void *": "block",
    "void *": "block",
    "void": "",
}


class Typed:
    @property
    def field(self):
        return FIELDS[self.c_type]

    @property
    def is_number(self):
        return self.field == "number"

    @property
    def is_pointer(self):
        return self.c_type.endswith("*")

    @property
    def is_unsigned(self):
        return self.c_type == "uint32_t"


@dataclasses.dataclass(frozen=True)
class ArgumentKind(Typed):
    name: str
    c_type: str
    words: str                  # what it is, where the table gives no meaning of its own
    null: str = ""              # what NULL does, where neither the words nor the meaning speak of it
    room: str = ""              # whether a size in brackets follows: "needed", "possible", or never
    supplied: bool = False      # the function fills it: a host has the memory, nobody types it
    ignored: bool = False
    needs_meaning: bool = False

    @property
    def is_text(self):
        """A text that the caller gives, with a length."""
        return self.c_type.endswith("char *") and not self.supplied

    @property
    def is_countable(self):
        """A number that rooms may be computed from."""
        return self.is_number and not self.ignored


@dataclasses.dataclass(frozen=True)
class ResultKind(Typed):
    name: str
    c_type: str
    words: str = ""             # none where they depend on the entry's arguments or base
    needs_meaning: bool = False

    @property
    def is_text(self):
        return self.c_type.endswith("char *")


def by_name(*kinds):
    return {kind.name: kind for kind in kinds}


ARGUMENTS = by_name(
    ArgumentKind("int", "int32_t", "signed number", needs_meaning=True),
    ArgumentKind("uint", "uint32_t", "unsigned number", needs_meaning=True),
    ArgumentKind("char", "int32_t", "character; only the low byte counts"),
    ArgumentKind("pos", "int32_t", "position"),
    ArgumentKind("str", "const char *", "text", null="NULL counts as empty"),
    ArgumentKind("edit", "char *", "text, changed in place; NULL: nothing happens", room="possible"),
    ArgumentKind("dest", "char *", "destination", room="needed", supplied=True),
    ArgumentKind("out", "int32_t *", "receives a number", null="NULL is skipped", supplied=True, needs_meaning=True),
    ArgumentKind("bytes", "const void *", "bytes, read only", room="needed"),
    ArgumentKind("block", "void *", "memory block of the caller", room="needed", supplied=True),
    ArgumentKind("handle", "int32_t", "file handle"),
    ArgumentKind("table", "uint32_t", "table handle"),
    ArgumentKind("any", "int32_t", "ignored", ignored=True),
)
RESULTS = by_name(
    ResultKind("int", "int32_t", "a signed number", needs_meaning=True),
    ResultKind("uint", "uint32_t", "an unsigned number", needs_meaning=True),
    ResultKind("bool", "int32_t", "1 if so, else 0"),
    ResultKind("char", "int32_t", "a character code, 0 to 255"),
    ResultKind("pos", "int32_t"),
    ResultKind("handle", "int32_t", "a file handle, -1 on failure", needs_meaning=True),
    ResultKind("table", "uint32_t", "a table handle, 0 on failure", needs_meaning=True),
    ResultKind("dest", "char *"),
    ResultKind("given", "char *", "dest as it was given"),
    ResultKind("inside", "char *", "a pointer into the result"),
    ResultKind("const", "const char *", "a constant text of the library; never write to it"),
    ResultKind("block", "void *", "the block"),
    ResultKind("end", "void *", "just past the last byte written to the block"),
    ResultKind("void", "void", "nothing"),
)

"""The words that the header, the reference pages and `vexlor --explain` share."""

KIND_WORDS = {
    "int": "signed number",
    "uint": "unsigned number",
    "char": "character; only the low byte counts",
    "pos": "position",
    "str": "text; NULL counts as empty",
    "edit": "text, changed in place; NULL: nothing happens",
    "dest": "destination",
    "out": "receives a number; NULL is skipped",
    "bytes": "bytes, read only",
    "block": "memory block of the caller",
    "handle": "file handle",
    "table": "table handle",
    "any": "ignored",
}
RESULT_WORDS = {
    "int": "a signed number",
    "uint": "an unsigned number",
    "bool": "1 if so, else 0",
    "char": "a character code, 0 to 255",
    "handle": "a file handle, -1 on failure",
    "table": "a table handle, 0 on failure",
    "given": "dest as it was given",
    "inside": "a pointer into the result",
    "const": "a constant text of the library; never write to it",
    "block": "the block",
    "end": "just past the last byte written to the block",
    "void": "nothing",
}


def is_length(entry):
    return entry.symbol.endswith("_length")


def argument_words(entry, argument):
    words = argument.meaning or KIND_WORDS[argument.kind]
    if argument.kind == "pos" and entry.base >= 0:
        words = f"{words} (the first character is {entry.base})"
    if argument.kind == "str" and argument.meaning and "NULL" not in argument.meaning:
        words += "; NULL counts as empty"
    if argument.kind == "out" and "NULL" not in words:
        words += "; NULL is skipped"
    if argument.room is not None:
        words += f"; room: {argument.room.text}"
    if argument.before:
        words += f"; below 0, {argument.before} counts bytes in front of it"
    if argument.in_place:
        words += f"; NULL: {argument.in_place} is changed in place and needs that room"
    elif argument.constant:
        words += "; NULL: the result is a constant empty text"
    elif argument.kind == "dest" and "NULL" not in argument.meaning:
        words += "; NULL: nothing is written"
    if argument.without:
        words += f"; left as it is when {argument.without} is NULL"
    if argument.below:
        words += f"; left as it is when {argument.below} is below {argument.limit}"
    if argument.apart:
        words += "; never the text itself"
    if argument.terminated:
        words += "; must already end at its last byte"
    return words


def result_words(entry):
    if is_length(entry):
        return entry.length_returns or "the length of the resulting text"
    if entry.result_meaning:
        return entry.result_meaning
    if entry.returns == "pos":
        return {0: "a position, the first character is 0; -1 if there is none",
                1: "a position, the first character is 1; 0 if there is none"}.get(entry.base, "a position; 0 if there is none")
    if entry.returns == "dest":
        dest = next((a for a in entry.arguments if a.kind == "dest"), None)
        text = dest.in_place if dest else next((a.name for a in entry.arguments if a.kind == "edit"), "the text")
        if dest is None:
            return text
        return f"{dest.name}, or {text} when {dest.name} is NULL" if text else dest.name
    return RESULT_WORDS[entry.returns]


def summary(entry):
    """What the entry does, in a sentence; a length form says only whose it is."""
    if is_length(entry):
        return f"As {entry.source.main}, returning {result_words(entry)}."
    return entry.does

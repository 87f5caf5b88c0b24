"""The words that the header, the reference pages and `vexlor --explain` share."""
from kinds import RESULTS


def is_length(entry):
    return entry.symbol.endswith("_length")


def argument_words(entry, argument, base=None):
    """`base`: of positions, where it is another than the entry's."""
    base = entry.base if base is None else base
    kind = argument.of_kind
    words = argument.meaning or kind.words
    if argument.kind == "pos" and base >= 0:
        words = f"{words} (the first character is {base})"
    if kind.null and "NULL" not in words:
        words += f"; {kind.null}"
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


def result_words(entry, base=None):
    base = entry.base if base is None else base
    if is_length(entry):
        return entry.length_returns or "the length of the resulting text"
    if entry.result_meaning:
        return entry.result_meaning
    if entry.returns == "pos":
        return {0: "a position, the first character is 0; -1 if there is none",
                1: "a position, the first character is 1; 0 if there is none"}.get(base, "a position; 0 if there is none")
    if entry.returns == "dest":
        dest = next((a for a in entry.arguments if a.kind == "dest"), None)
        text = dest.in_place if dest else next((a.name for a in entry.arguments if a.kind == "edit"), "the text")
        if dest is None:
            return text
        return f"{dest.name}, or {text} when {dest.name} is NULL" if text else dest.name
    return RESULTS[entry.returns].words


def summary(entry):
    """What the entry does, in a sentence; a length form says only whose it is."""
    if is_length(entry):
        return f"As {entry.source.main}, returning {result_words(entry)}."
    return entry.does

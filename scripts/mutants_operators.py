"""The changes that scripts/mutants makes to C++ source, token by token. It counts on the project's formatting: binary
operators have blanks around them, what belongs to a type has none in front."""
import dataclasses
import re

COMMENT = r"//[^\n]*|/\*.*?\*/"
DIRECTIVE = r"^[ \t]*#(?:[^\n]*\\\n)*[^\n]*"
LITERAL = r'"(?:\\.|[^"\\\n])*"|(?<![0-9A-Fa-f])\'(?:\\.|[^\'\\\n])*\''
HIDDEN = re.compile("|".join((COMMENT, DIRECTIVE, LITERAL)), re.DOTALL | re.MULTILINE)
OTHERS = {
    "<": ("<=", ">="), "<=": ("<", ">"), ">": (">=", "<="), ">=": (">", "<"), "==": ("!=",), "!=": ("==",),
    "&&": ("||",), "||": ("&&",), "!": ("",),
    "+": ("-",), "-": ("+",), "*": ("/",), "/": ("*",), "%": ("*",),
    "+=": ("-=",), "-=": ("+=",), "*=": ("/=",), "/=": ("*=",),
}
TOKENS = [
    ("comparison", re.compile(r"(?<= )(?:[<>]=?|[=!]=)(?=\s)")),
    ("logical", re.compile(r"(?<= )(?:&&|\|\|)(?=\s)|!(?=[\w(:*!])")),
    ("arithmetic", re.compile(r"(?<= )[-+*/%]=?(?=\s)")),
]
NUMBER = re.compile(r"(?<![\w.'])(0[xX][\dA-Fa-f']+|\d[\d']*)([uUlLzZ]*)(?![\w.'])")
CONDITION = re.compile(r"\b(if|while|for)(?: constexpr)? \(")
RETURN = re.compile(r"\breturn ([^;{}]+);")
RESULTS = ("0", "1", "-1", "nullptr")
# Neither code of their own nor worth a change: the room of an array, a check at compile time.
IDLE = re.compile(r"^\s*(?:static_assert\b|using\b|typedef\b"
                  r"|(?:[\w:]+(?:<[^;=]*>)?[&*]* )+\w+(?:\[[^\]]*\])+(?: = \{\})?;\s*$)")
NO_REMOVAL = re.compile(r"^(?:return|break|continue|goto|throw|case|default|else|if|for|while|do|auto)\b"
                        r"|^(?:[\w:]+(?:<[^;=]*>)?[&*]* )+\w+\s*(?:[=;({\[,]|$)")
STARTS_AFTER = re.compile(r"(?:^|[;{}:]|^(?:\} )?(?:else|(?:else )?(?:if|for|while)\b.*\)))$")


@dataclasses.dataclass(frozen=True)
class Mutant:
    file: str
    line: int  # from 1
    operator: str
    before: str  # the line's text without its indentation
    after: str
    column: int
    length: int
    replacement: str


def hide(text):
    """The text with comments, directives and literals blotted out, every character in its place."""
    def blot(found):
        filler = "\x01" if found.group()[0] in "\"'" else " "
        return re.sub(r"[^\n]", filler, found.group())
    return HIDDEN.sub(blot, text)


def opens_code(head, inside):
    """Whether a brace opens a function's body (or what is in one), rather than a class, a namespace or a table."""
    bare = re.sub(r"template <.*?>(?= [a-z])|alignas\(\w+\)", "", head, flags=re.DOTALL)
    if re.search(r"\b(?:namespace|struct|class|union|enum|extern)\b[^()=]*$", bare):
        return False
    return inside or ")" in head or bool(re.search(r"\[\W?\]\s*$", head))


def code_of(hidden):
    """The characters that are executed: bodies of functions, and values of constants."""
    code = [False] * len(hidden)
    stack, start = [False], 0
    for i, c in enumerate(hidden):
        code[i] = stack[-1]
        if c == "{":
            stack.append(opens_code(hidden[start:i], stack[-1]))
            start = i + 1
        elif c == "}" and len(stack) > 1:
            stack.pop()
            if not re.match(r"\s*[,{;)]", hidden[i + 1:i + 80]):
                start = i + 1
        elif c == ";":
            head = hidden[start:i]
            if not stack[-1] and re.match(r"\s*(?:inline |static )*constexpr\b[^{}]* = [^{}]*$", head):
                for k in range(start + head.index(" = ") + 3, i):
                    code[k] = True
            start = i + 1
    return code


def numbers_near(digits, suffix):
    value = int(digits.replace("'", ""), 8 if re.fullmatch(r"0\d+", digits) else 0)
    write = hex if digits[:2] in ("0x", "0X") else str
    return [write(other) + suffix for other in dict.fromkeys((value + 1, value - 1, 0)) if other != value]


def conditions(line):
    """Start and end of each condition that a line holds whole, and what it can be forced to be."""
    for found in CONDITION.finditer(line):
        depth, end, marks = 1, found.end(), [found.end()]
        while depth and end < len(line):
            depth += (line[end] == "(") - (line[end] == ")")
            if line[end] == ";" and depth == 1:
                marks.append(end + 1)
            end += 1
        if depth:
            continue
        if found.group(1) == "if":
            yield marks[-1], end - 1, ("true", "false")
        elif found.group(1) == "while":
            yield marks[0], end - 1, ("false",)
        elif len(marks) == 3:
            yield marks[1], marks[2] - 1, (" false",)


def changes(line, previous):
    """(operator, start, end, replacement) of a line's mutants; `previous` is the code line before it."""
    for operator, pattern in TOKENS:
        for found in pattern.finditer(line):
            for other in OTHERS.get(found.group(), ()):
                yield operator, *found.span(), other
    for found in NUMBER.finditer(line):
        for other in numbers_near(*found.groups()):
            yield "constant", *found.span(), other
    for start, end, forced in conditions(line):
        for value in forced:
            yield "condition", start, end, value
    for found in RETURN.finditer(line):
        for result in {"true": ("0",), "false": ("1",)}.get(found.group(1), RESULTS):
            yield "result", *found.span(1), result
    statement = line.strip()
    whole = re.fullmatch(r"[^;{}]+;", statement) and statement.count("(") == statement.count(")")
    if whole and not NO_REMOVAL.match(statement) and STARTS_AFTER.search(previous):
        start = line.index(statement)
        yield "statement", start, start + len(statement), ";"


def mutants_of(file, text):
    hidden = hide(text)
    code = code_of(hidden)
    found, offset, previous = [], 0, ""
    for number, (line, real) in enumerate(zip(hidden.split("\n"), text.split("\n")), 1):
        if not IDLE.match(line):
            for operator, start, end, other in changes(line, previous):
                after = (real[:start] + other + real[end:]).strip()
                if code[offset + start] and after != real.strip():
                    found.append(Mutant(file, number, operator, real.strip(), after, start, end - start, other))
        offset += len(line) + 1
        previous = line.strip() or previous
    return found


def apply(mutant, text):
    lines = text.split("\n")
    line = lines[mutant.line - 1]
    lines[mutant.line - 1] = line[:mutant.column] + mutant.replacement + line[mutant.column + mutant.length:]
    return "\n".join(lines)

"""Makes the manual page of vexlor and its completions for bash, zsh and fish, from what the program tells of itself.

    python3 cli/shell_files.py PROGRAM FOLDER
"""
import json
import pathlib
import re
import subprocess
import sys

# What follows an option; the text behind the others is a function's name or nothing.
TAKES = {"--set": "text", "--library": "file", "--table": "file", "--list": "family", "--explain": "function", "--try": "function"}
# Options that take the next word even if it begins with a dash.
GREEDY = ["--set", "--library"]
HEADINGS = {"Arguments": "ARGUMENTS", "--raw": "OUTPUT", "Exit": "EXIT STATUS", "Examples": "EXAMPLES"}


class Program:
    def __init__(self, path):
        self.version = self.ask(path, "--version").strip()
        self.description, usage, options, *self.footer = self.ask(path, "--help").strip().split("\n\n")
        self.usage = [line[7:] for line in usage.splitlines()]
        rows = [re.split(r"  +", line.strip(), maxsplit=1) for line in options.splitlines()[1:]]
        self.options = [(names.split(" ")[0].split(","), names.partition(" ")[2], text) for names, text in rows]
        self.families = [(f["family"], f["title"], f["functions"]) for f in json.loads(self.ask(path, "--list", "--json"))["families"]]
        self.functions = sorted((name, f["does"]) for _, _, functions in self.families for f in functions for name in f["names"])

    @staticmethod
    def ask(path, *words):
        return subprocess.run([path, *words], check=True, stdout=subprocess.PIPE, text=True).stdout


def roff(text):
    text = text.replace("\\", "\\e").replace("-", "\\-").replace("'", "\\(aq")
    return re.sub(r"^([.'])", r"\\&\1", text, flags=re.MULTILINE)


def paragraph(text):
    """Prose, and under it lines that are moved in: terms with what they mean, or examples."""
    lines = []
    prose = [line for line in text.splitlines() if not line.startswith("  ")]
    inner = [line[2:] for line in text.splitlines() if line.startswith("  ")]
    if prose:
        lines.append(roff("\n".join(prose)))
    terms = [re.split(r"  +", line, maxsplit=1) for line in inner]
    if terms and all(len(pair) == 2 for pair in terms):
        for term, meaning in terms:
            lines += [".TP", f"\\fB{roff(term)}\\fR", roff(meaning)]
    elif inner:
        lines += [".nf", *(roff(line) for line in inner), ".fi"]
    return lines


def manual(program):
    lines = [f'.TH VEXLOR 1 "" "{program.version}" "User Commands"', ".SH NAME",
             "vexlor \\- call any function of the Vexlor32 library from the shell", ".SH SYNOPSIS", ".nf"]
    lines += [roff(line) for line in program.usage] + [".fi", ".SH DESCRIPTION", roff(program.description), ".SH OPTIONS"]
    for names, value, text in program.options:
        value = f" \\fI{roff(value)}\\fR" if value else ""
        lines += [".TP", ", ".join(f"\\fB{roff(name)}\\fR" for name in names) + value, roff(text)]
    for part in program.footer:
        word = re.split(r"[\s:]", part)[0]
        if word in HEADINGS:
            lines.append(f".SH {HEADINGS[word]}")
        else:
            lines.append(".PP")
        if word in ("Exit", "Examples"):
            part = part.partition(":")[2].lstrip("\n ") if word == "Exit" else "  " + part.partition(":\n  ")[2]
        lines += paragraph(part)
    return "\n".join(lines) + "\n"


def option_names(program):
    return [name for names, _, _ in program.options for name in names]


BASH = r"""# Completion of vexlor for bash.
_vexlor() {
    local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} i
    COMPREPLY=()
    for ((i = 1; i < COMP_CWORD; ++i)); do
        case ${COMP_WORDS[i]} in
            @GREEDY@ | =) ((++i)) ;;
            -*) ;;
            *)
                mapfile -t COMPREPLY < <(compgen -f -- "$word")
                return
                ;;
        esac
    done
    case $previous in
        @FILE@) mapfile -t COMPREPLY < <(compgen -f -- "$word") ;;
        @TEXT@) ;;
        @FAMILY@) mapfile -t COMPREPLY < <(compgen -W '@FAMILIES@' -- "$word") ;;
        *)
            local words=$_vexlor_functions
            [[ $word == -* ]] && words='@OPTIONS@'
            mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
            ;;
    esac
}
_vexlor_functions='
@FUNCTIONS@
'
complete -o filenames -F _vexlor vexlor
"""


def bash(program):
    def kinds(kind):
        return " | ".join(option for option, taken in TAKES.items() if taken == kind)

    parts = {"GREEDY": " | ".join(GREEDY), "FILE": kinds("file"), "TEXT": kinds("text"), "FAMILY": kinds("family"),
             "FAMILIES": " ".join(name for name, _, _ in program.families), "OPTIONS": " ".join(option_names(program)),
             "FUNCTIONS": "\n".join(name for name, _ in program.functions)}
    return re.sub(r"@([A-Z]+)@", lambda found: parts[found.group(1)], BASH)


def quoted(text):
    return "'" + text.replace("'", "'\\''") + "'"


def zsh(program):
    actions = {"text": ":text: ", "file": ":file:_files", "family": "", "function": "", None: ""}
    lines = ["#compdef vexlor", "", "_vexlor_functions() {", "    local -a functions=("]
    lines += ["        " + quoted(f"{name}:{does}") for name, does in program.functions]
    lines += ["    )", "    if (( ${words[(I)--list]} )); then", "        local -a families=("]
    lines += ["            " + quoted(f"{name}:{title}") for name, title, _ in program.families]
    lines += ["        )", "        _describe -t families family families", "    elif (( ${words[(I)--table]} )); then", "        _files",
              "    else", "        _describe -t functions function functions", "    fi", "}", "", "_arguments -S -A '-*' \\"]
    for names, value, text in program.options:
        text = re.sub(r"([\[\]\\:])", r"\\\1", text)
        action = actions[TAKES.get(names[-1])] if value else ""
        star = "*" if "repeated" in text else ""
        for name in names:
            lines.append(f"    {quoted(f'{star}{name}[{text}]{action}')} \\")
    lines += ["    '1:function:_vexlor_functions' \\", "    '*:argument:_files'"]
    return "\n".join(lines) + "\n"


def fish(program):
    lines = ["# Completion of vexlor for fish.", "",
             "# Whether no function, family or file was named yet.", "function __vexlor_first",
             "    set -l words (commandline -opc)", "    set -e words[1]", "    while set -q words[1]", "        switch $words[1]",
             f"            case {' '.join(GREEDY)}", "                set -e words[1]", "            case '-*'", "            case '*'",
             "                return 1", "        end", "        set -e words[1]", "    end", "end", "",
             "function __vexlor_functions", "    __vexlor_first; and not __fish_contains_opt list table", "end", ""]
    for names, value, text in program.options:
        flags = " ".join(f"-s {n[1:]}" if not n.startswith("--") else f"-l {n[2:]}" for n in names)
        if value:
            flags += " -r -F" if TAKES[names[-1]] == "file" else " -x"
        lines.append(f"complete -c vexlor -n __vexlor_first {flags} -d {fish_quoted(text)}")
    lines.append("complete -c vexlor -n '__vexlor_first; and not __fish_contains_opt table' -f")
    for name, title, _ in program.families:
        lines.append(f"complete -c vexlor -n '__vexlor_first; and __fish_contains_opt list' -a {name} -d {fish_quoted(title)}")
    for name, does in program.functions:
        lines.append(f"complete -c vexlor -n __vexlor_functions -a {name} -d {fish_quoted(does)}")
    return "\n".join(lines) + "\n"


def fish_quoted(text):
    return "'" + text.replace("\\", "\\\\").replace("'", "\\'") + "'"


def main():
    program, folder = Program(sys.argv[1]), pathlib.Path(sys.argv[2])
    folder.mkdir(parents=True, exist_ok=True)
    for name, make in {"vexlor.1": manual, "vexlor.bash": bash, "_vexlor": zsh, "vexlor.fish": fish}.items():
        (folder / name).write_text(make(program), encoding="utf-8")


main()

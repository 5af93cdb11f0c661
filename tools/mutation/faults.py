"""Simple faults that a source could have: where they can be planted and what the line says then."""
import dataclasses
import random
import re

NUMBER = re.compile(r"(?<![\w.])(0[xX][0-9a-fA-F']+|\d[\d']*(?:\.\d*)?(?:[eE][+-]?\d+)?)([uUlLfF]*)"
                    r"(?![\w.])")
SWAPS = {
    "negate": {" == ": " != ", " != ": " == "},
    "bound": {" < ": " <= ", " <= ": " < ", " > ": " >= ", " >= ": " > "},
    "sign": {" + ": " - ", " - ": " + ", " += ": " -= ", " -= ": " += "},
    "logic": {" && ": " || ", " || ": " && "},
}
STEP = re.compile(r"\+\+|--")
MINUS = re.compile(r"(?<![-\w)\]])-(?=[\w(.])")
CONDITION = re.compile(r"\b(?:if|while) (?:constexpr )?\(")
TRUTH = re.compile(r"^return ([^?{}]*(?: == | != | <=? | >=? | && | \|\| )[^?{}]*);$|^return (![^?{}]*);$")
CALL = re.compile(r"^[A-Za-z_:][^\s=(]*\(.*\);$")
NO_CALL = re.compile(r"^(?:return|delete|throw|if|while|for|switch|using)\b|\b(?:reserve|shrink_to_fit)\(")
LITERAL = re.compile(r'//[^\n]*|/\*.*?\*/|R"(\w*)\(.*?\)\1"|"(?:\\.|[^"\\\n])*"'
                     r"|(?<![0-9a-fA-F])'(?:\\.|[^'\\\n])+'", re.DOTALL)
# What tests are not to notice: no code, checks of the program by itself, declarations.
LEFT_OUT = re.compile(r"^#|^static_assert\b|^assert\(|\bassert\(|^(?:using|namespace|friend|template)\b|"
                      r"\) (?:const )?(?:noexcept )?(?:override )?= 0;")


@dataclasses.dataclass
class Fault:
    """One changed line. It is found again by its text and its neighbours, without their indentation."""
    id: str
    room: str
    kind: str
    file: str
    line: int
    function: str
    above: list
    text: str
    below: list
    mutant: str


def masked(text):
    """The source with blanks for what stands in comments and literals; every character keeps its place."""
    return LITERAL.sub(lambda found: re.sub(r"[^\n]", " " if found[0][0] == "/" else "_", found[0]), text)


def balanced_end(line, start):
    """The index after the bracket that closes the one at `start`; None when it is on another line."""
    depth = 0
    for index in range(start, len(line)):
        depth += {"(": 1, ")": -1}.get(line[index], 0)
        if depth == 0:
            return index + 1
    return None


def squeezed(line):
    return " ".join(line.split())


def changed_number(found, rng):
    digits, suffix = found[1].replace("'", ""), found[2]
    step = rng.choice((-1, 1))
    if digits[:2] in ("0x", "0X"):
        return f"0x{max(int(digits, 16) + step, 1):0{len(digits) - 2}X}{suffix}"
    if "." in digits or "e" in digits or "E" in digits:
        return f"{float(digits) + 1!r}{suffix}"
    value = int(digits)
    return f"{value + step if value > 0 else 1}{suffix}"


def swaps(line):
    for kind, table in SWAPS.items():
        for old, new in table.items():
            for found in re.finditer(re.escape(old), line):
                yield kind, found.start(), found.end(), new


def steps_and_signs(line):
    if not line.lstrip().startswith("for ("):
        for found in STEP.finditer(line):
            yield "sign", found.start(), found.end(), "--" if found[0] == "++" else "++"
    for found in MINUS.finditer(line):
        yield "sign", found.start(), found.end(), ""


def conditions(line, plain):
    for found in CONDITION.finditer(line):
        end = balanced_end(line, found.end() - 1)
        if end is None:
            continue
        inside = line[found.end():end - 1]
        start = found.end() + inside.rfind(";") + 1
        if not re.search(r"[^=!<>]=[^=]", line[start:end - 1]):
            yield "negate", start, end - 1, f"!({plain[start:end - 1].strip()})"
    indent = len(line) - len(line.lstrip())
    found = TRUTH.match(line.strip())
    if found:
        group = 1 if found[1] else 2
        start, end = indent + found.start(group), indent + found.end(group)
        yield "negate", start, end, f"!({plain[start:end]})"


def call_statements(line, before):
    stripped = line.strip()
    starts = not before or before[-1] in "{};:)"
    if starts and CALL.match(stripped) and not NO_CALL.search(stripped):
        if stripped.count("(") == stripped.count(")"):
            indent = len(line) - len(line.lstrip())
            yield "call", indent, len(line.rstrip()), ";"


def line_faults(line, plain, before, is_header, rng):
    """(kind, the whole line as it would read) for every fault of one line."""
    sites = [*swaps(line), *steps_and_signs(line), *conditions(line, plain)]
    if not is_header:
        sites += call_statements(line, before)
    for found in NUMBER.finditer(line):
        sites.append(("constant", found.start(), found.end(), changed_number(found, rng)))
    for kind, start, end, new in sites:
        yield kind, (plain[:start] + new + plain[end:]).strip()


def code_lines(text):
    """(number from 0, masked line, code line before it, function) of the lines that may carry a fault."""
    before, function, in_table, in_assert = "", "", False, 0
    for number, line in enumerate(masked(text).split("\n")):
        stripped = line.strip()
        if not stripped:
            continue
        in_table = (in_table or "BEGIN_MESSAGE_MAP" in line) and "END_MESSAGE_MAP" not in line
        if in_assert or re.search(r"\bassert\(", line):
            in_assert = max(0, in_assert + line.count("(") - line.count(")"))
        elif not in_table and "END_MESSAGE_MAP" not in line and not LEFT_OUT.search(stripped):
            yield number, line, before, function
        if line[0] not in " }#_" and stripped.endswith("{"):
            name = re.search(r"([~\w]+)\(", stripped)
            function = name[1] if name else function
        before = stripped


def faults_of(room, file, text):
    """Every fault of one source; the numbering (`id`) is given when faults are drawn."""
    plain = text.split("\n")
    neighbours = [squeezed(line) for line in plain]
    rng = random.Random(file)  # whether a number grows or shrinks
    for number, line, before, function in code_lines(text):
        above = [near for near in neighbours[:number] if near][-2:]
        below = [near for near in neighbours[number + 1:] if near][:2]
        for kind, mutant in line_faults(line, plain[number], before, file.endswith(".h"), rng):
            yield Fault("", room, kind, file, number + 1, function, above, neighbours[number], below, mutant)


def drawn(faults, seed, room):
    """The faults in the order in which the seed draws them: kinds in turn, and one fault a line at most."""
    rng = random.Random(f"{seed}/{room}")
    by_kind = {}
    for fault in faults:
        by_kind.setdefault(fault.kind, []).append(fault)
    piles = [by_kind[kind] for kind in sorted(by_kind)]
    for pile in piles:
        rng.shuffle(pile)
    used, count = set(), 0
    while piles:
        rng.shuffle(piles)
        for pile in piles:
            fault = pile.pop()
            if (fault.file, fault.line) not in used:
                used.add((fault.file, fault.line))
                count += 1
                yield dataclasses.replace(fault, id=f"{room}.{seed}.{count}")
        piles = [pile for pile in piles if pile]

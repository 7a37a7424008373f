"""Many changes of a source in one text, of which the running library takes the one that is asked for (chosen_change.cpp)."""
import re

from changes import code_of, is_declaration, statements

HEAD = 'extern "C" int tiloChange;'
NO_STATEMENT = re.compile(r"^(else|case|default|const|constexpr|constinit|auto|static|using|struct|class|template|namespace|extern|break|\[)\b|^[\[\])}]")
GIVEN = re.compile(r"^(\s*(?:const )?[\w:<>]+[&*]* \w+ = )(.*);$")
CONDITION = re.compile(r"^(\s*(?:\} else )?(?:if|while) \()(?!auto|const)(.*)\) \{$")
# Of a file, not of a function: its values are chosen when the library is loaded.
CONSTANTS = re.compile(r"^constexpr ([\w:]+) (\w.*);")


def constants_of(code):
    """The type, and (name, value) of each constant of a line; None when it is another."""
    found = CONSTANTS.match(code)
    if not found:
        return None
    kind, rest = found.groups()
    pieces, depth = [""], 0
    for letter in rest:
        depth += (letter in "({[") - (letter in ")}]")
        if letter == "," and depth == 0:
            pieces.append("")
        else:
            pieces[-1] += letter
    made = []
    for piece in pieces:
        name, _, value = piece.strip().partition(" = ")
        braced = re.match(r"(\w+)(\{.*\})$", name)
        if not value and not braced:
            return None
        made.append((name, f"static_cast<{kind}>({value})") if value else (braced.group(1), kind + braced.group(2)))
    return kind, made


def is_closed(text):
    return all(text.count(left) == text.count(right) for left, right in ("()", "{}", "[]"))


def wrappable(codes):
    """{first line: one past the last} of the statements that braces may be put around."""
    found = list(statements(codes))
    starts = {}
    for begin, end, text in found:
        rest = next((code.strip() for code in codes[end:] if code.strip()), "")
        first = next((line for line in range(begin, end) if codes[line].strip()), begin)
        if (codes[first].startswith(" ") and is_closed(text) and not NO_STATEMENT.match(text) and not rest.startswith("else")
                and not is_declaration(text)):
            starts[begin] = end
    return starts


def combined(lines, changes, left_out, constants):
    """The text, and whose change each of its lines is: a number of `changes`, or None. Those in `left_out` are not in it."""
    codes = [code_of(line) for line in lines]
    ends = wrappable(codes)
    begin_of = {line: begin for begin, end in ends.items() for line in range(begin, end)}
    instead = {}  # of a line or the statement that begins there: [(change, new lines)]
    shapes = {}   # how that is put in
    for number, (first, last, what, changed) in enumerate(changes):
        at = first - 1
        if number in left_out or what == "the row is left out":
            continue
        if what == "it comes after the next":
            if at not in ends or ends.get(ends[at]) != last:
                continue
            middle = ends[at]
            instead.setdefault(at, []).append((number, lines[middle:last] + lines[at:middle]))
            instead.setdefault(middle, []).append((number, []))
        elif what == "the call is left out":
            if ends.get(at) == last:
                instead.setdefault(at, []).append((number, []))
        elif at in begin_of:
            begin = begin_of[at]
            instead.setdefault(begin, []).append((number, changed[begin:ends[begin]]))
        else:
            new = constants_of(code_of(changed[at]))
            if constants and new and constants_of(codes[at]):
                instead.setdefault(at, []).append((number, [new]))
                shapes[at] = CONSTANTS
            for shape in (GIVEN, CONDITION):
                old, new = shape.match(lines[at]), shape.match(changed[at])
                if old and new and old.group(1) == new.group(1) and lines[at].startswith(" ") and "//" not in lines[at]:
                    instead.setdefault(at, []).append((number, [new.group(2)]))
                    shapes[at] = shape
    text, whose = [HEAD], [None]

    def put(line, number=None):
        text.append(line)
        whose.append(number)

    at = 0
    while at < len(lines):
        if at not in instead:
            put(lines[at])
            at += 1
        elif shapes.get(at) is CONSTANTS:
            kind, old = constants_of(codes[at])
            for index, (name, value) in enumerate(old):
                put(f"const {kind} {name} =")
                for number, ((_, new),) in instead[at]:
                    if new[index] != (name, value):
                        put(f"tiloChange == {number + 1} ? {new[index][1]} :", number)
                put(value + ";")
            at += 1
        elif at in shapes:
            begin, old = shapes[at].match(lines[at]).groups()
            cast = "static_cast<bool>" if shapes[at] is CONDITION else ""
            put(begin)
            for number, (new,) in instead[at]:
                put(f"tiloChange == {number + 1} ? {cast}({new}) :", number)
            put(f"{cast}({old})" + (") {" if cast else ";"))
            at += 1
        else:
            for number, new in instead[at]:
                put(f"if (tiloChange == {number + 1}) {{", number)
                for line in new:
                    put(line, number)
                put("} else")
            put("{")
            for line in lines[at:ends[at]]:
                put(line)
            put("}")
            at = ends[at]
    return text, whose, {number for each in instead.values() for number, _ in each}

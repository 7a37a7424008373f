"""The small changes of a source that script/mutate tries; neighbours that mean the same in either order stay (independent.py)."""
import re

from independent import are_members, independent

SKIPPED = re.compile(r"^\s*(#|//|using |namespace|template|static_assert|extern \"C\"|class |struct |enum|case .*:$|\}|$)")
SWAPS = [(" == ", " != "), (" != ", " == "), (" < ", " <= "), (" <= ", " < "), (" > ", " >= "), (" >= ", " > "),
         (" && ", " || "), (" || ", " && "), (" + ", " - "), (" - ", " + "), (" * ", " / "), (" / ", " * "),
         ("YES", "NO"), ("NO", "YES"), ("true", "false"), ("false", "true")]
NUMBER = re.compile(r"(?<![\w.\"'])(\d+(?:\.\d+)?(?:e\d+)?)f?(?![\w.\"'])")
# A local array with room to spare holds what it held.
ROOM = re.compile(r"^\s+\w+ \w+\[\d+\];")
# Colours, views that fade and places in gradients take no more than all, which is 1 or 255: less is tried, as more looks the same.
WHOLE = {"1": re.compile(r"colorWith|[pP]laces\[\]|alpha( = |\.set\()|\bfade(To)?\("), "1.0": re.compile(r"colorWith|\bof(Red|Hue)<"), "255": re.compile("")}
LESS = {"1": "0", "1.0": "0.5", "255": "127"}
CONDITION = re.compile(r"\b(?:if|while) \((?!auto|const)(.+)\)")
CHOICE = re.compile(r"([\w(][\w().:<>&, ]*) \? ")
NEGATION = re.compile(r"!(?=[\w(])")
# A statement that is a call or an assignment, from its first word on.
CALL = re.compile(r"^[\w:<>.&*\[\]()\->, ]+\(.*\);$|^[\w:.\->*\[\]]+ [-+*/]?= .+;$|^(\+\+|--)[\w.]+;$")
NO_CALL = re.compile(r"^(return|if|for|while|switch|case|break|continue|goto|else|const|constexpr|auto|static|static_assert|using)\b")
RETURN = re.compile(r"return (.+);$")
ROW = re.compile(r"^\s*(\{.*\}|[\w:]+<.*>\(.*\)),$")


def code_of(line):
    """The line without its comment and with its strings blanked, as long as it was."""
    blanked = re.sub(r'"(\\.|[^"\\])*"', lambda match: '"' + " " * (len(match.group()) - 2) + '"', line)
    blanked = re.sub(r"/\*.*?\*/", lambda match: " " * len(match.group()), blanked)
    comment = blanked.find("//")
    return blanked if comment < 0 else blanked[:comment]


def statements(codes):
    """(first line, one past the last, text) of each statement that begins and ends with a line."""
    begin = 0
    for index, code in enumerate(codes):
        code = code.strip()
        if code.endswith(";"):
            if begin is not None:
                yield begin, index + 1, " ".join(each.strip() for each in codes[begin:index + 1] if each.strip())
            begin = index + 1
        elif not code or code.endswith(("{", "}", ":")) or code.startswith("#"):
            begin = index + 1


def changes_of(lines):
    """(first line, last line, what is changed, the new lines) for every small change of a source; counted from 1."""
    codes = [code_of(line) for line in lines]
    depth = 0
    for index, (line, code) in enumerate(zip(lines, codes)):
        if SKIPPED.match(code):
            continue

        def changed(begin, end, to):
            return lines[:index] + [line[:begin] + to + line[end:]] + lines[index + 1:]

        here = index + 1
        for old, new in SWAPS:
            for match in re.finditer(r"\b" + old + r"\b" if old.isalpha() else re.escape(old), code):
                yield here, here, f"{old.strip()} becomes {new.strip()}", changed(*match.span(), new)
        for match in NUMBER.finditer(code) if not ROOM.match(code) else ():
            text = match.group(1)
            new = LESS[text] if text in LESS and WHOLE[text].search(code) else another(text)
            yield here, here, f"{text} becomes {new}", changed(*match.span(1), new)
        for match in NEGATION.finditer(code):
            yield here, here, "'!' is left out", changed(*match.span(), "")
        for match in CONDITION.finditer(code):
            begin, end = match.span(1)
            closed = balanced(code, begin)
            if closed:
                yield here, here, "the condition is turned round", changed(begin, closed, "!(" + line[begin:closed] + ")")
        for match in CHOICE.finditer(code):
            begin, end = match.span(1)
            if line[begin:end].startswith("return "):
                begin += len("return ")
            if line[begin:end].count("(") == line[begin:end].count(")"):
                yield here, here, "the choice is turned round", changed(begin, end, "!(" + line[begin:end] + ")")
        if ROW.match(code):
            yield here, here, "the row is left out", lines[:index] + lines[here:]
            if here < len(lines) and ROW.match(codes[here]) and not are_members(code, codes[here]):
                yield here, here + 1, "it comes after the next", lines[:index] + [lines[here], line] + lines[here + 1:]
        found = RETURN.search(code.rstrip())
        if found and found.group(1) not in ("{}", "nullptr", "0", "NO", "false", "std::nullopt"):
            begin, end = found.span(1)
            yield here, here, "nothing is returned", changed(begin, end, "{}")

    def is_call(text):
        return CALL.match(text) and not NO_CALL.match(text) and " operator" not in text

    def text_of(begin, end):
        """With what its strings say."""
        return " ".join(line[:len(code)].strip() for line, code in zip(lines[begin:end], codes[begin:end]) if code.strip())

    found = list(statements(codes))
    for number, (begin, end, text) in enumerate(found):
        # What stands at the margin is a declaration.
        if not is_call(text) or not lines[begin].startswith(" ") or is_declaration(text):
            continue
        yield begin + 1, end, "the call is left out", lines[:begin] + lines[end:]
        if number + 1 < len(found):
            after, last, other = found[number + 1]
            if after == end and is_call(other) and not is_declaration(other) and not independent(text_of(begin, end), text_of(after, last)):
                yield begin + 1, last, "it comes after the next", lines[:begin] + lines[end:last] + lines[begin:end] + lines[last:]


def another(number):
    if not number.isdigit():
        return str(float(number) * 2 if float(number) >= 10 else float(number) + 0.5)
    return f"0{int(number, 8) + 1:o}" if number.startswith("0") and number != "0" else str(int(number) + 1)


def balanced(code, begin):
    """One past what stands in the parenthesis that was opened before `begin`; none when it is not closed in the line."""
    depth = 1
    for index in range(begin, len(code)):
        depth += (code[index] == "(") - (code[index] == ")")
        if depth == 0:
            return index
    return None


def is_declaration(text):
    """Whether a statement makes a variable or declares a function: two words side by side before anything else."""
    return re.match(r"^[\w:]+(<[^()]*>)?[*&]* (\w+( =|\(|\{|;)|\(\*)", text) is not None

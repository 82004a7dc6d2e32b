"""The small mistakes: each function takes a Source and yields changes of its text."""

import dataclasses
import re


@dataclasses.dataclass(frozen=True)
class Mutation:
    path: str  # of the file, from the root of the sources
    function: str
    kind: str
    before: tuple  # the lines that change, without their indentation
    after: tuple
    text: str = dataclasses.field(compare=False)  # of the whole file with the mistake
    line: int = dataclasses.field(compare=False)

    @property
    def key(self):
        """Holds while the lines and their function are the same, wherever in the file they stand."""
        return self.path, self.function, self.before, self.after


SWAPPED_OPERATORS = {
    "<": ("<=",), "<=": ("<",), ">": (">=",), ">=": (">",), "==": ("!=",), "!=": ("==",),
    "&&": ("||",), "||": ("&&",), "+": ("-",), "-": ("+",), "*": ("/",), "/": ("*",), "%": ("*",),
    "<<": (">>",), ">>": ("<<",), "&": ("|",), "|": ("&",), "+=": ("-=",), "-=": ("+=",), "|=": ("&=",), "&=": ("|=",),
    "?": ("&& false ?", "|| true ?"),
}  # fmt: skip
STEPS = {"++": "--", "--": "++"}

WIDTHS = {
    "uint64_t": "uint32_t", "uint32_t": "uint16_t", "uint16_t": "uint8_t", "uint8_t": "uint32_t", "int64_t": "int32_t",
    "int32_t": "int16_t", "int16_t": "int8_t", "size_t": "uint16_t", "uintptr_t": "uint32_t",
    "Uint64": "Uint32", "Uint32": "Uint16", "Uint16": "Uint8", "Sint16": "Sint8",
}  # fmt: skip
BASIC_WIDTHS = {
    ("unsigned", "long", "long"): "unsigned int", ("unsigned", "long"): "unsigned int", ("long", "long"): "int",
    ("unsigned", "int"): "unsigned short", ("unsigned",): "unsigned char", ("long",): "int", ("int",): "short",
}  # fmt: skip

NOT_DEFINITIONS = ("using", "constexpr", "template", "class", "struct", "extern", "friend", "typedef", "static_assert")

# Calls that start a program: their texts stay, since a changed one could start another.
STARTS_PROGRAMS = re.compile(r"\b(popen|system|execl|execv|posix_spawn)\w*\(")


def change_operators(source):
    for index, token in enumerate(source.tokens):
        if token.kind != "op":
            continue
        if token.text in SWAPPED_OPERATORS and token.spaced:
            for other in SWAPPED_OPERATORS[token.text]:
                yield token.start, token.end, other
        elif token.text in STEPS and token.function:
            yield token.start, token.end, STEPS[token.text]
        elif token.text in ("!", "~") and token.function:
            yield token.start, token.end, ""


def negate_conditions(source):
    for index, token in enumerate(source.tokens):
        if token.text in ("if", "while") and source.tokens[index + 1].text == "(":
            opening, closing = source.tokens[index + 1], source.tokens[source.partner[index + 1]]
            condition = source.text[opening.end : closing.start]
            if re.search(r"\w[*&]* \w+ = [^;]*$", condition):
                continue  # declares a variable
            if re.fullmatch(r"![\w.()>-]+", condition):
                continue  # without its "!" it is one of the operators' mistakes
            last = max(condition.rfind(";"), -1) + 1  # an initialiser stays
            yield opening.end + last, closing.start, f" !({condition[last:].strip()})".lstrip(" " if not last else "")


def change_constants(source):
    for token in source.tokens:
        if token.kind == "number":
            match = re.fullmatch(r"(0[xX])?([0-9a-fA-F]+?)([uUlL]*)", token.text.replace("'", ""))
            if not match:
                continue
            prefix, digits, suffix = match.group(1) or "", match.group(2), match.group(3)
            value = int(digits, 16 if prefix else 10)
            for changed in (value + 1, value - 1) if token.function else (value + 1,):
                if changed >= 0:
                    text = f"{prefix}{changed:0{len(digits)}X}" if prefix else str(changed)
                    yield token.start, token.end, text + suffix
        elif token.text in ("true", "false"):
            yield token.start, token.end, "false" if token.text == "true" else "true"


def change_widths(source):
    for index, token in enumerate(source.tokens):
        if token.kind != "name" or _in_declaration(source, index):
            continue
        if token.text in WIDTHS:
            yield token.start, token.end, WIDTHS[token.text]
        elif source.tokens[index - 1].text not in ("unsigned", "long"):
            words = tuple(other.text for other in source.tokens[index : index + 3])
            for length in (3, 2, 1):
                if words[:length] in BASIC_WIDTHS:
                    if words[1] not in ("char", "short") and (words[0] != "int" or token.function):
                        yield token.start, source.tokens[index + length - 1].end, BASIC_WIDTHS[words[:length]]
                    break


def _in_declaration(source, index):
    """Whether the token belongs to a function that is only declared there."""
    if source.tokens[index].function:
        return False
    called = False
    for token in source.tokens[index:]:
        called = called or token.text in "()"
        if token.text in (";", "{", "="):
            return called and token.text == ";"
    return False


def change_texts(source):
    """Another letter case somewhere in the text: the smallest change that is none where case does not count."""
    for token in source.tokens:
        line = source.text[source.line_start(token.start) : source.line_end(token.end)]
        if token.kind == "string" and not STARTS_PROGRAMS.search(line):
            begin = token.text.index('"') + 1
            if source.tokens[source.tokens.index(token) - 1].text == "extern":
                continue
            content = token.text[begin:-1]
            letter = re.search(r"(?<![%\\.\d])(?<!%l)(?<!%ll)[A-Za-z]", content)
            if letter:
                changed = content[: letter.start()] + letter.group().swapcase() + content[letter.end() :]
            else:
                changed = content + "x"
            yield token.start, token.end, f'{token.text[:begin]}{changed}"'
        elif token.kind == "char":
            content = token.text[token.text.index("'") + 1 : -1]
            changed = chr(ord(content) + 1) if len(content) == 1 and content not in "&[" else r"\1"
            yield token.start, token.end, f"'{changed}'"


def change_returns(source):
    for index, token in enumerate(source.tokens):
        if token.text == "return" and source.tokens[index + 1].text not in (";", "{", "true", "false"):
            last = source.statement_end(index)
            value = source.tokens[index + 1]
            if last is not None and value.kind != "number" and value.text != "*":
                yield token.end, source.tokens[last].start, " {}"


def change_accessors(source):
    """Each fact asked for by its neighbour's name."""
    called = [
        token
        for index, token in enumerate(source.tokens)
        if re.match(r"get[A-Z]", token.text) and source.tokens[index - 1].text in (".", "->")
    ]
    names = list(dict.fromkeys(token.text for token in called))
    for token in called:
        if len(names) > 1:
            yield token.start, token.end, names[(names.index(token.text) + 1) % len(names)]


def delete_statements(source):
    for statement in source.statements():
        yield source.tokens[statement.first].start, source.tokens[statement.last].start, ""
    for index, token in enumerate(source.tokens):
        jumps = token.text in ("break", "continue", "throw") or (
            token.text == "return" and source.tokens[index + 1].text == ";"
        )
        if jumps and token.function:
            last = source.statement_end(index)
            if last is not None and source.tokens[index + 1].text != ";" or token.text != "throw":
                yield token.start, source.tokens[last].start, ""


def swap_statements(source):
    """Adjacent lines of a mapping, of a sequence of assignments or of definitions, and adjacent rows of a table."""
    statements = list(source.statements())
    for one, other in zip(statements, statements[1:]):
        if one.last + 1 == other.first and _order_shows(source, one, other):
            yield _swap(source, one.first, one.last, other.first, other.last)
    rows = list(_rows(source))
    for one, other in zip(rows, rows[1:]):
        if one[1] + 1 == other[0]:
            yield _swap(source, *one, *other)


def _order_shows(source, one, other):
    """Calls on the same object, or assignments to plain variables. The order in which the members of a record
    (`_name`) are assigned is nobody's affair."""
    first, second = source.tokens[one.first], source.tokens[other.first]
    links = source.tokens[one.first + 1].text, source.tokens[other.first + 1].text
    if links in ((".", "."), ("->", "->")):
        return first.text == second.text
    return links == ("=", "=") and not first.text.startswith("_") and not second.text.startswith("_")


def _rows(source):
    """Rows `{...},` of a list, enumerators, and definitions of variables without a qualifier, each on a line."""
    for index, token in enumerate(source.tokens):
        if not source.begins_line(token):
            continue
        if token.scope == "list" and token.text == "{" and index in source.partner:
            last = source.partner[index] + 1
        elif token.scope == "list" and token.kind in ("name", "string", "number"):
            last = index
            while source.tokens[last].text not in (",", "}", ")", "]", ";"):
                last = source.after(last)
        elif token.scope in ("", "namespace") and token.kind == "name" and not token.function:
            last = index
            while last < len(source.tokens) - 1 and source.tokens[last].text not in (";", "{"):
                last = source.after(last)
            if source.tokens[last].text != ";" or token.text in NOT_DEFINITIONS:
                continue
            words = [other.text for other in source.tokens[index:last]]
            if "(" in words and token.text != "const" and words[-1] in (")", "const", "default", "delete"):
                continue  # a function
        else:
            continue
        end = source.tokens[last] if last < len(source.tokens) else None
        if end and end.text in (",", ";") and source.ends_line(end):
            yield index, last


def _swap(source, first, first_last, second, second_last):
    tokens, text = source.tokens, source.text
    one = text[tokens[first].start : tokens[first_last].end]
    other = text[tokens[second].start : tokens[second_last].end]
    between = text[tokens[first_last].end : tokens[second].start]
    return tokens[first].start, tokens[second_last].end, other + between + one


KINDS = {
    "operator": change_operators,
    "condition": negate_conditions,
    "constant": change_constants,
    "width": change_widths,
    "text": change_texts,
    "return": change_returns,
    "accessor": change_accessors,
    "delete": delete_statements,
    "swap": swap_statements,
}


def mutations(source):
    """Every mistake of the file, from its top to its end; the same one once."""
    found = {}
    for kind, change in KINDS.items():
        for start, end, replacement in change(source):
            mutation = _mutation(source, kind, start, end, replacement)
            found.setdefault((mutation.text,), mutation)
    return sorted(found.values(), key=lambda mutation: mutation.line)


def _mutation(source, kind, start, end, replacement):
    text = source.text[:start] + replacement + source.text[end:]
    begin, old_end = source.line_start(start), source.line_end(end)
    new_end = old_end + len(text) - len(source.text)
    function = next((token.function for token in source.tokens if token.end > start), "")
    lines = [_lines(part) for part in (source.text[begin:old_end], text[begin:new_end])]
    return Mutation(source.path, function, kind, *lines, text, source.text.count("\n", 0, start) + 1)


def _lines(text):
    """Without indentation and final comments: neither makes another mistake of it."""
    return tuple(re.sub(r"\s*//[ /].*$", "", line).strip() for line in text.splitlines())

"""The list of survivors that are accepted, each with its reason; see the head of accepted.txt for its form."""

import dataclasses


@dataclasses.dataclass
class Entry:
    key: tuple
    reason: str
    line: int


def read(path):
    """The entries of the list. Raises ValueError, naming the line, where one is not whole."""
    entries = []
    file_name = function = None
    before, after, reason, line_number = [], [], [], 0

    def finish():
        if not before and not after:
            return
        if not file_name or not before or not after or not any(reason):
            raise ValueError(f"{path}:{line_number}: an entry needs a file, its lines before and after, and a reason")
        entries.append(Entry((file_name, function, tuple(before), tuple(after)), " ".join(reason), line_number))

    for number, line in enumerate(path.read_text().splitlines(), 1):
        mark, rest = line[:1], line[1:].strip()
        if not line.strip() or mark == "#":
            continue
        if mark == "@" or (mark == "-" and after):
            finish()
            before, after, reason = [], [], []
        if mark == "@":
            file_name, _, function = rest.partition(" ")
        elif mark == "-":
            line_number = line_number if before else number
            before.append(rest)
        elif mark == "+":
            after.append(rest)
        elif mark == " ":
            reason.append(rest)
        else:
            raise ValueError(f"{path}:{number}: a line begins with '@', '-', '+', '#' or a blank")
    finish()
    return entries


def text(mutation):
    """A mutant as the list would have it."""
    lines = [f"@ {mutation.path} {mutation.function}".rstrip()]
    lines += [f"- {line}".rstrip() for line in mutation.before]
    lines += [f"+ {line}".rstrip() for line in mutation.after]
    return "\n".join(lines)

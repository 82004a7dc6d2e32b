"""A C++ source as tokens: enough of the language to know where a change makes sense. It relies on the project's
formatting (a binary operator has blanks around it, a template bracket has not; a statement begins on a line)."""

import dataclasses
import re

TOKEN = re.compile(
    r"""(?P<comment>//[^\n]*|/\*.*?\*/)
      | (?P<directive>^[ \t]*\#(?:\\\n|[^\n])*)
      | (?P<string>(?:L|u8|u|U)?"(?:\\.|[^"\\\n])*")
      | (?P<char>L?'(?:\\.|[^'\\\n])+')
      | (?P<number>\d[\w.]*(?:'\w+)*)
      | (?P<name>[A-Za-z_]\w*)
      | (?P<op><<=|>>=|\.\.\.|->|::|<<|>>|<=|>=|==|!=|&&|\|\||\+\+|--|[-+*/%&|^]=|[^\s])""",
    re.DOTALL | re.MULTILINE | re.VERBOSE,
)

OPENING = {"(": ")", "[": "]", "{": "}"}
NOT_EXPRESSIONS = {
    "if", "for", "while", "switch", "do", "else", "try", "catch", "case", "default", "using", "namespace", "struct",
    "class", "static_assert", "template", "const", "constexpr", "static", "auto", "return", "typedef", "extern", "enum",
    "friend", "public", "protected", "private", "explicit", "virtual", "inline", "goto", "union", "break", "continue",
    "throw",
}  # fmt: skip


@dataclasses.dataclass
class Token:
    kind: str
    text: str
    start: int
    end: int
    function: str = ""  # the function whose body it stands in
    scope: str = ""  # of the innermost brace: namespace, type, function, block, list; empty in the open
    spaced: bool = False  # blanks before and after it


@dataclasses.dataclass
class Statement:
    """An expression statement, from its first token to its semicolon, which fill whole lines."""

    first: int  # indexes of tokens
    last: int


class Source:
    def __init__(self, path, text):
        self.path = path
        self.text = text
        self.tokens = [
            Token(match.lastgroup, match.group(), match.start(), match.end())
            for match in TOKEN.finditer(text)
            if match.lastgroup not in ("comment", "directive")
        ]
        self.partner = {}  # index of a bracket -> index of the one that belongs to it
        self._place()

    def _place(self):
        """Tells each token its scope and its function, and each bracket its partner."""
        open_braces = []  # (kind, function)
        open_brackets = []
        statement = 0
        for index, token in enumerate(self.tokens):
            token.scope, token.function = open_braces[-1] if open_braces else ("", "")
            before, after = self.text[token.start - 1 : token.start], self.text[token.end : token.end + 1]
            token.spaced = before.isspace() and after.isspace()
            if token.text in OPENING:
                open_brackets.append(index)
            elif token.text in OPENING.values() and open_brackets:
                opening = open_brackets.pop()
                self.partner[opening], self.partner[index] = index, opening
            if token.text == "{":
                open_braces.append(self._brace(statement, index, token))
            elif token.text == "}" and open_braces:
                open_braces.pop()
                token.scope, token.function = open_braces[-1] if open_braces else ("", "")
            if token.text in (";", "{", "}"):
                statement = index + 1

    def _brace(self, statement, index, token):
        """What the brace at `index` opens, the text before it beginning at `statement`."""
        if token.function:
            head = self.tokens[index - 1].text if index else ""
            block = head in (")", "{", "}", ";", "else", "try", "do", ":", "const")
            return ("block" if block else "list"), token.function
        head = [other.text for other in self.tokens[statement:index]]
        for word, scope in (("namespace", "namespace"), ("class", "type"), ("struct", "type"), ("union", "type"),
                            ("enum", "list")):  # fmt: skip
            if word in head and "(" not in head:
                return scope, ""
        if "extern" in head and "(" not in head:
            return "namespace", ""
        if "(" in head and "=" not in head[: head.index("(")]:
            return "function", self._name(head[: head.index("(")])
        return "list", ""

    @staticmethod
    def _name(words):
        name = ""
        for word in reversed(words):
            if name and not name.startswith("::") and word != "::" and not name.startswith("~"):
                break
            name = word + name
        return name

    def line_start(self, position):
        return self.text.rfind("\n", 0, position) + 1

    def line_end(self, position):
        end = self.text.find("\n", position)
        return len(self.text) if end < 0 else end

    def begins_line(self, token):
        return not self.text[self.line_start(token.start) : token.start].strip()

    def ends_line(self, token):
        rest = self.text[token.end : self.line_end(token.end)].strip()
        return not rest or rest.startswith("//")

    def statement_end(self, first):
        """The index of the semicolon that ends the statement beginning at `first`; None where a body begins first."""
        index = first
        while index < len(self.tokens):
            text = self.tokens[index].text
            if text == ";":
                return index
            if text in OPENING.values() or text == "{" and self.tokens[index - 1].text in (")", "else", "try", "do"):
                return None
            index = self.after(index)
        return None

    def after(self, index):
        """The index behind a token, or behind what a bracket encloses."""
        return (self.partner.get(index, index) if self.tokens[index].text in OPENING else index) + 1

    def statements(self):
        """The expression statements of the file's functions."""
        for index, token in enumerate(self.tokens):
            if token.function and token.scope != "list" and self.begins_line(token) and self._is_expression(index):
                last = self.statement_end(index)
                if last is not None and self.ends_line(self.tokens[last]):
                    yield Statement(index, last)

    def _is_expression(self, index):
        """Whether an expression statement begins here: no keyword, no declaration, no rest of something longer."""
        before = self.tokens[index - 1].text
        if before not in (";", "{", "}", ")", "else", ":"):
            return False
        token = self.tokens[index]
        if token.text in ("++", "--"):
            return True
        if token.kind != "name" or token.text in NOT_EXPRESSIONS:
            return False
        return not self._is_declaration(index)

    def _is_declaration(self, index):
        """A type and then a name."""
        index += 1
        while self.tokens[index].text == "::":
            index += 2
        if self.tokens[index].text == "<" and not self.tokens[index].spaced:
            depth = 0
            while True:
                depth += {"<": 1, ">": -1, ">>": -2}.get(self.tokens[index].text, 0)
                index += 1
                if depth <= 0:
                    break
        while self.tokens[index].text in ("*", "&", "const"):
            index += 1
        return self.tokens[index].kind == "name"

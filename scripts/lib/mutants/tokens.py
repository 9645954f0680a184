"""Reads C++ as far as a mutation tester must: tokens, brackets and what the braces hold.

It relies on the sources being formatted by clang-format: a sign with blanks on both sides is an
operator, one without is part of a type.
"""

import re
from dataclasses import dataclass

TOKEN = re.compile(
    r"""
    (?P<skipped>\s+|//[^\n]*|/\*.*?\*/|\#(?:\\\n|[^\n])*)
    |(?P<raw>(?:L|u8|u|U)?R"(?P<mark>[^()\s\\]*)\(.*?\)(?P=mark)")
    |(?P<string>(?:L|u8|u|U)?"(?:\\.|[^"\\\n])*")
    |(?P<character>(?:L|u8|u|U)?'(?:\\.|[^'\\\n])+')
    |(?P<number>\.?\d(?:[eEpP][+-]|'?[\w.])*)
    |(?P<word>[A-Za-z_]\w*)
    |(?P<sign><=>|<<=|>>=|\.\.\.|::|->|\+\+|--|&&|\|\||[-+*/%&|^=!<>]=|<<|>>|[^\w\s])
    """,
    re.VERBOSE | re.DOTALL,
)

CLOSING = {"(": ")", "[": "]", "{": "}"}
TYPE_WORDS = {"namespace", "class", "struct", "union", "enum", "extern"}
BEFORE_CODE = {")", "const", "noexcept", "override", "final", "mutable", "else", "do", "try", ":"}
HEADED = {"if", "for", "while", "switch", "catch"}


@dataclass(frozen=True)
class Token:
    """One token: its kind (a group of TOKEN), its text and where the text starts and ends."""

    kind: str
    text: str
    start: int
    end: int


class Source:
    """The tokens of one file, without comments and # lines."""

    def __init__(self, text):
        self.text = text
        self.tokens = [
            Token(match.lastgroup if match.lastgroup != "mark" else "raw",
                  match.group(), match.start(), match.end())
            for match in TOKEN.finditer(text)
            if match.group("skipped") is None
        ]
        self.partner = {}  # index of a bracket -> index of the one that belongs to it
        self.around = []  # for each token the index of the innermost bracket around it, or None
        self._match_brackets()
        self.braces = {}  # index of "{" -> "declarations", "code" or "values"
        for index, token in enumerate(self.tokens):
            if token.text == "{":
                self.braces[index] = self._kind_of_brace(index)
        self.untouchable = self._untouchable()

    def _match_brackets(self):
        open_brackets = []
        for index, token in enumerate(self.tokens):
            if token.kind == "sign" and token.text in CLOSING.values():
                opening = open_brackets.pop()
                self.partner[opening], self.partner[index] = index, opening
            self.around.append(open_brackets[-1] if open_brackets else None)
            if token.kind == "sign" and token.text in CLOSING:
                open_brackets.append(index)

    def word(self, index):
        """The text of a token; nothing beyond either end of the file."""
        return self.tokens[index].text if 0 <= index < len(self.tokens) else ""

    def blank_before(self, index):
        """True when something that is no token stands before this one."""
        return index == 0 or self.tokens[index - 1].end < self.tokens[index].start

    def is_operator(self, index):
        """True for a sign with blanks on both sides, which is then no part of a type."""
        return (self.tokens[index].kind == "sign" and self.blank_before(index)
                and index + 1 < len(self.tokens) and self.blank_before(index + 1))

    def line_of(self, position):
        """The number of the line that holds a position of the text, from 1."""
        return self.text.count("\n", 0, position) + 1

    def back_over(self, index):
        """The token before this one; for a closing bracket the one before its partner."""
        return self.partner.get(index, index) - 1 if self.word(index) in ")]}" else index - 1

    def head_of(self, brace):
        """The indices of what belongs to a brace on its left, as in "struct X : Y" or "void F()"."""
        index = brace - 1
        while index >= 0 and self.word(index) not in (";", "{", "}", "("):
            index = self.back_over(index)
        return range(index + 1, brace)

    def _kind_of_brace(self, brace):
        before = self.word(brace - 1)
        scope = self.scope_of(brace)
        head = [self.word(index) for index in self.head_of(brace)]
        if "(" not in head and "=" not in head and TYPE_WORDS & set(head):
            return "declarations"
        if before in BEFORE_CODE or before == "]" and "=" not in head[-2:]:
            return "code"
        if before in (";", "{", "}") and scope == "code":
            return "code"
        return "code" if self._ends_lambda_type(brace) else "values"

    def _ends_lambda_type(self, brace):
        """True after ") -> Type"."""
        index = brace - 1
        while self.tokens[index].kind == "word" or self.word(index) in ("::", "<", ">", "*", "&"):
            index -= 1
        return self.word(index) == "->" and self.word(index - 1) == ")"

    def scope_of(self, index):
        """What the innermost brace around a token holds."""
        around = self.around[index]
        while around is not None and self.word(around) != "{":
            around = self.around[around]
        return "declarations" if around is None else self.braces[around]

    def in_code(self, index):
        """True somewhere within a function, lists of values there included."""
        around = self.around[index]
        while around is not None:
            if self.braces.get(around) == "code":
                return True
            around = self.around[around]
        return False

    def _untouchable(self):
        """The tokens of static assertions, attributes, template heads and extern "C"."""
        found = set()
        for index, token in enumerate(self.tokens):
            if token.text == "static_assert":
                found.update(range(index, self.partner[index + 1] + 1))
            elif token.text == "[" and self.word(index + 1) == "[":
                found.update(range(index, self.partner[index] + 1))
            elif token.text in ("template", "extern") and self.word(index + 1) in ("<", '"C"'):
                found.update(range(index, index + 2))
                while token.text == "template" and self.word(max(found)) not in (">", ""):
                    found.add(max(found) + 1)
        return found

    def parts_of(self, opening):
        """What the commas within a pair of brackets part: ranges of tokens, none of them empty."""
        parts, first, index = [], opening + 1, opening + 1
        while index < self.partner[opening]:
            if self.word(index) == ",":
                parts.append(range(first, index))
                first = index + 1
            index = self.partner.get(index, index) + 1
        parts.append(range(first, self.partner[opening]))
        return [part for part in parts if part]

    def text_of(self, part):
        """The text of a range of tokens."""
        return self.text[self.tokens[part[0]].start:self.tokens[part[-1]].end]

    def statements(self):
        """Every statement that ends with a semicolon: ranges of tokens, the semicolon included."""
        for index in range(1, len(self.tokens)):
            around = self.around[index]
            if self.braces.get(around) == "code" and self._starts_statement(index):
                end = index
                while self.word(end) not in (";", "{", "}"):
                    end = self.partner.get(end, end) + 1 if self.word(end) in "([" else end + 1
                    if self.braces.get(end) in ("values", "code") and self.word(end - 1) != ")":
                        end = self.partner[end] + 1
                if self.word(end) == ";":
                    yield range(index, end + 1)

    def _starts_statement(self, index):
        if self.word(index) in (")", "]", "}", ";", ",", "{"):
            return False
        before = self.word(index - 1)
        if before == ")":
            opening = self.partner[index - 1]
            return self.word(opening - 1) in HEADED or self.word(opening - 1) == "constexpr"
        if before == "}":
            return self.braces[self.partner[index - 1]] != "values"
        if before == ":":
            return self.word(self.back_over(index - 1)) == "default" or "case" in [
                self.word(other) for other in range(max(0, index - 6), index)]
        return before in (";", "{", "else", "do")

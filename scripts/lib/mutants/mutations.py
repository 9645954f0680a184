"""The changes that the mutation tester tries on one source file, each of one token or statement."""

import re
from dataclasses import dataclass

from tokens import HEADED, Source

COMPARISONS = {"==": "!=", "!=": "==", "<": "<=", "<=": "<", ">": ">=", ">=": ">"}
OPERATORS = {
    "&&": "||", "||": "&&", "+": "-", "-": "+", "*": "/", "/": "*", "%": "*", "&": "|", "|": "&",
    "^": "|", "<<": ">>", ">>": "<<", "+=": "-=", "-=": "+=", "|=": "&=", "&=": "|=",
}
STEPS = {"++": "--", "--": "++"}
STATEMENT_WORDS = HEADED | {"return", "else", "do", "try", "case", "default", "using", "goto", "const",
                            "constexpr", "static", "auto", "struct", "class", "template", "public",
                            "private", "protected", "static_assert", "co_return"}
FUNCTION_WORDS = {"explicit", "inline", "constexpr", "static", "virtual", "friend", "extern",
                  "public", "private", "protected", ":"}
# Their result does not depend on the order of what they are given.
COMMUTATIVE = {"min", "max", "minmax", "hypot", "swap"}
# Say how much memory will be wanted, which changes no result.
WITHOUT_EFFECT = {"reserve", "shrink_to_fit"}

# The digits of a number, and what follows them: "U", "f", "ms".
NUMBER = re.compile(r"(0[xX][0-9a-fA-F]+|[0-9.]+(?:[eE][+-]?[0-9]+)?)([a-zA-Z_]*)")


@dataclass(frozen=True, order=True)
class Mutation:
    """A piece of a file's text, from start to end, to be replaced."""

    start: int
    end: int
    replacement: str
    kind: str

    def apply(self, text):
        """The text with the change made."""
        return text[:self.start] + self.replacement + text[self.end:]


def mutations_of(text):
    """Every mutation of a file's text, in the order of their places."""
    source = Source(text)
    found = set()
    for rule in (signs, constants, removed_statements, swapped_arguments, negated_conditions,
                 early_returns):
        found.update(rule(source))
    return sorted(found)


def replaced(source, part, replacement, kind):
    """The mutation that puts a text in the place of a range of tokens."""
    return Mutation(source.tokens[part[0]].start, source.tokens[part[-1]].end, replacement, kind)


def signs(source):
    """Comparisons flipped, other operators exchanged, a "not" dropped."""
    for index, token in enumerate(source.tokens):
        if token.kind != "sign" or index in source.untouchable or not source.in_code(index):
            continue
        here = range(index, index + 1)
        if source.is_operator(index) and token.text in COMPARISONS:
            yield replaced(source, here, COMPARISONS[token.text], "comparison flipped")
        elif source.is_operator(index) and token.text in OPERATORS:
            yield replaced(source, here, OPERATORS[token.text], "operator changed")
        elif token.text in STEPS:
            yield replaced(source, here, STEPS[token.text], "operator changed")
        elif token.text == "!":
            yield replaced(source, here, "", "condition negated")


def constants(source):
    """Numbers, texts, characters and truth values changed."""
    for index, token in enumerate(source.tokens):
        if index in source.untouchable or is_part_of_type(source, index):
            continue
        changed = changed_constant(token)
        if changed is not None:
            yield replaced(source, range(index, index + 1), changed, "constant changed")


def is_part_of_type(source, index):
    """True for the 12 of array<Row, 12> and of char text[12], and for the 0 of a pure function."""
    if source.word(index + 1) == ">" and not source.blank_before(index + 1):
        return True
    if source.word(index - 1) == "[" and source.tokens[index - 3].kind == "word":
        return True
    return source.word(index - 1) == "=" and source.word(index - 2) in (")", "const", "noexcept")


def changed_constant(token):
    """Another constant of the same type, or None for what is no constant."""
    if token.text in ("true", "false"):
        return "false" if token.text == "true" else "true"
    if token.kind == "string":
        return token.text[:-1] + "~" + '"'
    if token.kind == "character":
        prefix = token.text[:token.text.index("'")]
        return prefix + ("'!'" if token.text.endswith("'~'") else "'~'")
    if token.kind == "number":
        return changed_number(token.text)
    return None


def changed_number(text):
    """A whole number grows by one, a fraction becomes the double, or 1 when it was 0.

    What follows the digits, as in "1U" or "50ms", stays.
    """
    value, suffix = NUMBER.fullmatch(text.replace("'", "")).groups()
    if value[:2] in ("0x", "0X"):
        return hex(int(value, 16) + 1) + suffix
    if not value.isdigit():
        return repr(float(value) * 2 or 1.0) + suffix
    base = 8 if len(value) > 1 and value.startswith("0") else 10
    return str(int(value, base) + 1) + suffix


def removed_statements(source):
    """Calls, assignments and jumps removed; objects too that nobody names, as guards are."""
    for part in source.statements():
        words = [source.word(index) for index in part]
        if words[0] in STATEMENT_WORDS - {"const"} or set(words) & WITHOUT_EFFECT or len(part) < 2:
            continue
        name = declared_name(source, part)
        if name is None and words[0] != "const":
            yield replaced(source, part, ";", "call removed" if words[-2] == ")" else
                           "statement removed")
        elif name is not None and words[-2] == ")" and words[words.index(name) + 1] == "(":
            if not any(token.text == name for token in source.tokens[part[-1]:]):
                yield replaced(source, part, ";", "call removed")


def declared_name(source, part):
    """The name that a statement declares, or None for a statement that declares nothing."""
    index = part[0]
    while index < part[-1]:
        token = source.tokens[index]
        before = source.word(index - 1)
        after_type = (source.tokens[index - 1].kind == "word" and before not in ("const", "throw") or
                      before in (">", "&", "*") and not source.blank_before(index - 1))
        if index > part[0] and token.kind == "word" and after_type:
            return token.text
        if token.text == "=":
            return None
        index = source.partner.get(index, index) + 1
    return None


def swapped_arguments(source):
    """Neighbours exchanged in what a function or a list within a function is given."""
    for opening, token in enumerate(source.tokens):
        if token.text not in ("(", "{") or not is_argument_list(source, opening):
            continue
        parts = source.parts_of(opening)
        for one, other in zip(parts, parts[1:]):
            first, second = source.text_of(one), source.text_of(other)
            between = source.text[source.tokens[one[-1]].end:source.tokens[other[0]].start]
            if first != second and not first.startswith("{"):
                yield replaced(source, range(one[0], other[-1] + 1), second + between + first,
                               "arguments swapped")


def is_argument_list(source, opening):
    """True for the bracket of a call or of a list of values whose order matters."""
    if not source.in_code(opening) or opening in source.untouchable:
        return False
    name = opening - 1
    if source.word(opening) == "{":
        return source.braces[opening] == "values" and not (
            source.word(name) == "(" and source.word(name - 1) in COMMUTATIVE)
    if source.word(name) == ">" and not source.blank_before(name):
        return True
    return source.tokens[name].kind == "word" and source.word(name) not in HEADED | COMMUTATIVE


def negated_conditions(source):
    """The conditions of if, while, for and "?" turned into their opposite."""
    for index, token in enumerate(source.tokens):
        if token.text in ("if", "while", "for"):
            opening = index + 2 if source.word(index + 1) == "constexpr" else index + 1
            part = condition_in(source, opening, token.text)
        elif token.text == "?":
            part = condition_before(source, index)
        else:
            continue
        if part and not has_simpler_opposite(source, part):
            yield replaced(source, part, "!(" + source.text_of(part) + ")", "condition negated")


def condition_in(source, opening, word):
    """The range of a condition in brackets; nothing where the brackets hold none."""
    ends = [index for index in range(opening + 1, source.partner[opening])
            if source.word(index) == ";" and source.around[index] == opening]
    if word == "for":
        return range(ends[0] + 1, ends[1]) if len(ends) == 2 else None
    return range(ends[-1] + 1 if ends else opening + 1, source.partner[opening])


def condition_before(source, question_mark):
    """The range of what stands before a "?"."""
    index = question_mark - 1
    stops = {"=", "return", "(", "[", "{", ",", ";", "?", ":", "+=", "-=", "}"}
    while source.word(index) not in stops:
        index = source.back_over(index)
    return range(index + 1, question_mark)


def has_simpler_opposite(source, part):
    """True for "!x" and "x == y", whose opposite another mutation is already."""
    operators = [source.word(index) for index in part if source.is_operator(index)]
    return operators in (["=="], ["!="]) or not operators and source.word(part[0]) == "!"


def early_returns(source):
    """A function that returns before it has done anything."""
    for brace, kind in source.braces.items():
        if kind != "code" or source.scope_of(brace) != "declarations":
            continue
        statement = early_return(source, brace)
        body = source.text[source.tokens[brace].end:source.tokens[source.partner[brace]].start]
        if statement and body.strip() and body.split() != statement.split():
            end = source.tokens[brace].end
            yield Mutation(end, end, " " + statement, "early return")


def early_return(source, brace):
    """The statement that leaves a function at once; None where there is no such statement."""
    before_name = []
    index = source.head_of(brace)[0]
    while index < brace and (source.word(index + 1) != "(" or source.word(index) == "operator"):
        if index not in source.untouchable and source.word(index) not in FUNCTION_WORDS:
            before_name.append(index)
        index += 1
    types = [other for other in before_name if not belongs_to_name(source, other)]
    words = [source.word(other) for other in types]
    if words in ([], ["void"]):
        return "return;"
    return None if words[-1] in ("&", "operator") or "auto" in words else "return {};"


def belongs_to_name(source, index):
    """True for the parts of "Outer::Inner::~" before a function's name."""
    return source.word(index + 1) == "::" or source.word(index) in ("::", "~")

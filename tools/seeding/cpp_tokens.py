# SPDX-License-Identifier: BSL-1.0
"""Tokens of a C++ source, with the little structure that a generator of faults needs.

This is no parser. It relies on the layout that clang-format gives every source here: a binary
operator has white space on both sides, a unary one has none behind it, and the brackets of a
template have none inside.
"""

import re
from dataclasses import dataclass

_PIECES = re.compile(
    r"""
      (?P<blank>\s+|//[^\n]*|/\*.*?\*/|(?m:^)[ \t]*\#(?:[^\n]*\\\n)*[^\n]*)
    | (?P<string>(?:u8|[LuU])?R"(?P<mark>[^(\s]*)\(.*?\)(?P=mark)"
        |(?:u8|[LuU])?"(?:\\.|[^"\\])*"|[LuU]?'(?:\\.|[^'\\])+')
    | (?P<number>(?:0[xX][0-9a-fA-F']+|(?:\d[\d']*\.?\d*|\.\d+)(?:[eE][+-]?\d+)?)[uUlLfF]*)
    | (?P<name>[A-Za-z_]\w*)
    | (?P<op><<=|>>=|->|\+\+|--|<<|>>|<=|>=|==|!=|&&|\|\||[-+*/%&|^]=|::|\.\.\.|.)
    """,
    re.VERBOSE | re.DOTALL,
)

_CLOSING = {"(": ")", "[": "]", "{": "}"}

# What these words govern says nothing about results, or does not compile when it changes.
_FROZEN_UNTIL_SEMICOLON = {"using", "typedef", "static_assert", "friend", "extern"}
_FROZEN_BRACKETS = {"noexcept", "alignas", "decltype", "sizeof", "static_assert"}
_NO_BODY = {"default", "delete"}
# Statements that only save time or memory.
_WITHOUT_EFFECT = {"reserve", "shrink_to_fit"}


@dataclass
class Token:
    text: str
    kind: str  # string, number, name, op
    start: int
    end: int
    spaced_before: bool = False
    spaced_after: bool = False
    match: int = -1  # index of the bracket that closes or opens this one
    frozen: bool = False  # not to be changed
    in_code: bool = False  # within the body of a function

    @property
    def is_binary(self):
        return self.kind == "op" and self.spaced_before and self.spaced_after


class Source:
    """The tokens of one file. Indices below are indices of tokens."""

    def __init__(self, path, text):
        self.path = path
        self.text = text
        self.tokens = self._split(text)
        self._functions = []  # first and last offset of each that is defined
        self._match_brackets()
        self._match_angles()
        self._freeze()
        self._find_code()

    @staticmethod
    def _split(text):
        tokens = []
        blank = True
        for piece in _PIECES.finditer(text):
            kind = piece.lastgroup if piece.lastgroup != "mark" else "string"
            if kind == "blank":
                blank = True
                if tokens:
                    tokens[-1].spaced_after = True
                continue
            tokens.append(Token(piece.group(), kind, piece.start(), piece.end(), blank))
            blank = False
        return tokens

    def _match_brackets(self):
        open_ones = []
        for i, token in enumerate(self.tokens):
            if token.kind != "op":
                continue
            if token.text in _CLOSING:
                open_ones.append(i)
            elif token.text in _CLOSING.values() and open_ones:
                token.match = open_ones.pop()
                self.tokens[token.match].match = i

    def _match_angles(self):
        """Marks what stands between the brackets of a template as frozen."""
        for i, token in enumerate(self.tokens):
            follows_name = i > 0 and self.tokens[i - 1].kind == "name"
            if token.text != "<" or token.spaced_after or not follows_name:
                continue
            depth = 0
            for j in range(i, len(self.tokens)):
                text = self.tokens[j].text
                if text == "<":
                    depth += 1
                elif text in (">", ">>") and not self.tokens[j].spaced_before:
                    depth -= len(text)
                elif text in (";", "{"):
                    break
                if depth <= 0:
                    token.match, self.tokens[j].match = j, i
                    self._freeze_range(i, j)
                    break

    def _freeze_range(self, first, last):
        for token in self.tokens[first : last + 1]:
            token.frozen = True

    def _freeze_statement(self, first):
        self._freeze_range(first, self.end_of_statement(first) or first)

    def _freeze(self):
        for i, token in enumerate(self.tokens):
            following = self.text_of(i + 1)
            if token.text in _FROZEN_UNTIL_SEMICOLON:
                self._freeze_statement(i)
            elif token.text in _FROZEN_BRACKETS and following == "(":
                self._freeze_range(i, self.tokens[i + 1].match)
            elif token.text in _WITHOUT_EFFECT and following == "(":
                self._freeze_statement(self.start_of_statement(i))
            elif token.text == "[" and following == "[":  # an attribute
                self._freeze_range(i, token.match)
            elif token.text == "operator":
                self._freeze_range(i, i + 2)
            elif token.text == "enum":
                self._freeze_statement(i)
            elif token.text == "=" and following in _NO_BODY and self.text_of(i + 2) == ";":
                self._freeze_range(i, i + 1)

    def _find_code(self):
        """Tells the bodies of functions from classes, namespaces and lists of values."""
        last_of_code = -1
        for i, token in enumerate(self.tokens):
            if token.text == "{" and i > last_of_code and token.match > 0 and self._opens_code(i):
                last_of_code = token.match
                first = self._start_of_definition(i)
                self._functions.append((self.tokens[first].start, self.tokens[token.match].end))
                for inner in self.tokens[first : token.match + 1]:
                    inner.in_code = True

    def _opens_code(self, brace):
        before = self.text_of(brace - 1)
        if before in ("=", ",", "(", "return"):
            return False
        first = self._start_of_definition(brace)
        words = {t.text for t in self.tokens[first:brace] if t.kind == "name" and not t.frozen}
        if words & {"namespace", "class", "struct", "union", "enum"}:
            return False
        return any(t.text == ")" for t in self.tokens[first:brace])

    def _start_of_definition(self, brace):
        i = brace
        while i > 0:
            before = self.tokens[i - 1]
            if before.text == "}" and self.text_of(i) in (",", "{") and before.match > 0:
                i = before.match  # a member's initial value, in braces
            elif before.text in (";", "{", "}"):
                break
            elif before.text in (")", "]", ">", ">>") and before.match >= 0:
                i = before.match
            else:
                i -= 1
        return i

    def text_of(self, i):
        return self.tokens[i].text if 0 <= i < len(self.tokens) else ""

    def start_of_statement(self, i):
        while i > 0 and self.text_of(i - 1) not in (";", "{", "}"):
            i -= 1
        return i

    def end_of_statement(self, i):
        """The semicolon that ends what stands at i, or None when a bracket closes before."""
        while i < len(self.tokens):
            token = self.tokens[i]
            if token.text == ";":
                return i
            if 0 <= token.match < i:
                return None
            i = max(i, token.match) + 1
        return None

    def line_of(self, offset):
        return self.text.count("\n", 0, offset) + 1

    def function_around(self, offset):
        """First and last line of the function that holds the offset, or None."""
        for first, last in self._functions:
            if first <= offset < last:
                return self.line_of(first), self.line_of(last)
        return None

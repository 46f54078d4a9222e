# SPDX-License-Identifier: BSL-1.0
"""Every small fault that can be made in a source: a list of replacements of its text."""

import re
from dataclasses import dataclass

_COMPARISONS = {
    "<": ["<=", ">="],
    "<=": ["<", ">"],
    ">": [">=", "<="],
    ">=": [">", "<"],
    "==": ["!="],
    "!=": ["=="],
}
_OPERATORS = {
    "+": ["-"],
    "-": ["+"],
    "*": ["/"],
    "/": ["*"],
    "%": ["*"],
    "&&": ["||"],
    "||": ["&&"],
    "&": ["|"],
    "|": ["&"],
    "^": ["&"],
    "<<": [">>"],
    ">>": ["<<"],
    "+=": ["-=", "="],
    "-=": ["+=", "="],
    "*=": ["/=", "="],
    "/=": ["*=", "="],
    "&=": ["|="],
    "|=": ["&="],
}
_STEPS = {"++": "--", "--": "++"}
# Binds more tightly with a larger number.
_PRECEDENCE = {"*": 9, "/": 9, "%": 9, "+": 8, "-": 8, "<<": 7, ">>": 7, "<": 6, "<=": 6, ">": 6,
               ">=": 6, "==": 5, "!=": 5, "&": 4, "^": 3, "|": 2, "&&": 1, "||": 0}
_ENDS_TERM = {",", ";", "?", ":", ")", "]", "}"}
_STARTS_TERM = {",", ";", "?", ":", "(", "[", "{", "}", "return", "=", "+=", "-=", "*=", "/=", "|=",
                "&="}
_PAIRS = [("min", "max"), ("sin", "cos"), ("floor", "ceil"), ("front", "back"), ("x", "y"),
          ("first", "second"), ("true", "false"), ("lower_bound", "upper_bound"),
          ("east", "north"), ("any_of", "all_of"), ("next", "prev")]
_COUNTERPARTS = {a: b for pair in _PAIRS for a, b in (pair, pair[::-1])}
_NOT_CALLED = {"if", "for", "while", "switch", "catch", "return", "sizeof", "decltype", "noexcept",
               "alignas", "static_assert"}
_BEFORE_CODE = {"const", "noexcept", "override", "mutable", "else", "do", "try"}
# An exchange of their arguments changes nothing that counts.
_SYMMETRIC = {"min", "max", "minmax", "hypot", "swap"}
_PARAMETER = re.compile(r"(const )?[\w:]+(<.*>)?( const)?[&* ]+\w*( = .*)?$", re.DOTALL)
_TRIVIAL_RESULTS = {"", "false", "0", "0.0", "{}", "nullptr", "std::nullopt"}
# Below, a factor of two is within what a tolerance leaves open.
_SMALLEST_LENGTH = 1e-3


@dataclass(frozen=True)
class Fault:
    path: str
    start: int  # offsets in the file
    end: int
    replacement: str
    kind: str

    def applied_to(self, text):
        return text[: self.start] + self.replacement + text[self.end :]


class _Finder:
    def __init__(self, source):
        self.source = source
        self.tokens = source.tokens
        self.faults = []

    def add(self, kind, first, last, replacement):
        """Replaces the tokens from first to last."""
        start, end = self.tokens[first].start, self.tokens[last].end
        if self.source.text[start:end] != replacement:
            self.faults.append(Fault(self.source.path, start, end, replacement, kind))

    def text(self, first, last):
        return self.source.text[self.tokens[first].start : self.tokens[last].end]

    def find(self):
        for i, token in enumerate(self.tokens):
            if token.frozen:
                continue
            if token.kind == "number":
                self.change_constant(i)
            elif token.kind == "name":
                self.change_name(i)
            elif token.kind == "op":
                self.change_operator(i)
            if token.in_code and self.starts_statement(i):
                self.drop_statement(i)
        return self.faults

    # Constants and names

    def change_constant(self, i):
        text = self.tokens[i].text
        if re.fullmatch(r"\d+[uUlL]*", text):
            value, suffix = re.fullmatch(r"(\d+)(\D*)", text).groups()
            self.add("constant", i, i, f"{int(value) + 1}{suffix}")
            if int(value) > 0:
                self.add("constant", i, i, f"{int(value) - 1}{suffix}")
        elif re.fullmatch(r"[\d.eE+-]+", text):
            if float(text) == 0.0:
                self.add("constant", i, i, "1.0")
                return
            factor = 2 if float(text) >= _SMALLEST_LENGTH else 100
            self.add("sign", i, i, f"(-{text})")
            self.add("constant", i, i, "0.0")
            self.add("constant", i, i, f"({factor}.0 * {text})")

    def change_name(self, i):
        name = self.tokens[i].text
        if name in _COUNTERPARTS and self.is_used(i):
            self.add("name", i, i, _COUNTERPARTS[name])
        if name == "abs" and self.source.text_of(i + 1) == "(":
            first = i - 2 if self.source.text_of(i - 1) == "::" else i
            self.add("dropped call", first, i, "")
        if name in ("if", "while") and self.source.text_of(i + 1) == "(":
            self.negate(i + 2, self.tokens[i + 1].match - 1)

    def is_used(self, i):
        """Not declared here: a component after a dot, a function called, a literal."""
        before, after = self.source.text_of(i - 1), self.source.text_of(i + 1)
        return before in (".", "->", "::") or after == "(" or self.tokens[i].text in ("true", "false")

    def negate(self, first, last):
        for i in self.top_level(first, last):
            if self.tokens[i].text == ";":
                first = i + 1
        if any(self.tokens[i].text == "=" for i in self.top_level(first, last)):
            return  # declares what it asks
        condition = self.text(first, last)
        tokens = [self.tokens[i] for i in self.top_level(first, last)]
        operators = [token.text for token in tokens if token.is_binary]
        if operators in (["=="], ["!="]) or condition.startswith("!") and not operators:
            return  # another fault does the same
        self.add("negated condition", first, last, f"!({condition})")

    def top_level(self, first, last):
        i = first
        while i <= last:
            yield i
            closes = self.tokens[i].match
            i = closes + 1 if closes > i else i + 1

    # Operators

    def change_operator(self, i):
        token = self.tokens[i]
        text = token.text
        if token.is_binary:
            for other in _COMPARISONS.get(text, []):
                self.add("comparison", i, i, other)
            for other in _OPERATORS.get(text, []):
                self.add("operator", i, i, other)
            if text in _PRECEDENCE and text not in _COMPARISONS:
                self.drop_terms(i)
            if text == "?":
                self.exchange_branches(i)
        elif text in ("-", "!") and not token.spaced_after:
            self.add("dropped sign" if text == "-" else "negated condition", i, i, "")
        elif text in _STEPS:
            self.add("operator", i, i, _STEPS[text])
        if text in ("(", "{") and token.match > i + 1:
            self.exchange_arguments(i)

    def drop_terms(self, i):
        operator = self.tokens[i].text
        weight = _PRECEDENCE[operator]
        last = self.end_of_term(i + 1, weight)
        first = self.start_of_term(i - 1, weight)
        self.add("dropped term", first, last, self.text(first, i - 1))
        if operator == "-":
            self.add("dropped term", first, last, self.text(i, last))
        elif operator not in ("/", "%", "<<", ">>"):
            self.add("dropped term", first, last, self.text(i + 1, last))

    def end_of_term(self, i, weight):
        i = max(i, self.tokens[i].match)
        while not self.ends_term(self.tokens[i + 1], weight, _ENDS_TERM):
            i = max(i + 1, self.tokens[i + 1].match)
        return i

    def start_of_term(self, i, weight):
        i = self.start_of_bracket(i)
        while not self.ends_term(self.tokens[i - 1], weight, _STARTS_TERM):
            i = self.start_of_bracket(i - 1)
        return i

    def start_of_bracket(self, i):
        opens = self.tokens[i].match
        return opens if 0 <= opens < i else i

    @staticmethod
    def ends_term(token, weight, limits):
        if token.is_binary and token.text in _PRECEDENCE:
            return _PRECEDENCE[token.text] <= weight
        return token.text in limits and not token.frozen

    def exchange_branches(self, i):
        colon = next((j for j in self.top_level(i + 1, len(self.tokens) - 1)
                      if self.tokens[j].text == ":" and self.tokens[j].is_binary), None)
        if colon is None or any(self.tokens[j].text == "?" for j in self.top_level(i + 1, colon)):
            return
        last = colon + 1
        while self.tokens[last + 1].text not in (",", ";", ")", "]", "}", ":", "?"):
            closes = self.tokens[last + 1].match
            last = closes if closes > last + 1 else last + 1
        swapped = f"{self.text(colon + 1, last)} : {self.text(i + 1, colon - 1)}"
        self.add("negated condition", i + 1, last, swapped)

    # Arguments

    def exchange_arguments(self, i):
        before = self.tokens[i - 1]
        if self.tokens[i].text == "(":
            called = before.kind == "name" or before.text in (">", "]")
            if not called or before.text in _NOT_CALLED | _SYMMETRIC or before.text == "]":
                return
        elif not self.is_list(i):
            return
        arguments = self.arguments(i)
        texts = [self.text(a, b) for a, b in arguments]
        if any(_PARAMETER.fullmatch(t) and " " in t.split("=")[0] for t in texts):
            return
        for k in range(len(arguments) - 1):
            (first, end_of_first), (start_of_second, last) = arguments[k], arguments[k + 1]
            between = self.source.text[self.tokens[end_of_first].end : self.tokens[start_of_second].start]
            self.add("exchanged arguments", first, last, texts[k + 1] + between + texts[k])

    def is_list(self, brace):
        before = self.tokens[brace - 1]
        if before.text in ("=", ",", "(", "{", "return"):
            return True
        names_type = before.kind == "name" or before.text == ">"
        return names_type and self.tokens[brace].in_code and before.text not in _BEFORE_CODE

    def arguments(self, bracket):
        last = self.tokens[bracket].match - 1
        commas = [j for j in self.top_level(bracket + 1, last) if self.tokens[j].text == ","]
        firsts = [bracket + 1] + [j + 1 for j in commas]
        lasts = [j - 1 for j in commas] + [last]
        return [(a, b) for a, b in zip(firsts, lasts) if a <= b]

    # Statements

    def starts_statement(self, i):
        before = self.tokens[i - 1] if i > 0 else None
        if before is None:
            return False
        if before.text in (";", "{", "}") or before.text == "else":
            return True
        return before.text == ")" and self.source.text_of(before.match - 1) in ("if", "for", "while")

    def drop_statement(self, i):
        first = self.tokens[i]
        if first.text == "{" or first.text == "}":
            return
        end = self.source.end_of_statement(i)
        if end is None:
            return  # part of a list or of the head of a loop
        if first.text in ("break", "continue") or (first.text == "return" and end == i + 1):
            self.add("dropped statement", i, end, ";")
        elif first.text == "return":
            self.change_result(i, end)
        elif first.text == "if":
            self.drop_guard(i)
        elif first.text in _STEPS or self.is_expression(i, end):
            self.add("dropped statement", i, end, ";")

    def change_result(self, i, end):
        if self.text(i + 1, end - 1) not in _TRIVIAL_RESULTS and not self.returns_untouched(i):
            self.add("empty result", i + 1, end - 1, "{}")

    def returns_untouched(self, i):
        """The result is a variable that nothing but its declaration without a value names."""
        name = self.source.text_of(i + 1)
        before = next((j for j in range(i - 1, 0, -1) if self.source.text_of(j) == name), None)
        return (before is not None and self.source.text_of(i + 2) == ";"
                and self.source.text_of(before + 1) == ";"
                and (self.tokens[before - 1].kind == "name" or self.source.text_of(before - 1) == ">"))

    def drop_guard(self, i):
        """Leaves out `if (...) return ...;`, `break` and `continue` likewise."""
        condition = i + 1
        if self.tokens[condition].text == "constexpr":
            return
        action = self.tokens[condition].match + 1
        if self.tokens[action].text == "return":
            end = self.source.end_of_statement(action)
            if end is not None and self.source.text_of(end + 1) not in ("}", "else"):
                self.add("dropped statement", i, end, ";")

    def is_expression(self, i, end):
        """A call or an assignment; a declaration has two names in a row."""
        j = i
        while j < end:
            token = self.tokens[j]
            if token.text in ("(", "[") and token.match > j:
                j = token.match
            elif token.text == "<" and token.match > j:
                j = token.match
            elif token.text in ("++", "--", "=") or token.text in _OPERATORS and token.is_binary:
                return not (token.text in ("*", "&") and not token.spaced_before)
            elif token.kind == "name" and self.tokens[j + 1].kind == "name":
                return False
            elif token.text in ("&", "*", "&&", "{", "<"):
                return False
            if self.tokens[j].text == ")" and self.tokens[j + 1].text == ";":
                return True
            if self.tokens[j].text in (">",) and self.tokens[j + 1].kind == "name":
                return False
            j += 1
        return False


def faults_in(source):
    """Sorted by place. Two ways to write the same fault are one."""
    found = {}
    for fault in _Finder(source).find():
        found.setdefault(fault.applied_to(source.text), fault)
    return sorted(found.values(), key=lambda f: (f.start, f.end, f.replacement))

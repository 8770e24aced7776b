#!/usr/bin/env python3
"""Compares what a library exports with what its public headers name.

exportedNames.py LIBRARY HEADERS MACRO PRIVATE

LIBRARY is the shared library, HEADERS its folder of headers, of which those ending in _p.h are
private, and MACRO the word that marks an exported class or function. PRIVATE is a text file with
the private members that are part of the binary interface, one a line. Each function that a header
marks, itself or through its class, has to be in the library's symbol table, once per overload, and
the table holds nothing else besides the type information that the compiler adds. Other private
members than those listed have no place there, unless they are virtual.
"""

import pathlib
import re
import subprocess
import sys
from collections import Counter

NO_FUNCTION = re.compile(r"^(using|typedef|friend|static_assert|extern template)\b|= *(default|delete)$")
CLASS = re.compile(r"^(?:class|struct|union)\s+(?P<words>[^:({]*)")


def code_of(header):
    """The text without comments, literals and directives."""
    text = header.read_text(encoding="utf-8")
    text = re.sub(r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"', " ", text, flags=re.DOTALL)
    text = re.sub(r"^\s*#(?:[^\n]*\\\n)*[^\n]*", " ", text, flags=re.MULTILINE)
    return re.sub(r"^\s*[A-Z][A-Z0-9_]+(\(.*\))?\s*$", " ", text, flags=re.MULTILINE) # macros


def end_of_block(text, start):
    """The place after the brace that closes the one at `start`."""
    depth = 0
    for place in range(start, len(text)):
        depth += {"{": 1, "}": -1}.get(text[place], 0)
        if depth == 0:
            return place + 1
    raise ValueError("a brace is open at the end")


def without_template_head(statement):
    """The statement without `template <...>`, and whether it had one with parameters."""
    generic = False
    while statement.startswith("template"):
        depth = 0
        for place, letter in enumerate(statement):
            depth += {"<": 1, ">": -1}.get(letter, 0)
            if letter == ">" and depth == 0:
                generic = generic or place > statement.index("<") + 1
                statement = statement[place + 1:].strip()
                break
    return statement, generic


def function_name(statement):
    """The name of the function that the statement declares, or None."""
    returns_array = re.search(r"\(\s*[&*]\s*(\w+)\s*\(", statement)
    if returns_array:
        return returns_array.group(1)
    found = re.search(r"(operator\s*(?:\(\)|\[\]|(?:new|delete)(?:\s*\[\])?|[^\w\s(]+|[\w:&*<>\s]+)"
                      r"|~?\w+(?:<[^()]*>)?)\s*\(", statement)
    return re.sub(r"\s+", " ", found.group(1)).strip() if found else None


class Names:
    """What the headers name: functions with the number of their overloads, and classes."""

    def __init__(self, macro, private):
        self.macro = macro
        self.private = private
        self.functions = Counter()
        self.hidden = set()
        self.may_have_body = set()
        self.classes = set()

    def read(self, text, scope=(), exported=False, access="public", generic=False):
        """Reads the statements of a namespace or class; returns nothing."""
        start = place = 0
        while place < len(text):
            letter = text[place]
            if letter == ";":
                self.declare(text[start:place], scope, exported, access, generic)
                start = place + 1
            elif letter == "{":
                end = end_of_block(text, place)
                self.open(text[start:place], text[place + 1:end - 1], scope, access, generic)
                start = end
                place = end - 1
            elif letter == ":" and re.fullmatch(r"\s*(public|protected|private)\s*", text[start:place]):
                access = text[start:place].strip()
                start = place + 1
            place += 1

    def open(self, head, body, scope, access, generic):
        head, is_generic = without_template_head(" ".join(head.split()))
        generic = generic or is_generic
        if head.startswith("namespace"):
            inner = head.split()[1:]
            self.read(body, scope + tuple(inner[0].split("::")) if inner else scope)
            return
        match = CLASS.match(head)
        if match is None or "=" in head or not match["words"].strip():
            return
        words = match["words"].split()
        name = [word for word in words if word not in (self.macro, "final")][-1]
        if not generic:
            self.classes.add("::".join(scope + (name,)))
        first = "private" if head.startswith("class") else "public"
        self.read(body, scope + (name,), self.macro in words, first, generic)

    def declare(self, statement, scope, exported, access, generic):
        statement, is_generic = without_template_head(" ".join(statement.split()))
        if "(" not in statement or generic or is_generic or NO_FUNCTION.search(statement):
            return
        if not (exported or self.macro in statement.split()):
            return
        name = function_name(statement.replace(self.macro, ""))
        qualified = "::".join(scope + (name,))
        if statement.endswith("= 0"):
            self.may_have_body.add(qualified)
        elif "Q_DECL_HIDDEN" in statement.split():
            self.hidden.add(qualified)
        elif access == "private" and not (
                re.search(r"\b(virtual|override)\b", statement) or qualified in self.private):
            self.hidden.add(qualified)
        else:
            self.functions[qualified] += 1


def without_arguments(symbol):
    """The qualified name of a demangled function, without result type and parameters."""
    symbol = re.sub(r"^(non-virtual|virtual) thunk to ", "", symbol)
    symbol = re.sub(r"\[abi:\w+\]", "", symbol)
    depth = 0
    for place in range(symbol.rindex(")"), -1, -1):
        depth += {")": 1, "(": -1}.get(symbol[place], 0)
        if depth == 0:
            break
    name = symbol[:place]
    depth = 0
    for place in range(len(name) - 1, -1, -1):
        depth += {">": 1, "<": -1}.get(name[place], 0) if "operator" not in name else 0
        if name[place] == " " and depth == 0 and "operator" not in name:
            return name[place + 1:]
    found = re.search(r"(?:\w+::)*operator.*$", name)
    return found.group(0) if found else name


def exported_by(library):
    """The functions of the symbol table with their overloads, and the other symbols."""
    table = subprocess.run(["nm", "-D", "--defined-only", "-C", library], check=True, text=True,
                           stdout=subprocess.PIPE).stdout
    symbols = {line.split(" ", 2)[2] for line in table.splitlines() if len(line.split(" ", 2)) == 3}
    functions = {symbol for symbol in symbols
                 if symbol.endswith((")", ") const")) and not symbol.startswith(("typeinfo", "vtable"))}
    return Counter(without_arguments(symbol) for symbol in functions), symbols - functions


def compact(names):
    """The same names written without spaces, as the two sources differ in them."""
    counted = Counter()
    for name, count in names.items():
        counted[name.replace(" ", "")] += count
    return counted


def unknown_data(symbols, classes):
    """The symbols beside functions that belong to no class of the headers."""
    for symbol in sorted(symbols):
        match = re.fullmatch(r"(?:typeinfo name|typeinfo|vtable|VTT|guard variable) for (.*)", symbol)
        # The types of functions and members, to which a table of members refers.
        if match is None or not (match[1] in classes or "(" in match[1]):
            yield symbol


def main():
    library, folder, macro, private = sys.argv[1:]
    lines = pathlib.Path(private).read_text(encoding="utf-8").splitlines()
    names = Names(macro, {line for line in lines if line and not line.startswith("#")})
    for header in sorted(pathlib.Path(folder).parent.glob("Orvel*/**/*.h")):
        if not header.name.endswith("_p.h"):
            of_library = pathlib.Path(folder) in header.parents
            reader = names if of_library else Names("no macro of this library", set())
            reader.read(code_of(header))
            names.classes |= reader.classes
    named = compact(names.functions)
    exported, data = exported_by(library)
    exported = compact(exported)
    hidden = {name.replace(" ", "") for name in names.hidden}
    may_have_body = {name.replace(" ", "") for name in names.may_have_body}

    faults = []
    for name in sorted(set(named) | set(exported)):
        if named[name] == exported[name] or (name in may_have_body and not named[name]):
            continue
        if name in hidden and not named[name]:
            faults.append(f"private, but exported: {name}")
        elif not named[name]:
            faults.append(f"exported, but in no header: {name}")
        else:
            faults.append(f"{name}: {named[name]} in the headers, {exported[name]} exported")
    faults += [f"listed as private, but not declared: {name}"
               for name in sorted(names.private - set(names.functions))]
    faults += [f"neither a function nor a class of the headers: {symbol}"
               for symbol in unknown_data(data, names.classes)]
    for fault in faults:
        print(fault)
    print(f"{sum(named.values())} functions in the headers, {sum(exported.values())} exported, "
          f"{len(faults)} differences")
    return 1 if faults or not named else 0


if __name__ == "__main__":
    sys.exit(main())

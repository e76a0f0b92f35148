#!/usr/bin/env python3
"""Checks that every public name stands in a page of docs/: what a host can write, it can look up.

    check-names.py [--list]    with --list, prints all public names with their headers instead

The names are those of the headers that cmake/GessoPublicHeaders.cmake lists: classes, records and their fields,
constants, enumerators, functions, and the public operations of classes; those of namespace gesso only where the
library exports them or hosts pass them. Prints the names that stand nowhere, and fails if there are any.
"""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
# Types of private fields, whose operations no host can reach.
UNREACHABLE = {"ItemTheme", "TreeTheme"}
# Known to every reader: what each class has by the platform's way, or by C++.
COMMON = {"WindowProc", "DialogProc", "IsolationAwareRegisterClassW", "s_aClass"}


def headers():
    listed = re.search(r"set\(GESSO_PUBLIC_HEADERS(.*?)\)", (ROOT / "cmake/GessoPublicHeaders.cmake").read_text(), re.S)
    return listed[1].split()


def code_of(path):
    text = path.read_text(encoding="utf-8")
    text = re.sub(r"/\*.*?\*/", "", text, flags=re.S)
    text = re.sub(r"//[^\n]*", "", text)
    text = re.sub(r"^\s*#.*(?:\\\n.*)*$", "", text, flags=re.M)
    return re.sub(r'L?"(?:[^"\\\n]|\\.)*"', '""', text)


class Scope:
    def __init__(self, kind, name="", public=True, own=False):
        self.kind, self.name, self.public, self.own = kind, name, public, own


def declared_in(statement, scope):
    """The names that one statement of a scope, up to its ; or {, declares."""
    statement = " ".join(statement.split())
    if not statement or re.match(r"(using|friend|static_assert|typedef|template|return|public|protected|private)\b", statement):
        return []
    head = re.split(r"(?<![=!<>])=(?!=)", statement)[0] if "(" not in statement.split("=")[0] else statement
    function = re.search(r"(~?\w+)\s*\(", head)
    if function and "operator" not in head:
        name = function[1]
        return [] if name in (scope.name, "~" + scope.name) or name.startswith("~") else [name]
    if "operator" in head:
        return []
    head = re.sub(r"\[[^]]*\]|\{[^}]*\}", "", head)
    names = [re.search(r"(\w+)\s*(?::\s*\d+)?$", part.strip()) for part in head.split(",")]
    return [m[1] for m in names if m and not m[1].isdigit()] if " " in head else []


def public_names(path):
    """(name, whether it is of namespace gesso and not exported) for each public name of a header."""
    scopes, statement, names = [Scope("file")], "", []

    def is_open():
        return all(s.public and s.kind in ("file", "extern", "namespace", "class", "enum") for s in scopes)

    def in_gesso():
        return any(s.kind == "namespace" and s.name for s in scopes)

    for token in re.split(r"(\b(?:public|protected|private):(?!:)|[{};])", code_of(path)):
        scope = scopes[-1]
        if token in ("public:", "protected:", "private:"):
            scope.public, statement = token == "public:" and not scope.own, ""
        elif token == "{":
            head = " ".join(statement.split())
            kind = re.match(r"(?:typedef )?(?:template ?<.*?> ?)?(class|struct|enum(?: class)?|union|namespace|extern)\b(.*)", head)
            if kind and "(" not in re.sub(r"alignas\(.*?\)|<.*>", "", head):
                word = kind[1].split()[0]
                own = re.sub(r"\b(GESSO_API|final|class)\b|:.*", "", kind[2]).split()
                name = own[-1] if own and word != "extern" else ""
                if name and word != "namespace" and is_open():
                    names.append((name, in_gesso() and "GESSO_API" not in head))
                exported = not in_gesso() or "GESSO_API" in head or word in ("namespace", "enum")
                scopes.append(Scope({"struct": "class", "union": "class"}.get(word, word), name, word != "class" and exported and name not in UNREACHABLE, not exported or name in UNREACHABLE))
            else:
                if is_open() and scope.kind != "enum":
                    names += [(n, in_gesso() and scope.kind != "class" and "GESSO_API" not in head) for n in declared_in(head, scope)]
                scopes.append(Scope("body"))
            statement = ""
        elif token == "}":
            if scope.kind == "enum" and is_open():
                names += [(m, in_gesso()) for m in re.findall(r"(?:^|,)\s*(\w+)", statement)]
            if len(scopes) > 1:
                scopes.pop()
            statement = ""
        elif token == ";":
            if is_open():
                names += [(n, in_gesso() and scope.kind != "class" and "GESSO_API" not in statement)
                          for n in declared_in(statement, scope)]
            statement = ""
        else:
            statement += token
    return names


def main():
    pages = "\n".join(page.read_text(encoding="utf-8") for page in sorted((ROOT / "docs").glob("*.md")))
    known = set(re.findall(r"\w+", pages)) | COMMON
    found = {}
    for header in headers():
        for name, own in public_names(ROOT / "gesso" / header):
            if not own:
                found.setdefault(name, header)
    if "--list" in sys.argv:
        print("\n".join(f"{header}: {name}" for name, header in found.items()))
        return 0
    missing = {name: header for name, header in found.items() if name not in known}
    for name, header in missing.items():
        print(f"gesso/{header}: {name} stands in no page of docs/")
    print(f"{len(found) - len(missing)} of {len(found)} public names stand in the pages")
    return 1 if missing or not found else 0


if __name__ == "__main__":
    sys.exit(main())

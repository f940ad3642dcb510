#!/usr/bin/python3
"""Compares the names of platform headers that the library uses with web/platform-names.txt.

With --write the list is written anew: names keep their marks, new ones are marked "local". A name
that is marked so stands in the rooms named seam alone. Needs no build, but libclang with its Python
bindings, for what a name means is for a compiler to say.
"""

import collections
import concurrent.futures
import os
import re
import subprocess
import sys
import tempfile

from clang.cindex import CursorKind, Index, TranslationUnit, conf

LIST = "web/platform-names.txt"
ROOMS = ("wiro", "toolkit", "model", "messaging", "host")
HEADING = """\
# Every name of a platform header that include/ and web/ use, made by tools/platform-names.py --write.
# "emitter": an emitter, bound or sent on in one line of a web object's class.
# "local": what only the embedded platform calls so; used in include/seam and web/seam alone.
# "member": a word of the tables of script classes and namespaces in web/scripting, a line for each member.
"""
KINDS = {
    getattr(CursorKind, kind)
    for kind in (
        "CLASS_DECL STRUCT_DECL CLASS_TEMPLATE ENUM_DECL TYPEDEF_DECL TYPE_ALIAS_DECL "
        "ENUM_CONSTANT_DECL FIELD_DECL VAR_DECL CXX_METHOD FUNCTION_DECL FUNCTION_TEMPLATE "
        "CONVERSION_FUNCTION MACRO_DEFINITION"
    ).split()
}
MAY_USE = {
    "local": ("include/seam/", "web/seam/"),
    "member": ("web/scripting/", "web/seam/"),
}


def output(*command):
    return subprocess.check_output(command, text=True).split()


def flags():
    folders = ["include", "web", *(f"platform/{room}/include" for room in ROOMS)]
    return ["-std=c++17", "-fPIC", "-DQT_NO_KEYWORDS", "-DQT_NO_FOREACH"] + [
        *(f"-I{folder}" for folder in folders),
        *output("pkg-config", "--cflags", "Qt5Core"),
    ]


def path_of(cursor):
    file = cursor.location.file
    return os.path.relpath(file.name) if file else ""


def is_own(path):
    return path.startswith(("include/", "web/"))


def is_platform(path):
    return re.match(r"platform/\w+/include/", path) is not None


def full_name(cursor):
    parts = [cursor.spelling]
    parent = None if cursor.kind == CursorKind.MACRO_DEFINITION else cursor.semantic_parent
    while parent is not None and parent.kind != CursorKind.TRANSLATION_UNIT:
        parts.insert(0, parent.spelling)
        parent = parent.semantic_parent
    return "::".join(part for part in parts if part)


def overloads(cursor):
    count = conf.lib.clang_getNumOverloadedDecls(cursor)
    return [conf.lib.clang_getOverloadedDecl(cursor, index) for index in range(count)]


class Uses:
    """What one source and the headers of its own use."""

    def __init__(self):
        self.names = collections.defaultdict(set)

    def note(self, target, cursor):
        if target is None or target.kind not in KINDS or target.spelling == "operator=":
            return  # every class can be assigned that the library assigns
        if is_platform(path_of(target)):
            self.names[full_name(target)].add(path_of(cursor))

    def visit(self, cursor):
        for child in cursor.get_children():
            if not is_own(path_of(child)):
                continue
            target = child.referenced
            self.note(target, child)
            if child.kind == CursorKind.OVERLOADED_DECL_REF:
                for each in overloads(child):
                    self.note(each, child)
            elif child.kind == CursorKind.CXX_METHOD and child.is_definition():
                self.note_overridden(child)
            elif target is None and child.kind == CursorKind.MEMBER_REF_EXPR:
                self.note_dependent(child)
            self.visit(child)

    def note_overridden(self, method):
        """A method of a class of the library that takes the place of one of the platform's."""
        for base in bases_of(method.semantic_parent):
            for member in base.get_children():
                if member.spelling == method.spelling and member.is_virtual_method():
                    self.note(member, method)

    def note_dependent(self, cursor):
        """A member of what a template is given: of each platform class whose name the type has."""
        name = [token.spelling for token in cursor.get_tokens()][-1]
        for base in cursor.get_children():
            declaration = base.type.get_pointee().get_declaration()
            for candidate in (declaration, base.type.get_declaration()):
                for owner in (candidate, *bases_of(candidate)):
                    for member in owner.get_children():
                        if member.spelling == name:
                            self.note(member, cursor)


def bases_of(record):
    for child in record.get_children():
        if child.kind == CursorKind.CXX_BASE_SPECIFIER:
            base = child.type.get_declaration()
            template = next(
                (each.referenced for each in child.get_children() if each.kind == CursorKind.TEMPLATE_REF),
                None,
            )
            for each in (base, template):
                if each is not None:
                    yield each
                    yield from bases_of(each)


def uses_of(source, arguments):
    options = TranslationUnit.PARSE_DETAILED_PROCESSING_RECORD
    unit = Index.create(excludeDecls=True).parse(source, arguments, options=options)
    errors = [str(each) for each in unit.diagnostics if each.severity >= 3]
    if errors:
        raise SystemExit(f"platform-names.py: {errors[0]}")
    uses = Uses()
    uses.visit(unit.cursor)
    return dict(uses.names)


def precompile(folder, sources, headers):
    """Everything but the library's own headers, compiled once."""
    included = set()
    for path in sources + headers:
        with open(path, encoding="utf-8") as file:
            rooms = "|".join(ROOMS)
            included.update(
                re.findall(rf'^#include (<[^>]+>|"(?:{rooms})/[^"]+")', file.read(), re.M)
            )
    everything = os.path.join(folder, "everything.h")
    with open(everything, "w", encoding="utf-8") as file:
        file.writelines(f"#include {name}\n" for name in sorted(included))
    made = everything + ".pch"
    subprocess.check_call(["clang++-14", "-xc++-header", *flags(), "-o", made, everything])
    return made


def find_uses():
    sources = output("git", "ls-files", "-co", "--exclude-standard", "web/*.cpp")
    headers = output("git", "ls-files", "-co", "--exclude-standard", "web/*.h", "include/*.h")
    found = collections.defaultdict(set)
    with tempfile.TemporaryDirectory() as folder:
        rest = os.path.join(folder, "headers.cpp")
        with open(rest, "w", encoding="utf-8") as file:
            file.writelines(f'#include "{os.path.abspath(header)}"\n' for header in headers)
        arguments = [*flags(), "-include-pch", precompile(folder, sources, headers)]
        with concurrent.futures.ProcessPoolExecutor() as pool:
            every = [rest, *sources]
            for uses in pool.map(uses_of, every, [arguments] * len(every)):
                for name, files in uses.items():
                    found[name] |= files
    return found


def read_marks():
    if not os.path.exists(LIST):
        return {}
    with open(LIST, encoding="utf-8") as file:
        return dict(re.findall(r"^([^#\n].*?)(?: (emitter|local|member))?$", file.read(), re.M))


def main():
    marks = read_marks()
    found = find_uses()
    if "--write" in sys.argv:
        marks = {name: marks.get(name, "local") for name in found}
        with open(LIST, "w", encoding="utf-8") as file:
            file.write(HEADING)
            file.writelines(f"{name} {marks[name]}".rstrip() + "\n" for name in sorted(found))
    faults = [f"{name} is used and not listed" for name in found if name not in marks]
    faults += [f"{name} is listed and not used" for name in marks if name not in found]
    for name, files in found.items():
        allowed = MAY_USE.get(marks.get(name, ""))
        faults += [
            f"{path} uses {name}, which is marked {marks[name]}"
            for path in sorted(files)
            if allowed and not path.startswith(allowed)
        ]
    for fault in sorted(faults):
        print(f"platform names: {fault}", file=sys.stderr)
    print(f"platform names: {len(found)} in use, {len(faults)} faults")
    return 1 if faults or not found else 0


if __name__ == "__main__":
    sys.exit(main())

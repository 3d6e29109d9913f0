#!/usr/bin/env python3
"""Checks who includes whom: every quoted include against the rooms that its own room may include.

Prints a line for each breach, file and line first, and exits with 1 where there is one.
"""
import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent

# room : rooms that it may include. Every room may include itself and the standard library.
RULES = """
host/*             : host/*
backend/model      : host/data host/framework
backend/reader     : backend/model host/framework host/data
backend/charts     : backend/model host/chart host/data host/strings host/framework
backend/views/*    : backend/charts backend/model host/chart host/data host/strings host/framework
backend/output     : backend/views/* backend/model host/pivot host/strings host/data host/framework
backend/frame      : backend/output backend/reader backend/model host/*
refhost/document   : -
refhost/data       : host/data
refhost/json       : -
refhost/strings    : host/strings refhost/json refhost/data
refhost/framework  : host/framework host/data refhost/data
refhost/command    : host/command host/data refhost/data
refhost/pivot      : host/pivot host/data host/framework refhost/document refhost/data refhost/strings
refhost/template   : host/chart refhost/data
refhost/chart      : host/chart host/data refhost/document refhost/data refhost/strings refhost/template
refhost/plot       : refhost/template refhost/document refhost/data
refhost/vega       : refhost/plot refhost/data
refhost/writers    : refhost/document refhost/plot refhost/vega refhost/json refhost/data
refhost/job        : refhost/json refhost/data refhost/command host/data host/command host/framework
refhost/run        : refhost/job refhost/document refhost/writers refhost/pivot refhost/chart refhost/framework refhost/strings refhost/data host/*
refhost/tool       : refhost/run refhost/job refhost/writers refhost/document
"""

# One file each that tells the split, or reports what it can't read, through the tables' library.
EXCEPTIONS = {
    "backend/nonpar/model/SplitDescription.cpp": {"host/pivot"},
    "backend/nonpar/reader/NOPRParseOutXML.cpp": {"host/pivot"},
}

STANDARD = set(
    """algorithm any array atomic bit bitset cassert cctype cerrno cfenv cfloat charconv chrono cinttypes
    climits clocale cmath codecvt compare complex concepts condition_variable coroutine csetjmp csignal cstdarg
    cstddef cstdint cstdio cstdlib cstring ctime cuchar cwchar cwctype deque exception execution filesystem
    format forward_list fstream functional future initializer_list iomanip ios iosfwd iostream istream iterator
    latch limits list locale map memory memory_resource mutex new numbers numeric optional ostream queue random
    ranges ratio regex scoped_allocator semaphore set shared_mutex source_location span sstream stack stdexcept
    stop_token streambuf string string_view strstream syncstream system_error thread tuple type_traits typeindex
    typeinfo unordered_map unordered_set utility valarray variant vector version""".split()
)

INCLUDE = re.compile(r'^\s*#\s*include\s*(["<])([^">]+)[">]')


def rules():
    table = []
    for line in RULES.strip().splitlines():
        room, allowed = (part.strip() for part in line.split(":"))
        table.append((room, [] if allowed == "-" else allowed.split()))
    return table


def matches(pattern, room):
    return room == pattern or (pattern.endswith("/*") and room.startswith(pattern[:-1]))


def room_of(path):
    """The room of a path below the root; None outside of all rooms."""
    parts = path.split("/")
    if parts[0] == "host" and len(parts) > 2:
        return "/".join(parts[:2])
    if parts[0] == "refhost" and len(parts) > 2:
        return "/".join(parts[:2])
    if parts[:2] == ["backend", "nonpar"] and len(parts) > 3:
        return "backend/views/" + parts[3] if parts[2] == "views" else "backend/" + parts[2]
    return None


def resolve(include, file):
    """The path below the root that an include names; None for a file outside of the project."""
    for base in (ROOT, ROOT / "backend" / "nonpar", file.parent):
        candidate = base / include
        if candidate.exists():
            return candidate.resolve().relative_to(ROOT).as_posix()
    return None


def check(file, table):
    path = file.relative_to(ROOT).as_posix()
    room = room_of(path)
    if room is None:
        return
    allowed = next((rooms for pattern, rooms in table if matches(pattern, room)), None)
    if allowed is None:
        yield f"{path}:1: {room} is no room of the rule"
        return
    allowed = list(allowed) + sorted(EXCEPTIONS.get(path, ()))
    for number, line in enumerate(file.read_text(encoding="utf-8").splitlines(), 1):
        if "dlopen(" in line and room != "refhost/run":
            yield f"{path}:{number}: only refhost/run calls dlopen"
        found = INCLUDE.match(line)
        if not found:
            continue
        kind, include = found.groups()
        target = resolve(include, file) if kind == '"' else None
        if kind == "<":
            if include.startswith("xercesc/") and room != "refhost/framework":
                yield f"{path}:{number}: only refhost/framework includes the XML parser"
            if room.startswith(("backend/", "host/")) and include not in STANDARD:
                yield f"{path}:{number}: <{include}> is not of the standard library"
            continue
        if target is None:
            yield f'{path}:{number}: "{include}" is no file of the project'
            continue
        to = room_of(target)
        if to != room and not any(matches(pattern, to or "") for pattern in allowed):
            yield f"{path}:{number}: {room} may not include {to or target}"


def main():
    table = rules()
    files = [
        file
        for folder in ("host", "backend", "refhost")
        for file in sorted((ROOT / folder).rglob("*"))
        if file.suffix in (".h", ".cpp") and "node_modules" not in file.parts
    ]
    breaches = [breach for file in files for breach in check(file, table)]
    for breach in breaches:
        print(breach)
    print(f"{len(files)} files, {len(breaches)} breaches of the include rule")
    return 1 if breaches or not files else 0


if __name__ == "__main__":
    sys.exit(main())

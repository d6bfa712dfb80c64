#!/usr/bin/env python3
"""Holds the declarations of the host, and a built module, against hostapi/interface.txt.

clang tells how it lays out the classes and their tables of virtual functions and which headers it
reads; llvm-readobj and llvm-nm tell the names that a module or its objects take from the host.
Each difference is one line: what, where, expected and found. Everything behind "--" goes to clang.
"""

import argparse
import os
import pathlib
import re
import subprocess
import sys
import tempfile

DATA = pathlib.Path(__file__).resolve().parent.parent / 'interface.txt'
HOST_FILES = ('acad.exe', 'acdb17.dll')
# Names that are nobody's but the host's: its classes and its functions.
HOST_NAME = re.compile(r'^\?.*@Ac[A-Z]|^\??(c5|s_pServices|ac(ad|db|ed|rx|ut|DocM)|adsw?_)')
RUN_TIME = re.compile(r'^(msvcp|vcruntime|ucrtbase|api-ms-win-crt)', re.IGNORECASE)


class Facts:
    """What the data says, or what a compiler found."""

    def __init__(self):
        self.headers = {}    # name -> sorted names; None if it isn't compared by itself
        self.layouts = {}    # class -> (bytes, [(offset, member)])
        self.tables = {}     # class -> (base, entries, bytes, [replaced], [(index, function)])
        self.libraries = {}  # file -> {name}; "static" for what is a part of the module


# --- the data ------------------------------------------------------------------------------------

def read_data(path=DATA):
    """Reads interface.txt."""
    facts = Facts()
    text = re.sub(r'\n {4,}', ' ', pathlib.Path(path).read_text(encoding='utf-8'))
    for line in text.splitlines():
        if not line.strip() or line.startswith('#'):
            continue
        if line.startswith('  '):
            add(line.strip())
            continue
        kind, rest = line.split(' ', 1)
        if kind == 'header':
            name, names = rest.split(':')
            facts.headers[name] = None if names.strip() == '?' else sorted(names.split())
        elif kind == 'layout':
            name, size = rest.rsplit(' ', 1)
            members = []
            facts.layouts[name] = (int(size), members)
            add = lambda item, to=members: to.append(numbered(item))
        elif kind == 'table':
            found = re.fullmatch(r'(\w+)(?: : (\w+))? (\d+) (\d+)', rest)
            name, base, entries, size = found.groups()
            replaced, added = [], []
            facts.tables[name] = (base or '', int(entries), int(size), replaced, added)
            add = lambda item, r=replaced, a=added: (
                r.append(item[9:]) if item.startswith('replaces ') else a.append(numbered(item)))
        elif kind == 'library':
            names = set()
            facts.libraries[rest] = names
            add = lambda item, to=names: to.add(item.removesuffix(' DATA'))
        else:
            raise SystemExit(f'{path}: no such entry: {line}')
    return facts


def numbered(item):
    number, text = item.split(' ', 1)
    return int(number), text


# --- what clang finds ----------------------------------------------------------------------------

def run(command, **more):
    return subprocess.run(command, capture_output=True, text=True, check=False, **more)


def dump(compiler, flags, include_dirs, data):
    """Gives what clang makes of the headers in the folders, of all that the data names."""
    facts = Facts()
    command = [compiler, *[f'-I{folder}' for folder in include_dirs], *flags, '-w']
    with tempfile.TemporaryDirectory() as folder:
        dump_headers(command, folder, data, facts)
        if data.layouts or data.tables:
            dump_classes(command, folder, data, facts)
    return facts


def dump_headers(command, folder, data, facts):
    known = set(data.headers) | {'windows.h'}
    probe = pathlib.Path(folder, 'header.cpp')
    for header, names in data.headers.items():
        if names is None:
            continue
        probe.write_text(f'#include <{spelling(header)}>\n', encoding='utf-8')
        result = run([*command, '-E', '-H', '-o', os.devnull, str(probe)])
        if result.returncode != 0:
            raise SystemExit(f'{header}: {first_error(result.stderr)}')
        read = re.findall(r'^\.+ (?:.*[\\/])?(.*)$', result.stderr, re.MULTILINE)
        facts.headers[header] = sorted({name.lower() for name in read} & known - {header})


def spelling(header):
    """The kit's spelling where it isn't all lower case."""
    return 'AdAChar.h' if header == 'adachar.h' else header


def dump_classes(command, folder, data, facts):
    probe = pathlib.Path(folder, 'classes.cpp')
    probe.write_text(probe_source(data), encoding='utf-8')
    result = run([*command, '-Xclang', '-fdump-vtable-layouts', '-Xclang', '-fdump-record-layouts',
                  '-fno-access-control', '-S', '-emit-llvm', '-o', os.devnull, str(probe)])
    if result.returncode != 0:
        raise SystemExit(f'the classes: {first_error(result.stderr)}')
    sizes = read_layouts(result.stdout, data, facts)
    read_tables(result.stdout, sizes, data, facts)


def probe_source(data):
    """A source that makes clang lay out every class of the data."""
    last = ('acedxref.h',)  # includes nothing of what it uses
    headers = [name for name in data.headers if name not in last]
    lines = [f'#include <{spelling(name)}>' for name in ('windows.h', 'dbmain.h', *headers, *last)]
    for number, name in enumerate(dict.fromkeys([*data.layouts, *data.tables])):
        lines.append(f'int size{number} = sizeof({name});')
        if name in data.tables:
            # A call of a function that the class has itself.
            _, _, _, replaced, added = data.tables[name]
            described = any('isA(' in function for function in replaced + [f for _, f in added])
            call = 'p->isA()' if described else 'delete p'
            lines.append(f'void use{number}({name}* p) {{ {call}; }}')
    return '\n'.join(lines) + '\n'


def first_error(text):
    errors = [line for line in text.splitlines() if 'error:' in line]
    return errors[0] if errors else text[-300:]


def read_layouts(text, data, facts):
    """Takes the members of the first level from the dumps of records; gives all sizes."""
    sizes = {}
    for block in text.split('*** Dumping AST Record Layout')[1:]:
        lines = re.findall(r'^ +(\d+|) +\| (.*)$', block.split('\n\n')[0], re.MULTILINE)
        name = re.sub(r'\b(class|struct|enum) ', '', lines[0][1])
        size = next((int(found[1]) for _, line in lines
                     if (found := re.match(r'\[sizeof=(\d+)', line))), None)
        if size is None or name in sizes:
            continue
        sizes[name] = size
        if name in data.layouts:
            members = [(int(offset), re.sub(r'\b(class|struct|enum) ', '', line[2:]))
                       for offset, line in lines[1:] if re.match(r'  \S', line) and offset]
            facts.layouts[name] = (size, members)
    return sizes


def read_tables(text, sizes, data, facts):
    """Takes what a class replaces and adds from the dumps of its table."""
    for found in re.finditer(r"^VFTable for (.*) \((\d+) entries\)\.\n((?: +.*\n)*)", text,
                             re.MULTILINE):
        path = re.findall(r"'(\w+)'", found[1])
        name, base = path[-1], path[-2] if len(path) > 1 else ''
        if name not in data.tables or name in facts.tables:
            continue
        entries = re.findall(r'^ +(\d+) \| (.*)$', found[3], re.MULTILINE)[1:]  # without the RTTI
        inherited = len_of(base, text)
        replaced, added = [], []
        for number, entry in entries:
            index = int(number) - 1
            owner, function = without_class(entry)
            if index >= inherited:
                added.append((index, function))
            elif owner == name and '~' not in function:
                replaced.append(function)
        facts.tables[name] = (base, len(entries), sizes.get(name), replaced, added)


def len_of(base, text):
    found = re.search(rf"^VFTable for (?:.* in )?'{base}' \((\d+) entries\)", text, re.MULTILINE)
    return int(found[1]) - 1 if base and found else 0


def without_class(entry):
    """Splits "R C::f(A) const" into the class and the function without it."""
    start = entry.index('(')
    found = re.fullmatch(r'(.*?)(\w+)::(~?\w+)', entry[:start])
    return found[2], found[1] + found[3] + entry[start:]


# --- the comparison ------------------------------------------------------------------------------

def compare(data, facts):
    """Gives a line for each difference."""
    lines = []
    for header, names in data.headers.items():
        if names is None:
            continue
        found = facts.headers.get(header, [])
        lines += [f'{header} brings in {name}' for name in found if name not in names]
        lines += [f"{header} doesn't bring in {name}" for name in names if name not in found]
    for name, (size, members) in data.layouts.items():
        found = facts.layouts.get(name)
        if not found:
            lines.append(f'{name}: clang tells no layout')
            continue
        difference(lines, name, 'bytes', size, found[0])
        in_order(lines, f'{name}, member', [f'at {o}: {text}' for o, text in members],
                 [f'at {o}: {text}' for o, text in found[1]])
    for name, (base, entries, size, replaced, added) in data.tables.items():
        found = facts.tables.get(name)
        if not found:
            lines.append(f'{name}: clang tells no table of virtual functions')
            continue
        difference(lines, name, 'base', base, found[0])
        difference(lines, name, 'entries', entries, found[1])
        difference(lines, name, 'bytes', size, found[2])
        in_order(lines, f'{name}, replaced function', replaced, found[3])
        by_index(lines, name, dict(added), dict(found[4]))
    return lines


def difference(lines, name, what, expected, found):
    if expected != found:
        lines.append(f'{name}, {what}: expected {expected}, found {found}')


def in_order(lines, what, expected, found):
    for number in range(max(len(expected), len(found))):
        want = expected[number] if number < len(expected) else 'none'
        have = found[number] if number < len(found) else 'none'
        difference(lines, what, number, want, have)


def by_index(lines, name, expected, found):
    for index in sorted({*expected, *found}):
        difference(lines, name, f'virtual function {index}', expected.get(index, 'none'),
                   found.get(index, 'none'))


def compare_imports(data, imports, module):
    """Compares (library, name) pairs with the data."""
    lines = []
    home = {name: library for library, names in data.libraries.items() for name in names}
    for library, name in imports:
        expected = home.get(name)
        if expected == library.lower():
            continue
        if expected == 'static':
            lines.append(f'{module} imports {name} from {library}: expected in the module itself')
        elif expected:
            lines.append(f'{module} imports {name} from {library}: expected from {expected}')
        elif library.lower() in HOST_FILES or HOST_NAME.match(name) or (
                name.startswith('?') and not RUN_TIME.match(library)):
            lines.append(f'{module} imports {name} from {library}: the host has no such name')
    for library in HOST_FILES:
        if not any(library == file.lower() for file, _ in imports):
            lines.append(f'{module} imports nothing from {library}')
    return lines


def imports_of(readobj, module):
    """Gives the (library, name) pairs of a module's import tables."""
    result = run([readobj, '--coff-imports', module])
    if result.returncode != 0:
        raise SystemExit(f'{module}: {result.stderr.strip()}')
    pairs, library = [], ''
    for line in result.stdout.splitlines():
        word = line.strip()
        if word.startswith('Name: '):
            library = word[6:]
        elif word.startswith('Symbol: '):
            pairs.append((library, re.sub(r' \(\d+\)$', '', word[8:])))
    return pairs


def compare_objects(data, nm, objects):
    """Compares what objects need of the host, by the names in them, with the data."""
    known = set().union(*data.libraries.values())
    result = run([nm, '--undefined-only', '--format=just-symbols', *objects])
    defined = run([nm, '--defined-only', '--format=just-symbols', *objects]).stdout.split()
    if result.returncode != 0:
        raise SystemExit(result.stderr.strip())
    names = {word.removeprefix('__imp_') for word in result.stdout.split()} - set(defined)
    return [f'the objects need {name}: the host has no such name'
            for name in sorted(names) if HOST_NAME.match(name) and name not in known]


# --- the command ---------------------------------------------------------------------------------

def check_folder(compiler, flags, folder, data):
    """Checks the declarations in a folder, of which each header has to be in the data."""
    there = {path.name.lower() for path in pathlib.Path(folder).glob('*.h')}
    lines = [f'{name} is none of the published headers' for name in sorted(there - {*data.headers})]
    return lines + compare(data, dump(compiler, flags, [folder], data))


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument('--compiler', default='clang++-19')
    parser.add_argument('--readobj', default='llvm-readobj-19')
    parser.add_argument('--nm', default='llvm-nm-19')
    parser.add_argument('--headers', nargs='+', default=[str(DATA.parent)],
                        help='folders of the declarations')
    parser.add_argument('--kit', action='store_true',
                        help="they are the kit's, which has more headers than the data")
    parser.add_argument('--module', help='a built module whose imports are checked as well')
    parser.add_argument('--objects', nargs='+', default=[], help="the module's objects")
    parser.add_argument('--self-test', action='store_true',
                        help='breaks copies of the declarations and expects to be told')
    split = sys.argv.index('--') if '--' in sys.argv else len(sys.argv)
    options, flags = parser.parse_args(sys.argv[1:split]), sys.argv[split + 1:]
    data = read_data()
    if options.self_test:
        from self_test import self_test
        return self_test(options, flags, data)
    if options.kit:
        lines = compare(data, dump(options.compiler, flags, options.headers, data))
    else:
        lines = [line for folder in options.headers
                 for line in check_folder(options.compiler, flags, folder, data)]
    if options.module:
        lines += compare_imports(data, imports_of(options.readobj, options.module),
                                 pathlib.Path(options.module).name)
    if options.objects:
        lines += compare_objects(data, options.nm, options.objects)
    for line in lines:
        print(line)
    if lines:
        return 1
    print(f'{len(data.headers)} headers, {len(data.layouts)} layouts, {len(data.tables)} tables of '
          'virtual functions agree with the interface'
          + (', and so do the imports of ' + options.module if options.module else '') + '.')
    return 0


if __name__ == '__main__':
    sys.exit(main())

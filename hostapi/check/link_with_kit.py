#!/usr/bin/env python3
"""Compiles the module against the host's kit, compares, and links the tested objects with the kit.

Behind ./link, which has built the module in the folder --build. Everything lands in --work, the
module in --to. With --kit alone it says whether the folder is a kit that will do.
"""

import argparse
import json
import os
import pathlib
import re
import shlex
import shutil
import subprocess
import sys

import check_interface
import coff
import compare_objects
import kit

OBJECTS = 'CMakeFiles/tessaro_objects.dir/src/'
MODULE = 'TessaroAcad.arx'
# The libraries of the workbench in the tested module's link, and what takes their place.
REPLACED = {'hostlibraries/acad.lib': 'acad.lib', 'hostlibraries/acdb17.lib': 'acdb17.lib',
            'lib/hostapi_defaults.lib': 'acedapi.lib'}
# The kit's objects ask for these by name; only the kit's own MFC has them, and nobody calls them.
ABSENT = ('__afxForceEXCLUDE', '__afxForceSTDAFX')


class Failed(Exception):
    """The lines say what differs."""


class Source:
    """A source of the module, and how it was compiled."""

    def __init__(self, command, build):
        words = shlex.split(command)
        self.output = words[words.index('-o') + 1]
        self.name = self.output.split(OBJECTS)[1].removesuffix('.cpp.obj')
        self.file = words[-1]
        self.flags = words[:words.index('-o')]
        self.tested = build / self.output

    def command(self, headers, output, *more):
        """The same compilation, with the kit's headers in the place of hostapi (None: with those)."""
        words = list(self.flags)
        place = words.index(f'-I{kit.ROOT}/hostapi')
        if headers:
            del words[place]
            words[2:2] = ['-isystem', str(headers)]  # ahead of everybody's
        return [*words, *more, '-MD', '-MF', f'{output}.d', '-o', str(output), '-c', self.file]


def sources_of(build):
    entries = json.loads((build / 'compile_commands.json').read_text(encoding='utf-8'))
    sources = [Source(entry['command'], build) for entry in entries
               if OBJECTS in entry['command'] and '/ApiVersion.cpp' not in entry['file']]
    if not sources:
        raise SystemExit(f'{build} has no objects of the module.')
    return sources


def escaped(path):
    """A path as ninja reads it."""
    return re.sub(r'([$ :])', r'$\1', str(path))


def compile_all(work, name, commands):
    """Runs the compilations that aren't up to date, through ninja; each makes its command's -o."""
    rules = ['rule compile', '  command = $line', '  depfile = $out.d', '  deps = gcc']
    for command in commands:
        output = pathlib.Path(command[command.index('-o') + 1])
        output.parent.mkdir(parents=True, exist_ok=True)
        line = shlex.join(command).replace('$', '$$')
        rules += [f'build {escaped(output)}: compile {escaped(command[-1])}', f'  line = {line}',
                  f'  description = {command[-1]}']
    file = work / f'{name}.ninja'
    file.write_text('builddir = ' + str(work / name) + '\n' + '\n'.join(rules) + '\n',
                    encoding='utf-8')
    result = subprocess.run(['ninja', '-f', str(file), '-k', '0'], capture_output=True, text=True,
                            check=False)
    if result.returncode != 0:
        errors = [line for line in result.stdout.splitlines() if 'error:' in line]
        raise Failed(errors or result.stdout.splitlines()[-20:])


# --- the steps -----------------------------------------------------------------------------------

def check_interface_of(headers, sources):
    """The kit's own tables, layouts and inclusions against the data."""
    flags = sources[0].flags
    kept = [word for number, word in enumerate(flags[1:], 1)
            if not word.startswith(('-I', '-W', '-O', '-g')) and word != '-Xclang'
            and flags[number - 1] != '-Xclang']
    data = check_interface.read_data()
    lines = check_interface.compare(data, check_interface.dump(flags[0], kept, [headers], data))
    if lines:
        raise Failed(lines)
    print(f"The kit's headers agree with hostapi/interface.txt: {len(data.headers)} headers, "
          f'{len(data.layouts)} layouts, {len(data.tables)} tables of virtual functions.')
    return data


def compare_sources(work, headers, sources, undname):
    """Compiles every source against the kit and compares it with the tested object."""
    made = {source: work / 'kit' / f'{source.name}.obj' for source in sources}
    compile_all(work, 'kit', [source.command(headers, made[source]) for source in sources])
    print(f"All {len(sources)} sources compile with the kit's headers.")
    differing = [source for source in sources
                 if not compare_objects.same(source.tested, made[source])]
    print(f'{len(sources) - len(differing)} objects have the same code and data as the tested ones.')
    failures, notes = [], {}
    for source in differing:
        for matters, line in compare_objects.names(source.tested, made[source]):
            (failures if matters else notes.setdefault(source, [])).append(f'{source.name} {line}')
    failures += compare_uninlined(work, headers, differing, notes, undname)
    if failures:
        raise Failed(failures)
    if differing:
        print(f"{len(differing)} objects differ by the words of the host's inline functions only: "
              "their own functions are the same, instruction by instruction, when nothing is "
              'inlined. The layouts that inline functions work on were compared above.')
        for source in differing:
            print(f'  {source.name}: ' + '; '.join(notes.get(source, ['the optimiser chose otherwise'])))
    print('The names that the objects need of the host are the same.')


def compare_uninlined(work, headers, sources, notes, undname):
    """Compares function by function; gives the differences that matter, notes the others."""
    plain = ('-O0', '-g0', '-ffunction-sections', '-fdata-sections')
    ours = {source: work / 'plain-ours' / f'{source.name}.obj' for source in sources}
    theirs = {source: work / 'plain-kit' / f'{source.name}.obj' for source in sources}
    if sources:
        compile_all(work, 'plain', [
            *(source.command(None, ours[source], *plain) for source in sources),
            *(source.command(headers, theirs[source], *plain) for source in sources)])
    failures = []
    for source in sources:
        own, inline = compare_objects.functions(ours[source], theirs[source], undname)
        failures += [f"{source.name}: {what} differs with the kit's headers" for what in own]
        notes.setdefault(source, []).extend(inline)
    return failures


def link_command(build, libraries, output):
    """The tested module's link, with the kit's libraries in the place of the workbench's."""
    result = subprocess.run(['ninja', '-C', str(build), '-t', 'commands', 'bin/' + MODULE],
                            capture_output=True, text=True, check=True)
    words = shlex.split(result.stdout.strip().splitlines()[-1])
    words = words[words.index('&&') + 1:len(words) - words[::-1].index('&&') - 1]
    missing = [name for name in (*REPLACED, 'bin/' + MODULE) if name not in words]
    left_out = [word for word in words if word.endswith('/ApiVersion.cpp.obj')]
    if missing or len(left_out) != 1:
        raise SystemExit(f"The module's link has changed, it lacks {missing or 'ApiVersion'}.")
    linked = []
    for word in words:
        if word in REPLACED:
            linked.append(str(libraries[REPLACED[word]]))
        elif word == 'bin/' + MODULE:
            linked.append(str(output))
        elif word.startswith(('/implib:', '/pdb:')):
            linked.append(word.split(':')[0] + ':' + str(output.with_suffix(
                '.lib' if word.startswith('/implib:') else '.pdb')))
        elif word not in left_out:
            linked.append(word)
    linked.append(str(libraries['rxapi.lib']))
    for option in ('/nodefaultlib', '/errorlimit:0', '/pdbaltpath:%_PDB%',
                   *(f'/alternatename:{name}=acrxEntryPoint' for name in ABSENT)):
        linked += ['-Xlinker', option]
    return linked


def link(build, libraries, output):
    output.parent.mkdir(parents=True, exist_ok=True)
    result = subprocess.run(link_command(build, libraries, output), cwd=build, check=False,
                            capture_output=True, text=True)
    errors = [line for line in result.stderr.splitlines() if 'lld-link: error:' in line]
    if result.returncode != 0:
        raise Failed(errors or result.stderr.splitlines())


def check_imports(data, sources, module, readobj):
    """Holds the linked module's imports against the data, and prints them."""
    imports = check_interface.imports_of(readobj, str(module))
    needed = set().union(*(coff.Object(source.tested).undefined() for source in sources))
    needed = {name.removeprefix('__imp_') for name in needed}
    own = [(library, name) for library, name in imports
           if name in needed or library.lower() not in check_interface.HOST_FILES]
    lines = check_interface.compare_imports(data, own, module.name)
    if lines:
        raise Failed(lines)
    print(f'{module.name} imports')
    for library in sorted({library for library, _ in imports}, key=str.lower):
        names = sorted(name for from_, name in imports if from_ == library)
        print(f'  {library}: {len(names)}')
        if library.lower() in check_interface.HOST_FILES:
            for name in names:
                print(f'    {name}' + ('' if name in needed else "  (for a routine of the kit's)"))


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument('--kit', type=pathlib.Path, required=True)
    for option in ('build', 'to', 'work'):
        parser.add_argument('--' + option, type=pathlib.Path)
    options = parser.parse_args()
    if not options.build:
        return look_at(options.kit)
    result = options.to / MODULE
    # One of an earlier run would be taken for this one's if this one fails.
    for stale in (result, result.with_suffix('.pdb')):
        stale.unlink(missing_ok=True)
    try:
        run(options, result)
    except Failed as failure:
        for line in failure.args[0]:
            print(line)
        print(f'{len(failure.args[0])} differences or errors: {MODULE} was not written.')
        return 1
    print(f'{result} is written.')
    return 0


def look_at(folder):
    try:
        kit.check(folder)
    except kit.Refused as refusal:
        print(f'{refusal}\nNothing was written.', file=sys.stderr)
        return 1
    print(f'{folder} is a 64-bit kit of level {kit.LEVEL}.')
    return 0


def run(options, result):
    sys.stdout.reconfigure(line_buffering=True)
    build, work = options.build, options.work
    sources = sources_of(build)
    flags = sources[0].flags
    tools = pathlib.Path(flags[0]).parent
    system = [pathlib.Path(flags[n + 1]) for n, word in enumerate(flags) if word == '-isystem']
    headers = work / 'include'
    kit.copy_headers(options.kit, headers, system)
    data = check_interface_of(headers, sources)
    compare_sources(work, headers, sources, str(tools / 'llvm-undname'))
    libraries = {name: kit.entry(kit.entry(options.kit, 'lib-x64'), name)
                 for name in kit.LIBRARIES}
    linked = work / 'linked' / MODULE
    shutil.rmtree(linked.parent, ignore_errors=True)
    link(build, libraries, linked)
    print(f"The {len(sources)} tested objects are linked with the kit's libraries.")
    check_imports(data, sources, linked, str(tools / 'llvm-readobj'))
    options.to.mkdir(parents=True, exist_ok=True)
    for file in (linked.with_suffix('.pdb'), linked):
        if file.exists():
            os.replace(file, options.to / file.name)


if __name__ == '__main__':
    sys.exit(main())

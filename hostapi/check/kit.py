"""Looks at a folder of the host's kit: is it one that the module can be linked with?

The kit's files come in mixed case, from a system that doesn't see it.
"""

import pathlib
import re

import coff

LEVEL = 17
DATABASE = f'acdb{LEVEL}'
# What each of the kit's libraries has to give: the file it imports from, or a name of its own.
LIBRARIES = {'acad.lib': 'acad.exe', DATABASE + '.lib': DATABASE + '.dll',
             'acedapi.lib': None, 'rxapi.lib': None}
INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*[<"]([^>"\n]+)[>"]', re.MULTILINE)
ROOT = pathlib.Path(__file__).resolve().parent.parent.parent


class Refused(Exception):
    """The folder is no kit for this module; the text says why."""


def entry(folder, name):
    """Gives the file or folder of that name, in whatever case; None if there is none."""
    if folder is None or not folder.is_dir():
        return None
    return next((path for path in sorted(folder.iterdir()) if path.name.lower() == name), None)


def include_folders(kit):
    return [folder for name in ('inc-x64', 'inc') if (folder := entry(kit, name))]


# --- is it a kit? --------------------------------------------------------------------------------

def check(kit):
    """Raises Refused unless the folder is a 64-bit kit of the module's level."""
    if not kit.is_dir():
        raise Refused(f'{kit} is no folder.')
    libraries = entry(kit, 'lib-x64')
    if not entry(kit, 'inc-x64') or not libraries:
        for name in ('lib-win32', 'lib'):
            if entry(entry(kit, name), 'acad.lib'):
                raise Refused(f'{kit} is a 32-bit kit: it has {name} and no inc-x64 with lib-x64.')
        raise Refused(f'{kit} is no kit: it needs the folders inc-x64 and lib-x64.')
    if not any(entry(folder, 'rxdefs.h') for folder in include_folders(kit)):
        raise Refused(f'{kit} is no kit: there is no rxdefs.h in its inc-x64.')
    if not entry(libraries, DATABASE + '.lib'):
        others = [path.name for path in libraries.iterdir()
                  if re.fullmatch(r'acdb\d+\.lib', path.name, re.IGNORECASE)]
        if others:
            raise Refused(f'{kit} is a kit of another level: lib-x64 has {sorted(others)[0]}, and '
                          f'the module needs {DATABASE}.lib.')
    for name, file in LIBRARIES.items():
        path = entry(libraries, name)
        if not path:
            raise Refused(f'{kit} is not complete: there is no {name} in its lib-x64.')
        check_library(path, file)


def check_library(path, file):
    """Checks a library's machine, and the file that it imports from."""
    files = set()
    for data in coff.members(path):
        machine = coff.machine_of(data)
        if coff.MACHINES.get(machine) != 'x64' and machine != 0:  # 0: for any machine
            what = coff.MACHINES.get(machine, f'machine {machine:#x}')
            raise Refused(f'{path} isn\'t for 64 bits (x64): it has a part for {what}.')
        if coff.is_import(data):
            files.add(coff.Import(data).file)
    wrong = sorted(name for name in files if file and name.lower() != file)
    if wrong:
        raise Refused(f'{path} is of another level: it imports from {wrong[0]}, expected {file}.')
    if file and not files:
        raise Refused(f'{path} imports nothing: expected names of {file}.')


# --- its headers ---------------------------------------------------------------------------------

def write_if_changed(path, data):
    """A file that is what it has to be keeps its time, so that nothing is compiled anew for it."""
    if not path.is_file() or path.read_bytes() != data:
        path.write_bytes(data)


def copy_headers(kit, to, system_folders=()):
    """Fills a folder with copies of the kit's headers, their names in lower case.

    A header of the kit or of Windows that is asked for in another case gets a file of that name, which
    leads on. Copies, so that another kit's headers are newer than the objects of the one before.
    """
    to.mkdir(parents=True, exist_ok=True)
    wanted, headers = {}, {}
    for folder in reversed(include_folders(kit)):
        headers.update({path.name.lower(): path for path in folder.iterdir() if path.is_file()})
    for name, path in headers.items():
        wanted[name] = path.read_bytes()
    for spelled in spellings(headers.values()):
        lower = spelled.lower()
        if spelled == lower or spelled in wanted or '/' in spelled or '\\' in spelled:
            continue
        if lower in headers or any((folder / lower).is_file() for folder in system_folders):
            wanted[spelled] = f'#include <{lower}>\n'.encode()
    for name, data in wanted.items():
        write_if_changed(to / name, data)
    for path in to.iterdir():
        if path.name not in wanted:
            path.unlink()


def spellings(headers):
    """The names that the headers and the module's sources include."""
    sources = [path for path in (ROOT / 'src').rglob('*') if path.suffix in ('.h', '.cpp')]
    names = {'AdAChar.h'}
    for path in [*headers, *sources]:
        names.update(INCLUDE.findall(path.read_text(encoding='latin-1')))
    return sorted(names)

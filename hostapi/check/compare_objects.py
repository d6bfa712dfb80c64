"""Compares objects compiled against the host's kit with the same against hostapi/."""

import re
import subprocess

import check_interface
import coff

# Notes for debuggers and for the linker; neither is code.
IGNORED = re.compile(r'^\.(debug|llvm|drectve)|^\.voltbl')
# What compilers ask of their run-time libraries, and the heap.
RUN_TIME = re.compile(r'^(__imp_)?(mem|wcs|str|_|\?\?[23]@|\?\?_[UV]@)')
CONSTANT = re.compile(r'^(\?\?_C@|__real@|__xmm@)')
# A name of the host's, without what surrounds it.
HOST = re.compile(r"(?:const )?(?:`[^']*'::)?(?:Ac(?:[A-Z]|ad)|Adesk\b|ac[a-z]{2}[A-Z]|adsw?_)")
HOST_TYPE = re.compile(r"class (?:Ac[A-Z]\w*|Acad\w*) `RTTI|^(?:Ac[A-Z]|Acad)[\w:<>, *]*::`RTTI")


def parts(path):
    return {key: section.content() for key, section in coff.Object(path).sections.items()
            if not IGNORED.match(section.name)}


def same(one, other):
    """True if two objects have the same code and data."""
    return parts(one) == parts(other)


def names(one, other):
    """Gives a line for each name that only one of the objects needs, and if it is the host's."""
    lines = []
    mine, theirs = coff.Object(one).undefined(), coff.Object(other).undefined()
    for name in sorted(mine ^ theirs):
        side = 'hostapi' if name in mine else "the kit's headers"
        plain = name.removeprefix('__imp_')
        matters = bool(check_interface.HOST_NAME.match(plain)) or not RUN_TIME.match(name)
        lines.append((matters, f'needs {name} only with {side}'))
    return lines


def plain_names(symbols, undname):
    """Gives the declared names, without result, class of call and the like."""
    symbols = list(symbols)
    result = subprocess.run([undname, '--no-access-specifier', '--no-calling-convention',
                             '--no-member-type', '--no-return-type', '--no-variable-type'],
                            input='\n'.join(symbols) + '\n', capture_output=True, text=True,
                            check=True)
    blocks = [block.split('\n')[-1] for block in result.stdout.rstrip('\n').split('\n\n')]
    return dict(zip(symbols, blocks if len(blocks) == len(symbols) else symbols))


def is_host(plain):
    return bool(HOST.match(plain) or HOST_TYPE.search(plain))


def functions(mine, theirs, undname):
    """Compares two objects that were compiled without inlining, a section for each function.

    Gives the module's own functions and data that differ, and the host's inline ones.
    """
    one, other = parts(mine), parts(theirs)
    differing = [key for key in {*one, *other} if one.get(key) != other.get(key)]
    declared = plain_names({key[1] for key in differing if key[1]}, undname)
    own, inline = set(), set()
    for key in differing:
        name, symbol, _ = key
        if CONSTANT.match(symbol):
            continue
        plain = declared.get(symbol, '') or f'the section {name}'
        if symbol and is_host(plain):
            inline.add(plain)
        elif key in one:  # what only the kit has is used by none of the functions that are the same
            own.add(plain)
    return sorted(own), sorted(inline)

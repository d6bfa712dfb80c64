"""Breaks copies of the declarations, one at a time, and made-up imports: each has to be told."""

import pathlib
import shutil
import tempfile

import check_interface

# What is broken, in which header, the text, what takes its place, and what has to be told.
BREAKS = [
    ('two functions swapped', 'rxevent.h',
     '  virtual void beginDxfIn(AcDbDatabase*);\n  virtual void abortDxfIn(AcDbDatabase*);\n',
     '  virtual void abortDxfIn(AcDbDatabase*);\n  virtual void beginDxfIn(AcDbDatabase*);\n',
     'AcRxEventReactor, virtual function 13: expected void beginDxfIn(AcDbDatabase *), '
     'found void abortDxfIn(AcDbDatabase *)'),
    ('a type changed', 'acdocman.h',
     'virtual int documentCount() const', 'virtual long documentCount() const',
     'AcApDocManager, virtual function 29: expected int documentCount() const [pure], '
     'found long documentCount() const [pure]'),
    ('a const left out', 'dbapserv.h',
     'virtual AcDbLayoutManager* layoutManager() const', 'virtual AcDbLayoutManager* layoutManager()',
     'AcDbHostApplicationServices, virtual function 66: '
     'expected AcDbLayoutManager *layoutManager() const, found AcDbLayoutManager *layoutManager()'),
    ('a function left out', 'aced.h',
     '  virtual void layoutSwitched(const ACHAR*);\n', '',
     'AcEditorReactor, entries: expected 94, found 93'),
    ('an override left out', 'dbents.h',
     '  bool castShadows() const override;\n', '',
     'AcDbText, replaced function, 7: expected bool castShadows() const, '
     'found bool receiveShadows() const'),
    ('a member moved', 'graph.h',
     '  void* mpData;\n  Adesk::UInt8 mFlags;\n', '  Adesk::UInt8 mFlags;\n  void* mpData;\n',
     'AcDbGraphNode, member, 4: expected at 56: void * mpData, found at 56: Adesk::UInt8 mFlags'),
    ('a template parameter left out', 'acarray.h',
     'template <class T, class R = AcArrayMemCopyReallocator<T>>',
     'template <class T, class R>',
     'error:'),
    ('a header that brings in more', 'acedads.h',
     '#include "adsdef.h"\n', '#include "adsdef.h"\n#include "adscodes.h"\n',
     'acedads.h brings in adscodes.h'),
    ('a header that brings in less', 'adslib.h', '#include "adscodes.h"\n', '',
     "adslib.h doesn't bring in adscodes.h"),
]

# A name's library and spelling that a module could import wrongly.
IMPORTS = [
    ('C linkage', ('acdb17.dll', 'acutDelBuffer'), 'the host has no such name'),
    ('other types', ('acdb17.dll', '?acdbSetDbmod@@YAGPEAVAcDbDatabase@@F@Z'),
     'the host has no such name'),
    ('another library', ('acad.exe', 'acrxSysRegistry'), 'expected from acdb17.dll'),
    ('a library behind the host', ('wbhost.dll', 'acedPrompt'), 'expected from acad.exe'),
    ('a class of the workbench', ('wbcore.dll', '?tell@wb@@YAXXZ'), 'the host has no such name'),
    ('a default body', ('acad.exe', '?OnUpdateMenu@AcEdUIContext@@UEAAXXZ'),
     'expected in the module itself'),
]


def self_test(options, flags, data):
    """Gives 0 if every break was told in the words that it has to be."""
    failed = []
    with tempfile.TemporaryDirectory() as folder:
        for what, header, text, other, told in BREAKS:
            lines = broken(options, flags, data, pathlib.Path(folder, header), text, other)
            if not any(told in line for line in lines):
                failed.append(f'{what}: expected to be told "{told}", was told {lines[:3]}')
    good = [(library, name) for library, names in data.libraries.items() if library != 'static'
            for name in names]
    system = [('KERNEL32.dll', 'CreateFileW'), ('MSVCP140.dll', '?__ExceptionPtrCreate@@YAXPEAX@Z')]
    failed += check_interface.compare_imports(data, good + system, 'a faultless module')
    for what, pair, told in IMPORTS:
        lines = check_interface.compare_imports(data, good + [pair], 'module')
        if len(lines) != 1 or pair[1] not in lines[0] or told not in lines[0]:
            failed.append(f'{what}: expected to be told "{told}", was told {lines}')
    for line in failed:
        print(line)
    if not failed:
        print(f'{len(BREAKS) + len(IMPORTS)} breaks of the interface were told.')
    return 1 if failed else 0


def concerned(data, header, by_inclusion):
    """What a break can touch, so that clang isn't asked for the rest: inclusions, or classes."""
    part = check_interface.Facts()
    part.headers = {name: names if by_inclusion and name == header else None
                    for name, names in data.headers.items()}
    if not by_inclusion:
        part.layouts, part.tables = data.layouts, data.tables
    return part


def broken(options, flags, data, header, text, other):
    """The lines about a copy of the declarations in which `text` is replaced."""
    for source in pathlib.Path(options.headers[0]).glob('*.h'):
        shutil.copy(source, header.parent)
    before = header.read_text(encoding='utf-8')
    if before.count(text) != 1:
        return [f'{header.name} has not one place like {text!r}']
    header.write_text(before.replace(text, other), encoding='utf-8')
    try:
        return check_interface.check_folder(options.compiler, flags, str(header.parent),
                                            concerned(data, header.name, '#include' in text))
    except SystemExit as error:
        return [str(error)]

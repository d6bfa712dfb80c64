"""Reads what compilers and librarians leave: object files and libraries of Windows (COFF)."""

import pathlib
import struct

MACHINES = {0x8664: 'x64', 0x14c: '32 bits (x86)', 0xaa64: 'ARM64', 0x200: 'Itanium'}
UNDEFINED, EXTERNAL, STATIC, WEAK = 0, 2, 3, 105


class Import:
    """A member of an import library: one name of one file."""

    def __init__(self, data):
        self.machine = struct.unpack_from('<H', data, 6)[0]
        self.name, self.file = (part.decode('ascii') for part in data[20:].split(b'\0')[:2])


def members(library):
    """Gives the data of a library's members, without its directories."""
    data = pathlib.Path(library).read_bytes()
    if data[:8] != b'!<arch>\n':
        raise SystemExit(f'{library} is no library.')
    at = 8
    while at + 60 <= len(data):
        name, size = data[at:at + 16].decode('latin-1').rstrip(), int(data[at + 48:at + 58])
        if name not in ('/', '//', '/<ECSYMBOLS>/', '/SYM64/'):
            yield data[at + 60:at + 60 + size]
        at += 60 + size + size % 2


def is_import(data):
    return data[:6] == b'\0\0\xff\xff\0\0'


def machine_of(data):
    """The machine of an object or of an import."""
    return struct.unpack_from('<H', data, 6 if data[:4] == b'\0\0\xff\xff' else 0)[0]


class Section:
    """A part of an object: its bytes and what the linker puts into them."""

    def __init__(self, name, data, key):
        self.name, self.data, self.key = name, data, key
        self.references = []  # (offset, kind, target)

    def content(self):
        return self.data, self.references


class Object:
    """An object file, each section under a key that doesn't depend on the order of sections."""

    def __init__(self, path):
        data = pathlib.Path(path).read_bytes()
        if data[:4] == b'\0\0\xff\xff':  # the form for many sections
            count, symbols_at, symbol_count = struct.unpack_from('<III', data, 44)
            at, self._entry = 56, 20
        else:
            _, count, _, symbols_at, symbol_count, skip = struct.unpack_from('<HHIIIH', data)
            at, self._entry = 20 + skip, 18
        self._data, self._strings = data, symbols_at + symbol_count * self._entry
        headers = [struct.unpack_from('<8sIIIIIIHHI', data, at + 40 * n) for n in range(count)]
        self._read_symbols(symbols_at, symbol_count)
        names = [self._long_name(header[0]) for header in headers]
        keys = self._keys(names)
        self.sections = {}
        for number, header in enumerate(headers):
            size, place = header[3], header[4]
            section = Section(names[number], data[place:place + size] if place else bytes(size),
                              keys[number])
            self._read_references(section, header, keys)
            self.sections[section.key] = section

    def undefined(self):
        """The names that the object needs of others."""
        return {name for name, number, value, kind, _ in self.symbols.values()
                if number == UNDEFINED and value == 0 and kind in (EXTERNAL, WEAK)}

    def _string(self, at):
        start = self._strings + at
        return self._data[start:self._data.index(b'\0', start)].decode('utf-8')

    def _long_name(self, raw):
        text = raw.rstrip(b'\0').decode('ascii')
        return self._string(int(text[1:])) if text[:1] == '/' else text

    def _read_symbols(self, at, count):
        self.symbols, number = {}, 0
        while number < count:
            start = at + number * self._entry
            raw = self._data[start:start + 8]
            name = (self._string(struct.unpack('<I', raw[4:])[0]) if raw[:4] == b'\0\0\0\0'
                    else raw.rstrip(b'\0').decode('utf-8'))
            value, section = struct.unpack_from('<Ii' if self._entry == 20 else '<Ih', self._data,
                                                start + 8)
            kind, more = self._data[start + self._entry - 2], self._data[start + self._entry - 1]
            extra = self._data[start + self._entry:start + self._entry * (1 + more)]
            self.symbols[number] = (name, section, value, kind, extra)
            number += 1 + more

    def _keys(self, names):
        """A name for each section: that of its own symbol, or its place among those of its name."""
        keys, parents, own = {}, {}, {}
        for name, section, value, kind, extra in self.symbols.values():
            if section < 1 or section > len(names):
                continue
            at = section - 1
            if kind == STATIC and extra and value == 0 and name == names[at]:
                selection = extra[14]
                if selection == 5:
                    parents[at] = struct.unpack_from('<H', extra, 12)[0] - 1
                elif selection:
                    own.setdefault(at, None)
            elif at in own and own[at] is None:
                own[at] = name
        seen = {}
        for at, name in enumerate(names):
            of = own.get(at) or own.get(parents.get(at, -1)) or ''
            count = seen[name, of] = seen.get((name, of), -1) + 1
            keys[at] = (name, of, count)
        return keys

    def _read_references(self, section, header, keys):
        at, count, flags = header[5], header[7], header[9]
        if count == 0xffff and flags & 0x01000000:
            count = struct.unpack_from('<I', self._data, at)[0] - 1
            at += 10
        for number in range(count):
            offset, symbol, kind = struct.unpack_from('<IIH', self._data, at + 10 * number)
            name, home, value, storage, _ = self.symbols[symbol]
            # A nameless place in a section of the same object: which one is told by its key.
            local = storage == STATIC and 1 <= home <= len(keys)
            section.references.append(
                (offset, kind, (keys[home - 1], value) if local else name))

#include "LoadRecords.h"

namespace {

constexpr wchar_t autocadKey[] = L"SOFTWARE\\Autodesk\\AutoCAD\\";
constexpr const wchar_t* releases[] = {L"R17.1", L"R17.2"};
// Below a product's key.
constexpr wchar_t listKey[] = L"Applications";
constexpr wchar_t recordKey[] = L"Applications\\TessaroACAD";
constexpr wchar_t description[] = L"Tessaro AutoCAD add-in";
constexpr DWORD onAutoCADStartup = 2;
// Below the key of what is kept, in a key for each product.
constexpr wchar_t productValue[] = L"Product";
constexpr wchar_t oldRecordKey[] = L"Record";

constexpr DWORD keyNameSize = 256;
constexpr REGSAM readAndWrite = KEY_READ | KEY_WRITE;

class Key {
 public:
  enum class If { exists, existsOrNot };

  Key(HKEY parent, const wchar_t* path, REGSAM access, If when = If::exists) {
    opened = when == If::exists
                 ? RegOpenKeyExW(parent, path, 0, access, &key)
                 : RegCreateKeyExW(parent, path, 0, nullptr, 0, access, nullptr, &key, nullptr);
  }
  Key(const Key&) = delete;
  Key& operator=(const Key&) = delete;
  ~Key() {
    if (key) RegCloseKey(key);
  }

  LSTATUS status() const { return opened; }
  HKEY get() const { return key; }

 private:
  HKEY key = nullptr;
  LSTATUS opened;
};

// For what needn't be there.
LSTATUS unlessMissing(LSTATUS status) {
  return status == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : status;
}

// Calls `visit` with each subkey's name, until it fails.
template <typename Visit>
LSTATUS forEachSubkey(HKEY parent, Visit visit) {
  for (DWORD index = 0;; ++index) {
    wchar_t name[keyNameSize];
    DWORD length = keyNameSize;
    LSTATUS status =
        RegEnumKeyExW(parent, index, name, &length, nullptr, nullptr, nullptr, nullptr);
    if (status == ERROR_NO_MORE_ITEMS) return ERROR_SUCCESS;
    if (status == ERROR_SUCCESS) status = visit(name);
    if (status != ERROR_SUCCESS) return status;
  }
}

// ACAD-<product>:<language>; other keys beside these aren't products.
bool isProduct(const wchar_t* name) {
  for (const wchar_t* start = L"ACAD-"; *start; ++start, ++name) {
    if (*name != *start) return false;
  }
  while (*name && *name != L':') ++name;
  return *name != 0;
}

LSTATUS setText(HKEY key, const wchar_t* name, const wchar_t* text) {
  return RegSetValueExW(key, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text),
                        static_cast<DWORD>((lstrlenW(text) + 1) * sizeof(wchar_t)));
}

LSTATUS writeRecord(HKEY product, const wchar_t* file) {
  const Key record(product, recordKey, KEY_WRITE, Key::If::existsOrNot);
  LSTATUS status = record.status();
  if (status == ERROR_SUCCESS) status = setText(record.get(), L"DESCRIPTION", description);
  if (status == ERROR_SUCCESS) status = setText(record.get(), L"LOADER", file);
  if (status == ERROR_SUCCESS) {
    status = RegSetValueExW(record.get(), L"LOADCTRLS", 0, REG_DWORD,
                            reinterpret_cast<const BYTE*>(&onAutoCADStartup), sizeof(DWORD));
  }
  return status;
}

bool loads(HKEY product, const wchar_t* file) {
  wchar_t loader[MAX_PATH];
  DWORD size = sizeof loader;
  return RegGetValueW(product, recordKey, L"LOADER", RRF_RT_REG_SZ, nullptr, loader, &size) ==
             ERROR_SUCCESS &&
         CompareStringOrdinal(loader, -1, file, -1, TRUE) == CSTR_EQUAL;
}

// Deletes the record, and the list if nothing else is in it.
LSTATUS deleteRecord(HKEY product) {
  LSTATUS status = unlessMissing(RegDeleteTreeW(product, recordKey));
  if (status != ERROR_SUCCESS) return status;
  DWORD keys = 0, values = 0;
  {
    const Key list(product, listKey, KEY_READ);
    if (list.status() != ERROR_SUCCESS) return unlessMissing(list.status());
    status = RegQueryInfoKeyW(list.get(), nullptr, nullptr, nullptr, &keys, nullptr, nullptr,
                              &values, nullptr, nullptr, nullptr, nullptr);
  }
  return status == ERROR_SUCCESS && keys + values == 0 ? RegDeleteKeyW(product, listKey) : status;
}

// Copies a key with all that is below it, if it is there.
LSTATUS copyKey(HKEY fromParent, const wchar_t* from, HKEY toParent, const wchar_t* to) {
  const Key source(fromParent, from, KEY_READ);
  if (source.status() != ERROR_SUCCESS) return unlessMissing(source.status());
  const Key target(toParent, to, readAndWrite, Key::If::existsOrNot);
  return target.status() == ERROR_SUCCESS ? RegCopyTreeW(source.get(), nullptr, target.get())
                                          : target.status();
}

LSTATUS restoreProduct(HKEY entry) {
  wchar_t path[keyNameSize * 2];
  DWORD size = sizeof path;
  LSTATUS status = RegGetValueW(entry, nullptr, productValue, RRF_RT_REG_SZ, nullptr, path, &size);
  if (status != ERROR_SUCCESS) return status;
  const Key product(HKEY_LOCAL_MACHINE, path, readAndWrite);
  if (product.status() != ERROR_SUCCESS) return unlessMissing(product.status());
  status = deleteRecord(product.get());
  return status == ERROR_SUCCESS ? copyKey(entry, oldRecordKey, product.get(), recordKey) : status;
}

}  // namespace

LSTATUS LoadRecords::enter(const wchar_t* file) {
  if (!*file) return ERROR_BAD_PATHNAME;
  return changeProducts([&](const wchar_t* path, HKEY product) {
    LSTATUS status = keep(path, product);
    if (status == ERROR_SUCCESS) status = unlessMissing(RegDeleteTreeW(product, recordKey));
    return status == ERROR_SUCCESS ? writeRecord(product, file) : status;
  });
}

LSTATUS LoadRecords::remove(const wchar_t* file) {
  return changeProducts([&](const wchar_t* path, HKEY product) {
    if (!loads(product, file)) return static_cast<LSTATUS>(ERROR_SUCCESS);
    const LSTATUS status = keep(path, product);
    return status == ERROR_SUCCESS ? deleteRecord(product) : status;
  });
}

LSTATUS LoadRecords::restore() {
  {
    const Key all(HKEY_LOCAL_MACHINE, kept.text(), KEY_READ);
    if (all.status() != ERROR_SUCCESS) return unlessMissing(all.status());
    const LSTATUS status = forEachSubkey(all.get(), [&](const wchar_t* name) {
      const Key entry(all.get(), name, KEY_READ);
      ++count;
      return entry.status() == ERROR_SUCCESS ? restoreProduct(entry.get()) : entry.status();
    });
    if (status != ERROR_SUCCESS) return status;
  }
  return forget();
}

LSTATUS LoadRecords::forget() {
  return unlessMissing(RegDeleteTreeW(HKEY_LOCAL_MACHINE, kept.text()));
}

LSTATUS LoadRecords::keep(const wchar_t* path, HKEY product) {
  const Text place(kept.text(), L"\\", count++);
  const Key entry(HKEY_LOCAL_MACHINE, place.text(), readAndWrite, Key::If::existsOrNot);
  if (entry.status() != ERROR_SUCCESS) return entry.status();
  const LSTATUS status = copyKey(product, recordKey, entry.get(), oldRecordKey);
  return status == ERROR_SUCCESS ? setText(entry.get(), productValue, path) : status;
}

template <typename Change>
LSTATUS LoadRecords::changeProducts(Change change) {
  // An installation that was cut off may have left something.
  LSTATUS status = forget();
  for (const wchar_t* release : releases) {
    if (status != ERROR_SUCCESS) return status;
    const Text path(autocadKey, release);
    const Key products(HKEY_LOCAL_MACHINE, path.text(), KEY_READ);
    status = products.status() != ERROR_SUCCESS
                 ? unlessMissing(products.status())
                 : forEachSubkey(products.get(), [&](const wchar_t* name) {
                     if (!isProduct(name)) return static_cast<LSTATUS>(ERROR_SUCCESS);
                     const Text productPath(path.text(), L"\\", name);
                     const Key product(HKEY_LOCAL_MACHINE, productPath.text(), readAndWrite);
                     return product.status() == ERROR_SUCCESS
                                ? change(productPath.text(), product.get())
                                : product.status();
                   });
  }
  return status;
}

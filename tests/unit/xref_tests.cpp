#include <gtest/gtest.h>

#include <windows.h>

#include "shared/Support.h"
#include "unit/FakeObject.h"
#include "vault/VaultView.h"
#include "xref/ModifiedDates.h"
#include "xref/XrefList.h"
#include "xref/XrefPaths.h"

namespace tessaro {

namespace {

AcApDocument* document(int number) {
  static char keys[4];
  return reinterpret_cast<AcApDocument*>(&keys[number]);
}

struct RelativeCase {
  const wchar_t* stored;
  const wchar_t* drawingFolder;
  const wchar_t* expected;  // null: outside
};

TEST(XrefPaths, NamesAFileRelativeToTheRootOfTheView) {
  const RelativeCase cases[] = {
      {L"Grid.dwg", L"C:\\View\\Site\\", L"\\Site\\Grid.dwg"},
      {L"..\\Other\\Part.dwg", L"C:\\View\\Site\\", L"\\Other\\Part.dwg"},
      {L"..\\Other\\Part.dwg", L"C:\\View\\", nullptr},
      {L"..\\View\\Part.dwg", L"C:\\View\\", L"\\Part.dwg"},
      {L".\\Part.dwg", L"C:\\View\\", L"\\Part.dwg"},
      {L"c:\\view\\Part.dwg", L"C:\\View\\", L"\\Part.dwg"},
      {L"D:\\View\\Part.dwg", L"C:\\View\\", nullptr},
      {L"C:\\Viewer\\Part.dwg", L"C:\\View\\", nullptr},
      {L"\\\\server\\share\\Part.dwg", L"C:\\View\\", nullptr},
      {L"O'Neil drain 5%.dwg", L"C:\\View\\", L"\\O'Neil drain 5%.dwg"},
      {L"Gr\u00fcn\\\u6c34.dwg", L"C:\\View\\", L"\\Gr\u00fcn\\\u6c34.dwg"},
  };
  for (const RelativeCase& each : cases) {
    CString relative = L"untouched";
    const bool inside = relativeToRoot(each.stored, each.drawingFolder, L"C:\\View", relative);
    EXPECT_EQ(inside, each.expected != nullptr) << each.stored;
    if (each.expected) EXPECT_EQ(relative, each.expected);
  }
}

TEST(XrefPaths, TakesViewsOnSharesAndWholeDrives) {
  CString relative;
  ASSERT_TRUE(relativeToRoot(L"Sub\\Part.dwg", L"\\\\server\\share\\View\\",
                             L"\\\\server\\share\\View", relative));
  EXPECT_EQ(relative, L"\\Sub\\Part.dwg");
  CString full;
  ASSERT_TRUE(joinPath(L"\\\\server\\share\\View", relative, full));
  EXPECT_EQ(full, L"\\\\server\\share\\View\\Sub\\Part.dwg");
}

TEST(XrefPaths, RefusesPathsThatDontFit) {
  const CString folder = L"C:\\View\\";
  for (const size_t length : {240u, 251u, 252u, 300u, 40000u}) {
    const CString name(length, L'x');
    const bool fits = folder.size() + length < MAX_PATH;
    CString relative, absolute = name, base = folder;
    EXPECT_EQ(relativeToRoot(name, folder, L"C:\\View", relative), fits) << length;
    EXPECT_EQ(makeAbsolute(absolute, &base), fits) << length;
    EXPECT_EQ(absolute, fits ? folder + name : name) << length;
    relativeToRoot(folder + name, folder, L"C:\\View", relative);
  }
}

TEST(XrefPaths, MakesStoredPathsAbsolute) {
  CString base = L"C:\\View\\Site\\";
  CString path = L"..\\Xrefs\\Grid.dwg";
  EXPECT_TRUE(makeAbsolute(path, &base));
  EXPECT_EQ(path, L"C:\\View\\Xrefs\\Grid.dwg");
  path = L"D:\\Elsewhere\\Grid.dwg";
  EXPECT_TRUE(makeAbsolute(path, &base));
  EXPECT_EQ(path, L"D:\\Elsewhere\\Grid.dwg");
  path.clear();
  EXPECT_FALSE(makeAbsolute(path, &base));
}

TEST(XrefList, GoesOnBehindARemovedRow) {
  XrefList list;
  list.add(L"C:\\A", L"oldest", document(0));
  list.add(L"C:\\B", L"other", document(1));
  list.add(L"C:\\C", L"middle", document(0));
  list.add(L"C:\\D", L"newest", document(0));
  std::vector<CString> met;
  for (bool found = list.findFirstOfDocument(document(0)); found; found = list.findNext()) {
    met.push_back(list.currentName());
    if (met.back() != L"middle") list.removeCurrent();
  }
  EXPECT_EQ(met, (std::vector<CString>{L"newest", L"middle", L"oldest"}));
  EXPECT_FALSE(list.findNext());
  ASSERT_TRUE(list.findFirstOfDocument(document(0)));
  EXPECT_EQ(list.currentName(), L"middle");
  EXPECT_FALSE(list.findNext());
  ASSERT_TRUE(list.findFirstOfPath(L"c:\\b"));
  list.removeCurrent();
  EXPECT_EQ(list.currentPath(), L"C:\\C");
  EXPECT_FALSE(list.findFirstOfDocument(document(1)));
  EXPECT_TRUE(list.currentName().empty());
}

/// Two result sets; the way from the first to the second takes as many calls as `answers` has.
class FakeRows : public FakeObject<VaultRowList> {
 public:
  STDMETHODIMP fetchRow(VARIANT_BOOL* hasRow) override {
    ++fetches;
    if (!onSecond) return S_FALSE;
    *hasRow = row++ == 0 ? VARIANT_TRUE : VARIANT_FALSE;
    return S_OK;
  }
  STDMETHODIMP nextResult(VARIANT_BOOL* more) override {
    *more = answers.at(asked++);
    onSecond = asked == answers.size();
    return S_OK;
  }
  STDMETHODIMP textAt(long column, BSTR* out) override {
    *out = SysAllocString(column == 1 ? L"a.dwg" : L"\\sub\\");
    return S_OK;
  }
  STDMETHODIMP dateAt(long, DATE* out) override {
    *out = 39901.5;
    return S_OK;
  }
  STDMETHODIMP flagAt(long, VARIANT_BOOL* out) override {
    *out = 1;  // neither
    return S_OK;
  }

  static inline std::vector<VARIANT_BOOL> answers;
  static inline size_t asked = 0;
  static inline int fetches = 0;

 private:
  bool onSecond = false;
  int row = 0;
};

class FakeQuery : public FakeDual<VaultQuery> {
 public:
  STDMETHODIMP execute(BSTR, IUnknown** out) override {
    *out = new FakeRows;
    (*out)->AddRef();
    return S_OK;
  }
};

TEST(ModifiedDates, AsksOnUntilTheNextResultIsAnsweredYesOrNo) {
  const struct {
    std::vector<VARIANT_BOOL> answers;
    int fetches;
    bool found;
  } cases[] = {
      {{VARIANT_TRUE}, 3, true},
      {{1, 2, VARIANT_TRUE}, 3, true},
      {{1, VARIANT_FALSE}, 1, false},
      {{VARIANT_FALSE}, 1, false},
  };
  VaultViewRecord view;
  view.query = new FakeQuery;
  for (const auto& each : cases) {
    FakeRows::answers = each.answers;
    FakeRows::asked = 0;
    FakeRows::fetches = 0;
    XrefFileMap files;
    files[L"\\SUB\\A.DWG"];
    readModifiedDates(view, L"", files);
    EXPECT_EQ(FakeRows::asked, each.answers.size());
    EXPECT_EQ(FakeRows::fetches, each.fetches);
    ASSERT_EQ(files.size(), 1u) << "found without regard to case";
    EXPECT_EQ(files.begin()->second.inVault, each.found);
    EXPECT_FALSE(files.begin()->second.exempt);
    EXPECT_EQ(files.begin()->second.vaultDate.dwHighDateTime != 0, each.found);
    EXPECT_EQ(FakeRows::alive, 0);
  }
}

struct FileOnDisk {
  FileOnDisk() { write(path, "x"); }

  void writeTime(const SYSTEMTIME& time) const {
    FILETIME fileTime;
    ASSERT_TRUE(SystemTimeToFileTime(&time, &fileTime));
    HANDLE file =
        CreateFileW(path.c_str(), FILE_WRITE_ATTRIBUTES, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_TRUE(SetFileTime(file, nullptr, nullptr, &fileTime));
    CloseHandle(file);
  }

  const fs::path path = emptyTestFolder(L"dates") / L"date.dwg";
};

FileAge ageAgainst(const FileOnDisk& file, WORD vaultSecond, bool inVault = true,
                   bool exempt = false) {
  const SYSTEMTIME time = {2009, 3, 0, 29, 10, 0, vaultSecond, 0};
  XrefFileRecord record;
  SystemTimeToFileTime(&time, &record.vaultDate);
  record.inVault = inVault;
  record.exempt = exempt;
  record.fullPath = file.path.wstring();
  return isOutOfDate(record);
}

TEST(ModifiedDates, ComparesAtTheGrainOfTwoSeconds) {
  const FileOnDisk file;
  file.writeTime({2009, 3, 0, 29, 10, 0, 3, 400});
  EXPECT_EQ(ageAgainst(file, 2), FileAge::current);
  EXPECT_EQ(ageAgainst(file, 3), FileAge::outOfDate);
  EXPECT_EQ(ageAgainst(file, 4), FileAge::outOfDate);
  EXPECT_EQ(ageAgainst(file, 0), FileAge::outOfDate);
  EXPECT_EQ(ageAgainst(file, 0, false), FileAge::current);
  EXPECT_EQ(ageAgainst(file, 0, true, true), FileAge::current);
}

TEST(ModifiedDates, KnowsNoTimeZone) {
  const FileOnDisk file;
  XrefFileRecord record;
  record.inVault = true;
  record.fullPath = file.path.wstring();
  // The days on which Europe turns its clocks, around the hour that is left out or comes twice.
  for (const auto& [month, day] : {std::pair<WORD, WORD>(3, 29), {10, 25}}) {
    for (WORD hour = 0; hour < 4; ++hour) {
      const SYSTEMTIME time = {2009, month, 0, day, hour, 30, 0, 0};
      file.writeTime(time);
      SystemTimeToFileTime(&time, &record.vaultDate);
      EXPECT_EQ(isOutOfDate(record), FileAge::current) << month << " " << hour;
    }
  }
}

TEST(ModifiedDates, AFileThatCantBeOpenedIsUnreadable) {
  const FileOnDisk file;
  const HeldOpen locked(file.path, GENERIC_READ, 0);
  EXPECT_EQ(ageAgainst(file, 0, false), FileAge::unreadable);
  EXPECT_EQ(isOutOfDate(XrefFileRecord()), FileAge::unreadable);
}

}  // namespace

}  // namespace tessaro

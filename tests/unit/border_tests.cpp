#include <gtest/gtest.h>

#include <comdef.h>

#include <limits>
#include <new>
#include <stdexcept>
#include <vector>

#include "core/SessionState.h"
#include "editor/DocumentManager.h"
#include "foundation/AppContext.h"
#include "foundation/Border.h"
#include "foundation/LaterCalls.h"
#include "foundation/SimpleDialog.h"
#include "tracking/DocManagerReactor.h"
#include "tracking/DocumentEvents.h"
#include "tracking/EditorReactor.h"
#include "ui/resource.h"
#include "unit/BoxWatch.h"
#include "vault/ErrorReport.h"
#include "vault/ResultCodes.h"
#include "watch/ImportWatch.h"
#include "xref/CheckXrefs.h"

namespace tessaro {

namespace {

using Texts = std::vector<std::wstring>;

/// Puts functions of the test's own in the place of what the test program imports.
class Observed {
 public:
  explicit Observed(const std::vector<wb::WatchedCall>& calls) {
    wb::observeImports(GetModuleHandleW(nullptr), calls);
  }
  Observed(const Observed&) = delete;
  Observed& operator=(const Observed&) = delete;
  ~Observed() { wb::unwatchImports(GetModuleHandleW(nullptr)); }

 private:
  wb::SessionState state;
};

BSTR WINAPI noText(const OLECHAR*) { return nullptr; }
BSTR WINAPI noTextOfLength(const OLECHAR*, UINT) { return nullptr; }
BSTR WINAPI noTextOfBytes(LPCSTR, UINT) { return nullptr; }

/// There is no memory for a COM string.
class NoTexts : Observed {
 public:
  NoTexts()
      : Observed(
            {{"SysAllocString", wb::observerOf(noText, SysAllocString)},
             {"SysAllocStringLen", wb::observerOf(noTextOfLength, SysAllocStringLen)},
             {"SysAllocStringByteLen", wb::observerOf(noTextOfBytes, SysAllocStringByteLen)}}) {}
};

DWORD askedLanguage = 0, askedFlags = 0;

DWORD WINAPI noMessage(DWORD flags, LPCVOID, DWORD, DWORD language, LPWSTR, DWORD, va_list*) {
  askedFlags = flags;
  askedLanguage = language;
  return 0;
}

HRESULT codeOf(const std::function<void()>& work) {
  try {
    work();
  } catch (const _com_error& error) {
    return error.Error();
  }
  return S_OK;
}

void askForTooMuch() {
  std::vector<char> memory;
  memory.reserve(static_cast<size_t>(std::numeric_limits<ptrdiff_t>::max()) / 2);
}

std::wstring windowsWords(HRESULT code) { return textOf(systemMessage(code)); }

/// The test program has no resources: a dialog without anything in it.
INT_PTR WINAPI emptyDialog(HINSTANCE instance, LPCWSTR, HWND owner, DLGPROC procedure,
                           LPARAM argument) {
  struct {
    DLGTEMPLATE dialog;
    WORD menuClassAndTitle[3];
  } const empty = {{WS_POPUP, 0, 0, 0, 0, 10, 10}, {}};
  return DialogBoxIndirectParamW(instance, &empty.dialog, owner, procedure, argument);
}

INT_PTR WINAPI noDialog(HINSTANCE, LPCWSTR, HWND, DLGPROC, LPARAM) {
  SetLastError(ERROR_NOT_ENOUGH_MEMORY);
  return -1;
}

class FailingEvents final : public DocumentEvents {
 public:
  void documentToBeDestroyed(AcApDocument*) override { throw std::bad_alloc(); }
  void documentDestroyed(const ACHAR*) override { throw std::bad_alloc(); }
  void documentActivated(AcApDocument*) override { throw std::bad_alloc(); }
  void editGuardCheck(AcApDocument*) override { throw std::bad_alloc(); }
  void saveBegins(AcDbDatabase*) override { throw std::bad_alloc(); }
  void saved(AcDbDatabase*, const ACHAR*) override { throw std::bad_alloc(); }
  void editorNotice() override { throw std::bad_alloc(); }
};

class FailingDialog : public CSimpleDialog<IDD_RUNMENUCMD, false> {
 protected:
  void onInit() override { askForTooMuch(); }
};

}  // namespace

TEST(Memory, ThatCannotBeHadIsKnownToEveryHandler) {
  EXPECT_EQ(codeOf(askForTooMuch), E_OUTOFMEMORY);
  EXPECT_THROW(askForTooMuch(), std::bad_alloc);
}

TEST(Border, LetsNothingThroughAndTellsWhatItWas) {
  BoxWatch boxes;
  atBorder([] { _com_issue_error(E_ACCESSDENIED); });
  EXPECT_EQ(atBorder(7,
                     []() -> int {
                       askForTooMuch();
                       return 1;
                     }),
            7);
  EXPECT_EQ(atBorder(7, []() -> int { throw std::runtime_error("what"); }), 7);
  EXPECT_EQ(atBorder(7, [] { return 1; }), 1);
  EXPECT_EQ(BoxWatch::texts, (Texts{windowsWords(E_ACCESSDENIED), windowsWords(E_OUTOFMEMORY),
                                    windowsWords(E_UNEXPECTED)}));
}

TEST(Border, WhereErrorsMayPassTheyAreComErrors) {
  EXPECT_EQ(codeOf([] { asComErrors([] { _com_issue_error(E_ACCESSDENIED); }); }), E_ACCESSDENIED);
  EXPECT_EQ(codeOf([] { asComErrors([] { throw std::bad_alloc(); }); }), E_OUTOFMEMORY);
  EXPECT_EQ(codeOf([] { asComErrors([] { throw std::runtime_error("what"); }); }), E_UNEXPECTED);
  EXPECT_NO_THROW(asComErrors([] {}));
  // What the module's own operator new raises is of a class that nobody else knows.
  try {
    asComErrors(askForTooMuch);
  } catch (const std::bad_alloc&) {
    ADD_FAILURE() << "more than a _com_error";
  } catch (const _com_error& error) {
    EXPECT_EQ(error.Error(), E_OUTOFMEMORY);
  }
}

TEST(Border, OfAnEventIsPassedByTheGuardsErrorsAlone) {
  FailingEvents events;
  DocManagerReactor documents(events);
  EditorReactor editor(events);
  BoxWatch boxes;
  documents.documentToBeDestroyed(nullptr);
  documents.documentDestroyed(nullptr);
  documents.documentActivated(nullptr);
  editor.saveComplete(nullptr, nullptr);
  editor.editorNotice();
  EXPECT_EQ(BoxWatch::texts, Texts(5, windowsWords(E_OUTOFMEMORY)));
  EXPECT_EQ(codeOf([&] { documents.editGuardCheck(nullptr); }), E_OUTOFMEMORY);
  EXPECT_EQ(codeOf([&] { editor.beginSave(nullptr, nullptr); }), E_OUTOFMEMORY);
  EXPECT_EQ(BoxWatch::texts.size(), 5u);
}

TEST(Border, OfADialogHandsTheErrorOnBehindIt) {
  {
    const Observed observed({{"DialogBoxParamW", wb::observerOf(emptyDialog, DialogBoxParamW)}});
    EXPECT_EQ(codeOf([] { FailingDialog().doModal(nullptr); }), E_OUTOFMEMORY);
  }
  const Observed observed({{"DialogBoxParamW", wb::observerOf(noDialog, DialogBoxParamW)}});
  EXPECT_EQ(codeOf([] { FailingDialog().doModal(nullptr); }),
            HRESULT_FROM_WIN32(ERROR_NOT_ENOUGH_MEMORY));
}

TEST(Failures, WithoutMemoryForTheirWordsRaiseThat) {
  AppContext app;
  const _com_error denied(E_ACCESSDENIED);
  BoxWatch boxes;
  {
    const NoTexts none;
    EXPECT_EQ(codeOf([&] { reportComErrorClient(app, nullptr, denied, L"Context"); }),
              E_OUTOFMEMORY);
    EXPECT_EQ(codeOf([&] { reportComError(app, nullptr, denied, L"Context"); }), E_OUTOFMEMORY);
  }
  EXPECT_EQ(BoxWatch::texts, Texts());
  EXPECT_EQ(reportComError(app, nullptr, denied, L"Context"), E_ACCESSDENIED);
  EXPECT_EQ(BoxWatch::texts, Texts{L"Context\n" + windowsWords(E_ACCESSDENIED)});
}

TEST(Failures, AreInTheUsersLanguage) {
  const Observed observed({{"FormatMessageW", wb::observerOf(noMessage, FormatMessageW)}});
  BoxWatch boxes;
  constexpr DWORD usersLanguage = MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT);
  systemMessage(E_ACCESSDENIED);
  EXPECT_EQ(askedLanguage, usersLanguage);
  askedLanguage = 0;
  plainFailureBox(nullptr, static_cast<HRESULT>(0x80041234));
  EXPECT_EQ(askedLanguage, usersLanguage);
  EXPECT_NE(askedFlags & FORMAT_MESSAGE_IGNORE_INSERTS, 0u);
  EXPECT_EQ(BoxWatch::texts, Texts{L"Unknown error 0x80041234"});
}

/// The host calls later what is handed to it while a document's command runs.
class Later : public testing::Test {
 protected:
  ~Later() override { setCurrentApp(before); }

  static wb::DocumentManager& documents() {
    return static_cast<wb::DocumentManager&>(*acDocManagerPtr());
  }
  void handOver(int number) {
    int unused = 0;
    const wb::DocumentManager::ContextScope command(documents(),
                                                    reinterpret_cast<wb::Document*>(&unused));
    app.laterCalls.inApplicationContext([this, number] { called.push_back(number); });
  }

  wb::SessionState state;
  AppContext* const before = currentApp();
  AppContext app;
  std::vector<int> called;
};

TEST_F(Later, EachCallIsMadeOnceAndInItsOrder) {
  setCurrentApp(&app);
  handOver(1);
  handOver(2);
  EXPECT_TRUE(called.empty());
  documents().runDeferred();
  documents().runDeferred();
  EXPECT_EQ(called, (std::vector<int>{1, 2}));
}

}  // namespace tessaro

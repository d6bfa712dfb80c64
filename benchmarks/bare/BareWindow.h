#pragma once

#include <windows.h>

#include <set>

class AcApDocument;
class AcDbDatabase;

namespace bare {

/// The status window by the plainest calls that show the same.
class StatusWindow {
 public:
  StatusWindow(HINSTANCE instance, HWND owner);
  StatusWindow(const StatusWindow&) = delete;
  StatusWindow& operator=(const StatusWindow&) = delete;
  ~StatusWindow();

  void documentActivated(AcApDocument* document);
  void documentDestroyed(AcApDocument* document);
  void documentSaved(AcDbDatabase* database, const wchar_t* path);

 private:
  void refresh();
  void query(const wchar_t* path);
  void show(bool disabled) const;
  void showXrefs(UINT check, bool enabled);

  HWND window = nullptr;
  HBITMAP bitmap = nullptr;
  DWORD minutes = 0;
  bool xrefsEnabled = false;
  UINT lockBox = BST_UNCHECKED;
  long localVersion = 0;
  long latestVersion = 0;
  std::set<AcApDocument*> known;
};

/// Releases the client's text service.
void releaseTexts();

}  // namespace bare

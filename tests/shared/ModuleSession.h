#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "core/Transcript.h"
#include "scripting/Session.h"
#include "shared/Support.h"
#include "store/Store.h"

/// How the line of a box of the module's begins: one that informs, one that asks.
inline std::wstring informationBox(const std::wstring& text) {
  return L"box: flags=MB_OK|MB_ICONINFORMATION title=\"Tessaro\" text=\"" + text;
}
inline std::wstring questionBox(const std::wstring& text) {
  return L"box: flags=MB_YESNO|MB_ICONQUESTION title=\"Tessaro\" text=\"" + text;
}

/// A session with the real module and the real client, and a vault "Works" whose view
/// %WORK%\View holds the drawing Plan.dxf. %DRAWINGS% are the project's own sample drawings.
class ModuleSession : public testing::Test {
 public:
  static wb::SessionOptions options();
  /// A file of the project below its folder `workbench`.
  static std::wstring workbenchFile(const std::wstring& relative);
  /// The module's status window, in whatever language; null if there is none.
  static HWND statusWindow();

 protected:
  ModuleSession();
  /// Ends the session: whatever the module left behind then fails the test.
  void TearDown() override;

  /// Runs a script that has to succeed; the lines told since the mark are shown if it doesn't.
  void run(const std::string& script);

  /// Adds Site.dxf to the view, with the xref Part, and Other.dxf without one.
  void addSite();
  /// Loads the module, opens Plan.dxf out of the view and marks.
  void openPlan();

  /// From here on expectOrder, count and recent look.
  void mark();
  /// Marks and runs.
  void step(const std::string& script);
  /// The lines that hold these texts were told since the mark, in this order, others in between.
  void expectOrder(const std::vector<std::wstring>& texts) const;
  /// How many lines told since the mark hold the text.
  int count(std::wstring_view text) const;
  /// The same among the notes and the lines since the mark.
  void expectDetails(const std::vector<std::wstring>& texts) const;
  /// The lines told since the mark.
  std::vector<std::wstring> lines() const;
  /// The same as one text, in UTF-8.
  std::string recent() const;

  struct Xref {
    std::wstring name;  ///< of the block
    std::wstring path;  ///< as the drawing keeps it; empty for an ordinary block
  };
  /// Writes a small drawing of the DXF kind into the work folder: a line, and a block with one
  /// insert for each xref.
  /// @param file relative to the work folder.
  /// @return its path.
  static std::filesystem::path writeDrawing(const std::wstring& file,
                                            const std::vector<Xref>& xrefs = {});

  /// What the store knows of a file of the view, which has to be in the vault.
  static const wb::StoredFile& stored(const std::wstring& file = L"Plan.dxf");

  static std::filesystem::path workFolder();
  static std::filesystem::path viewFolder();
  /// Takes the protection off a file of the view.
  static void makeWritable(const std::wstring& file);
  /// Where the programs and libraries under test lie.
  static std::filesystem::path binFolder();

  /// The notes and lines since the mark, each with the levels of COM that the module had then.
  std::vector<wb::Transcript::Detail> details() const;

  wb::Session session;

 private:
  void checkWhatHoldsEverywhere() const;

  size_t start = 0;
  size_t detailStart = 0;
};

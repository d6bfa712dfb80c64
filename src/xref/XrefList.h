#pragma once

#include "foundation/CString.h"

class AcApDocument;

namespace tessaro {

/// The xrefs that are open for editing, each with the drawing that it was opened from. A doubly
/// linked list, newest row first, with one search: findNext continues behind the row that was found
/// last, even if that row has been removed.
class XrefList {
 public:
  XrefList() = default;
  XrefList(const XrefList&) = delete;
  XrefList& operator=(const XrefList&) = delete;
  virtual ~XrefList();

  /// Adds a row at the head.
  /// @param path the full path of the xref's file, in upper case
  /// @param name the block name of the xref in `document`
  /// @param document the drawing in which the xref was unloaded for editing
  void add(const CString& path, const CString& name, AcApDocument* document);

  /// Starts a search at the head for the rows of a document.
  /// @return whether a row was found
  bool findFirstOfDocument(AcApDocument* document);

  /// Starts a search at the head for the rows of a path, ignoring case.
  /// @return whether a row was found
  bool findFirstOfPath(const CString& path);

  /// Continues the search behind the cursor.
  /// @return whether a row was found; if not, the search has ended
  bool findNext();

  /// @return the path of the row at the cursor, empty without a cursor
  const CString& currentPath() const;

  /// @return the block name of the row at the cursor, empty without a cursor
  const CString& currentName() const;

  /// Removes the row at the cursor without allocating memory. The cursor moves to the row before
  /// it, so that findNext continues with the removed row's successor.
  /// @return the block name of the removed row
  CString removeCurrent();

 private:
  enum class SearchMode { none, byPath, byDocument };

  struct Row {
    Row* previous;
    Row* next;
    CString path;
    CString name;
    AcApDocument* document;
  };

  bool findFirst(SearchMode mode);
  bool matches(const Row& row) const;

  const CString none;
  SearchMode searchMode = SearchMode::none;
  CString searchPath;
  AcApDocument* searchDocument = nullptr;
  Row* head = nullptr;
  Row* cursor = nullptr;
};

}  // namespace tessaro

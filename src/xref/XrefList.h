#pragma once

#include "foundation/CString.h"

class AcApDocument;

namespace tessaro {

/// The xrefs that are open for editing, each with the drawing that it was opened from. A doubly
/// linked list, newest row first, with a search cursor built in: a search names its key once, and
/// findNext goes on from the row that was found last, also after that row has been removed.
class XrefList {
 public:
  XrefList() = default;
  XrefList(const XrefList&) = delete;
  XrefList& operator=(const XrefList&) = delete;
  virtual ~XrefList();

  /// Puts a row at the head.
  /// @param path full path of the xref's file, in upper case.
  /// @param name block name of the xref in `document`.
  /// @param document the drawing in which the xref was unloaded for editing.
  void add(const CString& path, const CString& name, AcApDocument* document);

  /// Starts a search from the head for the rows of a document; true if there is one.
  bool findFirstOfDocument(AcApDocument* document);

  /// Starts a search from the head for the rows of a path, ignoring case.
  bool findFirstOfPath(const CString& path);

  /// Goes on with the search behind the cursor. False, and the search is over, at the list's end.
  bool findNext();

  /// The cursor row's field, or an empty string without a cursor.
  const CString& currentPath() const;
  const CString& currentName() const;

  /// Takes the cursor row out, which needs no memory, and gives the block name that it had. The
  /// cursor goes to the row before it, so that findNext meets the removed row's successor.
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

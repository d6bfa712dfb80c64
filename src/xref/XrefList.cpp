#include "xref/XrefList.h"

#include <windows.h>

#include <utility>

namespace tessaro {

XrefList::~XrefList() {
  while (head) {
    Row* row = head;
    head = row->next;
    delete row;
  }
}

void XrefList::add(const CString& path, const CString& name, AcApDocument* document) {
  Row* row = new Row{nullptr, head, path, name, document};
  if (head) head->previous = row;
  head = row;
}

bool XrefList::findFirstOfDocument(AcApDocument* document) {
  searchDocument = document;
  return findFirst(SearchMode::byDocument);
}

bool XrefList::findFirstOfPath(const CString& path) {
  searchPath = path;
  return findFirst(SearchMode::byPath);
}

bool XrefList::findFirst(SearchMode mode) {
  cursor = nullptr;
  searchMode = mode;
  return findNext();
}

bool XrefList::findNext() {
  if (searchMode == SearchMode::none) return false;
  for (Row* row = cursor ? cursor->next : head; row; row = row->next) {
    if (matches(*row)) {
      cursor = row;
      return true;
    }
  }
  searchMode = SearchMode::none;
  return false;
}

bool XrefList::matches(const Row& row) const {
  if (searchMode == SearchMode::byDocument) return row.document == searchDocument;
  return lstrcmpiW(row.path.c_str(), searchPath.c_str()) == 0;
}

const CString& XrefList::currentPath() const { return cursor ? cursor->path : none; }

const CString& XrefList::currentName() const { return cursor ? cursor->name : none; }

CString XrefList::removeCurrent() {
  if (!cursor) return {};
  Row* row = cursor;
  cursor = row->previous;
  if (row->previous) {
    row->previous->next = row->next;
  } else {
    head = row->next;
  }
  if (row->next) row->next->previous = row->previous;
  CString name = std::move(row->name);
  delete row;
  return name;
}

}  // namespace tessaro

#pragma once

#include <windows.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "notserved/Classes.h"

namespace wb {

class Drawing;

/// Keeps a drawing's file open for writing, so that nobody else writes it; others may read.
class FileHold {
 public:
  FileHold() = default;
  FileHold(const FileHold&) = delete;
  FileHold& operator=(const FileHold&) = delete;
  ~FileHold() { release(); }

  /// False if the file is write-protected or somebody else holds it.
  bool take(const std::wstring& path);
  void release();
  bool held() const { return file != INVALID_HANDLE_VALUE; }

 private:
  HANDLE file = INVALID_HANDLE_VALUE;
};

/// An open drawing. After its closing it stays in memory as a tombstone: an application that still
/// uses it is told as an `error` instead of taking the process down.
class Document : public NotServedAcApDocument {
 public:
  Document(std::wstring path, bool readOnly);
  ~Document() override;

  const ACHAR* fileName() const override;
  AcDbDatabase* database() const override;
  bool isReadOnly() const override;
  AcAp::DocLockMode lockMode(bool includeMine = false) const override;
  /// Whether somebody holds a lock under which the drawing may be changed.
  bool isWriteLocked() const;

  /// The same without the check for a late use; `path` is empty for a drawing never saved.
  const std::wstring& path() const { return path_; }
  /// The path, or the caption of a drawing never saved.
  std::wstring title() const;
  Drawing* drawing() const { return drawing_.get(); }
  AcDbDatabase* databaseOf() const;
  bool readOnly() const { return readOnly_; }
  bool gone() const { return gone_; }
  bool closing() const { return closing_; }

 private:
  friend class DocumentManager;
  void checkAlive(const wchar_t* operation) const;

  std::wstring path_;
  std::wstring caption_;
  std::unique_ptr<Drawing> drawing_;
  FileHold hold_;
  bool readOnly_ = false;
  bool closing_ = false;
  bool gone_ = false;
  std::vector<AcAp::DocLockMode> locks_;
};

}  // namespace wb

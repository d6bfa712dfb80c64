#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "database/File.h"
#include "dxf/Block.h"
#include "dxf/Source.h"

namespace wb {

/// The file of a loaded xref. It is held open, so that nobody replaces it under the drawing.
class XrefFile {
 public:
  /// Finds the file and reads which attached xrefs it names itself. The stored path counts from
  /// `folder`, that of the drawing that names it; a file that isn't there is looked for under its
  /// bare name there and in `mainFolder`.
  /// @throws HostError if it can't be read
  void open(const std::wstring& storedPath, const std::filesystem::path& folder,
            const std::filesystem::path& mainFolder);
  void close() { file.reset(); }

  const std::filesystem::path& path() const { return path_; }
  const std::vector<DxfBlock>& attached() const { return attached_; }
  /// What was read of it, which stays when the file is closed; null if it couldn't be read.
  const DxfContent* content() const { return content_.get(); }

 private:
  void read();

  std::filesystem::path path_;
  OpenFile file;
  std::vector<DxfBlock> attached_;
  std::unique_ptr<const DxfContent> content_;
};

}  // namespace wb

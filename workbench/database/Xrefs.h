#pragma once

#include <filesystem>
#include <memory>
#include <string_view>
#include <vector>

#include "database/File.h"
#include "dxf/File.h"

class AcDbXrefGraph;

namespace wb {

struct BlockRecordImp;
class Drawing;

/// The drawing's xrefs, nested ones with them. A nested xref has its plain block name, as in
/// the host; of two with the same name the first one stands for both.
class Xrefs {
 public:
  explicit Xrefs(Drawing& drawing) : drawing(drawing) {}
  Xrefs(const Xrefs&) = delete;
  Xrefs& operator=(const Xrefs&) = delete;

  /// Reads the files of all xrefs; those that can't be read stay, unresolved.
  void loadAll();
  /// @throws HostError with `eKeyNotFound` for a name that no xref has
  void unload(std::wstring_view name);
  /// @throws HostError with `eKeyNotFound` for a name that no xref has, `eFileNotFound` if the file
  /// can't be read, `eNotApplicable` for an xref that is nested only in unloaded ones
  void reload(std::wstring_view name);
  /// Closes all files; nothing is reported.
  void closeFiles();
  /// Fills the graph with the xrefs, and enters it in the accounts.
  /// @param withGhosts also those that no chain of loaded xrefs leads to
  void fill(AcDbXrefGraph& graph, bool withGhosts) const;

  struct Xref {
    BlockRecordImp* record;
    bool direct;                   ///< the drawing itself names it
    std::filesystem::path folder;  ///< the stored path counts from here
    bool loaded = false;
    std::filesystem::path path = {};
    /// Held open, so that nobody replaces it under the drawing.
    std::unique_ptr<FileHandle> file = {};
    /// What was read of the file, which stays when it is closed; null if it couldn't be read.
    std::unique_ptr<const DxfFile> content = {};
    std::vector<Xref*> nested = {};
  };
  /// Those that the drawing names first, in its order.
  const std::vector<std::unique_ptr<Xref>>& all() const { return xrefs; }

 private:
  bool reached(const Xref& xref, bool throughLoaded) const;
  Xref* find(const BlockRecordImp* record) const;
  Xref& require(std::wstring_view name, const wchar_t* undone) const;
  void add(BlockRecordImp& record, bool direct, const std::filesystem::path& folder);
  bool load(Xref& xref);
  void read(Xref& xref);
  void readNested(Xref& xref);
  Xref* nest(Xref& parent, const DxfBlock& block);
  void release(Xref& xref);
  void unload(Xref& xref);
  void unloadUnreached();

  Drawing& drawing;
  std::vector<std::unique_ptr<Xref>> xrefs;
};

}  // namespace wb

#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "database/XrefFile.h"

namespace wb {

class BlockRecordImp;
class Drawing;

/// The drawing's xrefs, nested ones with them. A nested xref goes by its plain block name, as in
/// the host; of two with the same name the first one stands for both.
class Xrefs {
 public:
  explicit Xrefs(Drawing& drawing) : drawing(drawing) {}
  ~Xrefs();
  Xrefs(const Xrefs&) = delete;
  Xrefs& operator=(const Xrefs&) = delete;

  /// Reads the files of all xrefs; those that can't be had stay, unresolved.
  void loadAll();
  /// @throws HostError with `eKeyNotFound` for a name that no xref has
  void unload(std::wstring_view name);
  /// @throws HostError with `eKeyNotFound` for a name that no xref has, `eFileNotFound` if the file
  /// can't be read, `eNotApplicable` for an xref that is nested only in unloaded ones
  void reload(std::wstring_view name);
  /// Lets go of all files, without a word.
  void letGo();

  struct Xref {
    BlockRecordImp* record;
    bool direct;  ///< the drawing itself names it
    bool loaded;
    std::filesystem::path folder;  ///< the stored path counts from here
    XrefFile file;
    std::vector<Xref*> nested;
  };
  /// Those that the drawing names first, in its order.
  const std::vector<std::unique_ptr<Xref>>& all() const { return xrefs; }
  /// True if a chain of loaded xrefs leads from the drawing to it.
  bool reached(const Xref& xref) const;

 private:
  Xref* find(const BlockRecordImp* record) const;
  Xref* find(std::wstring_view name) const;
  bool load(Xref& xref);
  void readNested(Xref& xref, const std::vector<DxfBlock>& blocks);
  Xref* nest(Xref& parent, const DxfBlock& block);
  void release(Xref& xref);
  void releaseUnreached();
  void dropUnnamed();

  Drawing& drawing;
  std::vector<std::unique_ptr<Xref>> xrefs;
};

}  // namespace wb

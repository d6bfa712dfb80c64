#pragma once

#include <windows.h>

#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/Text.h"
#include "dxf/File.h"
#include "view/Geometry.h"

namespace wb {

/// An object's own groups, read once.
class Fields {
 public:
  Fields(const DxfFile& source, DxfEntry entry);

  size_t size() const { return indices.size(); }
  int code(size_t at) const { return source.groups.code(indices[at]); }
  double realAt(size_t at) const;
  bool has(int code) const { return find(code) < size(); }
  double real(int code, double otherwise = 0) const;
  int whole(int code, int otherwise = 0) const;
  std::string_view word(int code) const;
  /// The decoded value; also that of a group that was added since the file was read.
  std::wstring text(int code) const;
  /// The group of that code and the one ten higher.
  Point point(int code) const { return {real(code), real(code + 10)}; }
  /// All texts of that code, in a row.
  std::wstring joined(int code) const;

 private:
  size_t find(int code) const;

  const DxfFile& source;
  DxfEntry entry;
  std::vector<size_t> indices;
};

/// From the coordinates of an object with an extrusion direction to those of the drawing, as seen
/// from above.
Transform objectCoordinates(const Fields& fields);

/// The layers and blocks of a DXF file.
class SourceFile {
 public:
  struct Layer {
    COLORREF color;
    bool off;
    bool frozen;
  };
  struct Block {
    std::wstring name;
    Point base;
    bool isXref;
    bool isOverlay;
    size_t first, end;  ///< of its entries in the section BLOCKS
  };

  explicit SourceFile(const DxfFile& source);

  const DxfFile& source;
  /// The layer of that name as written in the file, a plain one if the file has none.
  const Layer& layer(std::string_view name);
  /// Null if there is none.
  const Block* block(std::string_view name) const;
  /// What an insert of the file puts on its insertion point.
  Point insertionBase() const;

 private:
  std::map<std::wstring, Layer, LessIgnoringCase> layers;
  std::unordered_map<std::string_view, const Layer*> layersAsWritten;
  std::map<std::wstring, Block, LessIgnoringCase> blocks;
};

}  // namespace wb

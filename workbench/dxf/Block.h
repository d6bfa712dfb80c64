#pragma once

#include <string>

#include "dxf/Outline.h"
#include "dxf/Text.h"

namespace wb {

/// What a BLOCK of the file says of itself.
struct DxfBlock {
  std::wstring name;
  std::wstring path;  ///< where an xref's file is, as stored
  int flags;

  static constexpr int xrefFlag = 4;
  static constexpr int overlayFlag = 8;

  DxfBlock(const DxfGroups& groups, const DxfText& text, DxfEntry entry)
      : name(text.decode(DxfFields(groups, entry).word(2))),
        path(text.decode(DxfFields(groups, entry).word(1))),
        flags(DxfFields(groups, entry).number(70)) {}

  bool isXref() const { return (flags & (xrefFlag | overlayFlag)) != 0; }
  bool isOverlay() const { return (flags & overlayFlag) != 0; }
};

}  // namespace wb

#pragma once

#include "dxf/Groups.h"
#include "dxf/Outline.h"
#include "dxf/Text.h"

namespace wb {

/// A DXF file that somebody else holds: its groups, where its parts stand, how its text is written.
struct DxfSource {
  const DxfGroups& groups;
  const DxfOutline& outline;
  const DxfText& text;
};

/// The content of a DXF file that was read.
struct DxfContent {
  DxfGroups groups;
  DxfOutline outline;
  DxfText text;

  DxfSource source() const { return {groups, outline, text}; }
};

}  // namespace wb

#include "view/Builder.h"

#include <memory>

#include "database/Drawing.h"
#include "database/Xrefs.h"
#include "view/Colors.h"
#include "view/Shapes.h"
#include "view/Source.h"

namespace wb {

namespace {

constexpr int deepest = 30;            // blocks in blocks
constexpr size_t mostItems = 2000000;  // what many repeated blocks may come to
constexpr int byBlock = 0, byLayer = 256;

/// What surrounds an object.
struct Surroundings {
  SourceFile* file;
  const Xrefs::Xref* xref;          ///< whose file it is; null for the drawing's own
  Transform place;                  ///< of the block that it stands in
  COLORREF blockColor;              ///< of what takes its block's colour
  const SourceFile::Layer* layer0;  ///< what the layer "0" means in the block; null on a layout
  int depth;
};

class Builder {
 public:
  explicit Builder(const Drawing& drawing) : drawing(drawing) {}

  DisplayList build();

 private:
  SourceFile& fileOf(const DxfFile& source);
  void drawEntry(const Surroundings& around, DxfEntry entry);
  void drawEntries(const Surroundings& around, const std::vector<DxfEntry>& entries, size_t first,
                   size_t end);
  void drawInsert(const Surroundings& around, DxfEntry entry, const Fields& fields, COLORREF color,
                  const SourceFile::Layer& layer);
  void drawAttributes(const Surroundings& around, DxfEntry entry);
  void drawDefinition(const Surroundings& around, COLORREF color, const Fields& fields);
  void drawContent(const Surroundings& inside, const SourceFile::Block& block);
  void drawXref(const Surroundings& inside, const SourceFile::Block& block);
  const Xrefs::Xref* xrefNamed(const Surroundings& around, const std::wstring& name) const;
  void readRemarks();

  const Drawing& drawing;
  DisplayList list;
  std::map<const DxfFile*, std::unique_ptr<SourceFile>> files;
};

COLORREF colorOf(const Surroundings& around, const Fields& fields, const SourceFile::Layer& layer) {
  const int trueColor = fields.whole(420, -1);
  if (trueColor >= 0) return RGB(trueColor >> 16 & 255, trueColor >> 8 & 255, trueColor & 255);
  const int index = fields.whole(62, byLayer);
  if (index == byBlock) return around.blockColor;
  return index == byLayer ? layer.color : colorOfIndex(std::abs(index));
}

DisplayList Builder::build() {
  SourceFile& file = fileOf(drawing.file);
  const Surroundings around{&file, nullptr, {}, colorOfIndex(7), nullptr, 0};
  for (const EntityImp* entity : drawing.currentEntities()) {
    const size_t first = list.items.size();
    drawEntry(around, entity->entry);
    if (file.source.groups.word(entity->entry.begin) != "INSERT") continue;
    const Fields fields(file.source, entity->entry);
    list.references.push_back(
        {entity->id, objectCoordinates(fields)(fields.point(10)), first, list.items.size()});
  }
  readRemarks();
  return std::move(list);
}

// A remark of the host's stands just before the file's end.
void Builder::readRemarks() {
  const DxfGroups& groups = drawing.file.groups;
  const auto note = [this](std::string_view text) {
    if (!text.empty()) list.remarks.emplace_back(text.begin(), text.end());
  };
  size_t index = groups.size() - 1;
  while (index > 0 && groups.code(index - 1) == 999) --index;
  for (; index + 1 < groups.size(); ++index) note(groups.value(index));
  note(groups.added(groups.size() - 1, 999));
}

SourceFile& Builder::fileOf(const DxfFile& source) {
  std::unique_ptr<SourceFile>& known = files[&source];
  if (!known) known = std::make_unique<SourceFile>(source);
  return *known;
}

void Builder::drawEntry(const Surroundings& around, DxfEntry entry) {
  const DxfGroups& groups = around.file->source.groups;
  if (groups.isRemoved(entry.begin) || list.items.size() > mostItems) return;
  const std::string_view type = groups.word(entry.begin);
  const Fields fields(around.file->source, entry);
  // The sheets of an xref aren't seen.
  if (fields.whole(60) != 0 || (around.depth > 0 && fields.whole(67) != 0)) return;
  const std::string_view layerName = fields.word(8);
  const SourceFile::Layer& layer = around.layer0 && (layerName == "0" || layerName.empty())
                                       ? *around.layer0
                                       : around.file->layer(layerName);
  if (layer.frozen || (layer.off && type != "INSERT")) return;
  const COLORREF color = colorOf(around, fields, layer);
  if (const Shape shape = shapeOf(type)) {
    shape(list, color, around.place, fields);
  } else if (type == "INSERT" || (type == "DIMENSION" && around.file->block(fields.word(2)))) {
    drawInsert(around, entry, fields, color, layer);
  } else if (type == "ATTDEF") {
    drawDefinition(around, color, fields);
  } else if ((type != "POLYLINE" ||
              !drawPolyline(list, color, around.place, around.file->source, entry)) &&
             // The first viewport of a layout is the sheet itself.
             (type != "VIEWPORT" || fields.whole(69) != 1)) {
    ++list.leftOut[std::string(type)];
  }
}

// An object comes with those that belong to it.
void Builder::drawEntries(const Surroundings& around, const std::vector<DxfEntry>& entries,
                          size_t first, size_t end) {
  const DxfGroups& groups = around.file->source.groups;
  for (size_t at = first; at < end;) {
    DxfEntry entry = entries[at++];
    while (at < end && (groups.is(entries[at].begin, 0, "VERTEX") ||
                        groups.is(entries[at].begin, 0, "ATTRIB") ||
                        groups.is(entries[at].begin, 0, "SEQEND"))) {
      entry.end = entries[at++].end;
    }
    drawEntry(around, entry);
  }
}

// The tag is seen where the block is made, a constant value wherever the block is inserted.
void Builder::drawDefinition(const Surroundings& around, COLORREF color, const Fields& fields) {
  constexpr int hidden = 1, constant = 2;
  const int flags = fields.whole(70);
  if (around.depth == 0) {
    drawText(list, color, around.place, fields, 74, fields.text(2));
  } else if ((flags & constant) != 0 && (flags & hidden) == 0) {
    drawText(list, color, around.place, fields, 74, fields.text(1));
  }
}

void Builder::drawAttributes(const Surroundings& around, DxfEntry entry) {
  const DxfFile& source = around.file->source;
  for (size_t index = entry.begin + 1; index < entry.end; ++index) {
    if (!source.groups.is(index, 0, "ATTRIB")) continue;
    const Fields fields(source, {index, entry.end});
    const bool hidden = (fields.whole(70) & 1) != 0 || fields.whole(60) != 0;
    const std::string_view name = fields.word(8);
    const SourceFile::Layer& layer =
        around.layer0 && name == "0" ? *around.layer0 : around.file->layer(name);
    if (hidden || layer.frozen || layer.off) continue;
    drawText(list, colorOf(around, fields, layer), around.place, fields, 74, fields.text(1));
  }
}

void Builder::drawInsert(const Surroundings& around, DxfEntry entry, const Fields& fields,
                         COLORREF color, const SourceFile::Layer& layer) {
  const SourceFile::Block* block = around.file->block(fields.word(2));
  if (!block || around.depth == deepest) {
    ++list.leftOut["INSERT"];
    return;
  }
  if (around.file->source.groups.is(entry.begin, 0, "DIMENSION")) {
    // Its block has what is seen of it, in place.
    return drawContent({around.file, around.xref, around.place, color, &layer, around.depth + 1},
                       *block);
  }
  const Transform own = around.place * objectCoordinates(fields);
  const Transform turned =
      Transform::translation(fields.point(10)) * Transform::rotation(radians(fields.real(50)));
  const Transform scale = Transform::scaling(fields.real(41, 1), fields.real(42, 1));
  const int columns = std::max(fields.whole(70, 1), 1), rows = std::max(fields.whole(71, 1), 1);
  for (int row = 0; row < rows; ++row) {
    for (int column = 0; column < columns && list.items.size() < mostItems; ++column) {
      const Point step{column * fields.real(44), row * fields.real(45)};
      const Transform cell = own * turned * Transform::translation(step) * scale;
      drawContent({around.file, around.xref, cell, color, &layer, around.depth + 1}, *block);
      Surroundings beside = around;
      beside.place =
          around.place * Transform::translation(objectCoordinates(fields).vector(
                             Transform::rotation(radians(fields.real(50))).vector(step)));
      beside.blockColor = color;
      drawAttributes(beside, entry);
    }
  }
}

void Builder::drawContent(const Surroundings& inside, const SourceFile::Block& block) {
  if (block.isXref) return drawXref(inside, block);
  Surroundings based = inside;
  based.place = inside.place * Transform::translation(-1 * block.base);
  drawEntries(based, inside.file->source.entries("BLOCKS"), block.first, block.end);
}

const Xrefs::Xref* Builder::xrefNamed(const Surroundings& around, const std::wstring& name) const {
  const auto isWanted = [&](const Xrefs::Xref& one) {
    return one.loaded && one.content && sameName(one.record->name, name);
  };
  if (!around.xref) {
    for (const auto& one : drawing.xrefs().all()) {
      if (one->direct && isWanted(*one)) return one.get();
    }
  } else {
    for (const Xrefs::Xref* one : around.xref->nested) {
      if (isWanted(*one)) return one;
    }
  }
  return nullptr;
}

void Builder::drawXref(const Surroundings& inside, const SourceFile::Block& block) {
  // An overlay is seen in the drawing that it stands in alone.
  if (inside.xref && block.isOverlay) return;
  const Xrefs::Xref* xref = xrefNamed(inside, block.name);
  if (!xref) return list.addLabel(inside.blockColor, inside.place.o, block.name);
  SourceFile& file = fileOf(*xref->content);
  Surroundings within = inside;
  within.file = &file;
  within.xref = xref;
  within.place = inside.place * Transform::translation(-1 * file.insertionBase());
  const std::vector<DxfEntry>& entities = file.source.entries("ENTITIES");
  drawEntries(within, entities, 0, entities.size());
}

}  // namespace

DisplayList displayListOf(const Drawing& drawing) { return Builder(drawing).build(); }

}  // namespace wb

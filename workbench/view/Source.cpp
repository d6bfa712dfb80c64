#include "view/Source.h"

#include <cstdint>
#include <cstdlib>

#include "view/Colors.h"

namespace wb {

namespace {

// Plain numbers of up to fifteen digits, which are exact; the run-time library takes much longer.
bool plainNumber(std::string_view word, double& number) {
  static constexpr double powers[] = {1,   1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                      1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
  const bool negative = word[0] == '-';
  if (negative) word.remove_prefix(1);
  if (word.size() > 16) return false;
  std::int64_t digits = 0;
  size_t decimals = 0;
  bool point = false;
  for (const char c : word) {
    if (c == '.' && !point) {
      point = true;
    } else if (c >= '0' && c <= '9') {
      digits = digits * 10 + (c - '0');
      if (point) ++decimals;
    } else {
      return false;
    }
  }
  if (word.size() - (point ? 1 : 0) > 15) return false;
  number = static_cast<double>(negative ? -digits : digits) / powers[decimals];
  return true;
}

double realOf(std::string_view word) {
  double number = 0;
  if (word.empty() || plainNumber(word, number)) return number;
  return std::strtod(std::string(word).c_str(), nullptr);
}

}  // namespace

Fields::Fields(const DxfFile& source, DxfEntry entry) : source(source), entry(entry) {
  indices.reserve(16);
  source.fields(entry).list(indices);
}

size_t Fields::find(int code) const {
  size_t at = 0;
  while (at < indices.size() && source.groups.code(indices[at]) != code) ++at;
  return at;
}

double Fields::realAt(size_t at) const { return realOf(source.groups.word(indices[at])); }

double Fields::real(int code, double otherwise) const {
  const size_t at = find(code);
  return at < size() ? realAt(at) : otherwise;
}

int Fields::whole(int code, int otherwise) const {
  const size_t at = find(code);
  return at < size() ? source.groups.number(indices[at]) : otherwise;
}

std::string_view Fields::word(int code) const {
  const size_t at = find(code);
  return at < size() ? source.groups.word(indices[at]) : std::string_view();
}

std::wstring Fields::text(int code) const {
  const size_t at = find(code);
  if (at < size()) return source.text.decode(source.groups.value(indices[at]));
  const size_t end = source.fields(entry).endOf("AcDbText");
  return source.text.decode(source.groups.added(end, code));
}

std::wstring Fields::joined(int code) const {
  std::string all;
  for (const size_t index : indices) {
    if (source.groups.code(index) == code) all += source.groups.value(index);
  }
  return source.text.decode(all);
}

// The axes follow from the extrusion direction alone.
Transform objectCoordinates(const Fields& fields) {
  if (!fields.has(210) && !fields.has(230)) return {};
  const double x = fields.real(210), y = fields.real(220), z = fields.real(230, 1);
  const double norm = std::sqrt(x * x + y * y + z * z);
  if (norm == 0 || (x == 0 && y == 0 && z > 0)) return {};
  struct Vector {
    double x, y, z;
  };
  const Vector n{x / norm, y / norm, z / norm};
  const bool nearPole = std::abs(n.x) < 1.0 / 64 && std::abs(n.y) < 1.0 / 64;
  Vector a = nearPole ? Vector{n.z, 0, -n.x} : Vector{-n.y, n.x, 0};
  const double size = std::sqrt(a.x * a.x + a.y * a.y + a.z * a.z);
  a = {a.x / size, a.y / size, a.z / size};
  const Point other{n.y * a.z - n.z * a.y, n.z * a.x - n.x * a.z};
  const double height = fields.has(38) ? fields.real(38) : fields.real(30);
  return {{a.x, a.y}, other, height * Point{n.x, n.y}};
}

SourceFile::SourceFile(const DxfFile& source) : source(source) {
  for (const DxfEntry& entry : source.table("LAYER")) {
    const Fields fields(source, entry);
    const int color = fields.whole(62, 7);
    const bool frozen = (fields.whole(70) & 1) != 0;
    const int trueColor = fields.whole(420, -1);
    layers[fields.text(2)] = {
        trueColor < 0 ? colorOfIndex(std::abs(color))
                      : RGB(trueColor >> 16 & 255, trueColor >> 8 & 255, trueColor & 255),
        color < 0, frozen};
  }
  const std::vector<DxfEntry>& entries = source.entries("BLOCKS");
  for (size_t at = 0; at < entries.size(); ++at) {
    if (source.fields(entries[at]).type() != "BLOCK") continue;
    const Fields fields(source, entries[at]);
    const DxfBlock header(source, entries[at]);
    Block& block = blocks[header.name];
    block = {header.name, fields.point(10), header.isXref, header.isOverlay, at + 1, at + 1};
    while (source.fields(entries[block.end]).type() != "ENDBLK") ++block.end;
    at = block.end;
  }
}

const SourceFile::Layer& SourceFile::layer(std::string_view name) {
  const Layer*& known = layersAsWritten[name];
  if (!known) {
    known = &layers.try_emplace(source.text.decode(name), Layer{colorOfIndex(7), false, false})
                 .first->second;
  }
  return *known;
}

const SourceFile::Block* SourceFile::block(std::string_view name) const {
  const auto found = blocks.find(source.text.decode(name));
  return found == blocks.end() ? nullptr : &found->second;
}

Point SourceFile::insertionBase() const {
  const auto index = source.findVariable("$INSBASE");
  if (!index || *index + 1 >= source.groups.size()) return {};
  return {realOf(source.groups.word(*index)), realOf(source.groups.word(*index + 1))};
}

}  // namespace wb

#include <sstream>

#include "view/Font.h"
#include "view/Shapes.h"
#include "view/TextCodes.h"

namespace wb {

namespace {

// Where text stands, by the numbers of the file.
constexpr int rightAligned = 2, stretched = 3, middle = 4, fitted = 5;
constexpr int atBottom = 1, atMiddle = 2, atTop = 3;
constexpr double descent = 0.3;  // of a capital's height
constexpr double lineDistance = 5.0 / 3;

/// Breaks a line where a width, in heights of a capital, is exceeded.
void wrap(const std::wstring& line, double width, std::vector<std::wstring>& into) {
  std::wistringstream words(line);
  std::wstring current, word;
  while (width > 0 && std::getline(words, word, L' ')) {
    std::wstring longer = current;
    if (!current.empty()) longer += L' ';
    longer += word;
    if (!current.empty() && textWidth(longer) > width) {
      into.push_back(std::move(current));
      current = word;
    } else {
      current = std::move(longer);
    }
  }
  into.push_back(width > 0 ? current : line);
}

}  // namespace

void drawText(DisplayList& list, COLORREF color, const Transform& place, const Fields& fields,
              int verticalCode, const std::wstring& text) {
  const std::wstring shown = shownText(text);
  const int horizontal = fields.whole(72), vertical = fields.whole(verticalCode);
  const bool aligned = (horizontal != 0 || vertical != 0) && fields.has(11);
  const bool between = (horizontal == stretched || horizontal == fitted) && aligned;
  double height = fields.real(40), width = fields.real(41, 1);
  double angle = radians(fields.real(50));
  Point at = aligned && !between ? fields.point(11) : fields.point(10);
  if (between) {
    const Point way = fields.point(11) - at;
    const double fit = length(way) / std::max(textWidth(shown) * height * width, 1e-300);
    angle = std::atan2(way.y, way.x);
    if (horizontal == stretched) height *= fit;
    if (horizontal == fitted) width *= fit;
  }
  Point offset;
  if (horizontal == 1 || horizontal == middle) offset.x = -textWidth(shown) / 2;
  if (horizontal == rightAligned) offset.x = -textWidth(shown);
  if (vertical == atBottom) offset.y = descent;
  if (vertical == atMiddle || horizontal == middle) offset.y = -0.5;
  if (vertical == atTop) offset.y = -1;
  constexpr int backwards = 2, upsideDown = 4;
  const int mirrors = fields.whole(71);
  const Transform shape{
      {(mirrors & backwards) != 0 ? -height * width : height * width, 0},
      {height * std::tan(radians(fields.real(51))), (mirrors & upsideDown) != 0 ? -height : height},
      {}};
  list.addText(color,
               place * objectCoordinates(fields) * Transform::translation(at) *
                   Transform::rotation(angle) * shape * Transform::translation(offset),
               shown);
}

void drawMultilineText(DisplayList& list, COLORREF color, const Transform& place,
                       const Fields& fields) {
  const double height = fields.real(40, 1);
  std::vector<std::wstring> lines;
  for (const std::wstring& line : shownLines(fields.joined(3) + fields.text(1))) {
    wrap(line, fields.real(41) / height, lines);
  }
  const Point along = fields.has(11) ? fields.point(11) : direction(radians(fields.real(50)));
  const double angle = std::atan2(along.y, along.x);
  const Transform base = place * Transform::translation(fields.point(10)) *
                         Transform::rotation(angle) * Transform::scaling(height, height);
  // One to nine: from the left to the right, from the top downwards.
  const int attachment = std::clamp(fields.whole(71, 1), 1, 9) - 1;
  const double distance = lineDistance * fields.real(44, 1);
  const double total = 1 + static_cast<double>(lines.size() - 1) * distance;
  const int row = attachment / 3, column = attachment % 3;
  double top = row * total / 2;
  for (const std::wstring& line : lines) {
    const double left = -column * textWidth(line) / 2;
    list.addText(color, base * Transform::translation({left, top - 1}), line);
    top -= distance;
  }
}

}  // namespace wb

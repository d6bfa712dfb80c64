#include "view/Colors.h"

#include <cmath>

namespace wb {

namespace {

constexpr COLORREF named[] = {RGB(255, 255, 255), RGB(255, 0, 0),     RGB(255, 255, 0),
                              RGB(0, 255, 0),     RGB(0, 255, 255),   RGB(0, 0, 255),
                              RGB(255, 0, 255),   RGB(255, 255, 255), RGB(128, 128, 128),
                              RGB(192, 192, 192)};
constexpr COLORREF grays[] = {RGB(51, 51, 51),    RGB(80, 80, 80),    RGB(105, 105, 105),
                              RGB(130, 130, 130), RGB(190, 190, 190), RGB(255, 255, 255)};
constexpr int firstGray = 250;
constexpr int firstHue = 10;
constexpr int brightness[] = {255, 165, 127, 76, 38};

// The share of a base colour in a hue, in quarters, at 0, 15, 30 ... degrees from where it is full.
constexpr int share(int step) {
  const int around = step < 12 ? step : 24 - step;
  return around <= 4 ? 4 : around >= 8 ? 0 : 8 - around;
}

}  // namespace

COLORREF colorOfIndex(int index) {
  if (index < 0 || index > 255) index = 7;
  if (index < firstHue) return named[index];
  if (index >= firstGray) return grays[index - firstGray];
  // From 10 on, each ten is a hue, each two a brightness, of which the second is half as strong.
  const int hue = (index - firstHue) / 10;
  const int full = brightness[index % 10 / 2];
  const bool pale = index % 2 != 0;
  const auto channel = [&](int from) {
    const int value = full * share((hue + 24 - from) % 24) / 4;
    return pale ? (value + full) / 2 : value;
  };
  return RGB(channel(0), channel(8), channel(16));
}

}  // namespace wb

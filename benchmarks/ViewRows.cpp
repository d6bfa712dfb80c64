// The drawing in the host's window.

#include <windows.h>

#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>

#include "core/Text.h"
#include "database/Drawing.h"
#include "editor/Host.h"
#include "Measure.h"
#include "Rows.h"

namespace bench {

namespace {

constexpr int entities = 100000;
constexpr int repetitions = 5;

/// Lines, circles, arcs and texts in turn, spread over a square.
void writeDrawing(const std::filesystem::path& path) {
  std::ofstream file(path, std::ios::binary);
  file << "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1009\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n";
  for (int number = 0; number < entities; ++number) {
    const int x = number % 316 * 10, y = number / 316 * 10;
    const auto entity = [&](const char* kind) {
      file << "0\n" << kind << "\n8\n0\n10\n" << x << ".0\n20\n" << y << ".0\n";
    };
    switch (number % 4) {
      case 0:
        entity("LINE");
        file << "11\n" << x + 8 << ".0\n21\n" << y + 6 << ".0\n";
        break;
      case 1:
        entity("CIRCLE");
        file << "40\n4.0\n";
        break;
      case 2:
        entity("ARC");
        file << "40\n4.0\n50\n30.0\n51\n200.0\n";
        break;
      default:
        entity("TEXT");
        file << "40\n2.5\n1\nText\n";
        break;
    }
  }
  file << "0\nENDSEC\n0\nEOF\n";
}

struct Releaser {
  HWND window;
  void operator()(HDC device) const { ReleaseDC(window, device); }
};

/// As many lines in a bitmap of the window's size, put into the window: the least of any drawing.
void drawLines(HWND window) {
  RECT area;
  GetClientRect(window, &area);
  const std::unique_ptr<std::remove_pointer_t<HDC>, Releaser> screen(GetDC(window),
                                                                     Releaser{window});
  const HDC memory = CreateCompatibleDC(screen.get());
  const HBITMAP bitmap = CreateCompatibleBitmap(screen.get(), area.right, area.bottom);
  const HGDIOBJ before = SelectObject(memory, bitmap);
  for (int number = 0; number < entities; ++number) {
    const int x = number % 316 * area.right / 316, y = number / 316 * area.bottom / 317;
    MoveToEx(memory, x, y, nullptr);
    LineTo(memory, x + 3, y + 2);
  }
  BitBlt(screen.get(), 0, 0, area.right, area.bottom, memory, 0, 0, SRCCOPY);
  GdiFlush();
  SelectObject(memory, before);
  DeleteObject(bitmap);
  DeleteDC(memory);
}

void paint(HWND window) {
  RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
  GdiFlush();
}

}  // namespace

void showing(BenchSession& session) {
  const std::filesystem::path file = BenchSession::view().parent_path() / L"Large.dxf";
  writeDrawing(file);
  const HWND window = wb::Host::instance().mainWindow();
  Row opening("Opening a drawing of 100,000 entities until it is shown / reading its file alone",
              "ms", 3);
  Row again("Showing a drawing of 100,000 entities / 100,000 plain lines", "ms", 10);
  for (int round = 0; round < repetitions; ++round) {
    const double opened = spent([&] {
                            session.run("@open %WORK%\\Large.dxf\n");
                            paint(window);
                          }).all;
    const double shown = spent([&] { paint(window); }).all;
    again.add(shown / 1000, spent([&] { drawLines(window); }).all / 1000);
    session.closeAll();
    const double read = spent([&] { wb::Drawing::load(file); }).all;
    opening.add(opened / 1000, read / 1000);
  }
  print(opening);
  print(again);
}

}  // namespace bench

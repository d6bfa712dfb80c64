#include "dialogs/Screenshot.h"

#include <windows.h>

#include <objbase.h>
// Defines the identifiers, which not every import library has.
#include <comdef.h>
#include <initguid.h>
#include <wincodec.h>

#include <cstdio>
#include <vector>

#include "core/Transcript.h"
#include "dialogs/DialogError.h"

_COM_SMARTPTR_TYPEDEF(IWICImagingFactory, __uuidof(IWICImagingFactory));
_COM_SMARTPTR_TYPEDEF(IWICStream, __uuidof(IWICStream));
_COM_SMARTPTR_TYPEDEF(IWICBitmapEncoder, __uuidof(IWICBitmapEncoder));
_COM_SMARTPTR_TYPEDEF(IWICBitmapFrameEncode, __uuidof(IWICBitmapFrameEncode));

namespace wb {
namespace {

constexpr DWORD paintingTime = 60;  // milliseconds

struct Picture {
  UINT width = 0;
  UINT height = 0;
  std::vector<BYTE> pixels;  ///< 32 bits a pixel, blue first, rows from the top
};

class ScreenContext {
 public:
  ScreenContext() : context(GetDC(nullptr)) {}
  ScreenContext(const ScreenContext&) = delete;
  ScreenContext& operator=(const ScreenContext&) = delete;
  ~ScreenContext() { ReleaseDC(nullptr, context); }
  const HDC context;
};

class MemoryBitmap {
 public:
  explicit MemoryBitmap(const BITMAPINFO& info) : context(CreateCompatibleDC(nullptr)) {
    bitmap = CreateDIBSection(context, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (bitmap) previous = SelectObject(context, bitmap);
  }
  MemoryBitmap(const MemoryBitmap&) = delete;
  MemoryBitmap& operator=(const MemoryBitmap&) = delete;
  ~MemoryBitmap() {
    if (previous) SelectObject(context, previous);
    if (bitmap) DeleteObject(bitmap);
    DeleteDC(context);
  }
  const HDC context;
  HBITMAP bitmap = nullptr;
  void* bits = nullptr;

 private:
  HGDIOBJ previous = nullptr;
};

BOOL CALLBACK paintNow(HWND window, LPARAM) {
  if (IsWindowVisible(window)) {
    RedrawWindow(window, nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
  }
  return TRUE;
}

/// A dialog that has just been shown hasn't painted itself: painting comes last in its loop.
void paintWindows() {
  EnumThreadWindows(GetCurrentThreadId(), paintNow, 0);
  GdiFlush();
  // What was drawn reaches the screen when the thread waits; this wait hears no message.
  MsgWaitForMultipleObjectsEx(0, nullptr, paintingTime, 0, 0);
}

BOOL CALLBACK addWindow(HWND window, LPARAM argument) {
  RECT place;
  if (IsWindowVisible(window) && !IsIconic(window) && GetWindowRect(window, &place)) {
    auto& all = *reinterpret_cast<RECT*>(argument);
    UnionRect(&all, &all, &place);
  }
  return TRUE;
}

/// The part of the screen that the thread's windows take; all of it if there are none.
RECT windowsOnScreen() {
  const RECT screen{0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
  RECT windows{};
  EnumThreadWindows(GetCurrentThreadId(), addWindow, reinterpret_cast<LPARAM>(&windows));
  RECT seen{};
  return IntersectRect(&seen, &windows, &screen) ? seen : screen;
}

bool copyScreen(Picture& picture) {
  const RECT part = windowsOnScreen();
  picture.width = static_cast<UINT>(part.right - part.left);
  picture.height = static_cast<UINT>(part.bottom - part.top);
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof(info.bmiHeader);
  info.bmiHeader.biWidth = static_cast<LONG>(picture.width);
  info.bmiHeader.biHeight = -static_cast<LONG>(picture.height);
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  const ScreenContext screen;
  const MemoryBitmap memory(info);
  if (!memory.bitmap) return false;
  if (!BitBlt(memory.context, 0, 0, static_cast<int>(picture.width),
              static_cast<int>(picture.height), screen.context, part.left, part.top,
              SRCCOPY | CAPTUREBLT)) {
    return false;
  }
  GdiFlush();
  const auto* first = static_cast<const BYTE*>(memory.bits);
  picture.pixels.assign(first, first + size_t{4} * picture.width * picture.height);
  return true;
}

void check(HRESULT result) {
  if (FAILED(result)) _com_issue_error(result);
}

void writePng(const std::wstring& file, Picture& picture) {
  IWICImagingFactoryPtr factory;
  check(factory.CreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER));
  IWICStreamPtr stream;
  check(factory->CreateStream(&stream));
  check(stream->InitializeFromFilename(file.c_str(), GENERIC_WRITE));
  IWICBitmapEncoderPtr encoder;
  check(factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, &encoder));
  check(encoder->Initialize(stream, WICBitmapEncoderNoCache));
  IWICBitmapFrameEncodePtr frame;
  check(encoder->CreateNewFrame(&frame, nullptr));
  check(frame->Initialize(nullptr));
  check(frame->SetSize(picture.width, picture.height));
  WICPixelFormatGUID format = GUID_WICPixelFormat32bppBGR;
  check(frame->SetPixelFormat(&format));
  if (!IsEqualGUID(format, GUID_WICPixelFormat32bppBGR)) check(WINCODEC_ERR_UNSUPPORTEDPIXELFORMAT);
  const UINT stride = picture.width * 4;
  check(frame->WritePixels(picture.height, stride, static_cast<UINT>(picture.pixels.size()),
                           picture.pixels.data()));
  check(frame->Commit());
  check(encoder->Commit());
}

}  // namespace

void savePicture(const std::wstring& file) {
  Picture picture;
  paintWindows();
  if (!copyScreen(picture)) throw DialogError(L"the screen can't be copied");
  const std::wstring unfinished = file + L".part";
  try {
    writePng(unfinished, picture);
  } catch (const _com_error& error) {
    DeleteFileW(unfinished.c_str());
    wchar_t code[16];
    std::swprintf(code, sizeof(code) / sizeof(*code), L"0x%08lX",
                  static_cast<unsigned long>(error.Error()));
    throw DialogError(L"the picture " + wb::quoted(file) + L" can't be written, result " + code);
  }
  if (!MoveFileExW(unfinished.c_str(), file.c_str(), MOVEFILE_REPLACE_EXISTING)) {
    const DWORD error = GetLastError();
    DeleteFileW(unfinished.c_str());
    throw DialogError(L"the picture " + wb::quoted(file) + L" can't be written, Windows error " +
                      std::to_wstring(error));
  }
  tell(Event::file, L"picture " + wb::quoted(file));
}

}  // namespace wb

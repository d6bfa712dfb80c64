#include "dialogs/Screenshot.h"

#include <windows.h>

#include <objbase.h>
// Defines the identifiers, which not every import library has.
#include <comdef.h>
#include <initguid.h>
#include <wincodec.h>

#include <memory>
#include <type_traits>

#include "core/Lists.h"
#include "core/Text.h"
#include "core/Transcript.h"
#include "dialogs/Reader.h"

_COM_SMARTPTR_TYPEDEF(IWICImagingFactory, __uuidof(IWICImagingFactory));
_COM_SMARTPTR_TYPEDEF(IWICBitmap, __uuidof(IWICBitmap));
_COM_SMARTPTR_TYPEDEF(IWICStream, __uuidof(IWICStream));
_COM_SMARTPTR_TYPEDEF(IWICBitmapEncoder, __uuidof(IWICBitmapEncoder));
_COM_SMARTPTR_TYPEDEF(IWICBitmapFrameEncode, __uuidof(IWICBitmapFrameEncode));

namespace wb {
namespace {

constexpr DWORD paintingTime = 60;  // milliseconds

struct Deleter {
  void operator()(HDC context) const { DeleteDC(context); }
  void operator()(HBITMAP bitmap) const { DeleteObject(bitmap); }
};
using Context = std::unique_ptr<std::remove_pointer_t<HDC>, Deleter>;
using Bitmap = std::unique_ptr<std::remove_pointer_t<HBITMAP>, Deleter>;

/// A dialog that has just been shown hasn't painted itself: painting comes last in its loop.
void paintWindows(const std::vector<HWND>& windows) {
  for (const HWND window : windows) {
    RedrawWindow(window, nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
  }
  GdiFlush();
  // What was drawn reaches the screen when the thread waits; this wait handles no message.
  MsgWaitForMultipleObjectsEx(0, nullptr, paintingTime, 0, 0);
}

/// The part of the screen that the windows take; all of it if there are none.
RECT partOfScreen(const std::vector<HWND>& windows) {
  const RECT screen{0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
  RECT all{}, place{}, seen{};
  for (const HWND window : windows) {
    if (!IsIconic(window) && GetWindowRect(window, &place)) UnionRect(&all, &all, &place);
  }
  return IntersectRect(&seen, &all, &screen) ? seen : screen;
}

/// @return null if the screen can't be copied
Bitmap copyScreen(const RECT& part) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof(info.bmiHeader);
  info.bmiHeader.biWidth = part.right - part.left;
  info.bmiHeader.biHeight = part.bottom - part.top;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  const Context screen(CreateDCW(L"DISPLAY", nullptr, nullptr, nullptr));
  const Context memory(CreateCompatibleDC(screen.get()));
  void* bits = nullptr;
  Bitmap bitmap(CreateDIBSection(memory.get(), &info, DIB_RGB_COLORS, &bits, nullptr, 0));
  if (!bitmap) return nullptr;
  const HGDIOBJ previous = SelectObject(memory.get(), bitmap.get());
  const BOOL copied = BitBlt(memory.get(), 0, 0, info.bmiHeader.biWidth, info.bmiHeader.biHeight,
                             screen.get(), part.left, part.top, SRCCOPY | CAPTUREBLT);
  SelectObject(memory.get(), previous);
  return copied ? std::move(bitmap) : nullptr;
}

void check(HRESULT result) {
  if (FAILED(result)) _com_issue_error(result);
}

void writePng(const std::wstring& file, HBITMAP bitmap) {
  IWICImagingFactoryPtr factory;
  check(factory.CreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER));
  IWICBitmapPtr picture;
  check(factory->CreateBitmapFromHBITMAP(bitmap, nullptr, WICBitmapIgnoreAlpha, &picture));
  IWICStreamPtr stream;
  check(factory->CreateStream(&stream));
  check(stream->InitializeFromFilename(file.c_str(), GENERIC_WRITE));
  IWICBitmapEncoderPtr encoder;
  check(factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, &encoder));
  check(encoder->Initialize(stream, WICBitmapEncoderNoCache));
  IWICBitmapFrameEncodePtr frame;
  check(encoder->CreateNewFrame(&frame, nullptr));
  check(frame->Initialize(nullptr));
  check(frame->WriteSource(picture, nullptr));
  check(frame->Commit());
  check(encoder->Commit());
}

}  // namespace

void savePicture(const std::wstring& file) {
  std::vector<HWND> windows = threadWindows();
  eraseIf(windows, [](HWND window) { return !IsWindowVisible(window); });
  paintWindows(windows);
  const Bitmap picture = copyScreen(partOfScreen(windows));
  if (!picture) throw DialogError(L"the screen can't be copied");
  const std::wstring unfinished = file + L".part";
  const auto fail = [&](const std::wstring& reason) {
    DeleteFileW(unfinished.c_str());
    throw DialogError(L"the picture " + wb::quoted(file) + L" can't be written, " + reason);
  };
  try {
    writePng(unfinished, picture.get());
  } catch (const _com_error& error) {
    fail(L"result " + hexText(static_cast<unsigned long>(error.Error()), 8));
  }
  if (!MoveFileExW(unfinished.c_str(), file.c_str(), MOVEFILE_REPLACE_EXISTING)) {
    fail(L"Windows error " + std::to_wstring(GetLastError()));
  }
  report(Event::file, L"picture " + wb::quoted(file));
}

}  // namespace wb

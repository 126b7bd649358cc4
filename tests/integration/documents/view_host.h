// A top-level window that holds one view, and files of every kind for it.
#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>
#include <string>

#include "workbench/app/documents/document_view.h"

namespace document_tests {

class ViewHost {
 public:
  ViewHost(int width = 400, int height = 300);  // of the client area
  ~ViewHost();
  ViewHost(const ViewHost&) = delete;
  ViewHost& operator=(const ViewHost&) = delete;

  HWND window() const { return window_; }
  // Opens the file and shows it in the whole window. Null with *error when it can't be.
  workbench::DocumentView* Open(const std::wstring& path, std::wstring* error = nullptr);
  void Show(std::unique_ptr<workbench::DocumentView> view);
  workbench::DocumentView* view() const { return view_.get(); }
  void CloseView() { view_.reset(); }
  void DestroyHostWindow();

  // The colour that the view shows at a place, after it has painted.
  COLORREF PixelAt(int x, int y) const;

 private:
  HWND window_ = nullptr;
  std::unique_ptr<workbench::DocumentView> view_;
};

// The content of a bitmap file of one colour, 24 bits a pixel. With `pixels` false, the header alone.
std::string BitmapFile(int width, int height, COLORREF color, bool pixels = true);
// A PNG file of 2 by 2 pixels: red, green / blue, transparent.
std::string SmallPng();

std::wstring WindowText(HWND window);
std::wstring ClipboardText();

}  // namespace document_tests

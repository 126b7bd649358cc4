// The list box of the history view. Keys move the selection without reporting it, so that a file is loaded
// only when Enter or a click picks it. Tab asks the parent for the next control (WM_NEXTDLGCTL).
#pragma once

#include <windows.h>

#include <functional>
#include <utility>

#include "src/framework/unique_handle.h"
#include "src/history/row_layout.h"

namespace file_explorer {

class HistoryListBox {
 public:
  // A hidden child that covers the parent's client area; window() is null when it can't be created.
  HistoryListBox(HINSTANCE instance, HWND parent, int controlId);
  ~HistoryListBox() = default;
  HistoryListBox(const HistoryListBox&) = delete;
  HistoryListBox& operator=(const HistoryListBox&) = delete;

  HWND window() const { return window_.get(); }
  // Called whenever the window is about to paint rows.
  void SetBeforePaint(std::function<void()> beforePaint) { beforePaint_ = std::move(beforePaint); }
  // Called once some time after AskForLater, from the message loop: painting is not held up by it.
  void SetLater(std::function<void()> later) { later_ = std::move(later); }
  void AskForLater();

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  // True when the message is dealt with and *result is its answer.
  bool HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
  LRESULT CallPrevious(UINT message, WPARAM wParam, LPARAM lParam) const;
  bool OnKeyDown(WPARAM key);
  bool OnCharacter(WPARAM letter);
  void MoveTo(int row);
  void ReportSelection() const;
  int RowsOnPage() const;
  LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;

  unique_hwnd window_;
  std::function<void()> beforePaint_;
  std::function<void()> later_;
  bool isLaterPosted_ = false;
  WNDPROC previous_ = nullptr;  // the system's procedure of the list box
};

}  // namespace file_explorer

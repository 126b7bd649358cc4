// One file operation on a thread of its own: its questions, its progress window, its end.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>

#include "workbench/controls/com/com_object.h"
#include "workbench/controls/operations/operation_link.h"
#include "workbench/controls/operations/operation_text.h"
#include "workbench/controls/operations/progress_window.h"
#include "workbench/controls/shell/window_base.h"

namespace controls {

class RunningOperation : public WindowBase, public std::enable_shared_from_this<RunningOperation> {
 public:
  // Runs on the operation's thread, must not throw.
  using Work = std::function<void(OperationLink&)>;

  // view: the control's window; the progress window belongs to the window that contains it. finished: called
  // once, on this thread, when the work is done; not after Close. Null when the system has no thread or
  // window to give.
  static std::shared_ptr<RunningOperation> Start(OperationKind kind, HWND view, Work work,
                                                 std::function<void()> finished);
  ~RunningOperation() override { Destroy(); }

  // Cancels, and waits until the operation has reached a safe point and ended.
  void Close();

 protected:
  LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  RunningOperation(OperationKind kind, HWND view, std::function<void()> finished);
  bool Begin(Work work);
  void OnWake();
  void OnTimer();
  void ShowProgress();
  void EndQuestion() const;
  void End();

  OperationKind kind_;
  HWND view_;
  std::function<void()> finished_;
  std::shared_ptr<OperationLink> link_;
  ProgressWindow progress_;
  ULONGLONG since_ = 0;  // milliseconds of the system's run, not counting questions
  bool asking_ = false;
  ModuleLock lock_;  // a question may outlive the control
};

}  // namespace controls

#include "workbench/controls/operations/running_operation.h"

#include <string_view>
#include <utility>

namespace controls {
namespace {

constexpr wchar_t kClassName[] = L"SswareShellOperation";
constexpr UINT kWakeMessage = WM_APP + 1;
constexpr UINT_PTR kProgressTimer = 1;
constexpr UINT kProgressMs = 100;
// A transfer comes to a safe point after a portion of a file; more time takes only a drive that does not
// answer, and that must not hold the host up. The thread keeps the module loaded until it ends.
constexpr DWORD kEndMs = 10000;

}  // namespace

RunningOperation::RunningOperation(OperationKind kind, HWND view, std::function<void()> finished)
    : kind_(kind), view_(view), finished_(std::move(finished)) {}

std::shared_ptr<RunningOperation> RunningOperation::Start(OperationKind kind, HWND view, Work work,
                                                          std::function<void()> finished) {
  const std::shared_ptr<RunningOperation> operation(new RunningOperation(kind, view, std::move(finished)));
  return operation->Begin(std::move(work)) ? operation : nullptr;
}

bool RunningOperation::Begin(Work work) {
  if (!Create(kClassName, HWND_MESSAGE, {}, Look())) return false;
  since_ = GetTickCount64();
  link_ = std::make_shared<OperationLink>(hwnd(), kWakeMessage);
  SetTimer(hwnd(), kProgressTimer, kProgressMs, nullptr);
  return StartWorker([link = link_, work = std::move(work)] {
    work(*link);
    link->Finish();
  });
}

void RunningOperation::Close() {
  const std::shared_ptr<RunningOperation> self = shared_from_this();
  finished_ = nullptr;
  link_->Close();
  if (asking_) EndQuestion();
  link_->WaitForEnd(kEndMs);
  progress_.Destroy();
  Destroy();
}

LRESULT RunningOperation::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  // A question, or the end, may let go of this object.
  const std::shared_ptr<RunningOperation> self = weak_from_this().lock();
  if (message == kWakeMessage) {
    OnWake();
    return 0;
  }
  if (message == WM_TIMER) {
    OnTimer();
    return 0;
  }
  return Default(message, wParam, lParam);
}

void RunningOperation::OnWake() {
  link_->Received();
  if (const std::function<void()> question = link_->TakeQuestion()) {
    asking_ = true;
    question();
    asking_ = false;
    since_ = GetTickCount64();
    link_->Answered();
  }
  if (link_->finished()) return End();
  if (progress_.hwnd()) ShowProgress();
}

// Nobody waits for the answer any more. The question is the dialog with our caption in front of the view's
// window.
void RunningOperation::EndQuestion() const {
  const HWND root = GetAncestor(view_, GA_ROOT);
  const HWND dialog = GetLastActivePopup(root);
  wchar_t caption[64] = L"";
  GetWindowTextW(dialog, caption, 64);
  if (dialog != root && std::wstring_view(caption) == CaptionOf(kind_)) EndDialog(dialog, IDCANCEL);
}

void RunningOperation::OnTimer() {
  if (asking_ || progress_.hwnd() || !link_ || link_->finished()) return;
  const std::optional<base::TransferProgress> progress = link_->Latest();
  const int thousandths = progress ? TextOfProgress(kind_, *progress).thousandths : 0;
  if (ShowsProgress(static_cast<unsigned>(GetTickCount64() - since_), thousandths)) ShowProgress();
}

void RunningOperation::ShowProgress() {
  const ProgressText text = TextOfProgress(kind_, link_->Latest().value_or(base::TransferProgress()));
  if (!progress_.hwnd() && !progress_.Open(GetAncestor(view_, GA_ROOT), [link = link_] { link->Cancel(); }))
    return;
  progress_.Show(text);
}

void RunningOperation::End() {
  progress_.Destroy();
  Destroy();
  if (const std::function<void()> finished = std::exchange(finished_, nullptr)) finished();
}

}  // namespace controls

#include "workbench/controls/fileview/thumbnail_maker.h"

#include <objbase.h>
#include <shlobj.h>

#include <deque>
#include <utility>
#include <vector>

#include "src/preview/file_preview.h"
#include "workbench/controls/shell/worker.h"

namespace controls {
namespace {

namespace preview = file_explorer::preview;

class Locked {
 public:
  explicit Locked(SRWLOCK& lock) : lock_(lock) { AcquireSRWLockExclusive(&lock_); }
  ~Locked() { ReleaseSRWLockExclusive(&lock_); }
  Locked(const Locked&) = delete;
  Locked& operator=(const Locked&) = delete;

 private:
  SRWLOCK& lock_;
};

std::optional<preview::Picture> MakeFilePreview(const ThumbnailJob& job, const std::atomic<bool>& cancelled) {
  preview::PreviewLimits limits = preview::PatientLimits();
  limits.cancelled = &cancelled;
  LPITEMIDLIST item = nullptr;
  SHParseDisplayName(job.path.c_str(), nullptr, &item, 0, nullptr);
  std::optional<preview::Preview> made;
  try {
    made = preview::MakePreview(job.path.c_str(), item, job.size, limits);
  } catch (...) {
    // Out of memory: this file has no thumbnail, the thread goes on.
  }
  CoTaskMemFree(item);
  if (!made) return std::nullopt;
  return std::move(made->picture);
}

}  // namespace

struct ThumbnailMaker::State {
  SRWLOCK lock = SRWLOCK_INIT;
  std::deque<ThumbnailJob> waiting;
  std::deque<MadeThumbnail> made;
  bool isWorking = false;
  std::atomic<bool> isCancelled = false;  // of the job that is being done
  MakeThumbnail make = MakeFilePreview;
  std::unique_ptr<WakeUp> wakeUp;

  // The next job; false when there is none, the thread ends then.
  bool Begin(ThumbnailJob* job) {
    const Locked locked(lock);
    isWorking = !waiting.empty();
    if (!isWorking) return false;
    *job = std::move(waiting.front());
    waiting.pop_front();
    isCancelled = false;
    return true;
  }
  void Finish(MadeThumbnail thumbnail) {
    const Locked locked(lock);
    if (isCancelled) return;
    made.push_back(std::move(thumbnail));
    if (wakeUp) wakeUp->Post();
  }
};

ThumbnailMaker::ThumbnailMaker() : state_(std::make_shared<State>()) {}

ThumbnailMaker::~ThumbnailMaker() {
  CloseWindow();
}

void ThumbnailMaker::SetFunction(MakeThumbnail make) {
  state_->make = std::move(make);
}

void ThumbnailMaker::SetWindow(HWND window, UINT message) {
  const Locked locked(state_->lock);
  state_->wakeUp = std::make_unique<WakeUp>(window, message);
}

void ThumbnailMaker::CloseWindow() {
  CancelAll();
  const Locked locked(state_->lock);
  if (state_->wakeUp) state_->wakeUp->Close();
  state_->wakeUp.reset();
}

void ThumbnailMaker::Work(const std::shared_ptr<State>& state) {
  const HRESULT com = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE);
  ThumbnailJob job;
  while (state->Begin(&job)) {
    MadeThumbnail thumbnail;
    thumbnail.picture = state->make(job, state->isCancelled);
    thumbnail.job = std::move(job);
    state->Finish(std::move(thumbnail));
  }
  if (SUCCEEDED(com)) CoUninitialize();
}

void ThumbnailMaker::Add(ThumbnailJob job) {
  {
    const Locked locked(state_->lock);
    state_->waiting.push_back(std::move(job));
    if (state_->isWorking) return;
    state_->isWorking = true;
  }
  if (StartWorker([state = state_] { Work(state); })) return;
  const Locked locked(state_->lock);
  state_->isWorking = false;  // the next job tries again
}

void ThumbnailMaker::Review(const std::function<bool(const ThumbnailJob&)>& isWanted,
                            const std::function<void(const ThumbnailJob&)>& forgotten) {
  std::vector<ThumbnailJob> unwanted;
  {
    const Locked locked(state_->lock);
    std::deque<ThumbnailJob> wanted;
    for (ThumbnailJob& job : state_->waiting) {
      if (isWanted(job)) {
        wanted.push_back(std::move(job));
      } else {
        unwanted.push_back(std::move(job));
      }
    }
    state_->waiting = std::move(wanted);
  }
  for (const ThumbnailJob& job : unwanted) forgotten(job);
}

void ThumbnailMaker::CancelAll() {
  const Locked locked(state_->lock);
  state_->waiting.clear();
  state_->made.clear();
  state_->isCancelled = true;
}

void ThumbnailMaker::Received() {
  const Locked locked(state_->lock);
  if (state_->wakeUp) state_->wakeUp->Received();
}

std::optional<MadeThumbnail> ThumbnailMaker::Take() {
  const Locked locked(state_->lock);
  if (state_->made.empty()) return std::nullopt;
  MadeThumbnail made = std::move(state_->made.front());
  state_->made.pop_front();
  return made;
}

}  // namespace controls

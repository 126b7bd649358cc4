#include "workbench/controls/fileview/thumbnail_view.h"

#include <commctrl.h>

#include <utility>

namespace controls {

void ThumbnailView::Attach(HWND pane, HWND list) {
  list_ = list;
  maker_.SetWindow(pane, kMadeMessage);
}

void ThumbnailView::Detach() {
  maker_.CloseWindow();
  list_ = nullptr;
}

void ThumbnailView::SetSize(int picture, int cell) {
  maker_.CancelAll();
  known_.clear();
  freeCells_.clear();
  pictureCells_ = 0;
  pictureSize_ = picture;
  images_.Reset(cell);
}

int ThumbnailView::ImageOf(int row, int systemImage, const ThumbnailSubject* subject) {
  if (!subject) return images_.IconCell(systemImage);
  if (known_.size() >= kMostKnown && known_.find(subject->path) == known_.end()) DropKnown();
  Known& known = known_[subject->path];
  known.row = row;
  known.used = ++uses_;
  const bool isCurrent = known.isAnswered && known.stamp == subject->stamp;
  if (!isCurrent && known.askedStamp != subject->stamp) {
    known.askedStamp = subject->stamp;
    maker_.Add({subject->path, subject->stamp, pictureSize_, row});
  }
  return known.image >= 0 ? known.image : images_.IconCell(systemImage);
}

bool ThumbnailView::IsSeen(int row) const {
  if (row < 0 || !list_) return false;
  RECT bounds = {};
  bounds.left = LVIR_BOUNDS;
  RECT client = {};
  GetClientRect(list_, &client);
  RECT both = {};
  return SendMessageW(list_, LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&bounds)) &&
         IntersectRect(&both, &bounds, &client);
}

void ThumbnailView::OnPainted() {
  maker_.Review([this](const ThumbnailJob& job) { return IsSeen(job.row); },
                [this](const ThumbnailJob& job) {
                  const auto found = known_.find(job.path);
                  if (found != known_.end()) found->second.askedStamp = 0;
                });
}

void ThumbnailView::OnFolderLeft() {
  maker_.CancelAll();
  for (auto& [path, known] : known_) {
    known.askedStamp = 0;
    known.row = -1;
  }
}

void ThumbnailView::OnMade() {
  maker_.Received();
  while (const std::optional<MadeThumbnail> made = maker_.Take()) {
    const auto found = known_.find(made->job.path);
    // Of an older state of the file, or of one that was forgotten meanwhile.
    if (found == known_.end() || found->second.askedStamp != made->job.stamp) continue;
    TakeAnswer(found->second, *made);
    const int row = found->second.row;
    if (list_ && IsSeen(row)) SendMessageW(list_, LVM_REDRAWITEMS, static_cast<WPARAM>(row), row);
  }
}

void ThumbnailView::TakeAnswer(Known& known, const MadeThumbnail& made) {
  known.isAnswered = true;
  known.stamp = made.job.stamp;
  known.askedStamp = 0;
  if (made.picture) {
    if (known.image < 0 && pictureCells_ >= kMostPictures) known.image = FreeCell();
    if (known.image < 0 && pictureCells_ >= kMostPictures) return;  // all of them are in sight
    if (known.image < 0) ++pictureCells_;
    known.image = images_.PutPicture(known.image, *made.picture);
  } else if (known.image >= 0) {
    freeCells_.push_back(std::exchange(known.image, -1));
  }
}

// A cell whose picture is not in sight and was not so for the longest time; -1 when there is none.
int ThumbnailView::FreeCell() {
  if (!freeCells_.empty()) {
    const int cell = freeCells_.back();
    freeCells_.pop_back();
    return cell;
  }
  auto oldest = known_.end();
  for (auto known = known_.begin(); known != known_.end(); ++known) {
    if (known->second.image < 0 || known->second.askedStamp != 0 || IsSeen(known->second.row)) continue;
    if (oldest == known_.end() || known->second.used < oldest->second.used) oldest = known;
  }
  if (oldest == known_.end()) return -1;
  const int cell = oldest->second.image;
  known_.erase(oldest);
  return cell;
}

// Makes room: files that have no picture are asked again when they are seen again.
void ThumbnailView::DropKnown() {
  std::erase_if(known_,
                [](const auto& known) { return known.second.image < 0 && known.second.askedStamp == 0; });
}

}  // namespace controls

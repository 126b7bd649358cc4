// Makes thumbnails on a thread of its own.
#pragma once

#include <windows.h>

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "src/preview/picture.h"

namespace controls {

struct ThumbnailJob {
  std::wstring path;
  uint64_t stamp = 0;  // of the file as the asker knows it
  int size = 0;        // pixels
  int row = -1;        // where the asker wants it
};

struct MadeThumbnail {
  ThumbnailJob job;
  std::optional<file_explorer::preview::Picture> picture;  // none where none can be made
};

// Called on the thread; `cancelled` is set when nobody wants the picture any more.
using MakeThumbnail = std::function<std::optional<file_explorer::preview::Picture>(
    const ThumbnailJob& job, const std::atomic<bool>& cancelled)>;

// Functions are for the window's thread.
class ThumbnailMaker {
 public:
  ThumbnailMaker();
  ~ThumbnailMaker();
  ThumbnailMaker(const ThumbnailMaker&) = delete;
  ThumbnailMaker& operator=(const ThumbnailMaker&) = delete;

  // Before the first job; without it files get their previews.
  void SetFunction(MakeThumbnail make);
  // The window that gets the message (posted) when something was made.
  void SetWindow(HWND window, UINT message);
  void CloseWindow();

  // Jobs are done in the order in which they come.
  void Add(ThumbnailJob job);
  // Forgets the jobs that wait and for which isWanted is false; gives them to `forgotten`.
  void Review(const std::function<bool(const ThumbnailJob&)>& isWanted,
              const std::function<void(const ThumbnailJob&)>& forgotten);
  // Forgets all jobs, and what was made but not taken. Never waits for the thread.
  void CancelAll();

  // To be called at the start of handling the message.
  void Received();
  std::optional<MadeThumbnail> Take();

 private:
  struct State;
  static void Work(const std::shared_ptr<State>& state);
  std::shared_ptr<State> state_;
};

}  // namespace controls

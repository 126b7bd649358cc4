// The pictures of the thumbnail view: asked for when a row is painted, made on a thread, kept while the view
// lives.
#pragma once

#include <windows.h>

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "workbench/controls/fileview/thumbnail_images.h"
#include "workbench/controls/fileview/thumbnail_maker.h"

namespace controls {

// The file of a row.
struct ThumbnailSubject {
  std::wstring path;
  uint64_t stamp = 0;  // another one when the file has changed
};

class ThumbnailView {
 public:
  static constexpr UINT kMadeMessage = WM_APP + 22;
  static constexpr size_t kMostPictures = 320;
  static constexpr size_t kMostKnown = 4000;  // files, with those that have no picture

  // `pane` gets kMadeMessage; `list` is the list view whose rows the pictures belong to.
  void Attach(HWND pane, HWND list);
  void Detach();
  void SetFunction(MakeThumbnail make) { maker_.SetFunction(std::move(make)); }

  // picture: the largest side of a picture, cell: of the framed cell around it; pixels. Forgets all pictures.
  void SetSize(int picture, int cell);
  HIMAGELIST images() const { return images_.list(); }
  int cell() const { return images_.cell(); }

  // The image of a row that is being painted: its picture, or a cell with the icon while there is none.
  // subject may be null for a row that has no file.
  int ImageOf(int row, int systemImage, const ThumbnailSubject* subject);
  // The list has been painted: pictures of rows that are not seen any more are not made.
  void OnPainted();
  // Another folder is shown: what was made stays, nothing more is made for the old one.
  void OnFolderLeft();
  // kMadeMessage: shows what was made.
  void OnMade();

 private:
  struct Known {
    bool isAnswered = false;  // there is a picture, or there is none, of the file as of `stamp`
    uint64_t stamp = 0;
    uint64_t askedStamp = 0;  // a job waits or is being done; 0 when none
    int image = -1;           // may be the one of an older file while a new one is made
    int row = -1;             // where it was painted last
    uint64_t used = 0;
  };
  bool IsSeen(int row) const;
  void TakeAnswer(Known& known, const MadeThumbnail& made);
  int FreeCell();
  void DropKnown();

  HWND list_ = nullptr;
  int pictureSize_ = 0;
  ThumbnailImages images_;
  ThumbnailMaker maker_;
  std::map<std::wstring, Known> known_;  // by path
  std::vector<int> freeCells_;
  size_t pictureCells_ = 0;
  uint64_t uses_ = 0;
};

}  // namespace controls

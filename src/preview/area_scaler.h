// Makes a picture smaller while its rows come in: each pixel of the result is the mean of the area that it
// covers. Never needs more of the picture than a row.
#pragma once

#include <cstdint>
#include <vector>

#include "src/preview/picture.h"

namespace file_explorer::preview {

struct PictureSize {
  int width = 0;
  int height = 0;
  bool operator==(const PictureSize&) const = default;
};

// The largest size of the same shape that fits into a square of `edge` pixels, not larger than the picture
// and at least one pixel on each side.
PictureSize FitInSquare(PictureSize picture, int edge);

class AreaScaler {
 public:
  // Sides are at least 1; the result is not larger than the source.
  AreaScaler(PictureSize source, PictureSize result);

  // The next row of the source, as many pixels as it is wide, in Picture's form. Rows after the last one are
  // ignored.
  void AddRow(const std::uint32_t* row);
  // What the rows so far make; missing ones stay transparent.
  Picture Finish() const;

 private:
  // A source row or column lies in one part of the result, or over the border of two.
  struct Split {
    int first;
    float firstWeight;  // shares of a part's extent
    float secondWeight;
  };
  static Split SplitOf(int position, int source, int result);
  void Spread(const std::uint32_t* row);
  void AddTo(int resultRow, float weight);

  PictureSize source_;
  PictureSize result_;
  int nextRow_ = 0;
  std::vector<Split> columns_;
  std::vector<float> row_;   // one source row made as narrow as the result: four channels a pixel
  std::vector<float> sums_;  // of all result rows
};

}  // namespace file_explorer::preview

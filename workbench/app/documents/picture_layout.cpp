#include "workbench/app/documents/picture_layout.h"

#include <algorithm>
#include <cmath>

namespace workbench {
namespace {

// Place of a stretch inside a view: in the middle when it is shorter, else without a gap at either end.
double KeepStretchInside(double place, double length, int view) {
  if (length <= view) return std::floor((view - length) / 2);
  return std::clamp(place, view - length, 0.0);
}

}  // namespace

void PictureLayout::SetView(PixelSize view) {
  // What was in the middle stays in the middle.
  left_ += (view.width - view_.width) / 2.0;
  top_ += (view.height - view_.height) / 2.0;
  view_ = view;
  if (fits_) {
    SetFit();
  } else {
    KeepInside();
  }
}

void PictureLayout::SetFit() {
  fits_ = true;
  zoom_ = FittingZoom();
  KeepInside();
}

void PictureLayout::ZoomBy(double factor, int x, int y) {
  SetZoom(zoom_ * factor, x, y);
}

void PictureLayout::SetZoom(double zoom, int x, int y) {
  // A picture larger than the smallest zoom shows whole may still be shrunk until it fits.
  const double smallest = std::min(kSmallestZoom, FittingZoom());
  const double clamped = std::clamp(zoom, smallest, kLargestZoom);
  const double factor = clamped / zoom_;
  left_ = x - (x - left_) * factor;
  top_ = y - (y - top_) * factor;
  zoom_ = clamped;
  fits_ = false;
  KeepInside();
}

void PictureLayout::Pan(int dx, int dy) {
  left_ += dx;
  top_ += dy;
  KeepInside();
}

bool PictureLayout::CanPan() const {
  return picture_.width * zoom_ > view_.width || picture_.height * zoom_ > view_.height;
}

double PictureLayout::FittingZoom() const {
  if (picture_.width <= 0 || picture_.height <= 0 || view_.width <= 0 || view_.height <= 0) return 1.0;
  const double across = static_cast<double>(view_.width) / picture_.width;
  const double down = static_cast<double>(view_.height) / picture_.height;
  return std::min({across, down, 1.0});
}

void PictureLayout::KeepInside() {
  left_ = KeepStretchInside(left_, picture_.width * zoom_, view_.width);
  top_ = KeepStretchInside(top_, picture_.height * zoom_, view_.height);
}

}  // namespace workbench

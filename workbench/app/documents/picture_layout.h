// Where a picture lies in its view: zoom and place. Lengths are in pixels of the screen unless said
// otherwise.
#pragma once

namespace workbench {

struct PixelSize {
  int width = 0;
  int height = 0;
};

class PictureLayout {
 public:
  static constexpr double kLargestZoom = 32.0;
  static constexpr double kSmallestZoom = 1.0 / 64;

  explicit PictureLayout(PixelSize picture) : picture_(picture) { SetFit(); }

  // A picture that fits follows the view's size; one that was zoomed keeps its zoom and stays inside.
  void SetView(PixelSize view);
  // Whole picture in the view, keeping the aspect ratio; smaller pictures are not enlarged.
  void SetFit();
  // Zooms by a factor; the picture's point under (x, y) of the view stays there.
  void ZoomBy(double factor, int x, int y);
  void SetZoom(double zoom, int x, int y);
  void Pan(int dx, int dy);

  bool fits() const { return fits_; }
  bool CanPan() const;
  double zoom() const { return zoom_; }  // screen pixels for one of the picture's
  PixelSize picture() const { return picture_; }
  PixelSize view() const { return view_; }
  // The view's place of the picture's left top corner; negative when it lies outside.
  double left() const { return left_; }
  double top() const { return top_; }

 private:
  double FittingZoom() const;
  void KeepInside();

  PixelSize picture_;
  PixelSize view_;
  bool fits_ = true;
  double zoom_ = 1.0;
  double left_ = 0;
  double top_ = 0;
};

}  // namespace workbench

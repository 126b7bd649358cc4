// How a model is seen: the eye's axes, and the places of points in the picture.
#pragma once

#include <cmath>
#include <vector>

#include "src/preview/mesh.h"
#include "src/preview/vector_math.h"

namespace file_explorer::preview {

// The eye's own axes: right, up, and towards the eye.
struct Eye {
  Point right;
  Point up;
  Point towards;

  // From the front, a little from the right and above.
  static Eye ThreeQuarter() {
    constexpr float kTurn = 0.56f;  // radians to the right
    constexpr float kLift = 0.42f;  // radians above the ground
    Eye eye;
    eye.towards = {std::sin(kTurn) * std::cos(kLift), std::sin(kLift), std::cos(kTurn) * std::cos(kLift)};
    eye.right = Unit(Cross({0, 1, 0}, eye.towards));
    eye.up = Cross(eye.towards, eye.right);
    return eye;
  }
  Point Seen(const Point& point) const { return {Dot(point, right), Dot(point, up), Dot(point, towards)}; }
};

// Points as they lie in the picture: x and y in samples, z grows towards the eye and is straight in x and y.
// All that is drawn fills nine tenths of the picture and lies in its middle.
std::vector<Point> Project(const Mesh& mesh, const Eye& eye, int samples);

}  // namespace file_explorer::preview

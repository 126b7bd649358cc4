// Faces of many corners: the triangles cover the face, all of it once and nothing else.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "tests/unit/preview/preview_testing.h"

namespace file_explorer::preview {
namespace {

using Outline = std::vector<std::array<double, 2>>;

double SignedArea(const Point& a, const Point& b, const Point& c) {
  return ((double{b.x} - a.x) * (double{c.y} - a.y) - (double{b.y} - a.y) * (double{c.x} - a.x)) / 2;
}

double AreaOf(const Outline& outline) {
  double area = 0;
  for (std::size_t i = 0; i < outline.size(); ++i) {
    const auto& a = outline[i];
    const auto& b = outline[(i + 1) % outline.size()];
    area += (a[0] * b[1] - a[1] * b[0]) / 2;
  }
  return area;
}

std::optional<Mesh> MeshOf(const Outline& outline) {
  WorkBudget budget = Plenty();
  MeshBuilder builder(MeshLimits(), budget);
  builder.BeginFace();
  // Corners may come before their points.
  for (std::size_t i = 0; i < outline.size(); ++i) EXPECT_TRUE(builder.AddCorner(i));
  for (const auto& [x, y] : outline) EXPECT_TRUE(builder.AddPoint(x, y, 0));
  return builder.Finish(UpAxis::kY);
}

// The outline has to reach from -1 to 1 along its longer side, so that the mesh has its measures.
void ExpectCovered(const Outline& outline) {
  const auto mesh = MeshOf(outline);
  ASSERT_TRUE(mesh);
  const double whole = AreaOf(outline);
  double sum = 0;
  for (const auto& [a, b, c] : mesh->triangles) {
    const double area = SignedArea(mesh->points[a], mesh->points[b], mesh->points[c]);
    EXPECT_GT(area * whole, 0) << "a triangle is turned round";
    sum += area;
  }
  EXPECT_NEAR(sum, whole, 1e-5);
}

TEST(PolygonCut, AnArrowIsNotFilledAtItsNotch) {
  // The notch is every one of the four corners in turn.
  const Outline arrow = {{-1, -1}, {0, -0.5}, {1, -1}, {0, 1}};
  for (std::size_t start = 0; start < arrow.size(); ++start) {
    Outline turned;
    for (std::size_t i = 0; i < arrow.size(); ++i) turned.push_back(arrow[(start + i) % arrow.size()]);
    ExpectCovered(turned);
    ExpectCovered(Outline(turned.rbegin(), turned.rend()));
  }
}

TEST(PolygonCut, ACombKeepsItsGaps) {
  Outline comb = {{-1, -0.4}, {1, -0.4}};
  for (int tooth = 10; tooth > -10; tooth -= 2) {
    const double right = tooth / 10.0;
    comb.push_back({right, 0.6});
    comb.push_back({right - 0.1, 0.6});
    comb.push_back({right - 0.1, -0.2});
    comb.push_back({right - 0.2, -0.2});
  }
  ExpectCovered(comb);
  ExpectCovered(Outline(comb.rbegin(), comb.rend()));
}

// A ring as one outline: outside, over a bridge to the hole, round it the other way, and back.
Outline Ring(int corners) {
  Outline ring;
  const auto at = [&](int i, double radius) -> std::array<double, 2> {
    const double turn = 6.283185307179586 * (i % corners) / corners;
    return {radius * std::cos(turn), radius * std::sin(turn)};
  };
  for (int i = 0; i <= corners; ++i) ring.push_back(at(i, 1));
  for (int i = corners; i >= 0; --i) ring.push_back(at(i, 0.6));
  return ring;
}

TEST(PolygonCut, TheHoleOfARingStaysOpen) {
  for (const int corners : {4, 8, 36, 100}) ExpectCovered(Ring(corners));
}

TEST(PolygonCut, CornersOnAStraightLineDoNoHarm) {
  ExpectCovered({{-1, -1}, {0, -1}, {0.5, -1}, {1, -1}, {1, 0}, {0, 0}, {0, 1}, {-1, 1}, {-1, 0}});
}

TEST(PolygonCut, AConvexFaceStaysAFan) {
  const auto mesh = MeshOf({{-1, -1}, {1, -1}, {1, 1}, {-1, 1}});
  ASSERT_TRUE(mesh);
  EXPECT_EQ(mesh->triangles, (std::vector<Triangle>{{0, 1, 2}, {0, 2, 3}}));
}

TEST(PolygonCut, AFaceThatCrossesItselfEnds) {
  EXPECT_TRUE(MeshOf({{-1, -1}, {1, 1}, {1, -1}, {-1, 0.9}}));
  Outline star;
  for (int i = 0; i < 401; ++i) star.push_back({std::cos(i * 2.9), std::sin(i * 2.9)});
  EXPECT_TRUE(MeshOf(star));
}

TEST(PolygonCut, TheBudgetEndsIt) {
  Outline star;
  for (int i = 0; i < 501; ++i) star.push_back({std::cos(i * 2.9), std::sin(i * 2.9)});
  WorkBudget budget(std::chrono::seconds(100), 5000);
  MeshBuilder builder(MeshLimits(), budget);
  builder.BeginFace();
  for (std::size_t i = 0; i < star.size(); ++i)
    EXPECT_TRUE(builder.AddCorner(i) && builder.AddPoint(star[i][0], star[i][1], 0));
  EXPECT_FALSE(builder.Finish(UpAxis::kY));
}

}  // namespace
}  // namespace file_explorer::preview

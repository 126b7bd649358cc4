#include "src/preview/renderer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <set>

#include "src/preview/corner_normals.h"
#include "tests/unit/preview/model_files.h"
#include "tests/unit/preview/preview_testing.h"

namespace file_explorer::preview {
namespace {

using namespace model_files;

std::optional<Picture> Render(const Model& model, int size = 64) {
  const auto mesh = ReadWith(ReadObj, Obj(model));
  WorkBudget budget = Plenty();
  return mesh ? RenderMesh(*mesh, size, budget) : std::nullopt;
}

int Alpha(const Picture& picture, int x, int y) {
  return static_cast<int>(picture.At(x, y) >> 24);
}
int Brightness(const Picture& picture, int x, int y) {
  const std::uint32_t pixel = picture.At(x, y);
  return static_cast<int>((pixel & 0xFF) + ((pixel >> 8) & 0xFF) + ((pixel >> 16) & 0xFF)) / 3;
}

struct Box {
  int left = 1000, top = 1000, right = -1, bottom = -1;
};
Box CoveredBox(const Picture& picture) {
  Box box;
  for (int y = 0; y < picture.height; ++y) {
    for (int x = 0; x < picture.width; ++x) {
      if (Alpha(picture, x, y) == 0) continue;
      box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x), std::max(box.bottom, y)};
    }
  }
  return box;
}

void ExpectCentredAndFilling(const Picture& picture) {
  const Box box = CoveredBox(picture);
  EXPECT_LE(std::abs((box.left + box.right) - (picture.width - 1)), 2);
  EXPECT_LE(std::abs((box.top + box.bottom) - (picture.height - 1)), 2);
  const int longest = std::max(box.right - box.left, box.bottom - box.top) + 1;
  EXPECT_GE(longest, picture.width * 87 / 100);
  EXPECT_LE(longest, picture.width * 95 / 100);
}

TEST(Renderer, GivesASquareOfTheAskedSize) {
  for (const int size : {16, 64, 96, 128, 256}) {
    const auto picture = Render(Cube(), size);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->width, size);
    EXPECT_EQ(picture->height, size);
    EXPECT_EQ(picture->pixels.size(), static_cast<std::size_t>(size * size));
  }
  EXPECT_FALSE(Render(Cube(), 0));
  EXPECT_FALSE(Render(Cube(), -5));
  EXPECT_FALSE(Render(Cube(), 100000));
}

TEST(Renderer, AModelOfAnySizeAtAnyPlaceIsCentredAndFillsThePicture) {
  for (const float scale : {1e-9f, 0.001f, 1.0f, 1e12f}) {
    for (const float away : {0.0f, 3.0f, -500.0f}) {
      const auto picture = Render(Moved(Cube(), scale, away * scale, -away * scale, 2 * away * scale));
      ASSERT_TRUE(picture) << scale << " " << away;
      ExpectCentredAndFilling(*picture);
    }
  }
}

TEST(Renderer, TallAndWideModelsAreCentredToo) {
  for (const std::size_t axis : {0, 1, 2}) {
    Model model = Cube();
    for (auto& point : model.points) point[axis] *= 8;
    const auto picture = Render(model);
    ASSERT_TRUE(picture);
    ExpectCentredAndFilling(*picture);
  }
}

TEST(Renderer, TheThreeFacesOfACubeThatAreSeenHaveDifferentShades) {
  const auto picture = Render(Cube(), 128);
  ASSERT_TRUE(picture);
  const int top = Brightness(*picture, 64, 22);
  const int front = Brightness(*picture, 40, 75);
  const int side = Brightness(*picture, 105, 75);
  EXPECT_GT(top, front + 15);
  EXPECT_GT(front, side + 15);
}

TEST(Renderer, AFlatFaceHasOneShade) {
  const auto picture = Render(Cube(), 128);
  ASSERT_TRUE(picture);
  // Only the light's glimmer changes over a flat face.
  EXPECT_NEAR(Brightness(*picture, 30, 60), Brightness(*picture, 60, 90), 2);
}

TEST(Renderer, ASphereIsBrighterInTheMiddleThanAtItsRim) {
  const auto picture = Render(Sphere(), 128);
  ASSERT_TRUE(picture);
  const int middle = Brightness(*picture, 64, 64);
  int rim = 0;
  const int places[][2] = {{64, 9}, {64, 118}, {9, 64}, {118, 64}};
  for (const auto& place : places) {
    EXPECT_EQ(Alpha(*picture, place[0], place[1]), 255);
    EXPECT_GT(middle, Brightness(*picture, place[0], place[1])) << place[0] << "," << place[1];
    rim += Brightness(*picture, place[0], place[1]);
  }
  EXPECT_GT(middle, rim / 4 + 40);
}

TEST(Renderer, ASphereIsSmoothAndRound) {
  const auto picture = Render(Sphere(), 128);
  ASSERT_TRUE(picture);
  for (int x = 20; x < 107; ++x) {
    EXPECT_LE(std::abs(Brightness(*picture, x, 64) - Brightness(*picture, x + 1, 64)), 6) << x;
  }
  // The outline is the same to all sides.
  for (int y = 0; y < 128; ++y) {
    for (int x = 0; x < 64; ++x) {
      EXPECT_NEAR(Alpha(*picture, x, y), Alpha(*picture, 127 - x, y), 90) << x << "," << y;
    }
  }
}

TEST(Renderer, TheOutlineIsSmoothAndTheBackgroundTransparent) {
  const auto picture = Render(Sphere());
  ASSERT_TRUE(picture);
  std::set<int> alphas;
  for (const std::uint32_t pixel : picture->pixels) {
    const std::uint32_t alpha = pixel >> 24;
    alphas.insert(static_cast<int>(alpha));
    for (const int shift : {0, 8, 16}) EXPECT_LE((pixel >> shift) & 0xFF, alpha);
  }
  EXPECT_TRUE(alphas.contains(0));
  EXPECT_TRUE(alphas.contains(255));
  EXPECT_GT(alphas.size(), 8U);
  EXPECT_EQ(picture->At(0, 0), 0U);
}

TEST(Renderer, BothSidesOfASurfaceAreLit) {
  Model cube = Cube();
  const auto outward = Render(cube);
  for (auto& face : cube.faces) std::reverse(face.begin(), face.end());
  const auto inward = Render(cube);
  ASSERT_TRUE(outward && inward);
  EXPECT_NEAR(Brightness(*outward, 25, 38), Brightness(*inward, 25, 38), 1);
}

TEST(Renderer, SmallTrianglesThatShareNoPointsLookAsRoundAsThoseThatDo) {
  const auto shared = ReadWith(ReadObj, Obj(Sphere()));
  Model split;
  const Model sphere = Sphere();
  for (const auto& triangle : Triangles(sphere)) {
    const auto first = static_cast<std::uint32_t>(split.points.size());
    for (const std::uint32_t corner : triangle) split.points.push_back(sphere.points[corner]);
    split.faces.push_back({first, first + 1, first + 2});
  }
  const auto a = Render(sphere);
  const auto b = Render(split);
  ASSERT_TRUE(a && b);
  for (int y = 8; y < 56; ++y) EXPECT_NEAR(Brightness(*a, 32, y), Brightness(*b, 32, y), 2);
}

TEST(Renderer, ColoursOfPointsAreSeen) {
  auto mesh = ReadWith(ReadObj, Obj(Cube()));
  ASSERT_TRUE(mesh);
  mesh->colors.assign(mesh->points.size(), 0xFF0000);
  WorkBudget budget = Plenty();
  const auto picture = RenderMesh(*mesh, 64, budget);
  ASSERT_TRUE(picture);
  const std::uint32_t pixel = picture->At(25, 38);
  EXPECT_GT((pixel >> 16) & 0xFF, 100U);
  EXPECT_LT((pixel >> 8) & 0xFF, 60U);
}

TEST(Renderer, TheNearerOfTwoSurfacesIsSeen) {
  // A red wall in front of a green one, in both orders of drawing.
  for (const bool redFirst : {true, false}) {
    Mesh mesh;
    for (const float z : redFirst ? std::array{0.9f, -0.9f} : std::array{-0.9f, 0.9f}) {
      const auto first = static_cast<std::uint32_t>(mesh.points.size());
      for (const auto& [x, y] : {std::array{-1.0f, -1.0f}, {1.0f, -1.0f}, {1.0f, 1.0f}, {-1.0f, 1.0f}}) {
        mesh.points.push_back({x, y, z});
        mesh.colors.push_back(z > 0 ? 0xFF0000 : 0x00FF00);
      }
      mesh.triangles.push_back({first, first + 1, first + 2});
      mesh.triangles.push_back({first, first + 2, first + 3});
    }
    WorkBudget budget = Plenty();
    const auto picture = RenderMesh(mesh, 64, budget);
    ASSERT_TRUE(picture);
    EXPECT_GT((picture->At(32, 32) >> 16) & 0xFF, 100U);
    EXPECT_EQ((picture->At(32, 32) >> 8) & 0xFF & 0xC0, 0U);
  }
}

TEST(Renderer, EndsWithItsBudget) {
  Mesh mesh;
  mesh.points = {{-1, -1, 0}, {1, -1, 0}, {0, 1, 0}};
  mesh.triangles.assign(1'000'000, {0, 1, 2});  // each one covers much of the picture
  // Each triangle costs more than one step: half of them can't be drawn.
  WorkBudget budget(std::chrono::hours(1), mesh.triangles.size() / 2);
  EXPECT_FALSE(RenderMesh(mesh, 64, budget));
  EXPECT_TRUE(budget.exhausted());
}

TEST(Renderer, ASurfaceSeenEdgeOnGivesNothing) {
  Mesh mesh;
  mesh.points = {{0, 0, 0}, {1, 1, 1}, {1, 1, 1}};
  mesh.triangles = {{0, 1, 2}};
  WorkBudget budget = Plenty();
  EXPECT_FALSE(RenderMesh(mesh, 64, budget));
}

TEST(Renderer, ManyTrianglesAtOnePointAreNotLookedAtInPairs) {
  Model fan;
  fan.points.push_back({0, 1, 0});
  constexpr std::uint32_t kSpokes = 60000;
  for (std::uint32_t i = 0; i < kSpokes; ++i) {
    const float turn = 6.2831853f * static_cast<float>(i) / static_cast<float>(kSpokes);
    fan.points.push_back({std::cos(turn), 0, std::sin(turn)});
  }
  for (std::uint32_t i = 0; i < kSpokes; ++i) fan.faces.push_back({0, i + 1, (i + 1) % kSpokes + 1});
  const auto mesh = ReadWith(ReadObj, Obj(fan));
  ASSERT_TRUE(mesh);
  // Some steps a corner; pairs would take thousands of them.
  WorkBudget budget(std::chrono::hours(1), std::uint64_t{kSpokes} * 3 * 10);
  EXPECT_EQ(CornerNormals(*mesh, budget).size(), std::size_t{kSpokes} * 3);
}

TEST(Renderer, ColoursOfFacesAreSeen) {
  auto mesh = ReadWith(ReadObj, Obj(Cube()));
  ASSERT_TRUE(mesh);
  mesh->colors.assign(mesh->points.size(), 0x0000FF);
  mesh->triangleColors.assign(mesh->triangles.size(), 0xFF0000);
  WorkBudget budget = Plenty();
  const auto picture = RenderMesh(*mesh, 64, budget);
  ASSERT_TRUE(picture);
  const std::uint32_t pixel = picture->At(25, 38);
  EXPECT_GT((pixel >> 16) & 0xFF, 100U);
  EXPECT_LT(pixel & 0xFF, 60U);
}

TEST(Renderer, PointsWithoutFacesAreDrawnAsDiscs) {
  Mesh cloud;
  const Model sphere = Sphere();
  for (const auto& point : sphere.points) cloud.points.push_back({point[0], point[1], point[2]});
  cloud.colors.assign(cloud.points.size(), 0x00FF00);
  WorkBudget budget = Plenty();
  const auto picture = RenderMesh(cloud, 128, budget);
  ASSERT_TRUE(picture);
  int covered = 0;
  for (int y = 0; y < 128; ++y) {
    for (int x = 0; x < 128; ++x) covered += Alpha(*picture, x, y) > 128;
  }
  EXPECT_GT(covered, 128 * 128 / 10);
  const Box box = CoveredBox(*picture);
  EXPECT_LE(std::abs((box.left + box.right) - 127), 6);
  EXPECT_GE(box.right - box.left, 128 * 80 / 100);
  EXPECT_EQ(picture->At(0, 0), 0U);
  for (const std::uint32_t pixel : picture->pixels)
    EXPECT_LE((pixel >> 16) & 0xFF, (pixel >> 8) & 0xFF) << "green";
}

TEST(Renderer, AFewPointsAreDrawnToo) {
  Mesh cloud;
  cloud.points = {{-1, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, -1, 0}};
  WorkBudget budget = Plenty();
  const auto picture = RenderMesh(cloud, 32, budget);
  ASSERT_TRUE(picture);
  EXPECT_LT(CoveredBox(*picture).left, CoveredBox(*picture).right);
  cloud.points.clear();
  EXPECT_FALSE(RenderMesh(cloud, 32, budget));
}

}  // namespace
}  // namespace file_explorer::preview

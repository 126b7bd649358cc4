#include "src/preview/mesh.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/unit/preview/preview_testing.h"

namespace file_explorer::preview {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
const double kNoNumber = std::nan("");

class MeshBuilderTest : public testing::Test {
 protected:
  void AddTriangle(std::uint64_t a, std::uint64_t b, std::uint64_t c) {
    builder_.BeginFace();
    EXPECT_TRUE(builder_.AddCorner(a) && builder_.AddCorner(b) && builder_.AddCorner(c));
  }
  void AddPoints(double scale, double shift) {
    EXPECT_TRUE(builder_.AddPoint(shift, 0, 0) && builder_.AddPoint(shift + scale, 0, 0) &&
                builder_.AddPoint(shift, scale / 2, 0));
  }

  WorkBudget budget_ = Plenty();
  MeshBuilder builder_{MeshLimits(), budget_};
};

TEST_F(MeshBuilderTest, BringsEverySurfaceToTheSameSizeAndPlace) {
  AddPoints(4e6, 7e9);
  AddTriangle(0, 1, 2);
  const auto mesh = builder_.Finish(UpAxis::kY);
  ASSERT_TRUE(mesh);
  EXPECT_NEAR(mesh->points[0].x, -1, 1e-4);
  EXPECT_NEAR(mesh->points[1].x, 1, 1e-4);
  EXPECT_NEAR(mesh->points[2].y, 0.5, 1e-4);
}

TEST_F(MeshBuilderTest, TurnsWhatHasZUp) {
  AddPoints(2, 0);
  AddTriangle(0, 1, 2);
  const auto mesh = builder_.Finish(UpAxis::kZ);
  ASSERT_TRUE(mesh);
  EXPECT_NEAR(mesh->points[2].z, -0.5, 1e-6);
  EXPECT_NEAR(mesh->points[2].y, 0, 1e-6);
}

TEST_F(MeshBuilderTest, LeavesTrianglesAtPointsThatAreNoNumbersOut) {
  AddPoints(1, 0);
  EXPECT_TRUE(builder_.AddPoint(kNoNumber, 0, 0));
  EXPECT_TRUE(builder_.AddPoint(0, kInfinity, 0));
  EXPECT_TRUE(builder_.AddPoint(0, 0, 1e300));
  AddTriangle(0, 1, 2);
  AddTriangle(0, 1, 3);
  AddTriangle(0, 1, 4);
  AddTriangle(0, 1, 5);
  const auto mesh = builder_.Finish(UpAxis::kY);
  ASSERT_TRUE(mesh);
  EXPECT_EQ(mesh->triangles.size(), 1U);
  for (const Point& point : mesh->points) EXPECT_TRUE(std::isfinite(point.x + point.y + point.z));
}

TEST_F(MeshBuilderTest, LeavesTrianglesWithoutAreaOut) {
  AddPoints(1, 0);
  EXPECT_TRUE(builder_.AddPoint(0.5, 0, 0));
  AddTriangle(0, 1, 2);
  AddTriangle(0, 1, 3);
  AddTriangle(0, 0, 2);
  const auto mesh = builder_.Finish(UpAxis::kY);
  ASSERT_TRUE(mesh);
  EXPECT_EQ(mesh->triangles.size(), 1U);
}

TEST_F(MeshBuilderTest, NothingIsNoMesh) {
  EXPECT_FALSE(builder_.Finish(UpAxis::kY));
}

TEST_F(MeshBuilderTest, PointsAloneAreNoMesh) {
  AddPoints(1, 0);
  EXPECT_FALSE(builder_.Finish(UpAxis::kY));
}

TEST_F(MeshBuilderTest, ALineIsNoMesh) {
  EXPECT_TRUE(builder_.AddPoint(0, 0, 0) && builder_.AddPoint(1, 1, 1) && builder_.AddPoint(2, 2, 2));
  AddTriangle(0, 1, 2);
  EXPECT_FALSE(builder_.Finish(UpAxis::kY));
}

TEST_F(MeshBuilderTest, ASinglePlaceIsNoMesh) {
  for (int i = 0; i < 3; ++i) EXPECT_TRUE(builder_.AddPoint(5, 5, 5));
  AddTriangle(0, 1, 2);
  EXPECT_FALSE(builder_.Finish(UpAxis::kY));
}

TEST_F(MeshBuilderTest, AnIndexThatLeadsNowhereDamagesTheWholeModel) {
  AddPoints(1, 0);
  AddTriangle(0, 1, 2);
  AddTriangle(0, 1, 3);
  EXPECT_FALSE(builder_.Finish(UpAxis::kY));
}

TEST_F(MeshBuilderTest, PointsThatNoTriangleUsesDoNotMoveTheSurface) {
  AddPoints(2, 0);
  EXPECT_TRUE(builder_.AddPoint(1e6, 1e6, 1e6));
  AddTriangle(0, 1, 2);
  const auto mesh = builder_.Finish(UpAxis::kY);
  ASSERT_TRUE(mesh);
  EXPECT_NEAR(mesh->points[0].x, -1, 1e-6);
  EXPECT_NEAR(mesh->points[1].x, 1, 1e-6);
}

TEST_F(MeshBuilderTest, PointsWithoutAColourBesideColouredOnesAreGrey) {
  AddPoints(1, 0);
  builder_.ColorLastPoint(0xFF102030);
  AddTriangle(0, 1, 2);
  const auto mesh = builder_.Finish(UpAxis::kY);
  ASSERT_TRUE(mesh);
  ASSERT_EQ(mesh->colors.size(), 3U);
  EXPECT_EQ(mesh->colors[2], 0x102030U);
  EXPECT_EQ(mesh->colors[0], mesh->colors[1]);
}

TEST(MeshBuilderLimits, PointsAndTrianglesEnd) {
  WorkBudget budget = Plenty();
  MeshBuilder builder({4, 2}, budget);
  for (int i = 0; i < 4; ++i) EXPECT_TRUE(builder.AddPoint(i, i * i, 0));
  EXPECT_FALSE(builder.AddPoint(9, 9, 9));
  builder.BeginFace();
  for (const std::uint64_t corner : {0, 1, 2, 3}) EXPECT_TRUE(builder.AddCorner(corner));
  EXPECT_FALSE(builder.AddCorner(0));
  EXPECT_FALSE(builder.AddCorner(std::uint64_t{1} << 40));
}

TEST(MeshBuilderLimits, TheBudgetEndsTheWork) {
  WorkBudget budget(std::chrono::milliseconds(0));
  MeshBuilder builder(MeshLimits(), budget);
  int added = 0;
  while (added < 100000 && builder.AddPoint(added, 0, 0)) ++added;
  EXPECT_LT(added, 10000);
}

}  // namespace
}  // namespace file_explorer::preview

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

TEST_F(MeshBuilderTest, ColoursOfFacesStayWithTheirTriangles) {
  AddPoints(1, 0);
  EXPECT_TRUE(builder_.AddPoint(0.5, 0, 0));
  AddTriangle(0, 1, 2);
  AddTriangle(0, 1, 3);  // has no area
  EXPECT_TRUE(builder_.ColorFace(0x00FF00));
  builder_.BeginFace();
  for (const std::uint64_t corner : {0, 1, 2, 3}) EXPECT_TRUE(builder_.AddCorner(corner));
  EXPECT_TRUE(builder_.ColorFace(0x0000FF));
  AddTriangle(3, 1, 2);
  const auto mesh = builder_.Finish(UpAxis::kY);
  ASSERT_TRUE(mesh);
  ASSERT_EQ(mesh->triangleColors.size(), mesh->triangles.size());
  EXPECT_EQ(mesh->triangleColors.front(), kNoColor);
  EXPECT_EQ(mesh->triangleColors[1], 0x0000FFU);
  EXPECT_EQ(mesh->triangleColors.back(), kNoColor);
}

TEST_F(MeshBuilderTest, PointsAloneAreACloudWhereThatIsWanted) {
  AddPoints(2, 0);
  EXPECT_TRUE(builder_.AddPoint(kNoNumber, 0, 0));
  EXPECT_TRUE(builder_.AddPoint(1, 1, 1));
  builder_.ColorLastPoint(0x123456);
  const auto mesh = builder_.Finish(UpAxis::kY, PointsAlone::kCloud);
  ASSERT_TRUE(mesh);
  EXPECT_TRUE(mesh->triangles.empty());
  ASSERT_EQ(mesh->points.size(), 4U) << "a point that is no number is left out";
  EXPECT_NEAR(mesh->points[0].x, -1, 1e-6);
  ASSERT_EQ(mesh->colors.size(), 4U);
  EXPECT_EQ(mesh->colors[3], 0x123456U);
}

TEST_F(MeshBuilderTest, AModelWhoseFacesAreAllUnusableIsNoCloud) {
  AddPoints(1, 0);
  EXPECT_TRUE(builder_.AddPoint(kNoNumber, 0, 0));
  AddTriangle(0, 1, 3);
  EXPECT_FALSE(builder_.Finish(UpAxis::kY, PointsAlone::kCloud));
}

TEST_F(MeshBuilderTest, FloatsAndDoublesMayBeMixed) {
  EXPECT_TRUE(builder_.AddPoint(Point{0, 0, 0}) && builder_.AddPoint(2.0, 0.0, 0.0) &&
              builder_.AddPoint(Point{0, 1, 0}));
  AddTriangle(0, 1, 2);
  const auto mesh = builder_.Finish(UpAxis::kY);
  ASSERT_TRUE(mesh);
  EXPECT_NEAR(mesh->points[1].x, 1, 1e-6);
  EXPECT_NEAR(mesh->points[2].y, 0.5, 1e-6);
}

TEST(MeshBuilderLimits, BytesEnd) {
  WorkBudget budget = Plenty();
  MeshBuilder builder({4 * 3 * sizeof(double), 2}, budget);
  for (int i = 0; i < 4; ++i) EXPECT_TRUE(builder.AddPoint(i, i * i, 0));
  EXPECT_FALSE(builder.AddPoint(9, 9, 9));
  EXPECT_FALSE(builder.AddTriangle(0, 1, 2));
}

TEST(MeshBuilderLimits, TrianglesEnd) {
  WorkBudget budget = Plenty();
  MeshBuilder builder({100'000, 2}, budget);
  builder.BeginFace();
  for (const std::uint64_t corner : {0, 1, 2, 3}) EXPECT_TRUE(builder.AddCorner(corner));
  EXPECT_FALSE(builder.AddCorner(0));
  EXPECT_FALSE(builder.AddTriangle(0, 1, 2));
  const Point corners[3] = {};
  EXPECT_FALSE(builder.AddTriangles(corners, 1));
}

TEST(MeshBuilderLimits, AnIndexThatNoPointCanHaveIsRefused) {
  WorkBudget budget = Plenty();
  MeshBuilder builder(MeshLimits(), budget);
  builder.BeginFace();
  EXPECT_FALSE(builder.AddCorner(std::uint64_t{1} << 40));
  EXPECT_FALSE(builder.AddTriangle(0, 1, std::uint64_t{1} << 40));
}

TEST(MeshBuilderLimits, TwoMillionLooseTrianglesFit) {
  WorkBudget budget = Plenty();
  MeshBuilder builder(MeshLimits(), budget);
  const Point corners[3] = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
  for (int i = 0; i < 2'000'000; ++i) ASSERT_TRUE(builder.AddTriangles(corners, 1)) << i;
  EXPECT_FALSE(builder.AddTriangles(corners, 1));
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

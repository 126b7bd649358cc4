#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "tests/unit/preview/model_files.h"
#include "tests/unit/preview/preview_testing.h"

namespace file_explorer::preview {
namespace {

std::optional<Mesh> Read(std::string_view text) {
  return ReadWith(ReadObj, text);
}

constexpr char kThreePoints[] = "v 0 0 0\nv 1 0 0\nv 0 1 0\n";

TEST(ObjReader, ReadsPointsAndFaces) {
  const auto mesh = Read(model_files::Obj(model_files::Cube()));
  ASSERT_TRUE(mesh);
  EXPECT_EQ(mesh->points.size(), 8U);
  EXPECT_EQ(mesh->triangles.size(), 12U);
  EXPECT_TRUE(mesh->colors.empty());
}

TEST(ObjReader, CornersMayNameTexturesAndNormals) {
  for (const char* const face : {"f 1/1 2/2 3/3", "f 1//1 2//2 3//3", "f 1/5/6 2/5/6 3/5/6", "f 1/ 2/ 3/"}) {
    EXPECT_TRUE(Read(std::string(kThreePoints) + face)) << face;
  }
}

TEST(ObjReader, NegativeNumbersCountFromTheLastPoint) {
  const auto mesh = Read(std::string(kThreePoints) + "f -3 -2 -1\nv 9 9 9\n");
  ASSERT_TRUE(mesh);
  EXPECT_EQ(mesh->triangles[0], (Triangle{0, 1, 2}));
}

TEST(ObjReader, FacesMayComeBeforeTheirPoints) {
  EXPECT_TRUE(Read(std::string("f 1 2 3\n") + kThreePoints));
}

TEST(ObjReader, LinesMayBeContinuedAndEndInComments) {
  EXPECT_TRUE(Read("v 0 0 \\\n0 # here\r\nv 1 0 0\r\nv 0 1 0\r\nf 1 2 \\\r\n3 # there\r\n"));
}

TEST(ObjReader, PointsMayHaveColours) {
  const auto mesh = Read("v 0 0 0 1 0 0.5\nv 1 0 0 0 1 0\nv 0 1 0 2 0 0\nf 1 2 3\n");
  ASSERT_TRUE(mesh);
  ASSERT_EQ(mesh->colors.size(), 3U);
  EXPECT_EQ(mesh->colors[0], 0xFF0080U);
  EXPECT_EQ(mesh->colors[2], 0xFF0000U);
}

TEST(ObjReader, OtherLinesArePassedOver) {
  EXPECT_TRUE(Read(std::string("mtllib a.mtl\nvn x\nvt\ng\ns off\nusemtl b\nl 1 2\np 1\n") + kThreePoints +
                   "f 1 2 3\n"));
}

TEST(ObjReader, DamagedFilesGiveNothing) {
  const std::string points = kThreePoints;
  for (const std::string& text : {std::string(), points, points + "f 1 2 4\n", points + "f 0 1 2\n",
                                  points + "f 1 2 -4\n", points + "f 1 2\n", points + "f a b c\n",
                                  std::string("v 1 2\nf 1 1 1\n"), std::string("v 1 2 x\nf 1 1 1\n"),
                                  points + "f 1 2 99999999999999999999\n", std::string("\0\0\0\0", 4)}) {
    EXPECT_FALSE(Read(text)) << text;
  }
}

TEST(ObjReader, AFaceOfManyCornersStaysWithinTheLimits) {
  std::string text = std::string(kThreePoints) + "f";
  for (int i = 0; i < 1000; ++i) text += " 1 2 3";
  EXPECT_TRUE(Read(text));
  EXPECT_FALSE(ReadWith(ReadObj, text, {1'000'000, 100}));
}

TEST(ObjReader, OnlyTheFacesAtPointsThatAreNoNumbersAreLeftOut) {
  for (const char* const word : {"1.#IND", "-1.#IND00", "1.#QNAN", "1.#INF", "nan", "-inf"}) {
    const auto mesh = Read(std::string(kThreePoints) + "v " + word + " 0 0\nf 1 2 3\nf 1 2 4\n");
    ASSERT_TRUE(mesh) << word;
    EXPECT_EQ(mesh->triangles.size(), 1U) << word;
  }
}

TEST(ObjReader, AConcaveFaceIsNotFilledOver) {
  const auto mesh = Read("v -1 -1 0\nv 0 -0.5 0\nv 1 -1 0\nv 0 1 0\nf 1 2 3 4\n");
  ASSERT_TRUE(mesh);
  EXPECT_EQ(mesh->triangles.size(), 2U);
  for (const Triangle& triangle : mesh->triangles) {
    // Both halves lie between the notch and the tip.
    EXPECT_NE(std::find(triangle.begin(), triangle.end(), 1U), triangle.end());
    EXPECT_NE(std::find(triangle.begin(), triangle.end(), 3U), triangle.end());
  }
}

TEST(ObjReader, PointsWithoutFacesAreACloud) {
  const auto mesh = Read("v 0 0 0 1 0 0\nv 1 0 0 1 0 0\nv 0 1 0 1 0 0\nv 1 1 1 0 0 1\nvn 0 0 1\n");
  ASSERT_TRUE(mesh);
  EXPECT_TRUE(mesh->triangles.empty());
  EXPECT_EQ(mesh->points.size(), 4U);
  EXPECT_EQ(mesh->colors[3], 0x0000FFU);
}

}  // namespace
}  // namespace file_explorer::preview

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "tests/unit/preview/model_files.h"
#include "tests/unit/preview/preview_testing.h"

namespace file_explorer::preview {
namespace {

using namespace model_files;

std::optional<Mesh> Read(std::string_view file) {
  return ReadWith(ReadStl, file);
}

TEST(StlReader, ReadsBothForms) {
  for (const std::string& file : {BinaryStl(Cube()), TextStl(Cube())}) {
    const auto mesh = Read(file);
    ASSERT_TRUE(mesh);
    EXPECT_EQ(mesh->triangles.size(), 12U);
  }
}

TEST(StlReader, ABinaryTitleMayBeginLikeAText) {
  EXPECT_TRUE(Read(BinaryStl(Cube(), "solid cube")));
  EXPECT_TRUE(Read(BinaryStl(Cube(), "solid cube") + "some bytes more"));
}

TEST(StlReader, BytesBehindTheTrianglesAreAllowed) {
  EXPECT_TRUE(Read(BinaryStl(Cube()) + "colours"));
}

TEST(StlReader, ACutBinaryFileGivesNothing) {
  const std::string file = BinaryStl(Cube());
  EXPECT_EQ(FirstCutThatIsTaken(ReadStl, file), file.size());
}

TEST(StlReader, ATextCutInATriangleGivesNothing) {
  const std::string file = TextStl(Cube());
  const std::size_t lastLoop = file.rfind("outer loop");
  EXPECT_FALSE(Read(file.substr(0, lastLoop + 12)));
  EXPECT_FALSE(Read(file.substr(0, file.rfind("endloop"))));
}

TEST(StlReader, AStatedNumberReservesNothing) {
  std::string file = BinaryStl(Cube());
  file.replace(80, 4, "\xFF\xFF\xFF\xFF");
  EXPECT_FALSE(Read(file));
}

TEST(StlReader, TrianglesAtNoNumbersAreLeftOut) {
  Model cube = Cube();
  cube.points.push_back({std::numeric_limits<float>::quiet_NaN(), 0, 0});
  cube.points.push_back({std::numeric_limits<float>::infinity(), 0, 0});
  cube.faces.push_back({0, 1, 8});
  cube.faces.push_back({0, 1, 9});
  const auto mesh = Read(BinaryStl(cube));
  ASSERT_TRUE(mesh);
  EXPECT_EQ(mesh->triangles.size(), 12U);
}

TEST(StlReader, DamagedTextsGiveNothing) {
  for (const char* const text : {"solid", "solid x\nendsolid x\n",
                                 "solid x\nfacet\nouter loop\nvertex 1 2\nendloop\nendfacet\nendsolid",
                                 "solid x\nvertex 0 0 0\nvertex 1 0 0\nvertex 0 1 0\n", ""}) {
    EXPECT_FALSE(Read(text)) << text;
  }
}

TEST(StlReader, FlatThingsLieAndOthersStandWithZUp) {
  Model plate = Cube();
  for (auto& point : plate.points) point[1] *= 0.1f;
  const auto lying = Read(BinaryStl(plate));
  ASSERT_TRUE(lying);
  EXPECT_NEAR(Extent(*lying, &Point::y), 0.2, 1e-5);
  Model column = Cube();
  for (auto& point : column.points) point[2] *= 4;
  const auto standing = Read(BinaryStl(column));
  ASSERT_TRUE(standing);
  EXPECT_NEAR(Extent(*standing, &Point::y), 2, 1e-5);
}

TEST(StlReader, ReadsMoreThanHalfAMillionTriangles) {
  constexpr std::uint32_t kCount = 700'000;
  std::string file(80, ' ');
  file += Bytes(kCount);
  const float corners[9] = {0, 0, 0, 1, 0, 0, 0, 1, 0};
  std::string record(12, '\0');
  record.append(reinterpret_cast<const char*>(corners), sizeof corners);
  record.append(2, '\0');
  for (std::uint32_t i = 0; i < kCount; ++i) file += record;
  const auto mesh = Read(file);
  ASSERT_TRUE(mesh);
  EXPECT_EQ(mesh->triangles.size(), kCount);
}

TEST(StlReader, TextsMayHoldNoNumbersAndBreakTheirLinesAnywhere) {
  const auto mesh = Read(
      "solid a\nfacet normal 0 0 1 outer loop vertex 0 0 0 vertex\n1 0\n0 vertex 0 1 0 endloop endfacet\n"
      "facet normal 1.#IND 1.#IND 1.#IND\nouter loop\nvertex 1.#IND 0 0\nvertex 1 0 0\nvertex 0 1 "
      "0\nendloop\n"
      "endfacet\nendsolid a");
  ASSERT_TRUE(mesh);
  EXPECT_EQ(mesh->triangles.size(), 1U);
}

}  // namespace
}  // namespace file_explorer::preview

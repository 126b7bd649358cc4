#include <gtest/gtest.h>

#include <string>

#include "src/preview/ply_header.h"
#include "tests/unit/preview/model_files.h"
#include "tests/unit/preview/preview_testing.h"

namespace file_explorer::preview {
namespace {

using namespace model_files;

std::optional<Mesh> Read(std::string_view file) {
  return ReadWith(ReadPly, file);
}

TEST(PlyReader, ReadsAllThreeForms) {
  for (const std::string& file : {TextPly(Cube()), BinaryPly(Cube(), false), BinaryPly(Cube(), true)}) {
    const auto mesh = Read(file);
    ASSERT_TRUE(mesh);
    EXPECT_EQ(mesh->points.size(), 8U);
    EXPECT_EQ(mesh->triangles.size(), 12U);
    EXPECT_NEAR(mesh->points[7].x, 1, 1e-6);
  }
}

TEST(PlyReader, ACutFileGivesNothing) {
  for (const std::string& file : {BinaryPly(Cube(), false), BinaryPly(Cube(), true)}) {
    EXPECT_EQ(FirstCutThatIsTaken(ReadPly, file), file.size());
  }
  const std::string text = TextPly(Cube());
  EXPECT_GE(FirstCutThatIsTaken(ReadPly, text), text.size() - 1);  // all but the line's end
}

TEST(PlyReader, LinesOfTheHeaderMayEndLikeOnWindows) {
  std::string file = TextPly(Cube());
  for (std::size_t at = file.find('\n'); at != file.npos; at = file.find('\n', at + 2)) file.insert(at, "\r");
  EXPECT_TRUE(Read(file));
}

constexpr char kColoured[] =
    "ply\nformat ascii 1.0\nelement vertex 3\nproperty double x\nproperty double y\nproperty double z\n"
    "property uchar red\nproperty uchar green\nproperty uchar blue\nproperty uchar alpha\n"
    "element face 1\nproperty uchar flags\nproperty list uint8 uint vertex_index\nproperty list uchar float "
    "texcoord\n"
    "element edge 1\nproperty int a\nend_header\n"
    "0 0 0 255 0 0 9\n1 0 0 0 300 0 9\n0 1 0 0 0 -5 9\n7 3 0 1 2 2 0.5 0.5\n4\n";

TEST(PlyReader, TakesColoursAndPassesOverOtherValues) {
  const auto mesh = Read(kColoured);
  ASSERT_TRUE(mesh);
  ASSERT_EQ(mesh->colors.size(), 3U);
  EXPECT_EQ(mesh->colors[0], 0xFF0000U);
  EXPECT_EQ(mesh->colors[1], 0x00FF00U);
  EXPECT_EQ(mesh->colors[2], 0x000000U);
}

TEST(PlyReader, FacesMayComeBeforePoints) {
  EXPECT_TRUE(Read(
      "ply\nformat ascii 1.0\nelement face 1\nproperty list uchar int vertex_indices\nelement vertex 3\n"
      "property float x\nproperty float y\nproperty float z\nend_header\n3 0 1 2\n0 0 0\n1 0 0\n0 1 0\n"));
}

std::string WithReplaced(std::string file, std::string_view what, std::string_view by) {
  const std::size_t at = file.find(what);
  EXPECT_NE(at, file.npos);
  return file.replace(at, what.size(), by);
}

TEST(PlyReader, LyingCountsReserveNothing) {
  for (const std::string& file : {TextPly(Cube()), BinaryPly(Cube(), false)}) {
    EXPECT_FALSE(Read(WithReplaced(file, "vertex 8", "vertex 999999999999999")));
    EXPECT_FALSE(Read(WithReplaced(file, "face 6", "face 999999999999999")));
    EXPECT_FALSE(Read(WithReplaced(file, "vertex 8", "vertex -8")));
  }
}

TEST(PlyReader, ElementsWithoutValuesTakeNoTime) {
  EXPECT_TRUE(Read(
      WithReplaced(TextPly(Cube()), "element vertex", "element nothing 999999999999999\nelement vertex")));
}

TEST(PlyReader, DamagedFilesGiveNothing) {
  const std::string good = TextPly(Cube());
  EXPECT_FALSE(Read(WithReplaced(good, "ply\n", "plx\n")));
  EXPECT_FALSE(Read(WithReplaced(good, "ascii", "utf8")));
  EXPECT_FALSE(Read(WithReplaced(good, "format ascii 1.0\n", "")));
  EXPECT_FALSE(Read(WithReplaced(good, "float x", "string x")));
  EXPECT_FALSE(Read(WithReplaced(good, "list uchar", "list float")));
  EXPECT_FALSE(Read(WithReplaced(good, "end_header", "end_heade")));
  EXPECT_FALSE(Read(WithReplaced(good, "element vertex 8\n", "")));
  EXPECT_FALSE(Read(WithReplaced(good, "4 0 2 3 1", "4 0 2 3 8")));
  EXPECT_FALSE(Read(WithReplaced(good, "4 0 2 3 1", "4 0 2 3 -1")));
  EXPECT_FALSE(Read(WithReplaced(good, "4 0 2 3 1", "4 0 2 3 0.5")));
  EXPECT_FALSE(Read(WithReplaced(good, "4 0 2 3 1", "-4 0 2 3 1")));
}

TEST(PlyReader, AListOfBillionsEndsWithTheFile) {
  std::string file = BinaryPly(Cube(), false);
  file = WithReplaced(file, "list uchar int", "list uint int");
  EXPECT_FALSE(Read(file));
}

TEST(PlyHeaderTest, TooManyElementsOrPropertiesAreRefused) {
  std::string elements = "ply\nformat ascii 1.0\n";
  for (int i = 0; i < 40; ++i) elements += "element other 1\n";
  EXPECT_FALSE(ReadPlyHeader(elements + "end_header\n"));
  std::string properties = "ply\nformat ascii 1.0\nelement other 1\n";
  for (int i = 0; i < 200; ++i) properties += "property int a\n";
  EXPECT_FALSE(ReadPlyHeader(properties + "end_header\n"));
}

constexpr char kSquare[] = "element vertex 4\nproperty float x\nproperty float y\nproperty float z\n";
constexpr char kSquarePoints[] = "0 0 0\n1 0 0\n1 1 0\n0 1 0\n";

TEST(PlyReader, RowsMayHaveMoreValuesThanTheHeaderSays) {
  const auto mesh =
      Read(std::string("ply\nformat ascii 1.0\n") + kSquare +
           "element face 2\nproperty list uchar int vertex_indices\nend_header\n"
           "0 0 0 255 0 0\n1 0 0 9\n\n1 1 0 0.5 0.5\n0 1 0 1 2 3 4\n3 0 1 2 255 0 0\n3 0 2 3 7\n");
  ASSERT_TRUE(mesh);
  EXPECT_EQ(mesh->points.size(), 4U);
  EXPECT_EQ(mesh->triangles, (std::vector<Triangle>{{0, 1, 2}, {0, 2, 3}}));
}

TEST(PlyReader, RowsMayBeBrokenAnywhere) {
  const auto mesh = Read(std::string("ply\nformat ascii 1.0\n") + kSquare +
                         "element face 1\nproperty list uchar int vertex_indices\nend_header\n"
                         "0 0 0 1 0 0\n1 1\n0 0 1 0 4 0\n1 2 3");
  ASSERT_TRUE(mesh);
  EXPECT_EQ(mesh->triangles.size(), 2U);
}

TEST(PlyReader, StripsOfTrianglesAreReadWithTheirRestarts) {
  const auto mesh = Read(std::string("ply\nformat ascii 1.0\n") + kSquare +
                         "element tristrips 1\nproperty list int int vertex_indices\nend_header\n" +
                         kSquarePoints + "8 0 1 3 2 -1 1 2 3\n");
  ASSERT_TRUE(mesh);
  EXPECT_EQ(mesh->triangles, (std::vector<Triangle>{{0, 1, 3}, {3, 1, 2}, {1, 2, 3}}));
}

TEST(PlyReader, BinaryStripsAreReadToo) {
  std::string file = std::string("ply\nformat binary_little_endian 1.0\n") + kSquare +
                     "element tristrips 1\nproperty list int int vertex_indices\nend_header\n";
  const float points[12] = {0, 0, 0, 1, 0, 0, 1, 1, 0, 0, 1, 0};
  file.append(reinterpret_cast<const char*>(points), sizeof points);
  for (const std::int32_t value : {6, 0, 1, 3, -1, 2, 3}) file += Bytes(static_cast<std::uint32_t>(value));
  const auto mesh = Read(file);
  ASSERT_TRUE(mesh);
  EXPECT_EQ(mesh->triangles, (std::vector<Triangle>{{0, 1, 3}}));
  EXPECT_EQ(FirstCutThatIsTaken(ReadPly, file), file.size());
}

TEST(PlyReader, DiffuseColoursAreColoursOfPoints) {
  const auto mesh =
      Read(std::string("ply\nformat ascii 1.0\n") + kSquare +
           "property uchar diffuse_red\nproperty uchar diffuse_green\nproperty uchar diffuse_blue\n"
           "element face 1\nproperty list uchar int vertex_indices\nend_header\n"
           "0 0 0 1 2 3\n1 0 0 4 5 6\n1 1 0 7 8 9\n0 1 0 10 11 12\n4 0 1 2 3\n");
  ASSERT_TRUE(mesh);
  ASSERT_EQ(mesh->colors.size(), 4U);
  EXPECT_EQ(mesh->colors[1], 0x040506U);
}

TEST(PlyReader, FacesMayHaveColours) {
  const auto mesh = Read(std::string("ply\nformat ascii 1.0\n") + kSquare +
                         "element face 2\nproperty list uchar int vertex_indices\nproperty uchar red\n"
                         "property uchar green\nproperty uchar blue\nend_header\n" +
                         kSquarePoints + "4 0 1 2 3 255 0 0\n3 0 1 2 0 0 255\n");
  ASSERT_TRUE(mesh);
  EXPECT_TRUE(mesh->colors.empty());
  EXPECT_EQ(mesh->triangleColors, (std::vector<std::uint32_t>{0xFF0000, 0xFF0000, 0x0000FF}));
}

TEST(PlyReader, PackedRowsOfPointsMayHaveOtherValuesAndColours) {
  std::string file =
      "ply\nformat binary_little_endian 1.0\nelement vertex 3\nproperty short a\nproperty float x\nproperty "
      "float "
      "y\nproperty float z\nproperty uchar red\nproperty uchar green\nproperty uchar blue\nproperty uchar "
      "alpha\nelement face 1\nproperty list uchar int vertex_indices\nend_header\n";
  const float points[3][3] = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
  for (const auto& point : points) {
    file += "ab";
    file.append(reinterpret_cast<const char*>(point), sizeof point);
    file += std::string("\x01\x02\x03\x04", 4);
  }
  file += '\3' + Bytes(std::uint32_t{0}) + Bytes(std::uint32_t{1}) + Bytes(std::uint32_t{2});
  const auto mesh = Read(file);
  ASSERT_TRUE(mesh);
  EXPECT_NEAR(mesh->points[1].x, 1, 1e-6);
  EXPECT_EQ(mesh->colors, (std::vector<std::uint32_t>(3, 0x010203)));
}

TEST(PlyReader, PointsWithoutFacesAreACloud) {
  for (const char* const faces : {"", "element face 0\nproperty list uchar int vertex_indices\n"}) {
    const auto mesh =
        Read(std::string("ply\nformat ascii 1.0\n") + kSquare + faces + "end_header\n" + kSquarePoints);
    ASSERT_TRUE(mesh);
    EXPECT_TRUE(mesh->triangles.empty());
    EXPECT_EQ(mesh->points.size(), 4U);
  }
}

}  // namespace
}  // namespace file_explorer::preview

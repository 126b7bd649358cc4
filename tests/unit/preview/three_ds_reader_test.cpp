#include <gtest/gtest.h>

#include <string>

#include "tests/unit/preview/model_files.h"
#include "tests/unit/preview/preview_testing.h"

namespace file_explorer::preview {
namespace {

using namespace model_files;

std::optional<Mesh> Read(std::string_view file) {
  return ReadWith(Read3ds, file);
}

TEST(ThreeDsReader, ReadsAnObjectWithZUp) {
  Model column = Cube();
  for (auto& point : column.points) point[1] *= 3;
  const auto mesh = Read(ThreeDs(column));
  ASSERT_TRUE(mesh);
  EXPECT_EQ(mesh->points.size(), 8U);
  EXPECT_EQ(mesh->triangles.size(), 12U);
  EXPECT_NEAR(Extent(*mesh, &Point::y), 2, 1e-5);
}

TEST(ThreeDsReader, NumbersCountWithinEachObject) {
  const std::string objects = ThreeDsObject(Cube(), "one") + Chunk(0xAFFF, "a material") +
                              ThreeDsObject(Moved(Cube(), 1, 5, 0, 0), "two");
  const auto mesh = Read(ThreeDs(objects));
  ASSERT_TRUE(mesh);
  EXPECT_EQ(mesh->points.size(), 16U);
  EXPECT_EQ(mesh->triangles.size(), 24U);
}

TEST(ThreeDsReader, FacesMayComeBeforeTheirPoints) {
  const std::string points =
      Bytes(std::uint16_t{3}) + PointBytes({0, 0, 0}) + PointBytes({1, 0, 0}) + PointBytes({0, 1, 0});
  const std::string faces = Bytes(std::uint16_t{1}) + Bytes(std::uint16_t{0}) + Bytes(std::uint16_t{1}) +
                            Bytes(std::uint16_t{2}) + Bytes(std::uint16_t{0});
  const std::string object =
      Chunk(0x4000, std::string("a\0", 2) + Chunk(0x4100, Chunk(0x4120, faces) + Chunk(0x4110, points)));
  EXPECT_TRUE(Read(ThreeDs(object)));
}

TEST(ThreeDsReader, BytesBehindTheFileAreAllowed) {
  EXPECT_TRUE(Read(ThreeDs(Cube()) + "more"));
}

TEST(ThreeDsReader, ACutFileGivesNothing) {
  const std::string file = ThreeDs(Cube());
  EXPECT_EQ(FirstCutThatIsTaken(Read3ds, file), file.size());
}

TEST(ThreeDsReader, LyingLengthsAndCountsGiveNothing) {
  const std::string good = ThreeDs(Cube());
  for (std::size_t at = 0; at + 4 <= 40; ++at) {
    std::string file = good;
    file.replace(at, 4, "\xFF\xFF\xFF\xFF");
    Read(file);  // whatever comes of it, it comes at once
  }
  std::string zero = good;
  zero.replace(8, 4, std::string(4, '\0'));  // a chunk shorter than its own header
  EXPECT_FALSE(Read(zero));
}

TEST(ThreeDsReader, OtherFilesGiveNothing) {
  EXPECT_FALSE(Read(""));
  EXPECT_FALSE(Read("MM"));
  EXPECT_FALSE(Read(Chunk(0x3D3D, "")));
  EXPECT_FALSE(Read(ThreeDs(Chunk(0x4000, "a name without an end"))));
  EXPECT_FALSE(Read(ThreeDs(std::string())));
}

}  // namespace
}  // namespace file_explorer::preview

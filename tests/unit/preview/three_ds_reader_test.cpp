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

std::string Material(const std::string& name, const std::string& color) {
  return Chunk(0xAFFF, Chunk(0xA000, name + '\0') + Chunk(0xA020, color));
}

// Three points, two faces at them; the face numbers given are of the material.
std::string ObjectWithMaterial(const std::string& material, const std::vector<std::uint16_t>& faceNumbers) {
  const std::string points =
      Bytes(std::uint16_t{3}) + PointBytes({0, 0, 0}) + PointBytes({1, 0, 0}) + PointBytes({0, 1, 0});
  std::string faces = Bytes(std::uint16_t{2});
  for (int i = 0; i < 2; ++i) {
    for (const std::uint16_t value : {0, 1, 2, 0}) faces += Bytes(value);
  }
  std::string used = material + '\0' + Bytes(static_cast<std::uint16_t>(faceNumbers.size()));
  for (const std::uint16_t face : faceNumbers) used += Bytes(face);
  return Chunk(0x4000, std::string("a\0", 2) +
                           Chunk(0x4100, Chunk(0x4110, points) + Chunk(0x4120, faces + Chunk(0x4130, used))));
}

TEST(ThreeDsReader, FacesHaveTheColoursOfTheirMaterials) {
  const std::string bytes = Chunk(0x0011, "\x10\x20\x30");
  std::string floats;
  for (const float share : {1.0f, 0.5f, 0.0f})
    floats.append(reinterpret_cast<const char*>(&share), sizeof share);
  const auto fromBytes = Read(ThreeDs(Material("red", bytes) + ObjectWithMaterial("red", {1})));
  ASSERT_TRUE(fromBytes);
  EXPECT_EQ(fromBytes->triangleColors, (std::vector<std::uint32_t>{kNoColor, 0x102030}));
  // Materials may stand after the objects that use them.
  const auto fromFloats =
      Read(ThreeDs(ObjectWithMaterial("red", {0, 1}) + Material("red", Chunk(0x0010, floats))));
  ASSERT_TRUE(fromFloats);
  EXPECT_EQ(fromFloats->triangleColors, (std::vector<std::uint32_t>{0xFF8000, 0xFF8000}));
}

TEST(ThreeDsReader, DamagedMaterialsOnlyCostTheirColour) {
  for (const std::string& material :
       {Material("red", Chunk(0x0011, "\x10")), Material("red", ""), Material("red", "x"),
        Material("blue", Chunk(0x0011, "\x10\x20\x30")), Chunk(0xAFFF, "\xFF\xFF\xFF")}) {
    const auto mesh = Read(ThreeDs(material + ObjectWithMaterial("red", {0, 1})));
    ASSERT_TRUE(mesh);
    EXPECT_EQ(mesh->triangles.size(), 2U);
    EXPECT_TRUE(mesh->triangleColors.empty());
  }
  const auto beyond =
      Read(ThreeDs(Material("red", Chunk(0x0011, "\x10\x20\x30")) + ObjectWithMaterial("red", {0, 9999})));
  ASSERT_TRUE(beyond);
  EXPECT_EQ(beyond->triangleColors, (std::vector<std::uint32_t>{0x102030, kNoColor}));
}

}  // namespace
}  // namespace file_explorer::preview

// Triangles one by one, with every corner written out: 50 bytes each behind a header, or as text.
#include <algorithm>
#include <array>
#include <cstdint>

#include "src/preview/byte_source.h"
#include "src/preview/model_readers.h"
#include "src/preview/point_bytes.h"
#include "src/preview/text_source.h"

namespace file_explorer::preview {
namespace {

constexpr std::size_t kHeaderSize = 84;  // a title of 80 bytes and the number of triangles
constexpr std::uint64_t kTriangleSize = 50;
constexpr std::size_t kNormalSize = 12;
constexpr std::size_t kTextTriangle = 180;  // bytes; most programs write more
constexpr std::uint32_t kBatch = 128;       // triangles handed on at once

bool StatedTriangles(std::string_view file, std::uint32_t* count) {
  ByteSource bytes(file);
  return bytes.Skip(kHeaderSize - sizeof(*count)) && bytes.Read(count);
}

bool BeginsAsText(std::string_view file) {
  return TextSource(file.substr(0, kHeaderSize)).WordOfText() == "solid";
}

// The length of a whole binary file follows from its number of triangles.
bool HasBinaryLength(std::string_view file) {
  std::uint32_t count = 0;
  return StatedTriangles(file, &count) && kHeaderSize + kTriangleSize * count == file.size();
}

// A normal comes first; often zero or wrong, so it is worked out anew. Two bytes of attributes end each
// triangle.
bool ReadBinary(std::string_view file, MeshBuilder& mesh) {
  std::uint32_t count = 0;
  if (!StatedTriangles(file, &count) || kTriangleSize * count > file.size() - kHeaderSize) return false;
  mesh.Expect(std::size_t{count} * 3, count);
  std::array<Point, 3 * kBatch> corners;
  const char* at = file.data() + kHeaderSize + kNormalSize;
  for (std::uint32_t left = count; left != 0;) {
    const std::uint32_t batch = std::min(left, kBatch);
    for (std::uint32_t i = 0; i < batch; ++i, at += kTriangleSize) ReadPoints(at, 3, &corners[3 * i]);
    if (!mesh.AddTriangles(corners.data(), batch)) return false;
    left -= batch;
  }
  return true;
}

bool ReadVertex(TextSource& text, MeshBuilder& mesh) {
  double numbers[3] = {};
  for (double& number : numbers) {
    if (text.AtLineEnd() && !text.NextLineWithWords()) return false;
    if (!text.Number(&number)) return false;
  }
  return mesh.AddPoint(numbers[0], numbers[1], numbers[2]) && mesh.AddCorner(mesh.pointCount() - 1);
}

bool ReadText(std::string_view file, MeshBuilder& mesh, WorkBudget& budget) {
  TextSource text(file);
  mesh.Expect(3 * (file.size() / kTextTriangle), file.size() / kTextTriangle, true);
  bool inLoop = false;
  while (!text.AtEnd()) {
    const std::size_t start = text.at();
    const std::string_view word = text.WordOfText();
    if (word == "loop") {
      mesh.BeginFace();
      inLoop = true;
    } else if (word == "endloop") {
      inLoop = false;
    } else if (word == "vertex") {
      if (!inLoop || !ReadVertex(text, mesh)) return false;
    } else if (word == "solid" || word == "endsolid") {
      text.NextLine();  // a name may follow, of any words
    }
    if (!budget.Spend(1 + (text.at() - start) / 16)) return false;
  }
  return !inLoop;
}

}  // namespace

std::optional<Mesh> ReadStl(std::string_view file, const MeshLimits& limits, WorkBudget& budget) {
  if (BeginsAsText(file) && !HasBinaryLength(file)) {
    MeshBuilder mesh(limits, budget);
    if (ReadText(file, mesh, budget)) {
      if (std::optional<Mesh> result = mesh.Finish(UpAxis::kGuessed)) return result;
    }
    // The title of a binary file may begin with the same word; with bytes behind its end only this tells.
  }
  MeshBuilder mesh(limits, budget);
  return ReadBinary(file, mesh) ? mesh.Finish(UpAxis::kGuessed) : std::nullopt;
}

}  // namespace file_explorer::preview

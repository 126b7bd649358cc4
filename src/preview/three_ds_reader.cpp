// Nested chunks: a kind of two bytes, a length of four that counts these six, content.
#include <cstdint>
#include <vector>

#include "src/preview/byte_source.h"
#include "src/preview/model_readers.h"

namespace file_explorer::preview {
namespace {

constexpr std::uint16_t kMain = 0x4D4D;
constexpr std::uint16_t kEditor = 0x3D3D;
constexpr std::uint16_t kObject = 0x4000;
constexpr std::uint16_t kObjectMesh = 0x4100;
constexpr std::uint16_t kPoints = 0x4110;
constexpr std::uint16_t kFaces = 0x4120;
constexpr std::size_t kChunkHeader = 6;

struct Chunk {
  std::uint16_t kind = 0;
  std::string_view content;
};

bool ReadChunk(ByteSource& bytes, Chunk* chunk) {
  std::uint32_t length = 0;
  return bytes.Read(&chunk->kind) && bytes.Read(&length) && length >= kChunkHeader &&
         bytes.Take(length - kChunkHeader, &chunk->content);
}

bool ReadPoints(std::string_view content, MeshBuilder& mesh) {
  ByteSource bytes(content);
  std::uint16_t count = 0;
  if (!bytes.Read(&count)) return false;
  for (std::uint16_t i = 0; i < count; ++i) {
    float x = 0, y = 0, z = 0;
    if (!bytes.Read(&x) || !bytes.Read(&y) || !bytes.Read(&z) ||
        !mesh.AddPoint(double{x}, double{y}, double{z})) {
      return false;
    }
  }
  return true;
}

// Numbers of points count from the object's own first one.
bool ReadFaces(std::string_view content, std::uint64_t firstPoint, std::uint64_t pointCount,
               MeshBuilder& mesh) {
  ByteSource bytes(content);
  std::uint16_t count = 0;
  if (!bytes.Read(&count)) return false;
  for (std::uint16_t i = 0; i < count; ++i) {
    mesh.BeginFace();
    for (int corner = 0; corner < 3; ++corner) {
      std::uint16_t point = 0;
      if (!bytes.Read(&point) || point >= pointCount || !mesh.AddCorner(firstPoint + point)) return false;
    }
    std::uint16_t edges = 0;
    if (!bytes.Read(&edges)) return false;
  }
  return true;  // what follows are materials and smoothing groups
}

// One object: its points may stand before or behind its faces.
bool ReadObjectMesh(std::string_view content, MeshBuilder& mesh, WorkBudget& budget) {
  const std::uint64_t firstPoint = mesh.pointCount();
  std::vector<std::string_view> faces;
  ByteSource bytes(content);
  while (bytes.left() != 0) {
    Chunk chunk;
    if (!ReadChunk(bytes, &chunk) || !budget.Spend()) return false;
    if (chunk.kind == kPoints && !ReadPoints(chunk.content, mesh)) return false;
    if (chunk.kind == kFaces) faces.push_back(chunk.content);
  }
  for (const std::string_view part : faces) {
    if (!ReadFaces(part, firstPoint, mesh.pointCount() - firstPoint, mesh)) return false;
  }
  return true;
}

// Calls visit for each chunk of this kind; false when a chunk is damaged or visit says so.
template <typename Visit>
bool ForEachChunk(std::string_view content, std::uint16_t kind, WorkBudget& budget, const Visit& visit) {
  ByteSource bytes(content);
  while (bytes.left() != 0) {
    Chunk chunk;
    if (!ReadChunk(bytes, &chunk) || !budget.Spend()) return false;
    if (chunk.kind == kind && !visit(chunk.content)) return false;
  }
  return true;
}

}  // namespace

std::optional<Mesh> Read3ds(std::string_view file, const MeshLimits& limits, WorkBudget& budget) {
  MeshBuilder mesh(limits, budget);
  Chunk main;
  ByteSource bytes(file);
  if (!ReadChunk(bytes, &main) || main.kind != kMain) return std::nullopt;
  const auto readObject = [&](std::string_view object) {
    const std::size_t nameEnd = object.find('\0');
    return nameEnd != object.npos &&
           ForEachChunk(object.substr(nameEnd + 1), kObjectMesh, budget,
                        [&](std::string_view content) { return ReadObjectMesh(content, mesh, budget); });
  };
  const auto readEditor = [&](std::string_view editor) {
    return ForEachChunk(editor, kObject, budget, readObject);
  };
  if (!ForEachChunk(main.content, kEditor, budget, readEditor)) return std::nullopt;
  return mesh.Finish(UpAxis::kZ);
}

}  // namespace file_explorer::preview

// Nested chunks: a kind of two bytes, a length of four that counts these six, content.
#include <algorithm>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "src/preview/byte_source.h"
#include "src/preview/model_readers.h"
#include "src/preview/point_bytes.h"

namespace file_explorer::preview {
namespace {

constexpr std::uint16_t kMain = 0x4D4D;
constexpr std::uint16_t kEditor = 0x3D3D;
constexpr std::uint16_t kObject = 0x4000;
constexpr std::uint16_t kObjectMesh = 0x4100;
constexpr std::uint16_t kPoints = 0x4110;
constexpr std::uint16_t kFaces = 0x4120;
constexpr std::uint16_t kFacesOfMaterial = 0x4130;
constexpr std::uint16_t kMaterial = 0xAFFF;
constexpr std::uint16_t kMaterialName = 0xA000;
constexpr std::uint16_t kDiffuse = 0xA020;
constexpr std::uint16_t kColorFloats = 0x0010;
constexpr std::uint16_t kColorBytes = 0x0011;
constexpr std::uint16_t kColorBytesCorrected = 0x0012;  // for the screen's gamma
constexpr std::uint16_t kColorFloatsCorrected = 0x0013;
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

// Calls visit for each chunk; false when a chunk is damaged or visit says so.
template <typename Visit>
bool ForEachChunk(std::string_view content, WorkBudget& budget, const Visit& visit) {
  ByteSource bytes(content);
  while (bytes.left() != 0) {
    Chunk chunk;
    if (!ReadChunk(bytes, &chunk) || !budget.Spend() || !visit(chunk)) return false;
  }
  return true;
}

// A text up to its NUL, which has to be there.
bool ReadName(ByteSource& bytes, std::string_view content, std::string_view* name) {
  const std::size_t end = content.find('\0');
  return end != content.npos && bytes.Take(end, name) && bytes.Skip(1);
}

// None when the color is damaged: a model is no worse for it.
std::uint32_t ReadColor(const Chunk& chunk) {
  ByteSource bytes(chunk.content);
  std::uint32_t color = 0;
  for (int i = 0; i < 3; ++i) {
    std::uint8_t channel = 0;
    if (chunk.kind == kColorFloats || chunk.kind == kColorFloatsCorrected) {
      float share = 0;
      if (!bytes.Read(&share) || !(share >= 0)) return kNoColor;
      channel = static_cast<std::uint8_t>(std::min(share, 1.0f) * 255 + 0.5f);
    } else if ((chunk.kind != kColorBytes && chunk.kind != kColorBytesCorrected) || !bytes.Read(&channel)) {
      return kNoColor;
    }
    color = color << 8 | channel;
  }
  return color;
}

class ThreeDsReader {
 public:
  ThreeDsReader(MeshBuilder& mesh, WorkBudget& budget) : mesh_(mesh), budget_(budget) {}

  // Objects name materials, which may stand after them.
  bool ReadEditor(std::string_view editor) {
    ForEachChunk(editor, budget_, [&](const Chunk& chunk) {
      if (chunk.kind == kMaterial) ReadMaterial(chunk.content);
      return true;
    });
    return ForEachChunk(editor, budget_, [&](const Chunk& chunk) {
      return chunk.kind != kObject || ReadObject(chunk.content);
    });
  }

 private:
  void ReadMaterial(std::string_view material) {
    std::string_view name;
    std::uint32_t color = kNoColor;
    ForEachChunk(material, budget_, [&](const Chunk& chunk) {
      if (chunk.kind == kMaterialName) name = chunk.content.substr(0, chunk.content.find('\0'));
      if (chunk.kind != kDiffuse) return true;
      return ForEachChunk(chunk.content, budget_, [&](const Chunk& part) {
        if (color == kNoColor) color = ReadColor(part);
        return true;
      });
    });
    if (color != kNoColor) colors_[std::string(name)] = color;
  }

  bool ReadObject(std::string_view object) {
    const std::size_t nameEnd = object.find('\0');
    return nameEnd != object.npos &&
           ForEachChunk(object.substr(nameEnd + 1), budget_, [&](const Chunk& chunk) {
             return chunk.kind != kObjectMesh || ReadObjectMesh(chunk.content);
           });
  }

  // One object: its points may stand before or after its faces.
  bool ReadObjectMesh(std::string_view content) {
    const std::uint64_t firstPoint = mesh_.pointCount();
    std::vector<std::string_view> faces;
    const bool read = ForEachChunk(content, budget_, [&](const Chunk& chunk) {
      if (chunk.kind == kFaces) faces.push_back(chunk.content);
      return chunk.kind != kPoints || ReadAllPoints(chunk.content);
    });
    return read && std::all_of(faces.begin(), faces.end(), [&](std::string_view part) {
             return ReadFaces(part, firstPoint, mesh_.pointCount() - firstPoint);
           });
  }

  bool ReadAllPoints(std::string_view content) {
    ByteSource bytes(content);
    std::uint16_t count = 0;
    std::string_view rows;
    if (!bytes.Read(&count) || !bytes.Take(std::uint64_t{count} * sizeof(Point), &rows)) return false;
    for (; !rows.empty(); rows.remove_prefix(sizeof(Point))) {
      Point point;
      ReadPoints(rows.data(), 1, &point);
      if (!mesh_.AddPoint(point)) return false;
    }
    return true;
  }

  // Numbers of points count from the object's own first one.
  bool ReadFaces(std::string_view content, std::uint64_t firstPoint, std::uint64_t pointCount) {
    ByteSource bytes(content);
    std::uint16_t count = 0;
    if (!bytes.Read(&count)) return false;
    std::vector<std::uint32_t> colors;
    const std::size_t facesSize = std::size_t{count} * 8;
    if (bytes.left() < facesSize) return false;
    if (!colors_.empty()) colors = ColorsOfFaces(content.substr(sizeof count + facesSize), count);
    for (std::uint16_t i = 0; i < count; ++i) {
      std::uint16_t corners[4] = {};  // the last one says which edges are drawn
      for (std::uint16_t& corner : corners) bytes.Read(&corner);
      if (std::max({corners[0], corners[1], corners[2]}) >= pointCount) return false;
      if (!mesh_.AddTriangle(firstPoint + corners[0], firstPoint + corners[1], firstPoint + corners[2]))
        return false;
      if (!colors.empty() && !mesh_.ColorFace(colors[i])) return false;
    }
    return true;
  }

  // By face; empty when none has any. What is damaged gives none.
  std::vector<std::uint32_t> ColorsOfFaces(std::string_view content, std::uint16_t count) {
    std::vector<std::uint32_t> colors;
    ForEachChunk(content, budget_, [&](const Chunk& chunk) {
      if (chunk.kind != kFacesOfMaterial) return true;
      ByteSource bytes(chunk.content);
      std::string_view name;
      std::uint16_t faces = 0;
      if (!ReadName(bytes, chunk.content, &name) || !bytes.Read(&faces)) return false;
      const auto color = colors_.find(std::string(name));
      if (color == colors_.end()) return true;
      colors.resize(count, kNoColor);
      for (std::uint16_t face = 0; faces != 0 && bytes.Read(&face); --faces) {
        if (face < count) colors[face] = color->second;
      }
      return budget_.Spend(chunk.content.size() / 2);
    });
    return colors;
  }

  MeshBuilder& mesh_;
  WorkBudget& budget_;
  std::map<std::string, std::uint32_t> colors_;  // of the materials, by name
};

}  // namespace

std::optional<Mesh> Read3ds(std::string_view file, const MeshLimits& limits, WorkBudget& budget) {
  MeshBuilder mesh(limits, budget);
  ThreeDsReader reader(mesh, budget);
  Chunk main;
  ByteSource bytes(file);
  if (!ReadChunk(bytes, &main) || main.kind != kMain) return std::nullopt;
  const bool read = ForEachChunk(main.content, budget, [&](const Chunk& chunk) {
    return chunk.kind != kEditor || reader.ReadEditor(chunk.content);
  });
  return read ? mesh.Finish(UpAxis::kZ) : std::nullopt;
}

}  // namespace file_explorer::preview

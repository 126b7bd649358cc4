// The model readers against assimp's, on the same bytes in the same run, both from memory and without the
// steps that assimp can do after reading. The models are made here; with a folder as argument
// (assimp-testmodels, for example) its models of our formats follow, each enlarged by repetition where its
// format allows that.
#include <algorithm>
#include <array>
#include <assimp/Importer.hpp>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "bench/measure.h"
#include "src/preview/model_readers.h"

namespace {

namespace preview = file_explorer::preview;

constexpr int kRuns = 7;
constexpr std::size_t kSmallestFile =
    50'000;  // of a folder; smaller ones say nothing, and thousands of copies of one take assimp minutes

struct Grid {
  std::vector<std::array<float, 3>> points;
  std::vector<std::array<std::uint32_t, 3>> triangles;
};

// A hilly square of edge by edge fields, two triangles a field.
Grid Hills(std::uint32_t edge) {
  Grid grid;
  for (std::uint32_t y = 0; y <= edge; ++y) {
    for (std::uint32_t x = 0; x <= edge; ++x) {
      const float fx = static_cast<float>(x) * 0.137f;
      const float fy = static_cast<float>(y) * 0.137f;
      grid.points.push_back({fx - 12.3f, std::sin(fx * 0.7f) * std::cos(fy * 0.9f), fy - 7.1f});
    }
  }
  for (std::uint32_t y = 0; y < edge; ++y) {
    for (std::uint32_t x = 0; x < edge; ++x) {
      const std::uint32_t first = y * (edge + 1) + x;
      grid.triangles.push_back({first, first + 1, first + edge + 1});
      grid.triangles.push_back({first + 1, first + edge + 2, first + edge + 1});
    }
  }
  return grid;
}

template <typename... Values>
void Print(std::string& text, const char* format, Values... values) {
  char line[200];
  const int length = std::snprintf(line, sizeof line, format, values...);
  text.append(line, static_cast<std::size_t>(length));
}

template <typename Value>
void Put(std::string& bytes, Value value) {
  char raw[sizeof value];
  std::memcpy(raw, &value, sizeof value);
  bytes.append(raw, sizeof value);
}

std::string BinaryStl(const Grid& grid) {
  std::string file(80, ' ');
  Put(file, static_cast<std::uint32_t>(grid.triangles.size()));
  for (const auto& triangle : grid.triangles) {
    for (int i = 0; i < 3; ++i) Put(file, 0.0f);
    for (const std::uint32_t corner : triangle) {
      for (const float value : grid.points[corner]) Put(file, value);
    }
    Put(file, std::uint16_t{0});
  }
  return file;
}

std::string TextStl(const Grid& grid) {
  std::string file = "solid hills\n";
  for (const auto& triangle : grid.triangles) {
    file += "  facet normal 0.000000e+00 1.000000e+00 0.000000e+00\n    outer loop\n";
    for (const std::uint32_t corner : triangle) {
      const auto& point = grid.points[corner];
      Print(file, "      vertex %.6e %.6e %.6e\n", double{point[0]}, double{point[1]}, double{point[2]});
    }
    file += "    endloop\n  endfacet\n";
  }
  return file + "endsolid hills\n";
}

std::string PlyHeader(const char* format, const Grid& grid) {
  return std::string("ply\nformat ") + format + " 1.0\nelement vertex " + std::to_string(grid.points.size()) +
         "\nproperty float x\nproperty float y\nproperty float z\nelement face " +
         std::to_string(grid.triangles.size()) + "\nproperty list uchar int vertex_indices\nend_header\n";
}

std::string TextPly(const Grid& grid) {
  std::string file = PlyHeader("ascii", grid);
  for (const auto& point : grid.points) {
    Print(file, "%.6f %.6f %.6f\n", double{point[0]}, double{point[1]}, double{point[2]});
  }
  for (const auto& triangle : grid.triangles)
    Print(file, "3 %u %u %u\n", triangle[0], triangle[1], triangle[2]);
  return file;
}

std::string BinaryPly(const Grid& grid) {
  std::string file = PlyHeader("binary_little_endian", grid);
  for (const auto& point : grid.points) {
    for (const float value : point) Put(file, value);
  }
  for (const auto& triangle : grid.triangles) {
    file.push_back(3);
    for (const std::uint32_t corner : triangle) Put(file, corner);
  }
  return file;
}

std::string Obj(const Grid& grid) {
  std::string file = "# hills\no hills\n";
  for (const auto& point : grid.points) {
    Print(file, "v %.6f %.6f %.6f\n", double{point[0]}, double{point[1]}, double{point[2]});
  }
  for (const auto& point : grid.points) Print(file, "vt %.6f %.6f\n", double{point[0]}, double{point[2]});
  for (std::size_t i = 0; i < grid.points.size(); ++i) file += "vn 0.0000 1.0000 0.0000\n";
  for (const auto& triangle : grid.triangles) {
    file += 'f';
    for (const std::uint32_t corner : triangle) Print(file, " %u/%u/%u", corner + 1, corner + 1, corner + 1);
    file += '\n';
  }
  return file;
}

std::string Chunk(std::uint16_t kind, const std::string& content) {
  std::string chunk;
  Put(chunk, kind);
  Put(chunk, static_cast<std::uint32_t>(content.size() + 6));
  return chunk + content;
}

// An object holds 65,535 points at most, so there are several.
std::string ThreeDs(const Grid& grid, int objects) {
  std::string points;
  Put(points, static_cast<std::uint16_t>(grid.points.size()));
  for (const auto& point : grid.points) {
    for (const float value : point) Put(points, value);
  }
  std::string faces;
  Put(faces, static_cast<std::uint16_t>(grid.triangles.size()));
  for (const auto& triangle : grid.triangles) {
    for (const std::uint32_t corner : triangle) Put(faces, static_cast<std::uint16_t>(corner));
    Put(faces, std::uint16_t{7});
  }
  std::string editor;
  for (int i = 0; i < objects; ++i) {
    const std::string name = "part" + std::to_string(i);
    editor += Chunk(0x4000, name + '\0' + Chunk(0x4100, Chunk(0x4110, points) + Chunk(0x4120, faces)));
  }
  return Chunk(0x4D4D, Chunk(0x3D3D, editor));
}

void Measure(const std::string& name, const char* extension, const std::string& file) {
  bool read = false;
  const double ours = bench::BestSeconds(kRuns, [&] {
    preview::WorkBudget budget(std::chrono::seconds(100));
    const auto mesh = preview::ReaderForExtension(extension)(file, preview::MeshLimits(), budget);
    read = mesh.has_value();
    bench::Keep(mesh);
  });
  const aiScene* scene = nullptr;
  const double theirs = bench::BestSeconds(kRuns, [&] {
    Assimp::Importer importer;
    scene = importer.ReadFileFromMemory(file.data(), file.size(), 0, extension);
    bench::Keep(scene);
  });
  if (!read || scene == nullptr) {
    std::printf("models, %s: %s by us, %s by assimp\n", name.c_str(), read ? "read" : "refused",
                scene != nullptr ? "read" : "refused");
    return;
  }
  char size[32];
  std::snprintf(size, sizeof size, "%.1f MB", static_cast<double>(file.size()) / 1e6);
  bench::PrintRatio("models, " + name + ", " + size, ours, "assimp", theirs);
}

std::string ContentOf(const std::filesystem::path& path) {
  std::ifstream stream(path, std::ios::binary);
  std::ostringstream content;
  content << stream.rdbuf();
  return content.str();
}

// Triangles of a text STL and lines of an OBJ (whose faces stay those of the first copy's points) may stand
// there many times over.
std::string Enlarged(const std::string& extension, const std::string& file) {
  constexpr std::size_t kWanted = 4'000'000;
  std::string large = file;
  const bool isText = extension == "obj" || (extension == "stl" && file.starts_with("solid"));
  if (!isText || file.empty()) return large;
  if (large.back() != '\n') large += '\n';
  const std::string once = large;
  while (large.size() < kWanted) large += once;
  return large;
}

void MeasureFolder(const std::string& folder) {
  std::vector<std::filesystem::path> paths;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    std::string extension = entry.path().extension().string();
    if (extension.empty() || !entry.is_regular_file()) continue;
    if (preview::ReaderForExtension(extension.substr(1)) != nullptr) paths.push_back(entry.path());
  }
  std::sort(paths.begin(), paths.end());
  for (const auto& path : paths) {
    const std::string extension = path.extension().string().substr(1);
    const std::string file = ContentOf(path);
    if (file.size() < kSmallestFile) continue;
    Measure(path.filename().string(), extension.c_str(), Enlarged(extension, file));
  }
}

}  // namespace

int main(int count, char** arguments) {
  const Grid large = Hills(450);
  const Grid small = Hills(150);
  Measure("STL binary", "stl", BinaryStl(large));
  Measure("STL text", "stl", TextStl(large));
  Measure("PLY binary", "ply", BinaryPly(large));
  Measure("PLY text", "ply", TextPly(large));
  Measure("OBJ", "obj", Obj(large));
  Measure("3DS", "3ds", ThreeDs(small, 9));
  for (int i = 1; i < count; ++i) MeasureFolder(arguments[i]);
}

// Small models in every file format, made here.
#pragma once

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

namespace model_files {

struct Model {
  std::vector<std::array<float, 3>> points;
  std::vector<std::vector<std::uint32_t>> faces;
};

// Edges of length 2 around the origin; every face a square.
inline Model Cube() {
  Model cube;
  for (const float z : {-1.0f, 1.0f}) {
    for (const float y : {-1.0f, 1.0f}) {
      for (const float x : {-1.0f, 1.0f}) cube.points.push_back({x, y, z});
    }
  }
  cube.faces = {{0, 2, 3, 1}, {4, 5, 7, 6}, {0, 1, 5, 4}, {2, 6, 7, 3}, {0, 4, 6, 2}, {1, 3, 7, 5}};
  return cube;
}

inline Model Sphere(int rings = 24, int columns = 48) {
  constexpr float kPi = 3.14159265f;
  Model sphere;
  for (int ring = 0; ring <= rings; ++ring) {
    const float lift = kPi * static_cast<float>(ring) / static_cast<float>(rings);
    for (int column = 0; column < columns; ++column) {
      const float turn = 2 * kPi * static_cast<float>(column) / static_cast<float>(columns);
      sphere.points.push_back(
          {std::sin(lift) * std::sin(turn), std::cos(lift), std::sin(lift) * std::cos(turn)});
    }
  }
  for (int ring = 0; ring < rings; ++ring) {
    for (int column = 0; column < columns; ++column) {
      const auto number = [&](int r, int c) { return static_cast<std::uint32_t>(r * columns + c % columns); };
      sphere.faces.push_back({number(ring, column), number(ring + 1, column), number(ring + 1, column + 1),
                              number(ring, column + 1)});
    }
  }
  return sphere;
}

inline Model Moved(Model model, float scale, float dx, float dy, float dz) {
  for (auto& [x, y, z] : model.points) {
    x = x * scale + dx;
    y = y * scale + dy;
    z = z * scale + dz;
  }
  return model;
}

inline std::vector<std::array<std::uint32_t, 3>> Triangles(const Model& model) {
  std::vector<std::array<std::uint32_t, 3>> triangles;
  for (const auto& face : model.faces) {
    for (std::size_t i = 2; i < face.size(); ++i) triangles.push_back({face[0], face[i - 1], face[i]});
  }
  return triangles;
}

template <typename... Values>
std::string Line(const char* format, Values... values) {
  char text[256];
  std::snprintf(text, sizeof(text), format, values...);
  return std::string(text) + "\n";
}

inline std::string Obj(const Model& model) {
  std::string text = "# a model\no thing\n";
  for (const auto& [x, y, z] : model.points) text += Line("v %g %g %g", double{x}, double{y}, double{z});
  for (const auto& face : model.faces) {
    text += "f";
    for (const std::uint32_t point : face) text += " " + std::to_string(point + 1);
    text += "\n";
  }
  return text;
}

template <typename Number>
std::string Bytes(Number value, bool bigEndian = false) {
  std::string bytes(sizeof(Number), '\0');
  for (std::size_t i = 0; i < sizeof(Number); ++i) {
    const std::size_t place = bigEndian ? sizeof(Number) - 1 - i : i;
    bytes[place] = static_cast<char>(static_cast<std::uint64_t>(value) >> (8 * i));
  }
  return bytes;
}
inline std::string FloatBytes(float value, bool bigEndian = false) {
  return Bytes(std::bit_cast<std::uint32_t>(value), bigEndian);
}

inline std::string PointBytes(const std::array<float, 3>& point, bool bigEndian = false) {
  return FloatBytes(point[0], bigEndian) + FloatBytes(point[1], bigEndian) + FloatBytes(point[2], bigEndian);
}

inline std::string BinaryStl(const Model& model, std::string title = "a binary model") {
  title.resize(80, ' ');
  const auto triangles = Triangles(model);
  std::string file = title + Bytes(static_cast<std::uint32_t>(triangles.size()));
  for (const auto& triangle : triangles) {
    file += std::string(12, '\0');
    for (const std::uint32_t corner : triangle) file += PointBytes(model.points[corner]);
    file += std::string(2, '\0');
  }
  return file;
}

inline std::string TextStl(const Model& model) {
  std::string text = "solid thing of vertex 1 2\n";
  for (const auto& triangle : Triangles(model)) {
    text += "facet normal 0 0 0\n outer loop\n";
    for (const std::uint32_t corner : triangle) {
      const auto& [x, y, z] = model.points[corner];
      text += Line("  vertex %g %g %g", double{x}, double{y}, double{z});
    }
    text += " endloop\nendfacet\n";
  }
  return text + "endsolid thing\n";
}

inline std::string PlyHeader(const Model& model, std::string_view encoding) {
  return "ply\nformat " + std::string(encoding) + " 1.0\ncomment a model\nelement vertex " +
         std::to_string(model.points.size()) +
         "\nproperty float x\nproperty float y\nproperty float z\nelement face " +
         std::to_string(model.faces.size()) + "\nproperty list uchar int vertex_indices\nend_header\n";
}

inline std::string TextPly(const Model& model) {
  std::string text = PlyHeader(model, "ascii");
  for (const auto& [x, y, z] : model.points) text += Line("%g %g %g", double{x}, double{y}, double{z});
  for (const auto& face : model.faces) {
    text += std::to_string(face.size());
    for (const std::uint32_t point : face) text += " " + std::to_string(point);
    text += "\n";
  }
  return text;
}

inline std::string BinaryPly(const Model& model, bool bigEndian) {
  std::string file = PlyHeader(model, bigEndian ? "binary_big_endian" : "binary_little_endian");
  for (const auto& point : model.points) file += PointBytes(point, bigEndian);
  for (const auto& face : model.faces) {
    file += static_cast<char>(face.size());
    for (const std::uint32_t point : face) file += Bytes(point, bigEndian);
  }
  return file;
}

inline std::string Chunk(std::uint16_t kind, const std::string& content) {
  return Bytes(kind) + Bytes(static_cast<std::uint32_t>(content.size() + 6)) + content;
}

// The format's z is up.
inline std::string ThreeDsObject(const Model& model, const std::string& name) {
  std::string points = Bytes(static_cast<std::uint16_t>(model.points.size()));
  for (const auto& [x, y, z] : model.points) points += PointBytes({x, -z, y});
  const auto triangles = Triangles(model);
  std::string faces = Bytes(static_cast<std::uint16_t>(triangles.size()));
  for (const auto& triangle : triangles) {
    for (const std::uint32_t corner : triangle) faces += Bytes(static_cast<std::uint16_t>(corner));
    faces += Bytes(std::uint16_t{7});
  }
  return Chunk(0x4000, name + '\0' + Chunk(0x4100, Chunk(0x4110, points) + Chunk(0x4120, faces)));
}
inline std::string ThreeDs(const std::string& objects) {
  return Chunk(0x4D4D, Chunk(0x0002, Bytes(std::uint32_t{3})) + Chunk(0x3D3D, objects));
}
inline std::string ThreeDs(const Model& model) {
  return ThreeDs(ThreeDsObject(model, "thing"));
}

}  // namespace model_files

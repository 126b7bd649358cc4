// The header of a polygon file: what elements its body has, and how their values are stored.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace file_explorer::preview {

enum class PlyType { kInt8, kUint8, kInt16, kUint16, kInt32, kUint32, kFloat, kDouble };

std::size_t SizeOf(PlyType type);  // in bytes

constexpr bool IsWhole(PlyType type) {
  return type != PlyType::kFloat && type != PlyType::kDouble;
}

// What the value means to us.
enum class PlyRole { kOther, kX, kY, kZ, kRed, kGreen, kBlue, kCorners };

struct PlyProperty {
  PlyRole role = PlyRole::kOther;
  PlyType type = PlyType::kFloat;       // of the value, or of a list's items
  std::optional<PlyType> lengthType{};  // of a list's length; none for a single value
};

struct PlyElement {
  enum class Kind { kOther, kPoints, kFaces, kStrips };
  Kind kind = Kind::kOther;
  std::uint64_t count = 0;  // as stated; nothing says that there are so many
  std::vector<PlyProperty> properties;
};

enum class PlyEncoding { kText, kLittleEndian, kBigEndian };

struct PlyHeader {
  PlyEncoding encoding = PlyEncoding::kText;
  std::vector<PlyElement> elements;  // in the order of the body
  std::string_view body;
};

// None for a header that is damaged, or names more elements than any program writes.
std::optional<PlyHeader> ReadPlyHeader(std::string_view file);

}  // namespace file_explorer::preview

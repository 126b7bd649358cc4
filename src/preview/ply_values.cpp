#include "src/preview/ply_values.h"

namespace file_explorer::preview {

bool PlyBinaryValues::NextWhole(PlyType type, std::int64_t* value) {
  switch (type) {
    case PlyType::kInt8:
      return NextWhole<std::uint8_t, std::int8_t>(value);
    case PlyType::kUint8:
      return NextWhole<std::uint8_t, std::uint8_t>(value);
    case PlyType::kInt16:
      return NextWhole<std::uint16_t, std::int16_t>(value);
    case PlyType::kUint16:
      return NextWhole<std::uint16_t, std::uint16_t>(value);
    case PlyType::kInt32:
      return NextWhole<std::uint32_t, std::int32_t>(value);
    case PlyType::kUint32:
      return NextWhole<std::uint32_t, std::uint32_t>(value);
    case PlyType::kFloat:
    case PlyType::kDouble:
      break;
  }
  return false;
}

bool PlyBinaryValues::Next(PlyType type, double* value) {
  if (type == PlyType::kDouble) return bytes_.Read(value);
  if (type == PlyType::kFloat) {
    float number = 0;
    if (!bytes_.Read(&number)) return false;
    *value = double{number};
    return true;
  }
  std::int64_t whole = 0;
  if (!NextWhole(type, &whole)) return false;
  *value = static_cast<double>(whole);
  return true;
}

bool PlyBinaryValues::NextIndex(PlyType type, std::int64_t* index) {
  if (IsWhole(type)) return NextWhole(type, index) && *index >= -1;
  double value = 0;
  return Next(type, &value) && ToIndex(value, index);
}

}  // namespace file_explorer::preview

#include "src/preview/ply_header.h"

#include <algorithm>
#include <span>

#include "src/preview/text_source.h"

namespace file_explorer::preview {
namespace {

constexpr std::size_t kMostElements = 32;
constexpr std::size_t kMostProperties = 128;  // of one element
constexpr std::size_t kLongestHeader = std::size_t{64} * 1024;

struct TypeName {
  std::string_view name;
  PlyType type;
};
constexpr TypeName kTypes[] = {
    {"char", PlyType::kInt8},      {"int8", PlyType::kInt8},     {"uchar", PlyType::kUint8},
    {"uint8", PlyType::kUint8},    {"short", PlyType::kInt16},   {"int16", PlyType::kInt16},
    {"ushort", PlyType::kUint16},  {"uint16", PlyType::kUint16}, {"int", PlyType::kInt32},
    {"int32", PlyType::kInt32},    {"uint", PlyType::kUint32},   {"uint32", PlyType::kUint32},
    {"float", PlyType::kFloat},    {"float32", PlyType::kFloat}, {"double", PlyType::kDouble},
    {"float64", PlyType::kDouble},
};

struct RoleName {
  std::string_view name;
  PlyRole role;
};
constexpr RoleName kPlaces[] = {{"x", PlyRole::kX}, {"y", PlyRole::kY}, {"z", PlyRole::kZ}};
constexpr RoleName kColors[] = {
    {"red", PlyRole::kRed},         {"green", PlyRole::kGreen},         {"blue", PlyRole::kBlue},
    {"diffuse_red", PlyRole::kRed}, {"diffuse_green", PlyRole::kGreen}, {"diffuse_blue", PlyRole::kBlue},
};
constexpr RoleName kLists[] = {{"vertex_indices", PlyRole::kCorners}, {"vertex_index", PlyRole::kCorners}};

struct KindName {
  std::string_view name;
  PlyElement::Kind kind;
};
constexpr KindName kKinds[] = {{"vertex", PlyElement::Kind::kPoints},
                               {"face", PlyElement::Kind::kFaces},
                               {"tristrips", PlyElement::Kind::kStrips}};

PlyRole Find(std::span<const RoleName> names, std::string_view name) {
  for (const RoleName& known : names) {
    if (known.name == name) return known.role;
  }
  return PlyRole::kOther;
}

PlyRole RoleOf(PlyElement::Kind kind, bool isList, std::string_view name) {
  const bool isPoint = kind == PlyElement::Kind::kPoints;
  if (kind == PlyElement::Kind::kOther || (isPoint && isList)) return PlyRole::kOther;
  if (isList) return Find(kLists, name);
  const PlyRole color = kind == PlyElement::Kind::kStrips ? PlyRole::kOther : Find(kColors, name);
  return isPoint && color == PlyRole::kOther ? Find(kPlaces, name) : color;
}

struct EncodingName {
  std::string_view name;
  PlyEncoding encoding;
};
constexpr EncodingName kEncodings[] = {{"ascii", PlyEncoding::kText},
                                       {"binary_little_endian", PlyEncoding::kLittleEndian},
                                       {"binary_big_endian", PlyEncoding::kBigEndian}};

std::optional<PlyType> TypeOf(std::string_view name) {
  for (const TypeName& type : kTypes) {
    if (type.name == name) return type.type;
  }
  return std::nullopt;
}

bool ReadFormat(TextSource& text, PlyHeader* header) {
  const std::string_view name = text.Word();
  const auto* const found = std::find_if(std::begin(kEncodings), std::end(kEncodings),
                                         [&](const EncodingName& known) { return known.name == name; });
  if (found == std::end(kEncodings)) return false;
  header->encoding = found->encoding;
  return true;
}

bool ReadElement(TextSource& text, PlyHeader* header) {
  PlyElement element;
  const std::string_view name = text.Word();
  for (const KindName& known : kKinds) {
    if (known.name == name) element.kind = known.kind;
  }
  long long count = 0;
  if (!ReadWhole(text.Word(), &count) || count < 0 || header->elements.size() == kMostElements) return false;
  element.count = static_cast<std::uint64_t>(count);
  header->elements.push_back(std::move(element));
  return true;
}

bool ReadProperty(TextSource& text, PlyHeader* header) {
  if (header->elements.empty()) return false;
  PlyElement& element = header->elements.back();
  PlyProperty property;
  std::string_view typeName = text.Word();
  if (typeName == "list") {
    property.lengthType = TypeOf(text.Word());
    if (!property.lengthType || !IsWhole(*property.lengthType)) return false;
    typeName = text.Word();
  }
  const std::optional<PlyType> type = TypeOf(typeName);
  const std::string_view name = text.Word();
  if (!type || name.empty() || element.properties.size() == kMostProperties) return false;
  property.type = *type;
  property.role = RoleOf(element.kind, property.lengthType.has_value(), name);
  element.properties.push_back(property);
  return true;
}

struct Keyword {
  std::string_view word;
  bool (*read)(TextSource& text, PlyHeader* header);
};
constexpr Keyword kKeywords[] = {
    {"format", ReadFormat}, {"element", ReadElement}, {"property", ReadProperty}};

}  // namespace

std::size_t SizeOf(PlyType type) {
  constexpr std::size_t kSizes[] = {1, 1, 2, 2, 4, 4, 4, 8};
  return kSizes[static_cast<std::size_t>(type)];
}

std::optional<PlyHeader> ReadPlyHeader(std::string_view file) {
  TextSource text(file.substr(0, kLongestHeader));
  PlyHeader header;
  bool hasFormat = false;
  if (text.Word() != "ply") return std::nullopt;
  for (;;) {
    text.NextLine();
    if (text.AtEnd()) return std::nullopt;
    const std::string_view word = text.Word();
    if (word == "end_header") break;
    const auto* const keyword = std::find_if(std::begin(kKeywords), std::end(kKeywords),
                                             [&](const Keyword& known) { return known.word == word; });
    if (keyword == std::end(kKeywords)) continue;  // comments, and what later versions may add
    if (!keyword->read(text, &header)) return std::nullopt;
    hasFormat = hasFormat || keyword->read == ReadFormat;
  }
  text.NextLine();
  header.body = file.substr(text.at());
  return hasFormat ? std::optional(std::move(header)) : std::nullopt;
}

}  // namespace file_explorer::preview

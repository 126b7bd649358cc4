// The body of a polygon file: points, faces and strips of triangles, each with its values.
#include <algorithm>
#include <optional>

#include "src/preview/model_readers.h"
#include "src/preview/ply_header.h"
#include "src/preview/ply_values.h"
#include "src/preview/point_bytes.h"

namespace file_explorer::preview {
namespace {

struct RowValues {
  double place[3] = {};
  double color[3] = {};
  bool isColored = false;

  void Take(const PlyProperty& property, double value) {
    if (property.role >= PlyRole::kX && property.role <= PlyRole::kZ) {
      place[static_cast<int>(property.role) - static_cast<int>(PlyRole::kX)] = value;
    } else if (property.role >= PlyRole::kRed && property.role <= PlyRole::kBlue) {
      // Whole numbers go to 255, others to 1.
      const double share = IsWhole(property.type) ? value : value * 255;
      color[static_cast<int>(property.role) - static_cast<int>(PlyRole::kRed)] =
          share >= 0 ? std::min(share, 255.0) : 0;
      isColored = true;
    }
  }
  std::uint32_t Color() const {
    const auto channel = [this](int i) { return static_cast<std::uint32_t>(color[i] + 0.5); };
    return channel(0) << 16 | channel(1) << 8 | channel(2);
  }
};

// Rows of points that need no reading value by value: x, y and z as floats beside each other, and three bytes
// of colour or none.
struct PackedRow {
  std::size_t size = 0;
  std::size_t place = 0;
  std::optional<std::size_t> color{};
};

std::optional<PackedRow> PackedRowOf(const PlyElement& element) {
  PackedRow row;
  constexpr std::size_t kMissing = ~std::size_t{0};
  std::size_t offsets[7];
  std::fill(std::begin(offsets), std::end(offsets), kMissing);
  for (const PlyProperty& property : element.properties) {
    const bool isPlace = property.role >= PlyRole::kX && property.role <= PlyRole::kZ;
    const bool isColor = property.role >= PlyRole::kRed && property.role <= PlyRole::kBlue;
    if (property.lengthType || (isPlace && property.type != PlyType::kFloat) ||
        (isColor && property.type != PlyType::kUint8)) {
      return std::nullopt;
    }
    if (isPlace || isColor) offsets[static_cast<std::size_t>(property.role)] = row.size;
    row.size += SizeOf(property.type);
  }
  const auto areBeside = [&](PlyRole first, std::size_t step) {
    const std::size_t* const offset = &offsets[static_cast<std::size_t>(first)];
    return offset[0] != kMissing && offset[1] == offset[0] + step && offset[2] == offset[1] + step;
  };
  if (!areBeside(PlyRole::kX, sizeof(float))) return std::nullopt;
  row.place = offsets[static_cast<std::size_t>(PlyRole::kX)];
  const bool hasColor = std::any_of(&offsets[static_cast<std::size_t>(PlyRole::kRed)], std::end(offsets),
                                    [](std::size_t offset) { return offset != kMissing; });
  if (!hasColor) return row;
  if (!areBeside(PlyRole::kRed, 1)) return std::nullopt;
  row.color = offsets[static_cast<std::size_t>(PlyRole::kRed)];
  return row;
}

std::uint32_t ColorAt(const char* bytes) {
  const auto channel = [bytes](int i) { return std::uint32_t{static_cast<unsigned char>(bytes[i])}; };
  return channel(0) << 16 | channel(1) << 8 | channel(2);
}

template <typename Values>
class BodyReader {
 public:
  BodyReader(Values values, MeshBuilder& mesh, WorkBudget& budget)
      : values_(values), mesh_(mesh), budget_(budget) {}

  bool ReadElement(const PlyElement& element) {
    if (element.properties.empty()) return true;  // takes no bytes, however many there are
    if (ReadPackedPoints(element)) return true;
    for (std::uint64_t i = 0; i < element.count; ++i) {
      if (!values_.BeginRow() || !ReadRow(element)) return false;
      values_.EndRow();
    }
    return true;
  }

 private:
  // False, with nothing read, when the rows are none of this kind or some are missing.
  bool ReadPackedPoints(const PlyElement& element) {
    if constexpr (requires(std::string_view rows) { values_.TakeRows(1, 1, &rows); }) {
      if (element.kind != PlyElement::Kind::kPoints) return false;
      const std::optional<PackedRow> row = PackedRowOf(element);
      std::string_view rows;
      if (!row || !values_.TakeRows(element.count, row->size, &rows)) return false;
      mesh_.Expect(static_cast<std::size_t>(element.count), 0);
      for (; !rows.empty(); rows.remove_prefix(row->size)) {
        Point point;
        ReadPoints(rows.data() + row->place, 1, &point);
        if (!mesh_.AddPoint(point)) return true;
        if (row->color) mesh_.ColorLastPoint(ColorAt(rows.data() + *row->color));
      }
      return true;
    }
    return false;
  }

  bool ReadRow(const PlyElement& element) {
    RowValues row;
    for (const PlyProperty& property : element.properties) {
      if (!budget_.Spend()) return false;
      if (property.lengthType) {
        if (!ReadList(element.kind, property)) return false;
        continue;
      }
      double value = 0;
      if (!values_.Next(property.type, &value)) return false;
      row.Take(property, value);
    }
    if (element.kind == PlyElement::Kind::kFaces)
      return mesh_.ColorFace(row.isColored ? row.Color() : kNoColor);
    if (element.kind != PlyElement::Kind::kPoints) return true;
    if (!mesh_.AddPoint(row.place[0], row.place[1], row.place[2])) return false;
    if (row.isColored) mesh_.ColorLastPoint(row.Color());
    return true;
  }

  bool ReadList(PlyElement::Kind kind, const PlyProperty& property) {
    std::int64_t length = 0;
    if (!values_.NextIndex(*property.lengthType, &length) || length < 0) return false;
    if (property.role != PlyRole::kCorners) {
      return values_.Skip(property.type, static_cast<std::uint64_t>(length), budget_);
    }
    return kind == PlyElement::Kind::kStrips ? ReadStrips(property.type, length)
                                             : ReadFace(property.type, length);
  }

  bool ReadFace(PlyType type, std::int64_t length) {
    mesh_.BeginFace();
    for (std::int64_t i = 0; i < length; ++i) {
      std::int64_t corner = 0;
      if (!values_.NextIndex(type, &corner) || corner < 0) return false;
      if (!mesh_.AddCorner(static_cast<std::uint64_t>(corner))) return false;
    }
    return true;
  }

  // Each corner makes a triangle with the two before it, every other one turned round; -1 begins a new strip.
  bool ReadStrips(PlyType type, std::int64_t length) {
    std::uint64_t before[2] = {};
    std::uint64_t taken = 0;
    for (std::int64_t i = 0; i < length; ++i) {
      std::int64_t read = 0;
      if (!budget_.Spend() || !values_.NextIndex(type, &read)) return false;
      if (read < 0) {
        taken = 0;
        continue;
      }
      const auto corner = static_cast<std::uint64_t>(read);
      const bool turned = taken % 2 != 0;
      if (taken >= 2 && !mesh_.AddTriangle(before[turned ? 1 : 0], before[turned ? 0 : 1], corner))
        return false;
      before[0] = before[1];
      before[1] = corner;
      ++taken;
    }
    return true;
  }

  Values values_;
  MeshBuilder& mesh_;
  WorkBudget& budget_;
};

template <typename Values>
std::optional<Mesh> ReadBody(const PlyHeader& header, Values values, const MeshLimits& limits,
                             WorkBudget& budget) {
  MeshBuilder mesh(limits, budget);
  BodyReader<Values> reader(values, mesh, budget);
  const bool read = std::all_of(header.elements.begin(), header.elements.end(),
                                [&](const PlyElement& element) { return reader.ReadElement(element); });
  return read ? mesh.Finish(UpAxis::kY, PointsAlone::kCloud) : std::nullopt;
}

}  // namespace

std::optional<Mesh> ReadPly(std::string_view file, const MeshLimits& limits, WorkBudget& budget) {
  const std::optional<PlyHeader> header = ReadPlyHeader(file);
  if (!header) return std::nullopt;
  if (header->encoding != PlyEncoding::kText) {
    const bool bigEndian = header->encoding == PlyEncoding::kBigEndian;
    return ReadBody(*header, PlyBinaryValues(header->body, bigEndian), limits, budget);
  }
  std::optional<Mesh> mesh = ReadBody(*header, PlyTextValues(header->body, true), limits, budget);
  if (mesh || budget.exhausted()) return mesh;
  // Some programs break their rows anywhere.
  return ReadBody(*header, PlyTextValues(header->body, false), limits, budget);
}

}  // namespace file_explorer::preview

// The body of a polygon file: the values of its elements, one after the other, as text or as numbers.
#include <algorithm>
#include <cmath>

#include "src/preview/byte_source.h"
#include "src/preview/model_readers.h"
#include "src/preview/ply_header.h"
#include "src/preview/text_source.h"

namespace file_explorer::preview {
namespace {

class TextValues {
 public:
  explicit TextValues(std::string_view body) : text_(body) {}
  bool Next(PlyType, double* value) { return ReadNumber(text_.WordOfText(), value); }

 private:
  TextSource text_;
};

class BinaryValues {
 public:
  BinaryValues(std::string_view body, bool bigEndian) : bytes_(body, bigEndian) {}

  bool Next(PlyType type, double* value) {
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
      case PlyType::kFloat: {
        float number = 0;
        if (!bytes_.Read(&number)) return false;
        *value = double{number};
        return true;
      }
      case PlyType::kDouble:
        return bytes_.Read(value);
    }
    return false;
  }

 private:
  template <typename Stored, typename Number>
  bool NextWhole(double* value) {
    Stored stored = 0;
    if (!bytes_.Read(&stored)) return false;
    *value = static_cast<Number>(stored);
    return true;
  }

  ByteSource bytes_;
};

// A whole number that is not negative. Texts may hold anything; a comparison with what is no number is false.
bool IsIndex(double value) {
  return value >= 0 && value <= 4294967295.0 && std::floor(value) == value;
}

struct PointValues {
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

template <typename Values>
class BodyReader {
 public:
  BodyReader(Values values, MeshBuilder& mesh, WorkBudget& budget)
      : values_(values), mesh_(mesh), budget_(budget) {}

  bool ReadElement(const PlyElement& element) {
    if (element.properties.empty()) return true;  // takes no bytes, however many there are
    for (std::uint64_t i = 0; i < element.count; ++i) {
      if (!ReadRow(element)) return false;
    }
    return true;
  }

 private:
  bool ReadRow(const PlyElement& element) {
    PointValues point;
    for (const PlyProperty& property : element.properties) {
      if (!budget_.Spend()) return false;
      if (property.lengthType) {
        if (!ReadList(property)) return false;
        continue;
      }
      double value = 0;
      if (!values_.Next(property.type, &value)) return false;
      point.Take(property, value);
    }
    if (element.kind != PlyElement::Kind::kPoints) return true;
    if (!mesh_.AddPoint(point.place[0], point.place[1], point.place[2])) return false;
    if (point.isColored) mesh_.ColorLastPoint(point.Color());
    return true;
  }

  bool ReadList(const PlyProperty& property) {
    double length = 0;
    if (!values_.Next(*property.lengthType, &length) || !IsIndex(length)) return false;
    const bool isFace = property.role == PlyRole::kCorners;
    if (isFace) mesh_.BeginFace();
    for (double i = 0; i < length; ++i) {
      double value = 0;
      if (!budget_.Spend() || !values_.Next(property.type, &value)) return false;
      if (!isFace) continue;
      if (!IsIndex(value) || !mesh_.AddCorner(static_cast<std::uint64_t>(value))) return false;
    }
    return true;
  }

  Values values_;
  MeshBuilder& mesh_;
  WorkBudget& budget_;
};

template <typename Values>
bool ReadBody(const PlyHeader& header, Values values, MeshBuilder& mesh, WorkBudget& budget) {
  BodyReader<Values> reader(values, mesh, budget);
  return std::all_of(header.elements.begin(), header.elements.end(),
                     [&](const PlyElement& element) { return reader.ReadElement(element); });
}

}  // namespace

std::optional<Mesh> ReadPly(std::string_view file, const MeshLimits& limits, WorkBudget& budget) {
  const std::optional<PlyHeader> header = ReadPlyHeader(file);
  if (!header) return std::nullopt;
  MeshBuilder mesh(limits, budget);
  const bool isText = header->encoding == PlyEncoding::kText;
  const bool bigEndian = header->encoding == PlyEncoding::kBigEndian;
  const bool read = isText ? ReadBody(*header, TextValues(header->body), mesh, budget)
                           : ReadBody(*header, BinaryValues(header->body, bigEndian), mesh, budget);
  return read ? mesh.Finish(UpAxis::kY) : std::nullopt;
}

}  // namespace file_explorer::preview

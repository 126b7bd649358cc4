// Models as text: "v x y z [r g b]" is a point, "f a/t/n b/t/n ..." a face. Everything else is passed over.
#include <algorithm>
#include <array>
#include <cstdint>

#include "src/preview/model_readers.h"
#include "src/preview/text_source.h"

namespace file_explorer::preview {
namespace {

std::uint32_t Channel(double share) {
  return static_cast<std::uint32_t>(std::clamp(share, 0.0, 1.0) * 255 + 0.5);
}

// Numbers of a line up to its end or a comment. False when a word is no number or there are too many.
bool ReadNumbers(TextSource& text, std::array<double, 8>& numbers, std::size_t* count) {
  for (*count = 0; !text.AtContentEnd(); ++*count) {
    if (*count == numbers.size() || !text.Number(&numbers[*count])) return false;
  }
  return true;
}

bool ReadPoint(TextSource& text, MeshBuilder& mesh) {
  std::array<double, 8> numbers = {};
  std::size_t count = 0;
  if (!ReadNumbers(text, numbers, &count) || count < 3) return false;
  if (!mesh.AddPoint(numbers[0], numbers[1], numbers[2])) return false;
  // Three more are a colour, as scanners write it; one more is a weight.
  const bool isColored = count >= 6 && numbers[3] >= 0 && numbers[4] >= 0 && numbers[5] >= 0;
  if (isColored) {
    mesh.ColorLastPoint(Channel(numbers[3]) << 16 | Channel(numbers[4]) << 8 | Channel(numbers[5]));
  }
  return true;
}

// Faces count points from 1, or back from the last one.
bool ReadFace(TextSource& text, MeshBuilder& mesh) {
  mesh.BeginFace();
  while (!text.AtContentEnd()) {
    long long number = 0;
    if (!text.Whole(&number) || number == 0) return false;
    const long long index = number > 0 ? number - 1 : static_cast<long long>(mesh.pointCount()) + number;
    if (index < 0 || !mesh.AddCorner(static_cast<std::uint64_t>(index))) return false;
  }
  return true;
}

}  // namespace

std::optional<Mesh> ReadObj(std::string_view file, const MeshLimits& limits, WorkBudget& budget) {
  TextSource text(file, true);
  MeshBuilder mesh(limits, budget);
  while (!text.AtEnd()) {
    const std::size_t start = text.at();
    const std::string_view keyword = text.Word();
    if (keyword == "v" && !ReadPoint(text, mesh)) return std::nullopt;
    if ((keyword == "f" || keyword == "fo") && !ReadFace(text, mesh)) return std::nullopt;
    text.NextLine();
    if (!budget.Spend(1 + (text.at() - start) / 16)) return std::nullopt;
  }
  return mesh.Finish(UpAxis::kY, PointsAlone::kCloud);
}

}  // namespace file_explorer::preview

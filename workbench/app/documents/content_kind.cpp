#include "workbench/app/documents/content_kind.h"

#include <algorithm>
#include <string>

#include "workbench/app/documents/describe.h"
#include "workbench/app/documents/text_decoding.h"

namespace workbench {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view kPictureStarts[] = {
    "\x89PNG\r\n\x1A\n"sv, "\xFF\xD8\xFF"sv, "GIF87a"sv, "GIF89a"sv, "BM"sv, "II*\0"sv, "MM\0*"sv,
    "\0\0\1\0"sv,
};

// Kinds of text whose files are written for programs of their own and not to be read as they are.
constexpr std::string_view kNoPlainText[] = {"DOC", "DOCX", "PDF", "RTF"};

bool IsPlainTextName(std::string_view fileName) {
  const std::string extension = UpperExtension(fileName);
  return DescribeType(fileName).kind == FileKind::kText &&
         std::find(std::begin(kNoPlainText), std::end(kNoPlainText), extension) == std::end(kNoPlainText);
}

}  // namespace

bool IsPictureName(std::string_view fileName) {
  return DescribeType(fileName).kind == FileKind::kPicture;
}

bool IsPictureContent(std::string_view beginning) {
  return std::any_of(std::begin(kPictureStarts), std::end(kPictureStarts),
                     [&](std::string_view start) { return beginning.starts_with(start); });
}

bool IsTextFile(std::string_view fileName, std::string_view beginning) {
  if (IsPlainTextName(fileName) && beginning.find('\0') == std::string_view::npos) return true;
  return !beginning.empty() && LooksLikeText(beginning);
}

}  // namespace workbench

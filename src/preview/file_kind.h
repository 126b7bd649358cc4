// Which files have previews, by their names alone: no other file is opened.
#pragma once

#include <string_view>

namespace file_explorer::preview {

enum class FileKind { kNone, kPicture, kModel };

// path: a name or a path in any character set in which the letters A to Z are one byte each.
FileKind KindOfFile(std::string_view path);

// Without its dot; empty when there is none.
std::string_view ExtensionOf(std::string_view path);

// lower: in lower-case letters A to Z and digits.
bool SameExtension(std::string_view lower, std::string_view extension);

}  // namespace file_explorer::preview

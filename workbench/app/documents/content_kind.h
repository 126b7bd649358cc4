// How a file is shown, by the beginning of its content and by its name.
#pragma once

#include <string_view>

namespace workbench {

// True when the name's extension or the content's first bytes say that the file is a picture.
bool IsPictureName(std::string_view fileName);
bool IsPictureContent(std::string_view beginning);

// True when the file is to be shown as text: its beginning reads as text, or its name is a plain text's and
// its beginning has no NULs. An empty file is text only by its name.
bool IsTextFile(std::string_view fileName, std::string_view beginning);

}  // namespace workbench

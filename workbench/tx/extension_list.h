// Lists of file-name extensions as handlers state them: ".3ds;.obj", "3ds, obj" or "*.3ds *.obj".
#pragma once

#include <string_view>

namespace workbench::tx {

// Takes the next extension off the front of list: without "*" and the leading dot ("3ds", "tar.gz"). False
// when the list holds no more. Entries that name no extension ("*", "*.", "*.*") are passed over.
bool NextExtension(std::string_view& list, std::string_view& extension);

// True when name ends in a dot and extension.
bool HasExtension(std::string_view name, std::string_view extension);
bool HasExtensionOfList(std::string_view name, std::string_view list);

}  // namespace workbench::tx

// Folders with thousands of files, made and emptied in a moment.
#pragma once

#include <string>

namespace test_support {

// Makes count files of a byte each with names such as "model000001.obj" in an existing folder; several kinds
// of file, or only ".obj" files. Making them one by one takes minutes under Wine, so the shell of the machine
// below does it. Gives the number made: fewer (2,000 at most) where there is no such shell, 0 on failure.
int MakeManyFiles(const std::wstring& folder, int count, bool severalKinds);

// Deletes them again, as quickly.
void DeleteManyFiles(const std::wstring& folder);

}  // namespace test_support

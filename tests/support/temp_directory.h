// A folder of its own for a test: empty at the start, and removed with everything in it when the test ends, links
// and names of the machine below included. Nothing outside is touched.
#pragma once

#include <string>
#include <string_view>

namespace test_support {

class TempDirectory {
 public:
  // Where it lies. The temporary folder changes whenever another program makes a file there, and the identifier lists of
  // folders below it with it; a drive's root has no date that could change.
  enum class Place { kTemporaryFolder, kDriveRoot };

  explicit TempDirectory(Place place = Place::kTemporaryFolder);
  ~TempDirectory();
  TempDirectory(const TempDirectory&) = delete;
  TempDirectory& operator=(const TempDirectory&) = delete;

  // Full path without a separator at its end.
  const std::wstring& path() const { return path_; }
  std::string narrow() const;  // the same in the ANSI code page

  // Full path of a name in the folder.
  std::wstring Join(std::wstring_view name) const;
  std::string Join(std::string_view name) const;

  // Makes a file (and the folders on its way) with the given content. Gives its full path.
  std::wstring AddFile(std::wstring_view name, std::string_view content = "content") const;
  // Makes a folder (and the folders on its way). Gives its full path.
  std::wstring AddFolder(std::wstring_view name) const;

 private:
  std::wstring path_;
};

}  // namespace test_support

// A folder of the machine itself (below Wine: of the machine below it), with links and names of every kind,
// made, read and removed by the kernel's own calls, so that nothing of what is tested takes part.
#pragma once

#include <map>
#include <string>

namespace test_support {

// What stands under each path below a folder: "folder", "file:" + contents, "link:" + text, "other".
using FolderContents = std::map<std::string, std::string>;

class MachineFolder {
 public:
  MachineFolder();  // a new empty one, in memory where the machine has such a place
  explicit MachineFolder(const std::string& place);  // in that folder, "/tmp/"
  ~MachineFolder();
  MachineFolder(const MachineFolder&) = delete;
  MachineFolder& operator=(const MachineFolder&) = delete;

  const std::string& path() const { return path_; }
  // The path of something in it as Windows programs write it; the drive Z: is the machine's root.
  std::wstring Windows(const std::string& name) const;

  // Names are relative, separated by slashes; the folders on the way are made.
  void Write(const std::string& name, const std::string& contents, bool readOnly = false) const;
  void Folder(const std::string& name) const;
  void Link(const std::string& name, const std::string& text) const;
  void Remove(const std::string& name) const;  // with everything in it
  bool Exists(const std::string& name) const;
  std::string Read(const std::string& name) const;

  FolderContents Contents() const;
  void Clear() const;

 private:
  bool TryToMake(const std::string& place);
  void MakeParents(const std::string& name) const;

  std::string path_;
};

}  // namespace test_support

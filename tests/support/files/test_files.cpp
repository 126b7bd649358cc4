#include "tests/support/files/test_files.h"

#include "base/files/paths.h"

namespace test_support {

using base::SystemError;

template <typename Deed>
SystemError TestFiles::Do(const FileCall& call, Deed&& deed) {
  ++calls;
  if (before) {
    const SystemError refused = before(call);
    if (refused != base::kNoError) return refused;
  }
  const SystemError error = deed();
  return error == base::kNoError && after ? after(call) : error;
}

bool TestFiles::IsOnOtherVolume(const std::wstring& path) const {
  return !otherVolume.empty() && base::IsWithin(path, otherVolume);
}

void TestFiles::Mark(const std::wstring& path, base::FileIdentity* identity) const {
  if (IsOnOtherVolume(path)) identity->volume = ~identity->volume;
}

SystemError TestFiles::Spell(const std::wstring& path, std::wstring* exact) {
  return Do({"Spell", path, {}}, [&] { return inner_.Spell(path, exact); });
}

SystemError TestFiles::Status(const std::wstring& path, base::FileStatus* status) {
  return Do({"Status", path, {}}, [&] {
    const SystemError error = inner_.Status(path, status);
    Mark(path, &status->identity);
    return error;
  });
}

SystemError TestFiles::TargetStatus(const std::wstring& path, base::FileStatus* status) {
  return Do({"TargetStatus", path, {}}, [&] {
    const SystemError error = inner_.TargetStatus(path, status);
    Mark(path, &status->identity);
    return error;
  });
}

SystemError TestFiles::PhysicalChain(const std::wstring& path, std::vector<base::FileIdentity>* chain) {
  return Do({"PhysicalChain", path, {}}, [&] {
    const SystemError error = inner_.PhysicalChain(path, chain);
    std::wstring at = path;
    for (base::FileIdentity& identity : *chain) {
      Mark(at, &identity);
      at = base::ParentOfPath(at);
    }
    return error;
  });
}

SystemError TestFiles::List(const std::wstring& folder, std::vector<base::FileEntry>* entries) {
  return Do({"List", folder, {}}, [&] {
    const SystemError error = inner_.List(folder, entries);
    for (base::FileEntry& entry : *entries) Mark(folder, &entry.status.identity);
    return error;
  });
}

SystemError TestFiles::MakeFolder(const std::wstring& path) {
  return Do({"MakeFolder", path, {}}, [&] { return inner_.MakeFolder(path); });
}

SystemError TestFiles::CopyBytes(const std::wstring& source, const std::wstring& target,
                                 const CopyProgress& progress) {
  return Do({"CopyBytes", source, target}, [&] { return inner_.CopyBytes(source, target, progress); });
}

SystemError TestFiles::CopyLink(const std::wstring& source, const std::wstring& target) {
  return Do({"CopyLink", source, target}, [&] { return inner_.CopyLink(source, target); });
}

SystemError TestFiles::CopyFolderAttributes(const std::wstring& source, const std::wstring& target) {
  return Do({"CopyFolderAttributes", source, target},
            [&] { return inner_.CopyFolderAttributes(source, target); });
}

SystemError TestFiles::Rename(const std::wstring& from, const std::wstring& to) {
  return Do({"Rename", from, to}, [&] {
    return IsOnOtherVolume(from) == IsOnOtherVolume(to) ? inner_.Rename(from, to) : base::kNotSameDevice;
  });
}

SystemError TestFiles::Replace(const std::wstring& from, const std::wstring& to) {
  return Do({"Replace", from, to}, [&] {
    return IsOnOtherVolume(from) == IsOnOtherVolume(to) ? inner_.Replace(from, to) : base::kNotSameDevice;
  });
}

SystemError TestFiles::RemoveFile(const std::wstring& path) {
  return Do({"RemoveFile", path, {}}, [&] { return inner_.RemoveFile(path); });
}

SystemError TestFiles::RemoveFolder(const std::wstring& path) {
  return Do({"RemoveFolder", path, {}}, [&] { return inner_.RemoveFolder(path); });
}

SystemError TestFiles::RemoveLink(const std::wstring& path) {
  return Do({"RemoveLink", path, {}}, [&] { return inner_.RemoveLink(path); });
}

SystemError TestFiles::Flush(const std::wstring& folder, const std::vector<std::wstring>&) {
  return Do({"Flush", folder, {}}, [&] { return base::kNoError; });
}

}  // namespace test_support

#include "src/settings/remembered_folder.h"

#include <gmock/gmock.h>

#include <map>
#include <string>
#include <vector>

namespace file_explorer {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class RememberedFolder : public testing::Test {
 protected:
  bool CanShow(const std::wstring& path, PathKind remembered = PathKind::kFolder) {
    return CanShowFolder(path, remembered,
                         {[this](const std::wstring& root) {
                            roots_.push_back(root);
                            const auto found = volumes_.find(root);
                            return found == volumes_.end() ? VolumeKind::kMissing : found->second;
                          },
                          [this](const std::wstring& asked) {
                            lookedAt_.push_back(asked);
                            const auto found = paths_.find(asked);
                            return found == paths_.end() ? PathKind::kMissing : found->second;
                          }});
  }

  std::map<std::wstring, VolumeKind> volumes_ = {{L"C:\\", VolumeKind::kLocal}, {L"N:\\", VolumeKind::kRemote}};
  std::map<std::wstring, PathKind> paths_ = {{L"C:\\", PathKind::kFolder},
                                             {L"C:\\a", PathKind::kFolder},
                                             {L"C:\\a\\file.obj", PathKind::kFile},
                                             {L"C:\\a\\pack.zip", PathKind::kArchive}};
  std::vector<std::wstring> roots_;
  std::vector<std::wstring> lookedAt_;
};

TEST_F(RememberedFolder, AFolderThatIsThere) {
  EXPECT_TRUE(CanShow(L"C:\\a"));
  EXPECT_TRUE(CanShow(L"C:\\"));
  EXPECT_THAT(roots_, ElementsAre(L"C:\\", L"C:\\"));
}

TEST_F(RememberedFolder, AFolderThatIsGone) {
  EXPECT_FALSE(CanShow(L"C:\\a\\gone"));
  EXPECT_FALSE(CanShow(L"C:\\gone\\too\\deep"));
  EXPECT_FALSE(CanShow(L""));
}

TEST_F(RememberedFolder, AFileIsNoFolder) {
  EXPECT_FALSE(CanShow(L"C:\\a\\file.obj"));
  EXPECT_FALSE(CanShow(L"C:\\a\\file.obj\\below"));
}

TEST_F(RememberedFolder, AnArchiveAndWhatIsInItAreBrowsedLikeFolders) {
  EXPECT_TRUE(CanShow(L"C:\\a\\pack.zip"));
  EXPECT_TRUE(CanShow(L"C:\\a\\pack.zip\\models\\old"));
  EXPECT_FALSE(CanShow(L"C:\\a\\lost.zip\\models"));
}

TEST_F(RememberedFolder, ADriveThatIsGone) {
  EXPECT_FALSE(CanShow(L"Q:\\a"));
  EXPECT_THAT(lookedAt_, IsEmpty());
}

TEST_F(RememberedFolder, SharesAndNetworkDrivesAreBelievedAndNotLookedAt) {
  for (const wchar_t* const path : {L"\\\\server\\share\\a", L"\\\\server\\share", L"N:\\a", L"N:\\"}) {
    EXPECT_TRUE(CanShow(path));
    EXPECT_TRUE(CanShow(path, PathKind::kArchive));
    EXPECT_FALSE(CanShow(path, PathKind::kFile)) << "it was a file when it was written down";
  }
  EXPECT_THAT(lookedAt_, IsEmpty());
}

}  // namespace
}  // namespace file_explorer

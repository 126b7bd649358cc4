#include "workbench/tx/extension_list.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace workbench::tx {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> Extensions(std::string_view list) {
  std::vector<std::string> found;
  std::string_view extension;
  while (NextExtension(list, extension)) found.emplace_back(extension);
  return found;
}

TEST(NextExtension, KnowsTheThreeWaysOfWritingAndAllSeparators) {
  EXPECT_THAT(Extensions(".3ds;obj,*.stl *.tar.gz\tply"), ElementsAre("3ds", "obj", "stl", "tar.gz", "ply"));
  EXPECT_THAT(Extensions(" ;, .3ds ; ,"), ElementsAre("3ds"));
}

TEST(NextExtension, PassesOverEntriesThatNameNoExtension) {
  EXPECT_THAT(Extensions("*;*.;.;*.*"), IsEmpty());
  EXPECT_THAT(Extensions(""), IsEmpty());
  EXPECT_THAT(Extensions("*.*;.a"), ElementsAre("a"));
}

TEST(HasExtensionOfList, ComparesWithoutRegardToCase) {
  EXPECT_TRUE(HasExtensionOfList("Model.OBJ", ".3ds;*.obj"));
  EXPECT_TRUE(HasExtensionOfList("c:\\a\\model.3ds", "3DS"));
  EXPECT_TRUE(HasExtensionOfList("a.tar.gz", ".gz"));
  EXPECT_TRUE(HasExtensionOfList("a.tar.gz", "tar.gz"));
  EXPECT_TRUE(HasExtensionOfList(".zip", ".zip"));
}

TEST(HasExtensionOfList, WantsTheWholeExtension) {
  EXPECT_FALSE(HasExtensionOfList("modelobj", ".obj"));
  EXPECT_FALSE(HasExtensionOfList("model.xobj", "obj"));
  EXPECT_FALSE(HasExtensionOfList("model.obj.bak", ".obj"));
  EXPECT_FALSE(HasExtensionOfList("model", ""));
  EXPECT_FALSE(HasExtensionOfList("", ".obj"));
  EXPECT_FALSE(HasExtensionOfList("obj", "obj"));
}

}  // namespace
}  // namespace workbench::tx

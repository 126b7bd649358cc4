#include "workbench/tx/handler_registry.h"

#include <gmock/gmock.h>

namespace workbench::tx {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

Handler MakeHandler(const char* guid, HandlerFunction function, int64_t types, const char* extensions,
                    const char* name = "Format") {
  Handler handler;
  handler.guid = guid;
  handler.function = function;
  handler.types = types;
  handler.fileTypes = extensions;
  handler.name = name;
  return handler;
}

class HandlerRegistryTest : public testing::Test {
 protected:
  HandlerRegistryTest() {
    registry.Register(MakeHandler("{B}", HandlerFunction::kImporter, kTxTypeObject3D, ".obj;.3ds", "beta"));
    registry.Register(
        MakeHandler("{A}", HandlerFunction::kViewer, kTxTypeText, "*.obj;*.txt;*.tar.gz", "Alpha"));
    registry.Register(MakeHandler("{C}", HandlerFunction::kExporter, kTxTypeVideo, ".obj", "gamma"));
  }
  HandlerRegistry registry;
};

TEST_F(HandlerRegistryTest, EachListHasItsOwnFunctions) {
  EXPECT_EQ(registry.TypesOfName(HandlerList::kImport, "a.obj"), kTxTypeObject3D + 0u);
  EXPECT_EQ(registry.TypesOfName(HandlerList::kViewer, "a.obj"), kTxTypeText + 0u);
  EXPECT_EQ(registry.TypesOfName(HandlerList::kExport, "a.obj"), kTxTypeVideo + 0u);
  EXPECT_EQ(registry.TypesOfName(HandlerList::kImportAndViewer, "a.obj"), kTxTypeObject3D + 0u + kTxTypeText);
}

TEST_F(HandlerRegistryTest, NamesAreTakenInAnyCaseWithOrWithoutAFolder) {
  EXPECT_EQ(registry.TypesOfName(HandlerList::kImport, "C:\\Models.old\\A.3DS"), kTxTypeObject3D + 0u);
  EXPECT_EQ(registry.TypesOfName(HandlerList::kImport, "c:/a.3ds/readme"), 0u)
      << "a folder's name is not the file's";
  EXPECT_EQ(registry.TypesOfName(HandlerList::kImport, "3ds"), 0u);
  EXPECT_EQ(registry.TypesOfName(HandlerList::kImport, ""), 0u);
  EXPECT_EQ(registry.TypesOfName(HandlerList::kImport, "a."), 0u);
}

TEST_F(HandlerRegistryTest, AnExtensionMayHaveADotOfItsOwn) {
  EXPECT_EQ(registry.TypesOfName(HandlerList::kViewer, "a.tar.gz"), kTxTypeText + 0u);
  EXPECT_EQ(registry.TypesOfName(HandlerList::kViewer, "a.gz"), 0u);
}

TEST_F(HandlerRegistryTest, ADisabledHandlerClassifiesNothingButStaysInItsList) {
  ASSERT_TRUE(registry.Enable("{B}", false));
  EXPECT_EQ(registry.TypesOfName(HandlerList::kImport, "a.obj"), 0u);
  EXPECT_EQ(registry.CountOfType(HandlerList::kImport, kTxTypeObject3D), 0);
  EXPECT_THAT(registry.Guids(HandlerList::kImport, 100), ElementsAre("{B}"));
  ASSERT_TRUE(registry.Enable("{B}", true));
  EXPECT_EQ(registry.TypesOfName(HandlerList::kImport, "a.obj"), kTxTypeObject3D + 0u);
}

TEST_F(HandlerRegistryTest, CountsEnabledHandlersThatShareAType) {
  EXPECT_EQ(registry.CountOfType(HandlerList::kImportAndViewer, kTxTypeObject3D | kTxTypeText), 2);
  EXPECT_EQ(registry.CountOfType(HandlerList::kImportAndViewer, kTxTypeVideo), 0)
      << "exporters are not in this list";
  EXPECT_EQ(registry.CountOfType(HandlerList::kImportAndViewer, 0), 0);
}

TEST_F(HandlerRegistryTest, AReplacedHandlerKeepsItsPlace) {
  registry.Register(MakeHandler("{b}", HandlerFunction::kImporter, kTxTypeAudio, ".wav", "zeta"));
  registry.Register(MakeHandler("{D}", HandlerFunction::kImporter, kTxTypeAudio, ".mp3", "delta"));
  EXPECT_THAT(registry.Guids(HandlerList::kImport, 100), ElementsAre("{b}", "{D}"));
  EXPECT_EQ(registry.size(), 4u);
  EXPECT_EQ(registry.TypesOfName(HandlerList::kImport, "a.obj"), 0u);
  EXPECT_EQ(registry.TypesOfName(HandlerList::kImport, "a.wav"), kTxTypeAudio + 0u);
}

TEST_F(HandlerRegistryTest, SortsByNameInAnyCaseAndBackToPluginOrder) {
  registry.Register(MakeHandler("{E}", HandlerFunction::kImporter, kTxTypeText, ".e", "BETA"));
  Handler nameless = MakeHandler("{N}", HandlerFunction::kImporter, kTxTypeText, ".n");
  nameless.name.reset();
  registry.Register(nameless);
  registry.Register(MakeHandler("{F}", HandlerFunction::kImporter, kTxTypeText, ".f", "alpha"));
  registry.SortByName();
  EXPECT_THAT(registry.Guids(HandlerList::kImport, 100), ElementsAre("{F}", "{B}", "{E}", "{N}"));
  registry.SortByPluginOrder();
  EXPECT_THAT(registry.Guids(HandlerList::kImport, 100), ElementsAre("{B}", "{E}", "{N}", "{F}"));
  EXPECT_THAT(registry.Guids(HandlerList::kImportAndViewer, 2), ElementsAre("{B}", "{A}"));
  EXPECT_THAT(registry.Guids(HandlerList::kImport, 0), IsEmpty());
}

TEST_F(HandlerRegistryTest, ARemovedHandlerIsGone) {
  ASSERT_TRUE(registry.Remove("{b}"));
  EXPECT_FALSE(registry.Remove("{B}"));
  EXPECT_FALSE(registry.Enable("{B}", true));
  EXPECT_EQ(registry.Find("{B}"), nullptr);
  EXPECT_EQ(registry.TypesOfName(HandlerList::kImport, "a.obj"), 0u);
  EXPECT_THAT(registry.Guids(HandlerList::kImportAndViewer, 100), ElementsAre("{A}"));
}

TEST_F(HandlerRegistryTest, AHandlerWithoutAFunctionIsInNoList) {
  registry.Register(MakeHandler("{X}", HandlerFunction::kNone, kTxTypeDatabase, ".x"));
  for (const HandlerList list :
       {HandlerList::kImport, HandlerList::kExport, HandlerList::kViewer, HandlerList::kImportAndViewer}) {
    EXPECT_EQ(registry.TypesOfName(list, "a.x"), 0u);
    EXPECT_EQ(registry.CountOfType(list, kTxTypeDatabase), 0);
  }
  EXPECT_NE(registry.Find("{X}"), nullptr);
}

TEST_F(HandlerRegistryTest, RefusesAnEmptyGuid) {
  EXPECT_FALSE(registry.Register(Handler()));
  EXPECT_EQ(registry.size(), 3u);
}

}  // namespace
}  // namespace workbench::tx

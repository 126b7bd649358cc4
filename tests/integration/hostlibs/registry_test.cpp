#include <windows.h>

#include <string>
#include <thread>
#include <vector>

#include "tests/integration/hostlibs/host_memory.h"

namespace {

constexpr char kZipGuid[] = "{693069FB-E6CF-4837-865E-A0B5396B39D0}";

TxToken T(const char* keyword) {
  return Tx_Inquire_Token(keyword);
}

int64_t ZipHeader() {
  return -5;
}
int16_t executedAction = 0;
std::string executedPath;
int64_t ZipExecute(int16_t action, const char*, const char* path) {
  executedAction = action;
  executedPath = path;
  return 0;
}

int RegisterZip(const char* state = "on") {
  const int64_t type = 32;
  return Tx_FileFormatHandler(kZipGuid, T("enabled"), T(state), 1, T("function"), T("viewer"), 1, T("type"),
                              &type, 1, T("filetypes"), ".zip", 1, T("descriptivename"), "ZIP Archive", 1,
                              T("viewer"), T("verifyheadercallback"), &ZipHeader, T("executecallback"),
                              &ZipExecute, 1, 0);
}

int RegisterImporter(const char* guid, const char* extensions, const char* name,
                     int64_t type = kTxTypeObject3D) {
  return Tx_FileFormatHandler(guid, T("enabled"), T("on"), 1, T("function"), T("importer"), 1, T("type"),
                              &type, 1, T("filetypes"), extensions, 1, T("descriptivename"), name, 1, 0);
}

uint32_t TypesOf(const char* list, const char* name) {
  return Tx_FileFormatHandler_GetHandlerTypesFromFilenameExtension(T(list), name, 0);
}

std::vector<std::string> Guids(const char* list, int limit = 65535) {
  char** guids = nullptr;
  const int count = Tx_FileFormatHandler_Query_GUID_List(T(list), limit, &guids);
  std::vector<std::string> result;
  for (int i = 0; i < count; ++i) {
    result.push_back(guids[i]);
    Tx_Free_Memory(guids[i]);
  }
  Tx_Free_Memory(guids);
  return result;
}

size_t Position(const std::vector<std::string>& guids, const char* guid) {
  return static_cast<size_t>(std::find(guids.begin(), guids.end(), guid) - guids.begin());
}

using Registry = HostMemoryTest;

TEST_F(Registry, StartsFilledFromTheFileOfFormats) {
  EXPECT_EQ(TypesOf("import_and_viewer", "model.3ds"), kTxTypeObject3D + 0u);
  EXPECT_EQ(TypesOf("import", "c:\\a\\Picture.PNG"), kTxTypeBitmap2D + 0u);
  EXPECT_GE(Guids("import").size() + Guids("viewer").size() + Guids("export").size(), 80u);
  for (uint32_t bit = kTxTypeBitmap2D; bit <= kTxTypeVector2D; bit <<= 1) {
    EXPECT_GT(Tx_FileFormatHandler_DetermineNumberOfRegisteredFileFormats(T("import_and_viewer"), bit), 0)
        << bit;
  }
}

TEST_F(Registry, TheVariadicRegistrationClassifiesAndCanBeRunBack) {
  EXPECT_EQ(TypesOf("import_and_viewer", "models.zip"), 0u);
  ASSERT_TRUE(RegisterZip());
  EXPECT_EQ(TypesOf("import_and_viewer", "models.ZIP"), kTxTypeArchive + 0u);
  EXPECT_EQ(TypesOf("import", "models.zip"), 0u);
  TxExecuteCallback execute = nullptr;
  TxVerifyHeaderCallback header = nullptr;
  TxToken function = 0, enabled = 0;
  const char *types = nullptr, *name = nullptr;
  int64_t type = 0;
  ASSERT_TRUE(Tx_Inquire_FileFormatHandler(
      kZipGuid, T("executecallback"), &execute, T("verifyheadercallback"), &header, T("function"), &function,
      T("enabled"), &enabled, T("filetypes"), &types, T("descriptivename"), &name, T("type"), &type, 0));
  EXPECT_EQ(function, T("viewer"));
  EXPECT_EQ(enabled, T("on"));
  EXPECT_STREQ(types, ".zip");
  EXPECT_STREQ(name, "ZIP Archive");
  EXPECT_EQ(type, 32);
  EXPECT_EQ(header(), -5);
  EXPECT_EQ(execute(1, kZipGuid, "c:\\a.zip"), 0);
  EXPECT_EQ(executedAction, 1);
  EXPECT_EQ(executedPath, "c:\\a.zip");
}

TEST_F(Registry, ARegistrationThatIsOutOfPlaceRegistersNothing) {
  const size_t before = Guids("viewer").size();
  EXPECT_FALSE(Tx_FileFormatHandler(nullptr, 0));
  EXPECT_FALSE(Tx_FileFormatHandler("", 0));
  EXPECT_FALSE(Tx_FileFormatHandler("{X}", T("function"), T("viewer"), 1, T("size"), 3, 1, 0));
  EXPECT_FALSE(Tx_FileFormatHandler("{X}", T("function"), T("viewer"), 1, T("enabled"), T("maybe"), 1, 0));
  EXPECT_EQ(Guids("viewer").size(), before);
  EXPECT_FALSE(Tx_Enable_FileFormatHandler("{X}", 1));
}

TEST_F(Registry, RegisteringAgainReplacesInPlace) {
  RegisterImporter("{1}", ".one", "first");
  RegisterImporter("{2}", ".two", "second");
  RegisterImporter("{1}", ".other", "first again");
  const auto guids = Guids("import");
  EXPECT_EQ(Position(guids, "{1}") + 1, Position(guids, "{2}"));
  EXPECT_EQ(TypesOf("import", "a.one"), 0u);
  EXPECT_EQ(TypesOf("import", "a.other"), kTxTypeObject3D + 0u);
}

TEST_F(Registry, OfTwoImportersTheFirstInPluginOrderComesFirst) {
  RegisterImporter("{ZZ}", ".two", "Zulu");
  RegisterImporter("{AA}", ".two", "Alpha");
  ASSERT_TRUE(Tx_FileFormatHandler_SortList(T("byname"), 0, 0));
  auto guids = Guids("import");
  EXPECT_LT(Position(guids, "{AA}"), Position(guids, "{ZZ}"));
  ASSERT_TRUE(Tx_FileFormatHandler_SortList(T("bypluginorder"), 0, 0));
  guids = Guids("import");
  EXPECT_LT(Position(guids, "{ZZ}"), Position(guids, "{AA}"));
  EXPECT_FALSE(Tx_FileFormatHandler_SortList(T("bysize"), 0, 0));
  EXPECT_FALSE(Tx_FileFormatHandler_SortList(0, 0, 0));
}

TEST_F(Registry, ADisabledHandlerIsListedButClassifiesNothing) {
  RegisterImporter("{D}", ".dis", "disabled");
  const int before =
      Tx_FileFormatHandler_DetermineNumberOfRegisteredFileFormats(T("import"), kTxTypeObject3D);
  ASSERT_TRUE(Tx_Enable_FileFormatHandler("{D}", 0));
  EXPECT_EQ(TypesOf("import", "a.dis"), 0u);
  EXPECT_EQ(Tx_FileFormatHandler_DetermineNumberOfRegisteredFileFormats(T("import"), kTxTypeObject3D),
            before - 1);
  EXPECT_EQ(Position(Guids("import"), "{D}"), Guids("import").size() - 1);
  TxToken enabled = 0;
  ASSERT_TRUE(Tx_Inquire_FileFormatHandler("{D}", T("enabled"), &enabled, 0));
  EXPECT_EQ(enabled, T("off"));
  EXPECT_FALSE(Tx_Enable_FileFormatHandler("{nobody}", 1));
  EXPECT_FALSE(Tx_Enable_FileFormatHandler(nullptr, 1));
  EXPECT_TRUE(RegisterZip("off"));
  EXPECT_EQ(TypesOf("viewer", "a.zip"), 0u);
}

TEST_F(Registry, ARemovedHandlerIsGone) {
  RegisterImporter("{R}", ".rem", "removed");
  ASSERT_TRUE(Tx_Remove_FileFormatHandler("{R}"));
  EXPECT_FALSE(Tx_Remove_FileFormatHandler("{R}"));
  EXPECT_FALSE(Tx_Remove_FileFormatHandler(nullptr));
  EXPECT_EQ(TypesOf("import", "a.rem"), 0u);
  EXPECT_FALSE(Tx_Inquire_FileFormatHandler("{R}", 0));
}

TEST_F(Registry, AnInquiryKeepsWhatItFoundBeforeAnUnknownToken) {
  RegisterImporter("{I}", ".inq", "inquired");
  const char* name = nullptr;
  TxToken other = 77;
  EXPECT_FALSE(Tx_Inquire_FileFormatHandler("{I}", T("descriptivename"), &name, T("size"), &other, 0));
  EXPECT_STREQ(name, "inquired");
  EXPECT_EQ(other, 77);
  EXPECT_FALSE(Tx_Inquire_FileFormatHandler(nullptr, 0));
  EXPECT_TRUE(Tx_Inquire_FileFormatHandler("{I}", 0));
  Tx_FileFormatHandler("{N}", 0);
  name = "unchanged";
  ASSERT_TRUE(Tx_Inquire_FileFormatHandler("{N}", T("filetypes"), &name, 0));
  EXPECT_EQ(name, nullptr) << "null when there is none";
}

TEST_F(Registry, BadArgumentsClassifyAndListNothing) {
  EXPECT_EQ(TypesOf("nolist", "a.obj"), 0u);
  EXPECT_EQ(Tx_FileFormatHandler_GetHandlerTypesFromFilenameExtension(0, "a.obj", 0), 0u);
  EXPECT_EQ(TypesOf("import", nullptr), 0u);
  EXPECT_EQ(TypesOf("import", "noextension"), 0u);
  EXPECT_EQ(Tx_FileFormatHandler_DetermineNumberOfRegisteredFileFormats(0, kTxTypeText), 0);
  char* text = nullptr;
  char** guids = &text;
  EXPECT_EQ(Tx_FileFormatHandler_Query_GUID_List(0, 10, &guids), 0);
  EXPECT_EQ(guids, nullptr);
  guids = &text;
  EXPECT_EQ(Tx_FileFormatHandler_Query_GUID_List(T("import"), 0, &guids), 0);
  EXPECT_EQ(guids, nullptr);
  guids = &text;
  EXPECT_EQ(Tx_FileFormatHandler_Query_GUID_List(T("import"), -1, &guids), 0);
  EXPECT_EQ(guids, nullptr);
  EXPECT_EQ(Tx_FileFormatHandler_Query_GUID_List(T("import"), 10, nullptr), 0);
}

TEST_F(Registry, TheLimitOfAListHolds) {
  EXPECT_EQ(Guids("import", 3).size(), 3u);
}

TEST_F(Registry, EachCategoryHasAColorThatCanBeSetAndReset) {
  Tx_FileFormatHandler_ResetAssociatedFileTypeHandlerColors();
  for (uint32_t bit = kTxTypeBitmap2D; bit <= kTxTypeVector2D; bit <<= 1) {
    float factory[3], now[3];
    ASSERT_TRUE(
        Tx_FileFormatHandler_GetAssociatedFileTypeHandlerColor(bit, &factory[0], &factory[1], &factory[2]));
    ASSERT_TRUE(Tx_FileFormatHandler_SetAssociatedFileTypeHandlerColor(bit, 0.5f, 7.0f, -1.0f));
    ASSERT_TRUE(Tx_FileFormatHandler_GetAssociatedFileTypeHandlerColor(bit, &now[0], &now[1], &now[2]));
    EXPECT_EQ(now[0], 0.5f);
    EXPECT_EQ(now[1], 1.0f);
    EXPECT_EQ(now[2], 0.0f);
    Tx_FileFormatHandler_ResetAssociatedFileTypeHandlerColors();
    ASSERT_TRUE(Tx_FileFormatHandler_GetAssociatedFileTypeHandlerColor(bit, &now[0], &now[1], &now[2]));
    EXPECT_EQ(now[1], factory[1]);
  }
}

TEST_F(Registry, AMaskWithoutACategoryLeavesTheOutputs) {
  float red = 9, green = 9, blue = 9;
  EXPECT_FALSE(Tx_FileFormatHandler_GetAssociatedFileTypeHandlerColor(0, &red, &green, &blue));
  EXPECT_FALSE(Tx_FileFormatHandler_GetAssociatedFileTypeHandlerColor(kTxTypeUnknown, &red, &green, &blue));
  EXPECT_FALSE(Tx_FileFormatHandler_GetAssociatedFileTypeHandlerColor(kTxTypeText, &red, &green, nullptr));
  EXPECT_EQ(red, 9);
  EXPECT_EQ(green, 9);
  EXPECT_EQ(blue, 9);
  EXPECT_FALSE(Tx_FileFormatHandler_SetAssociatedFileTypeHandlerColor(kTxTypeText | kTxTypeAudio, 1, 1, 1));
  EXPECT_FALSE(Tx_FileFormatHandler_SetAssociatedFileTypeHandlerColor(kTxTypeUnknown, 1, 1, 1));
}

TEST_F(Registry, ThreadsCanRegisterAndClassifyAtTheSameTime) {
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([i] {
      const std::string guid = "{T" + std::to_string(i) + "}";
      const std::string extension = ".t" + std::to_string(i);
      for (int j = 0; j < 200; ++j) {
        EXPECT_TRUE(RegisterImporter(guid.c_str(), extension.c_str(), "threaded"));
        EXPECT_EQ(TypesOf("import", ("a" + extension).c_str()), kTxTypeObject3D + 0u);
        EXPECT_TRUE(Tx_Remove_FileFormatHandler(guid.c_str()));
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
}

}  // namespace

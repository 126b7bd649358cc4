// The file view on an archive.
#include "tests/integration/archive/archive_fixture.h"

namespace controls_test {
namespace {

using ArchiveView = ArchiveFixture;

TEST_F(ArchiveView, AnArchiveIsAFolderAndAFileToTheShell) {
  ASSERT_TRUE(view_.GoAndWait(folder_.path()));
  EXPECT_THAT(view_.Names(), ElementsAre(L"sub", L"box.zip", L"plain.obj")) << "it stands among the files";
  EXPECT_EQ(AttributesOf(L"box.zip") & (kFolderBit | kFileSystemBit), kFolderBit | kFileSystemBit);
  EXPECT_EQ(AttributesOf(L"plain.obj") & (kFolderBit | kFileSystemBit), kFileSystemBit);
}

TEST_F(ArchiveView, EnterOpensItAndTheFoldersInside) {
  ASSERT_TRUE(view_.GoAndWait(folder_.path()));
  view_.log().Clear();
  Enter(L"box.zip");
  ASSERT_TRUE(WaitForNames({L"models", L"readme.txt"}));
  EXPECT_EQ(ViewPath(), Archive());
  EXPECT_EQ(view_.log().Last(3)->texts[0], Archive());
  EXPECT_EQ(view_.log().Count(2), 1) << "the container was asked first";
  Enter(L"models");
  ASSERT_TRUE(WaitForNames({L"parts", L"teapot.obj"}));
  Enter(L"parts");
  ASSERT_TRUE(WaitForNames({L"lid.obj"}));
  EXPECT_EQ(ViewPath(), Archive(L"models\\parts"));
}

TEST_F(ArchiveView, ADoubleClickOpensItUnlessTheContainerCancels) {
  ASSERT_TRUE(view_.GoAndWait(folder_.path()));
  bool cancel = true;
  view_.log().SetHandler([&](DISPID id, DISPPARAMS& params) {
    if (id == 2) *params.rgvarg[0].pboolVal = cancel ? VARIANT_TRUE : VARIANT_FALSE;
  });
  const auto doubleClick = [&] {
    RECT rect = {};
    rect.left = LVIR_LABEL;
    SendMessageW(view_.list(), LVM_GETITEMRECT, static_cast<WPARAM>(view_.RowOf(L"box.zip")),
                 reinterpret_cast<LPARAM>(&rect));
    const LPARAM point = MAKELPARAM(rect.left + 8, (rect.top + rect.bottom) / 2);
    SendMessageW(view_.list(), WM_LBUTTONDBLCLK, MK_LBUTTON, point);
    SendMessageW(view_.list(), WM_LBUTTONUP, 0, point);
    PumpMessages();
  };
  doubleClick();
  EXPECT_EQ(ViewPath(), folder_.path());
  cancel = false;
  doubleClick();
  EXPECT_TRUE(WaitForNames({L"models", L"readme.txt"}));
}

TEST_F(ArchiveView, AListOfTheShellLeadsIntoIt) {
  ASSERT_TRUE(view_.GoAndWait(Archive()));
  EXPECT_THAT(view_.Names(), ElementsAre(L"models", L"readme.txt"));
  EXPECT_NE(GetPidl(view_.dispatch(), 21), nullptr) << "the archive itself has a list";
}

TEST_F(ArchiveView, ColumnsSayWhatTheArchiveSays) {
  ZipEntry entry;
  entry.name = "old.txt";
  entry.content = "12345";
  entry.date = test_support::DosDate(2001, 2, 3);
  entry.time = test_support::DosTime(4, 5, 6);
  ZipEntry undated;
  undated.name = "undated.txt";
  undated.date = 0;
  ZipEntry damaged;
  damaged.name = "where.txt";
  damaged.offset = 0x70000000;
  folder_.AddFile(L"dates.zip", SampleArchive().Add(entry).Add(undated).Add(damaged).Build());
  ASSERT_TRUE(view_.GoAndWait(folder_.Join(L"dates.zip")));
  const int models = view_.RowOf(L"models");
  const int old = view_.RowOf(L"old.txt");
  // The time stands as the archive has it, whatever the time zone.
  SYSTEMTIME wall = {};
  wall.wYear = 2001;
  wall.wMonth = 2;
  wall.wDay = 3;
  wall.wHour = 4;
  wall.wMinute = 5;
  wall.wSecond = 6;
  wchar_t date[64] = L"";
  wchar_t clock[64] = L"";
  GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &wall, nullptr, date, 64);
  GetTimeFormatW(LOCALE_USER_DEFAULT, TIME_NOSECONDS, &wall, nullptr, clock, 64);
  EXPECT_EQ(view_.CellText(old, 3), std::wstring(date) + L" " + clock);
  EXPECT_EQ(view_.CellText(old, 1), L"1 KB");
  EXPECT_EQ(view_.CellText(models, 1), L"");
  EXPECT_EQ(view_.CellText(models, 2), L"Folder");
  EXPECT_EQ(view_.CellText(view_.RowOf(L"undated.txt"), 3), L"");
  EXPECT_TRUE(view_.CellText(view_.RowOf(L"where.txt"), 2).ends_with(L" (damaged)"));
  Enter(L"models");
  ASSERT_TRUE(WaitForNames({L"parts", L"teapot.obj"}));
  EXPECT_EQ(view_.CellText(view_.RowOf(L"teapot.obj"), 1), L"3 KB");
}

TEST_F(ArchiveView, ItemsInsideAreOnNoFileSystem) {
  ASSERT_TRUE(view_.GoAndWait(Archive()));
  EXPECT_EQ(FolderAttributes() & kFileSystemBit, kFileSystemBit) << "the archive is a file";
  EXPECT_EQ(AttributesOf(L"models") & (kFolderBit | kFileSystemBit | kChangeBits), kFolderBit);
  EXPECT_EQ(AttributesOf(L"readme.txt") & (kFolderBit | kFileSystemBit | kChangeBits), 0);
  EXPECT_EQ(GetText(Item(L"readme.txt").get(), 1), Archive(L"readme.txt"));
  EXPECT_EQ(GetText(Item(L"readme.txt").get(), 4), Archive(L"readme.txt"));
  EXPECT_EQ(GetText(Item(L"readme.txt").get(), 23), L"readme.txt");
  EXPECT_EQ(GetPidl(Item(L"readme.txt").get(), 21), nullptr) << "the shell has no list for it";
  Enter(L"models");
  ASSERT_TRUE(WaitForNames({L"parts", L"teapot.obj"}));
  EXPECT_EQ(FolderAttributes() & (kFolderBit | kFileSystemBit), kFolderBit);
  EXPECT_EQ(GetPidl(view_.dispatch(), 21), nullptr);
  Variant parent;
  ASSERT_EQ(CallMethod(GetObject(view_.dispatch(), 69).get(), 16, {}, &parent), S_OK);
  EXPECT_EQ(GetText(parent.pdispVal, 1), Archive());
}

TEST_F(ArchiveView, EachItemInsideIsAnnouncedAndCanBeLeftOut) {
  view_.log().SetHandler([&](DISPID id, DISPPARAMS& params) {
    if (id != 12) return;
    if (GetText(params.rgvarg[0].pdispVal, 23) == L"readme.txt") CallMethod(params.rgvarg[0].pdispVal, 19);
  });
  ASSERT_TRUE(view_.GoAndWait(Archive()));
  EXPECT_THAT(view_.Names(), ElementsAre(L"models"));
}

TEST_F(ArchiveView, ItemsInsideAreShownWithoutVirtualFoldersToo) {
  ASSERT_EQ(PutBool(view_.dispatch(), 15, false), S_OK);
  ASSERT_TRUE(view_.GoAndWait(Archive()));
  EXPECT_THAT(view_.Names(), ElementsAre(L"models", L"readme.txt"));
  ASSERT_EQ(PutBool(view_.dispatch(), 17, false), S_OK);
  ASSERT_TRUE(WaitForNames({L"readme.txt"}));
  ASSERT_TRUE(view_.GoAndWait(folder_.path()));
  EXPECT_THAT(view_.Names(), ElementsAre(L"box.zip", L"plain.obj")) << "an archive is no folder to hide";
}

TEST_F(ArchiveView, UpLeadsOutOfIt) {
  ASSERT_TRUE(view_.GoAndWait(Archive()));
  Enter(L"models");
  ASSERT_TRUE(WaitForNames({L"parts", L"teapot.obj"}));
  ASSERT_EQ(CallMethod(view_.dispatch(), 44), S_OK);
  ASSERT_TRUE(WaitForNames({L"models", L"readme.txt"}));
  EXPECT_EQ(ViewPath(), Archive());
  SendMessageW(view_.list(), WM_KEYDOWN, VK_BACK, 0);
  ASSERT_TRUE(WaitForNames({L"sub", L"box.zip", L"plain.obj"}));
  EXPECT_EQ(ViewPath(), folder_.path());
  EXPECT_EQ(FolderAttributes() & kFileSystemBit, kFileSystemBit);
  // Files can be made again.
  Variant made;
  ASSERT_EQ(CallMethod(view_.dispatch(), 58, {BoolValue(false)}, &made), S_OK);
  EXPECT_EQ(made.boolVal, VARIANT_TRUE);
  EXPECT_TRUE(WaitUntil([&] { return view_.RowOf(L"New folder") >= 0; }));
}

TEST_F(ArchiveView, NothingInsideCanBeChanged) {
  const std::wstring before = folder_.Join(L"box.zip");
  ASSERT_TRUE(view_.GoAndWait(Archive()));
  if (OpenClipboard(nullptr)) {
    EmptyClipboard();
    CloseClipboard();
  }
  SelectOnly(view_.RowOf(L"readme.txt"));
  const std::pair<long, const char*> refused[] = {{3, "Items of an archive cannot be cut or copied."},
                                                  {6, "Items of an archive cannot be deleted."},
                                                  {4, "Items of an archive cannot be cut or copied."},
                                                  {10, "Items of an archive cannot be renamed."}};
  for (const auto& [command, reason] : refused) {
    EXPECT_EQ(CallMethod(view_.dispatch(), 50, {LongValue(command)}), S_OK);
    EXPECT_EQ(Status(), reason);
  }
  EXPECT_EQ(CallMethod(view_.dispatch(), 51, {LongValue(5)}), S_OK);
  EXPECT_EQ(Status(), "Files cannot be pasted into an archive.");
  EXPECT_FALSE(IsClipboardFormatAvailable(CF_HDROP));
  EXPECT_EQ(SendMessageW(view_.list(), LVM_GETEDITCONTROL, 0, 0), 0) << "no name is edited";
  Variant made;
  EXPECT_EQ(CallMethod(view_.dispatch(), 58, {BoolValue(true)}, &made), S_OK);
  EXPECT_EQ(made.boolVal, VARIANT_FALSE);
  EXPECT_THAT(Status(), HasSubstr("A folder cannot be made here."));
  SendMessageW(view_.list(), WM_KEYDOWN, VK_DELETE, 0);
  SendMessageW(view_.list(), WM_KEYDOWN, VK_F2, 0);
  EXPECT_THAT(view_.Names(), ElementsAre(L"models", L"readme.txt"));
  EXPECT_NE(GetFileAttributesW(before.c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(ArchiveView, AFileInsideIsNotOpened) {
  ASSERT_TRUE(view_.GoAndWait(Archive()));
  view_.log().Clear();
  Enter(L"readme.txt");
  PumpMessages();
  EXPECT_EQ(view_.log().Count(2), 1);
  EXPECT_EQ(ViewPath(), Archive());
  EXPECT_EQ(view_.log().Count(3), 0);
  EXPECT_THAT(Status(), HasSubstr("readme.txt? lies in an archive and cannot be opened from there."));
}

TEST_F(ArchiveView, AnArchiveInsideIsAFile) {
  folder_.AddFile(L"outer.zip", ZipBuilder().Add("inner.zip", SampleArchive().Build()).Build());
  ASSERT_TRUE(view_.GoAndWait(folder_.Join(L"outer.zip")));
  ASSERT_THAT(view_.Names(), ElementsAre(L"inner.zip"));
  EXPECT_EQ(AttributesOf(L"inner.zip") & kFolderBit, 0);
}

TEST_F(ArchiveView, AFolderWithTheEndingStaysAFolder) {
  folder_.AddFile(L"real.zip\\inside.obj");
  ASSERT_TRUE(view_.GoAndWait(folder_.Join(L"real.zip")));
  EXPECT_THAT(view_.Names(), ElementsAre(L"inside.obj"));
  EXPECT_EQ(AttributesOf(L"inside.obj") & kFileSystemBit, kFileSystemBit);
}

TEST_F(ArchiveView, NamesThatLeadElsewhereAreShownAndLeadNowhere) {
  folder_.AddFile(
      L"bad.zip",
      ZipBuilder().Add("../plain.obj").Add("con").Add("c:\\windows\\x.dll").Add("same").Add("same").Build());
  ASSERT_TRUE(view_.GoAndWait(folder_.Join(L"bad.zip")));
  EXPECT_THAT(view_.Names(), testing::UnorderedElementsAre(L"__ (unsafe name)", L"c_ (unsafe name)",
                                                           L"_con (unsafe name)", L"same", L"same (2)"));
  Enter(L"__ (unsafe name)");
  ASSERT_TRUE(WaitForNames({L"plain.obj"}));
  EXPECT_EQ(ViewPath(), folder_.Join(L"bad.zip\\__ (unsafe name)"));
}

TEST_F(ArchiveView, ADamagedArchiveIsAnEmptyListThatSaysSo) {
  std::string bytes = SampleArchive().Build();
  bytes[bytes.rfind("PK\x01\x02")] = 'Q';
  folder_.AddFile(L"damaged.zip", bytes);
  folder_.AddFile(L"none.zip", "not an archive at all");
  folder_.AddFile(L"empty.zip", "");
  for (const wchar_t* name : {L"damaged.zip", L"none.zip", L"empty.zip"}) {
    ASSERT_TRUE(view_.GoAndWait(folder_.path()));
    view_.log().Clear();
    view_.Go(folder_.Join(name));
    EXPECT_TRUE(WaitUntil([&] { return ViewPath() == folder_.Join(name) && view_.log().Count(17) > 0; }));
    EXPECT_TRUE(view_.Names().empty());
    ASSERT_EQ(CallMethod(view_.dispatch(), 44), S_OK);
    EXPECT_TRUE(WaitUntil([&] { return ViewPath() == folder_.path(); }));
  }
}

TEST_F(ArchiveView, WithoutThePropertyAnArchiveIsAPlainFile) {
  ASSERT_EQ(PutBool(view_.dispatch(), 19, false), S_OK);
  ASSERT_TRUE(view_.GoAndWait(folder_.path()));
  EXPECT_EQ(AttributesOf(L"box.zip") & (kFolderBit | kFileSystemBit), kFileSystemBit);
  view_.log().Clear();
  view_.Go(Archive());
  EXPECT_TRUE(WaitUntil([&] { return view_.log().Count(18) > 0; })) << "refused";
  EXPECT_EQ(ViewPath(), folder_.path());
  ASSERT_EQ(PutBool(view_.dispatch(), 19, true), S_OK);
  EXPECT_EQ(AttributesOf(L"box.zip") & kFolderBit, kFolderBit) << "what is shown follows at once";
}

TEST_F(ArchiveView, TakingThePropertyAwayLeavesTheArchive) {
  ASSERT_TRUE(view_.GoAndWait(Archive()));
  ASSERT_EQ(PutBool(view_.dispatch(), 19, false), S_OK);
  EXPECT_TRUE(WaitUntil([&] { return ViewPath() == folder_.path(); }));
}

TEST_F(ArchiveView, ManyEntriesComeAll) {
  ZipBuilder builder;
  for (int i = 0; i < 12000; ++i) builder.Add("part" + std::to_string(i) + ".obj");
  folder_.AddFile(L"large.zip", builder.Build());
  ASSERT_TRUE(view_.GoAndWait(folder_.Join(L"large.zip")));
  EXPECT_EQ(GetLong(view_.dispatch(), 52), 12000);
}

}  // namespace
}  // namespace controls_test

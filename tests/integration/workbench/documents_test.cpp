// Documents and the hand-over of a file.
#include "src/host/plugin_protocol.h"
#include "tests/integration/workbench/workbench_fixture.h"

namespace workbench {
namespace {

class DocumentsTest : public WorkbenchTest {
 protected:
  DocumentsTest() { Start(); }

  void HandOver(const std::string& path) {
    char folder[MAX_PATH] = "";
    GetTempPathA(MAX_PATH, folder);
    const std::string file = std::string(folder) + host::kAutoloadFileName;
    const HANDLE handle = CreateFileA(file.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    ASSERT_NE(handle, INVALID_HANDLE_VALUE);
    DWORD written = 0;
    WriteFile(handle, path.data(), static_cast<DWORD>(path.size()), &written, nullptr);
    CloseHandle(handle);
    SendMessageA(host().window(), host::kAutoloadMessage, 0, 0);
  }
};

TEST_F(DocumentsTest, AHandedOverFileIsOpened) {
  const std::wstring path = folder_.AddFile(L"notes.txt", "some text\n");
  HandOver(folder_.Join(std::string("notes.txt")));
  const auto documents = host().documents().documents();
  ASSERT_EQ(documents.size(), 1u);
  EXPECT_EQ(documents[0].path, path);
  EXPECT_EQ(documents[0].kind, L"text");
  EXPECT_EQ(host().main().summary(), documents[0].summary);
  EXPECT_EQ(host().main().message(), path);
  HandOver(folder_.Join(std::string("notes.txt")));
  EXPECT_EQ(host().documents().documents().size(), 1u) << "an open file comes to the front";
}

TEST_F(DocumentsTest, AFileThatIsGoneIsSaidInTheStatusLine) {
  HandOver(folder_.Join(std::string("gone.txt")));
  EXPECT_TRUE(host().documents().documents().empty());
  EXPECT_NE(host().main().message().find(L"gone.txt"), std::wstring::npos);
}

TEST_F(DocumentsTest, AnEmptyHandOverOpensNothing) {
  HandOver("");
  EXPECT_TRUE(host().documents().documents().empty());
  EXPECT_NE(host().main().message(), L"Ready");
}

TEST_F(DocumentsTest, DocumentsAreTabsThatCloseOneByOne) {
  host().OpenDocument(folder_.AddFile(L"one.txt", "1"));
  host().OpenDocument(folder_.AddFile(L"two.txt", "2"));
  host().OpenDocument(folder_.AddFile(L"data.bin", std::string("\x00\x01\x02\xff", 4)));
  DocumentArea& area = host().windows().documents();
  EXPECT_EQ(area.pageCount(), 3);
  EXPECT_NE(host().documents().Front().path.find(L"data.bin"), std::wstring::npos);
  host().Execute(kCommandNextDocument);
  EXPECT_NE(host().documents().Front().path.find(L"one.txt"), std::wstring::npos);
  host().Execute(kCommandPreviousDocument);
  EXPECT_NE(host().documents().Front().path.find(L"data.bin"), std::wstring::npos);
  Click(area.window(), Middle(area.CloseRectOf(area.front())));
  EXPECT_EQ(area.pageCount(), 2);
  host().Execute(kCommandCloseDocument);
  host().Execute(kCommandCloseDocument);
  host().Execute(kCommandCloseDocument);
  EXPECT_EQ(area.pageCount(), 0);
  EXPECT_TRUE(host().documents().documents().empty());
  EXPECT_TRUE(host().main().summary().empty());
}

TEST_F(DocumentsTest, TheWindowsTitleNamesTheDocument) {
  host().OpenDocument(folder_.AddFile(L"one.txt", "1"));
  wchar_t title[200] = L"";
  GetWindowTextW(host().window(), title, 200);
  EXPECT_NE(std::wstring(title).find(L"one.txt"), std::wstring::npos);
}

TEST_F(DocumentsTest, AWindowDockedAsDocumentClosesLikeOne) {
  host().OpenDocument(folder_.AddFile(L"one.txt", "1"));
  const auto window = Docked(host::kMethodTabbedDocument, host::kDockBottom);
  EXPECT_TRUE(IsWindowVisible(window->window()));
  window->answerClose = 1;
  host().Execute(kCommandCloseDocument);
  EXPECT_EQ(window->Count(host::kNotifyClose), 1);
  EXPECT_EQ(host().windows().documents().pageCount(), 2);
  window->answerClose = 0;
  host().Execute(kCommandCloseDocument);
  EXPECT_FALSE(IsWindowVisible(window->window()));
  EXPECT_EQ(host().windows().documents().pageCount(), 1);
  host::Call<host::op::ShowManagedWindow>(services(), window->window(), 1);
  EXPECT_TRUE(IsWindowVisible(window->window()));
}

}  // namespace
}  // namespace workbench

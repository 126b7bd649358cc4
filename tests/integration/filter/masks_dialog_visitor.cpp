#include "tests/integration/filter/masks_dialog_visitor.h"

#include <cstring>

#include "src/host/vc64_imp.h"
#include "workbench/app/text/wildcard.h"

namespace file_explorer {
namespace {

MasksDialogVisit* activeVisit = nullptr;

}  // namespace

MasksDialogVisit::MasksDialogVisit(std::function<void(HWND)> visit) : visit_(std::move(visit)) {
  activeVisit = this;
  timer_ = SetTimer(nullptr, 0, 10, OnTimer);
}

MasksDialogVisit::~MasksDialogVisit() {
  KillTimer(nullptr, timer_);
  activeVisit = nullptr;
}

void CALLBACK MasksDialogVisit::OnTimer(HWND, UINT, UINT_PTR, DWORD) {
  if (activeVisit != nullptr) activeVisit->Poll();
}

void MasksDialogVisit::Poll() {
  const HWND dialog = FindWindowA("#32770", "File Selection Masks");
  if (dialog == nullptr || !IsWindowVisible(dialog) || visited_) return;
  visited_ = true;
  visit_(dialog);
  if (IsWindow(dialog)) EndDialog(dialog, 0);
}

std::string ControlText(HWND dialog, int id) {
  char text[2048] = "";
  GetDlgItemTextA(dialog, id, text, sizeof text);
  return text;
}

std::vector<std::string> ComboEntries(HWND dialog, int id) {
  std::vector<std::string> entries;
  const LRESULT count = SendDlgItemMessageA(dialog, id, CB_GETCOUNT, 0, 0);
  for (LRESULT i = 0; i < count; ++i) {
    char text[2048] = "";
    SendDlgItemMessageA(dialog, id, CB_GETLBTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text));
    entries.emplace_back(text);
  }
  return entries;
}

void Press(HWND dialog, int id) {
  SendMessageA(GetDlgItem(dialog, id), BM_CLICK, 0, 0);
}

void Key(HWND dialog, WPARAM key) {
  for (const UINT kind : {WM_KEYDOWN, WM_KEYUP}) {
    MSG message = {GetFocus(), kind, key, kind == WM_KEYUP ? LPARAM{0xC0000001} : 1, 0, {0, 0}};
    if (!IsWindow(dialog) || IsDialogMessageA(dialog, &message)) continue;
    TranslateMessage(&message);
    DispatchMessageA(&message);
  }
}

void AltKey(HWND dialog, char letter) {
  MSG message = {GetFocus(), WM_SYSCHAR, static_cast<WPARAM>(letter), 1 << 29, 0, {0, 0}};
  IsDialogMessageA(dialog, &message);
}

void TypeText(const char* text) {
  for (; *text != '\0'; ++text) SendMessageA(GetFocus(), WM_CHAR, static_cast<WPARAM>(*text), 1);
}

int FocusedId() {
  HWND window = GetFocus();
  // The text of a combo box is a window of its own inside it.
  if (GetDlgCtrlID(window) == 1001 && GetDlgCtrlID(GetParent(window)) != 0) window = GetParent(window);
  return GetDlgCtrlID(window);
}

MasksDialogFixture::MasksDialogFixture() {
  services.Provide<host::op::ValidateMatchPattern>([](const char* pattern, char* reason) {
    std::string why;
    if (workbench::ValidatePattern(pattern, &why)) return 1;
    std::strcpy(reason, why.c_str());
    return 0;
  });
  parent = CreateWindowExA(0, "STATIC", "", WS_POPUP | WS_VISIBLE, 300, 200, 640, 480, nullptr, nullptr,
                           GetModuleHandleA(nullptr), nullptr);
}

MasksDialogFixture::~MasksDialogFixture() {
  DestroyWindow(parent);
}

bool MasksDialogFixture::Open(const std::function<void(HWND)>& visit) {
  MasksDialog dialog;
  dialog.instance = GetModuleHandleA(nullptr);
  dialog.services = services.services();
  dialog.helpLocation = directory.narrow();
  dialog.inclusionList = &inclusion;
  dialog.exclusionList = &exclusion;
  dialog.filteringMethod = &filteringMethod;
  dialog.showFolders = &showFolders;
  dialog.showVirtualFolders = &showVirtualFolders;
  dialog.save = [this] { ++saves; };
  const MasksDialogVisit visitor(visit);
  const bool changed = RunFileSelectionMasksDialog(parent, dialog);
  EXPECT_TRUE(visitor.visited());
  return changed;
}

void MasksDialogFixture::StoreLists(const char* inclusionText, const char* exclusionText) {
  inclusion = unique_host_text(Import_IO_Copy_String(inclusionText));
  exclusion = unique_host_text(Import_IO_Copy_String(exclusionText));
}

}  // namespace file_explorer

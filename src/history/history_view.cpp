#include "src/history/history_view.h"

#include <commctrl.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <utility>

#include "base/files/system_recovery_calls.h"
#include "base/flow/steps.h"
#include "base/text/code_page.h"
#include "base/text/letter_case.h"
#include "src/history/history_list_box.h"
#include "src/history/history_platform.h"
#include "src/history/history_store.h"
#include "src/history/row_layout.h"
#include "src/history/row_painter.h"
#include "src/history/row_pictures.h"
#include "src/history/sorting_menu.h"

namespace file_explorer {
namespace {

constexpr char kSection[] = "History";
constexpr char kSortingMethodKey[] = "HistorySortingMethod";
constexpr char kShowIconsKey[] = "HistoryShowIcons";
constexpr int kFontPoints = 9;
constexpr int kPointsPerInch = 72;
constexpr LPARAM kContextMenuByKey = -1;  // in place of the mouse's position

int ReadNumber(const std::string& profile, const char* key) {
  char text[32] = "0";
  if (!profile.empty()) GetPrivateProfileStringA(kSection, key, "0", text, sizeof(text), profile.c_str());
  return std::atoi(text);
}

void WriteNumber(const std::string& profile, const char* key, int value) {
  if (profile.empty()) return;
  WritePrivateProfileStringA(kSection, key, std::to_string(value).c_str(), profile.c_str());
}

unique_hfont CreateRowFont(HDC dc) {
  LOGFONTW font = {};
  font.lfHeight = -MulDiv(kFontPoints, GetDeviceCaps(dc, LOGPIXELSY), kPointsPerInch);
  font.lfWeight = FW_NORMAL;
  font.lfPitchAndFamily = VARIABLE_PITCH | FF_SWISS;
  font.lfCharSet = DEFAULT_CHARSET;  // not that of western Europe alone
  lstrcpynW(font.lfFaceName, L"MS Sans Serif", LF_FACESIZE);
  return unique_hfont(CreateFontIndirectW(&font));
}

}  // namespace

// Measures names in the list box's font.
class CHistoryView::NameMeasure {
 public:
  NameMeasure(HWND window, HFONT font)
      : window_(window), dc_(GetDC(window)), previous_(SelectObject(dc_, font)) {
    TEXTMETRICW metrics = {};
    GetTextMetricsW(dc_, &metrics);
    averageWidth_ = metrics.tmAveCharWidth;
  }
  ~NameMeasure() {
    SelectObject(dc_, previous_);
    ReleaseDC(window_, dc_);
  }
  NameMeasure(const NameMeasure&) = delete;
  NameMeasure& operator=(const NameMeasure&) = delete;

  int ExtentOf(const HistoryEntry& entry, bool showIcons) const {
    SIZE size = {};
    const std::wstring name = base::WideFromNarrow(entry.displayName);
    GetTextExtentPoint32W(dc_, name.c_str(), static_cast<int>(name.size()), &size);
    return RowExtent(size.cx, averageWidth_, showIcons);
  }

 private:
  HWND window_;
  HDC dc_;
  HGDIOBJ previous_;
  int averageWidth_ = 0;
};

base::held_ptr<CHistoryView> CHistoryView::Create(HWND parent, int controlId, HistoryServices services) {
  base::held_ptr<CHistoryView> view(new CHistoryView(controlId, std::move(services)));
  view->ReadSettings();
  if (!view->CreateListBox(parent)) return nullptr;
  view->ApplyRowHeight();
  view->Load();
  return view;
}

CHistoryView::CHistoryView(int controlId, HistoryServices services)
    : controlId_(controlId),
      services_(std::move(services)),
      platform_(std::make_unique<ShellHistoryPlatform>()),
      history_(std::make_unique<HistoryList>(*platform_, base::LowerCaseNarrow)),
      pictures_(std::make_unique<RowPictures>(services_.preview, services_.clock)) {}

CHistoryView::~CHistoryView() { TakeDown(); }

void CHistoryView::TakeDown() noexcept {
  if (!listBox_) return;  // never came to life, or is down already: there is nothing to keep
  for (void (CHistoryView::*const keep)() const : {&CHistoryView::WriteSettings, &CHistoryView::Save}) {
    try {
      (this->*keep)();
    } catch (const std::exception&) {
      // The file is what it was, or its new content lies beside it; the teardown goes on.
    }
  }
  listBox_.reset();  // before the entries that its rows point at
}

HWND CHistoryView::window() const {
  return listBox_ ? listBox_->window() : nullptr;
}

bool CHistoryView::CreateListBox(HWND parent) {
  auto box = std::make_unique<HistoryListBox>(services_.instance, parent, controlId_);
  if (box->window() == nullptr) return false;
  listBox_ = std::move(box);
  listBox_->SetBeforePaint([this] { pictures_->thumbnails().BeginPainting(); });
  listBox_->SetLater([this] {
    // One at a time. The rows that wait for more ask again when they are painted, for which input comes first.
    if (pictures_->thumbnails().MakeWanted()) InvalidateRect(window(), nullptr, FALSE);
  });
  const HDC dc = GetDC(window());
  font_ = CreateRowFont(dc);
  ReleaseDC(window(), dc);
  SendMessageA(window(), WM_SETFONT, reinterpret_cast<WPARAM>(font_.get()), FALSE);
  return true;
}

void CHistoryView::ReadSettings() {
  sortingMethod_ = static_cast<std::int16_t>(ReadNumber(services_.profilePath(), kSortingMethodKey));
  showIcons_ = ReadNumber(services_.profilePath(), kShowIconsKey) != 0;
}

void CHistoryView::WriteSettings() const {
  WriteNumber(services_.profilePath(), kSortingMethodKey, sortingMethod_);
  WriteNumber(services_.profilePath(), kShowIconsKey, showIcons_ ? 1 : 0);
}

void CHistoryView::Load() {
  const std::string path = HistoryFilePath(services_.mainWindow());
  if (path.empty()) return;
  base::SystemRecoveryCalls calls;
  bool hasEntries = false;
  {
    base::SaveRecovery recovery(path, calls);
    ProfileHistoryFile file(path);
    hasEntries = LoadHistory(*history_, file, recovery);
  }
  if (hasEntries) SortAndRefill();
}

void CHistoryView::Save() const {
  const std::string path = HistoryFilePath(services_.mainWindow());
  if (path.empty()) return;
  base::SystemRecoveryCalls calls;
  base::SaveRecovery recovery(path, calls);
  ProfileHistoryFile file(path);
  SaveHistory(*history_, file, recovery);
}

bool CHistoryView::AddPathToHistory(const char* path) {
  if (path == nullptr) return false;
  const base::Hold hold(this);
  const HistoryList::AddResult result = history_->Add(path);
  if (result == HistoryList::AddResult::kRefused) return false;
  if (result == HistoryList::AddResult::kAppended && sortingMethod_ == kSortNewestFirst) {
    // On top of the view, but last in the list until it is sorted again.
    const HistoryEntry& added = *history_->entries().back();
    InsertRow(0, added);
    WidenTo(NameMeasure(window(), font_.get()).ExtentOf(added, showIcons_));
  } else {
    SortAndRefill();
  }
  return true;
}

void CHistoryView::ClearHistory() {
  SendMessageA(window(), LB_RESETCONTENT, 0, 0);  // no row points at an entry that is gone
  history_->Clear();
  pictures_->thumbnails().Clear();
  SortAndRefill();
}

void CHistoryView::AskAndClearHistory(HWND owner) {
  const HWND list = window();
  const int answer = MessageBoxA(owner, "Are you sure you want to delete all the items in the history list?",
                                 "Confirmation Request", MB_YESNO | MB_ICONQUESTION);
  // The host may have taken the explorer down while the question was open: with the list this object is gone.
  if (answer == IDYES && IsWindow(list)) ClearHistory();
}

void CHistoryView::SetSortingMethod(int method) {
  const int previous = std::exchange(sortingMethod_, method);
  if (previous != method) SortAndRefill();
}

void CHistoryView::SetShowIcons(bool show) {
  const bool previous = std::exchange(showIcons_, show);
  ApplyRowHeight();
  if (previous != show) SortAndRefill();
}

void CHistoryView::ApplyRowHeight() {
  const int height = RowHeight(showIcons_, static_cast<int>(RowPictures::SmallIconSize().cy));
  SendMessageA(window(), LB_SETITEMHEIGHT, 0, MAKELPARAM(height, 0));
}

void CHistoryView::SortAndRefill() {
  history_->Sort(sortingMethod_);
  Refill();
}

void CHistoryView::Refill() {
  const HWND box = window();
  SendMessageA(box, LB_RESETCONTENT, 0, 0);
  SendMessageA(box, LB_SETHORIZONTALEXTENT, 0, 0);
  widestRow_ = 0;
  SendMessageA(box, WM_SETREDRAW, FALSE, 0);
  SendMessageA(box, LB_INITSTORAGE, history_->size(), 0);
  const NameMeasure measure(box, font_.get());
  int widest = 0;  // told to the list box once: it lays its scroll bars out each time
  for (const auto& entry : history_->entries()) {
    widest = std::max(widest, measure.ExtentOf(*entry, showIcons_));
    InsertRow(-1, *entry);
  }
  WidenTo(widest);
  SendMessageA(box, WM_SETREDRAW, TRUE, 0);
  InvalidateRect(box, nullptr, TRUE);
}

void CHistoryView::InsertRow(int index, const HistoryEntry& entry) {
  const std::wstring name = base::WideFromNarrow(entry.displayName);
  const LRESULT row =
      SendMessageW(window(), LB_INSERTSTRING, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(name.c_str()));
  if (row >= 0) {
    SendMessageA(window(), LB_SETITEMDATA, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&entry));
  }
}

void CHistoryView::WidenTo(int extent) {
  if (extent <= widestRow_) return;
  widestRow_ = extent;
  SendMessageA(window(), LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(extent), 0);
}

const HistoryEntry* CHistoryView::EntryOfRow(int row) const {
  const LRESULT data = row < 0 ? LB_ERR : SendMessageA(window(), LB_GETITEMDATA, static_cast<WPARAM>(row), 0);
  return data == LB_ERR ? nullptr : reinterpret_cast<const HistoryEntry*>(data);
}

bool CHistoryView::HandleMessage(HWND panel, UINT message, WPARAM wParam, LPARAM lParam) {
  const base::Hold hold(this);
  if (message == WM_COMMAND && LOWORD(wParam) == controlId_) {
    if (HIWORD(wParam) == LBN_SELCHANGE) OnSelectionChanged();
    return true;
  }
  if (message == WM_DRAWITEM && static_cast<int>(wParam) == controlId_) {
    OnDrawItem(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
    return true;
  }
  const bool isByKey = lParam == kContextMenuByKey;
  if (message == WM_CONTEXTMENU && reinterpret_cast<HWND>(wParam) == window() && isByKey) {
    ShowSortingMenu(panel, BelowSelectedRow());
    return true;
  }
  return false;
}

// On the screen; the list's corner when no row is selected or in sight.
POINT CHistoryView::BelowSelectedRow() const {
  RECT row = {};
  RECT area = {};
  GetClientRect(window(), &area);
  const LRESULT selected = SendMessageA(window(), LB_GETCURSEL, 0, 0);
  if (selected >= 0) {
    SendMessageA(window(), LB_GETITEMRECT, static_cast<WPARAM>(selected), reinterpret_cast<LPARAM>(&row));
  }
  POINT point = {0, std::clamp<LONG>(row.bottom, 0, area.bottom)};
  ClientToScreen(window(), &point);
  return point;
}

void CHistoryView::OnSelectionChanged() {
  const HistoryEntry* const entry = EntryOfRow(static_cast<int>(SendMessageA(window(), LB_GETCURSEL, 0, 0)));
  if (entry == nullptr || entry->fullPath.empty()) return;
  const std::string path = entry->fullPath;  // adding replaces the entry
  const HWND list = window();
  // What fails in one of them loses none of the others. The host may take the explorer down while it loads.
  base::IndependentSteps steps;
  steps.Run([&] { AddPathToHistory(path.c_str()); });
  steps.Run([&] {
    if (services_.loadFile) services_.loadFile(path.c_str());
  });
  if (IsWindow(list)) SendMessageA(list, LB_SETCURSEL, 0, 0);
  steps.Finish();
}

void CHistoryView::OnDrawItem(const DRAWITEMSTRUCT& item) const {
  if (item.itemID == static_cast<UINT>(-1)) return;
  // A copy: looking an icon up runs code of the shell's, which may change the list.
  const HistoryEntry* const listed = EntryOfRow(static_cast<int>(item.itemID));
  const auto entry = listed != nullptr ? std::optional(*listed) : std::nullopt;
  if (!PaintHistoryRow(item, entry ? &*entry : nullptr, showIcons_, font_.get(), *pictures_)) {
    listBox_->AskForLater();
  }
}

void CHistoryView::ShowSortingMenu(HWND commandWindow, POINT screen) const {
  ShowHistorySortingMenu(services_.instance, commandWindow, screen, sortingMethod_);
}

void CHistoryView::ShowSortingMenuBelowButton(HWND toolbar, HWND commandWindow) const {
  RECT button = {};
  SendMessageA(toolbar, TB_GETRECT, kCommandHistorySorting, reinterpret_cast<LPARAM>(&button));
  POINT corner = {button.left, button.bottom + 1};
  ClientToScreen(toolbar, &corner);
  SendMessageA(toolbar, TB_PRESSBUTTON, kCommandHistorySorting, MAKELPARAM(TRUE, 0));
  ShowSortingMenu(commandWindow, corner);
  SendMessageA(toolbar, TB_PRESSBUTTON, kCommandHistorySorting, MAKELPARAM(FALSE, 0));
}

void CHistoryView::ShowIconsState(HWND toolbar) const {
  SendMessageA(toolbar, TB_CHECKBUTTON, kCommandHistoryIcons, MAKELPARAM(showIcons_ ? TRUE : FALSE, 0));
}

bool CHistoryView::HandleCommand(int command, HWND toolbar, HWND commandWindow) {
  const base::Hold hold(this);
  if (command >= kCommandFirstSorting && command < kCommandFirstSorting + kSortMethodCount) {
    SetSortingMethod(command - kCommandFirstSorting);
    return true;
  }
  if (command == kCommandClearHistory) {
    AskAndClearHistory(services_.mainWindow());
    return true;
  }
  if (command == kCommandHistorySorting) {
    ShowSortingMenuBelowButton(toolbar, commandWindow);
    return true;
  }
  if (command == kCommandHistoryIcons) {
    SetShowIcons(!showIcons_);
    ShowIconsState(toolbar);
    return true;
  }
  return false;
}

}  // namespace file_explorer

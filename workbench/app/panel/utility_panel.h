// The utility panel: pages of plug-ins, one in front, chosen by tabs with title and picture. Behind interface
// 1 of the host services. The panel's window is docked like any other.
#pragma once

#include <string>
#include <vector>

#include "workbench/app/ui/tab_strip.h"
#include "workbench/app/ui/window_base.h"

namespace workbench {

// A page's window: plain, filled with the face colour. A plug-in may subclass it; it then gets the page's
// messages.
class PanelPageWindow : public WindowBase<PanelPageWindow> {
 public:
  static constexpr wchar_t kClassName[] = L"WorkbenchPanelPage";
  static std::span<const MessageHandler> Handlers();
  PanelPageWindow(HWND parent, const std::wstring& title);

 private:
  LRESULT OnErase(const Message&);
};

class UtilityPanel : public WindowBase<UtilityPanel> {
 public:
  static constexpr wchar_t kClassName[] = L"WorkbenchUtilityPanel";
  static std::span<const MessageHandler> Handlers();

  struct PageRequest {
    std::string category;
    std::string guid;
    std::wstring title;
    std::wstring secondTitle;
    std::shared_ptr<const TabImage> image;
  };

  // parent: any window; the window manager gives the panel its place.
  UtilityPanel(HWND parent, const Theme& theme);
  ~UtilityPanel();

  // The new page's window, owned by the panel; null when there already is a page of that GUID, or the GUID is
  // empty. The page is not shown yet; when no page is in front, the first one comes to the front once
  // messages are dispatched, so that its owner can prepare its window before it hears of its first showing.
  HWND AddPage(const PageRequest& request);
  void RemovePage(const std::string& guid);  // unknown GUIDs are ignored
  bool ShowPage(const std::string& guid);    // false for an unknown GUID
  HWND PageWindow(const std::string& guid) const;
  const std::string& frontPage() const { return front_; }
  int pageCount() const { return static_cast<int>(pages_.size()); }
  Rect TabRect(const std::string& guid) const;
  std::vector<std::string> PageGuids() const;

 private:
  struct Page {
    int id = 0;
    PageRequest facts;
    std::unique_ptr<PanelPageWindow> window;
  };

  static constexpr UINT kShowFirstMessage = WM_APP + 1;

  const Page* Find(const std::string& guid) const;
  const Page* PageAt(Point at) const;
  Rect PageRect() const;
  void Update();
  void BringToFront(const Page& page);

  LRESULT OnPaint(const Message&);
  LRESULT OnErase(const Message&);
  LRESULT OnSize(const Message&);
  LRESULT OnMouseMove(const Message&);
  LRESULT OnMouseLeave(const Message&);
  LRESULT OnButtonDown(const Message&);
  LRESULT OnSetFocus(const Message&);
  LRESULT OnShowFirst(const Message&);

  const Theme& theme_;
  std::vector<Page> pages_;
  TabStrip tabs_{TabLook::Top};
  std::string front_;
  int nextPage_ = 1;
};

}  // namespace workbench

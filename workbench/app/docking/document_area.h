// The middle of the main window: one page in front, tabs when there are any. Pages are windows of documents
// and of windows that are docked as documents.
#pragma once

#include <optional>
#include <vector>

#include "workbench/app/ui/tab_strip.h"
#include "workbench/app/ui/window_base.h"

namespace workbench {

// Whoever added a page hears of what the user does with it. The page may be removed during each call.
class DocumentPageOwner {
 public:
  virtual void OnPageActivated(int page) = 0;
  virtual void OnPageClose(int page) = 0;
  virtual void OnPageMenu(int, POINT) {}
  virtual void OnPageDrag(int, POINT) {}

 protected:
  ~DocumentPageOwner() = default;
};

class DocumentArea : public WindowBase<DocumentArea> {
 public:
  static constexpr wchar_t kClassName[] = L"WorkbenchDocumentArea";
  static std::span<const MessageHandler> Handlers();

  DocumentArea(HWND parent, const Theme& theme);
  ~DocumentArea() { DestroyNow(); }

  // Adds a page at the end; the window becomes a child of the area. The new page does not come to the front
  // by itself unless it is the first one. Gives the page's number, never 0.
  int AddPage(HWND page, const std::wstring& title, std::shared_ptr<const TabImage> image,
              DocumentPageOwner& owner);
  // Forgets a page; its window is left alone. Unknown numbers are ignored.
  void RemovePage(int page);
  void SetTitle(int page, const std::wstring& title);
  // Brings a page to the front and tells its owner.
  void Activate(int page);
  int front() const { return front_; }
  int pageCount() const { return static_cast<int>(pages_.size()); }
  // The page after (step 1) or before (step -1) the front one, round the end.
  int Neighbour(int step) const;
  // The user asks to close the page: passed on to its owner.
  void RequestClose(int page);

  Rect ContentRect() const;
  Rect TabRect(int page) const { return tabs_.TabRect(page); }
  Rect CloseRectOf(int page) const;

 private:
  struct Page {
    int id;
    HWND window;
    std::wstring title;
    std::shared_ptr<const TabImage> image;
    DocumentPageOwner* owner;
  };

  Page* Find(int page);
  void Update();
  void DrawEmpty(HDC dc) const;

  LRESULT OnPaint(const Message&);
  LRESULT OnErase(const Message&);
  LRESULT OnSize(const Message&);
  LRESULT OnMouseMove(const Message&);
  LRESULT OnMouseLeave(const Message&);
  LRESULT OnButtonDown(const Message&);
  LRESULT OnButtonUp(const Message&);
  LRESULT OnMiddleUp(const Message&);
  LRESULT OnRightUp(const Message&);
  LRESULT OnCaptureChanged(const Message&);

  const Theme& theme_;
  std::vector<Page> pages_;
  TabStrip tabs_{TabLook::Top};
  int front_ = 0;
  int nextPage_ = 1;
  int pressedClose_ = 0;
  int pressedTab_ = 0;
  POINT pressedAt_ = {};
};

}  // namespace workbench

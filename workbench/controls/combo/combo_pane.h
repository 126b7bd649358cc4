// The window of the path box: an editable list of drives and parent folders.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <deque>
#include <string>
#include <vector>

#include "workbench/controls/shell/location.h"
#include "workbench/controls/shell/type_cache.h"
#include "workbench/controls/shell/window_base.h"

namespace controls {

class ComboPaneOwner {
 public:
  virtual void OnPlaceChosen(const Location& location) = 0;
  virtual void OnTextEntered(const std::wstring& text) = 0;
  virtual void OnComboFocus() = 0;
  virtual void OnComboDestroyed() = 0;

 protected:
  ~ComboPaneOwner() = default;
};

class ComboPane : public WindowBase {
 public:
  explicit ComboPane(ComboPaneOwner& owner) : owner_(owner), editPart_(*this) {}
  ~ComboPane() override;

  struct Options {
    bool fullPath = true;
    bool virtualFolders = true;
    bool history = true;
    bool icons = true;
    bool completion = true;
    bool enterNavigates = true;
    int rows = 20;
  };

  bool CreatePane(HWND parent, const RECT& rect);
  HWND combo() const { return combo_; }
  void SetFont(HFONT font);
  void SetOptions(const Options& options);
  // The text and the icon of a place; undoes what was typed.
  void ShowLocation(const Location& location);
  void FocusEdit();

 protected:
  LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  class EditPart : public Subclass {
   public:
    explicit EditPart(ComboPane& pane) : pane_(pane) {}
    LRESULT HandleSubclassed(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;

   private:
    ComboPane& pane_;
  };
  struct Place {
    Location location;
    int indent;
  };

  bool CreateCombo();
  void Layout();
  void ApplyRows();
  void FillList();
  std::vector<Place> Places() const;
  int IconOf(const Location& location);
  std::wstring TextOf(const Location& location) const;
  void EditWholePath();
  void InsertPlace(int index, const Place& place);
  void EnterText();
  void Restore();
  void Complete();
  std::wstring CompletionOf(const std::wstring& typed) const;

  ComboPaneOwner& owner_;
  EditPart editPart_;
  HWND combo_ = nullptr;
  HWND edit_ = nullptr;
  HFONT font_ = nullptr;
  Options options_;
  TypeCache types_;
  Location current_;
  std::vector<Place> listed_;
  std::deque<Location> visited_;
  bool filling_ = false;
};

}  // namespace controls

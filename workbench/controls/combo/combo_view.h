// The combo view control: the path box above the file list.
#pragma once

#include <string>

#include "workbench/controls/com/ole_control.h"
#include "workbench/controls/combo/combo_pane.h"
#include "workbench/controls/shell/font_holder.h"
#include "workbench/controls/shell/location_link.h"

namespace controls {

class ComboView : public OleControl, public ComboPaneOwner {
 public:
  template <bool ComboPane::Options::*Option>
  HRESULT GetOption(Call& call) {
    return call.ReturnBool(options_.*Option);
  }
  template <bool ComboPane::Options::*Option>
  HRESULT PutOption(Call& call) {
    const bool before = options_.*Option;
    const HRESULT result = call.Bool(0, options_.*Option);
    // Taking options over undoes what is being typed.
    if (SUCCEEDED(result) && options_.*Option != before) pane_.SetOptions(options_);
    return result;
  }
  HRESULT GetRows(Call& call) { return call.ReturnShort(static_cast<short>(options_.rows)); }
  HRESULT PutRows(Call& call);
  HRESULT GetFolderView(Call& call);
  HRESULT PutFolderView(Call& call);
  HRESULT GetComboHandle(Call& call);
  HRESULT GetBorder(Call& call) { return call.ReturnLong(border_); }
  HRESULT PutBorder(Call& call);
  HRESULT GetFont(Call& call);
  HRESULT PutFont(Call& call);

  // ComboPaneOwner
  void OnPlaceChosen(const Location& location) override;
  void OnTextEntered(const std::wstring& text) override;
  void OnComboFocus() override { OnGotFocus(); }
  void OnComboDestroyed() override { ForgetWindow(); }

 protected:
  ComboView();
  ~ComboView() override;

  DispatchTable Members() override;
  void* MembersSelf() override { return this; }
  HWND CreateControlWindow(HWND parent, const RECT& rect) override;
  void DestroyControlWindow() override { pane_.Destroy(); }
  void OnClose() override;
  HWND FocusWindow() override { return pane_.combo(); }

 private:
  void OnPeerMoved(const Location& location);
  void Refuse(const std::wstring& text, const std::wstring& reason);
  void ApplyBorder();

  ComboPane pane_;
  ComboPane::Options options_;
  long border_ = 3;
  FontHolder font_;
  Location current_;
  LocationLink folderView_;
  ComRef<IUnknown> folderViewObject_;  // what was put, for the getter
};

}  // namespace controls

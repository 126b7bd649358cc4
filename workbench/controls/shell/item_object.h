// The item objects that the controls hand out.
#pragma once

#include <functional>
#include <string>

#include "workbench/controls/com/com_object.h"
#include "workbench/controls/com/dispatch.h"
#include "workbench/controls/shell/location.h"

namespace controls {

// The dispatch face of an item; what it says comes from the derived class. Items may outlive their control;
// they then still answer what needs no control.
class ItemObject : public IDispatch {
 public:
  void* Interface(REFIID iid);
  STDMETHODIMP GetTypeInfoCount(UINT* count) override;
  STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
  STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override;
  STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* params, VARIANT* result,
                      EXCEPINFO* exception, UINT* badArgument) override;

  static DispatchTable Members();

  // File-system path; a virtual item's name; empty for "no item".
  virtual std::wstring Path() const = 0;
  virtual std::wstring DisplayName() const = 0;
  // The shell's attribute bits (SFGAO_...) among mask.
  virtual ULONG Attributes(ULONG mask) const = 0;
  // Null when the shell has no name for the item; owned by the item.
  virtual const ITEMIDLIST* Pidl() = 0;
  // Null at the root.
  virtual ComRef<IDispatch> Parent() = 0;
  virtual HRESULT InvokeDefault() = 0;
  virtual bool Selected() const { return false; }
  virtual HRESULT SetSelected(bool) { return E_NOTIMPL; }
  virtual bool SortKey(long&) const { return false; }
  virtual HRESULT SetSortKey(long) { return E_NOTIMPL; }

 protected:
  virtual ~ItemObject() = default;

 private:
  HRESULT GetPath(Call& call);
  HRESULT GetDisplayName(Call& call);
  HRESULT GetSortKey(Call& call);
  HRESULT PutSortKey(Call& call);
  HRESULT GetSelected(Call& call);
  HRESULT PutSelected(Call& call);
  HRESULT CallParent(Call& call);
  HRESULT GetAttributes(Call& call);
  HRESULT CallDefault(Call& call);
  HRESULT GetPidl(Call& call);
};

// Attribute bits of a file-system item, from what enumeration gave. zipFolders: ZIP archives count as
// folders.
ULONG ShellAttributes(uint32_t fileAttributes, std::wstring_view name, bool zipFolders);
// Attribute bits of an item inside an archive, which is on no file system and cannot be changed.
ULONG ArchiveItemAttributes(uint32_t fileAttributes);

// A folder by itself: a node of the tree, the current folder of a view. An empty location makes the item of
// "nothing", whose texts are empty.
class LocationItem : public ItemObject {
 public:
  using Open = std::function<HRESULT(const Location&)>;

  std::wstring Path() const override { return location_.Text(); }
  std::wstring DisplayName() const override { return location_.Name(); }
  ULONG Attributes(ULONG mask) const override;
  const ITEMIDLIST* Pidl() override { return location_.pidl(); }
  ComRef<IDispatch> Parent() override;
  HRESULT InvokeDefault() override { return open_ ? open_(location_) : E_UNEXPECTED; }

 protected:
  // open may be empty; it must not outlive what it uses.
  explicit LocationItem(Location location, Open open = {})
      : location_(std::move(location)), open_(std::move(open)) {}

 private:
  Location location_;
  Open open_;
};

}  // namespace controls

#include "src/shellhost/shell_item.h"

#include "base/text/narrow_path.h"
#include "src/framework/com/com_text.h"
#include "src/shellhost/control_access.h"
#include "src/shellhost/control_contract.h"
#include "src/shellhost/control_values.h"

namespace file_explorer {

ULONG ShellItem::HasAttributes(ULONG mask) const {
  LONG attributes = 0;
  if (object_) {
    _com_dispatch_method(object_.Get(), item_id::kAttributes, DISPATCH_PROPERTYGET, VT_I4, &attributes,
                         L"\x0003", static_cast<LONG>(mask));
  }
  return static_cast<ULONG>(attributes) & mask;
}

OwnedVariant ShellItem::GetSortKey() const {
  OwnedVariant key;
  if (object_) _com_dispatch_propget(object_.Get(), item_id::kSortKey, VT_VARIANT, key.put());
  return key;
}

void ShellItem::SetSortKey(const VARIANT& key) const {
  if (object_) _com_dispatch_propput(object_.Get(), item_id::kSortKey, VT_VARIANT, &key);
}

PCIDLIST_ABSOLUTE ShellItem::GetPidl() const {
  double number = 0;
  if (object_) _com_dispatch_propget(object_.Get(), item_id::kPidl, VT_R8, &number);
  return reinterpret_cast<PCIDLIST_ABSOLUTE>(AddressFromNumber(number));
}

void ShellItem::InvokeDefault() const {
  if (object_) CallMethod(object_.Get(), item_id::kDefaultAction);
}

UniqueBstr ShellItem::GetText(DISPID id) const {
  UniqueBstr text;
  if (object_) _com_dispatch_propget(object_.Get(), id, VT_BSTR, text.put());
  return text;
}

std::optional<std::string> ShellItem::GetPath(DISPID id) const {
  const UniqueBstr text = GetText(id);
  const auto path = TextOfBstr(text.get());
  return path ? base::NarrowPath(*path) : std::nullopt;
}

std::optional<std::string> ShellItem::GetName() const {
  return DisplayBstr(GetText(item_id::kName).get());
}

std::optional<std::string> ShellItem::GetNameAsPath() const {
  return GetPath(item_id::kName);
}

std::optional<std::string> ShellItem::GetFullPath() const {
  return GetPath(item_id::kFullPath);
}

std::wstring ShellItem::GetWidePath() const {
  const UniqueBstr text = GetText(item_id::kFullPath);
  return std::wstring(TextOfBstr(text.get()).value_or(std::wstring_view()));
}

std::optional<std::string> ShellItem::GetFolderText() const {
  return DisplayBstr(GetText(item_id::kFolderText).get());
}

bool ShellItem::IsSelected() const {
  VARIANT_BOOL selected = VARIANT_FALSE;
  if (object_) _com_dispatch_propget(object_.Get(), item_id::kSelected, VT_BOOL, &selected);
  return selected != VARIANT_FALSE;
}

void ShellItem::SetSelected(bool selected) const {
  if (object_) PutFlag(object_.Get(), item_id::kSelected, selected);
}

ShellItem ShellItem::GetParent() const {
  IDispatch* parent = nullptr;
  if (object_) {
    _com_dispatch_method(object_.Get(), item_id::kParentFolder, DISPATCH_METHOD, VT_DISPATCH, &parent,
                         nullptr);
  }
  ComPtr<IDispatch> owned;
  owned.Attach(parent);
  return ShellItem(std::move(owned));
}

}  // namespace file_explorer

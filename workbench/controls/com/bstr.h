// Owners of BSTR and VARIANT values.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <string>
#include <string_view>
#include <utility>

namespace controls {

class Bstr {
 public:
  Bstr() = default;
  explicit Bstr(std::wstring_view text)
      : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {}
  ~Bstr() { SysFreeString(text_); }
  Bstr(const Bstr&) = delete;
  Bstr& operator=(const Bstr&) = delete;

  BSTR get() const { return text_; }
  BSTR* put() {
    SysFreeString(std::exchange(text_, nullptr));
    return &text_;
  }
  BSTR detach() { return std::exchange(text_, nullptr); }
  std::wstring_view view() const {
    return text_ ? std::wstring_view(text_, SysStringLen(text_)) : std::wstring_view();
  }

 private:
  BSTR text_ = nullptr;
};

class Variant : public VARIANT {
 public:
  Variant() { VariantInit(this); }
  ~Variant() { VariantClear(this); }
  Variant(const Variant&) = delete;
  Variant& operator=(const Variant&) = delete;
};

}  // namespace controls

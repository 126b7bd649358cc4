#include "src/shellhost/control_container.h"

#include "base/text/code_page.h"
#include "src/framework/com/com_guard.h"
#include "src/framework/com/com_text.h"

namespace file_explorer {
namespace {

std::string ClassIdText(const CLSID& classId) {
  wchar_t* text = nullptr;
  if (FAILED(StringFromCLSID(classId, &text))) return {};
  const UniqueTaskMemory<wchar_t> owner(text);
  return base::DisplayNarrow(text);
}

void ReportMissingControl(const char* displayName, const char* fileName, const CLSID& classId) {
  const std::string text =
      std::string("Could not create the ") + displayName + " control (filename = '" + fileName +
      "', ClassID = '" + ClassIdText(classId) +
      "'). Check that it has been installed on your computer and that this page correctly "
      "references it.";
  MessageBoxA(nullptr, text.c_str(), "ActiveX Error", MB_ICONEXCLAMATION);
}

ComPtr<CComObject<CControlSite>> NewSite() noexcept {
  ComPtr<CComObject<CControlSite>> site;
  ComEdge([&] {
    site = CComObject<CControlSite>::New();
    return S_OK;
  });
  return site;
}

}  // namespace

ComPtr<IUnknown> CreateHostedControl(const char* displayName, const char* fileName, const char* classIdText,
                                     PropertyList properties) {
  const ComPtr<CComObject<CControlSite>> site = NewSite();
  if (!site) return nullptr;
  CLSID classId = CLSID_NULL;
  CLSIDFromString(base::WideFromNarrow(classIdText).c_str(), &classId);
  if (FAILED(site->Create(classId, properties, ""))) {
    ReportMissingControl(displayName, fileName, classId);
    return nullptr;
  }
  return ComPtr<IUnknown>(static_cast<IOleClientSite*>(site.Get()));
}

CControlSite* ControlSiteOf(IUnknown* site) noexcept {
  void* raw = nullptr;
  if (!site || FAILED(site->QueryInterface(IID_CControlSite, &raw))) return nullptr;
  auto* const result = static_cast<CControlSite*>(raw);
  ComPtr<IOleClientSite> reference;
  reference.Attach(result);  // dropped here: the caller's own reference keeps the site alive
  return result;
}

HRESULT AttachOrResize(CControlSite* site, HWND parentWindow, const RECT& rect) {
  if (!site) return E_POINTER;
  const ComPtr<IOleClientSite> alive(site);  // the control may make the owner let go of it
  return site->ParentWindow() ? site->SetPosition(rect) : site->Attach(parentWindow, rect, nullptr);
}

}  // namespace file_explorer

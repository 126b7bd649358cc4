#include "workbench/controls/shell/file_drag.h"

#include <windows.h>

#include <ole2.h>
#include <shlobj.h>

#include "workbench/controls/shell/file_list.h"

namespace controls {
namespace {

// Drops when the button that began the drag is released; Escape and the other button cancel.
class DropSource : public IDropSource {
 public:
  void* Interface(REFIID iid) {
    static constexpr InterfaceRow<DropSource> kRows[] = {
        Row<DropSource, IDropSource>(IID_IUnknown),
        Row<DropSource, IDropSource>(IID_IDropSource),
    };
    return FindInterface(kRows, this, iid);
  }
  STDMETHODIMP QueryContinueDrag(BOOL escape, DWORD keys) override {
    if (escape || (keys & other_)) return DRAGDROP_S_CANCEL;
    return keys & button_ ? S_OK : DRAGDROP_S_DROP;
  }
  STDMETHODIMP GiveFeedback(DWORD) override { return DRAGDROP_S_USEDEFAULTCURSORS; }

 protected:
  explicit DropSource(bool rightButton)
      : button_(rightButton ? MK_RBUTTON : MK_LBUTTON), other_(rightButton ? MK_LBUTTON : MK_RBUTTON) {}
  virtual ~DropSource() = default;

 private:
  DWORD button_;
  DWORD other_;
};

class FileData : public IDataObject {
 public:
  void* Interface(REFIID iid) {
    static constexpr InterfaceRow<FileData> kRows[] = {
        Row<FileData, IDataObject>(IID_IUnknown),
        Row<FileData, IDataObject>(IID_IDataObject),
    };
    return FindInterface(kRows, this, iid);
  }

  STDMETHODIMP GetData(FORMATETC* format, STGMEDIUM* medium) override {
    return Guarded([&] {
      if (!format || !medium) return E_POINTER;
      *medium = {};
      const HRESULT offered = QueryGetData(format);
      if (offered != S_OK) return offered;
      medium->tymed = TYMED_HGLOBAL;
      medium->hGlobal = MakeFileListBlock(paths_);
      return medium->hGlobal ? S_OK : E_OUTOFMEMORY;
    });
  }
  STDMETHODIMP GetDataHere(FORMATETC*, STGMEDIUM*) override { return DATA_E_FORMATETC; }
  STDMETHODIMP QueryGetData(FORMATETC* format) override {
    if (!format) return E_POINTER;
    if (format->cfFormat != CF_HDROP) return DV_E_FORMATETC;
    if (format->dwAspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    return format->tymed & TYMED_HGLOBAL ? S_OK : DV_E_TYMED;
  }
  STDMETHODIMP GetCanonicalFormatEtc(FORMATETC*, FORMATETC* result) override {
    if (!result) return E_POINTER;
    result->ptd = nullptr;
    return DATA_S_SAMEFORMATETC;
  }
  // Targets tell what they did; the files are theirs to move, so it changes nothing here.
  STDMETHODIMP SetData(FORMATETC* format, STGMEDIUM* medium, BOOL release) override {
    if (!format || !medium) return E_POINTER;
    if (format->cfFormat != PerformedEffectFormat()) return DV_E_FORMATETC;
    if (release) ReleaseStgMedium(medium);
    return S_OK;
  }
  STDMETHODIMP EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) override {
    if (!formats) return E_POINTER;
    *formats = nullptr;
    if (direction != DATADIR_GET) return E_NOTIMPL;
    const FORMATETC offered = {CF_HDROP, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
    return SHCreateStdEnumFmtEtc(1, &offered, formats);
  }
  STDMETHODIMP DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD*) override { return OLE_E_ADVISENOTSUPPORTED; }
  STDMETHODIMP DUnadvise(DWORD) override { return OLE_E_ADVISENOTSUPPORTED; }
  STDMETHODIMP EnumDAdvise(IEnumSTATDATA**) override { return OLE_E_ADVISENOTSUPPORTED; }

 protected:
  explicit FileData(std::vector<std::wstring> paths) : paths_(std::move(paths)) {}
  virtual ~FileData() = default;

 private:
  const std::vector<std::wstring> paths_;
};

}  // namespace

ComRef<IDataObject> MakeFileData(std::vector<std::wstring> paths) {
  return ComRef<IDataObject>::Attach(ComObject<FileData>::Create(std::move(paths)).detach());
}

void DragFiles(const std::vector<std::wstring>& paths, DWORD effects, bool rightButton) {
  if (paths.empty()) return;
  // The host may have initialised COM without OLE, which dragging needs.
  if (FAILED(OleInitialize(nullptr))) return;
  DWORD effect = DROPEFFECT_NONE;
  DoDragDrop(MakeFileData(paths).get(), ComObject<DropSource>::Create(rightButton).get(), effects, &effect);
  OleUninitialize();
}

}  // namespace controls

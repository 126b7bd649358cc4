#include "tests/support/explorer/blocked_class.h"

#include <stdexcept>

namespace test_support {
namespace {

class FailingFactory : public IClassFactory {
 public:
  virtual ~FailingFactory() = default;
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    if (iid == IID_IUnknown || iid == IID_IClassFactory) {
      *object = static_cast<IClassFactory*>(this);
      AddRef();
      return S_OK;
    }
    *object = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID, void** object) override {
    ++attempts;
    *object = nullptr;
    return E_FAIL;
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

  int attempts = 0;

 private:
  ULONG references_ = 1;
};

}  // namespace

const CLSID kFileViewClassId = {0x0A7A7240, 0xD038, 0x4B9F, {0xB3, 0xB1, 0x7F, 0xEF, 0xFE, 0x5F, 0x9E, 0xD6}};
const CLSID kFolderViewClassId = {0x9EE4C13A, 0x551F, 0x440E, {0xB1, 0xED, 0xF4, 0xFA, 0x3C, 0x93, 0x5F, 0x4F}};
const CLSID kComboViewClassId = {0x1451FB53, 0x9444, 0x4FB0, {0xB0, 0xAC, 0x44, 0xF5, 0x6E, 0xDB, 0xC3, 0x32}};

BlockedClass::BlockedClass(REFCLSID classId) : factory_(new FailingFactory) {
  CoInitialize(nullptr);
  if (FAILED(CoRegisterClassObject(classId, factory_, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie_))) {
    throw std::runtime_error("the class can't be blocked");
  }
}

BlockedClass::~BlockedClass() {
  CoRevokeClassObject(cookie_);
  factory_->Release();
  CoUninitialize();
}

int BlockedClass::attempts() const { return static_cast<FailingFactory*>(factory_)->attempts; }

}  // namespace test_support

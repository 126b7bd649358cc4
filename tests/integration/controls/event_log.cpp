#include "tests/integration/controls/event_log.h"

#include <algorithm>

#include "tests/integration/controls/control_container.h"

namespace controls_test {

int EventLog::Count(DISPID id) const {
  for (const auto& [known, count] : counts_) {
    if (known == id) return count;
  }
  return 0;
}

const Event* EventLog::Last(DISPID id) const {
  const auto found =
      std::find_if(events_.rbegin(), events_.rend(), [id](const Event& e) { return e.id == id; });
  return found == events_.rend() ? nullptr : &*found;
}

void EventLog::Clear() {
  events_.clear();
  counts_.clear();
}

STDMETHODIMP EventLog::QueryInterface(REFIID iid, void** object) {
  const bool known = IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IDispatch);
  *object = known ? this : nullptr;
  if (!known) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

STDMETHODIMP_(ULONG) EventLog::Release() {
  const ULONG left = --references_;
  if (left == 0) delete this;
  return left;
}

STDMETHODIMP EventLog::GetTypeInfoCount(UINT* count) {
  *count = 0;
  return S_OK;
}

STDMETHODIMP EventLog::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* params, VARIANT*, EXCEPINFO*,
                              UINT*) {
  const auto counted =
      std::find_if(counts_.begin(), counts_.end(), [id](const auto& c) { return c.first == id; });
  if (counted == counts_.end()) {
    counts_.emplace_back(id, 1);
  } else {
    ++counted->second;
  }
  if (handler_) handler_(id, *params);
  if (std::find(countedOnly_.begin(), countedOnly_.end(), id) != countedOnly_.end()) return S_OK;
  Event event;
  event.id = id;
  for (UINT i = 0; i < params->cArgs; ++i) {
    const VARIANT& value = params->rgvarg[params->cArgs - 1 - i];
    event.types.push_back(value.vt);
    event.texts.push_back(value.vt == VT_BSTR       ? std::wstring(value.bstrVal, SysStringLen(value.bstrVal))
                          : value.vt == VT_DISPATCH ? GetText(value.pdispVal, 1)
                                                    : std::wstring());
    event.numbers.push_back(value.vt == VT_I4 ? value.lVal : value.vt == VT_BOOL ? value.boolVal : 0);
  }
  events_.push_back(std::move(event));
  return S_OK;
}

}  // namespace controls_test

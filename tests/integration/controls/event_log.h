// A sink that records the events of a control with the exact types of their arguments.
#pragma once

#include <windows.h>

#include <ole2.h>

#include <functional>
#include <string>
#include <vector>

namespace controls_test {

struct Event {
  DISPID id = 0;
  std::vector<VARTYPE> types;       // in declaration order
  std::vector<std::wstring> texts;  // of text arguments, and the paths of object arguments; empty for others
  std::vector<long> numbers;        // of numbers and truth values
};

class EventLog final : public IDispatch {
 public:
  // Called for each event before it is recorded; may answer through the arguments.
  using Handler = std::function<void(DISPID id, DISPPARAMS& params)>;

  void SetHandler(Handler handler) { handler_ = std::move(handler); }
  // Events that are counted but not recorded: those that come for each item.
  void CountOnly(DISPID id) { countedOnly_.push_back(id); }

  const std::vector<Event>& events() const { return events_; }
  int Count(DISPID id) const;
  const Event* Last(DISPID id) const;
  void Clear();

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() override;
  STDMETHODIMP GetTypeInfoCount(UINT* count) override;
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* params, VARIANT* result,
                      EXCEPINFO* exception, UINT* badArgument) override;

 private:
  ~EventLog() = default;
  ULONG references_ = 1;
  Handler handler_;
  std::vector<DISPID> countedOnly_;
  std::vector<std::pair<DISPID, int>> counts_;
  std::vector<Event> events_;
};

}  // namespace controls_test

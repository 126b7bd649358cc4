// The event source of a control: one event interface, any number of sinks.
#pragma once

#include <map>
#include <vector>

#include "workbench/controls/com/com_object.h"

namespace controls {

// A separate COM object, because a connection point may outlive its control. The control empties it when it
// closes.
class ConnectionPoint : public IConnectionPoint {
 public:
  void* Interface(REFIID iid);

  STDMETHODIMP GetConnectionInterface(IID* iid) override;
  STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) override;
  STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) override;
  STDMETHODIMP Unadvise(DWORD cookie) override;
  STDMETHODIMP EnumConnections(IEnumConnections** connections) override;

  bool HasSinks() const { return !sinks_.empty(); }
  // Calls every sink. arguments stand in the order of DISPPARAMS, the last declared one first. A sink may
  // advise, unadvise or close the control meanwhile.
  void Fire(DISPID event, VARIANT* arguments, UINT count);
  void RemoveAll() { sinks_.clear(); }
  // The container is gone: its pointer is no longer handed out.
  void Disconnect();

 protected:
  ConnectionPoint(IConnectionPointContainer* container, const IID& eventInterface)
      : container_(container), eventInterface_(eventInterface) {}
  virtual ~ConnectionPoint() = default;

 private:
  IConnectionPointContainer* container_;  // not owned: the container owns this object
  IID eventInterface_;
  DWORD nextCookie_ = 1;
  std::map<DWORD, ComRef<IDispatch>> sinks_;
};

// Enumerates a fixed list; Interface is IEnumConnectionPoints or IEnumConnections and so on.
template <typename Enumerator, typename Element, typename Copy>
class ListEnumerator : public Enumerator {
 public:
  void* Interface(REFIID iid) {
    if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, iid_)) return static_cast<Enumerator*>(this);
    return nullptr;
  }
  STDMETHODIMP Next(ULONG count, Element* elements, ULONG* fetched) override {
    if (!elements || (!fetched && count != 1)) return E_POINTER;
    ULONG given = 0;
    for (; given < count && at_ < items_.size(); ++given, ++at_) Copy::Assign(elements[given], items_[at_]);
    if (fetched) *fetched = given;
    return given == count ? S_OK : S_FALSE;
  }
  STDMETHODIMP Skip(ULONG count) override {
    const bool enough = items_.size() - at_ >= count;
    at_ = enough ? at_ + count : items_.size();
    return enough ? S_OK : S_FALSE;
  }
  STDMETHODIMP Reset() override {
    at_ = 0;
    return S_OK;
  }
  STDMETHODIMP Clone(Enumerator** clone) override {
    if (!clone) return E_POINTER;
    *clone = nullptr;
    return Guarded([&] {
      *clone = ComObject<ListEnumerator>::Create(iid_, items_, at_).detach();
      return S_OK;
    });
  }

 protected:
  using Items = std::vector<typename Copy::Kept>;
  ListEnumerator(const IID& iid, Items items, size_t at = 0) : iid_(iid), items_(std::move(items)), at_(at) {}
  virtual ~ListEnumerator() = default;

 private:
  IID iid_;
  Items items_;
  size_t at_;
};

struct CopyConnectionPoint {
  using Kept = ComRef<IConnectionPoint>;
  static void Assign(IConnectionPoint*& to, const Kept& from) {
    to = from.get();
    to->AddRef();
  }
};
using ConnectionPointEnumerator =
    ListEnumerator<IEnumConnectionPoints, IConnectionPoint*, CopyConnectionPoint>;

struct KeptConnection {
  DWORD cookie;
  ComRef<IUnknown> sink;
};
struct CopyConnection {
  using Kept = KeptConnection;
  static void Assign(CONNECTDATA& to, const Kept& from) {
    to.dwCookie = from.cookie;
    to.pUnk = from.sink.get();
    to.pUnk->AddRef();
  }
};
using ConnectionEnumerator = ListEnumerator<IEnumConnections, CONNECTDATA, CopyConnection>;

}  // namespace controls

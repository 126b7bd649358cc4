// How the three controls follow each other. Private to them: a control of another maker simply does not
// answer.
#pragma once

#include <windows.h>

#include <shlobj.h>
#include <unknwn.h>

namespace controls {

inline constexpr IID kIidLocationSink = {
    0x69646bba, 0x9b88, 0x4d92, {0xaf, 0x09, 0x39, 0x27, 0xf1, 0x83, 0x44, 0x4c}};
inline constexpr IID kIidLocationPeer = {
    0x3ab1a14a, 0x1484, 0x4236, {0x85, 0x10, 0x98, 0x0e, 0xe3, 0xd7, 0xe3, 0x1d}};

// Told about a peer's moves. In all calls a place is a path (null or empty for a virtual folder) and an item
// list (null when the shell has no name for the path); both belong to the caller and live for the call.
struct ILocationSink : public IUnknown {
  virtual HRESULT STDMETHODCALLTYPE LocationChanged(const wchar_t* path, const ITEMIDLIST* pidl) = 0;
  // The peer closes: the sink lets go of it now.
  virtual HRESULT STDMETHODCALLTYPE PeerClosing() = 0;
};

// A control that is at some place and can go elsewhere.
struct ILocationPeer : public IUnknown {
  // Calls the sink's LocationChanged with the present place before it returns; not at all when there is none
  // yet.
  virtual HRESULT STDMETHODCALLTYPE TellLocation(ILocationSink* sink) = 0;
  // Goes to a place. S_OK when it is there or under way. A place that cannot be opened is reported by the
  // control that shows files, and every sink is told the place that stays.
  virtual HRESULT STDMETHODCALLTYPE GoTo(const wchar_t* path, const ITEMIDLIST* pidl) = 0;
  virtual HRESULT STDMETHODCALLTYPE AdviseLocation(ILocationSink* sink) = 0;
  virtual HRESULT STDMETHODCALLTYPE UnadviseLocation(ILocationSink* sink) = 0;
};

}  // namespace controls

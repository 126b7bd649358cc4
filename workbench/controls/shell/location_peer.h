// How the three controls follow each other. Private to them: a control of another maker simply does not
// answer.
#pragma once

#include <windows.h>

#include <shlobj.h>
#include <unknwn.h>

namespace controls {

inline constexpr IID kIidLocationSink = {
    0xd25646ce, 0x28fa, 0x4f91, {0xba, 0xb5, 0x0f, 0xd6, 0xd5, 0x14, 0x4c, 0x76}};
inline constexpr IID kIidLocationPeer = {
    0xb0d335c7, 0xd4ad, 0x4ee3, {0x83, 0x5e, 0x1d, 0x23, 0x33, 0x08, 0x0b, 0xf3}};

// Told about a peer's moves. In all calls a place is a path (null or empty for a virtual folder) and an item
// list (null when the shell has no name for the path), which belong to the caller and live for the call;
// archiveLength tells how many characters of the path name the ZIP archive that the place lies in or is, 0
// outside of archives.
struct ILocationSink : public IUnknown {
  virtual HRESULT STDMETHODCALLTYPE LocationChanged(const wchar_t* path, const ITEMIDLIST* pidl,
                                                    UINT archiveLength) = 0;
  // The peer closes: the sink lets go of it now.
  virtual HRESULT STDMETHODCALLTYPE PeerClosing() = 0;
};

enum class PeerKind : LONG { kFileView = 1, kFolderView = 2 };

// A control that is at some place and can go elsewhere.
struct ILocationPeer : public IUnknown {
  virtual HRESULT STDMETHODCALLTYPE GetKind(PeerKind* kind) = 0;
  // Calls the sink's LocationChanged with the present place before it returns; not at all when there is none
  // yet.
  virtual HRESULT STDMETHODCALLTYPE TellLocation(ILocationSink* sink) = 0;
  // Goes to a place. S_OK when it is there or under way. A place that cannot be opened is reported by the
  // control that shows files, and every sink is told the place that stays.
  virtual HRESULT STDMETHODCALLTYPE GoTo(const wchar_t* path, const ITEMIDLIST* pidl, UINT archiveLength) = 0;
  virtual HRESULT STDMETHODCALLTYPE AdviseLocation(ILocationSink* sink) = 0;
  virtual HRESULT STDMETHODCALLTYPE UnadviseLocation(ILocationSink* sink) = 0;
};

}  // namespace controls

// Automation calls by DISPID. comdef.h declares
//   _com_dispatch_propput(object, dispid, type, value)
//   _com_dispatch_propget(object, dispid, type, &result)
//   _com_dispatch_method(object, dispid, flags, resultType, &result, L"argument types", arguments...)
// and _com_error, but the toolchain has no library that defines them; com_dispatch.cpp does. A failing call
// raises _com_error, with the object's error description when it gave one.
//
// Values by type: VT_I2, VT_BOOL, VT_I4 and the like as int, VT_R8 as double, VT_BSTR, VT_DISPATCH and
// VT_UNKNOWN as pointers, VT_VARIANT as a pointer to the VARIANT; by-reference types as pointers. What goes
// in stays the caller's. Results are written in the result type (VT_BOOL: VARIANT_BOOL, VT_I4: LONG, ...;
// VT_EMPTY: no result); texts, objects and variants that come out are the caller's to release. An empty
// answer where an object is asked for gives a null object. Argument types are one character each, for
// instance L"\x0003" for one VT_I4.
#pragma once

#include <windows.h>

#include <comdef.h>

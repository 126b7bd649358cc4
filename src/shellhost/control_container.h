// Making and placing a hosted control.
#pragma once

#include <windows.h>

#include "src/framework/com/com_owners.h"
#include "src/shellhost/control_site.h"

namespace file_explorer {

// Makes a site with a control of a class in it and gives the site, or null. classIdText is in registry form
// with braces. When the control can't be made the user is told in a message box "ActiveX Error" that names
// displayName, fileName and the class.
ComPtr<IUnknown> CreateHostedControl(const char* displayName, const char* fileName, const char* classIdText,
                                     PropertyList properties);

// The site behind the IUnknown that CreateHostedControl gave, borrowed; null for null or another object.
CControlSite* ControlSiteOf(IUnknown* site) noexcept;

// Places a control that has no parent window yet (Attach), moves one that has (SetPosition). rect is in
// client pixels.
HRESULT AttachOrResize(CControlSite* site, HWND parentWindow, const RECT& rect);

}  // namespace file_explorer
